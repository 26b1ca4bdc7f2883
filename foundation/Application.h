// The base of a command-line tool's application object: its name and version, and the operations through which a main
// drives it: parseParams; on failure printError and showUsage; else execute and printError.
#pragma once

#include "foundation/String.h"

inline constexpr unsigned int defaultMajorVersion = 1;
inline constexpr unsigned int defaultMinorVersion = 0;

class Application {
 public:
  Application(const String& name, unsigned int major, unsigned int minor);
  virtual ~Application() = default;

  // Takes the command line; 0 or the code of its fault.
  virtual int parseParams(int argc, char** argv) = 0;
  virtual int readInitFile() = 0;
  // Does the tool's work; 0 or the code of what stopped it.
  virtual int execute() = 0;
  // Writes the code's message to standard error.
  virtual void printError(int code) const = 0;
  // Writes the usage line to standard error.
  virtual void showUsage() const = 0;

  void setName(const String& newName) { name = newName; }
  String getName() const { return name; }
  void setMajorVersion(unsigned int major) { majorVersion = major; }
  unsigned int getMajorVersion() const { return majorVersion; }
  void setMinorVersion(unsigned int minor) { minorVersion = minor; }
  unsigned int getMinorVersion() const { return minorVersion; }

 private:
  String name;
  unsigned int majorVersion;
  unsigned int minorVersion;
};
