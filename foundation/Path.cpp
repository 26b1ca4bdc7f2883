#include "foundation/Path.h"

#include <cstring>

#include "foundation/Assertion.h"

boolean Path::isEmpty() const { return !PathIterator(*this).valid(); }

void Path::append(const String& text) { *this += ":" + text; }

void Path::append(const Path& path) { append(static_cast<const String&>(path)); }

void Path::prepend(const String& text) { insert(0, text + ':'); }

void Path::prepend(const Path& path) { prepend(static_cast<const String&>(path)); }

namespace {

// At the first element that equals the library, or at the end.
PathIterator Find(const Path& path, const String& library)
{
  PathIterator element(path);
  while (element.valid() && element.get() != library) element.next();
  return element;
}

}  // namespace

boolean Path::includes(const String& library) const { return Find(*this, library).valid(); }

void Path::remove(const String& library)
{
  const PathIterator element = Find(*this, library);
  Assert(element.valid(), "includes(library)", "Path", "void Path::remove (const String &)");
  String::remove(element.offset(), library.length());
}

PathIterator::PathIterator(const Path& walked) : path(&walked) { reset(); }

void PathIterator::reset()
{
  position = *path;
  GetNextLibrary(position, length);
}

void PathIterator::reset(const Path& walked)
{
  path = &walked;
  reset();
}

void PathIterator::next()
{
  Assert(valid(), "valid()", "Path", "void PathIterator::next ()");
  position += length;
  GetNextLibrary(position, length);
}

String PathIterator::get() const
{
  Assert(valid(), "valid()", "Path", "String PathIterator::get () const");
  return String(position, length);
}

unsigned int PathIterator::offset() const
{
  return static_cast<unsigned int>(position - static_cast<const char*>(*path));
}

void GetNextLibrary(const char*& position, unsigned int& length)
{
  position += std::strspn(position, ":");
  length = static_cast<unsigned int>(std::strcspn(position, ":"));
}
