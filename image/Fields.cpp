#include "image/Fields.h"

#include <algorithm>
#include <stdexcept>
#include <string>

#include "builder/MorvikCreateHeader.h"
#include "headers/AuxillaryHdr.h"
#include "headers/FileHdr.h"
#include "headers/KespHeader.h"
#include "headers/SSDHdrX.h"
#include "headers/ScnHdr.h"
#include "headers/VPDHdrX.h"

namespace {

// A field's name, offset and length from the one word that names it. A macro, since only that turns a name to text.
#define MEMBER(record, member) #member, offsetof(record, member), sizeof(record::member)
#define BITS(word, member) #word "." #member, offsetof(VPDHDR, word), sizeof(VPDHDR::word)
#define FLAG(word, layout, member) BITS(word, member), FieldKind::flag, layout::member
#define UNUSED(word, layout, member) BITS(word, member), FieldKind::reserved, layout::member

using enum FieldKind;

constexpr FlagField noBits = {0, 0};

constexpr FieldRow fileHeaderFields[] = {
    {MEMBER(FILEHDR, magicNumber), number},     {MEMBER(FILEHDR, numberOfSections), number},
    {MEMBER(FILEHDR, timeDate), stamp},         {MEMBER(FILEHDR, symbolTableOffset), number},
    {MEMBER(FILEHDR, numberOfSymbols), number}, {MEMBER(FILEHDR, numberOfOptionalHeaderBytes), number},
    {MEMBER(FILEHDR, flags), number},
};

constexpr FieldRow auxiliaryHeaderFields[] = {
    {MEMBER(AUXILLARYHDR, magicNumber), number},
    {MEMBER(AUXILLARYHDR, versionStamp), number},
    {MEMBER(AUXILLARYHDR, textSize), number},
    {MEMBER(AUXILLARYHDR, initialisedDataSize), number},
    {MEMBER(AUXILLARYHDR, uninitialisedDataSize), number},
    {MEMBER(AUXILLARYHDR, entryPoint), number},
    {MEMBER(AUXILLARYHDR, textStart), number},
    {MEMBER(AUXILLARYHDR, dataStart), number},
};

constexpr FieldRow vpdHeaderFields[] = {
    {MEMBER(VPDHDR, ruLength), number},
    {MEMBER(VPDHDR, reserved1), reserved},
    {MEMBER(VPDHDR, ruName), text, noBits, "RUNAME"},
    {MEMBER(VPDHDR, reserved2), reserved},
    {MEMBER(VPDHDR, vpdConstant), text},
    {MEMBER(VPDHDR, ruLoadId), digits, noBits, "RULOADID"},
    {MEMBER(VPDHDR, reserved3), reserved},
    {MEMBER(VPDHDR, productId), text, noBits, "PRODUCTID"},
    {MEMBER(VPDHDR, primaryFunctionGroupId), text, noBits, "RUPFGID"},
    {MEMBER(VPDHDR, secondaryFunctionGroupId), text, noBits, "RUSFGID"},
    {MEMBER(VPDHDR, reserved4), reserved},
    {UNUSED(flags1, VPDFLAGS1, reserved1)},
    {FLAG(flags1, VPDFLAGS1, hardwareDependency), nullptr, yesNo},
    {FLAG(flags1, VPDFLAGS1, softwareDependency), nullptr, yesNo},
    {FLAG(flags1, VPDFLAGS1, changeLid), "RUCHGLID", yesNo},
    {FLAG(flags1, VPDFLAGS1, selfLoad), "RUSLFLOD", yesNo},
    {FLAG(flags1, VPDFLAGS1, flashLoad), "RUFLASH", yesNo},
    {FLAG(flags1, VPDFLAGS1, bodyType), nullptr, bodyTypes},
    {UNUSED(flags1, VPDFLAGS1, reserved2)},
    {UNUSED(flags1, VPDFLAGS1, reserved3)},
    {UNUSED(flags1, VPDFLAGS1, reserved4)},
    {FLAG(flags1, VPDFLAGS1, loadIdPresent), "RULOADID"},
    {FLAG(flags1, VPDFLAGS1, baseLoad), "BASELOAD", yesNo},
    {UNUSED(flags1, VPDFLAGS1, reserved5)},
    {FLAG(flags2, VPDFLAGS2, softwareType), "SWRTYPE", softwareTypes},
    {UNUSED(flags2, VPDFLAGS2, reserved1)},
    {UNUSED(flags2, VPDFLAGS2, reserved2)},
    {FLAG(flags2, VPDFLAGS2, developedByVelmor), "DEVELBY", noYes},
    {FLAG(flags2, VPDFLAGS2, developedForVelmor), "DEVELFOR", noYes},
    {UNUSED(flags2, VPDFLAGS2, reserved3)},
    {MEMBER(VPDHDR, developmentLabId), text, noBits, "DEVLABID"},
    {MEMBER(VPDHDR, ruDate), text},
    {MEMBER(VPDHDR, ruTime), text},
    {MEMBER(VPDHDR, reserved5), reserved},
    {MEMBER(VPDHDR, versionLevel), text, noBits, "VERLEVEL"},
    {MEMBER(VPDHDR, releaseModificationLevel), text, noBits, "RELMODLVL"},
    {MEMBER(VPDHDR, reserved6), reserved},
    {MEMBER(VPDHDR, vpdBodyOffset), number},
    {MEMBER(VPDHDR, reserved7), reserved},
    {MEMBER(VPDHDR, ssdOffset), number},
    {MEMBER(VPDHDR, reserved8), reserved},
    {MEMBER(VPDHDR, reserved9), reserved},
    {MEMBER(VPDHDR, reserved10), reserved},
};

constexpr FieldRow ssdHeaderFields[] = {
    {MEMBER(RUSSD, reserved1), reserved},
    {MEMBER(RUSSD, nucleusSequenceControl), digits},
    {MEMBER(RUSSD, reserved2), reserved},
    {MEMBER(RUSSD, ruName), name, noBits, nullptr, {}, NameForm::inHeader},
    {MEMBER(RUSSD, longName.reserved), reserved, noBits, nullptr, {}, NameForm::afterFill},
    {MEMBER(RUSSD, longName.ruNameOffset), number, noBits, nullptr, {}, NameForm::afterFill},
    {MEMBER(RUSSD, linkLoaderBypass), code, noBits, "LLBYPASS", yesNo},
    {MEMBER(RUSSD, ruDestination), code, noBits, "RUDEST", ruDestinations},
    {MEMBER(RUSSD, deleteRu), code, noBits, "DELETERU", yesNo},
    {MEMBER(RUSSD, onlineLLFlag), code, noBits, "LLFLAG", yesNo},
    {MEMBER(RUSSD, ruTypeOption), code, noBits, nullptr, ruTypeOptions},
    {MEMBER(RUSSD, ssdModel), code, noBits, "SSDMODEL", ssdModels},
    {MEMBER(RUSSD, allowBreakpoints), code, noBits, "ALLOWBKP", yesNo},
    {MEMBER(RUSSD, reserved3), reserved},
};

constexpr std::uint32_t fillLength = headerBodyOffset - sizeof(VPDHDR) - sizeof(RUSSD);
constexpr FieldRow fillFields[] = {{"fill", 0, fillLength, reserved}};

// The base name of the RUVPD source and the zero byte after it.
constexpr FieldRow longNameFields[] = {{"baseName", 0, 0, name}, {"terminator", 0, 1, reserved}};

constexpr FieldRow sectionHeaderFields[] = {
    {MEMBER(SCNHDR, name), name},
    {MEMBER(SCNHDR, physicalAddress), number},
    {MEMBER(SCNHDR, virtualAddress), number},
    {MEMBER(SCNHDR, numberOfRawDataBytes), number},
    {MEMBER(SCNHDR, offsetToRawData), number},
    {MEMBER(SCNHDR, relocationOffset), number},
    {MEMBER(SCNHDR, lineNumberOffset), number},
    {MEMBER(SCNHDR, numberOfRelocations), number},
    {MEMBER(SCNHDR, numberOfLineNumbers), number},
    {MEMBER(SCNHDR, flags), number},
};

constexpr FieldRow lidHeaderFields[] = {
    {MEMBER(KESPHDR, magicNumber), number},  {MEMBER(KESPHDR, version), number},
    {MEMBER(KESPHDR, lidNumber), digits},    {MEMBER(KESPHDR, lidDateTime), digits},
    {MEMBER(KESPHDR, lidClass), number},     {MEMBER(KESPHDR, crc), number},
    {MEMBER(KESPHDR, lidLength), number},    {MEMBER(KESPHDR, headerLength), number},
    {MEMBER(KESPHDR, mtdNumber), number},    {MEMBER(KESPHDR, flags1), number},
    {MEMBER(KESPHDR, reserved), number},     {MEMBER(KESPHDR, flags2), number},
    {MEMBER(KESPHDR, lidInfo), ascii},       {MEMBER(KESPHDR, lidUpdateTime), digits},
    {MEMBER(KESPHDR, phylumLength), number}, {"phylumData", sizeof(KESPHDR), 0, digits},
};

#undef UNUSED
#undef FLAG
#undef BITS
#undef MEMBER

constexpr RecordRow recordRows[] = {
    {"fileHeader", sizeof(FILEHDR), fileHeaderFields},
    {"auxiliaryHeader", sizeof(AUXILLARYHDR), auxiliaryHeaderFields},
    {"vpdHeader", sizeof(VPDHDR), vpdHeaderFields},
    {"ssdHeader", sizeof(RUSSD), ssdHeaderFields},
    {"fill", fillLength, fillFields},
    {"longName", 0, longNameFields},
    {"sectionHeader", sizeof(SCNHDR), sectionHeaderFields},
    {"lid", 0, {}},
    {"lidHeader", 0, lidHeaderFields},
};
static_assert(std::size(recordRows) == static_cast<std::size_t>(RecordId::lidHeader) + 1);

constexpr boolean AppliesTo(const FieldRow& row, NameForm form)
{
  return row.form == NameForm::any || row.form == form;
}

// Whether the fields of the form follow each other without gap or overlap, flags bit by bit, and fill the length.
constexpr boolean Cover(std::span<const FieldRow> fields, NameForm form, std::uint32_t length)
{
  std::uint32_t next = 0;  // in bits
  for (const FieldRow& row : fields) {
    if (!AppliesTo(row, form)) continue;
    if (row.offset * 8 + row.bits.first != next) return false;
    next += row.bits.width != 0 ? row.bits.width : row.length * 8;
  }
  return next == length * 8;
}

constexpr boolean CoverAll()
{
  for (const RecordRow& record : recordRows) {
    if (record.length == 0) continue;
    if (!Cover(record.fields, NameForm::inHeader, record.length)) return false;
    if (!Cover(record.fields, NameForm::afterFill, record.length)) return false;
  }
  return Cover(lidHeaderFields, NameForm::any, sizeof(KESPHDR));
}
static_assert(CoverAll());

}  // namespace

const char* FieldKindName(FieldKind kind)
{
  constexpr const char* names[] = {"number", "stamp", "text", "name", "ascii", "digits", "code", "flag", "reserved"};
  static_assert(std::size(names) == static_cast<std::size_t>(FieldKind::reserved) + 1);
  return names[static_cast<int>(kind)];
}

std::span<const RecordRow> RecordRows() { return recordRows; }

const RecordRow& RecordOf(RecordId id) { return recordRows[static_cast<int>(id)]; }

const FieldRow& FieldOf(RecordId id, const char* name)
{
  const auto fields = RecordOf(id).fields;
  const auto row = std::ranges::find(fields, std::string_view(name), &FieldRow::name);
  if (row == fields.end()) throw std::logic_error(std::string("no field ") + name);
  return *row;
}

boolean Applies(const FieldRow& row, boolean longName)
{
  return AppliesTo(row, longName ? NameForm::afterFill : NameForm::inHeader);
}

std::uint32_t FirstByte(const FieldRow& row) { return row.offset + row.bits.first / 8; }

std::uint32_t ByteCount(const FieldRow& row)
{
  if (row.bits.width == 0) return row.length;
  return (row.bits.first + row.bits.width - 1) / 8 - row.bits.first / 8 + 1;
}
