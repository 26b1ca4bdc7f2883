#include "image/Payload.h"

#include <algorithm>
#include <cstring>
#include <vector>

namespace {

constexpr std::size_t pieceSize = std::size_t{1} << 17;

}  // namespace

std::optional<std::uint64_t> FirstDifference(const Payload& one, const Payload& other)
{
  const std::uint64_t common = std::min(one.length(), other.length());
  std::vector<unsigned char> oneBytes(std::min<std::uint64_t>(pieceSize, common));
  std::vector<unsigned char> otherBytes(oneBytes.size());
  for (std::uint64_t done = 0; done < common;) {
    const std::size_t wanted = std::min<std::uint64_t>(pieceSize, common - done);
    const std::size_t oneCount = one.file.read(one.offset + done, std::span(oneBytes).first(wanted));
    const std::size_t otherCount = other.file.read(other.offset + done, std::span(otherBytes).first(wanted));
    if (one.file.reason() || other.file.reason()) return std::nullopt;
    const std::size_t count = std::min(oneCount, otherCount);
    // A file that has become shorter differs where it ends now.
    if (count < wanted || std::memcmp(oneBytes.data(), otherBytes.data(), count) != 0) {
      const ByteView piece = ByteView(oneBytes).first(count);
      const auto [differs, ignored] = std::ranges::mismatch(piece, ByteView(otherBytes).first(count));
      return done + static_cast<std::uint64_t>(differs - piece.begin());
    }
    done += count;
  }
  if (one.length() == other.length()) return std::nullopt;
  return common;
}
