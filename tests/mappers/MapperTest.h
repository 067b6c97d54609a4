// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TESTS_MAPPERS_MAPPERTEST_H_
#define ZEVO_TESTS_MAPPERS_MAPPERTEST_H_

#include <gtest/gtest.h>
#include <zevo/dal/DOMDALHelper.h>
#include <zevo/dal/DOMDALReader.h>
#include <zevo/model/Record.h>

#include <memory>
#include <string>
#include <string_view>

#include "tests/support/Errors.h"
#include "tests/support/TemporaryFolder.h"

namespace zevo::testing {

/// XML that a test lays out over several lines, as a file holds it: without line ends and the indentation after them.
std::string OneLine(std::string_view xml);

/// What a record holds, one "Property=value" a line; a child's properties stand behind its name. Values that a record
/// of no content has too (empty text, 0, false, no object) are left out.
std::string Describe(const Record& record);

/// A document to write to and a file to read from.
class MapperTest : public ::testing::Test {
 protected:
  MapperTest();

  /// Begins the document anew, with that content under its root.
  void Begin(std::string_view content);
  /// The content of the root, as the saved file holds it.
  std::string Written();

  /// A reader that has opened a file with that content under its root.
  IDALReader& Reading(std::string_view content);
  /// The same of what was written.
  IDALReader& ReadingBack() { return Reading(Written()); }

  TemporaryFolder folder_;
  DOMDALHelper helper_;

 private:
  std::unique_ptr<DOMDALReader> reader_;
};

}  // namespace zevo::testing

#endif  // ZEVO_TESTS_MAPPERS_MAPPERTEST_H_
