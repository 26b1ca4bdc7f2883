#include "builder/MorvikCreateHeader.h"

#include <optional>

#include "builder/Morvik.h"
#include "builder/SourceKind.h"
#include "foundation/Allocate.h"
#include "foundation/ReturnCode.h"
#include "headers/EbcdicCharacter.h"
#include "headers/SSDHdrX.h"
#include "headers/VPDHdrX.h"
#include "source/SPAOption.h"

namespace {

using VpdHeader = VitalProductDataHeaderX;
using SsdHeader = SystemSpecificDataHeaderX;

constexpr unsigned int headersLength = sizeof(VPDHDR) + sizeof(RUSSD);

struct Headers {
  VpdHeader vpd = VpdHeader(sizeof(VPDHDR));
  SsdHeader ssd = SsdHeader(sizeof(RUSSD));
};

// The setters of both headers in one form, which returns 0 or the code of a refused value.
template <void (VpdHeader::*setter)(const String&)>
int Set(Headers& headers, const String& value)
{
  (headers.vpd.*setter)(value);
  return success;
}

template <int (VpdHeader::*setter)(const String&)>
int Set(Headers& headers, const String& value)
{
  return (headers.vpd.*setter)(value);
}

template <int (SsdHeader::*setter)(const String&)>
int Set(Headers& headers, const String& value)
{
  return (headers.ssd.*setter)(value);
}

// A unit that bypasses the link/loader has no destination, whatever RUDEST says.
int SetLinkLoaderBypass(Headers& headers, const String& value)
{
  if (const int code = headers.ssd.setLinkLoaderBypass(value)) return code;
  if (value != "Y") return success;
  return headers.ssd.setReplaceableUnitDestination();
}

enum class EmptyValue { ignored, passedOn };

// What a keyword does.
struct KeywordRow {
  const char* keyword;
  int (*set)(Headers& headers, const String& value);
  EmptyValue emptyValue;
  // The value of a keyword that is not given: the same for every source, or as its kind has it. Without one, the field
  // stays as it is.
  const char* whenNotGiven = nullptr;
  const char* SourceKind::*kindWhenNotGiven = nullptr;
};

// The rows are worked through from the top, and the first refused value ends the build: their order decides which of
// several faults is reported. A keyword that labelOk accepts may stand in either source, any other one only in the main
// source.
constexpr KeywordRow keywordRows[] = {
    {"RUNAME", Set<&VpdHeader::setReplaceableUnitName>, EmptyValue::ignored},
    {"RULOADID", Set<&VpdHeader::setReplaceableUnitLoadId>, EmptyValue::ignored},
    {"RUCHGLID", Set<&VpdHeader::setReplaceableUnitChangeLid>, EmptyValue::ignored},
    {"RUSLFLOD", Set<&VpdHeader::setReplaceableUnitSelfLoad>, EmptyValue::ignored},
    {"RUFLASH", Set<&VpdHeader::setReplaceableUnitFlashLoad>, EmptyValue::ignored},
    {"BASELOAD", Set<&VpdHeader::setReplaceableUnitBaseLoad>, EmptyValue::ignored},
    {"RUPFGID", Set<&VpdHeader::setPrimaryFunctionGroupId>, EmptyValue::passedOn, nullptr,
     &SourceKind::primaryFunctionGroup},
    {"RUSFGID", Set<&VpdHeader::setSecondaryFunctionGroupId>, EmptyValue::passedOn, nullptr,
     &SourceKind::secondaryFunctionGroup},
    {"PRODUCTID", Set<&VpdHeader::setProductId>, EmptyValue::ignored},
    {"SWRTYPE", Set<&VpdHeader::setSoftwareType>, EmptyValue::ignored},
    {"DEVELBY", Set<&VpdHeader::setDevelopedByVelmor>, EmptyValue::ignored},
    {"DEVELFOR", Set<&VpdHeader::setDevelopedForVelmor>, EmptyValue::ignored},
    {"DEVLABID", Set<&VpdHeader::setDevelopementLabId>, EmptyValue::ignored},
    {"VERLEVEL", Set<&VpdHeader::setVersionLevel>, EmptyValue::ignored},
    {"RELMODLVL", Set<&VpdHeader::setReleaseModificationLevel>, EmptyValue::ignored},
    {"RUDEST", Set<&SsdHeader::setReplaceableUnitDestination>, EmptyValue::passedOn},
    {"LLBYPASS", SetLinkLoaderBypass, EmptyValue::passedOn},
    {"DELETERU", Set<&SsdHeader::setDeleteReplaceableUnit>, EmptyValue::passedOn},
    {"SSDMODEL", Set<&SsdHeader::setSSDModel>, EmptyValue::passedOn},
    {"ALLOWBKP", Set<&SsdHeader::setAllowBreakpoints>, EmptyValue::passedOn, "Y"},
    {"LLFLAG", Set<&SsdHeader::setOnlineLLFlag>, EmptyValue::passedOn, "Y"},
};

// The value that the row's field is set to; nothing when the field stays as it is.
std::optional<String> ValueOf(const KeywordRow& row, const SourceKind& kind)
{
  if (SPAOption::StringValid(row.keyword) == 1) {
    String value = SPAOption::GetStringValue(row.keyword);
    if (value.empty() && row.emptyValue == EmptyValue::ignored) return std::nullopt;
    return value;
  }
  const char* value = row.kindWhenNotGiven != nullptr ? kind.*row.kindWhenNotGiven : row.whenNotGiven;
  if (value == nullptr) return std::nullopt;
  return value;
}

int SetKeywordFields(Headers& headers, const SourceKind& kind)
{
  for (const KeywordRow& row : keywordRows) {
    const auto value = ValueOf(row, kind);
    if (!value) continue;
    if (const int code = row.set(headers, *value)) return code;
  }
  return success;
}

// A longer name stands after the fill.
boolean IsShort(const String& memberName) { return memberName.length() <= sizeof(RUSSD::ruName); }

// The end of the two headers, rounded up.
constexpr unsigned int BodyOffset(unsigned int alignment)
{
  return (headersLength + alignment - 1) / alignment * alignment;
}
static_assert(BodyOffset(headerBodyAlignment) == 512);

}  // namespace

