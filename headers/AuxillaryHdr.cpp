#include "headers/AuxillaryHdr.h"

#include "foundation/Assertion.h"
#include "headers/HeaderRecord.h"

namespace {

constexpr unsigned int fullFormSize = 72;

AUXILLARYHDR& CastToStructAUXILLARYHDR(ByteString& bytes) { return ViewAs<AUXILLARYHDR>(bytes); }

}  // namespace

AuxillaryHdr::AuxillaryHdr(unsigned int length) : bytes(ZeroBytes(length, sizeof(AUXILLARYHDR))) {}

AuxillaryHdr::AuxillaryHdr(const ByteString& b) : bytes(AtLeast(b, fullFormSize)) {}

AUXILLARYHDR& AuxillaryHdr::header(const AssertingFunction& function)
{
  Assert(valid(), "valid()", "AuxillaryHdr", function);
  return CastToStructAUXILLARYHDR(bytes);
}

void AuxillaryHdr::setMFlag() { header("void AuxillaryHdr::setMFlag ()").magicNumber = 0x010B; }

void AuxillaryHdr::setVStamp() { header("void AuxillaryHdr::setVStamp ()").versionStamp = 0x0010; }

void AuxillaryHdr::Endian()
{
  AUXILLARYHDR& record = header("void AuxillaryHdr::Endian ()");
  ToFileOrder(record.magicNumber, record.versionStamp, record.textSize, record.initialisedDataSize,
              record.uninitialisedDataSize, record.entryPoint, record.textStart, record.dataStart);
}

ByteString AuxillaryHdr::getByteString() const
{
  Assert(valid(), "valid()", "AuxillaryHdr", "ByteString AuxillaryHdr::getByteString () const");
  return bytes;
}

boolean AuxillaryHdr::writeHeader(WriteStream& out) const { return WriteRecord(out, bytes); }
