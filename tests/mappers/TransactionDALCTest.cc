// SPDX-License-Identifier: Apache-2.0
#include <zevo/mappers/TransactionDALC.h>

#include <memory>
#include <string>
#include <vector>

#include "tests/mappers/MapperTest.h"
#include "tests/mappers/Records.h"

namespace zevo {
namespace {

using testing::Describe;
using testing::FullTransaction;
using testing::FullTransactionLine;
using testing::JournalOf;
using testing::NumberOf;
using testing::OneLine;

constexpr int32_t kInvalidExpression = 1207;  // XML_XPATH_EXPR_ERROR

constexpr std::string_view kTwoJournals =
    "<GeneralLedgerEntries><Journal><JournalID>J1</JournalID></Journal>"
    "<Journal><JournalID>J2</JournalID></Journal></GeneralLedgerEntries>";

class TransactionDALCTest : public testing::MapperTest {
 protected:
  void Create(const Transaction& transaction, const std::shared_ptr<Journal>& journal = nullptr) {
    TransactionDALC().CreateTransaction(transaction, journal.get(), helper_);
  }
  std::shared_ptr<Transaction> Read(IDALReader& reader, const std::shared_ptr<Journal>& journal, bool first = true) {
    std::shared_ptr<Transaction> transaction;
    TransactionDALC().ReadTransaction(transaction, journal.get(), reader, first);
    return transaction;
  }
  int32_t Count(std::string_view content, const std::shared_ptr<Journal>& journal) {
    return TransactionDALC().Transactions(journal.get(), Reading(content));
  }
  /// Begins a section in which each journal holds its identifier alone.
  void BeginJournals(const std::vector<std::string>& identifiers) {
    std::string content = "<GeneralLedgerEntries>";
    for (const std::string& id : identifiers) content += "<Journal><JournalID>" + id + "</JournalID></Journal>";
    Begin(content + "</GeneralLedgerEntries>");
  }
};

std::string EmptyTransaction() {
  return "<Transaction><TransactionID></TransactionID><Period></Period><TransactionDate></TransactionDate>"
         "<Description></Description><DocArchivalNumber></DocArchivalNumber><TransactionType></TransactionType>"
         "<GLPostingDate></GLPostingDate></Transaction>";
}

TEST_F(TransactionDALCTest, WritesEveryProperty) {
  BeginJournals({"J1"});
  const auto transaction = FullTransaction();
  transaction->Line()->Add(FullTransactionLine("2"));
  Create(*transaction, JournalOf("J1"));
  EXPECT_EQ(Written(), OneLine(R"(
      <GeneralLedgerEntries>
        <Journal>
          <JournalID>J1</JournalID>
          <Transaction>
            <TransactionID>2008-03-01 J1 1</TransactionID>
            <Period>3</Period>
            <TransactionDate>2008-03-01</TransactionDate>
            <SourceID>ana</SourceID>
            <Description>venda</Description>
            <DocArchivalNumber>1</DocArchivalNumber>
            <TransactionType>N</TransactionType>
            <GLPostingDate>2008-03-02T09:30:00</GLPostingDate>
            <CustomerID>C1</CustomerID>
            <SupplierID>S1</SupplierID>
            <Line>
              <RecordID>1</RecordID>
              <AccountID>11</AccountID>
              <SourceDocumentID>FT 1</SourceDocumentID>
              <SystemEntryDate>2008-03-01T10:00:00</SystemEntryDate>
              <Description>linha</Description>
              <DebitAmount>10.5</DebitAmount>
            </Line>
            <Line>
              <RecordID>2</RecordID>
              <AccountID>11</AccountID>
              <SourceDocumentID>FT 1</SourceDocumentID>
              <SystemEntryDate>2008-03-01T10:00:00</SystemEntryDate>
              <Description>linha</Description>
              <DebitAmount>10.5</DebitAmount>
            </Line>
          </Transaction>
        </Journal>
      </GeneralLedgerEntries>)"));
}

TEST_F(TransactionDALCTest, TransactionWithoutLinesHasItsTenRowsAndNoLine) {
  BeginJournals({"J1"});
  const auto transaction = FullTransaction();
  transaction->Line()->Clear();
  Create(*transaction, JournalOf("J1"));
  EXPECT_NE(Written().find("<SupplierID>S1</SupplierID></Transaction>"), std::string::npos);
  EXPECT_EQ(Written().find("<Line>"), std::string::npos);
}

TEST_F(TransactionDALCTest, WritesAnEmptyTransactionWithItsRequiredElements) {
  BeginJournals({"J1"});
  Create(Transaction(), JournalOf("J1"));
  EXPECT_EQ(Written(), "<GeneralLedgerEntries><Journal><JournalID>J1</JournalID>" + EmptyTransaction() +
                           "</Journal></GeneralLedgerEntries>");
}

TEST_F(TransactionDALCTest, TypesAreWrittenAndReadByTheirCode) {
  const std::vector<std::pair<int, std::string>> cases = {
      {71, "<TransactionType>N</TransactionType>"}, {72, "<TransactionType>R</TransactionType>"},
      {73, "<TransactionType>A</TransactionType>"}, {74, "<TransactionType>J</TransactionType>"},
      {0, "<TransactionType></TransactionType>"},   {75, "<TransactionType></TransactionType>"}};
  for (const auto& [value, element] : cases) {
    BeginJournals({"J1"});
    Transaction transaction;
    transaction.set_TransactionType(static_cast<TransactionTypes>(value));
    Create(transaction, JournalOf("J1"));
    EXPECT_NE(Written().find(element), std::string::npos) << value;
    EXPECT_EQ(Read(ReadingBack(), JournalOf("J1"))->TransactionType(), value == 75 ? 0 : value);
  }
}

TEST_F(TransactionDALCTest, LandsUnderTheJournalOfItsIdentifier) {
  Begin(kTwoJournals);
  Create(Transaction(), JournalOf("J2"));
  EXPECT_EQ(Written(),
            "<GeneralLedgerEntries><Journal><JournalID>J1</JournalID></Journal>"
            "<Journal><JournalID>J2</JournalID>" +
                EmptyTransaction() + "</Journal></GeneralLedgerEntries>");
}

TEST_F(TransactionDALCTest, WithoutJournalLandsUnderTheFirst) {
  Begin(kTwoJournals);
  Create(Transaction());
  EXPECT_EQ(Written(), "<GeneralLedgerEntries><Journal><JournalID>J1</JournalID>" + EmptyTransaction() +
                           "</Journal><Journal><JournalID>J2</JournalID></Journal></GeneralLedgerEntries>");
}

TEST_F(TransactionDALCTest, OfTwoJournalsWithOneIdentifierTheFirstIsMeant) {
  BeginJournals({"J0", "J1", "J1"});
  Create(Transaction(), JournalOf("J1"));
  EXPECT_EQ(Written(),
            "<GeneralLedgerEntries><Journal><JournalID>J0</JournalID></Journal>"
            "<Journal><JournalID>J1</JournalID>" +
                EmptyTransaction() + "</Journal><Journal><JournalID>J1</JournalID></Journal></GeneralLedgerEntries>");
}

TEST_F(TransactionDALCTest, JournalIdentifiersAreLookedUpExactly) {
  for (const std::string_view other : {"j1", "J", "J11", "J1 ", " J1", "", "J1]", "*"}) {
    BeginJournals({"J1"});
    const std::string before = Written();
    EXPECT_ERROR(Create(Transaction(), JournalOf(other)), NumberOf(Message{251}), "TransactionDALC.CreateTransaction");
    EXPECT_EQ(Written(), before) << other;
  }
}

TEST_F(TransactionDALCTest, JournalIdentifiersMayHoldAnyOtherCharacter) {
  const std::vector<std::pair<std::string, std::string>> cases = {
      {"A & B <1>", "A &amp; B &lt;1&gt;"}, {"it's", "it's"}, {"a]b[c", "a]b[c"}, {"a/b=c", "a/b=c"}, {"", ""}};
  for (const auto& [id, xml] : cases) {
    BeginJournals({"J0", xml, "J9"});
    Create(Transaction(), JournalOf(id));
    EXPECT_EQ(TransactionDALC().Transactions(JournalOf(id).get(), ReadingBack()), 1) << id;
    EXPECT_TRUE(Read(ReadingBack(), JournalOf(id))) << id;
  }
}

TEST_F(TransactionDALCTest, TransactionForAJournalThatIsNotThereRaises251AndWritesNothing) {
  Begin(kTwoJournals);
  EXPECT_ERROR(Create(*FullTransaction(), JournalOf("J3")), NumberOf(Message{251}),
               "TransactionDALC.CreateTransaction");
  EXPECT_EQ(Written(), kTwoJournals);
}

TEST_F(TransactionDALCTest, CreateWithoutSectionOrJournalsRaises251AndWritesNothing) {
  for (const std::string_view content : {"", "<GeneralLedgerEntries/>", "<Journal/>"}) {
    Begin(content);
    const std::string before = Written();
    EXPECT_ERROR(Create(*FullTransaction()), NumberOf(Message{251}), "TransactionDALC.CreateTransaction");
    EXPECT_ERROR(Create(*FullTransaction(), JournalOf("J1")), NumberOf(Message{251}),
                 "TransactionDALC.CreateTransaction");
    EXPECT_EQ(Written(), before);
  }
}

TEST_F(TransactionDALCTest, JournalIdentifierWithADoubleQuoteIsAnInvalidExpressionAndWritesNothing) {
  const auto numberOf = [](auto code) { return testing::ErrorOf(code).Number(); };
  for (const std::string_view id : {"a\"b", "\"", "J1\" or \"1\"=\"1", "J1\"]/Transaction[Period=\""}) {
    const auto journal = JournalOf(id);
    Begin(kTwoJournals);
    EXPECT_EQ(numberOf([&] { Create(*FullTransaction(), journal); }), kInvalidExpression);
    EXPECT_EQ(Written(), kTwoJournals);
    IDALReader& reader = Reading(kTwoJournals);
    EXPECT_EQ(numberOf([&] { Read(reader, journal); }), kInvalidExpression);
    EXPECT_EQ(numberOf([&] { TransactionDALC().Transactions(journal.get(), reader); }), kInvalidExpression);
  }
}

TEST_F(TransactionDALCTest, FailureInALineLeavesWhatWasWrittenBefore) {
  BeginJournals({"J1"});
  Transaction transaction;
  auto line = std::make_shared<TransactionLine>();
  line->set_AccountID("\x01");
  transaction.Line()->Add(line);
  EXPECT_ERROR(Create(transaction, JournalOf("J1")), RunTimeError::kInvalidCall, kRunTimeSource);
  EXPECT_NE(Written().find("<GLPostingDate></GLPostingDate><Line><RecordID></RecordID></Line></Transaction>"),
            std::string::npos);
}

constexpr std::string_view kTwoWithTransactions =
    "<GeneralLedgerEntries>"
    "<Journal><JournalID>J1</JournalID>"
    "<Transaction><TransactionID>1</TransactionID></Transaction>"
    "<Transaction><TransactionID>2</TransactionID></Transaction></Journal>"
    "<Journal><JournalID>J2</JournalID>"
    "<Transaction><TransactionID>3</TransactionID></Transaction></Journal>"
    "<Journal><JournalID>J3</JournalID></Journal>"
    "</GeneralLedgerEntries>";

TEST_F(TransactionDALCTest, ReadsEveryProperty) {
  const auto transaction = Read(Reading(OneLine(R"(
      <GeneralLedgerEntries>
        <Journal>
          <JournalID>J1</JournalID>
          <Transaction>
            <TransactionID>a</TransactionID>
            <Period>b</Period>
            <TransactionDate>c</TransactionDate>
            <SourceID>d</SourceID>
            <Description>e</Description>
            <DocArchivalNumber>f</DocArchivalNumber>
            <TransactionType>R</TransactionType>
            <GLPostingDate>g</GLPostingDate>
            <CustomerID>h</CustomerID>
            <SupplierID>i</SupplierID>
            <Line>
              <RecordID>j</RecordID>
              <AccountID>k</AccountID>
              <SourceDocumentID>l</SourceDocumentID>
              <SystemEntryDate>m</SystemEntryDate>
              <Description>n</Description>
              <DebitAmount>1.5</DebitAmount>
            </Line>
            <Line>
              <RecordID>o</RecordID>
              <CreditAmount>2.5</CreditAmount>
            </Line>
          </Transaction>
        </Journal>
      </GeneralLedgerEntries>)")),
                                JournalOf("J1"));
  ASSERT_TRUE(transaction);
  EXPECT_EQ(Describe(*transaction),
            "TransactionID=a\nPeriod=b\nTransactionDate=c\nSourceID=d\nDescription=e\nDocArchivalNumber=f\n"
            "TransactionType=72\nGLPostingDate=g\nCustomerID=h\nSupplierID=i\nLine[1].RecordID=j\nLine[1].AccountID=k\n"
            "Line[1].SourceDocumentID=l\nLine[1].SystemEntryDate=m\nLine[1].Description=n\nLine[1].DebitAmount=1.5\n"
            "Line[2].RecordID=o\nLine[2].CreditAmount=2.5\n");
}

TEST_F(TransactionDALCTest, LinesAreFoundByTheirRecordID) {
  const auto transaction = Read(Reading("<GeneralLedgerEntries><Journal><JournalID>J1</JournalID><Transaction>"
                                        "<Line><RecordID>x</RecordID></Line></Transaction></Journal>"
                                        "</GeneralLedgerEntries>"),
                                JournalOf("J1"));
  EXPECT_EQ(transaction->Line()->Item("x")->RecordID(), "x");
}

TEST_F(TransactionDALCTest, TwoLinesWithOneRecordIDCannotBeRead) {
  IDALReader& reader = Reading(
      "<GeneralLedgerEntries><Journal><JournalID>J1</JournalID><Transaction><Line><RecordID>x</RecordID></Line>"
      "<Line><RecordID>X</RecordID></Line></Transaction></Journal></GeneralLedgerEntries>");
  EXPECT_ERROR(Read(reader, JournalOf("J1")), RunTimeError::kDuplicateKey, kRunTimeSource);
}

TEST_F(TransactionDALCTest, DescriptionThatIsEmptyIsThatOfTheFirstLine) {
  // The text of an element is looked for in the whole of its parent, and the empty form is not found.
  const auto transaction = Read(Reading("<GeneralLedgerEntries><Journal><JournalID>J1</JournalID><Transaction>"
                                        "<Description/><Line><Description>l</Description></Line></Transaction>"
                                        "</Journal></GeneralLedgerEntries>"),
                                JournalOf("J1"));
  EXPECT_EQ(transaction->Description(), "l");
}

TEST_F(TransactionDALCTest, ReadsThoseOfOneJournalOneAfterTheOther) {
  IDALReader& reader = Reading(kTwoWithTransactions);
  EXPECT_EQ(Read(reader, JournalOf("J1"), true)->TransactionID(), "1");
  EXPECT_EQ(Read(reader, JournalOf("J1"), false)->TransactionID(), "2");
  EXPECT_EQ(Read(reader, JournalOf("J1"), false), nullptr);
  EXPECT_EQ(Read(reader, JournalOf("J2"), true)->TransactionID(), "3");
  EXPECT_EQ(Read(reader, JournalOf("J2"), false), nullptr);
  EXPECT_EQ(Read(reader, JournalOf("J3"), true), nullptr);
}

TEST_F(TransactionDALCTest, ReadWithoutJournalInAWholeFileRaises251) {
  IDALReader& reader = Reading(kTwoWithTransactions);
  EXPECT_ERROR(Read(reader, nullptr), NumberOf(Message{251}), "TransactionDALC.ReadTransaction");
}

TEST_F(TransactionDALCTest, ReadWithoutJournalTakesOneDirectlyUnderTheRoot) {
  IDALReader& reader =
      Reading("<GeneralLedgerEntries/><Journal><Transaction><Period>3</Period></Transaction></Journal>");
  EXPECT_EQ(Read(reader, nullptr)->Period(), "3");
}

TEST_F(TransactionDALCTest, ReadFromAJournalThatIsNotThereRaises251) {
  for (const std::string_view content :
       {"", "<GeneralLedgerEntries/>", "<Journal><JournalID>J9</JournalID></Journal>"}) {
    IDALReader& reader = Reading(content);
    EXPECT_ERROR(Read(reader, JournalOf("J9")), NumberOf(Message{251}), "TransactionDALC.ReadTransaction");
  }
}

TEST_F(TransactionDALCTest, CountsThoseOfOneJournal) {
  EXPECT_EQ(Count(kTwoWithTransactions, JournalOf("J1")), 2);
  EXPECT_EQ(Count(kTwoWithTransactions, JournalOf("J2")), 1);
  EXPECT_EQ(Count(kTwoWithTransactions, JournalOf("J3")), 0);
  EXPECT_EQ(Count(kTwoWithTransactions, JournalOf("J4")), 0);
  EXPECT_EQ(Count("", JournalOf("J1")), 0);
}

TEST_F(TransactionDALCTest, WithoutJournalCountsAcrossAllJournals) {
  EXPECT_EQ(Count(kTwoWithTransactions, nullptr), 3);
  EXPECT_EQ(Count("", nullptr), 0);
}

}  // namespace
}  // namespace zevo
