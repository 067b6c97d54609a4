// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TESTS_TOOLS_SAFT_TOOLTEST_H_
#define ZEVO_TESTS_TOOLS_SAFT_TOOLTEST_H_

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "tests/support/TemporaryFolder.h"

namespace zevo::testing {

/// How a run of the program ended; a signal that ended it counts from 128.
struct Outcome {
  int code = 0;
  std::string out;
  std::string err;
  int64_t most_memory = 0;  ///< that it had at a time, in bytes
  double seconds = 0;       ///< of the processor's time, in the program itself
};

/// Runs the program as a user does, on files of the test's own. It speaks English. The dataset has a header to begin
/// with.
class ToolTest : public ::testing::Test {
 public:
  ToolTest();

 protected:
  Outcome Run(const std::vector<std::string>& arguments) const;
  /// Runs a script of the shell, in which "saft" is the program.
  Outcome RunInShell(const std::string& script) const;
  /// Runs `create` on the dataset, whose file need not be valid.
  Outcome Create(const std::vector<std::string>& options = {}) const;

  /// Writes a file of the dataset.
  void Write(std::string_view name, std::string_view text) const;
  /// Makes it a dataset of which a valid file is made: a header and so many customers.
  void WriteValid(int customers) const;
  /// Writes the files of an invented year, 2012-01.xml to 2012-12.xml, into a folder.
  void WriteMonths(const std::string& folder) const;
  /// The path of a file of the dataset as messages tell it.
  std::string In(std::string_view name) const { return folder_.Path(std::string(kDataset) + "/" + std::string(name)); }
  std::string Output() const { return folder_.Path("out.xml"); }

  /// Expects that the dataset is refused with a message and that nothing is left behind.
  void ExpectRefused(std::string_view message, std::string_view told = "") const;
  /// Expects that the dataset becomes a file, with nothing else to tell.
  void ExpectCreated(std::string_view told = "") const;
  /// What is told of a file of the dataset that is not written as those of a dataset are.
  std::string Recognised(std::string_view name, std::string_view form) const;
  /// The texts of those elements of a name in the file created that are not empty, in order, as the bytes stand there.
  std::vector<std::string> Texts(std::string_view element) const;
  /// Whether the file created has an element of the name.
  bool Has(std::string_view element) const;

  static constexpr std::string_view kDataset = "data";
  TemporaryFolder folder_;

 private:
  static Outcome Execute(const std::vector<std::string>& command);
};

}  // namespace zevo::testing

#endif  // ZEVO_TESTS_TOOLS_SAFT_TOOLTEST_H_
