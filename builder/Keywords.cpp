#include "builder/Keywords.h"

namespace {

using VpdHeader = VitalProductDataHeaderX;
using SsdHeader = SystemSpecificDataHeaderX;

// The setters of both headers in one form, which returns success or the code of a refused value.
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

constexpr KeywordRow keywordRows[] = {
    {.keyword = "RUNAME",
     .effect = "VPD RU name, in upper case",
     .set = Set<&VpdHeader::setReplaceableUnitName>,
     .width = sizeof(VPDHDR::ruName)},
    {.keyword = "RULOADID",
     .effect = "RU load ID, hexadecimal digits, and whether there is one",
     .set = Set<&VpdHeader::setReplaceableUnitLoadId>},
    {.keyword = "RUCHGLID",
     .effect = "change LID flag",
     .set = Set<&VpdHeader::setReplaceableUnitChangeLid>,
     .values = yesNo},
    {.keyword = "RUSLFLOD",
     .effect = "self load flag",
     .set = Set<&VpdHeader::setReplaceableUnitSelfLoad>,
     .values = yesNo},
    {.keyword = "RUFLASH",
     .effect = "flash load flag",
     .set = Set<&VpdHeader::setReplaceableUnitFlashLoad>,
     .values = yesNo},
    {.keyword = "BASELOAD",
     .effect = "base load flag",
     .set = Set<&VpdHeader::setReplaceableUnitBaseLoad>,
     .values = yesNo},
    {.keyword = "RUPFGID",
     .effect = "primary function group ID",
     .set = Set<&VpdHeader::setPrimaryFunctionGroupId>,
     .emptyValue = EmptyValue::passedOn,
     .width = sizeof(VPDHDR::primaryFunctionGroupId),
     .kindWhenNotGiven = &SourceKind::primaryFunctionGroup},
    {.keyword = "RUSFGID",
     .effect = "secondary function group ID",
     .set = Set<&VpdHeader::setSecondaryFunctionGroupId>,
     .emptyValue = EmptyValue::passedOn,
     .width = sizeof(VPDHDR::secondaryFunctionGroupId),
     .kindWhenNotGiven = &SourceKind::secondaryFunctionGroup},
    {.keyword = "PRODUCTID",
     .effect = "product ID",
     .set = Set<&VpdHeader::setProductId>,
     .width = sizeof(VPDHDR::productId)},
    {.keyword = "SWRTYPE",
     .effect = "software type",
     .set = Set<&VpdHeader::setSoftwareType>,
     .values = softwareTypes,
     .refusal = badSoftwareType},
    {.keyword = "DEVELBY",
     .effect = "developed by Velmor",
     .set = Set<&VpdHeader::setDevelopedByVelmor>,
     .values = noYes,
     .refusal = badDevelopedBy},
    {.keyword = "DEVELFOR",
     .effect = "developed for Velmor",
     .set = Set<&VpdHeader::setDevelopedForVelmor>,
     .values = noYes,
     .refusal = badDevelopedFor},
    {.keyword = "DEVLABID",
     .effect = "development lab ID",
     .set = Set<&VpdHeader::setDevelopementLabId>,
     .width = sizeof(VPDHDR::developmentLabId)},
    {.keyword = "VERLEVEL",
     .effect = "version level",
     .set = Set<&VpdHeader::setVersionLevel>,
     .width = sizeof(VPDHDR::versionLevel)},
    {.keyword = "RELMODLVL",
     .effect = "release modification level",
     .set = Set<&VpdHeader::setReleaseModificationLevel>,
     .width = sizeof(VPDHDR::releaseModificationLevel)},
    {.keyword = "RUDEST",
     .effect = "RU destination",
     .set = Set<&SsdHeader::setReplaceableUnitDestination>,
     .emptyValue = EmptyValue::passedOn,
     .values = ruDestinations,
     .refusal = badRuDestination},
    {.keyword = "LLBYPASS",
     .effect = "link/loader bypass; Y also clears the RU destination",
     .set = SetLinkLoaderBypass,
     .emptyValue = EmptyValue::passedOn,
     .values = yesNo,
     .refusal = badLinkLoaderBypass},
    {.keyword = "DELETERU",
     .effect = "delete RU",
     .set = Set<&SsdHeader::setDeleteReplaceableUnit>,
     .emptyValue = EmptyValue::passedOn,
     .values = yesNo,
     .refusal = badDeleteRu},
    {.keyword = "SSDMODEL",
     .effect = "SSD model",
     .set = Set<&SsdHeader::setSSDModel>,
     .emptyValue = EmptyValue::passedOn,
     .values = ssdModels,
     .refusal = badSsdModel},
    {.keyword = "ALLOWBKP",
     .effect = "allow breakpoints",
     .set = Set<&SsdHeader::setAllowBreakpoints>,
     .emptyValue = EmptyValue::passedOn,
     .values = yesNo,
     .refusal = badAllowBreakpoints,
     .whenNotGiven = "Y"},
    {.keyword = "LLFLAG",
     .effect = "online link/loadable flag",
     .set = Set<&SsdHeader::setOnlineLLFlag>,
     .emptyValue = EmptyValue::passedOn,
     .values = yesNo,
     .refusal = badOnlineLLFlag,
     .whenNotGiven = "Y"},
    {.keyword = vpdinfoNameKeyword, .effect = "the VPDINFO source's base name"},
    {.keyword = "INSTRSET", .effect = "nothing"},
    {.keyword = "NUCSEQCTL", .effect = "nothing"},
};

}  // namespace

std::span<const KeywordRow> KeywordRows() { return keywordRows; }
