// How a command ends, and why something could not be done.
#pragma once

#include <string>

// The exit statuses; the worst one of a command's files counts.
enum ExitStatus : int {
  allWell = 0,
  foundSomething = 1,  // a fault, a difference, a finding
  couldNot = 2,        // usage, a file that does not open, not an image
};

// For one line on standard error.
struct Reason {
  std::string file;
  std::string what;  // such as "cannot open"
  int error = 0;     // an errno value, 0 when the operating system has no part in it
};

// "FILE: WHAT: the system's words", in one line whatever the file's name holds.
std::string ReasonText(const Reason& reason);
