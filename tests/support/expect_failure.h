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

/// As above; the failure must keep that error of the system.
template <typename Operation>
void expectSystemFailure(core::FailureKind kind, int systemError, Operation operation) {
  expectFailure(kind, [&] {
    try {
      operation();
    } catch (const core::Failure& failure) {
      EXPECT_EQ(failure.systemError(), systemError);
      throw;
    }
  });
}

/// As above; the failure must name that field.
template <typename Operation>
void expectFieldFailure(core::FailureKind kind, const char* field, Operation operation) {
  expectFailure(kind, [&] {
    try {
      operation();
    } catch (const core::Failure& failure) {
      EXPECT_EQ(failure.field(), field);
      throw;
    }
  });
}

}  // namespace tarvik::test
