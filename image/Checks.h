// The checks that verify makes: what must hold in every image, and what it found.
#pragma once

#include <span>
#include <string>
#include <vector>

#include "image/Image.h"

struct CheckRow {
  const char* name;
  const char* summary;
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
const CheckRow& CheckOf(CheckId id);

// One thing that does not hold: of a field, or of the file when there is none.
struct Failure {
  const RecordRow* record = nullptr;
  const FieldRow* field = nullptr;
  std::uint64_t offset = 0;  // from the beginning of the file
  FieldValue found;
  FieldValue expected;
  std::string message;  // mostly none
};

struct CheckResult {
  const CheckRow* check;
  bool made = true;
  std::vector<Failure> failures;
  std::vector<std::string> remarks;  // what is no failure
};

// The checks that need the image alone, each with its result. A field that the file does not hold whole is checked by
// file-length only.
std::vector<CheckResult> CheckImage(const Image& image);

// The failure of a field in which these bytes were expected; as digits where they only differ in their padding.
Failure FieldFailure(const Record& record, const Field& field, ByteView expected);
// "vpdHeader.ruName".
std::string FieldName(const RecordRow& record, const FieldRow& field);
