#include "headers/FileHdr.h"

namespace {

constexpr char source[] = "FileHdr";

FILEHDR& CastToStructFILEHDR(ByteString& bytes) { return ViewAs<FILEHDR>(bytes); }

}  // namespace

FileHdr::FileHdr(unsigned int length) : record(source, length, sizeof(FILEHDR)) {}

FileHdr::FileHdr(const ByteString& b) : record(source, ByteString(b, sizeof(FILEHDR)), sizeof(FILEHDR)) {}

FILEHDR& FileHdr::fields(const AssertingFunction& function) { return CastToStructFILEHDR(record.bytes(function)); }

void FileHdr::setMagicNumber() { fields("void FileHdr::setMagicNumber ()").magicNumber = objectMagicNumber; }

unsigned short FileHdr::getMagicNumber() { return fields("short unsigned int FileHdr::getMagicNumber ()").magicNumber; }

void FileHdr::setNumberOfSections(unsigned short number)
{
  fields("void FileHdr::setNumberOfSections (short unsigned int)").numberOfSections = number;
}

void FileHdr::setTimeDate(long time) { fields("void FileHdr::setTimeDate (long int)").timeDate = Low32(time); }

void FileHdr::setSymPtr(long offset) { fields("void FileHdr::setSymPtr (long int)").symbolTableOffset = Low32(offset); }

void FileHdr::setNumberOfOptionalHeaderBytes(unsigned short number)
{
  FILEHDR& file = fields("void FileHdr::setNumberOfOptionalHeaderBytes (short unsigned int)");
  file.numberOfOptionalHeaderBytes = number;
}

void FileHdr::Endian()
{
  FILEHDR& file = fields("void FileHdr::Endian ()");
  ToFileOrder(file.magicNumber, file.numberOfSections, file.timeDate, file.symbolTableOffset, file.numberOfSymbols,
              file.numberOfOptionalHeaderBytes, file.flags);
}

ByteString FileHdr::getByteString() const { return record.bytes("ByteString FileHdr::getByteString () const"); }
