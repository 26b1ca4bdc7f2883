// The entry of each fuzzer; the build says which one it is.
#include "fuzz/FuzzInput.h"

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size)
{
  KELVRA_FUZZ_ONE({string(data, data + size)});
  return 0;
}
