// What the tests share: bytes as spaced hexadecimal text, temporary folders, and runs of the real executable.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "tests/Convert.h"

namespace fs = std::filesystem;

// "01 AB ff" as bytes; blanks are free. Worked out here, not by the code under test.
std::string Raw(std::string_view hex);
ByteString Bytes(std::string_view hex);

// The bytes as "01 ab ff".
std::string Hex(std::string_view raw);
std::string Hex(const ByteString& bytes);

// The file's bytes; fails the test when it cannot be read.
std::string Content(const std::string& name);

// The record's bytes after Endian().
template <class Record>
std::string InFileOrder(Record record)
{
  record.Endian();
  return Hex(record.getByteString());
}

// Runs a fuzzer's model on inputs made from its seeds; fails the test when the model does not hold.
void ExpectHolds(void (*fuzz)(struct FuzzInput), const std::string& name, int rounds);

// An own folder below the system's temporary folder, removed with all that is in it.
class TemporaryFolder {
 public:
  TemporaryFolder();
  ~TemporaryFolder();
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;

  const std::string& path() const { return path_; }
  std::string operator/(std::string_view name) const { return path_ + "/" + std::string(name); }
  // Writes the file `name` in the folder and returns its full name.
  std::string write(std::string_view name, std::string_view content) const;
  std::string read(std::string_view name) const { return Content(*this / name); }

 private:
  std::string path_;
};

// Runs the built kelvra in `folder` with TZ set to `zone`; its standard input is empty. It ends with the exit status,
// or minus the number of the signal that ended it, says `err`, where one is given, and leaves its standard output
// empty.
void ExpectRun(const TemporaryFolder& folder, std::vector<std::string> arguments, int status,
               const std::optional<std::string>& err, const std::string& zone = "UTC0");
