// SPDX-License-Identifier: Apache-2.0
#include <gmock/gmock.h>
#include <zevo/mappers/InvoiceLineDALC.h>

#include <memory>
#include <string>
#include <vector>

#include "tests/mappers/MapperTest.h"
#include "tests/mappers/Records.h"

namespace zevo {
namespace {

using testing::Describe;
using testing::FullInvoiceLine;
using ::testing::HasSubstr;
using testing::OneLine;

class InvoiceLineDALCTest : public testing::MapperTest {
 protected:
  void Create(const InvoiceLine& line) {
    InvoiceLineDALC().CreateInvoiceLine(line, helper_.CreateElement("Invoice", {}, {}, true), helper_);
  }
  /// What a line with that change is written as.
  template <class Change>
  std::string WrittenWith(Change change) {
    InvoiceLine line;
    change(line);
    Begin("");
    Create(line);
    return Written();
  }
  std::shared_ptr<InvoiceLine> Read(IDALReader& reader, bool first = true) {
    std::shared_ptr<InvoiceLine> line;
    InvoiceLineDALC().ReadInvoiceLine(line, reader.GetElement("Invoice", {}, {}), reader, first);
    return line;
  }
  /// A line with a number, a quantity and that content.
  IDALReader& ReadingLine(std::string_view content) {
    return Reading(std::string("<Invoice><Line><LineNumber>1</LineNumber><Quantity>1</Quantity>")
                       .append(content)
                       .append("</Line></Invoice>"));
  }
};

TEST_F(InvoiceLineDALCTest, WritesEveryProperty) {
  Create(*FullInvoiceLine(7));
  EXPECT_EQ(Written(), OneLine(R"(
      <Invoice>
        <Line>
          <LineNumber>7</LineNumber>
          <OrderReferences>
            <OriginatingON>E1</OriginatingON>
            <OrderDate>2008-02-28</OrderDate>
          </OrderReferences>
          <ProductCode>P1</ProductCode>
          <ProductDescription>Pao</ProductDescription>
          <Quantity>2.5</Quantity>
          <UnitOfMeasure>kg</UnitOfMeasure>
          <UnitPrice>1.25</UnitPrice>
          <TaxPointDate>2008-03-01</TaxPointDate>
          <References>
            <CreditNote>
              <Reference>FT 1</Reference>
              <Reason>erro</Reason>
            </CreditNote>
          </References>
          <Description>Pao de trigo</Description>
          <DebitAmount>3.125</DebitAmount>
          <Tax>
            <TaxType>IVA</TaxType>
            <TaxCountryRegion>PT</TaxCountryRegion>
            <TaxCode>RED</TaxCode>
            <TaxPercentage>5.5</TaxPercentage>
          </Tax>
          <TaxExemptionReason>M1</TaxExemptionReason>
          <SettlementAmount>0.5</SettlementAmount>
        </Line>
      </Invoice>)"));
}

TEST_F(InvoiceLineDALCTest, WritesAnEmptyLineWithItsRequiredElements) {
  Create(InvoiceLine());
  EXPECT_EQ(Written(), OneLine(R"(
      <Invoice>
        <Line>
          <LineNumber>0</LineNumber>
          <ProductCode></ProductCode>
          <ProductDescription></ProductDescription>
          <Quantity>0</Quantity>
          <UnitPrice>0</UnitPrice>
          <TaxPointDate></TaxPointDate>
          <Description></Description>
          <CreditAmount>0</CreditAmount>
          <SettlementAmount>0</SettlementAmount>
        </Line>
      </Invoice>)"));
}

TEST_F(InvoiceLineDALCTest, WritesEmptyGroupsThatAreSet) {
  EXPECT_EQ(WrittenWith([](InvoiceLine& line) {
              line.set_OrderReferences(std::make_shared<OrderReferences>());
              line.set_References(std::make_shared<References>());
              line.set_Tax(std::make_shared<Tax>());
            }),
            OneLine(R"(
      <Invoice>
        <Line>
          <LineNumber>0</LineNumber>
          <OrderReferences></OrderReferences>
          <ProductCode></ProductCode>
          <ProductDescription></ProductDescription>
          <Quantity>0</Quantity>
          <UnitPrice>0</UnitPrice>
          <TaxPointDate></TaxPointDate>
          <References></References>
          <Description></Description>
          <CreditAmount>0</CreditAmount>
          <Tax>
            <TaxType>IVA</TaxType>
            <TaxCountryRegion></TaxCountryRegion>
            <TaxAmount>0</TaxAmount>
          </Tax>
          <SettlementAmount>0</SettlementAmount>
        </Line>
      </Invoice>)"));
}

TEST_F(InvoiceLineDALCTest, CreditNotesAreWrittenInOrderEmptyOnesToo) {
  const std::string written = WrittenWith([](InvoiceLine& line) {
    line.set_References(std::make_shared<References>());
    for (const char* reference : {"b", "", "a"}) {
      auto note = std::make_shared<CreditNote>();
      note->set_Reference(reference);
      line.References()->CreditNote()->Add(note);
    }
  });
  EXPECT_THAT(written,
              HasSubstr("<References><CreditNote><Reference>b</Reference></CreditNote><CreditNote></CreditNote>"
                        "<CreditNote><Reference>a</Reference></CreditNote></References>"));
}

TEST_F(InvoiceLineDALCTest, LineWithoutAmountsGetsACreditOfZero) {
  EXPECT_THAT(WrittenWith([](InvoiceLine&) {}),
              HasSubstr("<Description></Description><CreditAmount>0</CreditAmount><Sett"));
}

TEST_F(InvoiceLineDALCTest, DebitOfFiveAndCreditOfThreeWritesOnlyTheDebit) {
  const std::string written = WrittenWith([](InvoiceLine& line) {
    line.set_DebitAmount(5);
    line.set_CreditAmount(3);
  });
  EXPECT_THAT(written, HasSubstr("<Description></Description><DebitAmount>5</DebitAmount><Sett"));
}

TEST_F(InvoiceLineDALCTest, TaxWithAPercentageWritesNoAmountEvenWhenItIsSet) {
  const std::string written = WrittenWith([](InvoiceLine& line) {
    line.set_Tax(std::make_shared<Tax>());
    line.Tax()->set_TaxPercentage(23);
    line.Tax()->set_TaxAmount(5);
  });
  EXPECT_THAT(written, HasSubstr("<TaxCountryRegion></TaxCountryRegion><TaxPercentage>23</TaxPercentage></Tax>"));
}

TEST_F(InvoiceLineDALCTest, TaxWithoutPercentageWritesItsAmount) {
  const std::string written = WrittenWith([](InvoiceLine& line) {
    line.set_Tax(std::make_shared<Tax>());
    line.Tax()->set_TaxAmount(0.1F);
  });
  EXPECT_THAT(written, HasSubstr("<TaxCountryRegion></TaxCountryRegion><TaxAmount>0.1</TaxAmount></Tax>"));
}

TEST_F(InvoiceLineDALCTest, QuantityGoesThroughSinglePrecision) {
  // The right-hand sides are the shortest decimals that name the nearest 32-bit float.
  const std::vector<std::pair<std::string, std::string>> cases = {{"1.23456789", "1.2346"},
                                                                  {"123456.7891", "123456.79"},
                                                                  {"12345678.9", "12345679"},
                                                                  {"16777217", "16777216"},
                                                                  {"0.1", "0.1"},
                                                                  {"-1234567.8912", "-1234567.9"},
                                                                  {"1234567890.1234", "1234568000"},
                                                                  {"922337203685477.5807", "922337200000000"}};
  for (const auto& [quantity, text] : cases) {
    const Amount amount = Amount::FromText(quantity);
    const std::string written = WrittenWith([&](InvoiceLine& line) { line.set_Quantity(amount); });
    EXPECT_THAT(written, HasSubstr("<Quantity>" + text + "</Quantity>")) << quantity;
  }
}

TEST_F(InvoiceLineDALCTest, ReadsEveryProperty) {
  const auto line = Read(Reading(OneLine(R"(
      <Invoice>
        <Line>
          <LineNumber>3</LineNumber>
          <OrderReferences>
            <OriginatingON>a</OriginatingON>
            <OrderDate>b</OrderDate>
          </OrderReferences>
          <ProductCode>c</ProductCode>
          <ProductDescription>d</ProductDescription>
          <Quantity>2.5</Quantity>
          <UnitOfMeasure>e</UnitOfMeasure>
          <UnitPrice>1.25</UnitPrice>
          <TaxPointDate>f</TaxPointDate>
          <References>
            <CreditNote><Reference>g</Reference><Reason>h</Reason></CreditNote>
            <CreditNote><Reference>i</Reference></CreditNote>
          </References>
          <Description>j</Description>
          <DebitAmount>3.5</DebitAmount>
          <CreditAmount>4.5</CreditAmount>
          <Tax>
            <TaxType>IS</TaxType>
            <TaxCountryRegion>k</TaxCountryRegion>
            <TaxCode>l</TaxCode>
            <TaxPercentage>5.5</TaxPercentage>
            <TaxAmount>6.5</TaxAmount>
          </Tax>
          <TaxExemptionReason>m</TaxExemptionReason>
          <SettlementAmount>0.5</SettlementAmount>
        </Line>
      </Invoice>)")));
  ASSERT_TRUE(line);
  EXPECT_EQ(
      Describe(*line),
      "LineNumber=3\nProductCode=c\nProductDescription=d\nQuantity=2.5\nUnitOfMeasure=e\nUnitPrice=1.25\n"
      "TaxPointDate=f\nDescription=j\nDebitAmount=3.5\nCreditAmount=4.5\nTaxExemptionReason=m\n"
      "SettlementAmount=0.5\nOrderReferences.OriginatingOn=a\nOrderReferences.OrderDate=b\n"
      "References.CreditNote[1].Reference=g\nReferences.CreditNote[1].Reason=h\nReferences.CreditNote[2].Reference=i\n"
      "Tax.TaxCountryRegion=k\nTax.TaxCode=l\nTax.TaxPercentage=5.5\nTax.TaxAmount=6.5\nTax.TaxType=IVA\n");
}

TEST_F(InvoiceLineDALCTest, OrderIsWrittenAndReadUnderTheNameThatEndsInCapitals) {
  InvoiceLine line;
  line.set_OrderReferences(std::make_shared<OrderReferences>());
  line.OrderReferences()->set_OriginatingOn("E1");
  Create(line);
  EXPECT_THAT(Written(), HasSubstr("<OriginatingON>E1</OriginatingON>"));
  EXPECT_EQ(Read(ReadingBack())->OrderReferences()->OriginatingOn(), "E1");
  EXPECT_EQ(Read(ReadingLine("<OrderReferences><OriginatingOn>E1</OriginatingOn></OrderReferences>"))
                ->OrderReferences()
                ->OriginatingOn(),
            "");
}

TEST_F(InvoiceLineDALCTest, GroupsThatAreMissingReadAsNothing) {
  const auto line = Read(ReadingLine(""));
  EXPECT_EQ(line->OrderReferences(), nullptr);
  EXPECT_EQ(line->References(), nullptr);
  EXPECT_EQ(line->Tax(), nullptr);
}

TEST_F(InvoiceLineDALCTest, GroupsThatAreEmptyReadAsEmptyRecords) {
  const auto line = Read(ReadingLine("<OrderReferences/><References/><Tax/>"));
  ASSERT_TRUE(line->OrderReferences() && line->References() && line->Tax());
  EXPECT_EQ(Describe(*line), "LineNumber=1\nQuantity=1\nTax.TaxType=IVA\n");
}

TEST_F(InvoiceLineDALCTest, LineWithoutQuantityCannotBeRead) {
  for (const std::string_view element : {"", "<Quantity/>", "<Quantity>x</Quantity>", "<Quantity>1 kg</Quantity>"}) {
    IDALReader& reader =
        Reading(std::string("<Invoice><Line><LineNumber>1</LineNumber>").append(element).append("</Line></Invoice>"));
    EXPECT_ERROR(Read(reader), RunTimeError::kTypeMismatch, kRunTimeSource);
  }
}

TEST_F(InvoiceLineDALCTest, LineWithoutNumberCannotBeRead) {
  for (const std::string_view element : {"", "<LineNumber/>", "<LineNumber>x</LineNumber>"}) {
    IDALReader& reader =
        Reading(std::string("<Invoice><Line>").append(element).append("<Quantity>1</Quantity></Line></Invoice>"));
    EXPECT_ERROR(Read(reader), RunTimeError::kTypeMismatch, kRunTimeSource);
  }
}

TEST_F(InvoiceLineDALCTest, OtherAmountsThatAreMissingOrNoNumbersReadAsZero) {
  const auto line =
      Read(ReadingLine("<UnitPrice>x</UnitPrice><Tax><TaxPercentage>x</TaxPercentage></Tax><DebitAmount/>"));
  EXPECT_EQ(Describe(*line), "LineNumber=1\nQuantity=1\nTax.TaxType=IVA\n");
}

TEST_F(InvoiceLineDALCTest, AmountsReadAsFarAsTheyAreNumbers) {
  EXPECT_EQ(Read(ReadingLine("<UnitPrice>12.5 EUR</UnitPrice>"))->UnitPrice(), Amount::FromText("12.5"));
}

TEST_F(InvoiceLineDALCTest, TwoCreditNotesWithOneReferenceCannotBeRead) {
  IDALReader& reader = ReadingLine(
      "<References><CreditNote><Reference>a</Reference></CreditNote><CreditNote><Reference>A</Reference></CreditNote>"
      "</References>");
  EXPECT_ERROR(Read(reader), RunTimeError::kDuplicateKey, kRunTimeSource);
}

TEST_F(InvoiceLineDALCTest, ReadsOneAfterTheOther) {
  IDALReader& reader = Reading(
      "<Invoice><Line><LineNumber>1</LineNumber><Quantity>1</Quantity></Line><DocumentTotals/>"
      "<Line><LineNumber>2</LineNumber><Quantity>1</Quantity></Line></Invoice>");
  EXPECT_EQ(Read(reader, true)->LineNumber(), 1);
  EXPECT_EQ(Read(reader, false)->LineNumber(), 2);
  EXPECT_EQ(Read(reader, false), nullptr);
}

}  // namespace
}  // namespace zevo
