// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TESTS_TOOLS_SAFT_PAGETEST_H_
#define ZEVO_TESTS_TOOLS_SAFT_PAGETEST_H_

#include <string>

#include "tests/tools/saft/ToolTest.h"

namespace zevo::testing {

/// Does what a page of the documentation shows between lines of "```", and expects what is shown: commands behind "$ "
/// with what they answer on a Portuguese terminal, in which "[…]" stands for any number of lines. Where a file is
/// named, as in "```csv header.csv" or "```toml choices.toml", its text is written there; CSV as Excel saves it.
class PageTest : public ToolTest {
 protected:
  /// `least` is how many blocks there are at least.
  void RunPage(const std::string& page, size_t least);

 private:
  void RunBlock(const std::string& text);

  std::string at_ = folder_.Path(".");
};

}  // namespace zevo::testing

#endif  // ZEVO_TESTS_TOOLS_SAFT_PAGETEST_H_
