// SPDX-License-Identifier: Apache-2.0
#include <zevo/check/UnplacedDocuments.h>

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "tests/check/FactsTest.h"

namespace zevo {
namespace {

class UnplacedDocumentsTest : public testing::FactsTest {
 protected:
  // Takes an invoice of this number, entered at this hour; of none where the hour is empty.
  static std::string Invoice(std::string_view number, std::string_view hour) {
    std::string invoice("<InvoiceNo>");
    invoice.append(number).append("</InvoiceNo>");
    if (hour.empty()) return invoice;
    return invoice.append("<SystemEntryDate>2008-07-01T").append(hour).append(":00:00</SystemEntryDate>");
  }
  void Take(const std::vector<std::string>& invoices) {
    ForEachInvoice(invoices, [this](const InvoiceFacts& facts) { table_.Take(facts); });
  }
  uint32_t At(std::string_view number) const { return *table_.Find(*DocumentNumber::FromText(number)); }
  size_t Between(std::string_view lower, std::string_view higher) const {
    return UnplacedDocuments(table_).Between(At(lower), At(higher));
  }

  DocumentTable table_;
};

TEST_F(UnplacedDocumentsTest, TheyStandWhereTheyWereEntered) {
  Take({Invoice("FT A/9", "20"), Invoice("x", "10"), Invoice("FT A/1", "09"), Invoice("FT A/5", "12"),
        Invoice("FT A/9", "11"), Invoice("FT B/1", "10"), Invoice("FT B/1", "10")});
  EXPECT_EQ(Between("FT A/1", "FT A/5"), 2U);
  EXPECT_EQ(Between("FT A/5", "FT A/9"), 1U);
}

TEST_F(UnplacedDocumentsTest, WhereNobodyKnowsWhenTheyMayStandAnywhere) {
  Take({Invoice("FT A/1", "09"), Invoice("x", ""), Invoice("FT A/5", "10"), Invoice("FT A/9", "20"),
        Invoice("FT A/1", "")});
  EXPECT_EQ(Between("FT A/1", "FT A/5"), 2U);
  EXPECT_EQ(Between("FT A/5", "FT A/9"), 2U);
}

TEST_F(UnplacedDocumentsTest, OfTheTwoAllButOneMayBeMeant) {
  Take({Invoice("FT A/1", "09"), Invoice("FT A/1", "23"), Invoice("FT A/1", "10"), Invoice("FT A/5", "11")});
  const UnplacedDocuments unplaced(table_);
  EXPECT_EQ(unplaced.Between(At("FT A/1"), At("FT A/5")), 2U);
  EXPECT_TRUE(unplaced.IsRepeated(At("FT A/1")));
  EXPECT_FALSE(unplaced.IsRepeated(At("FT A/5")));
}

}  // namespace
}  // namespace zevo
