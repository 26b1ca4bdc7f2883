#include "builder/MorvikCreateHeader.h"

#include <optional>
#include <span>

#include "builder/Morvik.h"
#include "foundation/Allocate.h"
#include "headers/EbcdicCharacter.h"
#include "headers/SSDHdrX.h"
#include "headers/VPDHdrX.h"
#include "source/SPAOption.h"

namespace {

constexpr unsigned int headersLength = sizeof(VPDHDR) + sizeof(RUSSD);

// Fields without a code, each set when its keyword is given with a value that is not empty.
struct PlainField {
  const char* keyword;
  void (VitalProductDataHeaderX::*set)(const String&);
};
constexpr PlainField loadFields[] = {
    {"RULOADID", &VitalProductDataHeaderX::setReplaceableUnitLoadId},
    {"RUCHGLID", &VitalProductDataHeaderX::setReplaceableUnitChangeLid},
    {"RUSLFLOD", &VitalProductDataHeaderX::setReplaceableUnitSelfLoad},
    {"RUFLASH", &VitalProductDataHeaderX::setReplaceableUnitFlashLoad},
    {"BASELOAD", &VitalProductDataHeaderX::setReplaceableUnitBaseLoad},
};
constexpr PlainField productFields[] = {
    {"PRODUCTID", &VitalProductDataHeaderX::setProductId},
    {"DEVLABID", &VitalProductDataHeaderX::setDevelopementLabId},
    {"VERLEVEL", &VitalProductDataHeaderX::setVersionLevel},
    {"RELMODLVL", &VitalProductDataHeaderX::setReleaseModificationLevel},
};

// Fields whose setter may refuse the value, set likewise; a refusal ends the build.
struct CheckedField {
  const char* keyword;
  int (VitalProductDataHeaderX::*set)(const String&);
};
constexpr CheckedField checkedProductFields[] = {
    {"SWRTYPE", &VitalProductDataHeaderX::setSoftwareType},
    {"DEVELBY", &VitalProductDataHeaderX::setDevelopedByVelmor},
    {"DEVELFOR", &VitalProductDataHeaderX::setDevelopedForVelmor},
};

// Fields of the SSD header, set whenever the keyword is given, also to an empty value, else to the default if any; a
// refusal ends the build.
struct SystemField {
  const char* keyword;
  int (SystemSpecificDataHeaderX::*set)(const String&);
  const char* whenNotGiven;
};
constexpr SystemField systemFields[] = {
    {"RUDEST", &SystemSpecificDataHeaderX::setReplaceableUnitDestination, nullptr},
    {"LLBYPASS", &SystemSpecificDataHeaderX::setLinkLoaderBypass, nullptr},
    {"DELETERU", &SystemSpecificDataHeaderX::setDeleteReplaceableUnit, nullptr},
    {"SSDMODEL", &SystemSpecificDataHeaderX::setSSDModel, nullptr},
    {"ALLOWBKP", &SystemSpecificDataHeaderX::setAllowBreakpoints, "Y"},
    {"LLFLAG", &SystemSpecificDataHeaderX::setOnlineLLFlag, "Y"},
};

boolean IsShort(const String& memberName) { return memberName.length() <= sizeof(RUSSD::ruName); }

unsigned int FillLength(unsigned int alignment) { return (alignment - headersLength % alignment) % alignment; }

// The keyword's value, which may be empty; nothing when it is not given.
std::optional<String> Given(const char* keyword)
{
  if (SPAOption::StringValid(keyword) == 0) return std::nullopt;
  return SPAOption::GetStringValue(keyword);
}

// The keyword's value; empty when it is not given.
String ValueOf(const char* keyword) { return Given(keyword).value_or(String()); }

void SetPlainFields(VitalProductDataHeaderX& vpd, std::span<const PlainField> fields)
{
  for (const PlainField& field : fields) {
    const String value = ValueOf(field.keyword);
    if (!value.empty()) (vpd.*field.set)(value);
  }
}

int SetNames(VitalProductDataHeaderX& vpd, SystemSpecificDataHeaderX& ssd, const String& memberName)
{
  const auto name = Given("RUNAME");
  if (!name && !IsShort(memberName)) return 48;
  if (IsShort(memberName)) ssd.setReplaceableUnitName(memberName);
  if (name && !name->empty()) {
    vpd.setReplaceableUnitName(*name);
  } else if (IsShort(memberName)) {
    vpd.setReplaceableUnitName(memberName);
  }
  return 0;
}

String BodyType(const String& sourceType)
{
  const boolean named = sourceType == "VPDINFO" || sourceType == "PFGINFO" || sourceType == "SFGINFO";
  return named ? sourceType : String("CODE");
}

void SetFunctionGroups(VitalProductDataHeaderX& vpd, const String& sourceType)
{
  if (const auto primary = Given("RUPFGID")) {
    vpd.setPrimaryFunctionGroupId(*primary);
  } else if (sourceType != "VPDINFO") {
    vpd.setPrimaryFunctionGroupId("5001");
  }
  if (const auto secondary = Given("RUSFGID")) {
    vpd.setSecondaryFunctionGroupId(*secondary);
  } else if (sourceType != "VPDINFO" && sourceType != "SFGINFO") {
    vpd.setSecondaryFunctionGroupId("0000");
  }
}

int SetProductInformation(VitalProductDataHeaderX& vpd)
{
  SetPlainFields(vpd, productFields);
  for (const CheckedField& field : checkedProductFields) {
    const String value = ValueOf(field.keyword);
    if (value.empty()) continue;
    if (const int code = (vpd.*field.set)(value)) return code;
  }
  return 0;
}

int SetSystemFields(SystemSpecificDataHeaderX& ssd)
{
  for (const SystemField& field : systemFields) {
    auto value = Given(field.keyword);
    if (!value && field.whenNotGiven != nullptr) value = field.whenNotGiven;
    if (!value) continue;
    if (const int code = (ssd.*field.set)(*value)) return code;
  }
  // A unit that bypasses the link/loader has no destination, whatever RUDEST says.
  if (ValueOf("LLBYPASS") == "Y") return ssd.setReplaceableUnitDestination();
  return 0;
}

}  // namespace

