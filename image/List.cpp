#include "image/List.h"

#include "headers/AsciiEbcdic.h"
#include "headers/VPDHdrX.h"
#include "image/BuildMoment.h"

ListRow List(const Image& image)
{
  const std::uint64_t vpd = image.file.offsetOf(RecordId::vpdHeader);
  // Of a field that the file does not hold whole, nothing.
  const auto bytes = [&](std::size_t offset, std::size_t length) {
    const ByteView held = image.file.bytes(vpd + offset, length);
    return held.size() == length ? held : ByteView();
  };
  const ByteView loadId = bytes(offsetof(VPDHDR, ruLoadId), sizeof(VPDHDR::ruLoadId));
  ListRow row;
  if (!IsZero(loadId)) row.loadId = Hexadecimal(loadId);
  row.name = FromEbcdic(bytes(offsetof(VPDHDR, ruName), sizeof(VPDHDR::ruName)), ebcdicBlankChar);
  row.versionLevel = FromEbcdic(bytes(offsetof(VPDHDR, versionLevel), sizeof(VPDHDR::versionLevel)), ebcdicBlankChar);
  if (const auto moment = BuildMomentOf(image.file)) row.built = TimeText(moment->local);
  row.lidSize = image.file.layout().lidLength;
  return row;
}
