#include "headers/AuxillaryHdr.h"

namespace {

constexpr char source[] = "AuxillaryHdr";

constexpr unsigned int fullFormSize = 72;

AUXILLARYHDR& CastToStructAUXILLARYHDR(ByteString& bytes) { return ViewAs<AUXILLARYHDR>(bytes); }

}  // namespace

AuxillaryHdr::AuxillaryHdr(unsigned int length) : record(source, length, sizeof(AUXILLARYHDR)) {}

AuxillaryHdr::AuxillaryHdr(const ByteString& b) : record(source, b, fullFormSize) {}

AUXILLARYHDR& AuxillaryHdr::fields(const AssertingFunction& function)
{
  return CastToStructAUXILLARYHDR(record.bytes(function));
}

void AuxillaryHdr::setMFlag() { fields("void AuxillaryHdr::setMFlag ()").magicNumber = auxiliaryMagicNumber; }

void AuxillaryHdr::setVStamp() { fields("void AuxillaryHdr::setVStamp ()").versionStamp = auxiliaryVersionStamp; }

void AuxillaryHdr::Endian()
{
  AUXILLARYHDR& auxillary = fields("void AuxillaryHdr::Endian ()");
  ToFileOrder(auxillary.magicNumber, auxillary.versionStamp, auxillary.textSize, auxillary.initialisedDataSize,
              auxillary.uninitialisedDataSize, auxillary.entryPoint, auxillary.textStart, auxillary.dataStart);
}

ByteString AuxillaryHdr::getByteString() const
{
  return record.bytes("ByteString AuxillaryHdr::getByteString () const");
}
