// SPDX-License-Identifier: Apache-2.0
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "tests/check/CheckTest.h"
#include "tests/check/Shuffled.h"

namespace zevo::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

constexpr std::string_view kRate = "Invoice[2]/Line/Tax/TaxPercentage";
constexpr std::string_view kReason = "<TaxExemptionReason>Artigo 9.º do CIVA</TaxExemptionReason>";

class TaxRulesTest : public CheckTest {
 protected:
  // FT A/2, of one line of 10.00 at 20 %, with another tax.
  static CleanFile WithTax(std::string_view region, std::string_view code, std::string_view rate) {
    return CleanFile()
        .With("Invoice[2]/Line/Tax/TaxCountryRegion", region)
        .With("Invoice[2]/Line/Tax/TaxCode", code)
        .With(kRate, rate);
  }
  static CleanFile WithTaxOn(std::string_view date, std::string_view region, std::string_view code,
                             std::string_view rate) {
    return WithTax(region, code, rate).With("Invoice[2]/Line/TaxPointDate", date);
  }
  // The same with an amount in place of the rate.
  static CleanFile WithTaxAmount(std::string_view code, std::string_view amount) {
    return WithTax("PT", code, "0")
        .Without(kRate)
        .Behind("Invoice[2]/Line/Tax/TaxCode", std::string("<TaxAmount>").append(amount).append("</TaxAmount>"));
  }
  static CleanFile Exempt(const CleanFile& file) { return file.Behind("Invoice[2]/Line/Tax", kReason); }
  std::vector<std::string> OfRate(const CleanFile& file) { return FindingsOf("TAX-RATE", file); }
  // Of the credit note, for a changed invoice may have another rate too.
  std::vector<std::string> OfNote(const CleanFile& file) {
    std::vector<std::string> found = OfRate(file);
    std::erase_if(found, [](const std::string& line) { return line.find("Invoice NC A/1") == std::string::npos; });
    return found;
  }
  std::vector<std::string> OfTable(const CleanFile& file) { return FindingsOf("TAX-TABLE", file); }
};

TEST_F(TaxRulesTest, ALineWithoutTaxSaysWhy) {
  constexpr std::string_view kFound = "TAX-EXEMPT E Invoice FT A/2/Line[1]/TaxExemptionReason [] [] []";
  for (const CleanFile& file :
       {WithTax("PT", "NOR", "0"), WithTax("PT", "ISE", "0"), WithTax("PT", "ISE", "20"), WithTax("PT", "OUT", "0.00"),
        WithTaxAmount("ISE", "0"), WithTaxAmount("NOR", "0.00")}) {
    EXPECT_THAT(FindingsOf("TAX-EXEMPT", file), ElementsAre(kFound));
    EXPECT_THAT(FindingsOf("TAX-EXEMPT", file.With("Invoice[2]/InvoiceStatus", "A")),
                ElementsAre("TAX-EXEMPT I Invoice FT A/2/Line[1]/TaxExemptionReason [] [] []"));
    EXPECT_THAT(FindingsOf("TAX-EXEMPT", Exempt(file)), IsEmpty());
  }
  // Of another tax there is no exemption.
  EXPECT_THAT(FindingsOf("TAX-EXEMPT", WithTax("PT", "17.3", "0").With("Invoice[2]/Line/Tax/TaxType", "IS")),
              IsEmpty());
  EXPECT_THAT(FindingsOf("TAX-EXEMPT", WithTax("PT", "NOR", "x")), IsEmpty());
  const auto sentences = Sentences(WithTax("PT", "ISE", "0"));
  EXPECT_EQ(sentences[2],
            "FT A/2, linha 1: a linha está isenta ou tem a taxa 0, e falta o motivo da isenção (TaxExemptionReason).");
  EXPECT_EQ(
      sentences[3],
      "FT A/2, line 1: the line is exempt or has the rate 0, and the reason of the exemption (TaxExemptionReason) is "
      "missing.");
}

