#include "headers/AsciiCharacter.h"

#include "headers/AsciiEbcdic.h"
#include "headers/CharacterField.h"

namespace {

unsigned char Identity(unsigned char code) { return code; }

}  // namespace

AsciiCharacter::AsciiCharacter(const ByteString& b) : text(FieldToText(b, Identity)) {}

ByteString AsciiCharacter::toByteString() const
{
  boolean ignored{};
  return toModifiedByteString(byteLength(), ignored);
}

ByteString AsciiCharacter::toModifiedByteString(unsigned int n, boolean& modified) const
{
  return TextToField(text, n, asciiBlankChar, Identity, modified);
}

unsigned int AsciiCharacter::getValue() const
{
  return TextToNumber(text, [](char ch) { return static_cast<signed char>(ch); });
}
