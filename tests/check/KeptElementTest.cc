// SPDX-License-Identifier: Apache-2.0
#include <zevo/check/KeptElement.h>

#include "tests/check/FactsTest.h"

namespace zevo {
namespace {

class KeptElementTest : public testing::FactsTest {};

TEST_F(KeptElementTest, AnElementIsKeptWithItsRecord) {
  KeptElement kept;
  ForInvoice("<InvoiceNo>FT A/1</InvoiceNo>\n  <Line><Quantity> 2 </Quantity></Line>",
             [&](const InvoiceFacts& facts) { kept = Keep(facts, facts.lines[0].quantity); });
  EXPECT_EQ(kept.kind, EntityKind::kInvoice);
  EXPECT_EQ(kept.key, "FT A/1");
  EXPECT_EQ(kept.path, "Line[1]/Quantity");
  EXPECT_EQ(kept.place, (FilePlace{2, 9, 90}));
  EXPECT_EQ(kept.text, " 2 ");
}

TEST_F(KeptElementTest, AGroupAndTheRecordItselfHaveTheirPlaces) {
  ForInvoice("<Line/>", [](const InvoiceFacts& facts) {
    const KeptElement group = Keep(facts, facts.lines[0]);
    EXPECT_EQ(group.path, "Line[1]");
    EXPECT_EQ(group.place, (FilePlace{1, 53, 52}));
    EXPECT_EQ(group.key, "");
    EXPECT_EQ(Keep(facts, ElementSpot(0, {})).path, "");
    EXPECT_EQ(Keep(facts, ElementSpot(0, {})).place, (FilePlace{1, 44, 43}));
  });
}

TEST_F(KeptElementTest, WhatIsMissingIsWhereItWouldStand) {
  ForInvoice("<Line/>", [](const InvoiceFacts& facts) {
    EXPECT_EQ(Keep(facts, ElementSpot(0, "Hash")).path, "Hash");
    const KeptElement missing = Keep(facts, ElementSpot(facts.lines[0].element, "Tax"));
    EXPECT_EQ(missing.path, "Line[1]/Tax");
    EXPECT_EQ(missing.place, (FilePlace{1, 53, 52}));
    EXPECT_EQ(missing.text, "");
  });
}

TEST(KeptElement, RulesTellOfTheFirstElementOfANameOrOfThoseThatAreCounted) {
  for (const std::string_view path : {"", "Hash", "Line[1]", "Line[12]", "Line[12]/Tax", "Line[2]/OrderReferences[3]",
                                      "TaxTableEntry[4]", "ShipToAddress[1]", "/AuditFile", "/AuditFile/MasterFiles"}) {
    EXPECT_TRUE(MayBeToldByRules(path)) << path;
  }
  for (const std::string_view path :
       {"Hash[2]", "Line[12]/Tax[2]", "Line[2]/@id", "@id", "/AuditFile/@id", "/AuditFile/a[3999999]"}) {
    EXPECT_FALSE(MayBeToldByRules(path)) << path;
  }
}

}  // namespace
}  // namespace zevo
