// SPDX-License-Identifier: Apache-2.0
#include <zevo/mappers/TransactionLineDALC.h>

#include <memory>

#include "tests/mappers/MapperTest.h"
#include "tests/mappers/Records.h"

namespace zevo {
namespace {

using testing::Describe;
using testing::FullTransactionLine;
using testing::OneLine;

class TransactionLineDALCTest : public testing::MapperTest {
 protected:
  void Create(const TransactionLine& line) {
    TransactionLineDALC().CreateTransactionLine(line, helper_.CreateElement("Transaction", {}, {}, true), helper_);
  }
  std::shared_ptr<TransactionLine> Read(IDALReader& reader, bool first = true) {
    std::shared_ptr<TransactionLine> line;
    TransactionLineDALC().ReadTransactionLine(line, reader.GetElement("Transaction", {}, {}), reader, first);
    return line;
  }
};

TEST_F(TransactionLineDALCTest, DebitWinsWhenBothAmountsAreSet) {
  Create(*FullTransactionLine("1"));
  EXPECT_EQ(Written(), OneLine(R"(
      <Transaction>
        <Line>
          <RecordID>1</RecordID>
          <AccountID>11</AccountID>
          <SourceDocumentID>FT 1</SourceDocumentID>
          <SystemEntryDate>2008-03-01T10:00:00</SystemEntryDate>
          <Description>linha</Description>
          <DebitAmount>10.5</DebitAmount>
        </Line>
      </Transaction>)"));
}

TEST_F(TransactionLineDALCTest, DebitOfTenAndCreditOfTenWritesOnlyTheDebit) {
  TransactionLine line;
  line.set_DebitAmount(10);
  line.set_CreditAmount(10);
  Create(line);
  EXPECT_NE(Written().find("<Description></Description><DebitAmount>10</DebitAmount></Line>"), std::string::npos);
}

TEST_F(TransactionLineDALCTest, CreditIsWrittenWhenThereIsNoDebit) {
  const auto line = FullTransactionLine("1");
  line->set_DebitAmount(0);
  Create(*line);
  EXPECT_NE(Written().find("<Description>linha</Description><CreditAmount>7.25</CreditAmount></Line>"),
            std::string::npos);
}

TEST_F(TransactionLineDALCTest, EmptyLineCarriesACreditOfZero) {
  Create(TransactionLine());
  EXPECT_EQ(Written(), OneLine(R"(
      <Transaction>
        <Line>
          <RecordID></RecordID>
          <AccountID></AccountID>
          <SystemEntryDate></SystemEntryDate>
          <Description></Description>
          <CreditAmount>0</CreditAmount>
        </Line>
      </Transaction>)"));
}

TEST_F(TransactionLineDALCTest, NegativeDebitIsADebit) {
  TransactionLine line;
  line.set_DebitAmount(Amount::FromText("-0.01"));
  line.set_CreditAmount(5);
  Create(line);
  EXPECT_NE(Written().find("<DebitAmount>-0.01</DebitAmount></Line>"), std::string::npos);
}

TEST_F(TransactionLineDALCTest, DatesAreWrittenAsStored) {
  TransactionLine line;
  line.set_SystemEntryDate("01/03/2008");
  Create(line);
  EXPECT_NE(Written().find("<SystemEntryDate>01/03/2008</SystemEntryDate>"), std::string::npos);
}

TEST_F(TransactionLineDALCTest, ReadsEveryProperty) {
  const auto line = Read(
      Reading("<Transaction><Line><RecordID>a</RecordID><AccountID>b</AccountID><SourceDocumentID>c</SourceDocumentID>"
              "<SystemEntryDate>d</SystemEntryDate><Description>e</Description><DebitAmount>1.5</DebitAmount>"
              "<CreditAmount>2.25</CreditAmount></Line></Transaction>"));
  EXPECT_EQ(Describe(*line),
            "RecordID=a\nAccountID=b\nSourceDocumentID=c\nSystemEntryDate=d\nDescription=e\nDebitAmount=1.5\n"
            "CreditAmount=2.25\n");
}

TEST_F(TransactionLineDALCTest, AmountThatIsMissingReadsAsZero) {
  const auto line = Read(Reading("<Transaction><Line><CreditAmount>2</CreditAmount></Line></Transaction>"));
  EXPECT_EQ(Describe(*line), "CreditAmount=2\n");
}

TEST_F(TransactionLineDALCTest, ReadsOneAfterTheOther) {
  IDALReader& reader =
      Reading("<Transaction><Line><RecordID>1</RecordID></Line><Line><RecordID>2</RecordID></Line></Transaction>");
  EXPECT_EQ(Read(reader, true)->RecordID(), "1");
  EXPECT_EQ(Read(reader, false)->RecordID(), "2");
  EXPECT_EQ(Read(reader, false), nullptr);
}

}  // namespace
}  // namespace zevo
