// SPDX-License-Identifier: Apache-2.0
#include <zevo/model/SentenceName.h>

#include <gtest/gtest.h>

#include <string>

namespace zevo {
namespace {

TEST(SentenceNameTest, ARecordIsCalledByItsKey) {
  EXPECT_EQ(SentenceName(EntityKind::kInvoice, "FT A/12", Language::kPortuguese), "A fatura FT A/12");
  EXPECT_EQ(SentenceName(EntityKind::kInvoice, "FT A/12", Language::kEnglish), "Invoice FT A/12");
}

TEST(SentenceNameTest, OneWithoutItsKeyIsSaidToHaveNone) {
  EXPECT_EQ(SentenceName(EntityKind::kCustomer, "", Language::kPortuguese), "O cliente (sem identificação)");
  EXPECT_EQ(SentenceName(EntityKind::kCustomer, "", Language::kEnglish), "Customer (without identification)");
}

TEST(SentenceNameTest, OfWhatThereIsOneTheKeyIsNotSaid) {
  EXPECT_EQ(SentenceName(EntityKind::kHeader, "", Language::kPortuguese), "O cabeçalho");
  EXPECT_EQ(SentenceName(EntityKind::kTaxTable, "x", Language::kEnglish), "The tax table");
}

TEST(SentenceNameTest, ALongKeyIsAbridged) {
  EXPECT_EQ(SentenceName(EntityKind::kProduct, std::string(101, 'a'), Language::kEnglish),
            "Product " + std::string(100, 'a') + "…");
}

TEST(SentenceNameTest, EveryKindHasANameInBothLanguages) {
  for (const EntityKind kind : EntityKinds()) {
    EXPECT_NE(SentenceName(kind, "k", Language::kPortuguese), SentenceName(kind, "k", Language::kEnglish));
  }
}

TEST(SentenceNameTest, InFrontOfAColonItIsShorter) {
  EXPECT_EQ(LabelName(EntityKind::kInvoice, "FT A/12", Language::kPortuguese), "FT A/12");
  EXPECT_EQ(LabelName(EntityKind::kCustomer, "", Language::kPortuguese), "Cliente (sem identificação)");
  EXPECT_EQ(LabelName(EntityKind::kTaxTable, "", Language::kEnglish), "Tax table");
}

}  // namespace
}  // namespace zevo