unsigned int MorvikHeaderLength(const String& memberName)
{
  const unsigned int bodyOffset = headersLength + FillLength(headerBodyAlignment);
  return IsShort(memberName) ? bodyOffset : AddLengths(bodyOffset, AddLengths(memberName.length(), 1));
}

int MorvikCreateHeader(Morvik* builder)
{
  VitalProductDataHeaderX vpd(sizeof(VPDHDR));
  SystemSpecificDataHeaderX ssd(sizeof(RUSSD));
  const String& memberName = builder->memberName;

  if (const int code = SetNames(vpd, ssd, memberName)) return code;
  SetPlainFields(vpd, loadFields);
  vpd.setVitalProductDataConstant();
  vpd.setReplaceableUnitBodyType(BodyType(builder->sourceType));
  SetFunctionGroups(vpd, builder->sourceType);
  vpd.setHardwareDependency("N");
  vpd.setSoftwareDependency("N");
  if (const int code = SetProductInformation(vpd)) return code;
  vpd.setReplaceableUnitDate(builder->ruDate);
  vpd.setReplaceableUnitTime(builder->ruTime);
  vpd.setVitalProductDataBodyOffset();
  vpd.setSystemSpecificDataOffset();
  if (const int code = SetSystemFields(ssd)) return code;
  ssd.setReplaceableUnitTypeOption(builder->ruType);

  const ByteString fill(FillLength(builder->bodyAlignment), 0x00);
  const auto vpdLength = static_cast<unsigned int>(vpd.getVitalProductDataBodyOffset());
  const unsigned int bodyOffset = vpdLength + ssd.getLength() + fill.length();
  vpd.setVitalProductDataBodyOffset(bodyOffset);
  builder->header += vpd.getByteString();
  if (!IsShort(memberName)) ssd.setReplaceableUnitNameOffset(bodyOffset);
  builder->header += ssd.getByteString();
  builder->header += fill;
  if (!IsShort(memberName)) {
    builder->header += EbcdicCharacter(memberName).toByteString();
    builder->header += 0x00;
  }
  return 0;
}
