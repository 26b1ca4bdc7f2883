#include "headers/ScnHdr.h"

#include "foundation/Allocate.h"

namespace {

constexpr char source[] = "ScnHdr";

constexpr unsigned int shortestForm = 16;
constexpr unsigned int fullForm = sizeof(SCNHDR);

SCNHDR& CastToStructSCNHDR(ByteString& bytes) { return ViewAs<SCNHDR>(bytes); }

ByteString FilledUp(ByteString bytes)
{
  if (bytes.length() >= shortestForm) bytes += ByteString(fullForm - MIN(fullForm, bytes.length()), 0x00);
  return bytes;
}

}  // namespace

ScnHdr::ScnHdr(unsigned int length) : record(source, length, sizeof(SCNHDR)) {}

ScnHdr::ScnHdr(const ByteString& b) : record(source, FilledUp(b), sizeof(SCNHDR)) {}

SCNHDR& ScnHdr::fields(const AssertingFunction& function) { return CastToStructSCNHDR(record.bytes(function)); }

void ScnHdr::setSectionName(String& name)
{
  StoreTextUnpadded(fields("void ScnHdr::setSectionName (String &)").name, name);
}

void ScnHdr::setNumberOfRawDataBytes(long number)
{
  fields("void ScnHdr::setNumberOfRawDataBytes (long int)").numberOfRawDataBytes = Low32(number);
}

void ScnHdr::setOffsetToRawData(long offset)
{
  fields("void ScnHdr::setOffsetToRawData (long int)").offsetToRawData = Low32(offset);
}

void ScnHdr::setSectionFlagAsData() { fields("void ScnHdr::setSectionFlagAsData ()").flags = dataSectionFlag; }

void ScnHdr::Endian()
{
  SCNHDR& section = fields("void ScnHdr::Endian ()");
  ToFileOrder(section.physicalAddress, section.virtualAddress, section.numberOfRawDataBytes, section.offsetToRawData,
              section.relocationOffset, section.lineNumberOffset, section.numberOfRelocations,
              section.numberOfLineNumbers, section.flags);
}

ByteString ScnHdr::getByteString() const { return record.bytes("ByteString ScnHdr::getByteString () const"); }
