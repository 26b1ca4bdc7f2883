#include "headers/VPDHdrX.h"

#include "foundation/ByteOrder.h"
#include "foundation/ReturnCode.h"

namespace {

constexpr char source[] = "VPDHdrX";

VPDHDR& CastToStructVPDHDR(ByteString& bytes) { return ViewAs<VPDHDR>(bytes); }

const VPDHDR& CastToConstStructVPDHDR(const ByteString& bytes) { return ViewAs<VPDHDR>(bytes); }

// Stores the value's code in the field and returns true; a value without one changes nothing.
template <class Word>
boolean StoreFlag(Word& word, const FlagField& field, std::span<const CodedValue> values, const String& value)
{
  const auto code = CodeOf(values, value);
  if (code) SetFlagField(word, field, *code);
  return code.has_value();
}

}  // namespace

VitalProductDataHeaderX::VitalProductDataHeaderX(unsigned int length) : record(source, length, sizeof(VPDHDR)) {}

VitalProductDataHeaderX::VitalProductDataHeaderX(const ByteString& block) : record(source, block, sizeof(VPDHDR)) {}

VPDHDR& VitalProductDataHeaderX::fields(const AssertingFunction& function)
{
  return CastToStructVPDHDR(record.bytes(function));
}

const VPDHDR& VitalProductDataHeaderX::fields(const AssertingFunction& function) const
{
  return CastToConstStructVPDHDR(record.bytes(function));
}

void VitalProductDataHeaderX::setVPDRULength(unsigned int length)
{
  fields("void VitalProductDataHeaderX::setVPDRULength (unsigned int)").ruLength = length;
}

size_t VitalProductDataHeaderX::getVPDRULength() const
{
  return fields("size_t VitalProductDataHeaderX::getVPDRULength () const").ruLength;
}

void VitalProductDataHeaderX::setReplaceableUnitName(const String& value)
{
  VPDHDR& vpd = fields("void VitalProductDataHeaderX::setReplaceableUnitName (const String &)");
  StoreText(vpd.ruName, String(value).toUpper());
}

String VitalProductDataHeaderX::getReplaceableUnitName() const
{
  const VPDHDR& vpd = fields("String VitalProductDataHeaderX::getReplaceableUnitName () const");
  return EbcdicCharacter(ByteString(vpd.ruName, sizeof vpd.ruName)).toString();
}

void VitalProductDataHeaderX::setReplaceableUnitLoadId(const String& value)
{
  VPDHDR& vpd = fields("void VitalProductDataHeaderX::setReplaceableUnitLoadId (const String &)");
  ByteString loadId = ByteString::FromHexString(value, true)(0, sizeof vpd.ruLoadId);
  if (loadId.length() < sizeof vpd.ruLoadId) {
    ReportValue("RU Load ID value in the RUVPD source file is ", value);
    return;
  }
  std::memcpy(vpd.ruLoadId, loadId.getBytePointer(), sizeof vpd.ruLoadId);
  ntohb(reinterpret_cast<char*>(vpd.ruLoadId), sizeof vpd.ruLoadId);
  if (!loadId.equal(ByteString(sizeof vpd.ruLoadId, 0x00))) SetFlagField(vpd.flags1, VPDFLAGS1::loadIdPresent, 1);
}

void VitalProductDataHeaderX::setReplaceableUnitChangeLid(const String& value)
{
  StoreFlag(fields("void VitalProductDataHeaderX::setReplaceableUnitChangeLid (const String &)").flags1,
            VPDFLAGS1::changeLid, yesNo, value);
}

void VitalProductDataHeaderX::setReplaceableUnitFlashLoad(const String& value)
{
  StoreFlag(fields("void VitalProductDataHeaderX::setReplaceableUnitFlashLoad (const String &)").flags1,
            VPDFLAGS1::flashLoad, yesNo, value);
}

void VitalProductDataHeaderX::setReplaceableUnitSelfLoad(const String& value)
{
  StoreFlag(fields("void VitalProductDataHeaderX::setReplaceableUnitSelfLoad (const String &)").flags1,
            VPDFLAGS1::selfLoad, yesNo, value);
}

void VitalProductDataHeaderX::setReplaceableUnitBaseLoad(const String& value)
{
  StoreFlag(fields("void VitalProductDataHeaderX::setReplaceableUnitBaseLoad (const String &)").flags1,
            VPDFLAGS1::baseLoad, yesNo, value);
}

void VitalProductDataHeaderX::setHardwareDependency(const String& value)
{
  StoreFlag(fields("void VitalProductDataHeaderX::setHardwareDependency (const String &)").flags1,
            VPDFLAGS1::hardwareDependency, yesNo, value);
}

void VitalProductDataHeaderX::setSoftwareDependency(const String& value)
{
  StoreFlag(fields("void VitalProductDataHeaderX::setSoftwareDependency (const String &)").flags1,
            VPDFLAGS1::softwareDependency, yesNo, value);
}