TEST_F(TaxRulesTest, AnEmptyReasonIsNone) {
  for (const char* const reason :
       {"<TaxExemptionReason></TaxExemptionReason>", "<TaxExemptionReason> </TaxExemptionReason>"}) {
    const CleanFile file = WithTax("PT", "ISE", "0").Behind("Invoice[2]/Line/Tax", reason);
    EXPECT_THAT(FindingsOf("TAX-EXEMPT", file), SizeIs(1)) << reason;
    EXPECT_THAT(FindingsOf("SCHEMA", file), IsEmpty()) << reason;
  }
  EXPECT_THAT(
      FindingsOf("TAX-EXEMPT", CleanFile().Behind("Invoice[2]/Line/Tax", "<TaxExemptionReason></TaxExemptionReason>")),
      IsEmpty());
}

TEST_F(TaxRulesTest, ALineHasATaxOrAReason) {
  const CleanFile file = CleanFile()
                             .Without("Invoice[2]/Line/Tax")
                             .With("Invoice[2]/DocumentTotals/TaxPayable", "0.00")
                             .With("Invoice[2]/DocumentTotals/GrossTotal", "10.00");
  EXPECT_THAT(Findings(file), ElementsAre("TAX-EXEMPT W Invoice FT A/2/Line[1]/Tax [] [] []"));
  EXPECT_THAT(FindingsOf("TAX-EXEMPT", file.With("Invoice[2]/InvoiceStatus", "A")),
              ElementsAre("TAX-EXEMPT I Invoice FT A/2/Line[1]/Tax [] [] []"));
  EXPECT_THAT(Findings(file.Behind("Invoice[2]/Line/CreditAmount", kReason)), IsEmpty());
  EXPECT_THAT(
      Sentences(file),
      ElementsAre("FT A/2, linha 1: a linha não tem imposto (Tax) nem motivo de isenção (TaxExemptionReason).",
                  "FT A/2, line 1: the line has neither a tax (Tax) nor a reason of exemption (TaxExemptionReason)."));
  // A text among the lines; not what is given away.
  const CleanFile nothing = file.With("Invoice[2]/Line/CreditAmount", "0.00");
  EXPECT_THAT(FindingsOf("TAX-EXEMPT", nothing.With("Invoice[2]/Line/Quantity", "0")), IsEmpty());
  EXPECT_THAT(FindingsOf("TAX-EXEMPT", nothing.With("Invoice[2]/Line/UnitPrice", "0")), IsEmpty());
  EXPECT_THAT(FindingsOf("TAX-EXEMPT", nothing), SizeIs(1));
}

TEST_F(TaxRulesTest, AReasonIsNotBesideARate) {
  const CleanFile file = Exempt(CleanFile());
  EXPECT_THAT(Findings(file),
              ElementsAre("TAX-EXEMPT W Invoice FT A/2/Line[1]/TaxExemptionReason [Artigo 9.º do CIVA] [20%] []"));
  EXPECT_THAT(
      Sentences(file),
      ElementsAre("FT A/2, linha 1: a linha tem o motivo de isenção \"Artigo 9.º do CIVA\", mas também IVA: 20%.",
                  "FT A/2, line 1: the line has the reason of exemption \"Artigo 9.º do CIVA\", but VAT as well: "
                  "20%."));
  EXPECT_THAT(FindingsOf("TAX-EXEMPT", Exempt(WithTaxAmount("NOR", "2.5"))),
              ElementsAre("TAX-EXEMPT W Invoice FT A/2/Line[1]/TaxExemptionReason [Artigo 9.º do CIVA] [2.5] []"));
  // Stamp duty goes with an exemption from VAT.
  EXPECT_THAT(FindingsOf("TAX-EXEMPT", file.With("Invoice[2]/Line/Tax/TaxType", "IS")), IsEmpty());
}

