// An image taken apart: each record with its fields, as far as the file goes.
#pragma once

#include <string>
#include <variant>
#include <vector>

#include "image/ImageFile.h"

// A number, a flag or a text; nothing when the file does not hold the field whole.
using FieldValue = std::variant<std::monostate, std::uint64_t, bool, std::string>;

struct Field {
  const FieldRow* row;
  std::uint64_t offset;  // from the beginning of the file
  std::uint64_t length;  // bytes that it should have
  ByteView bytes;        // bytes that the file holds of it
  FieldValue value;
  std::string remark;  // a time in readable form; mostly none
};

struct Record {
  const RecordRow* row;
  std::uint64_t offset;
  std::uint64_t length;  // bytes that it should have
  std::uint64_t held;    // bytes that the file holds of it
  std::vector<Field> fields;
};

struct Image {
  // Opens the file and takes it apart. The LID is not read, but for its header.
  explicit Image(const std::string& name);

  // Null when the file holds nothing of it.
  const Record* find(RecordId id) const;
  const Field* find(RecordId id, const FieldRow& row) const;
  // couldNot when the file is no image, foundSomething when it is cut or longer than it should be.
  ExitStatus status() const;

  // Nothing else is filled when the file has a reason.
  ImageFile file;
  std::vector<Record> records;  // in file order, up to the last of which the file holds anything
  std::uint64_t expectedSize = 0;
};

// The value of a field's bytes.
FieldValue Decode(const FieldRow& row, ByteView bytes);
// Whether the field differs in two images, of a flag only in its own bits.
bool Differ(const FieldRow& row, ByteView one, ByteView other);
// The names that stand for the field's value, none when it has none.
std::vector<std::string> Names(const FieldRow& row, const FieldValue& value);
// The value as people read it, whatever it holds: by its names where it has some, texts in quotes, "(cut)" for none.
std::string ValueText(const FieldRow& row, const FieldValue& value);
// The bytes' digits, two each.
std::string Hexadecimal(ByteView bytes);
bool IsZero(ByteView bytes);
// EBCDIC as ASCII, without the bytes of the padding at its end. A byte that stands for no character becomes 0xFF.
std::string FromEbcdic(ByteView bytes, unsigned char padding);
