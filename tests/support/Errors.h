// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TESTS_SUPPORT_ERRORS_H_
#define ZEVO_TESTS_SUPPORT_ERRORS_H_

#include <gtest/gtest.h>
#include <zevo/Error.h>
#include <zevo/model/AuditException.h>

#include <cstdint>
#include <memory>
#include <optional>
#include <ostream>
#include <string>
#include <string_view>

namespace zevo {

inline void PrintTo(const Error& error, std::ostream* out) {
  *out << error.Number() << " \"" << error.Source() << "\" \"" << error.Description() << '"';
}

}  // namespace zevo

namespace zevo::testing {

/// The error that a piece of code throws; fails the test when it throws none.
template <class Code>
Error ErrorOf(Code&& code) {
  try {
    code();
  } catch (const Error& error) {
    return error;
  }
  ADD_FAILURE() << "no error was thrown";
  return Error(0, "");
}

/// The number that a façade reports for a message.
constexpr int32_t NumberOf(Message message) { return kErrorBase + static_cast<int32_t>(message); }

/// Expects that code throws an error of that number and source.
#define EXPECT_ERROR(code, number, source)                           \
  do {                                                               \
    const zevo::Error error = zevo::testing::ErrorOf([&] { code; }); \
    EXPECT_EQ(error.Number(), static_cast<int32_t>(number));         \
    EXPECT_EQ(error.Source(), source);                               \
  } while (false)

/// Expects what a façade keeps of its last failure.
#define EXPECT_EXCEPTION(facade, number, source, description)     \
  do {                                                            \
    const auto exception = (facade).AuditException();             \
    ASSERT_NE(exception, nullptr);                                \
    EXPECT_EQ(exception->Number(), static_cast<int32_t>(number)); \
    EXPECT_EQ(exception->Source(), source);                       \
    EXPECT_EQ(exception->Description(), description);             \
  } while (false)

}  // namespace zevo::testing

#endif  // ZEVO_TESTS_SUPPORT_ERRORS_H_
