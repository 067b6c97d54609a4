// SPDX-License-Identifier: Apache-2.0
#include "tests/check/CheckTest.h"

namespace zevo::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class DocumentRulesTest : public CheckTest {
 protected:
  // The first document, as one of a type and a date.
  static CleanFile OfTypeAndDate(std::string_view type, std::string_view date) {
    return CleanFile()
        .With("StartDate", "2012-07-01")
        .With("EndDate", "2013-06-30")
        .With("Invoice/InvoiceType", type)
        .With("Invoice/InvoiceDate", date);
  }
  static CleanFile OfStatus(std::string_view status, std::string_view indicator) {
    return CleanFile().With("InvoiceStatus", status).With("Invoice/SelfBillingIndicator", indicator);
  }
};

TEST_F(DocumentRulesTest, SomeTypesEndIn2012) {
  for (const std::string type : {"VD", "TV", "TD", "AA", "DA"}) {
    EXPECT_THAT(FindingsOf("TYPE-DATE", OfTypeAndDate(type, "2012-12-31")), IsEmpty()) << type;
    EXPECT_THAT(FindingsOf("TYPE-DATE", OfTypeAndDate(type, "2013-01-01")),
                ElementsAre("TYPE-DATE W Invoice FT A/1/InvoiceType [" + type + "] [2012-12-31] []"));
  }
  for (const char* const type : {"FT", "NC", "ND", "RP", "RE", "CS", "LD", "RA"}) {
    EXPECT_THAT(FindingsOf("TYPE-DATE", OfTypeAndDate(type, "2013-01-01")), IsEmpty()) << type;
    EXPECT_THAT(FindingsOf("TYPE-DATE", OfTypeAndDate(type, "2012-12-31")), IsEmpty()) << type;
  }
  FindingsOf("TYPE-DATE", OfTypeAndDate("VD", "2013-01-01"));
  const auto told = std::ranges::find(found_, "TYPE-DATE", &Finding::rule);
  ASSERT_NE(told, found_.end());
  EXPECT_EQ(Describe(*told, Language::kPortuguese),
            "FT A/1: documentos do tipo VD só podem ter data até 2012-12-31, e este é posterior.");
  EXPECT_EQ(Describe(*told, Language::kEnglish),
            "FT A/1: documents of the type VD may only be dated until 2012-12-31, and this one is later.");
}

TEST_F(DocumentRulesTest, SimplifiedInvoicesBeginIn2013) {
  EXPECT_THAT(FindingsOf("TYPE-DATE", OfTypeAndDate("FS", "2013-01-01")), IsEmpty());
  EXPECT_THAT(FindingsOf("TYPE-DATE", OfTypeAndDate("FS", "2012-12-31")),
              ElementsAre("TYPE-DATE W Invoice FT A/1/InvoiceType [FS] [2013-01-01] []"));
  const auto told = std::ranges::find(found_, "TYPE-DATE", &Finding::rule);
  ASSERT_NE(told, found_.end());
  EXPECT_EQ(Describe(*told, Language::kPortuguese),
            "FT A/1: documentos do tipo FS só podem ter data a partir de 2013-01-01, e este é anterior.");
  EXPECT_EQ(Describe(*told, Language::kEnglish),
            "FT A/1: documents of the type FS may only be dated from 2013-01-01 on, and this one is earlier.");
}

TEST_F(DocumentRulesTest, OfADateThatIsNotRightTheTypeIsNotJudged) {
  EXPECT_THAT(FindingsOf("TYPE-DATE", OfTypeAndDate("VD", "2013-07-01")), IsEmpty());
  EXPECT_THAT(FindingsOf("TYPE-DATE", OfTypeAndDate("VD", "x")), IsEmpty());
  EXPECT_THAT(FindingsOf("TYPE-DATE", OfTypeAndDate("XX", "2013-01-01")), IsEmpty());
}

TEST_F(DocumentRulesTest, ASelfBilledDocumentSaysSo) {
  EXPECT_THAT(Findings(OfStatus("S", "1")), IsEmpty());
  EXPECT_THAT(Findings(OfStatus("S", "0")), ElementsAre("STATUS E Invoice FT A/1/SelfBillingIndicator [0] [1] []"));
  EXPECT_THAT(Sentences(OfStatus("S", "0")),
              ElementsAre("FT A/1: o estado do documento é S (autofaturação), mas SelfBillingIndicator não é 1.",
                          "FT A/1: the status of the document is S (self-billing), but SelfBillingIndicator is not "
                          "1."));
}

