#include "foundation/FileName.h"

#include "foundation/Allocate.h"

FileName::FileName(const String& source) { setSource(source); }

FileName::FileName(const String& newLibrary, const String& newQualifier, const String& newMember,
                   const String& newExtension)
    : library(newLibrary), qualifier(newQualifier), member(newMember), extension(newExtension)
{}

void FileName::setSource(const String& source) { Extract(source, library, qualifier, member, extension); }

String FileName::getSource() const { return Build(library, qualifier, member, extension); }

namespace {

// The index of the last `wanted` at or after `start`, or the length of the text when there is none.
unsigned int LastIndex(const String& text, char wanted, unsigned int start)
{
  for (unsigned int i = text.length(); i > start; i--) {
    if (text[i - 1] == wanted) return i - 1;
  }
  return text.length();
}

}  // namespace

void Extract(const String& source, String& library, String& qualifier, String& member, String& extension)
{
  const unsigned int end = source.length();
  const unsigned int slash = LastIndex(source, '/', 0);
  const unsigned int base = slash == end ? 0 : slash + 1;
  const unsigned int dot = LastIndex(source, '.', base);
  const boolean extended = dot + 1 < end;
  // All cut out before any is assigned: the source may be one of the results.
  const String parts[] = {source(0, base), source(base, (extended ? dot : end) - base),
                          extended ? source(dot + 1, end) : String()};
  qualifier.clear();
  library = parts[0];
  member = parts[1];
  extension = parts[2];
}

String Build(const String& library, const String&, const String& member, const String& extension)
{
  String source(AddLengths(AddLengths(library.length(), member.length()), AddLengths(extension.length(), 2)));
  source += library;
  if (!source.empty() && source[source.length() - 1] != '/') source += '/';
  source += member;
  if (!extension.empty()) {
    source += '.';
    source += extension;
  }
  return source;
}
