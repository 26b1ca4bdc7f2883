#include "headers/VPDHdrX.h"

#include <arpa/inet.h>

#include <bit>
#include <numeric>
#include <span>

#include "foundation/Assertion.h"
#include "foundation/ByteOrder.h"
#include "headers/HeaderRecord.h"

namespace {

VPDHDR& CastToStructVPDHDR(ByteString& bytes) { return ViewAs<VPDHDR>(bytes); }

const VPDHDR& CastToConstStructVPDHDR(const ByteString& bytes) { return ViewAs<VPDHDR>(bytes); }

// Widths in bits of the flags, in their order.
constexpr unsigned int flags1Widths[] = {1, 1, 1, 1, 1, 1, 2, 3, 5, 10, 1, 1, 4};
constexpr unsigned int flags2Widths[] = {1, 3, 4, 1, 1, 6};
static_assert(std::accumulate(std::begin(flags1Widths), std::end(flags1Widths), 0U) == 32);
static_assert(std::accumulate(std::begin(flags2Widths), std::end(flags2Widths), 0U) == 16);

constexpr CodedValue bodyTypes[] = {{"VPDINFO", 3}, {"PFGINFO", 2}, {"SFGINFO", 1}, {"CODE", 0}};

// The fields of a word packed from the least significant bit upward, packed from the most significant bit downward.
// Each field keeps its value; the widths add up to the word's.
template <class Word>
Word PackedFromTheTop(Word packedFromTheBottom, std::span<const unsigned int> widths)
{
  std::uint32_t rest = packedFromTheBottom;
  std::uint32_t packed = 0;
  for (const unsigned int width : widths) {
    packed = packed << width | (rest & ((1U << width) - 1));
    rest >>= width;
  }
  return static_cast<Word>(packed);
}

}  // namespace

VitalProductDataHeaderX::VitalProductDataHeaderX(unsigned int length) : bytes(ZeroBytes(length, sizeof(VPDHDR))) {}

VitalProductDataHeaderX::VitalProductDataHeaderX(const ByteString& block) : bytes(AtLeast(block, sizeof(VPDHDR))) {}

VPDHDR& VitalProductDataHeaderX::header(const AssertingFunction& function)
{
  Assert(valid(), "valid()", "VPDHdrX", function);
  return CastToStructVPDHDR(bytes);
}

const VPDHDR& VitalProductDataHeaderX::header(const AssertingFunction& function) const
{
  Assert(valid(), "valid()", "VPDHdrX", function);
  return CastToConstStructVPDHDR(bytes);
}

void VitalProductDataHeaderX::setVPDRULength(unsigned int length)
{
  header("void VitalProductDataHeaderX::setVPDRULength (unsigned int)").ruLength = length;
}

size_t VitalProductDataHeaderX::getVPDRULength() const
{
  return header("size_t VitalProductDataHeaderX::getVPDRULength () const").ruLength;
}

void VitalProductDataHeaderX::setReplaceableUnitName(const String& value)
{
  VPDHDR& record = header("void VitalProductDataHeaderX::setReplaceableUnitName (const String &)");
  StoreText(record.ruName, String(value).toUpper());
}

String VitalProductDataHeaderX::getReplaceableUnitName() const
{
  const VPDHDR& record = header("String VitalProductDataHeaderX::getReplaceableUnitName () const");
  return EbcdicCharacter(ByteString(record.ruName, sizeof record.ruName)).toString();
}

void VitalProductDataHeaderX::setReplaceableUnitLoadId(const String& value)
{
  VPDHDR& record = header("void VitalProductDataHeaderX::setReplaceableUnitLoadId (const String &)");
  ByteString loadId = ByteString::FromHexString(value, true)(0, sizeof record.ruLoadId);
  if (loadId.length() < sizeof record.ruLoadId) {
    ReportValue("RU Load ID value in the RUVPD source file is ", value);
    return;
  }
  std::memcpy(record.ruLoadId, loadId.getBytePointer(), sizeof record.ruLoadId);
  ntohb(reinterpret_cast<char*>(record.ruLoadId), sizeof record.ruLoadId);
  if (!loadId.equal(ByteString(sizeof record.ruLoadId, 0x00))) record.flags1.loadIdPresent = true;
}

