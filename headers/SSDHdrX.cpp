#include "headers/SSDHdrX.h"

#include "foundation/ReturnCode.h"

namespace {

constexpr char source[] = "SSDHdrX";

RUSSD& CastToStructRUSSD(ByteString& bytes) { return ViewAs<RUSSD>(bytes); }

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
  return StoreCode(ssd.ruDestination, ruDestinations, value, "RU Destination value in the RUVPD source file is ",
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
  return StoreCode(ssd.ssdModel, ssdModels, value, "SSD Model value in the RUVPD source file is ", badSsdModel);
}

void SystemSpecificDataHeaderX::setReplaceableUnitTypeOption(const String& value)
{
  RUSSD& ssd = fields("void SystemSpecificDataHeaderX::setReplaceableUnitTypeOption (const String &)");
  if (const auto code = CodeOf(ruTypeOptions, value)) ssd.ruTypeOption = *code;
}

ByteString SystemSpecificDataHeaderX::getByteString() const
{
  return record.bytes("ByteString SystemSpecificDataHeaderX::getByteString () const");
}
