#include "image/LooksLike.h"

#include <algorithm>
#include <cctype>

#include "headers/FileHdr.h"
#include "headers/KespHeader.h"
#include "image/KeywordSearch.h"
#include "image/Utf8.h"
#include "source/SPASourceStmt.h"

namespace {

// Of the first two bytes of a record.
bool BeginsWith(std::string_view beginning, unsigned short magicNumber)
{
  const char magic[] = {static_cast<char>(magicNumber >> 8), static_cast<char>(magicNumber & 0xFF)};
  return beginning.starts_with(std::string_view(magic, sizeof magic));
}

unsigned short ImageMagicNumber()
{
  FileHdr header(sizeof(FILEHDR));
  header.setMagicNumber();
  return header.getMagicNumber();
}

bool IsText(char ch) { return std::isprint(static_cast<unsigned char>(ch)) != 0 || (ch >= '\t' && ch <= '\r'); }

// Whether bytes that no text has are more than one in ten.
bool HoldsManyOddBytes(std::string_view bytes)
{
  std::size_t odd = 0;
  for (std::size_t i = 0; i < bytes.size();) {
    const std::size_t length = Utf8Length(bytes.substr(i));
    if (length == 0 || (length == 1 && !IsText(bytes[i]))) odd++;
    i += std::max<std::size_t>(length, 1);
  }
  return 10 * odd > bytes.size();
}

}  // namespace

bool LooksLikeImage(std::string_view beginning)
{
  return beginning.size() >= sizeof(FILEHDR) && BeginsWith(beginning, ImageMagicNumber());
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
  if (beginning.find('\0') != std::string_view::npos || HoldsManyOddBytes(beginning)) {
    return "does not read like a text; are the options swapped?";
  }
  return nullptr;
}
