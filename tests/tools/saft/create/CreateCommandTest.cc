// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <algorithm>
#include <filesystem>
#include <limits>
#include <string>
#include <vector>

#include "tests/support/Sanitizers.h"
#include "tests/tools/saft/ToolTest.h"

namespace zevo {
namespace {

using ::testing::ElementsAre;

class CreateCommandTest : public testing::ToolTest {
 protected:
  // A dataset with every file, one record in each.
  void WriteEverything() const {
    Write("header.csv", "BusinessName\nCasa\n");
    Write("general_ledger.csv", "AccountID\n11\n");
    Write("customers.csv", "CustomerID\nC1\n");
    Write("suppliers.csv", "SupplierID\nF1\n");
    Write("products.csv", "ProductCode\nP1\n");
    Write("tax_table.csv", "TaxCode,TaxPercentage\nNOR,23\n");
    Write("journals.csv", "JournalID\nJ1\n");
    Write("transactions.csv", "JournalID,TransactionID\nJ1,T1\n");
    Write("transaction_lines.csv", "TransactionID,RecordID,DebitAmount,CreditAmount\nT1,1,10.25,\nT1,2,,10.25\n");
    Write("invoices.csv", "InvoiceNo\nNC 1\n");
    Write("invoice_lines.csv", "InvoiceNo,LineNumber,DebitAmount\nNC 1,1,5\n");
    Write("order_references.csv", "InvoiceNo,LineNumber,OriginatingOn\nNC 1,1,E 1\n");
    Write("credit_notes.csv", "InvoiceNo,LineNumber,Reference\nNC 1,1,FT 1\n");
  }
  void Remove(std::string_view name) const { std::filesystem::remove(In(name)); }
};

TEST_F(CreateCommandTest, SectionsStandInTheOrderOfTheSchema) {
  WriteEverything();
  ExpectCreated();
  const std::string bytes = testing::ReadBytes(Output());
  size_t last = 0;
  for (const char* start :
       {"<Header>", "<MasterFiles>", "<GeneralLedger>", "<Customer>", "<Supplier>", "<Product>", "<TaxTable>",
        "<GeneralLedgerEntries>", "<Journal>", "<Transaction>", "<SourceDocuments>", "<SalesInvoices>", "<Invoice>"}) {
    const size_t at = bytes.find(start);
    ASSERT_NE(at, std::string::npos) << start;
    EXPECT_GT(at, last) << start;
    last = at;
  }
}

TEST_F(CreateCommandTest, TotalsOfTheLedgerAreThoseOfItsLines) {
  Write("journals.csv", "JournalID\nJ1\nJ2\n");
  Write("transactions.csv", "JournalID,TransactionID\nJ1,T1\nJ2,T2\nJ1,T3\n");
  Write("transaction_lines.csv",
        "TransactionID,RecordID,DebitAmount,CreditAmount\nT1,1,10.25,\nT1,2,,4\nT2,1,0.5,\nT3,1,,100.1\n");
  ExpectCreated();
  EXPECT_THAT(Texts("NumberOfEntries"), ElementsAre("3"));
  EXPECT_THAT(Texts("TotalDebit"), ElementsAre("10.75"));
  EXPECT_THAT(Texts("TotalCredit"), ElementsAre("104.10"));
}

TEST_F(CreateCommandTest, TotalsOfInvoicesLeaveOutTheCancelled) {
  Write("invoices.csv", "InvoiceNo,TransactionID\nFT 1,T1\nFT 2,ANULADO\nNC 1,T2\n");
  Write("invoice_lines.csv",
        "InvoiceNo,LineNumber,DebitAmount,CreditAmount\nFT 1,1,,10.25\nFT 1,2,,1\nFT 2,1,,50\nNC 1,1,0.5,\n");
  ExpectCreated();
  EXPECT_EQ(Texts("Invoice").size(), 3U);
  EXPECT_THAT(Texts("NumberOfEntries"), ElementsAre("2"));
  EXPECT_THAT(Texts("TotalDebit"), ElementsAre(".50"));
  EXPECT_THAT(Texts("TotalCredit"), ElementsAre("11.25"));
}

struct Absence {
  std::vector<std::string> files;
  std::vector<std::string> elements;  ///< that are not there either
};

class CreateCommandAbsentFileTest : public CreateCommandTest, public ::testing::WithParamInterface<Absence> {};

TEST_P(CreateCommandAbsentFileTest, LeavesOutItsRecords) {
  WriteEverything();
  for (const std::string& file : GetParam().files) Remove(file);
  ExpectCreated();
  for (const char* element :
       {"Header", "GeneralLedger", "Customer", "Supplier", "Product", "TaxTable", "GeneralLedgerEntries", "Journal",
        "Transaction", "RecordID", "SourceDocuments", "Invoice", "LineNumber", "OrderReferences", "References"}) {
    const bool absent = std::ranges::count(GetParam().elements, element) > 0;
    EXPECT_EQ(Has(element), !absent) << element;
  }
}

INSTANTIATE_TEST_SUITE_P(
    All, CreateCommandAbsentFileTest,
    ::testing::Values(Absence{{}, {}}, Absence{{"general_ledger.csv"}, {"GeneralLedger"}},
                      Absence{{"customers.csv"}, {"Customer"}}, Absence{{"suppliers.csv"}, {"Supplier"}},
                      Absence{{"products.csv"}, {"Product"}}, Absence{{"tax_table.csv"}, {"TaxTable"}},
                      Absence{{"journals.csv", "transactions.csv", "transaction_lines.csv"},
                              {"GeneralLedgerEntries", "Journal", "Transaction", "RecordID"}},
                      Absence{{"transaction_lines.csv"}, {"RecordID"}},
                      Absence{{"invoices.csv", "invoice_lines.csv", "order_references.csv", "credit_notes.csv"},
                              {"SourceDocuments", "Invoice", "LineNumber", "OrderReferences", "References"}},
                      Absence{{"invoice_lines.csv", "order_references.csv", "credit_notes.csv"},
                              {"LineNumber", "OrderReferences", "References"}},
                      Absence{{"order_references.csv"}, {"OrderReferences"}},
                      Absence{{"credit_notes.csv"}, {"References"}}));

TEST_F(CreateCommandTest, WithoutMasterFilesThereIsNoSuchSection) {
  Write("header.csv", "BusinessName\nCasa\n");
  ExpectCreated();
  EXPECT_FALSE(Has("MasterFiles"));
}

TEST_F(CreateCommandTest, JournalsWithoutTransactionsAreWritten) {
  Write("journals.csv", "JournalID\nJ1\nJ2\nJ3\n");
  Write("transactions.csv", "JournalID,TransactionID\nJ2,T1\n");
  ExpectCreated();
  EXPECT_THAT(Texts("JournalID"), ElementsAre("J1", "J2", "J3"));
}

TEST_F(CreateCommandTest, JournalsAreWrittenWhenThereAreNoTransactionsYet) {
  Write("journals.csv", "JournalID\nJ1\n");
  Write("transactions.csv", "JournalID,TransactionID\n");
  ExpectCreated();
  EXPECT_THAT(Texts("JournalID"), ElementsAre("J1"));
  EXPECT_THAT(Texts("NumberOfEntries"), ElementsAre("0"));
}

TEST_F(CreateCommandTest, WithoutAFileOfTransactionsThereIsNoLedgerSection) {
  Write("journals.csv", "JournalID\nJ1\n");
  const testing::Outcome outcome = Create();
  EXPECT_EQ(outcome.code, 0);
  EXPECT_EQ(outcome.err, "saft: " + In("journals.csv") + ": not written, there is no transactions.csv\n");
  EXPECT_FALSE(Has("GeneralLedgerEntries"));
}

TEST_F(CreateCommandTest, EmptySectionsAreLeftOut) {
  Write("transactions.csv", "JournalID,TransactionID\n");
  Write("invoices.csv", "InvoiceNo\n");
  Write("invoice_lines.csv", "InvoiceNo,LineNumber\n");
  ExpectCreated();
  EXPECT_FALSE(Has("GeneralLedgerEntries"));
  EXPECT_FALSE(Has("SourceDocuments"));
}

TEST_F(CreateCommandTest, JournalsAndTransactionsWithoutRowsMakeAnEmptyLedgerSection) {
  Write("journals.csv", "JournalID\n");
  Write("transactions.csv", "JournalID,TransactionID\n");
  ExpectCreated();
  EXPECT_THAT(Texts("NumberOfEntries"), ElementsAre("0"));
  EXPECT_THAT(Texts("TotalDebit"), ElementsAre(".00"));
  EXPECT_FALSE(Has("Journal"));
}

TEST_F(CreateCommandTest, AHeaderWithoutABusinessNameIsTold) {
  const std::string told =
      "saft: 1 absent text written as an empty element\n  " + In("header.csv") + ":2: BusinessName\n";
  for (const char* header : {"CompanyName\nCasa\n", "CompanyName,BusinessName\nCasa,\n"}) {
    Write("header.csv", header);
    const testing::Outcome outcome = Create();
    EXPECT_EQ(outcome.code, 0);
    EXPECT_EQ(outcome.err, told);
    EXPECT_TRUE(Has("BusinessName"));
    std::filesystem::remove(Output());
  }
}

class CreateCommandOrdersTest : public CreateCommandTest {
 protected:
  void WriteOrders(const std::string& lines, const std::string& orders) const {
    Write("invoices.csv", "InvoiceNo\nFT 1\nFT 2\n");
    Write("invoice_lines.csv", lines);
    Write("order_references.csv", "InvoiceNo,LineNumber,OriginatingOn,OrderDate\n" + orders);
  }
  std::string Told(std::string_view what) const { return "saft: " + std::string(what); }
};

TEST_F(CreateCommandOrdersTest, RowsFindTheirLine) {
  WriteOrders("InvoiceNo,LineNumber\nFT 1,1\nFT 1,2\nFT 2,1\n", "FT 2,1,E 3,2012-03-01\nFT 1,2,E 2,\nFT 1,1,,\n");
  ExpectCreated();
  EXPECT_EQ(Texts("OrderReferences").size(), 2U);
  EXPECT_TRUE(Has("OrderReferences"));
  EXPECT_THAT(Texts("OriginatingON"), ElementsAre("E 2", "E 3"));
  EXPECT_THAT(Texts("OrderDate"), ElementsAre("2012-03-01"));
}

TEST_F(CreateCommandOrdersTest, ASecondOneOfALineIsToldAndLeftOut) {
  WriteOrders("InvoiceNo,LineNumber,OrderReferences.OriginatingOn\nFT 1,1,\nFT 2,1,E 3\n",
              "FT 1,1,E 1,\nFT 1,01,E 2,2012-03-01\nFT 2,1,E 4,\n");
  const testing::Outcome outcome = Create();
  EXPECT_EQ(outcome.code, 0);
  EXPECT_EQ(outcome.err, Told("2 rows left out, a line holds only one order\n  ") + In("order_references.csv") +
                             ":3: LineNumber: \"01\"\n  " + In("order_references.csv") + ":4: LineNumber: \"1\"\n");
  EXPECT_THAT(Texts("OriginatingON"), ElementsAre("E 1", "E 3"));
}

TEST_F(CreateCommandOrdersTest, ALineThatIsNotThereIsAnError) {
  WriteOrders("InvoiceNo,LineNumber\nFT 1,1\n", "FT 1,2,E 1,\n");
  ExpectRefused(In("order_references.csv") + ":2: LineNumber: \"2\": no such line in its invoice");
}

TEST_F(CreateCommandOrdersTest, RowsOfLinesWithOneNumberGoToThemInTurn) {
  WriteOrders("InvoiceNo,LineNumber,ProductCode\nFT 1,1,a\nFT 1,1,b\nFT 1,1,c\n",
              "FT 1,1,E 1,\nFT 1,1,E 2,\nFT 1,1,E 3,\nFT 1,1,E 4,\n");
  Write("credit_notes.csv", "InvoiceNo,LineNumber,Reference\nFT 1,1,N 1\nFT 1,1,N 2\nFT 1,1,N 3\nFT 1,1,N 4\n");
  const std::string orders = In("order_references.csv");
  const std::string notes = In("credit_notes.csv");
  const std::string one = ": LineNumber: \"1\"\n";
  const testing::Outcome outcome = Create();
  EXPECT_EQ(outcome.code, 0);
  EXPECT_EQ(outcome.err, Told("1 row left out, a line holds only one order\n  ") + orders + ":5" + one +
                             "saft: 2 keys repeated in one document and kept\n  " + In("invoice_lines.csv") + ":3" +
                             one + "  " + In("invoice_lines.csv") + ":4" + one +
                             "saft: 8 rows given to one of several lines of the same number\n  " + orders + ":2" + one +
                             "  " + orders + ":3" + one + "  " + orders + ":4" + one + "  " + orders + ":5" + one +
                             "  " + notes + ":2" + one + "  and 3 more\n");
  const std::string bytes = testing::ReadBytes(Output());
  size_t last = 0;
  for (const char* part : {">E 1<", ">a<", ">N 1<", ">N 4<", ">E 2<", ">b<", ">N 2<", ">E 3<", ">c<", ">N 3<"}) {
    const size_t at = bytes.find(part, last);
    ASSERT_NE(at, std::string::npos) << part;
    last = at;
  }
}

TEST_F(CreateCommandTest, AJournalIDWithAQuotationMarkNeedsTheOtherWay) {
  Write("journals.csv", "JournalID\nJ1\n\"J\"\"2\"\n");
  Write("transactions.csv", "JournalID,TransactionID\n\"J\"\"2\",T1\n");
  ExpectRefused(In("journals.csv") +
                ":3: JournalID: \"J\"2\": a JournalID with a quotation mark is written with --stream only");
  EXPECT_EQ(Create({"--stream"}).code, 0);
  EXPECT_THAT(Texts("JournalID"), ElementsAre("J1", "J&quot;2"));
}

TEST_F(CreateCommandTest, ThereIsOneHeader) {
  Write("header.csv", "CompanyName\nCasa\nLoja\n");
  ExpectRefused(In("header.csv") + ":3: a second header");
}

TEST_F(CreateCommandTest, ATextThatXmlCannotHoldIsToldWithItsRow) {
  Write("customers.csv", "CustomerID,CompanyName\nC1,Um\nC2,D\x01ois\n");
  const testing::Outcome outcome = Create();
  EXPECT_EQ(outcome.code, 2);
  EXPECT_EQ(outcome.err, "saft: " + In("customers.csv") +
                             ":3: CompanyName: \"D\\x01ois\": has a character that XML does not allow\n");
  EXPECT_FALSE(std::filesystem::exists(Output()));
}

TEST_F(CreateCommandTest, ALateErrorLeavesNoFileBehind) {
  WriteEverything();
  Write("credit_notes.csv", "InvoiceNo,LineNumber,Reference\nNC 1,9,FT 1\n");
  ExpectRefused(In("credit_notes.csv") + ":2: LineNumber: \"9\": no such line in its invoice");
}

TEST_F(CreateCommandTest, AnExistingFileStaysUntouched) {
  WriteEverything();
  folder_.Write("out.xml", "mine");
  const testing::Outcome outcome = Create();
  EXPECT_EQ(outcome.code, 2);
  EXPECT_EQ(outcome.err, "saft: " + Output() + ": is there already; --force replaces it\n");
  EXPECT_EQ(testing::ReadBytes(Output()), "mine");
  EXPECT_THAT(folder_.Names(), ElementsAre(kDataset, "out.xml"));
}

TEST_F(CreateCommandTest, AnExistingFileIsToldBeforeAnythingIsRead) {
  Write("customers.csv", "nothing\n");
  folder_.Write("out.xml", "mine");
  EXPECT_EQ(Create().err, "saft: " + Output() + ": is there already; --force replaces it\n");
}

TEST_F(CreateCommandTest, ForceReplacesNoFileOfTheDataset) {
  WriteEverything();
  const std::string before = testing::ReadBytes(In("header.csv"));
  const testing::Outcome outcome = Run({"create", "--force", folder_.Path(kDataset), In("header.csv")});
  EXPECT_EQ(outcome.code, 2);
  EXPECT_EQ(outcome.err, "saft: " + In("header.csv") + ": is a file of the dataset\n");
  EXPECT_EQ(testing::ReadBytes(In("header.csv")), before);
}

TEST_F(CreateCommandTest, WhereItCannotBeToldToBeValidNothingIsWritten) {
  WriteValid(1);
  EXPECT_EQ(RunInShell("saft create '" + folder_.Path(kDataset) + "' '" + Output() + "' >/dev/full").code, 2);
  EXPECT_THAT(folder_.Names(), ElementsAre(kDataset));
}

TEST_F(CreateCommandTest, ForceReplacesAFile) {
  WriteEverything();
  ExpectCreated();
  const std::string file = testing::ReadBytes(Output());
  folder_.Write("out.xml", "mine");
  std::filesystem::permissions(Output(), std::filesystem::perms::owner_read);
  for (const auto& options : {std::vector<std::string>{"--force"}, {"--force", "--stream"}}) {
    EXPECT_EQ(Create(options).err, "");
    EXPECT_THAT(folder_.Names(), ElementsAre(kDataset, "out.xml"));
    EXPECT_THAT(Texts("InvoiceNo"), ElementsAre("NC 1"));
    EXPECT_EQ(std::filesystem::status(Output()).permissions(), std::filesystem::perms::owner_read);
  }
  std::filesystem::remove(Output());
  EXPECT_EQ(Create({"--force"}).code, 0);
  EXPECT_EQ(testing::ReadBytes(Output()), file);
}

TEST_F(CreateCommandTest, ForceLeavesAFileWhenThereIsNoneToReplaceIt) {
  WriteEverything();
  folder_.Write("out.xml", "mine");
  EXPECT_EQ(Run({"create", "--force", folder_.Path(kDataset), Output()}).code, 2);
  Write("customers.csv", "nothing\n");
  EXPECT_EQ(Create({"--force"}).code, 2);
  EXPECT_EQ(testing::ReadBytes(Output()), "mine");
  EXPECT_THAT(folder_.Names(), ElementsAre(kDataset, "out.xml"));
}

TEST_F(CreateCommandTest, ForceReplacesALinkAndNotWhatItLeadsTo) {
  WriteEverything();
  folder_.Write("other.xml", "mine");
  std::filesystem::create_symlink("other.xml", Output());
  EXPECT_EQ(Create({"--force"}).code, 0);
  EXPECT_TRUE(std::filesystem::is_regular_file(std::filesystem::symlink_status(Output())));
  EXPECT_EQ(testing::ReadBytes(folder_.Path("other.xml")), "mine");
}

TEST_F(CreateCommandTest, AFileInAFolderThatIsNotThereIsAnError) {
  WriteEverything();
  const std::string file = folder_.Path("none/out.xml");
  const testing::Outcome outcome = Run({"create", folder_.Path(kDataset), file});
  EXPECT_EQ(outcome.code, 2);
  EXPECT_THAT(outcome.err, ::testing::StartsWith("saft: " + file + ": "));
  EXPECT_THAT(folder_.Names(), ElementsAre(kDataset));
}

TEST_F(CreateCommandTest, TheDatasetMustBeAFolder) {
  const std::string none = folder_.Path("none");
  EXPECT_EQ(Run({"create", none, Output()}).err, "saft: " + none + ": no such folder\n");
  const std::string file = folder_.Write("file", "");
  const testing::Outcome outcome = Run({"create", file, Output()});
  EXPECT_EQ(outcome.code, 2);
  EXPECT_EQ(outcome.err, "saft: " + file + ": not a folder\n");
  EXPECT_FALSE(std::filesystem::exists(Output()));
}

TEST_F(CreateCommandTest, AFolderWithNoneOfTheFilesIsNoDataset) {
  Remove("header.csv");
  Write("README.md", "CustomerID\nC1\n");
  ExpectRefused(folder_.Path(kDataset) +
                ": not a dataset: it has no header.csv, customers.csv, ... (to begin: saft template)");
}

struct UnknownFile {
  const char* name;
  const char* nearest;
};

class CreateCommandUnknownFileTest : public CreateCommandTest, public ::testing::WithParamInterface<UnknownFile> {};

TEST_P(CreateCommandUnknownFileTest, IsRefusedWithTheNearestName) {
  WriteEverything();
  const auto& [name, nearest] = GetParam();
  Write(name, "CustomerID\nC1\n");
  ExpectRefused(In(name) + ": is not a file of a dataset; did you mean " + nearest + "?");
}

INSTANTIATE_TEST_SUITE_P(All, CreateCommandUnknownFileTest,
                         ::testing::Values(UnknownFile{"clientes.csv", "customers.csv"},
                                           UnknownFile{"Customers.csv", "customers.csv"},
                                           UnknownFile{"customers.CSV", "customers.csv"},
                                           UnknownFile{"invoice-lines.csv", "invoice_lines.csv"},
                                           UnknownFile{"transactionlines.Csv", "transaction_lines.csv"},
                                           UnknownFile{"notas-credito.csv", "credit_notes.csv"}));

// Neither a column of it nor what would follow is told.
TEST_F(CreateCommandTest, AFirstRowThatNamesNoColumnIsToldOnce) {
  WriteEverything();
  for (const char* text : {"Clientes da Casa,,\nCustomerID,AccountID,CompanyName\nC1,2111,Um\n", "C1,2111,Um\n",
                           "Clientes da Casa\nCustomerID\nC1\n", "Código,Conta,Nome\nC1,2111,Um\n"}) {
    Write("customers.csv", text);
    ExpectRefused(In("customers.csv") +
                  ":1: this row names no column; the first row must have the names of the columns, such as CustomerID "
                  "(saft columns customers.csv)");
  }
  EXPECT_EQ(Run({"create", "--lang", "pt", "--no-validate", folder_.Path(kDataset), Output()}).err,
            "saft: " + In("customers.csv") +
                ":1: esta linha não tem o nome de nenhuma coluna; a primeira linha tem de ter os nomes das colunas, "
                "como CustomerID (saft columns customers.csv)\n");
}

TEST_F(CreateCommandTest, OtherFilesAreLeftAlone) {
  WriteEverything();
  for (const char* name : {"README.md", "notes.txt", "customers.csv~", "customers.csv.bak", "csv", ".csv"}) {
    Write(name, "not, a dataset\n");
  }
  ExpectCreated();
}

TEST_F(CreateCommandTest, TheSampleCompanyIsValid) {
  const testing::Outcome created = Run({"create", ZEVO_COMPANY_FOLDER, Output()});
  EXPECT_EQ(created.code, 0);
  EXPECT_EQ(created.err, "");
  EXPECT_EQ(Run({"validate", Output()}).code, 0);
}

class CreateCommandStreamedTest : public CreateCommandTest {
 protected:
  testing::Outcome CreateStreamed(const std::string& dataset, const std::string& file) const {
    return Run({"create", "--no-validate", "--stream", dataset, file});
  }
};

TEST_F(CreateCommandStreamedTest, TheFileIsOneLineInTheOrderOfTheSchema) {
  WriteEverything();
  Write("journals.csv", "JournalID\nJ1\nJ2\n");
  Write("transactions.csv", "JournalID,TransactionID\nJ2,T2\nJ1,T1\n");
  EXPECT_EQ(CreateStreamed(folder_.Path(kDataset), Output()).err, "");
  const std::string bytes = testing::ReadBytes(Output());
  EXPECT_EQ(bytes.find('\n'), std::string::npos);
  size_t last = 0;
  for (const char* part :
       {"<Header>", "<GeneralLedger>", "<Customer>", "<Supplier>", "<Product>", "<TaxTable><TaxTableEntry>",
        "<NumberOfEntries>2</NumberOfEntries><TotalDebit>10.25</TotalDebit><TotalCredit>10.25</TotalCredit>",
        "<JournalID>J1</JournalID>", "<TransactionID>T1</TransactionID>", "</Journal>", "<JournalID>J2</JournalID>",
        "<TransactionID>T2</TransactionID>", "</GeneralLedgerEntries>",
        "<NumberOfEntries>1</NumberOfEntries><TotalDebit>5.00</TotalDebit>", "<InvoiceNo>NC 1</InvoiceNo>",
        "<Reference>FT 1</Reference>", "</AuditFile>"}) {
    const size_t at = bytes.find(part, last);
    ASSERT_NE(at, std::string::npos) << part;
    last = at;
  }
}

TEST_F(CreateCommandStreamedTest, TheSampleCompanyIsValidAndHasTheSameRecords) {
  EXPECT_EQ(CreateStreamed(ZEVO_COMPANY_FOLDER, Output()).err, "");
  EXPECT_EQ(Run({"validate", Output()}).code, 0);
  const std::string built = folder_.Path("built.xml");
  ASSERT_EQ(Run({"create", ZEVO_COMPANY_FOLDER, built}).code, 0);
  for (const char* kind : {"Header", "GeneralLedger", "Customer", "Supplier", "Product", "GeneralLedgerEntries",
                           "Journal", "Transaction", "SalesInvoices", "Invoice"}) {
    EXPECT_EQ(Run({"list", "--json", Output(), kind}).out, Run({"list", "--json", built, kind}).out) << kind;
  }
}

TEST_F(CreateCommandStreamedTest, AnErrorLeavesNoFileBehind) {
  WriteEverything();
  Write("credit_notes.csv", "InvoiceNo,LineNumber,Reference\nNC 1,9,FT 1\n");
  const testing::Outcome outcome = CreateStreamed(folder_.Path(kDataset), Output());
  EXPECT_EQ(outcome.code, 2);
  EXPECT_EQ(outcome.err, "saft: " + In("credit_notes.csv") + ":2: LineNumber: \"9\": no such line in its invoice\n");
  EXPECT_THAT(folder_.Names(), ElementsAre(kDataset));
}

TEST_F(CreateCommandStreamedTest, ATextThatXmlCannotHoldIsToldWithItsRow) {
  Write("customers.csv", "CustomerID,CompanyName\nC1,Um\nC2,D\x01ois\n");
  const testing::Outcome outcome = CreateStreamed(folder_.Path(kDataset), Output());
  EXPECT_EQ(outcome.code, 2);
  EXPECT_EQ(outcome.err, "saft: " + In("customers.csv") +
                             ":3: CompanyName: \"D\\x01ois\": has a character that XML does not allow\n");
  EXPECT_THAT(folder_.Names(), ElementsAre(kDataset));
}

TEST_F(CreateCommandStreamedTest, AnExistingFileStaysUntouched) {
  WriteEverything();
  folder_.Write("out.xml", "mine");
  EXPECT_EQ(CreateStreamed(folder_.Path(kDataset), Output()).err,
            "saft: " + Output() + ": is there already; --force replaces it\n");
  EXPECT_EQ(testing::ReadBytes(Output()), "mine");
}

struct SpecialFile {
  const char* path;
  const char* message;
};

class CreateCommandSpecialFileTest : public CreateCommandTest, public ::testing::WithParamInterface<SpecialFile> {};

TEST_P(CreateCommandSpecialFileTest, IsNoFileToWrite) {
  WriteEverything();
  std::filesystem::create_directory(folder_.Path("folder"));
  ASSERT_EQ(mkfifo(folder_.Path("pipe").c_str(), 0600), 0);
  const std::string path = *GetParam().path == '/' ? GetParam().path : folder_.Path(GetParam().path);
  for (const auto& options : {std::vector<std::string>{}, {"--stream"}, {"--force"}}) {
    std::vector<std::string> arguments{"create", folder_.Path(kDataset), path};
    arguments.insert(arguments.end(), options.begin(), options.end());
    const testing::Outcome outcome = Run(arguments);
    EXPECT_EQ(outcome.code, 2);
    EXPECT_EQ(outcome.err, "saft: " + path + GetParam().message + "\n");
    EXPECT_TRUE(std::filesystem::exists(path));
  }
}

INSTANTIATE_TEST_SUITE_P(All, CreateCommandSpecialFileTest,
                         ::testing::Values(SpecialFile{"folder", ": is a folder"}, SpecialFile{"pipe", ": is a pipe"},
                                           SpecialFile{"/dev/full", ": is a device"}));

TEST_F(CreateCommandTest, ADatasetHasNoPipes) {
  WriteEverything();
  Remove("products.csv");
  ASSERT_EQ(mkfifo(In("products.csv").c_str(), 0600), 0);
  ExpectRefused(In("products.csv") + ": is a pipe");
}

TEST_F(CreateCommandTest, TotalsOutOfRangeAreToldWithTheRow) {
  Write("journals.csv", "JournalID\nJ1\n");
  Write("transactions.csv", "JournalID,TransactionID\nJ1,T1\nJ1,T2\n");
  Write("transaction_lines.csv", "TransactionID,RecordID,DebitAmount\nT1,1,900000000000000\nT2,1,900000000000000\n");
  const testing::Outcome outcome = Create();
  EXPECT_EQ(outcome.code, 2);
  EXPECT_EQ(outcome.err, "saft: " + In("transaction_lines.csv") +
                             ":3: the total of the section up to this row is too great for the file\n");
  EXPECT_THAT(folder_.Names(), ElementsAre(kDataset));
}

// Each file many times as long as another one, alone. Documents may come in any order, and their lines too.
TEST_F(CreateCommandStreamedTest, MemoryGrowsByNoMoreThanTheKeys) {
  if (testing::kSanitized) GTEST_SKIP() << "a sanitizer needs memory of its own";
  constexpr int kRows = 160'000;
  constexpr int64_t kBytesOfARow = 64;
  // The system's count is some hundred pages more or less, and has pages of libraries in it: so many rows that these
  // are little beside theirs, and the lesser of two runs.
  const auto memory = [&] {
    int64_t least = std::numeric_limits<int64_t>::max();
    for (int run = 0; run < 2; ++run) {
      const testing::Outcome outcome = Create({"--stream", "--force"});
      EXPECT_EQ(outcome.code, 0);
      least = std::min(least, outcome.most_memory);
    }
    return least;
  };
  const auto expect_bound = [&](const std::string& file, const auto& row) {
    std::string rows = testing::ReadBytes(In(file));
    const int64_t before = memory();
    for (int i = 1; i <= kRows; ++i) rows += row(std::to_string(i), std::to_string(kRows - i));
    Write(file, rows);
    EXPECT_LE(memory() - before, kBytesOfARow * kRows) << file;
  };
  WriteEverything();
  expect_bound("customers.csv", [](const std::string& up, const std::string&) { return "C" + up + "x\n"; });
  expect_bound("invoices.csv", [](const std::string& up, const std::string&) { return "FT " + up + "\n"; });
  Write("invoice_lines.csv", "InvoiceNo,LineNumber,DebitAmount,Description\nNC 1,1,5,\n");
  expect_bound("invoice_lines.csv", [](const std::string&, const std::string& down) {
    return "FT " + (down == "0" ? "1" : down) + ",1,1," + "\n";
  });
  Write("customers.csv", "CustomerID\nC1\n");
  expect_bound("transactions.csv", [](const std::string&, const std::string& down) { return "J1,X" + down + "\n"; });
}

// Work that grew with the square of the columns would take a minute here.
TEST_F(CreateCommandTest, ManyColumnsAreLookedThroughOnce) {
  constexpr int kColumns = 60'000;
  std::string heading = "ProductCode";
  for (int i = 0; i < kColumns; ++i) heading += ",c" + std::to_string(i);
  Write("products.csv", heading + "\n");
  const testing::Outcome outcome = Create();
  EXPECT_EQ(outcome.code, 2);
  EXPECT_THAT(outcome.err, ::testing::EndsWith("saft: " + In("products.csv") + ": 59950 more errors\n"));
}

// Work that grew with the square of the records would take minutes here.
TEST_F(CreateCommandTest, ManyRecordsFindTheirParents) {
  constexpr int kInvoices = 20000;
  std::string invoices = "InvoiceNo\n";
  std::string lines = "InvoiceNo,LineNumber,CreditAmount\n";
  for (int i = 0; i < kInvoices; ++i) {
    invoices += "FT " + std::to_string(i) + "\n";
    lines += "FT " + std::to_string(kInvoices - 1 - i) + ",1,1\n";
  }
  Write("invoices.csv", invoices);
  Write("invoice_lines.csv", lines);
  ExpectCreated();
  EXPECT_THAT(Texts("NumberOfEntries"), ElementsAre("20000"));
  EXPECT_THAT(Texts("TotalCredit"), ElementsAre("20000.00"));
}

}  // namespace
}  // namespace zevo
