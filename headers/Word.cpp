#include "headers/Word.h"

#include "foundation/Assertion.h"

boolean Word::valid() const
{
  if (!isSigned) return bits <= MaximumUnsignedValue;
  return signedValue() >= MinimumSignedValue && signedValue() <= MaximumSignedValue;
}

ByteString Word::toByteString() const
{
  boolean modified = false;
  return toModifiedByteString(byteLength(), modified);
}

ByteString Word::toModifiedByteString(unsigned int n, boolean& modified) const
{
  Assert(valid(), "valid()", "Word", "ByteString Word::toModifiedByteString (unsigned int, boolean &) const");
  return isSigned ? ConvertSigned(signedValue(), n, modified) : ConvertUnsigned(bits, n, modified);
}
