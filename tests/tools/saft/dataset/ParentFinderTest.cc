// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include <string>

#include "tests/tools/saft/ToolTest.h"

namespace zevo {
namespace {

using ::testing::ElementsAre;

// Rows of one file that belong to rows of another.
class ParentFinderTest : public testing::ToolTest {
 protected:
  void WriteEntries(std::string_view lines) const {
    Write("journals.csv", "JournalID\nJ\n");
    Write("transactions.csv", "JournalID,TransactionID\nJ,T1\nJ,T2\n");
    Write("transaction_lines.csv", std::string("TransactionID,RecordID\n").append(lines));
  }
  void WriteInvoices(std::string_view lines, std::string_view notes = "") const {
    Write("invoices.csv", "InvoiceNo\nNC 1\nNC 2\n");
    Write("invoice_lines.csv", std::string("InvoiceNo,LineNumber\n").append(lines));
    if (!notes.empty()) Write("credit_notes.csv", std::string("InvoiceNo,LineNumber,Reference\n").append(notes));
  }
};

TEST_F(ParentFinderTest, LinesFindTheirTransactionInWhateverOrderTheyCome) {
  WriteEntries("T2,a\nT1,b\nT2,c\n");
  ExpectCreated();
  EXPECT_THAT(Texts("RecordID"), ElementsAre("b", "a", "c"));
}

TEST_F(ParentFinderTest, LinesFindTheirInvoiceInWhateverOrderTheyCome) {
  WriteInvoices("NC 2,1\nNC 1,2\nNC 2,3\n");
  ExpectCreated();
  EXPECT_THAT(Texts("LineNumber"), ElementsAre("2", "1", "3"));
}

TEST_F(ParentFinderTest, CreditNotesFindTheirLine) {
  WriteInvoices("NC 1,1\nNC 1,2\nNC 2,1\n", "NC 2,1,FT 3\nNC 1,2,FT 1\nNC 1,2,FT 2\n");
  ExpectCreated();
  EXPECT_THAT(Texts("Reference"), ElementsAre("FT 1", "FT 2", "FT 3"));
  EXPECT_EQ(Texts("References").size(), 2U);
}

TEST_F(ParentFinderTest, TransactionsStandInTheirJournal) {
  Write("journals.csv", "JournalID\nJ1\nJ2\n");
  Write("transactions.csv", "JournalID,TransactionID\nJ2,T1\nJ1,T2\nJ2,T3\n");
  ExpectCreated();
  EXPECT_THAT(Texts("TransactionID"), ElementsAre("T2", "T1", "T3"));
}

TEST_F(ParentFinderTest, AShortenedKeyIsFoundByTheWholeOne) {
  const std::string id(31, 'J');
  Write("journals.csv", "JournalID\n" + id + "\n");
  Write("transactions.csv", "JournalID,TransactionID\n" + id + ",T1\n");
  EXPECT_EQ(Create().code, 0);
  EXPECT_THAT(Texts("TransactionID"), ElementsAre("T1"));
}

TEST_F(ParentFinderTest, ATransactionNeedsItsJournal) {
  Write("journals.csv", "JournalID\nJ\n");
  Write("transactions.csv", "JournalID,TransactionID\nJ,T1\nX,T2\n");
  ExpectRefused(In("transactions.csv") + ":3: JournalID: \"X\": not in journals.csv");
}

TEST_F(ParentFinderTest, ATransactionWithoutAnyJournalIsRefused) {
  Write("transactions.csv", "JournalID,TransactionID\nJ,T1\n");
  ExpectRefused(In("transactions.csv") + ":2: JournalID: \"J\": not in journals.csv");
}

TEST_F(ParentFinderTest, ATransactionLineNeedsItsTransaction) {
  WriteEntries("T1,1\nt1,1\n");
  ExpectRefused(In("transaction_lines.csv") + ":3: TransactionID: \"t1\": not in transactions.csv");
}

TEST_F(ParentFinderTest, ATransactionLineWithoutAnyTransactionIsRefused) {
  Write("transaction_lines.csv", "TransactionID,RecordID\nT1,1\n");
  ExpectRefused(In("transaction_lines.csv") + ":2: TransactionID: \"T1\": not in transactions.csv");
}

TEST_F(ParentFinderTest, AnInvoiceLineNeedsItsInvoice) {
  WriteInvoices("NC 1,1\n,1\n");
  ExpectRefused(In("invoice_lines.csv") +
                ":3: InvoiceNo: \"\": is empty; name one of invoices.csv, or delete the row if it holds totals");
  EXPECT_EQ(Run({"create", "--lang", "pt", "--no-validate", folder_.Path(kDataset), Output()}).err,
            "saft: " + In("invoice_lines.csv") +
                ":3: InvoiceNo: \"\": está vazia; diga uma de invoices.csv, ou apague a linha se for de totais\n");
}

TEST_F(ParentFinderTest, ACreditNoteNeedsItsInvoice) {
  WriteInvoices("NC 1,1\n", "NC 3,1,FT 1\n");
  ExpectRefused(In("credit_notes.csv") + ":2: InvoiceNo: \"NC 3\": not in invoices.csv");
}

TEST_F(ParentFinderTest, ACreditNoteNeedsItsLine) {
  WriteInvoices("NC 1,1\nNC 2,2\n", "NC 1,2,FT 1\n");
  ExpectRefused(In("credit_notes.csv") + ":2: LineNumber: \"2\": no such line in its invoice");
}

TEST_F(ParentFinderTest, TheLineOfACreditNoteIsANumber) {
  WriteInvoices("NC 1,1\n", "NC 1,01,FT 1\nNC 1,um,FT 1\n");
  ExpectRefused(In("credit_notes.csv") + ":3: LineNumber: \"um\": not a whole number");
}

class ParentFinderRepeatedKeyTest : public ParentFinderTest {
 protected:
  void ExpectToldAt(const std::string& place) const {
    const testing::Outcome outcome = Create();
    EXPECT_EQ(outcome.code, 0);
    EXPECT_EQ(outcome.err, "saft: 1 key repeated in one document and kept\n  " + place + "\n");
  }
};

TEST_F(ParentFinderRepeatedKeyTest, ARecordIDIsKept) {
  WriteEntries("T1,a\nT2,a\nT1,b\nT1,A\n");
  ExpectToldAt(In("transaction_lines.csv") + ":5: RecordID: \"A\"");
  EXPECT_THAT(Texts("RecordID"), ElementsAre("a", "b", "A", "a"));
}

TEST_F(ParentFinderRepeatedKeyTest, ALineNumberIsKept) {
  WriteInvoices("NC 1,1\nNC 2,1\nNC 2,2\nNC 2,01\n");
  ExpectToldAt(In("invoice_lines.csv") + ":5: LineNumber: \"01\"");
  EXPECT_THAT(Texts("LineNumber"), ElementsAre("1", "1", "2", "1"));
}

TEST_F(ParentFinderRepeatedKeyTest, AReferenceIsKept) {
  WriteInvoices("NC 1,1\nNC 1,2\n", "NC 1,1,FT 1\nNC 1,2,FT 1\nNC 1,1,FT 1\n");
  ExpectToldAt(In("credit_notes.csv") + ":4: Reference: \"FT 1\"");
  EXPECT_THAT(Texts("Reference"), ElementsAre("FT 1", "FT 1", "FT 1"));
}

struct Missing {
  const char* file;
  const char* columns;
  const char* missing;
};

class ParentFinderMissingColumnTest : public testing::ToolTest, public ::testing::WithParamInterface<Missing> {};

TEST_P(ParentFinderMissingColumnTest, IsRefused) {
  Write(GetParam().file, std::string(GetParam().columns) + "\n");
  ExpectRefused(In(GetParam().file) + ":1: column \"" + GetParam().missing + "\" is missing");
}

INSTANTIATE_TEST_SUITE_P(All, ParentFinderMissingColumnTest,
                         ::testing::Values(Missing{"customers.csv", "CompanyName", "CustomerID"},
                                           Missing{"transactions.csv", "TransactionID", "JournalID"},
                                           Missing{"transaction_lines.csv", "RecordID", "TransactionID"},
                                           Missing{"transaction_lines.csv", "TransactionID", "RecordID"},
                                           Missing{"invoice_lines.csv", "LineNumber", "InvoiceNo"},
                                           Missing{"order_references.csv", "LineNumber", "InvoiceNo"},
                                           Missing{"credit_notes.csv", "InvoiceNo,Reference", "LineNumber"}));

}  // namespace
}  // namespace zevo
