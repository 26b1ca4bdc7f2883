#include "image/Utf8.h"

#include <fmt/format.h>

#include <algorithm>

namespace {

struct Utf8Form {
  unsigned char mask;  // of the first byte's bits that tell the form
  unsigned char bits;
  std::size_t length;
  char32_t first;  // the smallest character of the form; smaller ones have a shorter form
};
constexpr Utf8Form forms[] = {
    {0x80, 0x00, 1, 0}, {0xE0, 0xC0, 2, 0x80}, {0xF0, 0xE0, 3, 0x800}, {0xF8, 0xF0, 4, 0x10000}};

struct Utf8Character {
  std::size_t length = 0;
  char32_t code = 0;
};

bool IsCode(char32_t code) { return code <= 0x10FFFF && (code < 0xD800 || code > 0xDFFF); }

Utf8Character FirstCharacter(std::string_view text)
{
  if (text.empty()) return {};
  const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
  const auto* form = std::ranges::find_if(forms, [&](const Utf8Form& f) { return (byte(0) & f.mask) == f.bits; });
  if (form == std::end(forms) || text.size() < form->length) return {};
  char32_t code = byte(0) & static_cast<unsigned char>(~form->mask);
  for (std::size_t i = 1; i < form->length; i++) {
    if ((byte(i) & 0xC0) != 0x80) return {};
    code = code << 6 | (byte(i) & 0x3F);
  }
  if (code < form->first || !IsCode(code)) return {};
  return {form->length, code};
}

// The two blocks of control characters, and those that turn the direction of a text.
bool IsControl(char32_t code)
{
  return code < 0x20 || (code >= 0x7F && code < 0xA0) || (code >= 0x202A && code <= 0x202E) ||
         (code >= 0x2066 && code <= 0x2069);
}

}  // namespace

std::string Escaped(std::string_view text)
{
  std::string escaped;
  while (!text.empty()) {
    const auto [length, code] = FirstCharacter(text);
    const std::string_view character = text.substr(0, std::max<std::size_t>(length, 1));
    if (length != 0 && !IsControl(code)) {
      escaped += character;
    } else {
      for (const char ch : character) escaped += fmt::format("\\x{:02X}", static_cast<unsigned char>(ch));
    }
    text.remove_prefix(character.size());
  }
  return escaped;
}
