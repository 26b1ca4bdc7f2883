// A moment, in seconds since the epoch, and its text in local time.
#pragma once

#include <ctime>

#include "foundation/String.h"

time_t currentTime();

class Time {
 public:
  // Now.
  Time() : moment(currentTime()) {}

  // The moment by a strftime format; empty when that yields nothing or more than 499 characters.
  String formatString(const String& format) const;
  // asctime's fixed form, such as "Fri Dec 31 23:59:00 1999"; empty when the platform has none for the moment.
  String toString() const;

 private:
  time_t moment;
};