TEST_F(TaxRulesTest, TheRateIsThatOfItsTime) {
  struct Row {
    const char* date;
    const char* region;
    const char* code;
    const char* rate;
  };
  constexpr Row kRows[] = {
      {"2005-07-02", "PT", "NOR", "21"},    {"2005-07-02", "PT-AC", "NOR", "15"}, {"2005-07-02", "PT-MA", "RED", "4"},
      {"2008-06-29", "PT", "NOR", "21.00"}, {"2008-07-02", "PT", "NOR", "20.0"},  {"2008-07-02", "PT-MA", "NOR", "14"},
      {"2010-06-29", "PT", "RED", "5"},     {"2010-07-02", "PT", "RED", "6"},     {"2010-07-02", "PT", "INT", "13"},
      {"2010-07-02", "PT-AC", "INT", "9"},  {"2010-12-30", "PT", "NOR", "21"},    {"2011-01-02", "PT", "NOR", "23"},
      {"2011-01-02", "PT-AC", "NOR", "16"}, {"2012-03-30", "PT-MA", "NOR", "16"}, {"2012-04-02", "PT-MA", "NOR", "22"},
      {"2012-04-02", "PT-AC", "NOR", "16"}, {"2012-04-02", "PT-MA", "INT", "12"}, {"2013-12-30", "PT-AC", "INT", "9"},
      {"2014-01-02", "PT-AC", "NOR", "18"}, {"2014-01-02", "PT-AC", "INT", "10"}, {"2014-01-02", "PT-MA", "RED", "5"},
      {"2014-01-02", "PT", "NOR", "23"},    {"2005-06-30", "PT", "NOR", "19"},
  };
  for (const Row& row : kRows) {
    EXPECT_THAT(OfRate(WithTaxOn(row.date, row.region, row.code, row.rate)), IsEmpty()) << row.date << row.region;
  }
  EXPECT_THAT(OfRate(WithTaxOn("2014-01-02", "PT-AC", "NOR", "16")),
              ElementsAre("TAX-RATE W Invoice FT A/2/Line[1]/Tax/TaxPercentage [16] [18% (NOR PT-AC)] []"));
  EXPECT_THAT(OfRate(WithTaxOn("2012-04-02", "PT-MA", "RED", "4")),
              ElementsAre("TAX-RATE W Invoice FT A/2/Line[1]/Tax/TaxPercentage [4] [5% (RED PT-MA)] []"));
  EXPECT_THAT(OfRate(WithTax("PT", "NOR", "20.001")),
              ElementsAre("TAX-RATE W Invoice FT A/2/Line[1]/Tax/TaxPercentage [20.001] [20% (NOR PT)] []"));
}

TEST_F(TaxRulesTest, AnotherRateIsToldOnce) {
  const CleanFile file = WithTax("PT", "NOR", "23")
                             .With("Invoice[2]/DocumentTotals/TaxPayable", "2.30")
                             .With("Invoice[2]/DocumentTotals/GrossTotal", "12.30");
  checker_.set_Severity("GL-GROSS", Severity::kOff);
  EXPECT_THAT(Findings(file),
              ElementsAre("TAX-RATE W Invoice FT A/2/Line[1]/Tax/TaxPercentage [23] [20% (NOR PT)] []"));
  EXPECT_THAT(FindingsOf("TAX-RATE", file.With("Invoice[2]/InvoiceStatus", "A")),
              ElementsAre("TAX-RATE I Invoice FT A/2/Line[1]/Tax/TaxPercentage [23] [20% (NOR PT)] []"));
  EXPECT_THAT(Sentences(file),
              ElementsAre("FT A/2, linha 1: a taxa de IVA é 23%; na data da linha devia ser 20% (NOR PT).",
                          "FT A/2, line 1: the VAT rate is 23%; on the date of the line it should be 20% (NOR PT)."));
  checker_.set_Severity("TAX-RATE", Severity::kOff);
  EXPECT_THAT(Findings(file), ElementsAre("TAX-TABLE W Invoice FT A/2/Line[1]/Tax [IVA PT NOR 23%] [] [1]"));
}

