// The records of an image and their fields: the one table from which images are shown, compared and checked.
#pragma once

#include <cstdint>
#include <span>

#include "headers/FlagField.h"
#include "headers/HeaderRecord.h"

enum class FieldKind {
  number,    // big-endian, without sign
  stamp,     // big-endian, seconds since 1970 modulo 2^32
  text,      // EBCDIC, padded with blanks, or zeros when it was never set
  name,      // EBCDIC, zeros after it
  ascii,     // ASCII, zeros after it
  digits,    // hexadecimal digits, two to a byte
  code,      // a number of a value set
  flag,      // bits of a flag word
  reserved,  // zeros; the value is 0, or all digits when they are not
};
// "number", "stamp" and so on.
const char* FieldKindName(FieldKind kind);

// The section header's name, ".text" in EBCDIC and zeros, as a big-endian number.
inline constexpr std::uint64_t sectionNameNumber = 0x4BA385A7A3000000;

// The two forms of the SSD header: with the base name in it, or with the place where a longer one stands.
enum class NameForm { any, inHeader, afterFill };

struct FieldRow {
  const char* name;
  std::uint32_t offset;  // in the record, bytes
  std::uint32_t length;  // bytes; 0 when it differs from image to image
  FieldKind kind;
  FlagField bits = {0, 0};  // of a flag: its place in the word
  const char* keyword = nullptr;
  std::span<const CodedValue> values = {};
  NameForm form = NameForm::any;
};

struct RecordRow {
  const char* name;
  std::uint32_t length;  // bytes; 0 when it differs from image to image
  std::span<const FieldRow> fields;
};

enum class RecordId {
  fileHeader,
  auxiliaryHeader,
  vpdHeader,
  ssdHeader,
  fill,
  longName,
  sectionHeader,
  lid,
  lidHeader,  // within the LID
};

// In file order, as RecordId counts them.
std::span<const RecordRow> RecordRows();
const RecordRow& RecordOf(RecordId id);
// The record's field of this name, which it must have.
const FieldRow& FieldOf(RecordId id, const char* name);

// Whether the row belongs to an image whose base name stands after the fill, or to one whose name does not.
boolean Applies(const FieldRow& row, boolean longName);
// Where the bytes that hold the field begin in the record, and how many there are; of a flag only those with its bits.
std::uint32_t FirstByte(const FieldRow& row);
std::uint32_t ByteCount(const FieldRow& row);
