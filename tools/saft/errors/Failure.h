// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TOOLS_SAFT_ERRORS_FAILURE_H_
#define ZEVO_TOOLS_SAFT_ERRORS_FAILURE_H_

#include <zevo/adapters.h>

#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>

namespace zevo::saft {

/// What ends the program with exit code 2; its text is the message.
class Failure : public std::runtime_error {
 public:
  explicit Failure(const std::string& message) : std::runtime_error(message) {}
  /// A failure with a file. What the file's name and the reason hold is made visible, a long reason cut.
  Failure(std::string_view file, std::string_view reason);
  /// A fault in a row of a dataset.
  Failure(std::string_view file, int64_t row, std::string_view reason);
};

/// Fails with an error that the library has with a file. When it is that memory ran out, throws `std::bad_alloc`. The
/// library may know the file by another name than the user, its place.
[[noreturn]] void FailWith(const AuditException& error, std::string_view file, std::string_view place = {});
[[noreturn]] void FailWith(const Error& error, std::string_view file, std::string_view place = {});

/// An error as façades keep it.
AuditException AsException(const Error& error);

/// Fails with an error that the system has with a file, by its number (errno), or when it was to be created.
[[noreturn]] void FailWithSystemError(int error, std::string_view file, bool creating = false);

/// Whether an error of the library is that memory ran out.
bool IsOutOfMemory(const AuditException& error);

}  // namespace zevo::saft

#endif  // ZEVO_TOOLS_SAFT_ERRORS_FAILURE_H_
