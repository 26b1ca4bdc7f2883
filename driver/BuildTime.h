// When a load module was built.
#pragma once

#include <ctime>

#include "foundation/ByteString.h"
#include "foundation/String.h"
#include "headers/KespHeader.h"

struct BuildTime {
  time_t seconds;  // since the epoch
  String date;     // YYYYMMDD, local time
  String time;     // hhmmss, local time
};

// Whether it is a LID header that says when the load module was built.
boolean HoldsBuildTime(const KespHeader& lidHeader);

// The LID header's date and time, or without a LID header the given time. The strings are empty when the time has no
// text form.
BuildTime GetBuildTime(const ByteString& lidBegin, time_t otherwise);
