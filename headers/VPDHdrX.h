// The VPD header, the first record of the header block: 208 bytes that name and describe a replaceable unit (RU).
// Texts are EBCDIC, padded with blanks and cut silently to their field; numbers are big-endian in wire form.
#pragma once

#include <cstddef>
#include <cstdint>

#include "headers/FlagField.h"
#include "headers/HeaderRecord.h"

// The fields of the two flag words: first bit in wire form, and width. A flag without a comment is 1 for "Y", 0 for
// "N".
struct VPDFLAGS1 {
  static constexpr FlagField reserved1{0, 1};
  static constexpr FlagField hardwareDependency{1, 1};
  static constexpr FlagField softwareDependency{2, 1};
  static constexpr FlagField changeLid{3, 1};
  static constexpr FlagField selfLoad{4, 1};
  static constexpr FlagField flashLoad{5, 1};
  static constexpr FlagField bodyType{6, 2};  // 0 "CODE", 1 "SFGINFO", 2 "PFGINFO", 3 "VPDINFO"
  static constexpr FlagField reserved2{8, 3};
  static constexpr FlagField reserved3{11, 5};
  static constexpr FlagField reserved4{16, 10};
  static constexpr FlagField loadIdPresent{26, 1};  // 1 when the load ID is not all zeros
  static constexpr FlagField baseLoad{27, 1};
  static constexpr FlagField reserved5{28, 4};
  static constexpr FlagField all[] = {reserved1,     hardwareDependency, softwareDependency, changeLid, selfLoad,
                                      flashLoad,     bodyType,           reserved2,          reserved3, reserved4,
                                      loadIdPresent, baseLoad,           reserved5};
};
static_assert(FillWord<std::uint32_t>(VPDFLAGS1::all));

struct VPDFLAGS2 {
  static constexpr FlagField softwareType{0, 1};  // 1 "MCG", 0 "LPP"
  static constexpr FlagField reserved1{1, 3};
  static constexpr FlagField reserved2{4, 4};
  static constexpr FlagField developedByVelmor{8, 1};   // 1 "N", 0 "Y"
  static constexpr FlagField developedForVelmor{9, 1};  // 1 "N", 0 "Y"
  static constexpr FlagField reserved3{10, 6};
  static constexpr FlagField all[] = {softwareType,      reserved1,          reserved2,
                                      developedByVelmor, developedForVelmor, reserved3};
};
static_assert(FillWord<std::uint16_t>(VPDFLAGS2::all));

// The value sets of the flags that are not 1 for "Y".
inline constexpr CodedValue bodyTypes[] = {{"VPDINFO", 3}, {"PFGINFO", 2}, {"SFGINFO", 1}, {"CODE", 0}};
inline constexpr CodedValue softwareTypes[] = {{"MCG", 1}, {"LPP", 0}};
inline constexpr CodedValue noYes[] = {{"N", 1}, {"Y", 0}};

struct VPDHDR {
  std::uint32_t ruLength;                     // 0: bytes of the load module
  unsigned char reserved1[4];                 // 4
  unsigned char ruName[8];                    // 8: upper case
  unsigned char reserved2[9];                 // 16
  unsigned char vpdConstant[3];               // 25: "VPD"
  unsigned char ruLoadId[4];                  // 28: 8 hexadecimal digits
  unsigned char reserved3[5];                 // 32
  unsigned char productId[7];                 // 37
  unsigned char primaryFunctionGroupId[4];    // 44
  unsigned char secondaryFunctionGroupId[4];  // 48
  unsigned char reserved4[4];                 // 52
  std::uint32_t flags1;                       // 56: VPDFLAGS1
  std::uint16_t flags2;                       // 60: VPDFLAGS2
  unsigned char developmentLabId[2];          // 62
  unsigned char ruDate[8];                    // 64: YYYYMMDD
  unsigned char ruTime[6];                    // 72: hhmmss
  unsigned char reserved5[14];                // 78
  unsigned char versionLevel[4];              // 92
  unsigned char releaseModificationLevel[4];  // 96
  unsigned char reserved6[44];                // 100
  std::uint32_t vpdBodyOffset;                // 144: bytes from the beginning of the header block
  std::uint32_t reserved7;                    // 148
  std::uint32_t ssdOffset;                    // 152: bytes from the beginning of the header block
  std::uint32_t reserved8;                    // 156
  std::uint32_t reserved9;                    // 160
  unsigned char reserved10[44];               // 164
};

