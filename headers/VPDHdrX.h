// The VPD header, the first record of the header block: 208 bytes that name and describe a replaceable unit (RU).
// Texts are EBCDIC, padded with blanks and cut to their field without a word; numbers are big-endian in wire form.
#pragma once

#include <cstddef>
#include <cstdint>

#include "foundation/Assertion.h"
#include "foundation/ByteString.h"
#include "foundation/WriteStream.h"

// Flags are declared in the order of their places in the wire form, from the most significant bit downward. A
// little-endian host packs them from the least significant bit upward; Endian() moves them.
struct VPDFLAGS1 {
  std::uint32_t reserved1 : 1;
  std::uint32_t hardwareDependency : 1;
  std::uint32_t softwareDependency : 1;
  std::uint32_t changeLid : 1;
  std::uint32_t selfLoad : 1;
  std::uint32_t flashLoad : 1;
  std::uint32_t bodyType : 2;  // 0 "CODE", 1 "SFGINFO", 2 "PFGINFO", 3 "VPDINFO"
  std::uint32_t reserved2 : 3;
  std::uint32_t reserved3 : 5;
  std::uint32_t reserved4 : 10;
  std::uint32_t loadIdPresent : 1;
  std::uint32_t baseLoad : 1;
  std::uint32_t reserved5 : 4;
};

struct VPDFLAGS2 {
  std::uint16_t softwareType : 1;  // 1 "MCG", 0 "LPP"
  std::uint16_t reserved1 : 3;
  std::uint16_t reserved2 : 4;
  std::uint16_t developedByVelmor : 1;   // 1 "N", 0 "Y"
  std::uint16_t developedForVelmor : 1;  // 1 "N", 0 "Y"
  std::uint16_t reserved3 : 6;
};

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
  VPDFLAGS1 flags1;                           // 56
  VPDFLAGS2 flags2;                           // 60
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

static_assert(sizeof(VPDFLAGS1) == 4 && sizeof(VPDFLAGS2) == 2);
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
  // 7 digits, or a character that is none, the field stays and a line on standard error says so. A load ID other than
  // zeros sets the load-ID-present flag; nothing clears it.
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
  // Offsets are bytes from the beginning of the header block; without an argument, 208, right behind this record.
  void setVitalProductDataBodyOffset();
  void setVitalProductDataBodyOffset(unsigned int offset);
  size_t getVitalProductDataBodyOffset() const;
  void setSystemSpecificDataOffset();
  size_t getSystemSpecificDataOffset() const;
  void setProductId(const String& value);
  // "MCG" or "LPP"; returns 0, or 44 for any other value, which changes nothing.
  int setSoftwareType(const String& value);
  // "Y" or "N"; each returns 0, or 45 and 46 for any other value, which changes nothing.
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
  boolean writeHeader(WriteStream& out) const;
  boolean valid() const { return !bytes.empty(); }

 private:
  VPDHDR& header(const AssertingFunction& function);
  const VPDHDR& header(const AssertingFunction& function) const;

  ByteString bytes;  // none when the record is invalid
};
