#include "image/Json.h"

#include <fmt/format.h>

#include <nlohmann/json.hpp>

namespace {

using Object = nlohmann::ordered_json;

Object Document(const char* command) { return {{"kelvraImage", 1}, {"command", command}}; }

std::string Dump(const Object& object) { return object.dump(-1, ' ', false, Object::error_handler_t::replace) + '\n'; }

// One of a document's images, with the comma or the bracket before it left to the caller.
std::string DumpImage(const Object& object) { return object.dump(-1, ' ', false, Object::error_handler_t::replace); }

Object ImageObject(const Image& image)
{
  constexpr const char* statuses[] = {"ok", "fault", "unreadable"};
  Object object = {{"file", image.file.name()}};
  object["size"] = image.file.size();
  object["status"] = statuses[image.status()];
  if (image.file.reason()) object["reason"] = ReasonText(*image.file.reason());
  return object;
}

Object ToJson(const FieldValue& value)
{
  if (const auto* number = std::get_if<std::uint64_t>(&value)) return *number;
  if (const auto* flag = std::get_if<bool>(&value)) return *flag;
  if (const auto* text = std::get_if<std::string>(&value)) return *text;
  return nullptr;
}

Object ToJson(const Field& field)
{
  Object object = {{"offset", field.offset}, {"length", field.length}, {"raw", Hexadecimal(field.bytes)}};
  object["value"] = ToJson(field.value);
  if (field.row->keyword != nullptr) object["keyword"] = field.row->keyword;
  if (const auto names = Names(*field.row, field.value); !names.empty()) object["names"] = names;
  if (!field.remark.empty()) object["remark"] = field.remark;
  return object;
}

Object ToJson(const Record& record)
{
  Object object = {{"name", record.row->name}, {"offset", record.offset}, {"length", record.length}};
  if (record.held < record.length) object["missing"] = record.length - record.held;
  object["fields"] = Object::object();
  for (const Field& field : record.fields) object["fields"][field.row->name] = ToJson(field);
  return object;
}

Object ToJson(const Finding& finding)
{
  Object object = {{"file", finding.file},
                   {"line", finding.line},
                   {"severity", SeverityName(finding.severity)},
                   {"rule", finding.rule},
                   {"message", finding.message}};
  if (!finding.keyword.empty()) object["keyword"] = finding.keyword;
  if (finding.code != 0) object["code"] = finding.code;
  return object;
}

}  // namespace

std::string JsonBegin(const char* command)
{
  return fmt::format(R"({{"kelvraImage":1,"command":"{}","images":[)", command);
}

std::string JsonEnd() { return "]}\n"; }

std::string Json(const Image& image)
{
  Object object = ImageObject(image);
  object["records"] = Object::array();
  for (const Record& record : image.records) {
    if (record.row == &RecordOf(RecordId::lidHeader)) {
      object["records"].back()["records"].push_back(ToJson(record));
    } else {
      object["records"].push_back(ToJson(record));
    }
  }
  return DumpImage(object);
}

std::string Json(const ListRow& row, const Image& image)
{
  Object object = ImageObject(image);
  object["loadId"] = row.loadId;
  object["name"] = row.name;
  object["versionLevel"] = row.versionLevel;
  object["built"] = row.built;
  object["lidSize"] = row.lidSize;
  return DumpImage(object);
}

std::string Json(const DepsResult& deps)
{
  Object document = Document("deps");
  document["output"] = deps.output;
  document["inputs"] = deps.inputs;
  return Dump(document);
}

std::string Json(const LintResult& lint)
{
  Object document = Document("lint");
  document["findings"] = Object::array();
  for (const Finding& finding : lint.findings) document["findings"].push_back(ToJson(finding));
  return Dump(document);
}
