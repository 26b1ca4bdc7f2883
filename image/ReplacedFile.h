// A file that a run writes whole or not at all: what it shall hold is first written to a file without a name in the
// same folder, and then takes the name's place in one step. Until then the name stands for the old file or for none,
// however the run ends. Symbolic links of the name are followed, the file at their end is replaced, and its permissions
// stay. What has no place to be taken (a pipe, a device) is opened and written as it is. Used once, in this order:
// open, write as often as there are pieces, finish, place. Each gives the reason when it fails; nothing is left then.
#pragma once

#include <sys/stat.h>

#include <optional>
#include <span>
#include <string>

#include "foundation/FileBuffer.h"
#include "image/Reason.h"
#include "image/TemporaryName.h"

class ReplacedFile {
 public:
  // Finds out what the name stands for, and touches nothing.
  explicit ReplacedFile(const std::string& name);

  // The name at the end of the links.
  const std::string& target() const { return targetName; }
  // Whether both would take the same place, whatever the names lead through.
  bool hasPlaceOf(const ReplacedFile& other) const;
  // The errno value with which a plain open for writing would fail, as far as can be told without one, or 0.
  int openError() const;
  // Fails where a plain open for writing would.
  std::optional<Reason> open();
  std::optional<Reason> write(std::span<const unsigned char> bytes);
  // Closes the file, all of whose bytes are now written.
  std::optional<Reason> finish();
  // Gives the file its name.
  std::optional<Reason> place();

 private:
  enum class Kind { absent, regular, other };

  std::string folder() const;
  int makeTemporary();
  std::optional<Reason> kept() const;
  int keepPermissions() const;
  int placeUnnamed();
  std::optional<Reason> failed(const char* what, int error) const;

  const std::string name;
  std::string targetName;
  Kind kind = Kind::other;
  struct stat old = {};  // of what the name stood for
  int lookup = 0;        // an errno value: why that is not known
  FileDescriptor file;
  FileDescriptor unnamed;  // holds the file without a name after `file` is closed
  TemporaryName temporary;
};
