// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TESTS_TOOLS_SAFT_SLOWTOOLTEST_H_
#define ZEVO_TESTS_TOOLS_SAFT_SLOWTOOLTEST_H_

#include <gtest/gtest.h>
#include <sys/types.h>

#include <chrono>
#include <string>
#include <thread>
#include <vector>

#include "tests/tools/saft/ToolTest.h"

namespace zevo::testing {

/// Runs the program on a disk so slow that there is time to do something meanwhile.
class SlowToolTest : public ToolTest {
 protected:
  /// Starts it. What it tells goes into the file "err" of the test's folder.
  void StartSlowly(std::vector<std::string> arguments);
  /// How it ended.
  Outcome AwaitEnd() const;

  template <class Condition>
  static void Await(Condition&& condition) {
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(60);
    while (!condition()) {
      ASSERT_LT(std::chrono::steady_clock::now(), end);
      std::this_thread::sleep_for(std::chrono::milliseconds(2));
    }
  }
  /// Waits until the program has a file open.
  void AwaitOpen(const std::string& path) const;
  /// Waits until it writes the file that will be `Output()`.
  void AwaitWriting() const;
  /// Where that file is meanwhile. While it is written it has yet another name.
  std::string Unfinished() const { return UnfinishedFolder() + "/out.xml"; }

  pid_t child_ = -1;

 private:
  std::string UnfinishedFolder() const { return Output() + "." + std::to_string(child_) + ".0"; }
};

}  // namespace zevo::testing

#endif  // ZEVO_TESTS_TOOLS_SAFT_SLOWTOOLTEST_H_