TEST_F(DocumentRulesTest, ASelfBilledDocumentIsToldInPlaceOfTheSchema) {
  EXPECT_THAT(Findings(OfStatus("S", "2")), ElementsAre("STATUS E Invoice FT A/1/SelfBillingIndicator [2] [1] []"));
  EXPECT_THAT(Findings(OfStatus("S", "0").Without("Invoice/SelfBillingIndicator")),
              ElementsAre("STATUS E Invoice FT A/1/SelfBillingIndicator [] [1] []"));
  EXPECT_THAT(Findings(OfStatus("S", "x")), ElementsAre("READ E Invoice FT A/1/SelfBillingIndicator [x] [integer] []"));
}

TEST_F(DocumentRulesTest, InAFileOfSelfBillingTheStatusIsToldOnce) {
  CleanFile file = OfStatus("S", "0").With("TaxAccountingBasis", "S").Without("GeneralLedgerEntries");
  for (const char* const invoice : {"Invoice[2]", "Invoice[3]"}) {
    file = file.With(std::string(invoice).append("/InvoiceStatus"), "S")
               .With(std::string(invoice).append("/SelfBillingIndicator"), "1");
  }
  EXPECT_THAT(Findings(file), ElementsAre("STATUS E Invoice FT A/1/SelfBillingIndicator [0] [1] []"));
}

TEST_F(DocumentRulesTest, ANormalDocumentIsNotSelfBilled) {
  EXPECT_THAT(Findings(OfStatus("N", "1")), ElementsAre("STATUS W Invoice FT A/1/SelfBillingIndicator [1] [0] []"));
  EXPECT_THAT(Sentences(OfStatus("N", "1")),
              ElementsAre("FT A/1: o estado do documento é N (normal), mas SelfBillingIndicator é 1; devia ser 0, ou o "
                          "estado S (autofaturação).",
                          "FT A/1: the status of the document is N (normal), but SelfBillingIndicator is 1; it should "
                          "be 0, or the status S (self-billing)."));
  EXPECT_THAT(Findings(OfStatus("N", "00")), IsEmpty());
  EXPECT_THAT(Findings(OfStatus("N", "2")), ElementsAre("SCHEMA E Invoice FT A/1/SelfBillingIndicator [2] [1] []"));
  EXPECT_THAT(FindingsOf("STATUS", OfStatus("A", "1")), IsEmpty());
}

TEST_F(DocumentRulesTest, TicketsAndSimplifiedInvoicesMayBeSummarised) {
  const auto of_type = [&](std::string_view type) {
    return FindingsOf("STATUS", OfStatus("F", "0").With("Invoice/InvoiceType", type));
  };
  for (const char* const type : {"TV", "TD", "FS"}) EXPECT_THAT(of_type(type), IsEmpty()) << type;
  for (const char* const type : {"FT", "VD", "NC", "ND", "AA", "DA", "RP", "RE", "CS", "LD", "RA"}) {
    EXPECT_THAT(of_type(type), ElementsAre("STATUS W Invoice FT A/1/InvoiceStatus [F] [TV, TD, FS] []")) << type;
  }
  EXPECT_THAT(of_type("XX"), IsEmpty());
  of_type("FT");
  const auto told = std::ranges::find(found_, "STATUS", &Finding::rule);
  ASSERT_NE(told, found_.end());
  EXPECT_EQ(Describe(*told, Language::kPortuguese),
            "FT A/1: o estado do documento é F (resumido noutro documento), que só se usa nos tipos TV, TD, FS.");
  EXPECT_EQ(Describe(*told, Language::kEnglish),
            "FT A/1: the status of the document is F (summarised in another document), which is used with the types "
            "TV, TD, FS only.");
}

TEST_F(DocumentRulesTest, AStatusThatCannotBeReadIsNotJudged) {
  EXPECT_THAT(Findings(OfStatus("X", "1")), ElementsAre("READ E Invoice FT A/1/InvoiceStatus [X] [N, S, A, F] []"));
}

}  // namespace
}  // namespace zevo::testing
