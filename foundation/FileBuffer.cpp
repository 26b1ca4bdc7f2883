#include "foundation/FileBuffer.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <optional>
#include <system_error>

#include "foundation/SystemCall.h"

namespace {

constexpr mode_t createdFilePermissions = 0664;

// The flags of open(2) for the mode bits, as the standard's file streams read them; nothing for bits that contradict
// each other.
std::optional<int> OpenFlags(int mode)
{
  const boolean reads = (mode & std::ios_base::in) != 0;
  const boolean appends = (mode & std::ios_base::app) != 0;
  const boolean writes = appends || (mode & std::ios_base::out) != 0;
  const boolean truncates = (mode & std::ios_base::trunc) != 0;
  if (truncates && (appends || !writes)) return std::nullopt;
  if (!writes) return O_RDONLY;
  const int access = reads ? O_RDWR : O_WRONLY;
  if (appends) return access | O_CREAT | O_APPEND;
  return truncates || !reads ? access | O_CREAT | O_TRUNC : access;
}

}  // namespace

int FileDescriptor::open(const String& name, int flags)
{
  if (HoldsNul(name)) return ENOENT;
  number = Uninterrupted([&] { return ::open(name, flags | O_CLOEXEC, createdFilePermissions); });
  if (isOpen() && number <= STDERR_FILENO) {
    const int low = number;
    number = Uninterrupted([&] { return ::fcntl(low, F_DUPFD_CLOEXEC, STDERR_FILENO + 1); });
    ::close(low);
  }
  return isOpen() ? 0 : errno;
}

boolean FileDescriptor::close()
{
  const boolean done = !isOpen() || ::close(number) == 0;
  number = none;
  return done;
}

std::streamsize FileDescriptor::read(char* p, std::streamsize n) const
{
  const ssize_t got = Uninterrupted([&] { return ::read(number, p, static_cast<std::size_t>(n)); });
  if (got < 0) throw std::system_error(errno, std::generic_category());
  return got;
}

boolean FileDescriptor::write(const char* p, std::streamsize n) const
{
  while (n != 0) {
    const ssize_t step = Uninterrupted([&] { return ::write(number, p, static_cast<std::size_t>(n)); });
    if (step <= 0) return false;
    p += step;
    n -= step;
  }
  return true;
}

off_t FileDescriptor::seek(off_t offset, int whence) const { return ::lseek(number, offset, whence); }

boolean FileDescriptor::truncate() const
{
  return Uninterrupted([&] { return ::ftruncate(number, 0); }) == 0;
}

FileReadBuffer::FileReadBuffer(const String& name, int mode)
{
  const auto flags = OpenFlags(mode | std::ios_base::in);
  if (!flags || file.open(name, *flags) != 0) return;
  openStatus = file.status();
  if ((mode & std::ios_base::ate) != 0) readEnd = file.seek(0, SEEK_END);
  if (openStatus.isDirectory() || readEnd < 0) file.close();
}

FileReadBuffer::int_type FileReadBuffer::underflow()
{
  if (gptr() == egptr()) {
    const std::streamsize got = file.read(block.begin(), std::ssize(block));
    readEnd += got;
    setg(block.begin(), block.begin(), block.begin() + got);
    if (got == 0) return traits_type::eof();
  }
  return traits_type::to_int_type(*gptr());
}

std::streamsize FileReadBuffer::xsgetn(char* p, std::streamsize n)
{
  std::streamsize got = std::min<std::streamsize>(n, egptr() - gptr());
  std::copy_n(gptr(), got, p);
  gbump(static_cast<int>(got));
  while (got != n) {
    const std::streamsize step = file.read(p + got, n - got);
    if (step == 0) break;
    readEnd += step;
    got += step;
  }
  return got;
}

FileReadBuffer::pos_type FileReadBuffer::seekoff(off_type offset, std::ios_base::seekdir from, std::ios_base::openmode)
{
  if (from == std::ios_base::cur) offset += readEnd - (egptr() - gptr());
  const off_t reached = file.seek(offset, from == std::ios_base::end ? SEEK_END : SEEK_SET);
  if (reached >= 0) {
    readEnd = reached;
    setg(block.begin(), block.begin(), block.begin());
  }
  return pos_type(reached);
}

FileReadBuffer::pos_type FileReadBuffer::seekpos(pos_type position, std::ios_base::openmode which)
{
  return seekoff(off_type(position), std::ios_base::beg, which);
}

FileWriteBuffer::FileWriteBuffer(const String& name, int mode)
{
  setp(block.begin(), block.end());
  if (const auto flags = OpenFlags(mode | std::ios_base::out)) file.open(name, *flags);
  if ((mode & std::ios_base::ate) != 0 && file.seek(0, SEEK_END) < 0) file.close();
}

FileWriteBuffer::FileWriteBuffer(const String& name, AsItStands)
{
  setp(block.begin(), block.end());
  if (file.open(name, O_WRONLY | O_CREAT | O_EXCL) != EEXIST) return;
  int error = file.open(name, O_WRONLY);
  const boolean ledNowhere = error == ENOENT;  // a link
  if (ledNowhere) error = file.open(name, O_WRONLY | O_CREAT);
  if (error != 0) return;
  const FileStatus found = file.status();
  // What is not empty was made by somebody else since.
  if (!ledNowhere || found.size() != 0) oldStatus = found;
}

boolean FileWriteBuffer::empty()
{
  const boolean done = isNew() || !oldStatus->isRegular() || file.truncate();
  if (!done) file.close();
  return done;
}

FileWriteBuffer::~FileWriteBuffer() { FileWriteBuffer::sync(); }

FileWriteBuffer::int_type FileWriteBuffer::overflow(int_type ch)
{
  if (FileWriteBuffer::sync() != 0) return traits_type::eof();
  if (!traits_type::eq_int_type(ch, traits_type::eof())) {
    *pptr() = traits_type::to_char_type(ch);
    pbump(1);
  }
  return traits_type::not_eof(ch);
}

std::streamsize FileWriteBuffer::xsputn(const char* p, std::streamsize n)
{
  if (n > epptr() - pptr()) return FileWriteBuffer::sync() == 0 && file.write(p, n) ? n : 0;
  std::copy_n(p, n, pptr());
  pbump(static_cast<int>(n));
  return n;
}

// What the file refused is gone: the failure is reported once, and not again when the file closes.
int FileWriteBuffer::sync()
{
  const boolean written = file.write(pbase(), pptr() - pbase());
  setp(block.begin(), block.end());
  return written ? 0 : -1;
}
