#include "driver/Kelvra.h"

#include <cstring>

#include "driver/CreateHeader.h"
#include "foundation/FileStreams.h"
#include "foundation/MessageTable.h"
#include "foundation/ReturnCode.h"
#include "foundation/StandardStreams.h"

namespace {

// Empty: the tool takes its name from its invocation.
const String defaultName;

constexpr MessageRow messages[] = {
    {success, "kelvra process completed successfully"},
    {warningsInSource, "kelvra process successful: Warning(s) encountered in source file"},
    {errorsInSource, "kelvra process failed: Error(s) encountered in source file"},
    {severeErrorsInSource, "kelvra process failed: Severe error(s) encountered in source file"},
    {terminatingErrorsInSource, "kelvra process failed: Terminating error(s) encountered in source file"},
    {badFileName, "File does not have a kesp header on it"},
    {parameterMissing, "Required parameter missing"},
    {tooManyParameters, "Too many parameters"},
    {lidNotMeasured, "Error in getting file length of RU"},
    {lidNotRead, "Error in reading object file"},
    {outputNotWritten, "Error in writing output (.ruh) file"},
    {outOfMemory, "Out of memory"},
    {headerNotPrinted, "Error writing VPD header to STDOUT"},
    {runFailed, "kelvra process failed"},
};
static_assert(CodesAscend(messages));

struct FileOption {
  const char* word;
  const char* usage;
  FileName Kelvra::*file;
};
constexpr FileOption fileOptions[] = {
    {"-r", " -r partname.lidhdr", &Kelvra::ruvpdFile},
    {"-l", " -l partname.kesp", &Kelvra::lidFile},
    {"-o", " -o outfile.ruhx", &Kelvra::outputFile},
};

// The option that the argument's first two characters name, or null.
const FileOption* FindOption(const char* argument)
{
  for (const FileOption& option : fileOptions) {
    if (std::strncmp(argument, option.word, 2) == 0) return &option;
  }
  return nullptr;
}

// A file that was not named is beside the LID, under its name with another extension.
void DefaultFrom(const FileName& lid, FileName& file, const char* extension)
{
  if (!file.getSource().empty()) return;
  file.setSource(lid.getSource());
  file.setExtension(extension);
}

// A name without extension stands for itself when such a file opens, else for the name with the extension.
void CompleteExtension(Kelvra& app, FileName& file, const char* extension)
{
  if (!file.getExtension().empty()) return;
  const ReadFileStream probe(file, std::ios_base::in);
  if (!probe.failure()) return;
  app.passedOver.push_back(file);
  file.setExtension(extension);
}

}  // namespace

Kelvra::Kelvra() : Application(defaultName, defaultMajorVersion, defaultMinorVersion) {}

int Kelvra::parseParams(int argc, char** argv) { return Parse(this, argc, argv); }

int Kelvra::readInitFile() { return 0; }

int Kelvra::execute() { return createWriteHeader(); }

int Kelvra::createWriteHeader() { return CreateHeader(this); }

void Kelvra::printError(int code) const
{
  const char* message = FindMessage(messages, code);
  PrintMessage(message != nullptr ? message : FindMessage(messages, runFailed));
}

void Kelvra::showUsage() const { ShowUsage(this); }

void Kelvra::nameFiles()
{
  DefaultFrom(lidFile, ruvpdFile, sourceExtension);
  DefaultFrom(lidFile, outputFile, outputExtension);
  CompleteExtension(*this, lidFile, lidExtension);
  CompleteExtension(*this, ruvpdFile, sourceExtension);
}

std::span<const MessageRow> KelvraMessages() { return messages; }

int Parse(Kelvra* app, int argc, char** argv)
{
  if (app->getName().empty() && argc > 0) app->setName(FileName(argv[0]).getMember());
  if (argc <= 1) return parameterMissing;
  for (int i = 1; i < argc; i++) {
    const FileOption* option = FindOption(argv[i]);
    if (option == nullptr || ++i == argc) return parameterMissing;
    app->*option->file = FileName(argv[i]);
  }
  if (app->lidFile.getSource().empty()) return parameterMissing;
  app->nameFiles();
  return success;
}

void ShowUsage(const Kelvra* app)
{
  String usage = "Usage : " + app->getName();
  for (const FileOption& option : fileOptions) usage += option.usage;
  PrintErrorLine(usage);
}
