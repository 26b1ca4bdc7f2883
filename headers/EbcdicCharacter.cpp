#include "headers/EbcdicCharacter.h"

#include "headers/AsciiEbcdic.h"
#include "headers/CharacterField.h"

EbcdicCharacter::EbcdicCharacter(const ByteString& b) : text(FieldToText(b, AsciiEbcdic::EbcdicToAscii)) {}

ByteString EbcdicCharacter::toByteString() const
{
  boolean ignored{};
  return toModifiedByteString(byteLength(), ignored);
}

ByteString EbcdicCharacter::toModifiedByteString(unsigned int n, boolean& modified) const
{
  return TextToField(text, n, ebcdicBlankChar, AsciiEbcdic::AsciiToEbcdic, modified);
}

unsigned int EbcdicCharacter::getValue() const
{
  return TextToNumber(text, [](char ch) { return AsciiEbcdic::AsciiToEbcdic(static_cast<unsigned char>(ch)); });
}
