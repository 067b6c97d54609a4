// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>
#include <zevo/model/Finding.h>
#include <zevo/model/Violation.h>

#include <string>

namespace zevo {
namespace {

constexpr Sentence kTotal{"o total é {found#}, e devia ser {expected#} (diferença {difference#})",
                          "the total is {found#} and should be {expected#} (difference {difference#})"};
constexpr Sentence kPlain{"{found} devia ser {expected}", "{found} should be {expected}"};

Finding Of(EntityKind kind, std::string key, std::string path) {
  Finding finding;
  finding.rule = "TOT-GROSS";
  finding.kind = kind;
  finding.key = std::move(key);
  finding.path = std::move(path);
  finding.found = "92.26";
  finding.expected = "75.00 + 17.25 = 92.25";
  finding.difference = "0.01";
  finding.wording.sentence = &kTotal;
  return finding;
}

std::string Portuguese(const Finding& finding) { return Describe(finding, Language::kPortuguese); }
std::string English(const Finding& finding) { return Describe(finding, Language::kEnglish); }

TEST(FindingTest, ASentenceHasItsNumbersWithACommaInPortuguese) {
  const Finding finding = Of(EntityKind::kInvoice, "FT A/12", "DocumentTotals/GrossTotal");
  EXPECT_EQ(Portuguese(finding), "FT A/12: o total é 92,26, e devia ser 75,00 + 17,25 = 92,25 (diferença 0,01).");
  EXPECT_EQ(English(finding), "FT A/12: the total is 92.26 and should be 75.00 + 17.25 = 92.25 (difference 0.01).");
}

TEST(FindingTest, WhatIsNoNumberKeepsItsPoints) {
  Finding finding = Of(EntityKind::kProduct, "P.1", "ProductCode");
  finding.wording.sentence = &kPlain;
  EXPECT_EQ(Portuguese(finding), "Produto P.1: 92.26 devia ser 75.00 + 17.25 = 92.25.");
}

TEST(FindingTest, ASentenceMayNameEachOfSeveralValues) {
  static constexpr Sentence kEach{"são {expected1#}, {expected3} e {expected2#}[{expected4}]",
                                  "they are {expected1#}, {expected3} and {expected2#}[{expected4}]"};
  Finding finding = Of(EntityKind::kSalesInvoices, "", "TotalDebit");
  finding.expected = std::string(90, '1') + ".00 (5.00), 42.00 (3.00), 9.5";
  finding.wording.sentence = &kEach;
  EXPECT_EQ(Portuguese(finding), "Faturas: são " + std::string(90, '1') + ",00 (5,00), 9.5 e 42,00 (3,00)[].");
  EXPECT_EQ(English(finding), "Invoices: they are " + std::string(90, '1') + ".00 (5.00), 9.5 and 42.00 (3.00)[].");
}

TEST(FindingTest, ASentenceBeginsWithTheRecord) {
  const auto begins = [](EntityKind kind, std::string key, std::string path = {}) {
    const Finding finding = Of(kind, std::move(key), std::move(path));
    return Portuguese(finding).substr(0, Portuguese(finding).find(": o total")) + "|" +
           English(finding).substr(0, English(finding).find(": the total"));
  };
  EXPECT_EQ(begins(EntityKind::kHeader, ""), "Cabeçalho|Header");
  EXPECT_EQ(begins(EntityKind::kGeneralLedger, "21"), "Conta 21|Account 21");
  EXPECT_EQ(begins(EntityKind::kCustomer, "C1"), "Cliente C1|Customer C1");
  EXPECT_EQ(begins(EntityKind::kSupplier, "F1"), "Fornecedor F1|Supplier F1");
  EXPECT_EQ(begins(EntityKind::kProduct, "P1"), "Produto P1|Product P1");
  EXPECT_EQ(begins(EntityKind::kTaxTable, ""), "Tabela de impostos|Tax table");
  EXPECT_EQ(begins(EntityKind::kGeneralLedgerEntries, ""), "Movimentos contabilísticos|Ledger entries");
  EXPECT_EQ(begins(EntityKind::kJournal, "V"), "Diário V|Journal V");
  EXPECT_EQ(begins(EntityKind::kTransaction, "T", "Line[2]/DebitAmount"), "Movimento T, linha 2|Transaction T, line 2");
  EXPECT_EQ(begins(EntityKind::kSalesInvoices, ""), "Faturas|Invoices");
  EXPECT_EQ(begins(EntityKind::kInvoice, "FT A/1", "Line[12]"), "FT A/1, linha 12|FT A/1, line 12");
  EXPECT_EQ(begins(EntityKind::kInvoice, "FT A/1", "Line/Quantity"), "FT A/1|FT A/1");
  EXPECT_EQ(begins(EntityKind::kCustomer, ""), "Cliente (sem identificação)|Customer (without identification)");
}

TEST(FindingTest, LongValuesAreAbridged) {
  Finding finding = Of(EntityKind::kProduct, std::string(200, 'k'), "");
  finding.found = std::string(200, '7');
  EXPECT_EQ(English(finding), "Product " + std::string(100, 'k') + "…: the total is " + std::string(100, '7') +
                                  "… and should be 75.00 + 17.25 = 92.25 (difference 0.01).");
}

TEST(FindingTest, AViolationIsInItsOwnWords) {
  const Violation violation{.number = 1840,
                            .kind = EntityKind::kInvoice,
                            .key = "FT A/1",
                            .path = "InvoiceStatus",
                            .place = {},
                            .value = "Q",
                            .allowed = "N, S"};
  Finding finding = Of(EntityKind::kInvoice, "FT A/1", "InvoiceStatus");
  finding.found = "Q";
  finding.expected = "N, S";
  finding.wording = {.sentence = nullptr, .violation = 1840};
  finding.place = {.line = 7, .column = 3, .offset = 100};
  for (const Language language : {Language::kPortuguese, Language::kEnglish}) {
    EXPECT_EQ(Describe(finding, language), Describe(violation, language));
  }
}

TEST(FindingTest, ASentenceOfTheWholeRecordNamesNoLine) {
  static constexpr Sentence kWhole{"falta {expected}", "{expected} is missing", true};
  Finding finding = Of(EntityKind::kInvoice, "NC A/1", "Line[2]/References");
  finding.expected = "Reference";
  finding.wording.sentence = &kWhole;
  EXPECT_EQ(Portuguese(finding), "NC A/1: falta Reference.");
  EXPECT_EQ(English(finding), "NC A/1: Reference is missing.");
}

TEST(FindingTest, WithoutARecordASentenceBeginsWithACapital) {
  Finding finding = Of(EntityKind::kHeader, "", "/AuditFile");
  finding.kind.reset();
  EXPECT_EQ(Portuguese(finding), "O total é 92,26, e devia ser 75,00 + 17,25 = 92,25 (diferença 0,01).");
  EXPECT_EQ(English(finding), "The total is 92.26 and should be 75.00 + 17.25 = 92.25 (difference 0.01).");
}

TEST(FindingTest, WithoutASentenceItSaysWhatItHas) {
  Finding finding = Of(EntityKind::kInvoice, "FT A/1", "DocumentTotals/GrossTotal");
  finding.wording = {};
  EXPECT_EQ(Portuguese(finding),
            "FT A/1: TOT-GROSS, DocumentTotals/GrossTotal: encontrado \"92.26\", esperado \"75.00 + 17.25 = 92.25\".");
  finding.expected.clear();
  finding.kind.reset();
  EXPECT_EQ(English(finding), "TOT-GROSS, DocumentTotals/GrossTotal: found \"92.26\".");
}

}  // namespace
}  // namespace zevo
