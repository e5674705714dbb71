#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "tests/support/fuzz_targets.h"

// What the fuzzers of fuzz/ found worth keeping, once more, without a fuzzer.

namespace tarvik::test {
namespace {

namespace fs = std::filesystem;

class FuzzReplayTest : public testing::TestWithParam<FuzzTarget> {};

TEST_P(FuzzReplayTest, TakesTheWholeCorpus) {
  int inputs = 0;
  for (const auto& entry : fs::directory_iterator(fs::path(TARVIK_FUZZ_CORPUS) / GetParam().name)) {
    std::ifstream in(entry.path(), std::ios::binary);
    GetParam().feed(std::string(std::istreambuf_iterator<char>(in), {}));
    ++inputs;
  }
  EXPECT_GE(inputs, 1);
}

INSTANTIATE_TEST_SUITE_P(Corpora, FuzzReplayTest, testing::ValuesIn(fuzzTargets()),
                         [](const auto& target) { return target.param.name; });

}  // namespace
}  // namespace tarvik::test
