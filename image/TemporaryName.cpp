#include "image/TemporaryName.h"

#include <fcntl.h>
#include <sys/random.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <cerrno>
#include <charconv>
#include <csignal>
#include <cstdint>
#include <cstdio>
#include <ctime>

#include "foundation/StandardString.h"

namespace {

constexpr int endingSignals[] = {SIGHUP, SIGINT, SIGQUIT, SIGTERM, SIGUSR1, SIGUSR2, SIGALRM, SIGXCPU, SIGVTALRM};

// The names of the files that are there: at most an image and its depfile.
std::array<std::atomic<const char*>, 2> present;
static_assert(decltype(present)::value_type::is_always_lock_free);

extern "C" void RemoveAndEnd(int signal)
{
  for (const auto& name : present) {
    if (const char* file = name.load()) ::unlink(file);
  }
  static_cast<void>(::raise(signal));  // comes after this handler, with its default action
}

// What the process ignores, it goes on ignoring.
void CatchEndingSignals()
{
  struct sigaction action = {};
  action.sa_handler = RemoveAndEnd;
  action.sa_flags = static_cast<int>(SA_RESETHAND);
  for (const int signal : endingSignals) {
    struct sigaction old = {};
    if (::sigaction(signal, nullptr, &old) == 0 && old.sa_handler == SIG_DFL) ::sigaction(signal, &action, nullptr);
  }
}

// While it lives, the signals wait.
class SignalsWait {
 public:
  SignalsWait()
  {
    sigset_t waiting;
    ::sigemptyset(&waiting);
    for (const int signal : endingSignals) ::sigaddset(&waiting, signal);
    ::sigprocmask(SIG_BLOCK, &waiting, &before);
  }
  ~SignalsWait() { ::sigprocmask(SIG_SETMASK, &before, nullptr); }
  SignalsWait(const SignalsWait&) = delete;
  SignalsWait& operator=(const SignalsWait&) = delete;

 private:
  sigset_t before;
};

void Replace(const char* from, const char* to)
{
  const auto place = std::find(present.begin(), present.end(), from);
  if (place != present.end()) *place = to;
}

}  // namespace

std::string FreshName(const std::string& folder)
{
  std::uint64_t number = 0;
  if (::getrandom(&number, sizeof number, GRND_NONBLOCK) != sizeof number) {
    number = static_cast<std::uint64_t>(::getpid()) << 32 ^ static_cast<std::uint64_t>(std::time(nullptr));
  }
  char digits[16];
  return folder + "/.kelvra-" + std::string(digits, std::to_chars(digits, digits + sizeof digits, number, 16).ptr);
}

int TemporaryName::create(const std::string& folder, FileDescriptor& file)
{
  const SignalsWait waiting;
  CatchEndingSignals();
  name = FreshName(folder);
  const int error = file.open(ToString(name), O_WRONLY | O_CREAT | O_EXCL);
  if (error == 0) {
    Replace(nullptr, name.c_str());
  } else {
    name.clear();
  }
  return error;
}

int TemporaryName::rename(const std::string& target)
{
  if (std::rename(name.c_str(), target.c_str()) != 0) return errno;
  Replace(name.c_str(), nullptr);
  name.clear();
  return 0;
}

void TemporaryName::remove()
{
  if (!exists()) return;
  ::unlink(name.c_str());
  Replace(name.c_str(), nullptr);
}
