// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/dataset/RecordKind.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "tools/saft/dataset/Dataset.h"

namespace zevo::saft {
namespace {

TEST(RecordKindTest, RecordsOfEveryKindOfEntityCanBeListed) {
  for (const EntityKind kind : EntityKinds()) {
    EXPECT_GT(std::ranges::count(RecordKinds(), kind, &RecordKind::entity), 0) << NameOf(kind);
  }
}

TEST(RecordKindTest, EveryFileOfADatasetHasTheRecordsOfOneKind) {
  for (const DatasetFile& file : Dataset::Files()) {
    EXPECT_EQ(std::ranges::count(RecordKinds(), file.name, &RecordKind::file), 1) << file.name;
  }
}

TEST(RecordKindTest, AnElementIsToldInTheInnermostKind) {
  const auto at = [](EntityKind entity, std::string_view path) { return RecordKindAt(entity, path).name; };
  EXPECT_EQ(at(EntityKind::kCustomer, ""), "Customer");
  EXPECT_EQ(at(EntityKind::kCustomer, "BillingAddress/City"), "Customer");
  EXPECT_EQ(at(EntityKind::kInvoice, "DocumentTotals/Currency/CurrencyCode"), "Invoice");
  EXPECT_EQ(at(EntityKind::kInvoice, "LineNumber"), "Invoice");
  EXPECT_EQ(at(EntityKind::kInvoice, "Line"), "InvoiceLine");
  EXPECT_EQ(at(EntityKind::kInvoice, "Line[2]/Tax/TaxCode"), "InvoiceLine");
  EXPECT_EQ(at(EntityKind::kInvoice, "Line[2]/References[1]/CreditNote[3]/Reason"), "CreditNote");
  EXPECT_EQ(at(EntityKind::kInvoice, "Line[2]/OrderReferences[2]"), "OrderReferences");
  EXPECT_EQ(at(EntityKind::kTransaction, "Line[1]/@id"), "TransactionLine");
  EXPECT_EQ(at(EntityKind::kTaxTable, "TaxTableEntry[7]/TaxType"), "TaxTableEntry");
}

TEST(RecordKindTest, APathIsFoundWithoutItsNumbers) {
  EXPECT_EQ(WithoutNumbers("Line[12]/References/CreditNote[3]"), "Line/References/CreditNote");
  EXPECT_EQ(WithoutNumbers(""), "");
}

}  // namespace
}  // namespace zevo::saft
