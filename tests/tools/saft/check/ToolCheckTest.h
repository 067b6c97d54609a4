// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TESTS_TOOLS_SAFT_CHECK_TOOLCHECKTEST_H_
#define ZEVO_TESTS_TOOLS_SAFT_CHECK_TOOLCHECKTEST_H_

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <string_view>

#include "tests/tools/saft/ToolTest.h"

namespace zevo::testing {

/// Runs the commands of the check on the clean file, and on one in which something is wrong.
class ToolCheckTest : public ToolTest {
 protected:
  /// Two errors, a warning and an information.
  ToolCheckTest() {
    Replace("<FiscalYear>2008<", "<FiscalYear>2011<");
    Replace("<DateCreated>2009-01-15<", "<DateCreated>2008-12-30<");
    Replace("<RecordID>2<", "<RecordID>1<");
    Replace("<RecordID>3<", "<RecordID>1<");
  }

  std::string WriteClean(std::string_view name = "clean.xml") const {
    return folder_.Write(name, ReadBytes(ZEVO_CLEAN_FILE));
  }
  /// With a warning alone.
  std::string WriteWarned() const {
    std::string text = ReadBytes(ZEVO_CLEAN_FILE);
    const std::string_view year = "<FiscalYear>2008<";
    return folder_.Write("warned.xml", text.replace(text.find(year), year.size(), "<FiscalYear>2011<"));
  }
  std::string WriteBad(std::string_view name = "bad.xml") const { return folder_.Write(name, bad_); }

  /// Where a text stands in the bad file, counted from 1.
  int64_t LineOf(std::string_view text, size_t number = 1) const {
    return 1 + std::count(bad_.begin(), bad_.begin() + static_cast<ptrdiff_t>(Find(text, number)), '\n');
  }
  int64_t ColumnOf(std::string_view text, size_t number = 1) const {
    const size_t at = Find(text, number);
    return static_cast<int64_t>(at - bad_.rfind('\n', at));
  }
  /// The same for people.
  std::string Place(std::string_view text, size_t number = 1) const {
    return "line " + std::to_string(LineOf(text, number)) + ", column " + std::to_string(ColumnOf(text, number));
  }
  std::string Lugar(std::string_view text, size_t number = 1) const {
    return "linha " + std::to_string(LineOf(text, number)) + ", coluna " + std::to_string(ColumnOf(text, number));
  }

  std::string bad_ = ReadBytes(ZEVO_CLEAN_FILE);

 private:
  void Replace(std::string_view text, std::string_view other) { bad_.replace(Find(text), text.size(), other); }
  size_t Find(std::string_view text, size_t number = 1) const {
    size_t at = bad_.find(text);
    while (--number > 0) at = bad_.find(text, at + 1);
    EXPECT_NE(at, std::string::npos) << text;
    return at;
  }
};

}  // namespace zevo::testing

#endif  // ZEVO_TESTS_TOOLS_SAFT_CHECK_TOOLCHECKTEST_H_