void VitalProductDataHeaderX::setReplaceableUnitChangeLid(const String& value)
{
  VPDHDR& record = header("void VitalProductDataHeaderX::setReplaceableUnitChangeLid (const String &)");
  if (const auto flag = FlagOf(value, "Y", "N")) record.flags1.changeLid = *flag;
}

void VitalProductDataHeaderX::setReplaceableUnitFlashLoad(const String& value)
{
  VPDHDR& record = header("void VitalProductDataHeaderX::setReplaceableUnitFlashLoad (const String &)");
  if (const auto flag = FlagOf(value, "Y", "N")) record.flags1.flashLoad = *flag;
}

void VitalProductDataHeaderX::setReplaceableUnitSelfLoad(const String& value)
{
  VPDHDR& record = header("void VitalProductDataHeaderX::setReplaceableUnitSelfLoad (const String &)");
  if (const auto flag = FlagOf(value, "Y", "N")) record.flags1.selfLoad = *flag;
}

void VitalProductDataHeaderX::setReplaceableUnitBaseLoad(const String& value)
{
  VPDHDR& record = header("void VitalProductDataHeaderX::setReplaceableUnitBaseLoad (const String &)");
  if (const auto flag = FlagOf(value, "Y", "N")) record.flags1.baseLoad = *flag;
}

void VitalProductDataHeaderX::setHardwareDependency(const String& value)
{
  VPDHDR& record = header("void VitalProductDataHeaderX::setHardwareDependency (const String &)");
  if (const auto flag = FlagOf(value, "Y", "N")) record.flags1.hardwareDependency = *flag;
}

void VitalProductDataHeaderX::setSoftwareDependency(const String& value)
{
  VPDHDR& record = header("void VitalProductDataHeaderX::setSoftwareDependency (const String &)");
  if (const auto flag = FlagOf(value, "Y", "N")) record.flags1.softwareDependency = *flag;
}

void VitalProductDataHeaderX::setVitalProductDataConstant()
{
  StoreText(header("void VitalProductDataHeaderX::setVitalProductDataConstant ()").vpdConstant, "VPD");
}

void VitalProductDataHeaderX::setReplaceableUnitBodyType(const String& value)
{
  VPDHDR& record = header("void VitalProductDataHeaderX::setReplaceableUnitBodyType (const String &)");
  if (const auto code = CodeOf(bodyTypes, value)) record.flags1.bodyType = *code & 3U;
}

void VitalProductDataHeaderX::setPrimaryFunctionGroupId(const String& value)
{
  StoreText(header("void VitalProductDataHeaderX::setPrimaryFunctionGroupId (const String &)").primaryFunctionGroupId,
            value);
}

void VitalProductDataHeaderX::setSecondaryFunctionGroupId(const String& value)
{
  StoreText(
      header("void VitalProductDataHeaderX::setSecondaryFunctionGroupId (const String &)").secondaryFunctionGroupId,
      value);
}

void VitalProductDataHeaderX::setReplaceableUnitDate(const String& value)
{
  StoreText(header("void VitalProductDataHeaderX::setReplaceableUnitDate (const String &)").ruDate, value);
}

void VitalProductDataHeaderX::setReplaceableUnitTime(const String& value)
{
  StoreText(header("void VitalProductDataHeaderX::setReplaceableUnitTime (const String &)").ruTime, value);
}

void VitalProductDataHeaderX::setVitalProductDataBodyOffset()
{
  header("void VitalProductDataHeaderX::setVitalProductDataBodyOffset ()").vpdBodyOffset = sizeof(VPDHDR);
}

