// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/input/ProblemReport.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstddef>
#include <memory>
#include <sstream>
#include <string>

#include "tests/support/TemporaryFolder.h"

namespace zevo::saft {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;

class ProblemReportTest : public ::testing::Test {
 protected:
  /// Adds all problems of a file with such master files.
  void AddAllOf(const std::string& masterFiles) {
    AuditFileScanner file;
    file.set_AuditFileName(
        folder_.Write("a.xml", R"(<AuditFile xmlns="urn:OECD:StandardAuditFile-Tax:PT_1.01_01"><MasterFiles>)" +
                                   masterFiles + "</MasterFiles></AuditFile>"));
    EXPECT_TRUE(file.OpenAuditFile());
    std::shared_ptr<Record> record;
    do {
      EXPECT_TRUE(file.ReadNext(record));
      for (const Problem& problem : file.Problems()) report_.Add(file, problem);
    } while (record);
  }
  std::string Told() const {
    std::ostringstream out;
    report_.Report(out);
    return out.str();
  }

  testing::TemporaryFolder folder_;
  ProblemReport report_{"a\nb.xml"};
};

TEST_F(ProblemReportTest, TellsNothingWhereThereIsNothing) {
  EXPECT_EQ(Told(), "");
  EXPECT_EQ(report_.Count(), 0);
  EXPECT_THAT(report_.First(), ElementsAre());
}

TEST_F(ProblemReportTest, NamesTheRecordByItsKey) {
  AddAllOf("<Customer><CustomerID>C 1</CustomerID><Own>x</Own></Customer>");
  EXPECT_EQ(Told(),
            "saft: a\\nb.xml: 1 problem\n"
            "  Customer C 1: Own, \"x\": is not known here (line 1, column 113).\n");
}

TEST_F(ProblemReportTest, NamesARecordWithoutKeyByItsKind) {
  AddAllOf("<Customer><Own/></Customer><TaxTable><Own/></TaxTable>");
  EXPECT_THAT(report_.First(), ElementsAre(HasSubstr("Customer (without identification): Own: is not known here ("),
                                           HasSubstr("The tax table: Own: is not known here (")));
}

TEST_F(ProblemReportTest, NamesNoRecordForWhatStandsBetweenThem) {
  AddAllOf("<Own/><Customer><CustomerID>1</CustomerID></Customer>");
  EXPECT_EQ(Told(),
            "saft: a\\nb.xml: 1 problem\n  /AuditFile/MasterFiles/Own: is not known here (line 1, column 75).\n");
}

TEST_F(ProblemReportTest, TellsAnElementBetweenRecordsWithoutWhatIsInIt) {
  AddAllOf("<Own><A><B/></A><C/></Own><Ownership/><Customer><CustomerID>1</CustomerID></Customer>");
  EXPECT_THAT(report_.First(),
              ElementsAre(HasSubstr("/AuditFile/MasterFiles/Own: "), HasSubstr("/AuditFile/MasterFiles/Ownership: ")));
}

TEST_F(ProblemReportTest, TellsTheFirstFewOfEachKindAndCountsAll) {
  std::string records = "<Supplier><SupplierID>S</SupplierID><SelfBillingIndicator>x</SelfBillingIndicator></Supplier>";
  for (int i = 0; i < 7; ++i) records += "<Product><Own/></Product>";
  AddAllOf(records);
  EXPECT_EQ(report_.Count(), 8);
  EXPECT_EQ(report_.First().size(), 6U);
  const std::string told = Told();
  EXPECT_THAT(told, HasSubstr("saft: a\\nb.xml: 1 problem\n  Supplier S: SelfBillingIndicator, \"x\": the element"));
  EXPECT_THAT(
      told,
      HasSubstr(
          "saft: a\\nb.xml: 7 problems of one kind\n  Product (without identification): Own: is not known here ("));
  EXPECT_THAT(told, HasSubstr(").\n  and 2 more\n"));
}

TEST_F(ProblemReportTest, MakesTextsVisibleAndCutsLongOnes) {
  AddAllOf("<Customer><CustomerID>\u202E" + std::string(1000, 'k') + "</CustomerID><Own>\u202E" +
           std::string(100'000, 'x') + "</Own></Customer>");
  const std::string told = Told();
  EXPECT_THAT(told, HasSubstr("  Customer \\u202Ekkk"));
  EXPECT_THAT(told, HasSubstr(": Own, \"\\u202Exxx"));
  EXPECT_LT(told.size(), 1300U);
}

}  // namespace
}  // namespace zevo::saft
