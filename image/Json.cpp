#include "image/Json.h"

#include <fmt/format.h>

#include <algorithm>
#include <nlohmann/json.hpp>

#include "image/Tables.h"

namespace {

using Object = nlohmann::ordered_json;

constexpr const char* statusNames[] = {"ok", "fault", "unreadable"};  // by ExitStatus

Object Document(const char* command) { return {{"kelvraImage", 1}, {"command", command}}; }

std::string Dump(const Object& object) { return object.dump(-1, ' ', false, Object::error_handler_t::replace) + '\n'; }

// One of a document's images, with the comma or the bracket before it left to the caller.
std::string DumpImage(const Object& object) { return object.dump(-1, ' ', false, Object::error_handler_t::replace); }

Object ImageObject(const Image& image)
{
  Object object = {{"file", image.file.name()}};
  object["size"] = image.file.size();
  object["status"] = statusNames[image.status()];
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
                   {"severity", SeverityName(finding.rule->severity)},
                   {"rule", finding.rule->name},
                   {"message", finding.message}};
  if (!finding.keyword.empty()) object["keyword"] = finding.keyword;
  if (finding.code != 0) object["code"] = finding.code;
  return object;
}

void AddChecks(Object& checks, const CheckResult& result)
{
  for (const Failure& failure : result.failures) {
    Object check = {{"check", result.check->name}, {"ok", false}};
    if (failure.field != nullptr) check["field"] = FieldName(*failure.record, *failure.field);
    check["offset"] = failure.offset;
    check["found"] = ToJson(failure.found);
    check["expected"] = ToJson(failure.expected);
    check["message"] = failure.message;
    checks.push_back(std::move(check));
  }
  if (!result.failures.empty()) return;
  Object check = {{"check", result.check->name}, {"ok", true}};
  std::vector<std::string> remarks = result.remarks;
  remarks.insert(remarks.end(), result.details.begin(), result.details.end());
  if (!remarks.empty()) check["remarks"] = remarks;
  checks.push_back(std::move(check));
}

Object ToJson(const Difference& difference)
{
  Object object = {{"field", FieldName(*difference.record, *difference.field)}};
  object["offsets"] = Object::array();
  object["values"] = Object::array();
  for (int i = 0; i < 2; i++) {
    object["offsets"].push_back(difference.offsets[i] ? Object(*difference.offsets[i]) : Object());
    object["values"].push_back(ToJson(difference.values[i]));
  }
  return object;
}

Object ToJson(std::span<const CodedValue> values)
{
  Object array = Object::array();
  for (const CodedValue& value : values) array.push_back({{"name", value.value}, {"code", value.code}});
  return array;
}

Object ToJson(const FieldRow& row)
{
  Object object = {{"name", row.name}, {"offset", FirstByte(row)}, {"length", ByteCount(row)}};
  object["kind"] = FieldKindName(row.kind);
  if (row.bits.width != 0) {
    object["bit"] = row.bits.first % 8;
    object["width"] = row.bits.width;
  }
  if (row.form != NameForm::any) object["longName"] = row.form == NameForm::afterFill;
  if (row.keyword != nullptr) object["keyword"] = row.keyword;
  if (!row.values.empty()) object["values"] = ToJson(row.values);
  return object;
}

Object ToJson(const RecordRow& row)
{
  Object object = {{"name", row.name}, {"length", row.length}, {"fields", Object::array()}};
  for (const FieldRow& field : row.fields) object["fields"].push_back(ToJson(field));
  return object;
}

Object ToJson(const KeywordRow& row)
{
  Object object = {{"keyword", row.keyword}, {"effect", row.effect}, {"vpdinfo", MayStandInVpdinfo(row)}};
  object["emptyValue"] = row.emptyValue == EmptyValue::ignored ? "ignored" : "passed on";
  if (row.width != 0) object["width"] = row.width;
  if (!row.values.empty()) object["values"] = ToJson(row.values);
  if (row.refusal != success) object["code"] = static_cast<int>(row.refusal);
  if (row.whenNotGiven != nullptr) object["whenNotGiven"] = row.whenNotGiven;
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
  if (image.file.reason()) return DumpImage(object);
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
  if (image.file.reason()) return DumpImage(object);
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

std::string Json(const VerifyResult& verified, const Image& image)
{
  Object object = ImageObject(image);
  if (!image.file.reason()) {
    object["checks"] = Object::array();
    object["notChecked"] = Object::array();
    for (const CheckResult& result : verified.checks) {
      if (result.made) AddChecks(object["checks"], result);
      if (!result.made) object["notChecked"].push_back(result.check->name);
    }
  }
  object["status"] = statusNames[verified.status];
  if (!verified.reasons.empty()) object["reason"] = ReasonText(verified.reasons.front());
  return DumpImage(object);
}

std::string Json(const DiffResult& diff, const Image& one, const Image& other)
{
  Object document = Document("diff");
  document["images"] = {ImageObject(one), ImageObject(other)};
  document["differences"] = Object::array();
  for (const Difference& difference : diff.differences) document["differences"].push_back(ToJson(difference));
  Object payload = {{"same", !diff.payload}};
  if (diff.payload) {
    payload["lengths"] = diff.payload->lengths;
    payload["first"] = diff.payload->first;
  }
  if (diff.reasons.empty()) document["payload"] = payload;
  document["notes"] = diff.notes;
  return Dump(document);
}

std::string FieldsJson()
{
  Object document = Document("fields");
  for (const char* list : {"records", "keywords", "checks", "rules", "codes"}) document[list] = Object::array();
  for (const RecordRow& row : RecordRows()) document["records"].push_back(ToJson(row));
  for (const KeywordRow& row : KeywordRows()) document["keywords"].push_back(ToJson(row));
  for (const CheckRow& row : CheckRows()) {
    document["checks"].push_back({{"check", row.name}, {"summary", row.summary}});
  }
  for (const LintRule& row : LintRules()) {
    document["rules"].push_back(
        {{"rule", row.name}, {"severity", SeverityName(row.severity)}, {"summary", row.summary}});
  }
  for (const CodeRow& row : CodeRows()) document["codes"].push_back({{"code", row.code}, {"meaning", row.meaning}});
  return Dump(document);
}
