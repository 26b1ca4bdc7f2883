#include "image/LooksLike.h"

#include <algorithm>

#include "headers/FileHdr.h"
#include "headers/KespHeader.h"
#include "image/KeywordSearch.h"
#include "source/SPASourceStmt.h"

namespace {

// Of the first two bytes of a record.
bool BeginsWith(std::string_view beginning, unsigned short magicNumber)
{
  const char magic[] = {static_cast<char>(magicNumber >> 8), static_cast<char>(magicNumber & 0xFF)};
  return beginning.starts_with(std::string_view(magic, sizeof magic));
}

bool IsControl(char ch) { return (ch >= 0 && ch < ' ' && (ch < '\t' || ch > '\r')) || ch == 0x7F; }

// Whether there are more control characters than a text has. What its other bytes mean, its encoding decides.
bool HoldsManyControls(std::string_view bytes)
{
  constexpr std::size_t few = 3;
  const auto controls = static_cast<std::size_t>(std::ranges::count_if(bytes, IsControl));
  return controls > few && 20 * controls > bytes.size();
}

}  // namespace

bool LooksLikeImage(std::string_view beginning)
{
  return beginning.size() >= sizeof(FILEHDR) && BeginsWith(beginning, FileHdr::objectMagicNumber);
}

bool LooksLikeLid(std::string_view beginning)
{
  return beginning.size() >= sizeof(KESPHDR) && BeginsWith(beginning, KespHeader::lidMagicNumber);
}

bool LooksLikeUtf16(std::string_view beginning)
{
  if (beginning.starts_with("\xFF\xFE") || beginning.starts_with("\xFE\xFF")) return true;
  const auto isNul = [&](std::size_t i) { return beginning[i] == '\0'; };
  return beginning.size() >= 4 && isNul(0) == isNul(2) && isNul(1) == isNul(3) && isNul(0) != isNul(1);
}

bool LooksLikeSource(std::string_view beginning)
{
  if (LooksLikeBinary(beginning) != nullptr) return false;
  while (!beginning.empty()) {
    const std::size_t end = std::min(beginning.find('\n'), beginning.size());
    const SPASourceStmt line(String(beginning.data(), static_cast<unsigned int>(end)));
    if (line.isStmt() != 0 && FindKeyword(line.getLabel()) != nullptr) return true;
    if (beginning.starts_with("(*")) return true;
    beginning.remove_prefix(std::min(end + 1, beginning.size()));
  }
  return false;
}

const char* LooksLikeBinary(std::string_view beginning)
{
  if (LooksLikeImage(beginning)) return "is an image, not a source; are the options swapped?";
  if (LooksLikeLid(beginning)) return "is a LID, not a source; are the options swapped?";
  return HoldsManyControls(beginning) ? "does not read like a text; are the options swapped?" : nullptr;
}
