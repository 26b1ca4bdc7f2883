#include "image/Output.h"

#include <unistd.h>

#include <cerrno>

#include "foundation/SystemCall.h"

namespace {

constexpr std::size_t pieceSize = 1 << 16;

}  // namespace

void Output::add(std::string_view text)
{
  isUsed = isUsed || !text.empty();
  pending += text;
  if (pending.size() >= pieceSize) write();
}

std::optional<Reason> Output::finish()
{
  if (!isUsed) return std::nullopt;
  write();
  if (::close(STDOUT_FILENO) != 0 && error == 0) error = errno;
  if (error == 0) return std::nullopt;
  return Reason{"standard output", "cannot write", error};
}

void Output::write()
{
  std::string_view rest = pending;
  while (error == 0 && !rest.empty()) {
    const auto written = Uninterrupted([&] { return ::write(STDOUT_FILENO, rest.data(), rest.size()); });
    if (written <= 0) {
      error = written < 0 ? errno : EIO;
    } else {
      rest.remove_prefix(static_cast<std::size_t>(written));
    }
  }
  pending.clear();
}
