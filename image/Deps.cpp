#include "image/Deps.h"

DepsResult Deps(const Inputs&) { return {}; }

std::string Depfile(const DepsResult&) { return {}; }
