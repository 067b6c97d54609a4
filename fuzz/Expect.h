#ifndef ZEVO_FUZZ_EXPECT_H_
#define ZEVO_FUZZ_EXPECT_H_

#include <cstdlib>
#include <iostream>
#include <string_view>

namespace zevo::fuzz {

/// Ends the program, which is what a fuzzer takes for a finding, unless what must hold does.
inline void Expect(bool holds, std::string_view what) {
  if (holds) return;
  std::cerr << what << '\n';
  std::abort();
}

/// Ends the program unless two things are alike.
inline void ExpectNoDifference(std::string_view difference, std::string_view between) {
  if (difference.empty()) return;
  std::cerr << between << ": " << difference << '\n';
  std::abort();
}

}  // namespace zevo::fuzz

#endif  // ZEVO_FUZZ_EXPECT_H_
