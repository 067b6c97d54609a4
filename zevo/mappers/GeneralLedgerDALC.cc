// SPDX-License-Identifier: Apache-2.0
#include <zevo/mappers/GeneralLedgerDALC.h>

#include <zevo/mappers/Sections.h>

namespace zevo {
namespace {

constexpr ElementName kGeneralLedger = "GeneralLedger";

constexpr auto kGeneralLedgerLayout = LayoutFor<GeneralLedger>(Rows{
    ZEVO_ROW(AccountID, kAlways),
    ZEVO_ROW(AccountDescription, kAlways),
    ZEVO_ROW(OpeningDebitBalance, kAlways, PointAmountCodec()),
    ZEVO_ROW(OpeningCreditBalance, kAlways, PointAmountCodec()),
});

}  // namespace

template <>
std::span<const LayoutRow> LayoutOf<GeneralLedger>() {
  return DataOf<kGeneralLedgerLayout>();
}

void GeneralLedgerDALC::CreateGeneralLedger(const GeneralLedger& value, IDALHelper& writer) {
  CreateMasterRecord(kGeneralLedgerLayout, kGeneralLedger, value, writer);
}

void GeneralLedgerDALC::ReadGeneralLedger(std::shared_ptr<GeneralLedger>& value, IDALReader& reader, bool first) {
  ReadMasterRecord(kGeneralLedgerLayout, kGeneralLedger, value, reader, first);
}

int32_t GeneralLedgerDALC::GeneralLedgers(IDALReader& reader) { return CountMasterRecords(kGeneralLedger, reader); }

}  // namespace zevo
