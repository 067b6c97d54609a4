// SPDX-License-Identifier: Apache-2.0
#include <zevo/mappers/GeneralLedgerEntriesDALC.h>

#include "tests/mappers/SectionTotalsContract.h"

namespace zevo::testing {
namespace {

struct GeneralLedgerEntriesDALCHarness {
  using Mapper = GeneralLedgerEntriesDALC;
  using Section = GeneralLedgerEntries;
  static constexpr auto kCreate = &Mapper::CreateGeneralLedgerEntries;
  static constexpr auto kUpdate = &Mapper::UpdateGeneralLedgerEntries;
  static constexpr auto kRead = &Mapper::ReadGeneralLedgerEntries;
  static constexpr std::string_view kElement = "GeneralLedgerEntries";
  static constexpr std::string_view kStart = "<GeneralLedgerEntries>";
  static constexpr std::string_view kEnd = "</GeneralLedgerEntries>";
  static constexpr std::string_view kWithout[] = {"", "<SourceDocuments><GeneralLedgerEntries/></SourceDocuments>"};
  static constexpr Message kExists{201};
  static constexpr Message kMissing{202};
};

INSTANTIATE_TYPED_TEST_SUITE_P(GeneralLedgerEntriesDALC, SectionTotalsContract, GeneralLedgerEntriesDALCHarness);

}  // namespace
}  // namespace zevo::testing