TEST_F(TaxRulesTest, OnTheDaysOfAChangeTheRateBesideIsOnlyInformation) {
  constexpr std::string_view kNew = "TAX-RATE I Invoice FT A/2/Line[1]/Tax/TaxPercentage [20] [21% (NOR PT)] []";
  constexpr std::string_view kOld = "TAX-RATE I Invoice FT A/2/Line[1]/Tax/TaxPercentage [21] [20% (NOR PT)] []";
  EXPECT_THAT(OfRate(WithTaxOn("2008-06-30", "PT", "NOR", "20")), ElementsAre(kNew));
  EXPECT_THAT(OfRate(WithTaxOn("2008-07-01", "PT", "NOR", "21")), ElementsAre(kOld));
  EXPECT_THAT(OfRate(WithTaxOn("2008-06-29", "PT", "NOR", "20")),
              ElementsAre("TAX-RATE W Invoice FT A/2/Line[1]/Tax/TaxPercentage [20] [21% (NOR PT)] []"));
  EXPECT_THAT(OfRate(WithTaxOn("2008-07-02", "PT", "NOR", "21")),
              ElementsAre("TAX-RATE W Invoice FT A/2/Line[1]/Tax/TaxPercentage [21] [20% (NOR PT)] []"));
  EXPECT_THAT(OfRate(WithTaxOn("2014-01-01", "PT-AC", "NOR", "16")), ElementsAre(::testing::HasSubstr("TAX-RATE I")));
  EXPECT_THAT(OfRate(WithTaxOn("2012-04-01", "PT-MA", "NOR", "16")), ElementsAre(::testing::HasSubstr("TAX-RATE I")));
  EXPECT_THAT(OfRate(WithTaxOn("2012-04-01", "PT-AC", "NOR", "22")), ElementsAre(::testing::HasSubstr("TAX-RATE W")));
  const auto sentences = Sentences(WithTaxOn("2008-07-01", "PT", "NOR", "21"));
  EXPECT_THAT(
      sentences,
      ::testing::IsSupersetOf(
          {"FT A/2, linha 1: a taxa de IVA é 21%, do outro lado da mudança de taxas; na data da linha é 20% (NOR PT).",
           "FT A/2, line 1: the VAT rate is 21%, that of the other side of the change of rates; on the date "
           "of the line it is 20% (NOR PT)."}));
}

TEST_F(TaxRulesTest, TheTaxPointCountsBeforeTheInvoiceDate) {
  const CleanFile file = WithTaxOn("2008-06-15", "PT", "NOR", "21");
  EXPECT_THAT(OfRate(file), IsEmpty());
  EXPECT_THAT(OfRate(file.Without("Invoice[2]/Line/TaxPointDate").With("Invoice[2]/InvoiceDate", "2008-07-15")),
              ElementsAre("TAX-RATE W Invoice FT A/2/Line[1]/Tax/TaxPercentage [21] [20% (NOR PT)] []"));
  EXPECT_THAT(OfRate(file.With("Invoice[2]/Line/TaxPointDate", "x")), IsEmpty());
}

TEST_F(TaxRulesTest, DocumentsThatCorrectAnotherHaveAnyRateThatWas) {
  for (const char* const type : {"NC", "ND", "TD", "DA", "RE"}) {
    const auto of = [&](std::string_view rate) {
      return OfRate(WithTax("PT", "NOR", rate).With("Invoice[2]/InvoiceType", type));
    };
    for (const char* const rate : {"20", "21", "23"}) EXPECT_THAT(of(rate), IsEmpty()) << type;
    EXPECT_THAT(of("22"),
                ElementsAre("TAX-RATE W Invoice FT A/2/Line[1]/Tax/TaxPercentage [22] [21, 20, 23 (NOR PT)] []"));
  }
  EXPECT_THAT(Sentences(CleanFile().With("Invoice[3]/Line/Tax/TaxPercentage", "5.5")),
              ::testing::IsSupersetOf(
                  {"NC A/1, linha 1: a taxa de IVA é 5,5%; deste código e nesta região só houve (em %) 5, 6 (RED PT).",
                   "NC A/1, line 1: the VAT rate is 5.5%; of this code and in this region there only were (in %) 5, 6 "
                   "(RED PT)."}));
}

