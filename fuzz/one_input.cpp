#include <cstdlib>
#include <string_view>

#include "tests/support/fuzz_targets.h"

// One fuzzer a target: TARVIK_FUZZ_TARGET names it.
extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
  for (const tarvik::test::FuzzTarget& target : tarvik::test::fuzzTargets())
    if (target.name == TARVIK_FUZZ_TARGET) {
      target.feed({reinterpret_cast<const char*>(data), size});
      return 0;
    }
  std::abort();
}
