#include "builder/MorvikCreateHeader.h"

#include "builder/Keywords.h"
#include "builder/Morvik.h"
#include "foundation/Allocate.h"
#include "foundation/ReturnCode.h"
#include "headers/EbcdicCharacter.h"
#include "source/SPAOption.h"

namespace {

constexpr unsigned int headersLength = sizeof(VPDHDR) + sizeof(RUSSD);

// Sets the row's field to the value that was given, or to the one that it has without; some fields stay as they are.
int SetKeywordField(Headers& headers, const KeywordRow& row, const SourceKind& kind)
{
  const String keyword(row.keyword);
  if (SPAOption::StringValid(keyword) == 1) {
    const String value = SPAOption::GetStringValue(keyword);
    if (value.empty() && row.emptyValue == EmptyValue::ignored) return success;
    return row.set(headers, value);
  }
  const char* value = row.kindWhenNotGiven != nullptr ? kind.*row.kindWhenNotGiven : row.whenNotGiven;
  return value != nullptr ? row.set(headers, value) : success;
}

int SetKeywordFields(Headers& headers, const SourceKind& kind)
{
  for (const KeywordRow& row : KeywordRows()) {
    if (row.set == nullptr) continue;
    if (const int code = SetKeywordField(headers, row, kind)) return code;
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
static_assert(BodyOffset(headerBodyAlignment) == headerBodyOffset);

}  // namespace

unsigned int MorvikHeaderLength(const String& memberName)
{
  if (IsShort(memberName)) return headerBodyOffset;
  return AddLengths(headerBodyOffset, AddLengths(memberName.length(), 1));
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
