// The header builder: reads the RUVPD source and the VPDINFO source into the option table and makes of it the header
// block (VPD header, SSD header, fill, long name) in front of a load module. Used once: morvikParse, morvikExecute,
// morvikGetHeader. The first error ends an operation; its code is one of those that morvikPrintError knows.
#pragma once

#include <memory>
#include <span>
#include <vector>

#include "foundation/ByteString.h"
#include "foundation/FileName.h"
#include "foundation/FileStatus.h"
#include "foundation/FileStreams.h"
#include "foundation/MessageTable.h"
#include "foundation/String.h"
#include "source/SPASourceProgram.h"

// A file that was named as a source, whether it could be opened or not.
struct SourceFile {
  SourceFile(const FileName& file, const ReadFileStream& stream);

  FileName name;
  FileStatus opened;  // at the open; without one, of the file that had the name
  boolean isOpened;   // whether it could be opened
};

// The codes that morvikPrintError knows, and what it says of them.
std::span<const MessageRow> MorvikMessages();

// The VPDINFO source's base name when the RUVPD source gives none.
inline constexpr const char* defaultVpdinfoName = "qel";

// The VPDINFO source with this base name, in the folder of the RUVPD source.
FileName VpdinfoName(const FileName& ruvpdSource, const String& baseName);

class Morvik {
 public:
  // Takes the main source's full name, the RU date (8 decimal digits, year month day) and the RU time (6 decimal
  // digits, hours minutes seconds). Returns 0, or badFileName, badDate or badTime, looked for in this order.
  int morvikParse(String source, String date, String time);
  // Has morvikExecute read this file as the VPDINFO source, in place of the one beside the RUVPD source. It is read and
  // reported as such whatever its extension. Without effect when the main source is read alone.
  void setVpdinfoSource(const FileName& file) { givenVpdinfo = file; }
  // Reads the sources and builds the header block, after a morvikParse that returned 0. Returns 0 or the error's code;
  // after an error there is no header.
  int morvikExecute();
  // In place of morvikExecute, the files that it would read, in their order. Reads the RUVPD source where it names the
  // VPDINFO source; when it cannot be read, that one has its default name. The option table must be empty.
  std::vector<FileName> nameSources();
  // A copy of the header block, empty before morvikExecute.
  ByteString morvikGetHeader() const { return header; }
  // Writes the code's message as a line to standard error; nothing for a code that the builder does not know.
  void morvikPrintError(int code) const;
  // Reads one source; when `restricted`, only its VPDINFO keywords. For the extensions "lidhdr" and "vpdinfo", in lower
  // case, it writes to standard error that the file was opened, or that it cannot be opened or read, and then returns
  // the code of that. For any other extension it prints nothing and returns 0.
  int openSource(FileName& file, boolean& restricted);
  // The files that were named as sources, in the order in which they were read.
  const std::vector<SourceFile>& sourceFiles() const { return sources; }

 private:
  friend int MorvikCreateHeader(Morvik* builder);

  // Whether the main source is read alone.
  boolean isProductInformation() const;
  FileName vpdinfoName() const;

  String systemName;  // the default base name of the VPDINFO source
  String memberName;  // the main source's base name
  String sourceType;  // the main source's extension, in upper case
  unsigned int bodyAlignment = 1;
  String ruDate;
  String ruTime;
  String ruType;
  FileName ruvpdSource;
  FileName vpdinfoSource;
  FileName givenVpdinfo;
  std::unique_ptr<SPASourceProgram> sourceProgram;
  ByteString header;
  std::vector<SourceFile> sources;
};
