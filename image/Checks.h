// The checks that verify makes: what must hold in every image, and what it found.
#pragma once

#include <span>
#include <string>
#include <vector>

#include "image/Image.h"

struct CheckRow {
  const char* name;
  const char* summary;
  RecordId last;  // the last record that the check needs
};

enum class CheckId {
  fileLength,
  fileHeader,
  auxiliaryHeader,
  vpdHeader,
  ssdHeader,
  fill,
  longName,
  sectionHeader,
  reservedBytes,
  dateTime,
  buildTime,
  codes,
  flags,
  textFields,
  payload,  // needs the LID
  inputs,   // needs the sources
};

// In the order in which they are made, as CheckId counts them.
std::span<const CheckRow> CheckRows();

// One thing that does not hold: of a field, or of the file when there is none.
struct Failure {
  const RecordRow* record = nullptr;
  const FieldRow* field = nullptr;
  std::uint64_t offset = 0;  // from the beginning of the file
  FieldValue found;
  FieldValue expected;
  std::string message;  // all of it in words
};

struct CheckResult {
  const CheckRow* check;
  // False without what it needs: the LID, the sources, fields that the file holds whole, a date and time that are ones.
  bool made = true;
  std::vector<Failure> failures;
  std::vector<std::string> remarks;  // what is no failure, but should be known
  std::vector<std::string> details;  // what may be known
};

// All checks, each with its result; those that need more than the image are not made.
std::vector<CheckResult> CheckImage(const Image& image);

// The failure of a field that should have this value, or any but the one that it has; the reason may be empty.
Failure FieldFailure(const Record& record, const Field& field, const FieldValue& expected, const std::string& reason);
// That of a field in which these bytes were expected; as digits where they only differ in their padding.
Failure BytesFailure(const Record& record, const Field& field, ByteView expected);
// "vpdHeader.ruName".
std::string FieldName(const RecordRow& record, const FieldRow& field);
