#include "headers/HeaderRecord.h"

#include <algorithm>

#include "foundation/StandardStreams.h"

HeaderRecord::HeaderRecord(const char* sourceName, unsigned int length, unsigned int layoutSize)
    : source(sourceName), content(length >= layoutSize ? length : 0, 0x00)
{}

HeaderRecord::HeaderRecord(const char* sourceName, const ByteString& b, unsigned int needed)
    : source(sourceName), content(b, b.length() >= needed ? b.length() : 0)
{}

ByteString& HeaderRecord::bytes(const AssertingFunction& function)
{
  Assert(valid(), "valid()", source, function);
  return content;
}

const ByteString& HeaderRecord::bytes(const AssertingFunction& function) const
{
  Assert(valid(), "valid()", source, function);
  return content;
}

boolean HeaderRecord::write(WriteStream& out) const
{
  out.putByteString(content);
  return !out.failure();
}

std::optional<unsigned char> CodeOf(std::span<const CodedValue> values, const String& value)
{
  const auto row = std::find_if(values.begin(), values.end(), [&](const CodedValue& v) { return value == v.value; });
  return row != values.end() ? std::optional(row->code) : std::nullopt;
}

void ReportValue(const char* what, const String& value) { PrintErrorLine(what + value + '.', MessageKind::value); }
