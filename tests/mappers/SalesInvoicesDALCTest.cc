// SPDX-License-Identifier: Apache-2.0
#include <zevo/mappers/SalesInvoicesDALC.h>

#include "tests/mappers/SectionTotalsContract.h"

namespace zevo::testing {
namespace {

struct SalesInvoicesDALCHarness {
  using Mapper = SalesInvoicesDALC;
  using Section = SalesInvoices;
  static constexpr auto kCreate = &Mapper::CreateSalesInvoices;
  static constexpr auto kUpdate = &Mapper::UpdateSalesInvoices;
  static constexpr auto kRead = &Mapper::ReadSalesInvoices;
  static constexpr std::string_view kElement = "SalesInvoices";
  static constexpr std::string_view kStart = "<SourceDocuments><SalesInvoices>";
  static constexpr std::string_view kEnd = "</SalesInvoices></SourceDocuments>";
  static constexpr std::string_view kWithout[] = {"", "<SourceDocuments/>", "<SalesInvoices/>"};
  static constexpr Message kExists{302};
  static constexpr Message kMissing{301};
};

INSTANTIATE_TYPED_TEST_SUITE_P(SalesInvoicesDALC, SectionTotalsContract, SalesInvoicesDALCHarness);

class SalesInvoicesDALCTest : public MapperTest {};

TEST_F(SalesInvoicesDALCTest, SourceDocumentsIsReused) {
  Begin("<SourceDocuments><Other/></SourceDocuments>");
  SalesInvoicesDALC().CreateSalesInvoices({}, helper_);
  EXPECT_EQ(Written(),
            "<SourceDocuments><Other/><SalesInvoices><NumberOfEntries>0</NumberOfEntries><TotalDebit>.00</TotalDebit>"
            "<TotalCredit>.00</TotalCredit></SalesInvoices></SourceDocuments>");
}

}  // namespace
}  // namespace zevo::testing
