// SPDX-License-Identifier: Apache-2.0
#include <gmock/gmock.h>
#include <zevo/check/LateRates.h>

#include <string>
#include <string_view>
#include <vector>

#include "tests/check/FactsTest.h"

namespace zevo {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class LateRatesTest : public testing::FactsTest {
 protected:
  static std::string Reference(std::string_view text) {
    return "<References><CreditNote><Reference>" + std::string(text) + "</Reference></CreditNote></References>";
  }
  static std::string Tax(std::string_view type, std::string_view region, std::string_view code,
                         std::string_view percentage) {
    std::string tax("<Tax><TaxType>");
    tax.append(type).append("</TaxType><TaxCountryRegion>").append(region).append("</TaxCountryRegion><TaxCode>");
    return tax.append(code).append("</TaxCode><TaxPercentage>").append(percentage).append("</TaxPercentage></Tax>");
  }
  static std::string Line(std::string_view content) { return "<Line>" + std::string(content) + "</Line>"; }
  static std::string Document(std::string_view number, std::string_view type, std::string_view lines) {
    std::string document("<InvoiceNo>");
    document.append(number).append("</InvoiceNo><InvoiceType>").append(type).append("</InvoiceType>");
    return document.append(lines);
  }

  // The rates that wait: "NC A/1 Line[1]/Tax/TaxPercentage FT A/9 20".
  std::vector<std::string> Take(const std::vector<std::string>& invoices) {
    ForEachInvoice(invoices, [this](const InvoiceFacts& facts) {
      documents_.Take(facts);
      rates_.Take(facts, documents_);
    });
    std::vector<std::string> waiting;
    for (const LateRates::Line& line : rates_.All()) {
      waiting.push_back(line.percentage.key + " " + line.percentage.path + " " + line.reference + " " +
                        line.value.Text());
    }
    return waiting;
  }
  std::string FirstReference(std::string_view invoice) {
    std::string reference;
    ForInvoice(invoice, [&](const InvoiceFacts& facts) { reference = LateRates::ReferenceOf(facts); });
    return reference;
  }

  DocumentTable documents_;
  LateRates rates_;
  const std::string normal_ = Tax("IVA", "PT", "NOR", "20");
};

TEST_F(LateRatesTest, CorrectionsOfADocumentThatIsNotBeforeThemWait) {
  EXPECT_THAT(
      Take({Document("FT A/1", "FT", Line(normal_)),
            Document("NC A/1", "NC", Line(Reference("FT A/1") + normal_) + Line(Reference(" FT A/2 ") + normal_)),
            Document("FT A/2", "FT", Line(normal_))}),
      ElementsAre("NC A/1 Line[2]/Tax/TaxPercentage FT A/2 20"));
  const LateRates::Line& line = rates_.All().front();
  EXPECT_EQ(line.percentage.text, "20");
  EXPECT_EQ(line.percentage.kind, EntityKind::kInvoice);
  EXPECT_EQ(line.rate.region, VatRegion::kMainland);
  EXPECT_EQ(line.rate.level, VatLevel::kNormal);
  EXPECT_EQ(line.most, Severity::kError);
}

TEST_F(LateRatesTest, ThoseOfCancelledDocumentsAreInformation) {
  Take({Document("NC A/1", "NC", "<InvoiceStatus>A</InvoiceStatus>" + Line(Reference("FT A/2") + normal_))});
  ASSERT_EQ(rates_.All().size(), 1U);
  EXPECT_EQ(rates_.All().front().most, Severity::kInformation);
}

TEST_F(LateRatesTest, ALineThatSaysNothingCorrectsWhatTheDocumentDoes) {
  EXPECT_THAT(
      Take({Document("NC A/1", "NC",
                     Line(normal_) + Line(Reference("FT A/2") + normal_) + Line(Reference("FT A/3") + normal_))}),
      ElementsAre("NC A/1 Line[1]/Tax/TaxPercentage FT A/2 20", "NC A/1 Line[2]/Tax/TaxPercentage FT A/2 20",
                  "NC A/1 Line[3]/Tax/TaxPercentage FT A/3 20"));
}

TEST_F(LateRatesTest, WhatIsNoDocumentNumberIsLeftAlone) {
  EXPECT_THAT(Take({Document("NC A/1", "NC", Line(Reference("1234") + normal_))}), IsEmpty());
}

TEST_F(LateRatesTest, SoAreRatesThatAreNotJudged) {
  const std::string reference = Reference("FT A/2");
  EXPECT_THAT(Take({Document(
                  "NC A/1", "NC",
                  Line(reference) + Line(reference + Tax("IS", "PT", "NOR", "20")) +
                      Line(reference + Tax("IVA", "ES", "NOR", "20")) + Line(reference + Tax("IVA", "PT", "ISE", "0")) +
                      Line(reference + Tax("IVA", "PT", "NOR", "x")) +
                      Line(reference + "<Tax><TaxType>IVA</TaxType><TaxPercentage>20</TaxPercentage></Tax>"))}),
              IsEmpty());
}

TEST_F(LateRatesTest, DebitDocumentsAndDebitNotesCorrect) {
  const std::string lines = Line("") + Line(Reference(" FT A/2 ")) + Line(Reference("FT A/3"));
  for (const std::string_view type : {"NC", "TD", "DA", "RE", "ND"}) {
    EXPECT_EQ(FirstReference(Document("X A/1", type, lines)), "FT A/2") << type;
  }
  for (const std::string_view type : {"FT", "VD", "XX", ""}) {
    EXPECT_EQ(FirstReference(Document("X A/1", type, lines)), "") << type;
  }
  EXPECT_EQ(FirstReference(lines), "");
  EXPECT_EQ(FirstReference(Document("X A/1", "NC", Line("") + Line(Reference(" ")))), "");
}

}  // namespace
}  // namespace zevo
