#include "headers/FileHdr.h"

#include "foundation/Assertion.h"
#include "headers/HeaderRecord.h"

namespace {

FILEHDR& CastToStructFILEHDR(ByteString& bytes) { return ViewAs<FILEHDR>(bytes); }

}  // namespace

FileHdr::FileHdr(unsigned int length) : bytes(ZeroBytes(length, sizeof(FILEHDR))) {}

FileHdr::FileHdr(const ByteString& b) : bytes(AtLeast(ByteString(b, sizeof(FILEHDR)), sizeof(FILEHDR))) {}

FILEHDR& FileHdr::header(const AssertingFunction& function)
{
  Assert(valid(), "valid()", "FileHdr", function);
  return CastToStructFILEHDR(bytes);
}

void FileHdr::setMagicNumber() { header("void FileHdr::setMagicNumber ()").magicNumber = 0x01DF; }

unsigned short FileHdr::getMagicNumber() { return header("short unsigned int FileHdr::getMagicNumber ()").magicNumber; }

void FileHdr::setNumberOfSections(unsigned short number)
{
  header("void FileHdr::setNumberOfSections (short unsigned int)").numberOfSections = number;
}

void FileHdr::setTimeDate(long time) { header("void FileHdr::setTimeDate (long int)").timeDate = Low32(time); }

void FileHdr::setSymPtr(long offset) { header("void FileHdr::setSymPtr (long int)").symbolTableOffset = Low32(offset); }

void FileHdr::setNumberOfOptionalHeaderBytes(unsigned short number)
{
  FILEHDR& record = header("void FileHdr::setNumberOfOptionalHeaderBytes (short unsigned int)");
  record.numberOfOptionalHeaderBytes = number;
}

void FileHdr::Endian()
{
  FILEHDR& record = header("void FileHdr::Endian ()");
  ToFileOrder(record.magicNumber, record.numberOfSections, record.timeDate, record.symbolTableOffset,
              record.numberOfSymbols, record.numberOfOptionalHeaderBytes, record.flags);
}

ByteString FileHdr::getByteString() const
{
  Assert(valid(), "valid()", "FileHdr", "ByteString FileHdr::getByteString () const");
  return bytes;
}

boolean FileHdr::writeHeader(WriteStream& out) const { return WriteRecord(out, bytes); }
