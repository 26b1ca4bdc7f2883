// An image file, opened for reading: what stands in front of its LID is in memory, the LID is not. Nothing in the file
// is trusted: where its records lie is worked out from what they say of it, and what the file does not hold is not
// there.
#pragma once

#include <vector>

#include "image/Fields.h"
#include "image/InputFile.h"

// Where the records lie that do not always lie at the same place; offsets from the beginning of the file.
struct ImageLayout {
  std::uint64_t blockLength = 0;  // of the header block: VPD header, SSD header, fill, long name
  std::uint64_t lidLength = 0;
  std::uint64_t lidHeaderLength = 0;  // with its phylum data; 0 when the LID has no header

  std::uint64_t longNameLength() const;  // with the zero byte after it; 0 without one
  std::uint64_t sectionOffset() const;
  std::uint64_t lidOffset() const;
};

class ImageFile : public InputFile {
 public:
  // There is a reason too when the file is no image: shorter than a file header, or with another magic number.
  explicit ImageFile(const std::string& name);

  const ImageLayout& layout() const { return records; }
  // What the file holds of these bytes, which is less than `length` where it ends. They must lie in front of the LID or
  // in the LID's header.
  ByteView bytes(std::uint64_t offset, std::uint64_t length) const;
  // Where the record begins.
  std::uint64_t offsetOf(RecordId record) const;

 private:
  void readFront(std::uint64_t length);
  std::uint64_t number(std::uint64_t offset, std::uint64_t length) const;
  boolean sectionFollows(std::uint64_t blockLength);
  std::uint64_t findBlockLength();
  std::uint64_t findLidLength() const;
  std::uint64_t findLidHeaderLength();

  std::vector<unsigned char> front;
  ImageLayout records;
};
