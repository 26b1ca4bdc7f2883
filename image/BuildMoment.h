// When an image was built, as it tells it twice: by the stamp of the file header, and by the VPD header's local date
// and time.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "image/ImageFile.h"

struct BuildMoment {
  std::int64_t stamp;  // seconds since 1970; of the stamps that are the same modulo 2^32, the nearest to `local`
  std::int64_t local;  // the local date and time, as if they were UTC
};

// Nothing when the image does not hold both, or when its date and time are none.
std::optional<BuildMoment> BuildMomentOf(const ImageFile& image);

// Seconds since 1970 of the day that the 8 EBCDIC digits say, and seconds of the day that the 6 digits say; nothing
// when there is no such day or time.
std::optional<std::int64_t> DaySeconds(ByteView date);
std::optional<std::int64_t> TimeSeconds(ByteView time);

// "2026-03-14 09:26:00" for seconds since 1970.
std::string TimeText(std::int64_t seconds);
// "+01:00" or, where it is no whole minute, "+01:00:07".
std::string OffsetText(std::int64_t seconds);
