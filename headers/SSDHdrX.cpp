#include "headers/SSDHdrX.h"

#include "foundation/ReturnCode.h"

namespace {

constexpr char source[] = "SSDHdrX";

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

constexpr CodedValue typeOptions[] = {{"VORN", 1}, {"LID", 2}};

// Stores the value's code and returns success; reports a value without one and returns `refusal`.
int StoreCode(unsigned char& field, std::span<const CodedValue> values, const String& value, const char* what,
              int refusal)
{
  const auto code = CodeOf(values, value);
  if (!code) {
    ReportValue(what, value);
    return refusal;
  }
  field = *code;
  return success;
}

}  // namespace

SystemSpecificDataHeaderX::SystemSpecificDataHeaderX(unsigned int length) : record(source, length, sizeof(RUSSD)) {}

SystemSpecificDataHeaderX::SystemSpecificDataHeaderX(const ByteString& block) : record(source, block, sizeof(RUSSD)) {}

RUSSD& SystemSpecificDataHeaderX::fields(const AssertingFunction& function)
{
  return CastToStructRUSSD(record.bytes(function));
}

void SystemSpecificDataHeaderX::setReplaceableUnitName(const String& value)
{
  StoreTextUnpadded(fields("void SystemSpecificDataHeaderX::setReplaceableUnitName (const String &)").ruName, value);
}

void SystemSpecificDataHeaderX::setReplaceableUnitNameOffset(unsigned int offset)
{
  RUSSD& ssd = fields("void SystemSpecificDataHeaderX::setReplaceableUnitNameOffset (unsigned int)");
  ssd.longName.ruNameOffset = htonl(offset);
}

int SystemSpecificDataHeaderX::setReplaceableUnitDestination()
{
  fields("int SystemSpecificDataHeaderX::setReplaceableUnitDestination ()").ruDestination = 0;
  return success;
}

int SystemSpecificDataHeaderX::setReplaceableUnitDestination(const String& value)
{
  RUSSD& ssd = fields("int SystemSpecificDataHeaderX::setReplaceableUnitDestination (const String &)");
  return StoreCode(ssd.ruDestination, destinations, value, "RU Destination value in the RUVPD source file is ",
                   badRuDestination);
}

int SystemSpecificDataHeaderX::setNucleusSequenceControl(const String& value)
{
  RUSSD& ssd = fields("int SystemSpecificDataHeaderX::setNucleusSequenceControl (const String &)");
  const ByteString control = ByteString::FromHexString(value, true);
  if (control.length() < sizeof ssd.nucleusSequenceControl) {
    ReportValue("Nucleus Sequence Control value in the RUVPD source file is ", value);
    return badNucleusSequenceControl;
  }
  std::memcpy(ssd.nucleusSequenceControl, control.getBytePointer(), sizeof ssd.nucleusSequenceControl);
  return success;
}

int SystemSpecificDataHeaderX::setLinkLoaderBypass(const String& value)
{
  RUSSD& ssd = fields("int SystemSpecificDataHeaderX::setLinkLoaderBypass (const String &)");
  return StoreCode(ssd.linkLoaderBypass, yesNo, value, "Link/loader Bypass value in the RUVPD source file is ",
                   badLinkLoaderBypass);
}

int SystemSpecificDataHeaderX::setDeleteReplaceableUnit(const String& value)
{
  RUSSD& ssd = fields("int SystemSpecificDataHeaderX::setDeleteReplaceableUnit (const String &)");
  return StoreCode(ssd.deleteRu, yesNo, value, "Delete RU value in the RUVPD source file is ", badDeleteRu);
}

int SystemSpecificDataHeaderX::setAllowBreakpoints(const String& value)
{
  RUSSD& ssd = fields("int SystemSpecificDataHeaderX::setAllowBreakpoints (const String &)");
  return StoreCode(ssd.allowBreakpoints, yesNo, value, "Allow Breakpoints value in the RUVPD source file is ",
                   badAllowBreakpoints);
}

int SystemSpecificDataHeaderX::setOnlineLLFlag(const String& value)
{
  RUSSD& ssd = fields("int SystemSpecificDataHeaderX::setOnlineLLFlag (const String &)");
  return StoreCode(ssd.onlineLLFlag, yesNo, value, "Online Link/Loadable Flag is ", badOnlineLLFlag);
}

int SystemSpecificDataHeaderX::setSSDModel(const String& value)
{
  RUSSD& ssd = fields("int SystemSpecificDataHeaderX::setSSDModel (const String &)");
  return StoreCode(ssd.ssdModel, models, value, "SSD Model value in the RUVPD source file is ", badSsdModel);
}

void SystemSpecificDataHeaderX::setReplaceableUnitTypeOption(const String& value)
{
  RUSSD& ssd = fields("void SystemSpecificDataHeaderX::setReplaceableUnitTypeOption (const String &)");
  if (const auto code = CodeOf(typeOptions, value)) ssd.ruTypeOption = *code;
}

ByteString SystemSpecificDataHeaderX::getByteString() const
{
  return record.bytes("ByteString SystemSpecificDataHeaderX::getByteString () const");
}
