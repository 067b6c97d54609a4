// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TESTS_MODEL_COMMALOCALE_H_
#define ZEVO_TESTS_MODEL_COMMALOCALE_H_

#include <string>

#include "tests/support/TemporaryFolder.h"

namespace zevo::testing {

/// Makes the numbers of the process's locale those of Portugal: a comma before the decimals and a point between the
/// thousands. Machines seldom have such a locale, so one is laid out in a folder of the test's own. Destruction
/// brings the old one back.
class CommaLocale {
 public:
  CommaLocale();
  CommaLocale(const CommaLocale&) = delete;
  CommaLocale& operator=(const CommaLocale&) = delete;
  ~CommaLocale();

  /// False where the C library reads locales of another layout.
  bool IsInForce() const { return in_force_; }

 private:
  TemporaryFolder folder_;
  std::string before_;
  bool in_force_ = false;
};

}  // namespace zevo::testing

#endif  // ZEVO_TESTS_MODEL_COMMALOCALE_H_
