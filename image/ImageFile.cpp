#include "image/ImageFile.h"

#include <algorithm>

#include "builder/MorvikCreateHeader.h"
#include "headers/AuxillaryHdr.h"
#include "headers/FileHdr.h"
#include "headers/KespHeader.h"
#include "headers/SSDHdrX.h"
#include "headers/ScnHdr.h"
#include "headers/VPDHdrX.h"

namespace {

constexpr std::uint64_t blockOffset = sizeof(FILEHDR) + sizeof(AUXILLARYHDR);
// What is read at once: the front of a common image and the header of its LID.
constexpr std::uint64_t usualFront = 2048;
// No command line can give a longer base name. An image that claims one is read as if it had none.
constexpr std::uint64_t longestName = std::uint64_t{1} << 20;

}  // namespace

std::uint64_t ImageLayout::longNameLength() const { return blockLength - headerBodyOffset; }

std::uint64_t ImageLayout::sectionOffset() const { return blockOffset + blockLength; }

std::uint64_t ImageLayout::lidOffset() const { return sectionOffset() + sizeof(SCNHDR); }

ImageFile::ImageFile(const std::string& name) : InputFile(name)
{
  if (reason()) return;
  readFront(usualFront);
  if (reason()) return;
  if (front.size() < sizeof(FILEHDR)) {
    refuse("not an image: shorter than a file header");
  } else if (number(offsetof(FILEHDR, magicNumber), 2) != FileHdr::objectMagicNumber) {
    refuse("not an image: another magic number");
  } else {
    records.blockLength = findBlockLength();
    readFront(records.lidOffset());
    records.lidLength = findLidLength();
    records.lidHeaderLength = findLidHeaderLength();
  }
}

// Makes sure that up to `length` bytes are in memory.
void ImageFile::readFront(std::uint64_t length)
{
  const std::size_t had = front.size();
  const std::uint64_t wanted = std::min(length, size());
  if (wanted <= had) return;
  front.resize(wanted);
  front.resize(had + read(had, std::span(front).subspan(had)));
}

ByteView ImageFile::bytes(std::uint64_t offset, std::uint64_t length) const
{
  if (offset >= front.size()) return {};
  return ByteView(front).subspan(offset, std::min<std::uint64_t>(length, front.size() - offset));
}

std::uint64_t ImageFile::offsetOf(RecordId record) const
{
  switch (record) {
    case RecordId::fileHeader:
      return 0;
    case RecordId::auxiliaryHeader:
      return sizeof(FILEHDR);
    case RecordId::vpdHeader:
      return blockOffset;
    case RecordId::ssdHeader:
      return blockOffset + sizeof(VPDHDR);
    case RecordId::fill:
      return blockOffset + sizeof(VPDHDR) + sizeof(RUSSD);
    case RecordId::longName:
      return blockOffset + headerBodyOffset;
    case RecordId::sectionHeader:
      return records.sectionOffset();
    case RecordId::lid:
    case RecordId::lidHeader:
      return records.lidOffset();
  }
  return 0;
}

std::uint64_t ImageFile::number(std::uint64_t offset, std::uint64_t length) const
{
  return Number(bytes(offset, length));
}

// Whether a section header stands after a header block of this length.
boolean ImageFile::sectionFollows(std::uint64_t blockLength)
{
  readFront(blockOffset + blockLength + sizeof(SCNHDR));
  return number(blockOffset + blockLength, sizeof(SCNHDR::name)) == sectionNameNumber;
}

// The count of optional-header bytes tells it modulo 65536, the symbol pointer less the LID's length in full. When they
// do not agree, the right one is the one under which a section header stands in its place.
std::uint64_t ImageFile::findBlockLength()
{
  const std::uint64_t count = number(offsetof(FILEHDR, numberOfOptionalHeaderBytes), 2);
  const std::uint64_t end = number(offsetof(FILEHDR, symbolTableOffset), 4);
  const ByteView ruLength = bytes(blockOffset + offsetof(VPDHDR, ruLength), 4);
  if (ruLength.size() < 4) return headerBodyOffset;
  const std::uint64_t lidLength = Number(ruLength);
  const std::uint64_t byCount = count - sizeof(AUXILLARYHDR);
  const std::uint64_t byEnd = static_cast<std::uint32_t>(end - lidLength - blockOffset - sizeof(SCNHDR));
  const auto isPossible = [](std::uint64_t length) {
    return length >= headerBodyOffset && length <= headerBodyOffset + longestName;
  };
  if ((byEnd - byCount) % 65536 == 0 && isPossible(byEnd)) return byEnd;
  for (const std::uint64_t length : {std::uint64_t{headerBodyOffset}, byEnd, byCount}) {
    if (isPossible(length) && sectionFollows(length)) return length;
  }
  return headerBodyOffset;
}

// Three fields tell it; the one that stands alone is wrong.
std::uint64_t ImageFile::findLidLength() const
{
  const ByteView ruLength = bytes(blockOffset + offsetof(VPDHDR, ruLength), 4);
  const ByteView rawData = bytes(records.sectionOffset() + offsetof(SCNHDR, numberOfRawDataBytes), 4);
  const std::uint64_t end = number(offsetof(FILEHDR, symbolTableOffset), 4);
  const std::uint64_t byEnd = static_cast<std::uint32_t>(end - records.lidOffset());
  if (ruLength.size() < 4) return byEnd;
  if (rawData.size() == 4 && Number(rawData) == byEnd) return byEnd;
  return Number(ruLength);
}

// As the tool takes it, from the LID's own bytes: of version 2, the length that it says; of others, the fixed part and
// the phylum data.
std::uint64_t ImageFile::findLidHeaderLength()
{
  if (records.lidLength < sizeof(KESPHDR)) return 0;
  const std::uint64_t lid = records.lidOffset();
  readFront(lid + sizeof(KESPHDR));
  if (bytes(lid, sizeof(KESPHDR)).size() < sizeof(KESPHDR)) return 0;
  if (number(lid + offsetof(KESPHDR, magicNumber), 2) != KespHeader::lidMagicNumber) return 0;
  if (number(lid + offsetof(KESPHDR, version), 2) == KespHeader::shortVersion) {
    const std::uint64_t length = number(lid + offsetof(KESPHDR, headerLength), 4);
    return length < sizeof(KESPHDR::magicNumber) ? 0 : std::min<std::uint64_t>(length, sizeof(KESPHDR));
  }
  const std::uint64_t phylumEnd = sizeof(KESPHDR) + number(lid + offsetof(KESPHDR, phylumLength), 2);
  const std::uint64_t length = std::min(phylumEnd, records.lidLength);
  readFront(lid + length);
  return length;
}