unsigned int MorvikHeaderLength(const String& memberName)
{
  const unsigned int bodyOffset = BodyOffset(headerBodyAlignment);
  return IsShort(memberName) ? bodyOffset : AddLengths(bodyOffset, AddLengths(memberName.length(), 1));
}

int MorvikCreateHeader(Morvik* builder)
{
  Headers headers;
  auto& [vpd, ssd] = headers;
  const String& memberName = builder->memberName;
  const SourceKind& kind = SourceKindOf(builder->sourceType);
  const unsigned int bodyOffset = BodyOffset(builder->bodyAlignment);

  if (IsShort(memberName)) {
    vpd.setReplaceableUnitName(memberName);
    ssd.setReplaceableUnitName(memberName);
  } else {
    if (SPAOption::StringValid("RUNAME") == 0) return noRuName;
    ssd.setReplaceableUnitNameOffset(bodyOffset);
  }
  vpd.setVitalProductDataConstant();
  vpd.setReplaceableUnitBodyType(kind.bodyType);
  vpd.setHardwareDependency("N");
  vpd.setSoftwareDependency("N");
  vpd.setReplaceableUnitDate(builder->ruDate);
  vpd.setReplaceableUnitTime(builder->ruTime);
  vpd.setVitalProductDataBodyOffset(bodyOffset);
  vpd.setSystemSpecificDataOffset();
  ssd.setReplaceableUnitTypeOption(builder->ruType);
  if (const int code = SetKeywordFields(headers, kind)) return code;

  builder->header += vpd.getByteString();
  builder->header += ssd.getByteString();
  builder->header += ByteString(bodyOffset - headersLength, 0x00);
  if (!IsShort(memberName)) {
    builder->header += EbcdicCharacter(memberName).toByteString();
    builder->header += 0x00;
  }
  return success;
}
