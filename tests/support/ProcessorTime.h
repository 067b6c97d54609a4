// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TESTS_SUPPORT_PROCESSORTIME_H_
#define ZEVO_TESTS_SUPPORT_PROCESSORTIME_H_

#include <algorithm>
#include <ctime>
#include <limits>

namespace zevo::testing {

/// The processor time that a piece of code takes: other programs on the machine have next to no part in it.
template <class Code>
double ProcessorSeconds(Code&& code) {
  const std::clock_t start = std::clock();
  code();
  return static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
}

/// The least of several runs.
template <class Code>
double LeastProcessorSeconds(int runs, Code&& code) {
  double least = std::numeric_limits<double>::max();
  for (int run = 0; run < runs; ++run) least = std::min(least, ProcessorSeconds(code));
  return least;
}

}  // namespace zevo::testing

#endif  // ZEVO_TESTS_SUPPORT_PROCESSORTIME_H_
