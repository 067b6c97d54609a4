// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TESTS_PLATFORM_NUMBERED_H_
#define ZEVO_TESTS_PLATFORM_NUMBERED_H_

#include <gtest/gtest.h>

#include <string>

namespace zevo::testing {

/// Names rows whose values would make no name of a test.
struct Numbered {
  template <class T>
  std::string operator()(const ::testing::TestParamInfo<T>& row) const {
    return "Row" + std::to_string(row.index);
  }
};

}  // namespace zevo::testing

#endif  // ZEVO_TESTS_PLATFORM_NUMBERED_H_
