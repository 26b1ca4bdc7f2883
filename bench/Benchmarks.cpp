// The operations that a run spends its time in, one by one; files are in memory.
#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <span>
#include <sstream>
#include <string>
#include <utility>

#include "builder/Morvik.h"
#include "builder/MorvikCreateHeader.h"
#include "driver/OutputBuffer.h"
#include "foundation/FileStreams.h"
#include "headers/KespHeader.h"
#include "source/SPAOption.h"
#include "source/SPASourceProgram.h"

constexpr unsigned int frontLength = 600;  // what the tool puts in front of a load module

// Every keyword, with a value that the builder takes.
constexpr std::pair<const char*, const char*> statements[] = {
    {"RUNAME", "CTRL01"},  {"RULOADID", "81E00142"}, {"RUCHGLID", "Y"},   {"RUSLFLOD", "N"},  {"RUFLASH", "Y"},
    {"BASELOAD", "N"},     {"RUPFGID", "5001"},      {"RUSFGID", "0042"}, {"RUDEST", "IOP1"}, {"LLBYPASS", "N"},
    {"DELETERU", "N"},     {"SSDMODEL", "HARN"},     {"ALLOWBKP", "Y"},   {"LLFLAG", "N"},    {"VPDINFONM", "qel"},
    {"PRODUCTID", "CTL1"}, {"SWRTYPE", "MCG"},       {"DEVELBY", "Y"},    {"DEVELFOR", "N"},  {"DEVLABID", "K1"},
    {"VERLEVEL", "V1R2"},  {"RELMODLVL", "M003"},    {"INSTRSET", "A"},   {"NUCSEQCTL", "N"},
};

// From the second pass on, the table holds the keywords already.
static void ReadSource(benchmark::State& state)
{
  std::string text;
  for (const auto& [key, value] : std::span(statements).first(20)) text += std::string(":") + key + '.' + value + '\n';
  while (state.KeepRunning()) {
    std::istringstream input(text);
    ReadStream stream(&input);
    boolean restricted = false;
    if (SPASourceProgram().read(stream, restricted) != 0) return state.SkipWithError("not read");
  }
}

static void PutAndGetOptions(benchmark::State& state)
{
  while (state.KeepRunning()) {
    for (const auto& [keyword, value] : statements) {
      SPAOption::SetStringValue(keyword, value);
      benchmark::DoNotOptimize(SPAOption::StringValid(keyword));
      benchmark::DoNotOptimize(SPAOption::GetStringValue(keyword));
    }
  }
}

static void BuildHeaderBlock(benchmark::State& state)
{
  for (const auto& [keyword, value] : statements) SPAOption::SetStringValue(keyword, value);
  while (state.KeepRunning()) {
    Morvik builder;
    if (builder.morvikParse("part.lidhdr", "20260102", "030405") != 0) return state.SkipWithError("not parsed");
    if (MorvikCreateHeader(&builder) != 0) return state.SkipWithError("not built");
    benchmark::DoNotOptimize(builder.morvikGetHeader());
  }
}

static void ReadLid(benchmark::State& state)
{
  const auto size = static_cast<unsigned int>(state.range(0));
  const int file = ::open("/dev/shm", O_TMPFILE | O_RDWR, 0600);  // without a name: nothing is left of it
  const FileName name(String(("/proc/self/fd/" + std::to_string(file)).c_str()));
  WriteFileStream(name, std::ios_base::out).putByteString(ByteString(size, 'x'));
  while (state.KeepRunning()) {
    OutputBuffer output(frontLength, size);
    ReadFileStream lid(name, std::ios_base::in);
    if (output.readLid(lid) != size) return state.SkipWithError("not read");
  }
  ::close(file);
  state.SetBytesProcessed(state.iterations() * size);
}

static void PutFront(benchmark::State& state)
{
  const ByteString front(frontLength, 'f');
  OutputBuffer output(frontLength, static_cast<unsigned int>(state.range(0)));
  while (state.KeepRunning()) output.setFront(front);
}

static void TakeKespHeader(benchmark::State& state)
{
  const ByteString lid(sizeof(KESPHDR), 0x03);
  while (state.KeepRunning()) {
    if (!KespHeader(lid).valid()) return state.SkipWithError("no header");
  }
}

// The whole life of a process that has nothing to do: no arguments, the usage line and code 30.
static void StartUp(benchmark::State& state)
{
  char program[] = KELVRA_EXECUTABLE;
  char* const arguments[] = {program, nullptr};
  posix_spawn_file_actions_t quietly;
  posix_spawn_file_actions_init(&quietly);
  posix_spawn_file_actions_addopen(&quietly, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
  while (state.KeepRunning()) {
    pid_t process = 0;
    int status = 0;
    const bool ran = posix_spawn(&process, program, &quietly, nullptr, arguments, environ) == 0 &&
                     waitpid(process, &status, 0) == process && WIFEXITED(status) && WEXITSTATUS(status) == 30;
    if (!ran) return state.SkipWithError("not run");
  }
  posix_spawn_file_actions_destroy(&quietly);
}

BENCHMARK(ReadSource);
BENCHMARK(PutAndGetOptions);
BENCHMARK(BuildHeaderBlock);
BENCHMARK(ReadLid)->RangeMultiplier(16)->Range(64 << 10, 16 << 20);
BENCHMARK(PutFront)->RangeMultiplier(16)->Range(64 << 10, 16 << 20);
BENCHMARK(TakeKespHeader);
BENCHMARK(StartUp)->UseRealTime();
