// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>
#include <zevo/check/EntityFacts.h>
#include <zevo/dal/EntityScanner.h>

#include <memory>

#include <string>
#include <string_view>

#include "tests/support/TemporaryFolder.h"

namespace zevo {
namespace {

class EntityFactsTest : public ::testing::Test {
 protected:
  // The facts of the first entity of a kind in a file that holds this.
  template <class Facts>
  Facts Of(EntityKind kind, std::string_view document) {
    scanner_ = std::make_unique<EntityScanner>(folder_.Write("file.xml", document));
    scanner_->Open("Test");
    Facts facts;
    while (const ScannedEntity* const entity = scanner_->Next("Test")) {
      if (entity->Kind() != kind) continue;
      TakeFacts(*entity, facts);
      return facts;
    }
    ADD_FAILURE() << "no such entity";
    return facts;
  }
  InvoiceFacts OfInvoice(std::string_view content) {
    return Of<InvoiceFacts>(EntityKind::kInvoice,
                            std::string("<AuditFile><SourceDocuments><SalesInvoices><Invoice>")
                                .append(content)
                                .append("</Invoice></SalesInvoices></SourceDocuments></AuditFile>"));
  }

  testing::TemporaryFolder folder_;
  std::unique_ptr<EntityScanner> scanner_;
};

TEST_F(EntityFactsTest, AnInvoiceHasWhatTheFileHas) {
  const auto facts = Of<InvoiceFacts>(EntityKind::kInvoice, testing::ReadBytes(ZEVO_COMPLETE_FILE));
  EXPECT_EQ(*facts.key, "FT 2008/1");
  EXPECT_EQ(*facts.number, "FT 2008/1");
  EXPECT_EQ(*facts.status, "N");
  EXPECT_EQ(*facts.hash, "mYJEv4iGwLcnQbRD7dPs2uD1mX08XjXIKcGg3GEHmwM=");
  EXPECT_EQ(*facts.hash_control, "1.0");
  EXPECT_EQ(*facts.period, 12);
  EXPECT_EQ(facts.date->Text(), "2008-03-09");
  EXPECT_EQ(*facts.type, "FT");
  EXPECT_EQ(*facts.self_billing, 0);
  EXPECT_EQ(facts.entry_date->hour, 10);
  EXPECT_EQ(*facts.transaction_id, "2008-03-09 VENDAS 0009");
  EXPECT_EQ(*facts.customer, "C1");
  EXPECT_EQ(facts.ship_to.delivery_date->Text(), "2008-03-10");
  EXPECT_EQ(*facts.ship_to.address.postal_code, "3500-115");
  EXPECT_EQ(facts.ship_from.delivery_date->Text(), "2008-03-11");
  EXPECT_EQ(*facts.ship_from.address.country, "CH");
  EXPECT_EQ(facts.totals.tax->Text(), "2.4");
  EXPECT_EQ(facts.totals.net->Text(), "15.5");
  EXPECT_EQ(facts.totals.gross->Text(), "17.9");
  EXPECT_EQ(*facts.totals.currency.code, "USD");
  EXPECT_EQ(facts.totals.currency.credit->Text(), "25");
  EXPECT_TRUE(facts.totals.currency.debit.Missing());
  EXPECT_EQ(facts.totals.settlement.date->Text(), "2008-04-08");
}

TEST_F(EntityFactsTest, SoDoItsLines) {
  const auto facts = Of<InvoiceFacts>(EntityKind::kInvoice, testing::ReadBytes(ZEVO_COMPLETE_FILE));
  ASSERT_EQ(facts.lines.size(), 2U);
  const InvoiceLineFacts& line = facts.lines[0];
  EXPECT_EQ(*line.number, 1);
  ASSERT_EQ(line.orders.size(), 2U);
  EXPECT_EQ(*line.orders[0].number, "Encomenda 1");
  EXPECT_EQ(line.orders[0].date->Text(), "2008-03-01");
  EXPECT_TRUE(line.orders[1].date.Missing());
  EXPECT_EQ(*line.product, "PAO");
  EXPECT_EQ(line.quantity->Text(), "10");
  EXPECT_EQ(line.unit_price->Text(), "2");
  EXPECT_EQ(line.tax_point->Text(), "2008-03-12");
  EXPECT_EQ(*line.references.credit_note.reference, "FT 2008/0");
  EXPECT_EQ(*line.references.credit_note.reason, "Devolução");
  EXPECT_TRUE(line.debit.Missing());
  EXPECT_EQ(line.credit->Text(), "20");
  EXPECT_TRUE(line.tax.there);
  EXPECT_EQ(*line.tax.type, "IVA");
  EXPECT_EQ(*line.tax.region, "PT");
  EXPECT_EQ(*line.tax.code, "INT");
  EXPECT_EQ(line.tax.percentage->Text(), "12");
  EXPECT_TRUE(line.tax.amount.Missing());
  EXPECT_EQ(*line.exemption_reason, "Artigo 9.º");
  EXPECT_EQ(line.settlement->Text(), "1");
  EXPECT_EQ(facts.entity->PathOf(line.credit.element), "Line[1]/CreditAmount");
  EXPECT_EQ(facts.lines[1].debit->Text(), "4.5");
  EXPECT_FALSE(facts.lines[1].tax.there);
}

TEST_F(EntityFactsTest, ATaxTableHasItsEntries) {
  const auto facts = Of<TaxTableFacts>(EntityKind::kTaxTable, testing::ReadBytes(ZEVO_COMPLETE_FILE));
  ASSERT_EQ(facts.entries.size(), 2U);
  EXPECT_EQ(*facts.entries[0].region, "PT-AC");
  EXPECT_EQ(facts.entries[0].expires->Text(), "2010-06-30");
  EXPECT_EQ(facts.entries[0].percentage->Text(), "4");
  EXPECT_EQ(*facts.entries[1].code, "17.3.1");
  EXPECT_EQ(facts.entries[1].amount->Text(), "5.25");
}

TEST_F(EntityFactsTest, OfWhatIsRepeatedTheFirstCountsAndTheOrderDoesNot) {
  const InvoiceFacts facts = OfInvoice(
      "<InvoiceDate>2008-01-02</InvoiceDate><InvoiceNo>FT A/1</InvoiceNo><InvoiceNo>FT A/2</InvoiceNo>"
      "<InvoiceDate>2008-01-03</InvoiceDate>");
  EXPECT_EQ(*facts.number, "FT A/1");
  EXPECT_EQ(facts.date->Text(), "2008-01-02");
}

TEST_F(EntityFactsTest, WhatCannotBeReadIsThereAndNotRead) {
  const InvoiceFacts facts = OfInvoice(
      "<Period>3.0</Period><InvoiceDate>2008-02-30</InvoiceDate><SystemEntryDate/><DocumentTotals>"
      "<NetTotal>1,5</NetTotal><GrossTotal> +1.50 </GrossTotal></DocumentTotals>");
  for (const bool there : {facts.period.IsThere(), facts.date.IsThere(), facts.entry_date.IsThere(),
                           facts.totals.net.IsThere(), facts.totals.gross.Read(), facts.totals.tax.Missing()}) {
    EXPECT_TRUE(there);
  }
  for (const bool read :
       {facts.period.Read(), facts.date.Read(), facts.entry_date.Read(), facts.totals.net.Read(), facts.hash.Read()}) {
    EXPECT_FALSE(read);
  }
}

TEST_F(EntityFactsTest, AnInvoiceIsLiveUnlessItIsCancelledOrSummarised) {
  EXPECT_TRUE(OfInvoice("<InvoiceStatus>N</InvoiceStatus>").IsLive());
  EXPECT_TRUE(OfInvoice("").IsLive());
  EXPECT_TRUE(OfInvoice("<InvoiceStatus>A</InvoiceStatus>").IsCancelled());
  EXPECT_FALSE(OfInvoice("<InvoiceStatus>A</InvoiceStatus>").IsLive());
  EXPECT_FALSE(OfInvoice("<InvoiceStatus>F</InvoiceStatus>").IsLive());
  EXPECT_FALSE(OfInvoice("<InvoiceStatus>F</InvoiceStatus>").IsCancelled());
  EXPECT_TRUE(OfInvoice("<TransactionID>ANULADO</TransactionID>").IsCancelled());
}

TEST_F(EntityFactsTest, DebitDocumentsAreKnownByTheirType) {
  for (const std::string_view type : {"NC", "TD", "DA", "RE", "FT", "ND", "nc", ""}) {
    const bool debit = type == "NC" || type == "TD" || type == "DA" || type == "RE";
    EXPECT_EQ(OfInvoice(std::string("<InvoiceType>").append(type).append("</InvoiceType>")).IsDebitDocument(), debit);
  }
}

}  // namespace
}  // namespace zevo
