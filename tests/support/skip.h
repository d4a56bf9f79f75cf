#pragma once

#include <gtest/gtest.h>

#include <string>

namespace tarvin {

/// Reports the current test as skipped, with the reason. For helpers that return a value and for
/// constructors, where GTEST_SKIP() cannot be used: the test continues, and must return by itself.
/// In the constructor of a fixture it prevents the test from being run. Main thread only.
inline void skipTest(const std::string& reason) {
    GTEST_SKIP() << reason;
}

}  // namespace tarvin