TEST_F(TaxRulesTest, ARateIsThatOfTheDocumentThatIsCorrected) {
  // NC A/1 of July 2008 corrects FT A/1 of 5 March.
  const auto note = [](std::string_view rate) {
    return CleanFile().With("Invoice[3]/Line/Tax/TaxCode", "NOR").With("Invoice[3]/Line/Tax/TaxPercentage", rate);
  };
  constexpr std::string_view kOther = "TAX-RATE W Invoice NC A/1/Line[1]/Tax/TaxPercentage [20] [21% (NOR PT)] []";
  for (const uint64_t seed : {1U, 2U, 3U, 4U}) {
    EXPECT_THAT(OfRate(Shuffled(note("20"), seed)), ElementsAre(kOther)) << seed;
    EXPECT_THAT(OfRate(Shuffled(note("21"), seed)), IsEmpty()) << seed;
    // A debit note, too; what it refers to NC-REF tells.
    EXPECT_THAT(OfRate(Shuffled(note("20").With("Invoice[3]/InvoiceType", "ND"), seed)), ElementsAre(kOther)) << seed;
    // By the tax points of its lines, whenever it was invoiced.
    EXPECT_THAT(OfRate(Shuffled(note("21").With("Invoice/InvoiceDate", "2008-07-09"), seed)), IsEmpty()) << seed;
    EXPECT_THAT(OfRate(Shuffled(note("20").With("Invoice/InvoiceDate", "2008-07-09"), seed)), ElementsAre(kOther))
        << seed;
    EXPECT_THAT(OfRate(Shuffled(note("20").With("Invoice/InvoiceDate", "x"), seed)), ElementsAre(kOther)) << seed;
    EXPECT_THAT(FindingsOf("TAX-RATE", Shuffled(note("20").With("Invoice/Line[2]/TaxPointDate", "x"), seed)), IsEmpty())
        << seed;
    const CleanFile later = note("20").With("Invoice/Line[2]/TaxPointDate", "2008-07-02");
    EXPECT_THAT(OfNote(Shuffled(later, seed)), IsEmpty()) << seed;
    EXPECT_THAT(OfNote(Shuffled(later.With("Invoice[3]/Line/Tax/TaxPercentage", "21"), seed)), IsEmpty()) << seed;
    EXPECT_THAT(
        OfNote(Shuffled(
            later.With("Invoice/Line/TaxPointDate", "2008-07-02").With("Invoice[3]/Line/Tax/TaxPercentage", "21"),
            seed)),
        ElementsAre("TAX-RATE W Invoice NC A/1/Line[1]/Tax/TaxPercentage [21] [20% (NOR PT)] []"))
        << seed;
    EXPECT_THAT(OfNote(Shuffled(note("20").With("Invoice/Line/TaxPointDate", "2008-06-30"), seed)),
                ElementsAre("TAX-RATE I Invoice NC A/1/Line[1]/Tax/TaxPercentage [20] [21% (NOR PT)] []"))
        << seed;
    // By its date where a line has none.
    const CleanFile without =
        note("20").Without("Invoice/Line/TaxPointDate").With("Invoice/Line[2]/TaxPointDate", "2008-06-01");
    EXPECT_THAT(OfNote(Shuffled(without, seed)), ElementsAre(kOther)) << seed;
    EXPECT_THAT(OfNote(Shuffled(without.With("Invoice/InvoiceDate", "2008-07-09"), seed)), IsEmpty()) << seed;
    EXPECT_THAT(OfNote(Shuffled(without.With("Invoice/InvoiceDate", "x"), seed)), IsEmpty()) << seed;
    // Of no document of the file.
    for (const char* const reference : {"FT B/1", "1234"}) {
      EXPECT_THAT(OfRate(Shuffled(note("20").With("Invoice[3]/Line/References/CreditNote/Reference", reference), seed)),
                  IsEmpty())
          << reference << seed;
    }
    EXPECT_THAT(OfRate(Shuffled(note("20").With("Invoice[3]/InvoiceStatus", "A"), seed)),
                ElementsAre("TAX-RATE I Invoice NC A/1/Line[1]/Tax/TaxPercentage [20] [21% (NOR PT)] []"))
        << seed;
  }
  EXPECT_THAT(Sentences(note("20")),
              ::testing::IsSupersetOf({"NC A/1, linha 1: a taxa de IVA é 20%; na data do documento que este retifica "
                                       "(TaxPointDate) devia ser 21% (NOR PT).",
                                       "NC A/1, line 1: the VAT rate is 20%; on the date of the document that this one "
                                       "corrects (TaxPointDate) it should "
                                       "be 21% "
                                       "(NOR PT)."}));
}

