#include "driver/BuildTime.h"

namespace {

String Formatted(const tm& local, const char* format)
{
  char text[sizeof "-2147483648MMDD"];
  return String(text, static_cast<unsigned int>(std::strftime(text, sizeof text, format, &local)));
}

}  // namespace

boolean HoldsBuildTime(const KespHeader& lidHeader)
{
  return lidHeader.valid() && lidHeader.getMagicNumber() == KespHeader::lidMagicNumber && lidHeader.holdsLidDateTime();
}

BuildTime GetBuildTime(const ByteString& lidBegin, time_t otherwise)
{
  BuildTime build = {otherwise, String(), String()};
  KespHeader lidHeader(lidBegin);
  const tm* local = nullptr;
  if (HoldsBuildTime(lidHeader)) {
    tm* built = lidHeader.getLidDateTime();
    built->tm_isdst = -1;
    build.seconds = std::mktime(built);
    local = built;
  } else {
    local = std::localtime(&build.seconds);
  }
  if (local != nullptr) {
    build.date = Formatted(*local, "%Y%m%d");
    build.time = Formatted(*local, "%H%M%S");
  }
  return build;
}
