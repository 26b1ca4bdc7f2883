// What the two text encoders share: text as a padded field, and the bytes of a field as text, both through a
// translation of each byte.
#pragma once

#include "foundation/Allocate.h"
#include "foundation/ByteString.h"
#include "foundation/PreAllocatedString.h"

// The text left-justified in n bytes, padded with the blank and cut on the right; `modified` tells whether it was cut.
template <class Translation>
ByteString TextToField(const String& text, unsigned int n, unsigned char blank, Translation translate,
                       boolean& modified)
{
  modified = text.length() > n;
  ByteString field(n, blank);
  const unsigned int kept = MIN(n, text.length());
  for (unsigned int i = 0; i < kept; i++) field.setNthByte(i, translate(static_cast<unsigned char>(text[i])));
  return field;
}

template <class Translation>
String FieldToText(const ByteString& field, Translation translate)
{
  PreAllocatedString text(field.length());
  for (unsigned int i = 0; i < field.length(); i++) text += static_cast<char>(translate(field.getNthByte(i)));
  return text;
}

// The last four characters, or all when there are fewer, as a big-endian number of the values that `valueOf` gives
// them, modulo 2^32; what stands before them is shifted out.
template <class ValueOf>
unsigned int TextToNumber(const String& text, ValueOf valueOf)
{
  unsigned int number = 0;
  for (unsigned int i = 0; i < text.length(); i++) {
    number = (number << 8) + static_cast<unsigned int>(valueOf(text[i]));
  }
  return number;
}
