#include "driver/OutputFront.h"

#include "builder/MorvikCreateHeader.h"
#include "driver/BuildTime.h"
#include "foundation/Allocate.h"
#include "foundation/ReturnCode.h"
#include "headers/AuxillaryHdr.h"
#include "headers/FileHdr.h"
#include "headers/ScnHdr.h"
#include "headers/VPDHdrX.h"

namespace {

constexpr unsigned int envelopeLength = sizeof(FILEHDR) + sizeof(AUXILLARYHDR) + sizeof(SCNHDR);

// All that stands in front of the LID's bytes, in file order.
ByteString AssembleFront(const ByteString& block, unsigned int lidLength, time_t buildTime)
{
  VitalProductDataHeaderX vpd(block);
  AuxillaryHdr auxillary(sizeof(AUXILLARYHDR));
  auxillary.setMFlag();
  auxillary.setVStamp();
  FileHdr file(sizeof(FILEHDR));
  file.setMagicNumber();
  file.setTimeDate(buildTime);
  file.setNumberOfSections(1);
  const unsigned int optionalLength = auxillary.getLength() + block.length();
  file.setNumberOfOptionalHeaderBytes(static_cast<unsigned short>(optionalLength));
  ScnHdr section(sizeof(SCNHDR));
  String sectionName(".text");
  section.setSectionName(sectionName);
  section.setSectionFlagAsData();
  section.setNumberOfRawDataBytes(lidLength);

  const unsigned int rawDataOffset = file.getLength() + optionalLength + section.getLength();
  file.setSymPtr(long{lidLength} + rawDataOffset);
  vpd.setVPDRULength(lidLength);
  section.setOffsetToRawData(rawDataOffset);

  file.Endian();
  auxillary.Endian();
  vpd.Endian();
  section.Endian();
  return file.getByteString() + auxillary.getByteString() + vpd.getByteString() + section.getByteString();
}

}  // namespace

unsigned int FrontLength(const Kelvra& app)
{
  return AddLengths(envelopeLength, MorvikHeaderLength(app.ruvpdFile.getMember()));
}

int BuildFront(const Kelvra& app, const FileStatus& lidStatus, const ByteString& lidBegin, OutputFront& front)
{
  const BuildTime build = GetBuildTime(lidBegin, app.buildTime.value_or(lidStatus.modificationTime()));
  if (build.date.empty()) return badTime;

  Morvik builder;
  builder.setVpdinfoSource(app.vpdinfoFile);
  int code = builder.morvikParse(app.ruvpdFile.getSource(), build.date, build.time);
  if (code == success) code = builder.morvikExecute();
  front.sources = builder.sourceFiles();
  if (code != success) {
    builder.morvikPrintError(code);
    return code;
  }
  front.bytes = AssembleFront(builder.morvikGetHeader(), static_cast<unsigned int>(lidStatus.size()), build.seconds);
  return success;
}
