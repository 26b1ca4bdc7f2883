#include "image/ReplacedFile.h"

#include <fcntl.h>
#include <sys/wait.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <climits>
#include <cstdio>

#include "foundation/StandardString.h"
#include "foundation/SystemCall.h"

namespace {

constexpr int mostLinks = 40;  // as many as the operating system follows
constexpr mode_t permissionBits = 07777;

std::string FolderOf(const std::string& name)
{
  const auto slash = name.rfind('/');
  if (slash == std::string::npos) return ".";
  return slash == 0 ? "/" : name.substr(0, slash);
}

// Follows the name's symbolic links to the last one's target, whether that exists or not; 0 or an errno value.
int FollowLinks(std::string& name)
{
  for (int links = 0;; links++) {
    char target[PATH_MAX];
    const ssize_t length = ::readlink(name.c_str(), target, sizeof target);
    if (length < 0) return 0;  // no link
    if (links == mostLinks) return ELOOP;
    const std::string text(target, static_cast<std::size_t>(length));
    name = text.starts_with('/') ? text : FolderOf(name).append(1, '/').append(text);
  }
}

std::string MemberOf(const std::string& name)
{
  return name.substr(name.rfind('/') + 1);  // all of it without a "/"
}

bool IsSameFile(const std::string& name, const struct stat& known)
{
  struct stat found = {};
  return ::stat(name.c_str(), &found) == 0 && found.st_dev == known.st_dev && found.st_ino == known.st_ino;
}

// The name under which a file that is open can be linked and opened anew.
std::string NameOf(const FileDescriptor& file) { return "/proc/self/fd/" + std::to_string(file.descriptor()); }

int ErrorOf(int result) { return result == 0 ? 0 : errno; }

// The access control list; 0 or an errno value. From a file that has none, the new one must not have its folder's.
int CopyAccessList(const std::string& from, int to)
{
  constexpr const char* attribute = "system.posix_acl_access";
  std::array<char, 65536> list;
  const ssize_t length = ::getxattr(from.c_str(), attribute, list.data(), list.size());
  if (length < 0) return errno != ENODATA || ::fremovexattr(to, attribute) == 0 || errno == ENODATA ? 0 : errno;
  return ErrorOf(::fsetxattr(to, attribute, list.data(), static_cast<std::size_t>(length), 0));
}

// 0 or an errno value.
int Link(const char* file, const char* to)
{
  return ErrorOf(::linkat(AT_FDCWD, file, AT_FDCWD, to, AT_SYMLINK_FOLLOW));
}

// Links the file and gives it the target's name; only system calls. The one name cannot be replaced by a link at once.
int LinkAndRename(const char* file, const char* hidden, const char* target)
{
  if (const int error = Link(file, hidden)) return error;
  const int error = ErrorOf(::rename(hidden, target));
  if (error != 0) ::unlink(hidden);
  return error;
}

// The same in a child, which shares this process's memory but not its end: who kills this process, or all of its group,
// does not come between the two steps and leave the hidden name. A session of its own would part them too, but makes
// the scheduler put the two processes into different groups, at ten times the cost.
int LinkAndRenameUnparted(const char* file, const char* hidden, const char* target)
{
  volatile int result = EINTR;  // of a child that was killed before it began
  // NOLINTBEGIN(clang-analyzer-*): sharing the memory is the point, and the child makes nothing but system calls.
  const pid_t child = ::vfork();
  if (child == 0) {
    ::setpgid(0, 0);
    result = LinkAndRename(file, hidden, target);
    ::_exit(0);
  }
  // NOLINTEND(clang-analyzer-*)
  if (child < 0) return LinkAndRename(file, hidden, target);
  Uninterrupted([&] { return ::waitpid(child, nullptr, 0); });
  return result;
}

}  // namespace

ReplacedFile::ReplacedFile(const std::string& given) : name(given), targetName(given)
{
  lookup = ErrorOf(::stat(name.c_str(), &old));
  if (lookup != 0 && lookup != ENOENT) return;
  const bool isAbsent = lookup == ENOENT;
  if (!isAbsent && !S_ISREG(old.st_mode)) return;
  lookup = FollowLinks(targetName);
  if (isAbsent) {
    kind = Kind::absent;
  } else if (targetName == name || IsSameFile(targetName, old)) {
    kind = Kind::regular;
  } else {
    targetName = name;  // led to by /proc, but without a name of its own
  }
}

