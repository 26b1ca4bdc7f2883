// The command line of kelvra-image.
#pragma once

// Reads the command line, calls the command and prints what it found; returns the exit status. Memory that ends throws.
int RunCommandLine(int argc, char** argv);
