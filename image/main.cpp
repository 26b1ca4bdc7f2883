// kelvra-image: looks after the images that kelvra makes.
#include <csignal>
#include <cstdio>
#include <exception>

#include "image/CommandLine.h"
#include "image/Reason.h"

int main(int argc, char** argv)
{
  // A closed pipe and a limit on file sizes are errors of the write.
  std::signal(SIGPIPE, SIG_IGN);
  std::signal(SIGXFSZ, SIG_IGN);
  try {
    return RunCommandLine(argc, argv);
  } catch (const std::exception& error) {  // memory that ends
    std::fprintf(stderr, "kelvra-image: %s\n", error.what());
    return couldNot;
  }
}
