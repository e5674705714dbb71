#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace tarvik::test {

/// Something to feed with bytes of any kind. It ends the program where what it feeds is wrong.
struct FuzzTarget {
  std::string name{};
  void (*feed)(std::string_view input) = nullptr;
};

/// Every target: a kind of record each, the functions of texts and of numbers, and whole operations on a disk
/// in memory whose files, leftovers and failures the input chooses.
const std::vector<FuzzTarget>& fuzzTargets();

}  // namespace tarvik::test