TEST_F(TaxRulesTest, OtherCodesAndRegionsHaveRatesOfTheirOwn) {
  EXPECT_THAT(OfRate(Exempt(WithTax("PT", "ISE", "0"))), IsEmpty());
  EXPECT_THAT(OfRate(WithTaxAmount("ISE", "0.00")), IsEmpty());
  EXPECT_THAT(OfRate(WithTax("PT", "ISE", "5.5")),
              ElementsAre("TAX-RATE W Invoice FT A/2/Line[1]/Tax/TaxPercentage [5.5] [0] []"));
  EXPECT_THAT(OfRate(WithTaxAmount("ISE", "2.00")),
              ElementsAre("TAX-RATE W Invoice FT A/2/Line[1]/Tax/TaxAmount [2.00] [0] []"));
  EXPECT_THAT(OfRate(WithTax("PT", "OUT", "17")), IsEmpty());
  EXPECT_THAT(OfRate(WithTax("ES", "NOR", "16")), IsEmpty());
  EXPECT_THAT(OfRate(WithTax("PT", "17.3.1", "4").With("Invoice[2]/Line/Tax/TaxType", "IS")), IsEmpty());
  EXPECT_THAT(OfRate(WithTax("PT", "17.3.1", "4")),
              ElementsAre("TAX-RATE W Invoice FT A/2/Line[1]/Tax/TaxCode [17.3.1] [] []"));
  EXPECT_THAT(OfRate(WithTaxAmount("NOR", "2.00")), IsEmpty());
  EXPECT_THAT(OfRate(WithTax("PT", "XXX", "4")), IsEmpty());
  EXPECT_THAT(Sentences(WithTax("PT", "ISE", "5.5")),
              ::testing::IsSupersetOf(
                  {"FT A/2, linha 1: o código é ISE (isenção), mas a taxa ou o imposto é 5,5; devia ser 0.",
                   "FT A/2, line 1: the code is ISE (exempt), but the rate or the tax is 5.5; it should be 0."}));
  EXPECT_THAT(
      Sentences(WithTax("PT", "17.3.1", "4")),
      ::testing::IsSupersetOf({"FT A/2, linha 1: \"17.3.1\" não é um código de IVA, que são RED, INT, NOR, ISE e OUT.",
                               "FT A/2, line 1: \"17.3.1\" is no code of VAT, which are RED, INT, NOR, ISE and OUT."}));
}

TEST_F(TaxRulesTest, TheTaxOfALineIsInTheTable) {
  const CleanFile file = CleanFile().Without("TaxTableEntry[3]");
  EXPECT_THAT(Findings(file), ElementsAre("TAX-TABLE W Invoice FT A/2/Line[1]/Tax [IVA PT NOR 20%] [] [1]"));
  EXPECT_THAT(
      Sentences(file),
      ElementsAre(
          "FT A/2, linha 1: IVA PT NOR 20% não está na tabela de impostos do ficheiro (linhas com este imposto: 1).",
          "FT A/2, line 1: IVA PT NOR 20% is not in the tax table of the file (lines with this tax: 1)."));
  EXPECT_THAT(Findings(CleanFile().With("TaxTableEntry[3]/TaxPercentage", "20.00")), IsEmpty());
  EXPECT_THAT(OfTable(CleanFile().With("TaxTableEntry[3]/TaxCountryRegion", "PT-MA")), SizeIs(1));
  EXPECT_THAT(OfTable(CleanFile().With("TaxTableEntry[3]/TaxType", "IS")), SizeIs(1));
  EXPECT_THAT(OfTable(CleanFile().With("TaxTableEntry[3]/TaxCode", "INT")), SizeIs(1));
  EXPECT_THAT(OfTable(CleanFile().With("TaxTableEntry[3]/TaxPercentage", "20.1")), SizeIs(1));
}

