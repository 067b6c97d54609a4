// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TESTS_PLATFORM_SCHEMALIMIT_H_
#define ZEVO_TESTS_PLATFORM_SCHEMALIMIT_H_

#include <string>
#include <string_view>

namespace zevo::testing {

/// Raises what a schema for the namespace urn:t is refused for.
void RequireModest(std::string_view schema);

/// The content of a schema just within a limit and of one just beyond, and the reason that is told.
struct SchemaLimit {
  std::string within;
  std::string beyond;
  std::string_view reason;
};

/// Expects that what is within is let pass and that what is beyond is refused, for the reason and at once.
void ExpectKept(const SchemaLimit& limit);

}  // namespace zevo::testing

#endif  // ZEVO_TESTS_PLATFORM_SCHEMALIMIT_H_
