// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/template/TemplateCommand.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

#include "tests/tools/saft/ToolTest.h"
#include "tools/saft/dataset/Dataset.h"

namespace zevo::saft {
namespace {

std::vector<std::string> NamesIn(const std::string& folder) {
  std::vector<std::string> names;
  for (const auto& entry : std::filesystem::directory_iterator(folder)) names.push_back(entry.path().filename());
  return names;
}

class TemplateCommandTest : public testing::ToolTest {
 protected:
  void ExpectWritten() const {
    const testing::Outcome outcome = Run({"template", Books()});
    EXPECT_EQ(outcome.code, 0);
    EXPECT_EQ(outcome.out, "");
    EXPECT_EQ(outcome.err, "");
  }
  void ExpectRefused(const std::string& message) const {
    const testing::Outcome outcome = Run({"template", Books()});
    EXPECT_EQ(outcome.code, 2);
    EXPECT_EQ(outcome.err, "saft: " + message + "\n");
  }
  std::string Books() const { return folder_.Path("books"); }
};

TEST_F(TemplateCommandTest, WritesEveryFileOfADataset) {
  ExpectWritten();
  std::vector<std::string> expected;
  for (const DatasetFile& file : Dataset::Files()) expected.emplace_back(file.name);
  EXPECT_THAT(NamesIn(Books()), ::testing::UnorderedElementsAreArray(expected));
}

TEST_F(TemplateCommandTest, AFileHasTheNamesOfItsColumnsOnly) {
  ExpectWritten();
  EXPECT_EQ(testing::ReadBytes(folder_.Path("books/products.csv")),
            "ProductType,ProductCode,ProductGroup,ProductDescription,ProductNumberCode\n");
  EXPECT_EQ(testing::ReadBytes(folder_.Path("books/order_references.csv")),
            "InvoiceNo,LineNumber,OriginatingOn,OrderDate\n");
}

TEST_F(TemplateCommandTest, TheHeadingsAreThoseOfAListedDataset) {
  ExpectWritten();
  ASSERT_EQ(Run({"list", ZEVO_COMPLETE_FILE, "--all", folder_.Path("listed")}).code, 0);
  ASSERT_THAT(NamesIn(folder_.Path("listed")), ::testing::UnorderedElementsAreArray(NamesIn(Books())));
  for (const std::string& name : NamesIn(Books())) {
    const std::string listed = testing::ReadBytes(folder_.Path("listed/" + name));
    EXPECT_EQ(testing::ReadBytes(folder_.Path("books/" + name)), listed.substr(0, listed.find('\n') + 1)) << name;
  }
}

TEST_F(TemplateCommandTest, CreateMissesNothingInItButTheHeader) {
  ExpectWritten();
  const testing::Outcome outcome = Run({"create", "--no-validate", Books(), Output()});
  EXPECT_EQ(outcome.code, 2);
  EXPECT_EQ(outcome.err, "saft: " + Books() + "/header.csv: has no row, and a file without a header is never valid\n");
}

TEST_F(TemplateCommandTest, NothingIsOverwritten) {
  folder_.Write("books", "here");
  ExpectRefused(Books() + ": is there already and is no folder");
  EXPECT_EQ(testing::ReadBytes(Books()), "here");
  std::filesystem::remove(Books());
  std::filesystem::create_directory(Books());
  folder_.Write("books/products.csv", "here");
  ExpectRefused(Books() + ": is there already and is not empty");
  EXPECT_EQ(testing::ReadBytes(folder_.Path("books/products.csv")), "here");
}

TEST_F(TemplateCommandTest, NothingIsLeftAfterAFailure) {
  // The limit is less than the first heading takes.
  const testing::Outcome outcome = RunInShell("ulimit -f 0; saft template '" + Books() + "'");
  EXPECT_EQ(outcome.code, 2);
  EXPECT_THAT(NamesIn(folder_.Path(".")), ::testing::UnorderedElementsAre(std::string(kDataset)));
}

}  // namespace
}  // namespace zevo::saft
