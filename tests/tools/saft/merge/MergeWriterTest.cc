// SPDX-License-Identifier: Apache-2.0
// What goes into a file comes out of it: of one file, and of the months of a year.
#include <gtest/gtest.h>
#include <zevo/adapters.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <map>
#include <memory>
#include <ostream>
#include <string>
#include <tuple>
#include <vector>

#include "tests/tools/saft/ToolTest.h"
#include "tools/generate/SampleRecords.h"

namespace zevo {
namespace {

using testing::ReadBytes;

using Element = std::tuple<int, std::string, std::string>;
using Elements = std::vector<Element>;

/// All elements of all records by kind, transactions with their journals; the entries of all tax tables in one.
std::map<EntityKind, Elements> ElementsIn(const std::string& file) {
  std::map<EntityKind, Elements> all;
  AuditFileScanner scanner;
  scanner.set_AuditFileName(file);
  EXPECT_TRUE(scanner.OpenAuditFile()) << file;
  for (const auto& record : scanner.Entities()) {
    const EntityKind kind = *record->Kind();
    Elements& elements = all[kind == EntityKind::kTransaction ? EntityKind::kJournal : kind];
    for (const ScannedElement& element : scanner.Elements()) {
      if (kind == EntityKind::kTaxTable && element.depth == 0) continue;
      elements.emplace_back(element.depth, element.name, element.text);
    }
  }
  return all;
}

class MergeWriterTest : public testing::ToolTest {
 protected:
  /// Expects that a file is copied, but for sections whose totals are wrong.
  void ExpectCopied(const std::string& file, const std::vector<EntityKind>& wrong = {}) const {
    const testing::Outcome outcome = Run({"merge", "--no-validate", file, "-o", Output()});
    EXPECT_EQ(outcome.code, 0);
    std::map<EntityKind, Elements> before = ElementsIn(file);
    std::map<EntityKind, Elements> after = ElementsIn(Output());
    std::string told;
    for (const EntityKind section : wrong) {
      told.append("saft: ").append(file).append(": the totals of ").append(NameOf(section));
      told.append(" are not those of its records; those written are added up\n");
      EXPECT_NE(before.extract(section).mapped(), after.extract(section).mapped());
    }
    EXPECT_EQ(outcome.err, told);
    EXPECT_EQ(after, before);
  }
  std::string Month(int month) const { return folder_.Path("month" + std::to_string(month) + ".xml"); }
};

std::vector<std::string> Layouts() {
  std::vector<std::string> names;
  for (const auto& entry : std::filesystem::directory_iterator(ZEVO_LAYOUTS_FOLDER)) {
    names.push_back(entry.path().filename().string());
  }
  std::ranges::sort(names);
  return names;
}

class MergeLayoutTest : public MergeWriterTest, public ::testing::WithParamInterface<std::string> {};

TEST_P(MergeLayoutTest, OneFileIsCopied) { ExpectCopied(ZEVO_LAYOUTS_FOLDER "/" + GetParam()); }

INSTANTIATE_TEST_SUITE_P(All, MergeLayoutTest, ::testing::ValuesIn(Layouts()));

TEST_F(MergeWriterTest, EveryElementOfTheSchemaIsCopiedButForTotalsThatAreWrong) {
  ExpectCopied(ZEVO_COMPLETE_FILE, {EntityKind::kGeneralLedgerEntries, EntityKind::kSalesInvoices});
}

TEST_F(MergeWriterTest, TheSampleCompanyIsCopied) {
  const std::string company = folder_.Path("company.xml");
  ASSERT_EQ(Run({"create", ZEVO_COMPANY_FOLDER, company}).code, 0);
  ExpectCopied(company);
}

TEST_F(MergeWriterTest, TheMonthsMakeTheYear) {
  // The more invoices, the more months have any.
  for (const int invoices : {5, 400}) {
    const generate::SampleRecords records(invoices, 1);
    const auto write = [&](const std::string& name, generate::SampleRecords::Months months) {
      AuditFileStreamWriter file;
      file.set_AuditFileName(name);
      WriteTo(file, records, months);
    };
    const std::string year = folder_.Path("year.xml");
    write(year, {});
    std::vector<std::string> arguments{"merge", "-o", Output()};
    for (const int month : {6, 0, 11, 3, 9, 1, 10, 2, 5, 8, 7, 4}) {
      write(Month(month), {.first = month, .end = month + 1});
      arguments.push_back(Month(month));
    }
    const testing::Outcome outcome = Run(arguments);
    EXPECT_EQ(outcome.code, 0);
    EXPECT_EQ(outcome.out, Output() + ": valid\n");
    EXPECT_EQ(outcome.err, "");
    EXPECT_TRUE(ReadBytes(Output()) == ReadBytes(year));
    for (const std::string& name : folder_.Names()) {
      if (name.ends_with(".xml")) std::filesystem::remove(folder_.Path(name));
    }
  }
}

}  // namespace
}  // namespace zevo
