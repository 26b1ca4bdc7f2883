// The System Specific Data (SSD) header, the second record of the header block: 64 bytes that follow the VPD header.
// It has one form only: single bytes, texts, and a name offset that is stored big-endian.
#pragma once

#include <cstddef>
#include <cstdint>

#include "headers/HeaderRecord.h"

// The value sets of its coded fields.
inline constexpr CodedValue ruDestinations[] = {
    {"NUC1", 1},     {"NUC2", 2},     {"NUC3", 12},    {"SERV", 3},     {"IDE", 4},      {"IBLA", 5},
    {"DBLA", 6},     {"CBLA", 7},     {"MRI", 8},      {"PBLA", 9},     {"MACH", 16},    {"MCHP", 17},
    {"SU36", 11},    {"USER", 0x20},  {"USRP", 0x21},  {"*MCG", 0x40},  {"IOP1", 0x81},  {"IOP2", 0x82},
    {"IOP3", 0x84},  {"IOP4", 0x88},  {"RULL", 10},    {"NUCP", 15},    {"SBLA", 14},    {"HYP1", 0x31},
    {"HYP2", 0x32},  {"NUCB", 0x34},  {"PHYP1", 0x50}, {"PNUC1", 0x51}, {"PDBLA", 0x52}, {"PHYP2", 0x53},
    {"PNUC2", 0x54}, {"PCBLA", 0x55}, {"PIBLA", 0x56},
};
static_assert(std::size(ruDestinations) == 33);

inline constexpr CodedValue ssdModels[] = {
    {"VANT0", 1},          {"VANTL", 4},   {"VANT4", 5},        {"VNT41", 5},      {"TRIDE", 2},
    {"TRID1", 6},          {"HARN", 3},    {"LOSK", 7},         {"VAN41", 8},      {"VNTA4", 8},
    {"TOLVEN", 9},         {"GLOVA", 10},  {"BRAXEN", 11},      {"QUENTARIS", 12}, {"BRAXEN_TPA", 13},
    {"QUENTARIS_TPA", 14}, {"FENRIX", 16}, {"TERVASCOPIN", 17}, {"NONE", 0},
};
static_assert(std::size(ssdModels) == 19);

inline constexpr CodedValue ruTypeOptions[] = {{"VORN", 1}, {"LID", 2}};

// The place of a name that is longer than its field.
struct LONGRUNAME {
  unsigned char reserved[4];
  std::uint32_t ruNameOffset;  // where the name stands, in bytes from the beginning of the header block; big-endian
};

struct RUSSD {
  unsigned char reserved1[24];              // 0
  unsigned char nucleusSequenceControl[4];  // 24: 8 hexadecimal digits
  unsigned char reserved2[4];               // 28
  union {
    unsigned char ruName[8];  // 32: at most 8 characters, zeros after them
    LONGRUNAME longName;
  };
  unsigned char linkLoaderBypass;  // 40: 1 "Y", 0 "N"
  unsigned char ruDestination;     // 41: a code of ruDestinations
  unsigned char deleteRu;          // 42: 1 "Y", 0 "N"
  unsigned char onlineLLFlag;      // 43: 1 "Y", 0 "N"
  unsigned char ruTypeOption;      // 44: 1 "VORN", 2 "LID"
  unsigned char ssdModel;          // 45: a code of ssdModels
  unsigned char allowBreakpoints;  // 46: 1 "Y", 0 "N"
  unsigned char reserved3[17];     // 47
};

static_assert(offsetof(RUSSD, reserved1) == 0);
static_assert(offsetof(RUSSD, nucleusSequenceControl) == 24);
static_assert(offsetof(RUSSD, reserved2) == 28);
static_assert(offsetof(RUSSD, ruName) == 32);
static_assert(offsetof(RUSSD, longName) == 32);
static_assert(offsetof(LONGRUNAME, reserved) == 0 && offsetof(LONGRUNAME, ruNameOffset) == 4);
static_assert(offsetof(RUSSD, linkLoaderBypass) == 40);
static_assert(offsetof(RUSSD, ruDestination) == 41);
static_assert(offsetof(RUSSD, deleteRu) == 42);
static_assert(offsetof(RUSSD, onlineLLFlag) == 43);
static_assert(offsetof(RUSSD, ruTypeOption) == 44);
static_assert(offsetof(RUSSD, ssdModel) == 45);
static_assert(offsetof(RUSSD, allowBreakpoints) == 46);
static_assert(offsetof(RUSSD, reserved3) == 47);
static_assert(sizeof(RUSSD) == 64);

// Every operation but valid(), getLength(), writeHeader() and destruction asserts valid(). A setter that returns a code
// returns success for a value that it knows. For any other value it writes one line on standard error, returns the code
// named at the setter, and changes nothing. Values are compared whole and case-sensitively.
class SystemSpecificDataHeaderX {
 public:
  // `length` zero bytes; valid from 64 on.
  explicit SystemSpecificDataHeaderX(unsigned int length);
  // All of the bytes, the record in front; valid when there are at least 64.
  explicit SystemSpecificDataHeaderX(const ByteString& block);

  // The name's EBCDIC bytes, unpadded, at most 8 of them.
  void setReplaceableUnitName(const String& value);
  // Where in the header block a name of more than 8 characters stands; takes the place of the name's last 4 bytes.
  void setReplaceableUnitNameOffset(unsigned int offset);
  // Without a value, destination 0.
  int setReplaceableUnitDestination();
  // A value of ruDestinations, else badRuDestination.
  int setReplaceableUnitDestination(const String& value);
  // The first 4 bytes of the value's hexadecimal digits, else badNucleusSequenceControl. An odd number of digits counts
  // as preceded by a 0.
  int setNucleusSequenceControl(const String& value);
  // "Y" or "N", else badLinkLoaderBypass, badDeleteRu, badAllowBreakpoints and badOnlineLLFlag.
  int setLinkLoaderBypass(const String& value);
  int setDeleteReplaceableUnit(const String& value);
  int setAllowBreakpoints(const String& value);
  int setOnlineLLFlag(const String& value);
  // A value of ssdModels, else badSsdModel.
  int setSSDModel(const String& value);
  // "VORN" or "LID"; any other value changes nothing.
  void setReplaceableUnitTypeOption(const String& value);

  // The bytes held.
  unsigned int getLength() const { return record.length(); }
  // A copy of all the bytes.
  ByteString getByteString() const;
  // Writes all the bytes, of an invalid record none; whether the stream reports no failure afterwards.
  boolean writeHeader(WriteStream& out) const { return record.write(out); }
  boolean valid() const { return record.valid(); }

 private:
  RUSSD& fields(const AssertingFunction& function);

  HeaderRecord record;
};
