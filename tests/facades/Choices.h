// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TESTS_FACADES_CHOICES_H_
#define ZEVO_TESTS_FACADES_CHOICES_H_

#include <cstddef>

namespace zevo::testing {

/// What decides how something arbitrary turns out: random numbers, or bytes that a fuzzer mutates.
class Choices {
 public:
  virtual ~Choices() = default;
  /// A number below `count`, which is at least 1.
  virtual size_t Below(size_t count) = 0;

  bool Flag() { return Below(2) == 1; }
};

}  // namespace zevo::testing

#endif  // ZEVO_TESTS_FACADES_CHOICES_H_
