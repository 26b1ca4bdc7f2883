// A regular file that is read in pieces, never as a whole.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>

#include "foundation/FileBuffer.h"
#include "image/Reason.h"

using ByteView = std::span<const unsigned char>;

// The big-endian number in up to 8 bytes.
std::uint64_t Number(ByteView bytes);

class InputFile {
 public:
  explicit InputFile(const std::string& name);

  const std::string& name() const { return fileName; }
  // Why the file cannot be read; nothing when all went well so far.
  const std::optional<Reason>& reason() const { return why; }
  // At the open; not known of a file that did not open.
  const FileStatus& status() const { return openStatus; }
  std::uint64_t size() const { return openStatus.size(); }
  // Fills `into` from the offset on and returns how many bytes came: fewer at the end of the file, or at a failure,
  // which sets the reason.
  std::size_t read(std::uint64_t offset, std::span<unsigned char> into);

 protected:
  void refuse(const char* what, int error = 0) { why = Reason{fileName, what, error}; }

 private:
  std::string fileName;
  std::optional<Reason> why;
  FileDescriptor file;
  FileStatus openStatus;
};

// Why the file cannot be read, found by opening it and reading its first byte; nothing when that goes well.
std::optional<Reason> WhyUnread(const std::string& name);
