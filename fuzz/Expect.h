// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_FUZZ_EXPECT_H_
#define ZEVO_FUZZ_EXPECT_H_

#include <cstdlib>
#include <iostream>
#include <string>
#include <string_view>

namespace zevo::fuzz {

/// Ends the program, which is what a fuzzer takes for a finding, unless what must hold does.
inline void Expect(bool holds, std::string_view what) {
  if (holds) return;
  std::cerr << what << '\n';
  std::abort();
}

/// The same, unless two things are alike.
inline void ExpectNoDifference(const std::string& difference, const std::string& between) {
  Expect(difference.empty(), between + ": " + difference);
}

}  // namespace zevo::fuzz

#endif  // ZEVO_FUZZ_EXPECT_H_
