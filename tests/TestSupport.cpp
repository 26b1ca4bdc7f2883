#include "tests/TestSupport.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <spawn.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>

std::string Raw(std::string_view hex)
{
  std::string digits;
  for (const char ch : hex) {
    if (ch != ' ' && ch != '\n') digits += ch;
  }
  std::string raw;
  for (size_t i = 0; i + 1 < digits.size(); i += 2) {
    raw += static_cast<char>(std::stoi(digits.substr(i, 2), nullptr, 16));
  }
  return raw;
}

ByteString Bytes(std::string_view hex)
{
  const std::string raw = Raw(hex);
  return ByteString(raw.data(), static_cast<unsigned int>(raw.size()));
}

std::string Hex(std::string_view raw)
{
  std::string text;
  for (const char ch : raw) {
    const auto byte = static_cast<unsigned char>(ch);
    if (!text.empty()) text += ' ';
    text += "0123456789abcdef"[byte >> 4];
    text += "0123456789abcdef"[byte & 15];
  }
  return text;
}

std::string Hex(const ByteString& bytes)
{
  std::string raw;
  for (unsigned int i = 0; i < bytes.length(); i++) raw += static_cast<char>(bytes.getNthByte(i));
  return Hex(raw);
}

std::string Text(const String& text) { return std::string(static_cast<const char*>(text), text.length()); }

TemporaryFolder::TemporaryFolder()
{
  std::string pattern = std::filesystem::temp_directory_path() / "kelvra-test-XXXXXX";
  if (mkdtemp(pattern.data()) == nullptr) throw std::runtime_error("no temporary folder");
  path_ = pattern;
}

TemporaryFolder::~TemporaryFolder()
{
  std::error_code ignored;
  std::filesystem::remove_all(path_, ignored);
}

std::string TemporaryFolder::write(std::string_view name, std::string_view content) const
{
  std::ofstream file(*this / name, std::ios::binary);
  file.write(content.data(), static_cast<std::streamsize>(content.size()));
  EXPECT_TRUE(file.good()) << name;
  return *this / name;
}

std::string TemporaryFolder::read(std::string_view name) const
{
  std::ifstream file(*this / name, std::ios::binary);
  EXPECT_TRUE(file.is_open()) << name;
  std::ostringstream content;
  content << file.rdbuf();
  return content.str();
}

bool TemporaryFolder::has(std::string_view name) const { return std::filesystem::exists(*this / name); }

void TemporaryFolder::setModified(std::string_view name, long seconds) const
{
  const timespec times[2] = {{seconds, 0}, {seconds, 0}};
  EXPECT_EQ(utimensat(AT_FDCWD, (*this / name).c_str(), times, 0), 0) << name;
}

Outcome RunKelvra(const TemporaryFolder& folder, const std::vector<std::string>& arguments, const std::string& zone)
{
  const TemporaryFolder streams;
  const std::string outFile = streams.write("out", "");
  const std::string errFile = streams.write("err", "");
  std::vector<std::string> words = {KELVRA_EXECUTABLE};
  words.insert(words.end(), arguments.begin(), arguments.end());
  std::vector<char*> argv;
  argv.reserve(words.size() + 1);
  for (std::string& word : words) argv.push_back(word.data());
  argv.push_back(nullptr);
  std::string timeZone = "TZ=" + zone;
  char* environment[] = {timeZone.data(), nullptr};

  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_addopen(&actions, 0, "/dev/null", O_RDONLY, 0);
  posix_spawn_file_actions_addopen(&actions, 1, outFile.c_str(), O_WRONLY, 0);
  posix_spawn_file_actions_addopen(&actions, 2, errFile.c_str(), O_WRONLY, 0);
  posix_spawn_file_actions_addchdir_np(&actions, folder.path().c_str());
  pid_t child = -1;
  const int spawned = posix_spawn(&child, words[0].c_str(), &actions, nullptr, argv.data(), environment);
  posix_spawn_file_actions_destroy(&actions);
  EXPECT_EQ(spawned, 0) << words[0];

  Outcome outcome;
  int status = 0;
  if (spawned == 0 && waitpid(child, &status, 0) == child) {
    outcome.status = WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
  }
  outcome.out = streams.read("out");
  outcome.err = streams.read("err");
  return outcome;
}