bool ReplacedFile::hasPlaceOf(const ReplacedFile& other) const
{
  if (targetName == other.targetName) return true;
  struct stat otherFolder = {};
  return MemberOf(targetName) == MemberOf(other.targetName) && ::stat(other.folder().c_str(), &otherFolder) == 0 &&
         IsSameFile(folder(), otherFolder);
}

std::optional<Reason> ReplacedFile::open()
{
  int error = openError();
  if (error == 0 && kind == Kind::other) error = file.open(ToString(name), O_WRONLY | O_TRUNC);
  return failed(lookup != 0 || kind == Kind::absent ? "cannot create" : "cannot write", error);
}

int ReplacedFile::openError() const
{
  if (lookup != 0) return lookup;
  if (S_ISDIR(old.st_mode)) return EISDIR;
  if (S_ISSOCK(old.st_mode)) return ENXIO;
  return ErrorOf(kind == Kind::absent ? ::faccessat(AT_FDCWD, folder().c_str(), W_OK | X_OK, AT_EACCESS)
                                      : ::faccessat(AT_FDCWD, targetName.c_str(), W_OK, AT_EACCESS));
}

std::optional<Reason> ReplacedFile::write(std::span<const unsigned char> bytes)
{
  if (!file.isOpen()) {
    if (const int error = makeTemporary()) return failed("cannot create a temporary file in its folder", error);
    // At once, so that nobody reads under a temporary name what the old file hid.
    if (auto reason = kept()) return reason;
  }
  const auto length = static_cast<std::streamsize>(bytes.size());
  errno = EIO;  // for a file that takes nothing and does not say why
  if (!file.write(reinterpret_cast<const char*>(bytes.data()), length)) return failed("cannot write", errno);
  return std::nullopt;
}

std::optional<Reason> ReplacedFile::finish()
{
  if (auto reason = write({})) return reason;  // also of a file without bytes
  // Writing takes these bits away.
  if ((old.st_mode & (S_ISUID | S_ISGID)) != 0) {
    if (auto reason = kept()) return reason;
  }
  return file.close() ? std::nullopt : failed("cannot write", errno);
}

std::optional<Reason> ReplacedFile::place()
{
  if (kind == Kind::other) return std::nullopt;
  return failed("cannot replace", temporary.exists() ? temporary.rename(targetName) : placeUnnamed());
}

std::string ReplacedFile::folder() const { return FolderOf(targetName); }

// A file without a name needs a file system that has such, and /proc to give it one later.
int ReplacedFile::makeTemporary()
{
  if (file.open(ToString(folder()), O_WRONLY | O_TMPFILE) == 0) {
    if (unnamed.open(ToString(NameOf(file)), O_PATH) == 0) return 0;
    file.close();
  }
  return temporary.create(folder(), file);
}

std::optional<Reason> ReplacedFile::kept() const
{
  return kind == Kind::regular ? failed("cannot keep its permissions", keepPermissions()) : std::nullopt;
}

// Another user's file stays that user's, or at least its group's, where the operating system lets it. A new owner or
// group does not get what the mode gave to the old one.
int ReplacedFile::keepPermissions() const
{
  const int descriptor = file.descriptor();
  struct stat made = {};
  if (::fstat(descriptor, &made) != 0) return errno;
  const mode_t oldMode = old.st_mode & permissionBits;
  mode_t mode = oldMode;
  if ((made.st_uid != old.st_uid || made.st_gid != old.st_gid) && ::fchown(descriptor, old.st_uid, old.st_gid) != 0) {
    if (made.st_uid != old.st_uid) mode &= ~mode_t{S_ISUID};
    if (made.st_gid != old.st_gid && ::fchown(descriptor, made.st_uid, old.st_gid) != 0) {
      mode &= ~mode_t{S_ISGID | S_IRWXG} | (mode & S_IRWXO) << 3;  // what all others get
    }
  }
  if (const int error = CopyAccessList(targetName, descriptor)) return error;
  return mode == oldMode && (made.st_mode & permissionBits) == mode ? 0 : ErrorOf(::fchmod(descriptor, mode));
}

int ReplacedFile::placeUnnamed()
{
  const std::string source = NameOf(unnamed);
  if (kind == Kind::absent) {
    const int error = Link(source.c_str(), targetName.c_str());
    if (error != EEXIST) return error;
  }
  return LinkAndRenameUnparted(source.c_str(), FreshName(folder()).c_str(), targetName.c_str());
}

std::optional<Reason> ReplacedFile::failed(const char* what, int error) const
{
  if (error == 0) return std::nullopt;
  return Reason{name, what, error};
}
