#include "image/Extract.h"

#include <algorithm>

#include "foundation/FileStatus.h"
#include "foundation/StandardString.h"
#include "image/Image.h"
#include "image/ReplacedFile.h"

namespace {

constexpr std::size_t pieceSize = std::size_t{1} << 18;

std::optional<Reason> Copy(ImageFile& from, ReplacedFile& to)
{
  std::vector<unsigned char> piece(std::min<std::uint64_t>(pieceSize, from.layout().lidLength));
  const std::uint64_t end = from.size();
  for (std::uint64_t at = from.layout().lidOffset(); at < end;) {
    const std::size_t wanted = std::min<std::uint64_t>(piece.size(), end - at);
    const std::size_t count = from.read(at, std::span(piece).first(wanted));
    if (from.reason()) return from.reason();
    if (count < wanted) return Reason{from.name(), "became shorter"};
    if (auto reason = to.write(std::span(piece).first(count))) return reason;
    at += count;
  }
  return std::nullopt;
}

}  // namespace

ExtractResult Extract(const std::string& imageName, const std::string& lid)
{
  Image image(imageName);
  if (image.file.reason()) return {couldNot, {*image.file.reason()}};
  if (image.status() != allWell) {
    return {foundSomething, {{imageName, "not whole, nothing is extracted; verify tells more"}}};
  }
  ReplacedFile file(lid);
  if (FileStatus(ToString(file.target())).mayBeSameFile(FileStatus(ToString(imageName)))) {
    return {couldNot, {{lid, "cannot write: it is the image"}}};
  }
  auto reason = file.open();
  if (!reason) reason = Copy(image.file, file);
  if (!reason) reason = file.finish();
  if (!reason) reason = file.place();
  if (reason) return {couldNot, {*reason}};
  return {};
}
