// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>
#include <zevo/model/GeneralLedgerEntries.h>
#include <zevo/model/SalesInvoices.h>

#include "tests/model/SchemaText.h"
#include "tests/support/Errors.h"

namespace zevo {
namespace {

using testing::SchemaLimiting;
using testing::UseSchemaText;

// Both sections carry the same three totals.
template <class T>
class SectionTotalsRecordContract : public ::testing::Test {
 protected:
  void Set(int32_t entries, Amount debit, Amount credit) {
    totals_.set_NumberOfEntries(entries);
    totals_.set_TotalDebit(debit);
    totals_.set_TotalCredit(credit);
  }
  void Expect(int32_t entries, Amount debit, Amount credit) const {
    EXPECT_EQ(totals_.NumberOfEntries(), entries);
    EXPECT_EQ(totals_.TotalDebit(), debit);
    EXPECT_EQ(totals_.TotalCredit(), credit);
  }

  T totals_;
};
using Sections = ::testing::Types<SalesInvoices, GeneralLedgerEntries>;
TYPED_TEST_SUITE(SectionTotalsRecordContract, Sections);

TYPED_TEST(SectionTotalsRecordContract, StartAtZero) { this->Expect(0, 0, 0); }

TYPED_TEST(SectionTotalsRecordContract, ResetBringsAllThreeBackToZero) {
  this->Set(3, Amount::FromText("12.5"), Amount::FromText("-7"));
  this->totals_.Reset();
  this->Expect(0, 0, 0);
}

TYPED_TEST(SectionTotalsRecordContract, RefreshChangesNothing) {
  this->Set(3, Amount::FromText("12.5"), Amount::FromText("-7"));
  this->totals_.Refresh();
  this->Expect(3, Amount::FromText("12.5"), Amount::FromText("-7"));
}

TYPED_TEST(SectionTotalsRecordContract, ResetGoesThroughTheChecksInTheOrderOfTheTotals) {
  this->Set(3, 5, 7);
  const UseSchemaText schema(SchemaLimiting({{"/TotalDebit", "many"}}));
  EXPECT_ERROR(this->totals_.Reset(), 13, "ZevoAdapters11");
  this->Expect(0, 5, 7);
}

}  // namespace
}  // namespace zevo
