// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/export/TargetChoice.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "tests/tools/saft/SlowToolTest.h"
#include "tests/tools/saft/export/ExportTest.h"
#include "tests/tools/saft/tables/Workbooks.h"

namespace zevo::saft {
namespace {

using ::testing::ElementsAre;

// Into what is no database.
class TargetChoiceTest : public testing::ExportTest {
 protected:
  TargetChoiceTest() : ExportTest(testing::DatabaseKind::kSqlite) {}
  testing::Outcome TryInto(const std::string& target, const std::vector<std::string>& files,
                           const std::vector<std::string>& options = {}) const {
    std::vector<std::string> arguments{"export"};
    arguments.insert(arguments.end(), files.begin(), files.end());
    arguments.insert(arguments.end(), {"--to", target});
    arguments.insert(arguments.end(), options.begin(), options.end());
    return Run(arguments);
  }
};

TEST_F(TargetChoiceTest, AFolderHasTheTablesAsCsv) {
  const std::string file = Company();
  const std::string books = folder_.Path("books/");
  const testing::Outcome outcome = TryInto(books, {file});
  EXPECT_EQ(outcome.code, 0) << outcome.err;
  EXPECT_EQ(outcome.out, file + ": 7407 records\n");
  std::string counts;
  for (const char* table :
       {"header", "general_ledger", "customers", "suppliers", "products", "tax_table", "journals", "transactions",
        "transaction_lines", "invoices", "invoice_lines", "order_references", "credit_notes", "general_ledger_entries",
        "sales_invoices", "problems", "findings", "files"}) {
    const std::string csv = testing::ReadBytes(books + table + ".csv");
    counts.append(std::to_string(std::ranges::count(csv, '\n') - 1)).append(" ");
  }
  EXPECT_EQ(counts, "1 263 57 23 42 15 6 1183 4121 300 1050 319 25 1 1 0 0 1 ");
}

TEST_F(TargetChoiceTest, AFolderHasWhatAFileHas) {
  const std::string file =
      File("a.xml", "1", "2012-01-01", "2012-12-31",
           Invoices("<InvoiceNo>FT A/1</InvoiceNo><Line><LineNumber>1</LineNumber><Quantity>x</Quantity>"
                    "<OrderReferences><OriginatingON>a, b</OriginatingON></OrderReferences></Line>"));
  const std::string books = folder_.Path("books");
  std::filesystem::create_directory(books);
  EXPECT_EQ(TryInto(books, {file}).out, file + ": 5 records; 1 problem, in the table problems\n");
  EXPECT_EQ(testing::ReadBytes(books + "/order_references.csv"),
            "file_id,position,line,invoice_line_position,invoice_no,line_number,originating_on,order_date\n"
            "1,1,1,1,FT A/1,1,\"a, b\",\n");
  EXPECT_EQ(testing::ReadBytes(books + "/problems.csv").substr(0, 74),
            "file_id,position,line,column_in_line,kind,key,element,fault,text,message\n1");
  EXPECT_EQ(TryInto(books, {file}, {"--replace", "--format", "jsonl", "--partition"}).code, 0);
  EXPECT_EQ(testing::ReadBytes(books + "/order_references/company=1/year=2012/part-1.jsonl"),
            R"({"file_id":1,"position":1,"line":1,"invoice_line_position":1,"invoice_no":"FT A/1",)"
            R"("line_number":"1","originating_on":"a, b","order_date":null})"
            "\n");
}

TEST_F(TargetChoiceTest, AWorkbookHasTheTablesAsSheets) {
  const std::string file = Company();
  const std::string book = folder_.Path("book.xlsx");
  const testing::Outcome outcome = TryInto(book, {file});
  EXPECT_EQ(outcome.code, 0) << outcome.err;
  EXPECT_EQ(outcome.out, file + ": 7407 records\n");
  std::string sheets;
  for (const std::string& line : testing::LinesOfWorkbook(book)) {
    const size_t filter = line.find(": bold, frozen at A2, filter ");
    if (filter != std::string::npos) sheets += line.substr(0, filter) + line.substr(line.rfind(':')) + " ";
  }
  EXPECT_EQ(sheets,
            "files:I2 header:AE2 general_ledger:G264 customers:AA58 suppliers:AA24 products:H43 tax_table:J16 "
            "general_ledger_entries:F2 journals:E7 transactions:O1184 transaction_lines:L4122 sales_invoices:F2 "
            "invoices:AP301 invoice_lines:V1051 order_references:H320 credit_notes:H26 ");
}

TEST_F(TargetChoiceTest, AWorkbookTellsWhatDiffers) {
  const std::string file =
      File("a.xml", "1", "2012-01-01", "2012-12-31",
           Invoices("<InvoiceNo>FT A/1</InvoiceNo><Line><UnitPrice>1.2345678901234567</UnitPrice></Line>"));
  const std::string book = folder_.Path("book.xlsx");
  EXPECT_EQ(TryInto(book, {file}, {"--lang", "pt"}).out,
            file + ": 4 registos\n" + book + ": 1 célula difere do ficheiro; a folha notes diz qual\n");
  EXPECT_THAT(testing::LinesOfWorkbook(book),
              ::testing::Contains(R"("invoice_lines" 2 "unit_price" )"
                                  R"("número com mais de 15 algarismos: ficou como texto")"));
}

TEST_F(TargetChoiceTest, WhatIsMadeAnewHasAllFilesOrNone) {
  const std::string good = File("good.xml", "1", "2012-01-01", "2012-12-31");
  const std::string next = File("next.xml", "1", "2013-01-01", "2013-12-31");
  const std::string bad = File("bad.xml", "2", "2012-01-01", "2012-12-31", "<MasterFiles><Product></MasterFiles>");
  for (const char* name : {"books/", "book.xlsx"}) {
    SCOPED_TRACE(name);
    const std::string target = folder_.Path(name);
    const testing::Outcome outcome = TryInto(target, {good, bad});
    EXPECT_EQ(outcome.code, 2);
    EXPECT_EQ(outcome.out, "");
    EXPECT_THAT(folder_.Names(), ElementsAre("bad.xml", kDataset, "good.xml", "next.xml"));
    EXPECT_EQ(TryInto(target, {good, next}).code, 0);
    const testing::Outcome again = TryInto(target, {good});
    EXPECT_EQ(again.code, 2);
    EXPECT_THAT(again.err, ::testing::HasSubstr(": is there already"));
    EXPECT_EQ(TryInto(target, {good}, {"--replace"}).code, 0);
    std::filesystem::remove_all(target);
  }
}

TEST_F(TargetChoiceTest, WhatIsMadeAnewTakesNoFileTwiceAndNoPeriodTwice) {
  const std::string year = File("year.xml", "1", "2012-01-01", "2012-12-31");
  const std::string month = File("month.xml", "1", "2012-12-01", "2012-12-31");
  std::filesystem::copy(year, folder_.Path("copy.xml"));
  for (const char* name : {"books/", "book.xlsx"}) {
    SCOPED_TRACE(name);
    const std::string target = folder_.Path(name);
    EXPECT_EQ(TryInto(target, {year, folder_.Path("copy.xml")}).err,
              "saft: " + folder_.Path("copy.xml") + ": is the same as " + year + "\n");
    EXPECT_EQ(TryInto(target, {year, month}, {"--replace"}).err,
              "saft: " + month + ": is of the same company as " + year +
                  ", which is from 2012-01-01 to 2012-12-31, and the periods overlap; export them one by one\n");
    EXPECT_THAT(folder_.Names(), ElementsAre("copy.xml", kDataset, "month.xml", "year.xml"));
  }
}

class ExportMeanwhileTest : public testing::SlowToolTest, public ::testing::WithParamInterface<std::string> {};

TEST_P(ExportMeanwhileTest, AFileThatChangesIsToldAndNothingOfItIsThere) {
  WriteValid(3000);
  ASSERT_EQ(Create().code, 0);
  const std::string file = In("company.xml");
  std::filesystem::rename(Output(), file);
  StartSlowly({"export", file, "--to", folder_.Path(GetParam())});
  // It is read for the first time, or else for the second.
  AwaitOpen(file);
  std::ofstream(file, std::ios::app) << "<!-- more -->";
  const testing::Outcome outcome = AwaitEnd();
  EXPECT_EQ(outcome.code, 2);
  EXPECT_EQ(outcome.err, "saft: " + file + ": was changed while it was read; run the command again\n");
  EXPECT_THAT(folder_.Names(), ElementsAre(kDataset, "err"));
}

INSTANTIATE_TEST_SUITE_P(All, ExportMeanwhileTest, ::testing::Values("books.db", "books.xlsx", "books/"));

TEST_F(TargetChoiceTest, WhatIsThereAndNotToBeReplacedIsTold) {
  const std::string file = File("a.xml", "1", "2012-01-01", "2012-12-31");
  const std::string book = folder_.Write("book.xlsx", "mine");
  std::filesystem::create_directory(folder_.Path("books"));
  folder_.Write("books/mine", "mine");
  const std::string books = folder_.Path("books/");
  EXPECT_EQ(TryInto(book, {file}).err, "saft: " + book + ": is there already; --replace replaces it\n");
  EXPECT_EQ(TryInto(book, {file}, {"--lang", "pt"}).err, "saft: " + book + ": já existe; --replace substitui-o\n");
  EXPECT_EQ(
      TryInto(books, {file}).err,
      "saft: " + books + ": is there already and is not empty; --replace replaces a folder that has only tables\n");
  EXPECT_EQ(TryInto(books, {file}, {"--lang", "pt"}).err,
            "saft: " + books + ": já existe e não está vazia; --replace substitui uma pasta que só tem tabelas\n");
  EXPECT_EQ(testing::ReadBytes(book), "mine");
}

// Nobody looks for CSV files in a folder that is named as a database.
TEST_F(TargetChoiceTest, AFolderNamedAsAFileIsRefused) {
  const std::string file = File("a.xml", "1", "2012-01-01", "2012-12-31");
  for (const char* name : {"books.db", "book.xlsx"}) {
    const std::string target = folder_.Path(name);
    std::filesystem::create_directory(target);
    EXPECT_EQ(TryInto(target, {file}).err, "saft: " + target + ": is a folder\n");
    EXPECT_EQ(TryInto(target, {file}, {"--lang", "pt"}).err, "saft: " + target + ": é uma pasta\n");
    EXPECT_EQ(TryInto(target + "/", {file}).code, 0);
  }
}

TEST_F(TargetChoiceTest, TargetsAndFormatsThatAreNotKnownAreTold) {
  const std::string file = File("a.xml", "1", "2012-01-01", "2012-12-31");
  EXPECT_EQ(TryInto("books.ods", {file}).err,
            "saft: \"books.ods\" is no target that is known; a database ends in .db or begins with postgresql://, a "
            "workbook ends in .xlsx, "
            "a folder in /\n");
  EXPECT_EQ(TryInto("books.xlsx", {file}, {"--partition"}).err,
            "saft: \"books.xlsx\" is no folder, which ends in /: --format and --partition are for those\n");
  EXPECT_EQ(TryInto(folder_.Path("books/"), {file}, {"--format", "xml"}).err,
            "saft: \"xml\" is no format that is known; there are csv and jsonl\n");
}

}  // namespace
}  // namespace zevo::saft
