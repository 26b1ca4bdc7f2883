// A regular file that is read in pieces, never as a whole.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>

#include "image/Reason.h"

using ByteView = std::span<const unsigned char>;

// The big-endian number in up to 8 bytes.
std::uint64_t Number(ByteView bytes);

class InputFile {
 public:
  explicit InputFile(const std::string& name);
  ~InputFile();
  InputFile(const InputFile&) = delete;
  InputFile& operator=(const InputFile&) = delete;

  const std::string& name() const { return fileName; }
  // Why the file cannot be read; nothing when all went well so far.
  const std::optional<Reason>& reason() const { return why; }
  // At the open; 0 without the file.
  std::uint64_t size() const { return fileSize; }
  // Fills `into` from the offset on and returns how many bytes came: fewer at the end of the file, or at a failure,
  // which sets the reason.
  std::size_t read(std::uint64_t offset, std::span<unsigned char> into);

 protected:
  void refuse(const char* what, int error = 0) { why = Reason{fileName, what, error}; }

 private:
  std::string fileName;
  std::optional<Reason> why;
  int descriptor = -1;
  std::uint64_t fileSize = 0;
};
