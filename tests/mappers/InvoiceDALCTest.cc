// SPDX-License-Identifier: Apache-2.0
#include <gmock/gmock.h>
#include <zevo/mappers/InvoiceDALC.h>

#include <memory>
#include <string>
#include <vector>

#include "tests/mappers/MapperTest.h"
#include "tests/mappers/Records.h"

namespace zevo {
namespace {

using testing::Describe;
using testing::FullInvoice;
using ::testing::HasSubstr;
using testing::NumberOf;
using testing::OneLine;

constexpr std::string_view kSection = "<SourceDocuments><SalesInvoices/></SourceDocuments>";

class InvoiceDALCTest : public testing::MapperTest {
 protected:
  /// What an invoice with that change is written as, section and all.
  template <class Change>
  std::string WrittenWith(Change change) {
    Invoice invoice;
    change(invoice);
    Begin(kSection);
    InvoiceDALC().CreateInvoice(invoice, helper_);
    return Written();
  }
  std::shared_ptr<Invoice> Read(IDALReader& reader, bool first = true) {
    std::shared_ptr<Invoice> invoice;
    InvoiceDALC().ReadInvoice(invoice, reader, first);
    return invoice;
  }
  /// A section with one invoice of that content.
  IDALReader& ReadingInvoice(std::string_view content) {
    return Reading(std::string("<SourceDocuments><SalesInvoices><Invoice>")
                       .append(content)
                       .append("</Invoice></SalesInvoices></SourceDocuments>"));
  }
};

TEST_F(InvoiceDALCTest, WritesEveryProperty) {
  Begin(kSection);
  const auto invoice = FullInvoice();
  invoice->Line()->Clear();
  for (const int number : {2, 1}) {
    auto line = std::make_shared<InvoiceLine>();
    line->set_LineNumber(number);
    invoice->Line()->Add(line);
  }
  InvoiceDALC().CreateInvoice(*invoice, helper_);
  EXPECT_EQ(Written(), OneLine(R"(
      <SourceDocuments>
        <SalesInvoices>
          <Invoice>
            <InvoiceNo>FT A/1</InvoiceNo>
            <InvoiceStatus>N</InvoiceStatus>
            <Hash>h</Hash>
            <HashControl>1</HashControl>
            <Period>3</Period>
            <InvoiceDate>2008-03-01</InvoiceDate>
            <InvoiceType>FT</InvoiceType>
            <SelfBillingIndicator>1</SelfBillingIndicator>
            <SystemEntryDate>2008-03-01T10:00:00</SystemEntryDate>
            <TransactionID>T1</TransactionID>
            <CustomerID>C1</CustomerID>
            <ShipTo>
              <DeliveryID>D1</DeliveryID>
              <DeliveryDate>2008-03-02</DeliveryDate>
              <Address>
                <BuildingNumber>12</BuildingNumber>
                <StreetName>Rua A</StreetName>
                <AddressDetail>Rua A, 12</AddressDetail>
                <City>Faro</City>
                <PostalCode>1000-001</PostalCode>
                <Region>Lisboa</Region>
                <Country>ES</Country>
              </Address>
            </ShipTo>
            <ShipFrom>
              <DeliveryID>D2</DeliveryID>
              <DeliveryDate>2008-03-02</DeliveryDate>
              <Address>
                <BuildingNumber>12</BuildingNumber>
                <StreetName>Rua A</StreetName>
                <AddressDetail>Rua A, 12</AddressDetail>
                <City>Faro</City>
                <PostalCode>1000-001</PostalCode>
                <Region>Lisboa</Region>
                <Country>ES</Country>
              </Address>
            </ShipFrom>
            <Line>
              <LineNumber>2</LineNumber>
              <ProductCode></ProductCode>
              <ProductDescription></ProductDescription>
              <Quantity>0</Quantity>
              <UnitPrice>0</UnitPrice>
              <TaxPointDate></TaxPointDate>
              <Description></Description>
              <CreditAmount>0</CreditAmount>
              <SettlementAmount>0</SettlementAmount>
            </Line>
            <Line>
              <LineNumber>1</LineNumber>
              <ProductCode></ProductCode>
              <ProductDescription></ProductDescription>
              <Quantity>0</Quantity>
              <UnitPrice>0</UnitPrice>
              <TaxPointDate></TaxPointDate>
              <Description></Description>
              <CreditAmount>0</CreditAmount>
              <SettlementAmount>0</SettlementAmount>
            </Line>
            <DocumentTotals>
              <TaxPayable>0.17</TaxPayable>
              <NetTotal>3.125</NetTotal>
              <GrossTotal>3.295</GrossTotal>
              <Currency>
                <CurrencyCode>USD</CurrencyCode>
                <CurrencyDebitAmount>4.5</CurrencyDebitAmount>
              </Currency>
              <Settlement>
                <SettlementDiscount>5%</SettlementDiscount>
                <SettlementAmount>0.15</SettlementAmount>
                <SettlementDate>2008-04-01</SettlementDate>
                <PaymentMechanism>TB</PaymentMechanism>
              </Settlement>
            </DocumentTotals>
          </Invoice>
        </SalesInvoices>
      </SourceDocuments>)"));
}

TEST_F(InvoiceDALCTest, EmptyInvoiceHasItsRequiredElementsStatusAndTypeEmpty) {
  EXPECT_EQ(WrittenWith([](Invoice&) {}), OneLine(R"(
      <SourceDocuments>
        <SalesInvoices>
          <Invoice>
            <InvoiceNo></InvoiceNo>
            <InvoiceStatus></InvoiceStatus>
            <Hash></Hash>
            <InvoiceDate></InvoiceDate>
            <InvoiceType></InvoiceType>
            <SelfBillingIndicator>0</SelfBillingIndicator>
            <SystemEntryDate></SystemEntryDate>
            <CustomerID></CustomerID>
            <DocumentTotals>
              <TaxPayable>0</TaxPayable>
              <NetTotal>0</NetTotal>
              <GrossTotal>0</GrossTotal>
            </DocumentTotals>
          </Invoice>
        </SalesInvoices>
      </SourceDocuments>)"));
}

TEST_F(InvoiceDALCTest, EmptyCurrencyCarriesACreditOfZero) {
  EXPECT_THAT(WrittenWith([](Invoice& invoice) {
                invoice.DocumentTotals()->set_CurrencyValue(std::make_shared<CurrencyStructure>());
              }),
              HasSubstr("<Currency><CurrencyCreditAmount>0</CurrencyCreditAmount></Currency></DocumentTotals>"));
}

TEST_F(InvoiceDALCTest, CurrencyCarriesItsCreditWhenThereIsNoDebit) {
  EXPECT_THAT(WrittenWith([](Invoice& invoice) {
                auto currency = std::make_shared<CurrencyStructure>();
                currency->set_CurrencyCreditAmount(Amount::FromText("4.75"));
                invoice.DocumentTotals()->set_CurrencyValue(currency);
              }),
              HasSubstr("<Currency><CurrencyCreditAmount>4.75</CurrencyCreditAmount></Currency>"));
}

TEST_F(InvoiceDALCTest, EmptySettlementHasItsAmountOnlyAndNoPaymentMechanism) {
  EXPECT_THAT(
      WrittenWith([](Invoice& invoice) { invoice.DocumentTotals()->set_Settlement(std::make_shared<Settlement>()); }),
      HasSubstr("<Settlement><SettlementAmount>0</SettlementAmount></Settlement></DocumentTotals>"));
}

TEST_F(InvoiceDALCTest, TypesAreWrittenAndReadByTheirCode) {
  const std::vector<std::pair<int, std::string>> cases = {{41, "FT"}, {42, "ND"}, {43, "NC"}, {44, "VD"}, {45, "TV"},
                                                          {46, "TD"}, {47, "AA"}, {48, "DA"}, {49, "RP"}, {50, "RE"},
                                                          {51, "CS"}, {52, "LD"}, {53, "RA"}};
  for (const auto& [value, code] : cases) {
    const auto type = static_cast<InvoiceTypes>(value);
    EXPECT_THAT(WrittenWith([&](Invoice& invoice) { invoice.set_InvoiceType(type); }),
                HasSubstr("<InvoiceType>" + code + "</InvoiceType>"));
    EXPECT_EQ(Read(ReadingInvoice("<InvoiceType>" + code + "</InvoiceType>"))->InvoiceType(), value);
  }
}

TEST_F(InvoiceDALCTest, StatusesAreWrittenAndReadByTheirCode) {
  const std::vector<std::pair<int, std::string>> cases = {{81, "N"}, {82, "A"}, {83, "F"}, {84, "S"}};
  for (const auto& [value, code] : cases) {
    const auto status = static_cast<InvoiceStatuses>(value);
    EXPECT_THAT(WrittenWith([&](Invoice& invoice) { invoice.set_InvoiceStatus(status); }),
                HasSubstr("<InvoiceStatus>" + code + "</InvoiceStatus>"));
    EXPECT_EQ(Read(ReadingInvoice("<InvoiceStatus>" + code + "</InvoiceStatus>"))->InvoiceStatus(), value);
  }
}

TEST_F(InvoiceDALCTest, PaymentMechanismsAreWrittenAndReadByTheirCode) {
  const std::vector<std::pair<int, std::string>> cases = {
      {61, "<PaymentMechanism>NU</PaymentMechanism>"}, {62, "<PaymentMechanism>CH</PaymentMechanism>"},
      {63, "<PaymentMechanism>CC</PaymentMechanism>"}, {64, "<PaymentMechanism>CD</PaymentMechanism>"},
      {65, "<PaymentMechanism>TB</PaymentMechanism>"}, {66, "<PaymentMechanism>TR</PaymentMechanism>"}};
  for (const auto& [value, element] : cases) {
    const std::string written = WrittenWith([&, value = value](Invoice& invoice) {
      invoice.DocumentTotals()->set_Settlement(std::make_shared<Settlement>());
      invoice.DocumentTotals()->Settlement()->set_PaymentMechanism(static_cast<PaymentMechanisms>(value));
    });
    EXPECT_THAT(written, HasSubstr(element));
    EXPECT_EQ(Read(ReadingBack())->DocumentTotals()->Settlement()->PaymentMechanism(), value);
  }
}

TEST_F(InvoiceDALCTest, CodesThatAreNoneReadAsZero) {
  const auto invoice =
      Read(ReadingInvoice("<InvoiceStatus>n</InvoiceStatus><InvoiceType>ft</InvoiceType><DocumentTotals><Settlement>"
                          "<PaymentMechanism>XX</PaymentMechanism></Settlement></DocumentTotals>"));
  EXPECT_EQ(Describe(*invoice), "");
}

TEST_F(InvoiceDALCTest, CreateWithoutSectionRaises301AndWritesNothing) {
  for (const std::string_view content : {"", "<SourceDocuments/>", "<SalesInvoices/>"}) {
    Begin(content);
    const std::string before = Written();
    EXPECT_ERROR(InvoiceDALC().CreateInvoice(*FullInvoice(), helper_), NumberOf(Message{301}),
                 "InvoiceDALC.CreateInvoice");
    EXPECT_EQ(Written(), before);
  }
}

TEST_F(InvoiceDALCTest, FailurePartWayLeavesAnInvoiceHalfBuilt) {
  Begin(kSection);
  Invoice invoice;
  invoice.set_InvoiceNo("1");
  invoice.set_Hash("\x01");
  EXPECT_ERROR(InvoiceDALC().CreateInvoice(invoice, helper_), RunTimeError::kInvalidCall, kRunTimeSource);
  EXPECT_EQ(Written(),
            "<SourceDocuments><SalesInvoices><Invoice><InvoiceNo>1</InvoiceNo><InvoiceStatus></InvoiceStatus></Invoice>"
            "</SalesInvoices></SourceDocuments>");
}

constexpr std::string_view kInvoice = R"(
    <InvoiceNo>a</InvoiceNo>
    <InvoiceStatus>A</InvoiceStatus>
    <Hash>no</Hash>
    <HashControl>no</HashControl>
    <Period>b</Period>
    <InvoiceDate>c</InvoiceDate>
    <InvoiceType>NC</InvoiceType>
    <SelfBillingIndicator>1</SelfBillingIndicator>
    <SystemEntryDate>d</SystemEntryDate>
    <TransactionID>e</TransactionID>
    <CustomerID>f</CustomerID>
    <ShipTo><DeliveryID>g</DeliveryID><Address><City>h</City></Address></ShipTo>
    <ShipFrom><DeliveryDate>i</DeliveryDate></ShipFrom>
    <Line><LineNumber>1</LineNumber><Quantity>2</Quantity></Line>
    <Line><LineNumber>2</LineNumber><Quantity>3</Quantity></Line>
    <DocumentTotals>
      <TaxPayable>1.5</TaxPayable>
      <NetTotal>2.5</NetTotal>
      <GrossTotal>3.5</GrossTotal>
      <Currency>
        <CurrencyCode>j</CurrencyCode>
        <CurrencyDebitAmount>4.5</CurrencyDebitAmount>
        <CurrencyCreditAmount>5.5</CurrencyCreditAmount>
      </Currency>
      <Settlement>
        <SettlementDiscount>k</SettlementDiscount>
        <SettlementAmount>6.5</SettlementAmount>
        <SettlementDate>l</SettlementDate>
        <PaymentMechanism>CH</PaymentMechanism>
      </Settlement>
    </DocumentTotals>)";

constexpr std::string_view kDescription =
    "InvoiceNo=a\nInvoiceStatus=82\nPeriod=b\nInvoiceDate=c\nInvoiceType=43\nSystemEntryDate=d\nTransactionID=e\n"
    "CustomerID=f\nShipTo.DeliveryID=g\nShipTo.Address.City=h\nShipFrom.DeliveryDate=i\nDocumentTotals.TaxPayable=1.5\n"
    "DocumentTotals.NetTotal=2.5\nDocumentTotals.GrossTotal=3.5\nDocumentTotals.CurrencyValue.CurrencyCode=j\n"
    "DocumentTotals.CurrencyValue.CurrencyDebitAmount=4.5\nDocumentTotals.CurrencyValue.CurrencyCreditAmount=5.5\n"
    "DocumentTotals.Settlement.SettlementDiscount=k\nDocumentTotals.Settlement.SettlementAmount=6.5\n"
    "DocumentTotals.Settlement.SettlementDate=l\nDocumentTotals.Settlement.PaymentMechanism=62\n"
    "Line[1].LineNumber=1\nLine[1].Quantity=2\nLine[2].LineNumber=2\nLine[2].Quantity=3\n";

TEST_F(InvoiceDALCTest, ReadsEveryPropertyButThoseThatAreWrittenOnly) {
  EXPECT_EQ(Describe(*Read(ReadingInvoice(OneLine(kInvoice)))), kDescription);
}

TEST_F(InvoiceDALCTest, FlatInvoiceIsReadFromDirectlyUnderTheRootWithoutSections) {
  std::shared_ptr<Invoice> invoice;
  InvoiceDALC().ReadFlatInvoice(invoice, Reading("<Invoice>" + OneLine(kInvoice) + "</Invoice>"));
  ASSERT_TRUE(invoice);
  EXPECT_EQ(Describe(*invoice), kDescription);
}

TEST_F(InvoiceDALCTest, FlatInvoiceIsNothingWhereThereIsNoneUnderTheRoot) {
  for (const std::string_view content : {"",
                                         "<SourceDocuments><SalesInvoices><Invoice/></SalesInvoices>"
                                         "</SourceDocuments>"}) {
    auto invoice = FullInvoice();
    InvoiceDALC().ReadFlatInvoice(invoice, Reading(content));
    EXPECT_EQ(invoice, nullptr) << content;
  }
}

TEST_F(InvoiceDALCTest, HashIsNotRead) { EXPECT_EQ(Read(ReadingInvoice("<Hash>h</Hash>"))->Hash(), ""); }

TEST_F(InvoiceDALCTest, HashControlIsNotRead) {
  EXPECT_EQ(Read(ReadingInvoice("<HashControl>1</HashControl>"))->HashControl(), "");
}

TEST_F(InvoiceDALCTest, SelfBillingIndicatorIsNotReadWhateverTheFileHolds) {
  for (const std::string_view text : {"1", "True", "x"}) {
    EXPECT_FALSE(Read(ReadingInvoice(std::string("<SelfBillingIndicator>").append(text) + "</SelfBillingIndicator>"))
                     ->SelfBillingIndicator());
  }
}

TEST_F(InvoiceDALCTest, ShippingPointsAndGroupsThatAreMissingReadAsNothing) {
  const auto invoice = Read(ReadingInvoice("<DocumentTotals/>"));
  EXPECT_EQ(invoice->ShipTo(), nullptr);
  EXPECT_EQ(invoice->ShipFrom(), nullptr);
  EXPECT_EQ(invoice->DocumentTotals()->CurrencyValue(), nullptr);
  EXPECT_EQ(invoice->DocumentTotals()->Settlement(), nullptr);
}

TEST_F(InvoiceDALCTest, DocumentTotalsThatAreMissingReadAsZeros) {
  EXPECT_EQ(Describe(*Read(ReadingInvoice("<InvoiceNo>1</InvoiceNo>"))), "InvoiceNo=1\n");
}

TEST_F(InvoiceDALCTest, CurrencyAmountThatIsMissingReadsAsZero) {
  const auto invoice =
      Read(ReadingInvoice("<DocumentTotals><Currency><CurrencyCreditAmount>2</CurrencyCreditAmount></Currency>"
                          "</DocumentTotals>"));
  EXPECT_EQ(Describe(*invoice), "DocumentTotals.CurrencyValue.CurrencyCreditAmount=2\n");
}

TEST_F(InvoiceDALCTest, TwoLinesWithOneNumberCannotBeRead) {
  IDALReader& reader = ReadingInvoice(
      "<Line><LineNumber>1</LineNumber><Quantity>1</Quantity></Line>"
      "<Line><LineNumber>01</LineNumber><Quantity>1</Quantity></Line>");
  EXPECT_ERROR(Read(reader), RunTimeError::kDuplicateKey, kRunTimeSource);
}

TEST_F(InvoiceDALCTest, LineThatCannotBeReadMakesTheInvoiceFail) {
  IDALReader& reader = ReadingInvoice("<Line><LineNumber>1</LineNumber></Line>");
  EXPECT_ERROR(Read(reader), RunTimeError::kTypeMismatch, kRunTimeSource);
}

TEST_F(InvoiceDALCTest, ReadsOneAfterTheOtherEachWithItsOwnLines) {
  IDALReader& reader = Reading(OneLine(R"(
      <SourceDocuments>
        <SalesInvoices>
          <Invoice><Line><LineNumber>1</LineNumber><Quantity>1</Quantity></Line></Invoice>
          <Invoice/>
          <Invoice><Line><LineNumber>2</LineNumber><Quantity>1</Quantity></Line></Invoice>
        </SalesInvoices>
      </SourceDocuments>)"));
  EXPECT_EQ(Describe(*Read(reader, true)), "Line[1].LineNumber=1\nLine[1].Quantity=1\n");
  EXPECT_EQ(Describe(*Read(reader, false)), "");
  EXPECT_EQ(Describe(*Read(reader, false)), "Line[1].LineNumber=2\nLine[1].Quantity=1\n");
  EXPECT_EQ(Read(reader, false), nullptr);
}

TEST_F(InvoiceDALCTest, ReadsNothingFromAnEmptySection) { EXPECT_EQ(Read(Reading(kSection)), nullptr); }

TEST_F(InvoiceDALCTest, ReadWithoutSectionRaises301ButTheCountIsZero) {
  for (const std::string_view content : {"", "<SourceDocuments/>", "<SalesInvoices><Invoice/></SalesInvoices>"}) {
    IDALReader& reader = Reading(content);
    EXPECT_ERROR(Read(reader, true), NumberOf(Message{301}), "InvoiceDALC.ReadInvoice");
    EXPECT_ERROR(Read(reader, false), NumberOf(Message{301}), "InvoiceDALC.ReadInvoice");
    EXPECT_EQ(InvoiceDALC().Invoices(reader), 0);
  }
}

TEST_F(InvoiceDALCTest, CountsInTheSection) {
  EXPECT_EQ(InvoiceDALC().Invoices(Reading(kSection)), 0);
  EXPECT_EQ(InvoiceDALC().Invoices(
                Reading("<SourceDocuments><SalesInvoices><Invoice/><Invoice/></SalesInvoices></SourceDocuments>")),
            2);
}

}  // namespace
}  // namespace zevo
