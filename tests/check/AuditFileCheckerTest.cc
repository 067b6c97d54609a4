// SPDX-License-Identifier: Apache-2.0
#include <zevo/adapters.h>

#include <algorithm>
#include <set>

#include "tests/check/CheckTest.h"

namespace zevo::testing {
namespace {

using ::testing::Each;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::SizeIs;
using ::testing::StartsWith;

constexpr std::string_view kOtherYear = "HDR-PERIOD W Header/FiscalYear [2011] [2008] []";

class AuditFileCheckerTest : public CheckTest {
 protected:
  // Of one error, one warning and one information.
  CleanFile OfEachSeverity() {
    return CleanFile()
        .With("Header/FiscalYear", "2011")
        .With("Header/DateCreated", "2008-12-30")
        .With("Transaction/Line[2]/RecordID", "1");
  }
};

TEST_F(AuditFileCheckerTest, InTheCleanFileNothingIsFound) {
  EXPECT_THAT(Findings(CleanFile()), IsEmpty());
  EXPECT_EQ(checker_.Verdict(), CheckVerdict::kClean);
  EXPECT_EQ(checker_.AuditException(), nullptr);
  EXPECT_EQ(checker_.BytesRead(), CleanFile().Text().size());
}

TEST_F(AuditFileCheckerTest, BeforeTheFirstCheckNothingIsKnown) {
  EXPECT_EQ(checker_.Verdict(), CheckVerdict::kNotJudged);
  EXPECT_EQ(checker_.CountOf("SCHEMA"), 0);
  EXPECT_EQ(checker_.BytesRead(), 0U);
}

TEST_F(AuditFileCheckerTest, AFindingHasItsPlace) {
  const std::string document = CleanFile().With("Header/FiscalYear", "2011").Text();
  EXPECT_THAT(Findings(document), ElementsAre(kOtherYear));
  EXPECT_EQ(document.substr(static_cast<size_t>(found_[0].place.offset), 16), "<FiscalYear>2011");
  EXPECT_EQ(found_[0].place.line, 13);
  EXPECT_EQ(found_[0].place.column, 1);
}

TEST_F(AuditFileCheckerTest, TheVerdictIsThatOfTheWorst) {
  EXPECT_THAT(Findings(OfEachSeverity()), SizeIs(3));
  EXPECT_EQ(checker_.Verdict(), CheckVerdict::kErrors);
  checker_.set_Severity("GL-RECORD", Severity::kOff);
  EXPECT_THAT(Findings(OfEachSeverity()), SizeIs(2));
  EXPECT_EQ(checker_.Verdict(), CheckVerdict::kWarnings);
  EXPECT_THAT(Findings(CleanFile().With("Header/DateCreated", "2008-12-30")),
              ElementsAre("HDR-PERIOD I Header/DateCreated [2008-12-30] [2008-12-31] []"));
  EXPECT_EQ(checker_.Verdict(), CheckVerdict::kClean);
}

TEST_F(AuditFileCheckerTest, WhatARuleTellsSofterStaysSofter) {
  EXPECT_EQ(checker_.Severity("NIF-PREFIX"), Severity::kWarning);
  checker_.set_Severity("NIF-PREFIX", Severity::kError);
  checker_.set_Severity("GL-RECORD", Severity::kInformation);
  EXPECT_EQ(checker_.Severity("NIF-PREFIX"), Severity::kError);
  const CleanFile file = OfEachSeverity().With("Header/TaxRegistrationNumber", "400000008");
  EXPECT_THAT(Findings(file), ElementsAre(kOtherYear, "HDR-PERIOD I Header/DateCreated [2008-12-30] [2008-12-31] []",
                                          "NIF-PREFIX E Header/TaxRegistrationNumber [400000008] [] []",
                                          "GL-RECORD I Transaction 2008-03-05 V 1/Line[2]/RecordID [1] [] []"));
  checker_.set_Severity("HDR-PERIOD", Severity::kInformation);
  EXPECT_THAT(Findings(CleanFile().With("Header/FiscalYear", "2011")),
              ElementsAre("HDR-PERIOD I Header/FiscalYear [2011] [2008] []"));
}

TEST_F(AuditFileCheckerTest, OfARuleSomeAreToldAndAllAreCounted) {
  CleanFile file;
  for (int i = 0; i < 25; ++i) file = file.Twice("Transaction/Line[3]");
  const auto of_rule = [&] { return FindingsOf("GL-RECORD", file); };
  EXPECT_EQ(checker_.MostFindings(), 20);
  EXPECT_THAT(of_rule(), SizeIs(20));
  EXPECT_EQ(checker_.CountOf("GL-RECORD"), 25);
  checker_.set_MostFindings(2);
  EXPECT_THAT(of_rule(), ElementsAre("GL-RECORD E Transaction 2008-03-05 V 1/Line[4]/RecordID [3] [] []",
                                     "GL-RECORD E Transaction 2008-03-05 V 1/Line[5]/RecordID [3] [] []"));
  EXPECT_EQ(checker_.CountOf("GL-RECORD"), 25);
  checker_.set_MostFindings(0);
  EXPECT_THAT(of_rule(), SizeIs(25));
  EXPECT_THROW(checker_.set_MostFindings(-1), Error);
}

TEST_F(AuditFileCheckerTest, WhatIsCertainAtTheEndIsCountedToo) {
  CleanFile file;
  for (const char* const line : {"[1]", "[2]", "[3]"}) {
    file = file.With(std::string("Transaction[2]/Line").append(line).append("/AccountID"), "29");
  }
  checker_.set_MostFindings(2);
  EXPECT_THAT(Findings(file), ElementsAre("ACC-REF E Transaction 2008-07-01 V 2/Line[1]/AccountID [29] [] []",
                                          "ACC-REF E Transaction 2008-07-01 V 2/Line[2]/AccountID [29] [] []"));
  EXPECT_EQ(checker_.CountOf("ACC-REF"), 3);
}

TEST_F(AuditFileCheckerTest, FindingsAreCountedBySeverity) {
  Findings(OfEachSeverity());
  EXPECT_EQ(checker_.CountOf("HDR-PERIOD", Severity::kError), 0);
  EXPECT_EQ(checker_.CountOf("HDR-PERIOD", Severity::kWarning), 1);
  EXPECT_EQ(checker_.CountOf("HDR-PERIOD", Severity::kInformation), 1);
  EXPECT_EQ(checker_.CountOf("HDR-PERIOD", Severity::kOff), 0);
  EXPECT_EQ(checker_.CountOf("GL-RECORD", Severity::kError), 1);
  EXPECT_THROW(checker_.CountOf("HDR-NONE", Severity::kError), Error);
  Findings(CleanFile());
  EXPECT_EQ(checker_.CountOf("GL-RECORD", Severity::kError), 0);
}

TEST_F(AuditFileCheckerTest, RecordsThatWereJudgedAreCounted) {
  EXPECT_EQ(checker_.RecordsOf(EntityKind::kInvoice), 0);
  Findings(CleanFile());
  EXPECT_EQ(checker_.RecordsOf(EntityKind::kHeader), 1);
  EXPECT_EQ(checker_.RecordsOf(EntityKind::kCustomer), 2);
  EXPECT_EQ(checker_.RecordsOf(EntityKind::kInvoice), 3);
  Findings("<html/>");
  EXPECT_EQ(checker_.RecordsOf(EntityKind::kInvoice), 0);
}

TEST_F(AuditFileCheckerTest, WithoutAFunctionFindingsAreCounted) {
  checker_.Found = nullptr;
  EXPECT_THAT(Findings(OfEachSeverity()), IsEmpty());
  EXPECT_EQ(checker_.Verdict(), CheckVerdict::kErrors);
  EXPECT_EQ(checker_.CountOf("HDR-PERIOD"), 2);
  EXPECT_EQ(checker_.CountOf("GL-RECORD"), 1);
}

TEST_F(AuditFileCheckerTest, TheSameFileGivesTheSameFindings) {
  const CleanFile file = OfEachSeverity().With("Invoice/InvoiceType", "X").With("Transaction[3]/Line/AccountID", "29");
  const std::vector<std::string> first = Findings(file);
  EXPECT_THAT(first, SizeIs(5));
  EXPECT_EQ(Findings(file), first);
  AuditFileChecker another;
  std::vector<Finding> found;
  another.Found = [&](const Finding& finding) { found.push_back(finding); };
  another.set_AuditFileName(checker_.AuditFileName());
  EXPECT_TRUE(another.CheckAuditFile());
  EXPECT_EQ(found, found_);
}

TEST_F(AuditFileCheckerTest, WhatTheSchemaDoesNotAllowIsToldInTheWordsOfTheValidator) {
  EXPECT_THAT(
      Findings(CleanFile().Without("Invoice[2]/Hash").With("Product/ProductDescription", "")),
      ElementsAre("SCHEMA E Product PAO/ProductDescription [] [1] []", "SCHEMA E Invoice FT A/2/Hash [] [Hash] []"));
  EXPECT_EQ(checker_.Verdict(), CheckVerdict::kErrors);
  EXPECT_THAT(Sentences(CleanFile().Without("Invoice[2]/Hash")),
              ElementsAre("A fatura FT A/2 não tem Hash, que é obrigatório.",
                          "Invoice FT A/2 has no Hash, which is required."));
}

TEST_F(AuditFileCheckerTest, WhatCannotBeReadIsToldByReadAlone) {
  EXPECT_THAT(Findings(CleanFile().With("Invoice/Line/CreditAmount", "x")),
              ElementsAre("READ E Invoice FT A/1/Line[1]/CreditAmount [x] [decimal] []"));
  EXPECT_THAT(Findings(CleanFile().With("Transaction/Line/DebitAmount", "33,10")),
              ElementsAre("READ E Transaction 2008-03-05 V 1/Line[1]/DebitAmount [33,10] [decimal] []"));
  EXPECT_THAT(Findings(CleanFile().With("Header/StartDate", "2008-02-30")),
              ElementsAre("READ E Header/StartDate [2008-02-30] [date] []"));
  EXPECT_THAT(Findings(CleanFile().With("Header/TaxRegistrationNumber", "PT501234560")),
              ElementsAre("READ E Header/TaxRegistrationNumber [PT501234560] [integer] []"));
  EXPECT_THAT(Findings(CleanFile().With("Invoice/InvoiceStatus", "Q")),
              ElementsAre("READ E Invoice FT A/1/InvoiceStatus [Q] [N, S, A, F] []"));
  EXPECT_THAT(FindingsOf("READ", CleanFile().With("Customer/BillingAddress/Country", "Portugal")), SizeIs(1));
  EXPECT_THAT(
      Sentences(CleanFile().With("Invoice/Line/CreditAmount", "x")),
      ElementsAre("A fatura FT A/1: Line[1]/CreditAmount, \"x\", tem de ser um número, com ponto antes das decimais.",
                  "Invoice FT A/1: Line[1]/CreditAmount, \"x\", must be a number, with a point before its decimals."));
}

TEST_F(AuditFileCheckerTest, ARuleThatIsOffLeavesItsFaultToTheSchema) {
  const CleanFile unreadable = CleanFile().With("Invoice/Line/CreditAmount", "x");
  checker_.set_Severity("READ", Severity::kOff);
  EXPECT_THAT(Findings(unreadable), ElementsAre("SCHEMA E Invoice FT A/1/Line[1]/CreditAmount [x] [decimal] []"));
  checker_.set_Severity("KEY-DUP", Severity::kOff);
  checker_.set_Severity("KEY-REF", Severity::kOff);
  EXPECT_THAT(Findings(CleanFile().Twice("Product")), ElementsAre("SCHEMA E Product PAO/ProductCode [PAO] [] []"));
  EXPECT_THAT(Findings(CleanFile().With("Invoice/CustomerID", "C9")),
              ElementsAre("SCHEMA E Invoice FT A/1/CustomerID [C9] [Customer] []"));
}

TEST_F(AuditFileCheckerTest, AnErrorOfARuleIsToldInsteadOfTheSchemas) {
  EXPECT_THAT(Findings(CleanFile().With("Header/TaxRegistrationNumber", "50123")),
              ElementsAre("NIF-CHECK E Header/TaxRegistrationNumber [50123] [] []"));
  EXPECT_EQ(checker_.CountOf("SCHEMA"), 0);
}

TEST_F(AuditFileCheckerTest, TheSchemasIsToldInsteadOfWhatIsSofter) {
  EXPECT_THAT(Findings(CleanFile().With("Customer/CustomerTaxID", "")),
              ElementsAre("SCHEMA E Customer C1/CustomerTaxID [] [1] []"));
  EXPECT_EQ(checker_.CountOf("NIF-CHECK"), 0);
}

// A header whose tax number is wrong, with as many unknown elements behind it.
CleanFile WithUnknown(size_t elements) {
  std::string unknown;
  for (size_t i = 0; i < elements; ++i) unknown += "<x></x>";
  return CleanFile().With("Header/TaxRegistrationNumber", "50123").Behind("Header/TaxRegistrationNumber", unknown);
}

TEST_F(AuditFileCheckerTest, ViolationsWaitForTheRules) {
  const std::vector<std::string> findings = Findings(WithUnknown(9'999));
  EXPECT_THAT(findings, SizeIs(21));
  EXPECT_EQ(findings.front(), "NIF-CHECK E Header/TaxRegistrationNumber [50123] [] []");
  EXPECT_THAT(std::span(findings).subspan(1), Each(StartsWith("SCHEMA E Header/x")));
  EXPECT_EQ(checker_.CountOf("SCHEMA"), 9'999);
}

TEST_F(AuditFileCheckerTest, OfMoreThanWaitEachFaultIsToldOnceToo) {
  std::vector<std::string> findings = Findings(WithUnknown(10'000));
  EXPECT_THAT(findings, SizeIs(20));
  EXPECT_THAT(findings.front(), StartsWith("SCHEMA E Header/TaxRegistrationNumber [50123]"));
  EXPECT_EQ(checker_.CountOf("SCHEMA"), 10'001);
  EXPECT_EQ(checker_.CountOf("NIF-CHECK"), 0);

  checker_.set_MostFindings(0);
  found_.clear();
  findings = Findings(WithUnknown(12'000));
  EXPECT_THAT(findings, SizeIs(12'001));
  EXPECT_EQ(std::set(findings.begin(), findings.end()).size(), findings.size());
  EXPECT_EQ(checker_.CountOf("SCHEMA"), 12'001);
}

TEST_F(AuditFileCheckerTest, AVersionThatIsWrittenOtherwiseIsAWarning) {
  EXPECT_THAT(Findings(CleanFile().With("Header/AuditFileVersion", "1.04_01")),
              ElementsAre("VERSION W Header/AuditFileVersion [1.04_01] [1.01_01] []"));
  // The point of the schema's pattern is any character.
  EXPECT_THAT(Findings(CleanFile().With("Header/AuditFileVersion", "1x01_01")),
              ElementsAre("VERSION W Header/AuditFileVersion [1x01_01] [1.01_01] []"));
  EXPECT_EQ(checker_.Verdict(), CheckVerdict::kWarnings);
  EXPECT_THAT(Sentences(CleanFile().With("Header/AuditFileVersion", "1.04_01")),
              ElementsAre("Cabeçalho: a versão é \"1.04_01\", e devia ser exatamente \"1.01_01\".",
                          "Header: the version is \"1.04_01\" and should be exactly \"1.01_01\"."));
}

TEST_F(AuditFileCheckerTest, OfAFileOfAnotherVersionNothingElseIsJudged) {
  EXPECT_THAT(Findings("<AuditFile xmlns=\"urn:OECD:StandardAuditFile-Tax:PT_1.04_01\"><Header/></AuditFile>"),
              ElementsAre("VERSION E /AuditFile [1.04_01] [1.01_01] []",
                          "O ficheiro é da versão 1.04_01; só a versão 1.01_01 é lida"));
  EXPECT_EQ(checker_.AuditException()->Number(), kErrorBase + 601);
  EXPECT_EQ(checker_.Verdict(), CheckVerdict::kNotJudged);
  EXPECT_EQ(checker_.CountOf("VERSION"), 1);
  EXPECT_EQ(checker_.MessageOf(found_[0]), "O ficheiro é da versão 1.04_01; só a versão 1.01_01 é verificada.");
  checker_.set_Language(Language::kEnglish);
  EXPECT_EQ(checker_.MessageOf(found_[0]), "The file is of version 1.04_01; only version 1.01_01 is checked.");
  EXPECT_THAT(Findings("<AuditFile><Header><AuditFileVersion>1.03_01</AuditFileVersion></Header></AuditFile>"),
              ElementsAre("VERSION E /AuditFile [1.03_01] [1.01_01] []",
                          "O ficheiro é da versão 1.03_01; só a versão 1.01_01 é lida"));
}

TEST_F(AuditFileCheckerTest, WhatIsNoAuditFileIsNotJudged) {
  EXPECT_THAT(Findings("<html/>"),
              ElementsAre("VERSION E /AuditFile [html] [] []", "O ficheiro não é um ficheiro de auditoria"));
  EXPECT_EQ(checker_.AuditException()->Number(), kErrorBase + 602);
  EXPECT_THAT(Findings("<AuditFile xmlns=\"urn:x\"/>"),
              ElementsAre("VERSION E /AuditFile [urn:x] [] []", "O ficheiro não é um ficheiro de auditoria"));
  EXPECT_THAT(Findings("<html"), SizeIs(1));  // the error of the parser, and no finding
  EXPECT_EQ(checker_.Verdict(), CheckVerdict::kNotJudged);
}

TEST_F(AuditFileCheckerTest, AFileThatBreaksOffIsNotJudgedButForWhatWasFound) {
  const std::string document = CleanFile().With("Header/FiscalYear", "2011").Text();
  for (const size_t size : {document.size() - 5, document.find("<SourceDocuments>") + 10}) {
    const auto findings = Findings(document.substr(0, size));
    ASSERT_THAT(findings, SizeIs(2));
    EXPECT_EQ(findings[0], kOtherYear);
    EXPECT_THAT(findings[1], HasSubstr("(linha "));
    EXPECT_EQ(checker_.Verdict(), CheckVerdict::kNotJudged);
    EXPECT_EQ(checker_.CountOf("HDR-PERIOD"), 1);
  }
}

TEST_F(AuditFileCheckerTest, ACheckMayBeAborted) {
  checker_.Found = [this](const Finding& finding) {
    found_.push_back(finding);
    checker_.AbortChecking();
  };
  const auto findings = Findings(OfEachSeverity());
  ASSERT_THAT(findings, SizeIs(3));  // those of the header, and the error
  EXPECT_EQ(checker_.AuditException()->Number(), kErrorBase + 501);
  EXPECT_EQ(checker_.Verdict(), CheckVerdict::kNotJudged);
  checker_.Found = nullptr;
  EXPECT_THAT(Findings(CleanFile()), IsEmpty());
}

// Of more than 256 KiB, of which the rules judge the last only.
std::string LongFile() {
  std::string document = CleanFile().With("Header/FiscalYear", "2011").Text();
  return document.insert(document.find("<AuditFile"), "<!--" + std::string(1'000'000, ' ') + "-->");
}

TEST_F(AuditFileCheckerTest, ProgressIsToldOfEachPass) {
  const std::string document = LongFile();
  std::vector<int64_t> told;
  checker_.Progress = [&](int64_t bytes) {
    told.push_back(bytes);
    return true;
  };
  EXPECT_THAT(Findings(document), ElementsAre(kOtherYear));
  EXPECT_EQ(std::ranges::count(told, static_cast<int64_t>(document.size())), 2);
  EXPECT_GE(told.size(), 6U);
}

TEST_F(AuditFileCheckerTest, ACheckMayBeAbortedBeforeTheRulesJudge) {
  const std::string document = LongFile();
  checker_.Progress = [&](int64_t bytes) {
    EXPECT_EQ(checker_.BytesRead(), static_cast<uint64_t>(bytes));
    checker_.AbortChecking();
    return true;
  };
  EXPECT_THAT(Findings(document), ElementsAre("Leitura do ficheiro abortada pelo utilizador."));
  EXPECT_EQ(checker_.AuditException()->Number(), kErrorBase + 501);
  EXPECT_EQ(checker_.Verdict(), CheckVerdict::kNotJudged);
  EXPECT_LT(checker_.BytesRead(), document.size());
}

TEST_F(AuditFileCheckerTest, ProgressMayEndTheCheck) {
  checker_.Progress = [](int64_t) { return false; };
  EXPECT_THAT(Findings(LongFile()), ElementsAre("Leitura do ficheiro abortada pelo utilizador."));
  EXPECT_EQ(checker_.AuditException()->Source(), "AuditFileChecker.CheckAuditFile");
  checker_.Progress = [](int64_t) -> bool { throw Error(6, "Host", "enough"); };
  EXPECT_THAT(Findings(LongFile()), ElementsAre("enough"));
}

TEST_F(AuditFileCheckerTest, ACheckInsideAnotherIsRefusedAndLeavesItAsItIs) {
  const std::vector<std::string> alone = Findings(OfEachSeverity());
  checker_.Found = [this](const Finding& finding) {
    found_.push_back(finding);
    EXPECT_FALSE(checker_.CheckAuditFile());
    EXPECT_EQ(checker_.AuditException()->Number(), kErrorBase + 4);
  };
  EXPECT_EQ(Findings(OfEachSeverity()), alone);
  EXPECT_EQ(checker_.AuditException(), nullptr);
  EXPECT_EQ(checker_.Verdict(), CheckVerdict::kErrors);
  EXPECT_EQ(checker_.CountOf("HDR-PERIOD"), 2);
}

TEST_F(AuditFileCheckerTest, WhatTheFunctionThrowsIsAFailure) {
  checker_.Found = [](const Finding&) { throw Error(6, "Host", "enough"); };
  EXPECT_THAT(Findings(OfEachSeverity()), ElementsAre("enough"));
  EXPECT_EQ(checker_.Verdict(), CheckVerdict::kNotJudged);
}

TEST_F(AuditFileCheckerTest, WithoutAFileOrASchemaItFails) {
  EXPECT_FALSE(checker_.CheckAuditFile());
  EXPECT_EQ(checker_.AuditException()->Number(), kErrorBase + 1);
  EXPECT_EQ(checker_.AuditException()->Source(), "AuditFileChecker.CheckAuditFile");
  checker_.set_AuditFileName(folder_.Path("none.xml"));
  EXPECT_FALSE(checker_.CheckAuditFile());
  EXPECT_EQ(checker_.AuditException()->Number(), kErrorBase + 2);
  checker_.set_AuditFileSchema(folder_.Path("none.xsd"));
  EXPECT_THAT(Findings(CleanFile()), ElementsAre(HasSubstr("none.xsd")));
  EXPECT_EQ(checker_.Verdict(), CheckVerdict::kNotJudged);
}

TEST_F(AuditFileCheckerTest, OfWhatTheSchemasTablesCannotSayLibxml2Tells) {
  std::string document = CleanFile().With("Invoice/InvoiceStatus", "Q").With("Header/FiscalYear", "2011").Text();
  document.replace(document.find("<Header>"), 8,
                   "<Header xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\" xsi:nil=\"0\">");
  const auto findings = Findings(document);
  ASSERT_FALSE(findings.empty());
  EXPECT_EQ(findings[0], kOtherYear);
  EXPECT_THAT(std::span(findings).subspan(1), Each(StartsWith("SCHEMA E  [")));
  EXPECT_EQ(checker_.Verdict(), CheckVerdict::kErrors);
}

TEST_F(AuditFileCheckerTest, RulesAreKnownByTheirIdentifiers) {
  EXPECT_THROW(checker_.set_Severity("HDR-NONE", Severity::kOff), Error);
  EXPECT_THROW(checker_.Severity("hdr-period"), Error);
  EXPECT_THROW(checker_.CountOf(""), Error);
  std::set<std::string_view> identifiers;
  for (const RuleInfo& rule : AuditFileChecker::Rules()) {
    EXPECT_TRUE(identifiers.insert(rule.id).second) << rule.id;
    EXPECT_EQ(checker_.Severity(rule.id), rule.severity);
    EXPECT_NE(rule.severity, Severity::kOff);
    for (const Language language : {Language::kPortuguese, Language::kEnglish}) {
      const auto index = static_cast<size_t>(language);
      EXPECT_FALSE(rule.title[index].empty() || rule.title[index].ends_with('.')) << rule.id;
      EXPECT_TRUE(rule.explanation[index].ends_with('.')) << rule.id;
    }
  }
}

TEST_F(AuditFileCheckerTest, APublicKeyIsOne) {
  EXPECT_NO_THROW(
      checker_.AddPublicKey("-----BEGIN PUBLIC KEY-----\n"
                            "MIGfMA0GCSqGSIb3DQEBAQUAA4GNADCBiQKBgQDCZzbyZWlQNfWmlp4llcwQqltb\n"
                            "ej1SV5oZoXiKZyTNGjRCWPAs6Y5QKJgxXcnJi15he7XYOhr1JgZzvWR3jv33mVWk\n"
                            "TFLN1y3MVlo4lx0e740ojpzO0vy2t+37tE/+4CzCE2GFYlBuxNMB3SEMCKW3/9fx\n"
                            "vlzCxL9Dg8z+4v1qEwIDAQAB\n"
                            "-----END PUBLIC KEY-----\n",
                            1));
  try {
    checker_.AddPublicKey("1234");
    FAIL();
  } catch (const Error& error) {
    EXPECT_EQ(error.Number(), 5);
  }
}

}  // namespace
}  // namespace zevo::testing
