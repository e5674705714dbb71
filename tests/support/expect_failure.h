#pragma once

#include <gtest/gtest.h>

#include "core/failure.h"

namespace tarvik::test {

/// Runs an operation that must throw a Failure of that kind; the test fails when it does not.
template <typename Operation>
void expectFailure(core::FailureKind kind, Operation operation) {
  try {
    operation();
    ADD_FAILURE() << "nothing was thrown";
  } catch (const core::Failure& failure) {
    EXPECT_EQ(failure.kind(), kind);
  }
}

}  // namespace tarvik::test
