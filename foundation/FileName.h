// A file's name in its parts: library (directory), qualifier, member (base name) and extension. Parsing leaves the "/"
// at the library's end and the "." out of the extension; the qualifier is set only by the four-part constructor and
// takes no part in the full name.
#pragma once

#include "foundation/String.h"

class FileName {
 public:
  FileName() = default;
  FileName(const String& source);
  FileName(const String& library, const String& qualifier, const String& member, const String& extension);

  void setSource(const String& source);
  // The full name.
  String getSource() const;
  String getLibrary() const { return library; }
  String getMember() const { return member; }
  String getExtension() const { return extension; }
  void setExtension(const String& newExtension) { extension = newExtension; }
  // False for a name that is only a directory or empty.
  boolean isValid() const { return !qualifier.empty() || !member.empty() || !extension.empty(); }

  // A fresh name for a temporary file, from the platform's tmpnam; empty when it has none. The file is not created.
  static FileName CreateTmpFileName();

 private:
  String library;
  String qualifier;
  String member;
  String extension;
};

// Splits a full name. Only a "." after the last "/" separates an extension, and not when it is the last character.
void Extract(const String& source, String& library, String& qualifier, String& member, String& extension);
// Joins the parts to a full name, with the "/" that a library may lack; what Extract split comes back unchanged.
String Build(const String& library, const String& qualifier, const String& member, const String& extension);