TEST_F(TaxRulesTest, EachTaxThatTheTableLacksIsToldOnceWithItsLines) {
  // Two lines at 5 %, in one invoice and in the credit note; one at 20 %.
  CleanFile file = CleanFile().Without("TaxTableEntry[3]").Without("TaxTableEntry");
  const auto found = [](std::string_view line, std::string_view tax, std::string_view lines) {
    return std::string("TAX-TABLE W Invoice ")
               .append(line)
               .append("/Tax [")
               .append(tax)
               .append("] [] [")
               .append(lines) +
           "]";
  };
  file = file.With("TaxTableEntry/TaxCode", "INT");
  const std::vector<std::string> all = OfTable(file);
  EXPECT_THAT(all,
              ElementsAre(found("FT A/1/Line[1]", "IVA PT RED 5%", "2"), found("FT A/1/Line[2]", "IVA PT NOR 21%", "1"),
                          found("FT A/2/Line[1]", "IVA PT NOR 20%", "1")));
  EXPECT_EQ(checker_.CountOf("TAX-TABLE"), 3);
  checker_.set_MostFindings(1);
  EXPECT_THAT(OfTable(file), ElementsAre(all[0]));
  EXPECT_EQ(checker_.CountOf("TAX-TABLE"), 3);
  // In a file that the schema refuses as well.
  checker_.set_MostFindings(0);
  EXPECT_THAT(OfTable(file.With("Invoice[3]/InvoiceStatus", "Q")), all);
  // Those that have expired are counted apart.
  const CleanFile expired =
      CleanFile().Behind("TaxTableEntry[3]/Description", "<TaxExpirationDate>2008-06-30</TaxExpirationDate>");
  EXPECT_THAT(OfTable(expired.Twice("Invoice[2]/Line")),
              ElementsAre("TAX-TABLE W Invoice FT A/2/Line[1]/Tax [IVA PT NOR 20%] [2008-06-30] [2]"));
}

TEST_F(TaxRulesTest, TaxesBeyondManyAreCountedAlone) {
  std::string lines;
  for (int i = 1; i <= 1002; ++i) {
    lines.append("<Line><Tax><TaxType>IS</TaxType><TaxCountryRegion>PT</TaxCountryRegion><TaxCode>");
    lines.append(std::to_string(i)).append("</TaxCode><TaxPercentage>1</TaxPercentage></Tax></Line>");
  }
  checker_.set_MostFindings(0);
  EXPECT_THAT(OfTable(CleanFile().Behind("Invoice[2]/Line", lines)), SizeIs(1000));
  EXPECT_EQ(checker_.CountOf("TAX-TABLE"), 1002);
}

TEST_F(TaxRulesTest, AnAmountIsInTheTableToo) {
  const CleanFile file = WithTaxAmount("17.3", "1.50").With("Invoice[2]/Line/Tax/TaxType", "IS");
  EXPECT_THAT(OfTable(file), ElementsAre("TAX-TABLE W Invoice FT A/2/Line[1]/Tax [IS PT 17.3 1.5] [] [1]"));
  const CleanFile known = file.Behind("TaxTableEntry[3]",
                                      "<TaxTableEntry><TaxType>IS</TaxType><TaxCountryRegion>PT</TaxCountryRegion>"
                                      "<TaxCode>17.3</TaxCode><Description>Selo</Description><TaxAmount>1.5</TaxAmount>"
                                      "</TaxTableEntry>");
  EXPECT_THAT(OfTable(known), IsEmpty());
  EXPECT_THAT(OfTable(known.Without("TaxTableEntry[4]/TaxAmount")
                          .Behind("TaxTableEntry[4]/Description", "<TaxPercentage>1.5</TaxPercentage>")),
              SizeIs(1));
  // Nothing is nothing, said either way.
  const CleanFile none =
      Exempt(WithTaxAmount("ISE", "0.00")).Twice("TaxTableEntry").With("TaxTableEntry/TaxCode", "ISE");
  EXPECT_THAT(OfTable(none.With("TaxTableEntry/TaxPercentage", "0")), IsEmpty());
  EXPECT_THAT(OfTable(none), SizeIs(1));
}

