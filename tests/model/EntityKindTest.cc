// SPDX-License-Identifier: Apache-2.0
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <zevo/adapters.h>

#include <string>
#include <vector>

namespace zevo {
namespace {

using ::testing::ElementsAre;

TEST(EntityKindTest, KindsComeInTheOrderOfTheFile) {
  std::vector<std::string> names;
  for (const EntityKind kind : EntityKinds()) names.emplace_back(NameOf(kind));
  EXPECT_THAT(names, ElementsAre("Header", "GeneralLedger", "Customer", "Supplier", "Product", "TaxTable",
                                 "GeneralLedgerEntries", "Journal", "Transaction", "SalesInvoices", "Invoice"));
}

TEST(EntityKindTest, AKindIsFoundByItsNameInAnyLetterCase) {
  for (const EntityKind kind : EntityKinds()) EXPECT_EQ(EntityKindOf(NameOf(kind)), kind);
  EXPECT_EQ(EntityKindOf("cUSTOMER"), EntityKind::kCustomer);
  for (const char* other : {"", "Customers", "Custome", "Line", "MasterFiles", "Customer "}) {
    EXPECT_EQ(EntityKindOf(other), std::nullopt) << other;
  }
}

TEST(EntityKindTest, KindsOfSeveralRecordsHaveAKey) {
  std::vector<std::string> keys;
  for (const EntityKind kind : EntityKinds()) keys.emplace_back(KeyOf(kind));
  EXPECT_THAT(keys, ElementsAre("", "AccountID", "CustomerID", "SupplierID", "ProductCode", "", "", "JournalID",
                                "TransactionID", "", "InvoiceNo"));
}

TEST(EntityKindTest, PathsLeadFromTheRootThroughTheParent) {
  EXPECT_EQ(PathOf(EntityKind::kHeader), "/AuditFile/Header");
  EXPECT_EQ(PathOf(EntityKind::kGeneralLedger), "/AuditFile/MasterFiles/GeneralLedger");
  EXPECT_EQ(PathOf(EntityKind::kInvoice), "/AuditFile/SourceDocuments/SalesInvoices/Invoice");
  for (const EntityKind kind : EntityKinds()) {
    const std::string path(PathOf(kind));
    EXPECT_TRUE(path.ends_with("/" + std::string(NameOf(kind)))) << path;
    if (!ParentOf(kind)) continue;
    EXPECT_EQ(path, std::string(PathOf(*ParentOf(kind))) + "/" + std::string(NameOf(kind)));
  }
}

TEST(EntityKindTest, EntriesStandInTheirParents) {
  EXPECT_EQ(ParentOf(EntityKind::kJournal), EntityKind::kGeneralLedgerEntries);
  EXPECT_EQ(ParentOf(EntityKind::kTransaction), EntityKind::kJournal);
  EXPECT_EQ(ParentOf(EntityKind::kInvoice), EntityKind::kSalesInvoices);
  int parents = 0;
  for (const EntityKind kind : EntityKinds()) {
    if (!ParentOf(kind)) continue;
    ++parents;
    EXPECT_TRUE(HoldsEntries(*ParentOf(kind)));
  }
  EXPECT_EQ(parents, 3);
  EXPECT_FALSE(HoldsEntries(EntityKind::kTransaction));
  EXPECT_FALSE(HoldsEntries(EntityKind::kHeader));
}

template <class R>
void ExpectEntity(EntityKind kind) {
  const R record;
  EXPECT_EQ(static_cast<const Record&>(record).Kind(), kind);
  EXPECT_EQ(PropertiesOf(static_cast<const Record&>(record)).data(), PropertiesOf<R>().data()) << NameOf(kind);
}

TEST(EntityKindTest, EveryRecordTellsItsKindAndItsProperties) {
  ExpectEntity<Header>(EntityKind::kHeader);
  ExpectEntity<GeneralLedger>(EntityKind::kGeneralLedger);
  ExpectEntity<Customer>(EntityKind::kCustomer);
  ExpectEntity<Supplier>(EntityKind::kSupplier);
  ExpectEntity<Product>(EntityKind::kProduct);
  ExpectEntity<TaxTable>(EntityKind::kTaxTable);
  ExpectEntity<GeneralLedgerEntries>(EntityKind::kGeneralLedgerEntries);
  ExpectEntity<Journal>(EntityKind::kJournal);
  ExpectEntity<Transaction>(EntityKind::kTransaction);
  ExpectEntity<SalesInvoices>(EntityKind::kSalesInvoices);
  ExpectEntity<Invoice>(EntityKind::kInvoice);
}

TEST(EntityKindTest, PartsOfARecordHaveNoKind) {
  EXPECT_EQ(InvoiceLine().Kind(), std::nullopt);
  EXPECT_EQ(TransactionLine().Kind(), std::nullopt);
  EXPECT_EQ(AddressStructure().Kind(), std::nullopt);
  EXPECT_EQ(TaxTableEntry().Kind(), std::nullopt);
  const AddressStructure address;
  EXPECT_EQ(PropertiesOf(static_cast<const Record&>(address)).data(), PropertiesOf<AddressStructure>().data());
}

}  // namespace
}  // namespace zevo
