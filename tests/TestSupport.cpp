#include "tests/TestSupport.h"

#include <fcntl.h>
#include <malloc.h>
#include <spawn.h>
#include <sys/wait.h>

#include <cstdlib>
#include <fstream>
#include <iterator>

// New blocks are filled, so that no test passes by the zeros that happen to be in them.
static const int filled = mallopt(M_PERTURB, 0x5A);

std::string Raw(std::string_view hex)
{
  std::string digits(hex), raw;
  std::erase(digits, ' ');
  for (size_t i = 0; i + 1 < digits.size(); i += 2) {
    raw += static_cast<char>(std::stoi(digits.substr(i, 2), nullptr, 16));
  }
  return raw;
}

ByteString Bytes(std::string_view hex) { return ToBytes(Raw(hex)); }

std::string Hex(std::string_view raw)
{
  std::string text;
  for (const char ch : raw) {
    const auto byte = static_cast<unsigned char>(ch);
    if (!text.empty()) text += ' ';
    text += {"0123456789abcdef"[byte >> 4], "0123456789abcdef"[byte & 15]};
  }
  return text;
}

std::string Hex(const ByteString& bytes) { return Hex(Text(bytes)); }

TemporaryFolder::TemporaryFolder()
{
  std::string pattern = fs::temp_directory_path() / "kelvra-test-XXXXXX";
  if (mkdtemp(pattern.data()) == nullptr) throw std::runtime_error("no temporary folder");
  path_ = pattern;
}

TemporaryFolder::~TemporaryFolder()
{
  std::error_code ignored;
  fs::remove_all(path_, ignored);
}

std::string TemporaryFolder::write(std::string_view name, std::string_view content) const
{
  std::ofstream file(*this / name, std::ios::binary);
  file.write(content.data(), static_cast<std::streamsize>(content.size()));
  EXPECT_TRUE(file.good()) << name;
  return *this / name;
}

std::string Content(const std::string& name)
{
  std::ifstream file(name, std::ios::binary);
  EXPECT_TRUE(file.is_open()) << name;
  return {std::istreambuf_iterator<char>(file), {}};
}

void ExpectRun(const TemporaryFolder& folder, std::vector<std::string> arguments, int status,
               const std::optional<std::string>& err, const std::string& zone)
{
  const TemporaryFolder streams;
  const std::string outFile = streams.write("out", ""), errFile = streams.write("err", "");
  std::string tool = KELVRA_EXECUTABLE, timeZone = "TZ=" + zone, filledBlocks = "MALLOC_PERTURB_=90";
  std::vector<char*> argv = {tool.data()};
  for (std::string& argument : arguments) argv.push_back(argument.data());
  argv.push_back(nullptr);
  char* environment[] = {timeZone.data(), filledBlocks.data(), nullptr};
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_addopen(&actions, 0, "/dev/null", O_RDONLY, 0);
  posix_spawn_file_actions_addopen(&actions, 1, outFile.c_str(), O_WRONLY, 0);
  posix_spawn_file_actions_addopen(&actions, 2, errFile.c_str(), O_WRONLY, 0);
  posix_spawn_file_actions_addchdir_np(&actions, folder.path().c_str());
  pid_t child = -1;
  int ended = 0;
  EXPECT_EQ(posix_spawn(&child, tool.c_str(), &actions, nullptr, argv.data(), environment), 0) << tool;
  EXPECT_EQ(waitpid(child, &ended, 0), child);
  posix_spawn_file_actions_destroy(&actions);
  EXPECT_EQ(WIFEXITED(ended) ? WEXITSTATUS(ended) : -WTERMSIG(ended), status);
  EXPECT_EQ(Content(errFile), err.value_or(Content(errFile)));
  EXPECT_EQ(Content(outFile), "");
}
