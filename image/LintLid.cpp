#include "image/LintLid.h"

#include <arpa/inet.h>
#include <fmt/format.h>

#include <cstddef>
#include <utility>

#include "builder/Morvik.h"
#include "driver/Assembly.h"
#include "driver/BuildTime.h"
#include "foundation/ReturnCode.h"
#include "image/LintSource.h"
#include "image/LooksLike.h"

namespace {

std::string_view View(const ByteString& bytes)
{
  return {reinterpret_cast<const char*>(bytes.getBytePointer()), bytes.length()};
}

// Whether the file has as many bytes as its size says. Its beginning is read, of the rest only the last byte.
bool IsWhole(LintedLid& lid)
{
  const std::uint64_t size = lid.stream.status().size();
  lid.stream.getByteString(lid.beginning, looksLikeLength);
  if (size <= looksLikeLength) return lid.beginning.length() == size && lid.stream.endOfFile();
  lid.stream.setOffset(size - 1);
  return lid.stream.getChar() >= 0 && lid.stream.endOfFile();
}

std::string Fault(const Kelvra& run, const LintedLid& lid, int code)
{
  const FileStatus& status = lid.stream.status();
  if (lid.stream.failure()) {
    const bool isOpen = status.valid() && !status.isDirectory();
    return (isOpen ? "cannot be read" : "cannot be opened") + ReadError(run.lidFile);
  }
  return code == lidNotRead ? "is too large" : "has a size that is not known, not true, or too large";
}

void LintKind(const LintedLid& lid, Findings& findings)
{
  const std::string_view bytes = View(lid.beginning);
  if (bytes.empty()) {
    findings.add({.file = lid.name, .rule = &Rule("empty-lid"), .message = "is empty"});
  } else if (LooksLikeImage(bytes)) {
    findings.add({.file = lid.name, .rule = &Rule("image-as-lid"), .message = "is an image, not a LID"});
  } else if (LooksLikeSource(bytes)) {
    findings.add(
        {.file = lid.name, .rule = &Rule("source-as-lid"), .message = "reads like a source; are the options swapped?"});
  }
}

ByteString LidHeader(const LintedLid& lid) { return lid.beginning(0, sizeof(KESPHDR)); }

// The fields of a LID header; of a short one those that it has.
void LintHeader(LintedLid& lid, Findings& findings)
{
  const KespHeader header(LidHeader(lid));
  if (!header.valid() || header.getMagicNumber() != KespHeader::lidMagicNumber) return;
  const unsigned int held = header.getByteString().length();
  if (held >= offsetof(KESPHDR, lidDateTime)) {
    lid.number = lid.beginning(offsetof(KESPHDR, lidNumber), sizeof(KESPHDR::lidNumber));
  }
  if (held < offsetof(KESPHDR, headerLength)) return;
  const unsigned int length = ntohl(ViewAs<KESPHDR>(std::as_const(lid.beginning)).lidLength);
  const std::uint64_t size = lid.stream.status().size();
  if (length == size) return;
  findings.add({.file = lid.name,
                .rule = &Rule("lid-length"),
                .message = fmt::format("the LID header says {} bytes, the file has {}", length, size)});
}

// YYYYMMDDhhmm as a reader expects it.
std::string DateText(const String& digits)
{
  const std::string text = ToText(digits);
  return fmt::format("{}-{}-{} {}:{}", text.substr(0, 4), text.substr(4, 2), text.substr(6, 2), text.substr(8, 2),
                     text.substr(10, 2));
}

std::string HeaderDate(const LintedLid& lid)
{
  return DateText(lid.beginning(offsetof(KESPHDR, lidDateTime), sizeof(KESPHDR::lidDateTime)).toHexString());
}

// A header's date that is none was changed into the one that was built.
void LintDate(const LintedLid& lid, Findings& findings)
{
  const std::string given = HeaderDate(lid);
  const std::string taken = DateText(lid.built.date + lid.built.time);
  if (given == taken) return;
  findings.add({.file = lid.name,
                .rule = &Rule("lid-date"),
                .message = fmt::format("the LID header's date {} does not exist and becomes {}", given, taken)});
}

void LintStamp(const LintedLid& lid, Findings& findings)
{
  const time_t seconds = lid.built.seconds;
  if (seconds >= 0 && seconds <= UINT32_MAX) return;
  findings.add({.file = lid.name,
                .rule = &Rule("build-stamp"),
                .message = fmt::format("the build time, {} seconds since 1970, does not fit in 32 bits and becomes {}",
                                       seconds, Low32(static_cast<unsigned long>(seconds)))});
}

boolean HasHeaderDate(const LintedLid& lid) { return HoldsBuildTime(KespHeader(LidHeader(lid))); }

boolean HasNoText(const BuildTime& built) { return built.date.empty() || built.time.empty(); }

void AddNoBuildTime(const LintedLid& lid, int code, Findings& findings)
{
  const std::string given = HasHeaderDate(lid) ? "LID header's date is " + HeaderDate(lid)
                                               : fmt::format("build time is {} seconds since 1970", lid.built.seconds);
  findings.add({.file = lid.name,
                .rule = &Rule("no-build-time"),
                .message = fmt::format("the {}: the build's year is outside 1000 to 9999", given),
                .code = code});
}

}  // namespace

void LintLid(const Kelvra& run, LintedLid& lid, Findings& findings)
{
  int code = CheckLid(run, lid.stream);
  if (code == success && !IsWhole(lid)) code = lidNotMeasured;
  if (lid.stream.failure()) code = lidNotRead;
  if (code != success) {
    return findings.add(
        {.file = lid.name, .rule = &Rule("unreadable-lid"), .message = Fault(run, lid, code), .code = code});
  }
  lid.usable = true;
  LintKind(lid, findings);
  LintHeader(lid, findings);
  const time_t otherwise = run.buildTime.value_or(lid.stream.status().modificationTime());
  lid.built = GetBuildTime(LidHeader(lid), otherwise);
  if (HasNoText(lid.built)) AddNoBuildTime(lid, badTime, findings);
}

void LintBuildTime(const Kelvra& run, const LintedLid& lid, Findings& findings)
{
  if (HasNoText(lid.built)) return;
  if (const int code = Morvik().morvikParse("-", lid.built.date, lid.built.time)) {
    return AddNoBuildTime(lid, code, findings);
  }
  if (HasHeaderDate(lid)) LintDate(lid, findings);
  LintStamp(lid, findings);
  if (!HasHeaderDate(lid) && !run.buildTime) {
    findings.add({.file = lid.name,
                  .rule = &Rule("no-lid-header"),
                  .message = "has no LID header: the build time is the file's modification time"});
  }
}
