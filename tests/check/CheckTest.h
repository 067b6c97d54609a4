// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TESTS_CHECK_CHECKTEST_H_
#define ZEVO_TESTS_CHECK_CHECKTEST_H_

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <zevo/facades/AuditFileChecker.h>

#include <string>
#include <string_view>
#include <vector>

#include "tests/schema/XmlParts.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/UseSchema.h"

namespace zevo::testing {

/// The clean file of tests/check/clean.xml, to be changed one thing at a time. It has basis I, two customers, a
/// supplier, two products, two journals, the invoices FT A/1 of two lines and FT A/2, and the credit note NC A/1.
///
/// A path begins at any element of the file, the first of its name unless a number says which: "Header/FiscalYear",
/// "Invoice[2]/Line/Tax", "Transaction[3]/Line[2]/DebitAmount". A path that leads nowhere fails the test.
class CleanFile {
 public:
  CleanFile();
  /// Another file instead.
  explicit CleanFile(std::string_view document);

  /// The element has this text, and nothing inside.
  CleanFile With(std::string_view path, std::string_view text) const;
  /// The element is gone.
  CleanFile Without(std::string_view path) const;
  /// The elements of a text stand behind the element.
  CleanFile Behind(std::string_view path, std::string_view elements) const;
  /// The element stands there once more, behind itself.
  CleanFile Twice(std::string_view path) const;

  std::string Text() const;
  /// The text of the element.
  const std::string& TextOf(std::string_view path) const;
  /// How many elements of a name there are.
  size_t CountOf(std::string_view name) const;
  /// The children of an element, to be put in another order.
  std::vector<XmlPart>& ChildrenOf(std::string_view path) { return At(path).children; }

 private:
  XmlPart& At(std::string_view path, XmlPart** parent = nullptr);

  std::string declaration_;
  XmlPart root_;
};

/// Checks files by the façade.
class CheckTest : public ::testing::Test {
 protected:
  CheckTest();

  /// What is found in a file, such as "HDR-PERIOD W Header/FiscalYear [2011] [2008] []": rule, severity, path with the
  /// record in front, what is found, what is expected, the difference. A check that fails adds its error.
  std::vector<std::string> Findings(const CleanFile& file) { return Findings(file.Text()); }
  std::vector<std::string> Findings(std::string_view document);
  /// The sentences of the findings of a file, in both languages one after the other.
  std::vector<std::string> Sentences(const CleanFile& file);
  /// The findings of some rules only.
  std::vector<std::string> FindingsOf(std::string_view rule, const CleanFile& file);

  UseSchema schema_;
  TemporaryFolder folder_;
  AuditFileChecker checker_;
  std::vector<Finding> found_;
};

}  // namespace zevo::testing

#endif  // ZEVO_TESTS_CHECK_CHECKTEST_H_
