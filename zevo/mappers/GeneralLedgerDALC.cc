// SPDX-License-Identifier: Apache-2.0
#include <zevo/mappers/GeneralLedgerDALC.h>

#include <zevo/mappers/Sections.h>

namespace zevo {
namespace {

constexpr ElementName kElement = "GeneralLedger";

using R = GeneralLedger;
constexpr Layout kGeneralLedger(Row("AccountID", kAlways, &R::AccountID, &R::set_AccountID),
                                Row("AccountDescription", kAlways, &R::AccountDescription, &R::set_AccountDescription),
                                Row<PointAmountCodec>("OpeningDebitBalance", kAlways, &R::OpeningDebitBalance,
                                                      &R::set_OpeningDebitBalance),
                                Row<PointAmountCodec>("OpeningCreditBalance", kAlways, &R::OpeningCreditBalance,
                                                      &R::set_OpeningCreditBalance));

}  // namespace

void GeneralLedgerDALC::CreateGeneralLedger(const GeneralLedger& value, IDALHelper& helper) {
  CreateMasterRecord(kGeneralLedger, kElement, value, helper);
}

void GeneralLedgerDALC::ReadGeneralLedger(std::shared_ptr<GeneralLedger>& value, IDALReader& helper, bool first) {
  ReadMasterRecord(kGeneralLedger, kElement, value, helper, first);
}

int32_t GeneralLedgerDALC::GeneralLedgers(IDALReader& helper) { return CountMasterRecords(kElement, helper); }

}  // namespace zevo
