#include "image/KeywordSearch.h"

#include <algorithm>
#include <array>
#include <numeric>
#include <optional>

namespace {

constexpr std::size_t mostWrong = 2;
constexpr unsigned int longestText = 40;  // longer than any candidate by more than what may be wrong

// How many characters are to be put in, taken out or exchanged to make one text of the other, neither longer than
// longestText by more than mostWrong.
std::size_t Distance(std::string_view a, std::string_view b)
{
  std::array<std::size_t, longestText + mostWrong + 1> row;
  std::iota(row.begin(), row.end(), 0);
  for (std::size_t i = 0; i < a.size(); i++) {
    std::size_t diagonal = row[0]++;
    for (std::size_t j = 0; j < b.size(); j++) {
      const std::size_t exchanged = diagonal + (a[i] == b[j] ? 0 : 1);
      diagonal = row[j + 1];
      row[j + 1] = std::min({exchanged, row[j] + 1, diagonal + 1});
    }
  }
  return row[b.size()];
}

// Tells the candidates' distances from one text, each only where it can be small enough. Short texts are near to
// anything, so less may be wrong in them.
class Nearness {
 public:
  explicit Nearness(const String& text) : mistyped(text(0, longestText)) { mistyped.toUpper(); }

  // Whether the candidate is near, and nearer than all before.
  bool takes(std::string_view candidate)
  {
    const std::string_view text = View(mistyped);
    if (text.size() > candidate.size() + mostWrong || candidate.size() > text.size() + mostWrong) return false;
    const std::size_t wrong = Distance(text, candidate);
    if (wrong >= least || 2 * wrong >= candidate.size()) return false;
    least = wrong;
    return true;
  }

 private:
  String mistyped;
  std::size_t least = mostWrong + 1;
};

}  // namespace

std::string_view View(const String& text) { return {static_cast<const char*>(text), text.length()}; }

const KeywordRow* FindKeyword(const String& keyword)
{
  const auto row = std::ranges::find(KeywordRows(), View(keyword), &KeywordRow::keyword);
  return row != KeywordRows().end() ? &*row : nullptr;
}

const KeywordRow* FindKeywordBefore(const String& text)
{
  const auto row =
      std::ranges::find_if(KeywordRows(), [&](const KeywordRow& r) { return View(text).starts_with(r.keyword); });
  return row != KeywordRows().end() ? &*row : nullptr;
}

const KeywordRow* NearestKeyword(const String& mistyped)
{
  Nearness nearness(mistyped);
  const KeywordRow* nearest = nullptr;
  for (const KeywordRow& row : KeywordRows()) {
    if (nearness.takes(row.keyword)) nearest = &row;
  }
  return nearest;
}

std::string_view NearestValue(std::span<const CodedValue> values, const String& mistyped)
{
  Nearness nearness(mistyped);
  std::string_view nearest;
  for (const CodedValue& row : values) {
    if (nearness.takes(row.value)) nearest = row.value;
  }
  return nearest;
}
