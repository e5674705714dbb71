#pragma once

#include <gtest/gtest.h>

#include <string>

#include "core/failure.h"

namespace tarvik::test {

/// Runs an operation that must throw a Failure of that kind, and looks at what else that says; the test fails
/// when nothing is thrown.
template <typename Operation, typename Look>
void expectFailure(core::FailureKind kind, Operation operation, Look look) {
  try {
    operation();
    ADD_FAILURE() << "nothing was thrown";
  } catch (const core::Failure& failure) {
    EXPECT_EQ(failure.kind(), kind);
    look(failure);
  }
}

/// As above, whatever else the failure says.
template <typename Operation>
void expectFailure(core::FailureKind kind, Operation operation) {
  expectFailure(kind, operation, [](const core::Failure&) {});
}

/// As above; the failure must keep that error of the system.
template <typename Operation>
void expectSystemFailure(core::FailureKind kind, int systemError, Operation operation) {
  expectFailure(kind, operation,
                [&](const core::Failure& failure) { EXPECT_EQ(failure.systemError(), systemError); });
}

/// As above; the failure must name that field.
template <typename Operation>
void expectFieldFailure(core::FailureKind kind, const char* field, Operation operation) {
  expectFailure(kind, operation, [&](const core::Failure& failure) { EXPECT_EQ(failure.field(), field); });
}

/// As above; the failure must name that file.
template <typename Operation>
void expectFileFailure(core::FailureKind kind, const std::string& file, Operation operation) {
  expectFailure(kind, operation, [&](const core::Failure& failure) { EXPECT_EQ(failure.file(), file); });
}

}  // namespace tarvik::test
