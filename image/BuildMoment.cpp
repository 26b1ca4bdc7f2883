#include "image/BuildMoment.h"

#include <fmt/format.h>

#include <chrono>
#include <cstdlib>

#include "headers/FileHdr.h"
#include "headers/VPDHdrX.h"

namespace {

using namespace std::chrono;

// The number in EBCDIC digits, or -1.
int DigitsAt(ByteView bytes, std::size_t first, std::size_t count)
{
  int number = 0;
  for (const unsigned char byte : bytes.subspan(first, count)) {
    if (byte < 0xF0 || byte > 0xF9) return -1;
    number = number * 10 + (byte - 0xF0);
  }
  return number;
}

// The number nearest to `goal` of those that are `number` modulo 2^32.
std::int64_t Nearest(std::uint32_t number, std::int64_t goal)
{
  const auto distance = static_cast<std::int32_t>(number - static_cast<std::uint32_t>(goal));
  return goal + distance;
}

}  // namespace

std::optional<std::int64_t> DaySeconds(ByteView date)
{
  if (date.size() < sizeof(VPDHDR::ruDate)) return std::nullopt;
  const int yearNumber = DigitsAt(date, 0, 4);
  const int monthNumber = DigitsAt(date, 4, 2);
  const int dayNumber = DigitsAt(date, 6, 2);
  if (yearNumber < 0 || monthNumber < 0 || dayNumber < 0) return std::nullopt;
  const year_month_day dayOfYear(year(yearNumber), month(static_cast<unsigned>(monthNumber)),
                                 day(static_cast<unsigned>(dayNumber)));
  if (!dayOfYear.ok()) return std::nullopt;
  return sys_seconds(sys_days(dayOfYear)).time_since_epoch().count();
}

std::optional<std::int64_t> TimeSeconds(ByteView time)
{
  if (time.size() < sizeof(VPDHDR::ruTime)) return std::nullopt;
  const int hour = DigitsAt(time, 0, 2);
  const int minute = DigitsAt(time, 2, 2);
  const int second = DigitsAt(time, 4, 2);
  const bool isTime = hour >= 0 && hour < 24 && minute >= 0 && minute < 60 && second >= 0 && second <= 60;
  if (!isTime) return std::nullopt;
  return hour * std::int64_t{3600} + minute * std::int64_t{60} + second;
}

std::optional<BuildMoment> BuildMomentOf(const ImageFile& image)
{
  const std::uint64_t vpd = image.offsetOf(RecordId::vpdHeader);
  const ByteView stamp = image.bytes(offsetof(FILEHDR, timeDate), sizeof(FILEHDR::timeDate));
  const auto day = DaySeconds(image.bytes(vpd + offsetof(VPDHDR, ruDate), sizeof(VPDHDR::ruDate)));
  const auto time = TimeSeconds(image.bytes(vpd + offsetof(VPDHDR, ruTime), sizeof(VPDHDR::ruTime)));
  if (!day || !time) return std::nullopt;
  const std::int64_t local = *day + *time;
  return BuildMoment{Nearest(static_cast<std::uint32_t>(Number(stamp)), local), local};
}

std::string TimeText(std::int64_t seconds)
{
  const sys_seconds moment{std::chrono::seconds(seconds)};
  const auto day = floor<days>(moment);
  const year_month_day date(day);
  const hh_mm_ss time(moment - day);
  return fmt::format("{:04}-{:02}-{:02} {:02}:{:02}:{:02}", static_cast<int>(date.year()),
                     static_cast<unsigned>(date.month()), static_cast<unsigned>(date.day()), time.hours().count(),
                     time.minutes().count(), time.seconds().count());
}

std::string OffsetText(std::int64_t seconds)
{
  const std::int64_t size = std::abs(seconds);
  std::string text = fmt::format("{}{:02}:{:02}", seconds < 0 ? '-' : '+', size / 3600, size / 60 % 60);
  if (size % 60 != 0) text += fmt::format(":{:02}", size % 60);
  return text;
}
