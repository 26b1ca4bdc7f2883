// Bytes as an image, and images that the tool makes: what reads them, shows them and proves them.
#include <sys/mman.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <nlohmann/json.hpp>

#include "driver/Assembly.h"
#include "foundation/StandardStreams.h"
#include "fuzz/FuzzInput.h"
#include "image/Diff.h"
#include "image/Json.h"
#include "image/Text.h"
#include "image/Verify.h"

namespace {

// A folder for the process's files.
const string& Folder()
{
  static const string folder = [] {
    string pattern = std::filesystem::temp_directory_path() / "kelvra-fuzz-XXXXXX";
    Require(mkdtemp(pattern.data()) != nullptr, "a folder");
    return pattern + '/';
  }();
  return folder;
}

string Write(const char* name, const string& content)
{
  std::ofstream(Folder() + name, std::ios::binary) << content;
  return Folder() + name;
}

bool IsJson(const string& text) { return nlohmann::json::accept(text); }

void ShowAll(const string& name, const Inputs& inputs)
{
  Image image(name);
  Require(IsJson(Json(image)) && IsJson(Json(List(image), image)), "what is shown is JSON");
  const string shown = Text(image) + Text(List(image), image);
  Require(shown.find('\x1b') == string::npos, "no control characters go to a terminal");
  const VerifyResult verified = Verify(image, inputs);
  Require(IsJson(Json(verified, image)), "what is verified is JSON");
  Require(verified.status == couldNot || image.status() == allWell || verified.status == foundSomething,
          "what show finds, verify finds");
  if (image.file.reason()) return;
  Image same(name);
  const DiffResult diff = Diff(image, same);
  Require(diff.status == allWell && IsJson(Json(diff, image, same)), "an image does not differ from itself");
}

// One change that no input makes: a byte turned, the end cut off, bytes after it.
string Damaged(string image, FuzzInput& input)
{
  const std::size_t place = (input.byte() << 8 | input.byte()) % image.size();
  const unsigned int kind = input.byte();
  if (kind < 192) {
    image[place] = static_cast<char>(image[place] ^ static_cast<char>(kind + 1));
  } else if (kind < 224) {
    image.resize(place);
  } else {
    image += image.substr(place);
  }
  return image;
}

void ProveMade(FuzzInput input)
{
  Inputs inputs;
  FuzzInput damage{input.take(3)};
  const string member = input.byte() % 2 == 0 ? "part" : "Long_name";
  const string vpdinfo = input.text();
  const string source = input.take(input.rest.size() / 2);
  inputs.lid = Write("lid", input.rest);
  inputs.source = Write((member + ".lidhdr").c_str(), source);
  inputs.vpdinfo = Write("all.vpdinfo", vpdinfo);
  inputs.timestamp = 1690000000;
  inputs.utc = true;
  string made;
  {
    MessageCapture silence;
    const Kelvra run = MakeRun(inputs);
    Assembly assembly(run);
    if (Assemble(run, assembly) != 0) return;
    const auto bytes = assembly.output->bytes();
    made.assign(bytes.begin(), bytes.end());
  }
  const string name = Write("image", made);
  Image image(name);
  Require(Verify(image, {}).status == allWell, "what the tool makes is whole");
  Require(Verify(image, inputs).status == allWell, "what the tool makes is what its inputs make");
  Write("image", Damaged(made, damage));
  Image damaged(name);
  Require(Verify(damaged, inputs).status != allWell, "what was changed is not what its inputs make");
  ShowAll(name, inputs);
}

}  // namespace

void FuzzImage(FuzzInput input)
{
  if (input.byte() % 2 == 0) {
    ShowAll(Write("image", input.rest), {});
  } else {
    ProveMade(input);
  }
}