void VitalProductDataHeaderX::setVitalProductDataBodyOffset(unsigned int offset)
{
  header("void VitalProductDataHeaderX::setVitalProductDataBodyOffset (unsigned int)").vpdBodyOffset = offset;
}

size_t VitalProductDataHeaderX::getVitalProductDataBodyOffset() const
{
  return header("size_t VitalProductDataHeaderX::getVitalProductDataBodyOffset () const").vpdBodyOffset;
}

void VitalProductDataHeaderX::setSystemSpecificDataOffset()
{
  header("void VitalProductDataHeaderX::setSystemSpecificDataOffset ()").ssdOffset = sizeof(VPDHDR);
}

size_t VitalProductDataHeaderX::getSystemSpecificDataOffset() const
{
  return header("size_t VitalProductDataHeaderX::getSystemSpecificDataOffset () const").ssdOffset;
}

void VitalProductDataHeaderX::setProductId(const String& value)
{
  StoreText(header("void VitalProductDataHeaderX::setProductId (const String &)").productId, value);
}

int VitalProductDataHeaderX::setSoftwareType(const String& value)
{
  VPDHDR& record = header("int VitalProductDataHeaderX::setSoftwareType (const String &)");
  const auto flag = FlagOf(value, "MCG", "LPP");
  if (!flag) return 44;
  record.flags2.softwareType = *flag;
  return 0;
}

int VitalProductDataHeaderX::setDevelopedByVelmor(const String& value)
{
  VPDHDR& record = header("int VitalProductDataHeaderX::setDevelopedByVelmor (const String &)");
  const auto flag = FlagOf(value, "N", "Y");
  if (!flag) return 45;
  record.flags2.developedByVelmor = *flag;
  return 0;
}

int VitalProductDataHeaderX::setDevelopedForVelmor(const String& value)
{
  VPDHDR& record = header("int VitalProductDataHeaderX::setDevelopedForVelmor (const String &)");
  const auto flag = FlagOf(value, "N", "Y");
  if (!flag) return 46;
  record.flags2.developedForVelmor = *flag;
  return 0;
}

void VitalProductDataHeaderX::setDevelopementLabId(const String& value)
{
  StoreText(header("void VitalProductDataHeaderX::setDevelopementLabId (const String &)").developmentLabId, value);
}

void VitalProductDataHeaderX::setVersionLevel(const String& value)
{
  StoreText(header("void VitalProductDataHeaderX::setVersionLevel (const String &)").versionLevel, value);
}

void VitalProductDataHeaderX::setReleaseModificationLevel(const String& value)
{
  StoreText(
      header("void VitalProductDataHeaderX::setReleaseModificationLevel (const String &)").releaseModificationLevel,
      value);
}

void VitalProductDataHeaderX::Endian()
{
  VPDHDR& record = header("void VitalProductDataHeaderX::Endian ()");
  ToFileOrder(record.ruLength, record.vpdBodyOffset, record.reserved7, record.ssdOffset, record.reserved8,
              record.reserved9);
  htonb(reinterpret_cast<char*>(record.ruLoadId), sizeof record.ruLoadId);
  if (littleEndian() == 1) {
    const auto flags1 = PackedFromTheTop(std::bit_cast<std::uint32_t>(record.flags1), flags1Widths);
    const auto flags2 = PackedFromTheTop(std::bit_cast<std::uint16_t>(record.flags2), flags2Widths);
    record.flags1 = std::bit_cast<VPDFLAGS1>(htonl(flags1));
    record.flags2 = std::bit_cast<VPDFLAGS2>(htons(flags2));
  }
}

ByteString VitalProductDataHeaderX::getByteString() const
{
  Assert(valid(), "valid()", "VPDHdrX", "ByteString VitalProductDataHeaderX::getByteString () const");
  return bytes;
}

boolean VitalProductDataHeaderX::writeHeader(WriteStream& out) const { return WriteRecord(out, bytes); }
