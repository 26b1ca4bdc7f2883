// The tool's application object: its three files and the conversation with the user.
#pragma once

#include <ctime>
#include <optional>
#include <span>
#include <vector>

#include "foundation/Application.h"
#include "foundation/FileName.h"
#include "foundation/MessageTable.h"

// The extensions of names that are not given, or without one.
inline constexpr const char* lidExtension = "kesp";
inline constexpr const char* sourceExtension = "lidhdr";
inline constexpr const char* outputExtension = "ruhx";

class Kelvra : public Application {
 public:
  Kelvra();

  // Takes -r, -l and -o and defaults the names that were not given; 0, or 30 for any fault.
  int parseParams(int argc, char** argv) override;
  // Always 0: the tool has no initialisation file.
  int readInitFile() override;
  // Writes the output file; 0 or the code of what stopped it.
  int execute() override;
  int createWriteHeader();
  // Writes the closing line of a run that ends with the code.
  void printError(int code) const override;
  void showUsage() const override;
  // Gives the names that were not given, and completes those without extension, from the LID's name, which must be
  // given.
  void nameFiles();

  FileName ruvpdFile;   // the RUVPD source
  FileName lidFile;     // the load module
  FileName outputFile;  // the file to be written
  // Names without extension as they were given, which did not open: the files above have an extension instead.
  std::vector<FileName> passedOver;

  // What no option sets.
  FileName vpdinfoFile;             // the VPDINFO source, in place of the one beside the RUVPD source; none when empty
  std::optional<time_t> buildTime;  // of a LID without header, in place of its modification time
};

// The codes that printError has words for, and these words.
std::span<const MessageRow> KelvraMessages();

// What parseParams and showUsage do.
int Parse(Kelvra* app, int argc, char** argv);
void ShowUsage(const Kelvra* app);
