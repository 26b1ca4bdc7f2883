#include "image/Json.h"

#include <nlohmann/json.hpp>

namespace {

using Object = nlohmann::ordered_json;

Object Document(const char* command) { return {{"kelvraImage", 1}, {"command", command}}; }

std::string Dump(const Object& object) { return object.dump(-1, ' ', false, Object::error_handler_t::replace) + '\n'; }

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

}  // namespace

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
