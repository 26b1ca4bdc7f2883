#include "headers/SSDHdrX.h"

#include <arpa/inet.h>

#include <span>

#include "foundation/Assertion.h"
#include "headers/HeaderRecord.h"

namespace {

RUSSD& CastToStructRUSSD(ByteString& bytes) { return ViewAs<RUSSD>(bytes); }

constexpr CodedValue destinations[] = {
    {"NUC1", 1},     {"NUC2", 2},     {"NUC3", 12},    {"SERV", 3},     {"IDE", 4},      {"IBLA", 5},
    {"DBLA", 6},     {"CBLA", 7},     {"MRI", 8},      {"PBLA", 9},     {"MACH", 16},    {"MCHP", 17},
    {"SU36", 11},    {"USER", 0x20},  {"USRP", 0x21},  {"*MCG", 0x40},  {"IOP1", 0x81},  {"IOP2", 0x82},
    {"IOP3", 0x84},  {"IOP4", 0x88},  {"RULL", 10},    {"NUCP", 15},    {"SBLA", 14},    {"HYP1", 0x31},
    {"HYP2", 0x32},  {"NUCB", 0x34},  {"PHYP1", 0x50}, {"PNUC1", 0x51}, {"PDBLA", 0x52}, {"PHYP2", 0x53},
    {"PNUC2", 0x54}, {"PCBLA", 0x55}, {"PIBLA", 0x56},
};
static_assert(std::size(destinations) == 33);

constexpr CodedValue models[] = {
    {"VANT0", 1},          {"VANTL", 4},   {"VANT4", 5},        {"VNT41", 5},      {"TRIDE", 2},
    {"TRID1", 6},          {"HARN", 3},    {"LOSK", 7},         {"VAN41", 8},      {"VNTA4", 8},
    {"TOLVEN", 9},         {"GLOVA", 10},  {"BRAXEN", 11},      {"QUENTARIS", 12}, {"BRAXEN_TPA", 13},
    {"QUENTARIS_TPA", 14}, {"FENRIX", 16}, {"TERVASCOPIN", 17}, {"NONE", 0},
};
static_assert(std::size(models) == 19);

constexpr CodedValue yesNo[] = {{"Y", 1}, {"N", 0}};

constexpr CodedValue typeOptions[] = {{"VORN", 1}, {"LID", 2}};

// Stores the value's code and returns 0; reports a value without one and returns `refusal`.
int StoreCode(unsigned char& field, std::span<const CodedValue> values, const String& value, const char* what,
              int refusal)
{
  const auto code = CodeOf(values, value);
  if (!code) {
    ReportValue(what, value);
    return refusal;
  }
  field = *code;
  return 0;
}

}  // namespace

SystemSpecificDataHeaderX::SystemSpecificDataHeaderX(unsigned int length) : bytes(ZeroBytes(length, sizeof(RUSSD))) {}

SystemSpecificDataHeaderX::SystemSpecificDataHeaderX(const ByteString& block) : bytes(AtLeast(block, sizeof(RUSSD))) {}

RUSSD& SystemSpecificDataHeaderX::header(const AssertingFunction& function)
{
  Assert(valid(), "valid()", "SSDHdrX", function);
  return CastToStructRUSSD(bytes);
}

void SystemSpecificDataHeaderX::setReplaceableUnitName(const String& value)
{
  StoreTextUnpadded(header("void SystemSpecificDataHeaderX::setReplaceableUnitName (const String &)").ruName, value);
}

void SystemSpecificDataHeaderX::setReplaceableUnitNameOffset(unsigned int offset)
{
  RUSSD& record = header("void SystemSpecificDataHeaderX::setReplaceableUnitNameOffset (unsigned int)");
  record.longName.ruNameOffset = htonl(offset);
}

int SystemSpecificDataHeaderX::setReplaceableUnitDestination()
{
  header("int SystemSpecificDataHeaderX::setReplaceableUnitDestination ()").ruDestination = 0;
  return 0;
}

int SystemSpecificDataHeaderX::setReplaceableUnitDestination(const String& value)
{
  RUSSD& record = header("int SystemSpecificDataHeaderX::setReplaceableUnitDestination (const String &)");
  return StoreCode(record.ruDestination, destinations, value, "RU Destination value in the RUVPD source file is ", 39);
}

int SystemSpecificDataHeaderX::setNucleusSequenceControl(const String& value)
{
  RUSSD& record = header("int SystemSpecificDataHeaderX::setNucleusSequenceControl (const String &)");
  const ByteString control = ByteString::FromHexString(value, true);
  if (control.length() < sizeof record.nucleusSequenceControl) {
    ReportValue("Nucleus Sequence Control value in the RUVPD source file is ", value);
    return 38;
  }
  std::memcpy(record.nucleusSequenceControl, control.getBytePointer(), sizeof record.nucleusSequenceControl);
  return 0;
}

int SystemSpecificDataHeaderX::setLinkLoaderBypass(const String& value)
{
  RUSSD& record = header("int SystemSpecificDataHeaderX::setLinkLoaderBypass (const String &)");
  return StoreCode(record.linkLoaderBypass, yesNo, value, "Link/loader Bypass value in the RUVPD source file is ", 41);
}

int SystemSpecificDataHeaderX::setDeleteReplaceableUnit(const String& value)
{
  RUSSD& record = header("int SystemSpecificDataHeaderX::setDeleteReplaceableUnit (const String &)");
  return StoreCode(record.deleteRu, yesNo, value, "Delete RU value in the RUVPD source file is ", 42);
}

int SystemSpecificDataHeaderX::setAllowBreakpoints(const String& value)
{
  RUSSD& record = header("int SystemSpecificDataHeaderX::setAllowBreakpoints (const String &)");
  return StoreCode(record.allowBreakpoints, yesNo, value, "Allow Breakpoints value in the RUVPD source file is ", 37);
}

int SystemSpecificDataHeaderX::setOnlineLLFlag(const String& value)
{
  RUSSD& record = header("int SystemSpecificDataHeaderX::setOnlineLLFlag (const String &)");
  return StoreCode(record.onlineLLFlag, yesNo, value, "Online Link/Loadable Flag is ", 47);
}

int SystemSpecificDataHeaderX::setSSDModel(const String& value)
{
  RUSSD& record = header("int SystemSpecificDataHeaderX::setSSDModel (const String &)");
  return StoreCode(record.ssdModel, models, value, "SSD Model value in the RUVPD source file is ", 36);
}

void SystemSpecificDataHeaderX::setReplaceableUnitTypeOption(const String& value)
{
  RUSSD& record = header("void SystemSpecificDataHeaderX::setReplaceableUnitTypeOption (const String &)");
  if (const auto code = CodeOf(typeOptions, value)) record.ruTypeOption = *code;
}

ByteString SystemSpecificDataHeaderX::getByteString() const
{
  Assert(valid(), "valid()", "SSDHdrX", "ByteString SystemSpecificDataHeaderX::getByteString () const");
  return bytes;
}

boolean SystemSpecificDataHeaderX::writeHeader(WriteStream& out) const { return WriteRecord(out, bytes); }