static_assert(offsetof(VPDHDR, ruLength) == 0);
static_assert(offsetof(VPDHDR, reserved1) == 4);
static_assert(offsetof(VPDHDR, ruName) == 8);
static_assert(offsetof(VPDHDR, reserved2) == 16);
static_assert(offsetof(VPDHDR, vpdConstant) == 25);
static_assert(offsetof(VPDHDR, ruLoadId) == 28);
static_assert(offsetof(VPDHDR, reserved3) == 32);
static_assert(offsetof(VPDHDR, productId) == 37);
static_assert(offsetof(VPDHDR, primaryFunctionGroupId) == 44);
static_assert(offsetof(VPDHDR, secondaryFunctionGroupId) == 48);
static_assert(offsetof(VPDHDR, reserved4) == 52);
static_assert(offsetof(VPDHDR, flags1) == 56);
static_assert(offsetof(VPDHDR, flags2) == 60);
static_assert(offsetof(VPDHDR, developmentLabId) == 62);
static_assert(offsetof(VPDHDR, ruDate) == 64);
static_assert(offsetof(VPDHDR, ruTime) == 72);
static_assert(offsetof(VPDHDR, reserved5) == 78);
static_assert(offsetof(VPDHDR, versionLevel) == 92);
static_assert(offsetof(VPDHDR, releaseModificationLevel) == 96);
static_assert(offsetof(VPDHDR, reserved6) == 100);
static_assert(offsetof(VPDHDR, vpdBodyOffset) == 144);
static_assert(offsetof(VPDHDR, reserved7) == 148);
static_assert(offsetof(VPDHDR, ssdOffset) == 152);
static_assert(offsetof(VPDHDR, reserved8) == 156);
static_assert(offsetof(VPDHDR, reserved9) == 160);
static_assert(offsetof(VPDHDR, reserved10) == 164);
static_assert(sizeof(VPDHDR) == 208);

// Every operation but valid(), writeHeader() and destruction asserts valid(). After Endian() no setter or getter may
// run.
class VitalProductDataHeaderX {
 public:
  // `length` zero bytes; valid from 208 on.
  explicit VitalProductDataHeaderX(unsigned int length);
  // All of the bytes, the record in front; valid when there are at least 208.
  explicit VitalProductDataHeaderX(const ByteString& block);

  // The load module's size in bytes.
  void setVPDRULength(unsigned int length);
  size_t getVPDRULength() const;
  // Upper-cased.
  void setReplaceableUnitName(const String& value);
  // The 8 characters of the field, blanks included.
  String getReplaceableUnitName() const;
  // The first 8 of the value's hexadecimal digits; an odd number of digits counts as preceded by a 0. With fewer than
  // 7 digits, or a character that is not one, the field stays and a line on standard error says so. A load ID other
  // than zeros sets the load-ID-present flag; nothing clears it.
  void setReplaceableUnitLoadId(const String& value);
  // Flags: "Y" sets, "N" clears, any other value changes nothing.
  void setReplaceableUnitChangeLid(const String& value);
  void setReplaceableUnitFlashLoad(const String& value);
  void setReplaceableUnitSelfLoad(const String& value);
  void setReplaceableUnitBaseLoad(const String& value);
  void setHardwareDependency(const String& value);
  void setSoftwareDependency(const String& value);
  // The "VPD" that marks the record.
  void setVitalProductDataConstant();
  // "CODE", "SFGINFO", "PFGINFO" or "VPDINFO"; any other value changes nothing.
  void setReplaceableUnitBodyType(const String& value);
  void setPrimaryFunctionGroupId(const String& value);
  void setSecondaryFunctionGroupId(const String& value);
  void setReplaceableUnitDate(const String& value);
  void setReplaceableUnitTime(const String& value);
  // Offsets are bytes from the beginning of the header block; without an argument, 208, right after this record.
  void setVitalProductDataBodyOffset();
  void setVitalProductDataBodyOffset(unsigned int offset);
  size_t getVitalProductDataBodyOffset() const;
  void setSystemSpecificDataOffset();
  size_t getSystemSpecificDataOffset() const;
  void setProductId(const String& value);
  // "MCG" or "LPP"; any other value changes nothing and returns badSoftwareType.
  int setSoftwareType(const String& value);
  // "Y" or "N"; any other value changes nothing and returns badDevelopedBy or badDevelopedFor.
  int setDevelopedByVelmor(const String& value);
  int setDevelopedForVelmor(const String& value);
  void setDevelopementLabId(const String& value);
  void setVersionLevel(const String& value);
  void setReleaseModificationLevel(const String& value);

  // Build form to wire form; to be called once, after the last setter.
  void Endian();
  // A copy of all the bytes.
  ByteString getByteString() const;
  // Writes all the bytes, of an invalid record none; whether the stream reports no failure afterwards.
  boolean writeHeader(WriteStream& out) const { return record.write(out); }
  boolean valid() const { return record.valid(); }

 private:
  VPDHDR& fields(const AssertingFunction& function);
  const VPDHDR& fields(const AssertingFunction& function) const;

  HeaderRecord record;
};
