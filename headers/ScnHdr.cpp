#include "headers/ScnHdr.h"

#include "foundation/Assertion.h"
#include "headers/HeaderRecord.h"

namespace {

constexpr unsigned int shortestForm = 16;

SCNHDR& CastToStructSCNHDR(ByteString& bytes) { return ViewAs<SCNHDR>(bytes); }

ByteString FilledUp(ByteString bytes)
{
  if (bytes.length() >= shortestForm && bytes.length() < sizeof(SCNHDR)) {
    bytes += ByteString(static_cast<unsigned int>(sizeof(SCNHDR)) - bytes.length(), 0x00);
  }
  return bytes;
}

}  // namespace

ScnHdr::ScnHdr(unsigned int length) : bytes(ZeroBytes(length, sizeof(SCNHDR))) {}

ScnHdr::ScnHdr(const ByteString& b) : bytes(AtLeast(FilledUp(b), sizeof(SCNHDR))) {}

SCNHDR& ScnHdr::header(const AssertingFunction& function)
{
  Assert(valid(), "valid()", "ScnHdr", function);
  return CastToStructSCNHDR(bytes);
}

void ScnHdr::setSectionName(String& name)
{
  StoreTextUnpadded(header("void ScnHdr::setSectionName (String &)").name, name);
}

void ScnHdr::setNumberOfRawDataBytes(long number)
{
  header("void ScnHdr::setNumberOfRawDataBytes (long int)").numberOfRawDataBytes = Low32(number);
}

void ScnHdr::setOffsetToRawData(long offset)
{
  header("void ScnHdr::setOffsetToRawData (long int)").offsetToRawData = Low32(offset);
}

void ScnHdr::setSectionFlagAsData() { header("void ScnHdr::setSectionFlagAsData ()").flags = 0x20; }

void ScnHdr::Endian()
{
  SCNHDR& record = header("void ScnHdr::Endian ()");
  ToFileOrder(record.physicalAddress, record.virtualAddress, record.numberOfRawDataBytes, record.offsetToRawData,
              record.relocationOffset, record.lineNumberOffset, record.numberOfRelocations, record.numberOfLineNumbers,
              record.flags);
}

ByteString ScnHdr::getByteString() const
{
  Assert(valid(), "valid()", "ScnHdr", "ByteString ScnHdr::getByteString () const");
  return bytes;
}

boolean ScnHdr::writeHeader(WriteStream& out) const { return WriteRecord(out, bytes); }