TEST_F(TaxRulesTest, ATaxOfTheTableIsUsedUntilItExpires) {
  const CleanFile file =
      CleanFile().Behind("TaxTableEntry[3]/Description", "<TaxExpirationDate>2008-07-01</TaxExpirationDate>");
  EXPECT_THAT(Findings(file), IsEmpty());
  const CleanFile expired = file.With("TaxTableEntry[3]/TaxExpirationDate", "2008-06-30");
  EXPECT_THAT(Findings(expired),
              ElementsAre("TAX-TABLE W Invoice FT A/2/Line[1]/Tax [IVA PT NOR 20%] [2008-06-30] [1]"));
  EXPECT_THAT(
      Sentences(expired),
      ElementsAre("FT A/2, linha 1: IVA PT NOR 20% está na tabela de impostos do ficheiro só até 2008-06-30, antes da "
                  "data da linha (linhas assim: 1).",
                  "FT A/2, line 1: IVA PT NOR 20% is in the tax table of the file only until 2008-06-30, before the "
                  "date of the line (lines like it: 1)."));
  // The longest use counts, and corrections have the date of what they correct.
  EXPECT_THAT(Findings(expired.Twice("TaxTableEntry[3]").With("TaxTableEntry[4]/TaxExpirationDate", "2008-07-01")),
              IsEmpty());
  EXPECT_THAT(Findings(expired.Twice("TaxTableEntry[3]").Without("TaxTableEntry[4]/TaxExpirationDate")), IsEmpty());
  EXPECT_THAT(Findings(expired.Twice("TaxTableEntry[3]").Without("TaxTableEntry[3]/TaxExpirationDate")), IsEmpty());
  EXPECT_THAT(OfTable(expired.With("Invoice[2]/InvoiceType", "ND")), IsEmpty());
}

TEST_F(TaxRulesTest, WithoutATableThatIsToldOnce) {
  const CleanFile file = CleanFile().Without("TaxTable");
  EXPECT_THAT(Findings(file), ElementsAre("TAX-TABLE I Invoice FT A/1/Line[1]/Tax [] [] []"));
  EXPECT_THAT(Sentences(file),
              ElementsAre("FT A/1, linha 1: o ficheiro não tem tabela de impostos; os impostos das linhas não foram "
                          "comparados com ela.",
                          "FT A/1, line 1: the file has no tax table; the taxes of lines were not compared with it."));
  // One that cannot be read may have any tax.
  EXPECT_THAT(OfTable(CleanFile().With("TaxTableEntry[3]/TaxPercentage", "x")), IsEmpty());
  EXPECT_THAT(OfTable(CleanFile().Without("TaxTableEntry[3]/TaxPercentage")), IsEmpty());
  EXPECT_THAT(OfTable(CleanFile().With("TaxTableEntry[2]/TaxExpirationDate", "x").Without("TaxTableEntry[3]")),
              IsEmpty());
}

TEST_F(TaxRulesTest, ACodeThatCannotBeReadIsInNoTable) {
  for (const auto& [element, code] : std::vector<std::pair<std::string, std::string>>{
           {"TaxType", "XXX"}, {"TaxCountryRegion", "PT-XX"}, {"TaxCountryRegion", "Pt"}, {"TaxCode", "NORM"}}) {
    EXPECT_THAT(FindingsOf("READ", CleanFile().With("Invoice[2]/Line/Tax/" + element, code)), SizeIs(1)) << code;
    EXPECT_THAT(OfTable(CleanFile().With("Invoice[2]/Line/Tax/" + element, code)), IsEmpty()) << code;
    EXPECT_THAT(OfTable(CleanFile().With("TaxTableEntry[3]/" + element, code)), IsEmpty()) << code;
  }
  EXPECT_THAT(OfTable(CleanFile().With("Invoice[2]/Line/Tax/TaxCountryRegion", "ES")), SizeIs(1));
  EXPECT_THAT(OfTable(CleanFile().With("Invoice[2]/Line/Tax/TaxCode", "OUT")), SizeIs(1));
  EXPECT_THAT(OfTable(Exempt(WithTax("PT", "ISE", "0"))), SizeIs(1));
}

TEST_F(TaxRulesTest, SeveralTablesAreOne) {
  const CleanFile file = CleanFile().Twice("TaxTable").Without("TaxTable/TaxTableEntry[3]");
  EXPECT_THAT(Findings(file), IsEmpty());
}

}  // namespace
}  // namespace zevo::testing