void VitalProductDataHeaderX::setVitalProductDataConstant()
{
  StoreText(fields("void VitalProductDataHeaderX::setVitalProductDataConstant ()").vpdConstant, "VPD");
}

void VitalProductDataHeaderX::setReplaceableUnitBodyType(const String& value)
{
  StoreFlag(fields("void VitalProductDataHeaderX::setReplaceableUnitBodyType (const String &)").flags1,
            VPDFLAGS1::bodyType, bodyTypes, value);
}

void VitalProductDataHeaderX::setPrimaryFunctionGroupId(const String& value)
{
  StoreText(fields("void VitalProductDataHeaderX::setPrimaryFunctionGroupId (const String &)").primaryFunctionGroupId,
            value);
}

void VitalProductDataHeaderX::setSecondaryFunctionGroupId(const String& value)
{
  StoreText(
      fields("void VitalProductDataHeaderX::setSecondaryFunctionGroupId (const String &)").secondaryFunctionGroupId,
      value);
}

void VitalProductDataHeaderX::setReplaceableUnitDate(const String& value)
{
  StoreText(fields("void VitalProductDataHeaderX::setReplaceableUnitDate (const String &)").ruDate, value);
}

void VitalProductDataHeaderX::setReplaceableUnitTime(const String& value)
{
  StoreText(fields("void VitalProductDataHeaderX::setReplaceableUnitTime (const String &)").ruTime, value);
}

void VitalProductDataHeaderX::setVitalProductDataBodyOffset()
{
  fields("void VitalProductDataHeaderX::setVitalProductDataBodyOffset ()").vpdBodyOffset = sizeof(VPDHDR);
}

void VitalProductDataHeaderX::setVitalProductDataBodyOffset(unsigned int offset)
{
  fields("void VitalProductDataHeaderX::setVitalProductDataBodyOffset (unsigned int)").vpdBodyOffset = offset;
}

size_t VitalProductDataHeaderX::getVitalProductDataBodyOffset() const
{
  return fields("size_t VitalProductDataHeaderX::getVitalProductDataBodyOffset () const").vpdBodyOffset;
}

void VitalProductDataHeaderX::setSystemSpecificDataOffset()
{
  fields("void VitalProductDataHeaderX::setSystemSpecificDataOffset ()").ssdOffset = sizeof(VPDHDR);
}

size_t VitalProductDataHeaderX::getSystemSpecificDataOffset() const
{
  return fields("size_t VitalProductDataHeaderX::getSystemSpecificDataOffset () const").ssdOffset;
}

void VitalProductDataHeaderX::setProductId(const String& value)
{
  StoreText(fields("void VitalProductDataHeaderX::setProductId (const String &)").productId, value);
}

int VitalProductDataHeaderX::setSoftwareType(const String& value)
{
  VPDHDR& vpd = fields("int VitalProductDataHeaderX::setSoftwareType (const String &)");
  return StoreFlag(vpd.flags2, VPDFLAGS2::softwareType, softwareTypes, value) ? success : badSoftwareType;
}

int VitalProductDataHeaderX::setDevelopedByVelmor(const String& value)
{
  VPDHDR& vpd = fields("int VitalProductDataHeaderX::setDevelopedByVelmor (const String &)");
  return StoreFlag(vpd.flags2, VPDFLAGS2::developedByVelmor, noYes, value) ? success : badDevelopedBy;
}

int VitalProductDataHeaderX::setDevelopedForVelmor(const String& value)
{
  VPDHDR& vpd = fields("int VitalProductDataHeaderX::setDevelopedForVelmor (const String &)");
  return StoreFlag(vpd.flags2, VPDFLAGS2::developedForVelmor, noYes, value) ? success : badDevelopedFor;
}

void VitalProductDataHeaderX::setDevelopementLabId(const String& value)
{
  StoreText(fields("void VitalProductDataHeaderX::setDevelopementLabId (const String &)").developmentLabId, value);
}

void VitalProductDataHeaderX::setVersionLevel(const String& value)
{
  StoreText(fields("void VitalProductDataHeaderX::setVersionLevel (const String &)").versionLevel, value);
}

void VitalProductDataHeaderX::setReleaseModificationLevel(const String& value)
{
  StoreText(
      fields("void VitalProductDataHeaderX::setReleaseModificationLevel (const String &)").releaseModificationLevel,
      value);
}

void VitalProductDataHeaderX::Endian()
{
  VPDHDR& vpd = fields("void VitalProductDataHeaderX::Endian ()");
  MoveToWireForm(vpd.flags1, VPDFLAGS1::all);
  MoveToWireForm(vpd.flags2, VPDFLAGS2::all);
  ToFileOrder(vpd.ruLength, vpd.flags1, vpd.flags2, vpd.vpdBodyOffset, vpd.reserved7, vpd.ssdOffset, vpd.reserved8,
              vpd.reserved9);
  htonb(reinterpret_cast<char*>(vpd.ruLoadId), sizeof vpd.ruLoadId);
}

ByteString VitalProductDataHeaderX::getByteString() const
{
  return record.bytes("ByteString VitalProductDataHeaderX::getByteString () const");
}
