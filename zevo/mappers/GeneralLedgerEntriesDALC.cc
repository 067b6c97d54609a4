// SPDX-License-Identifier: Apache-2.0
#include <zevo/mappers/GeneralLedgerEntriesDALC.h>

#include <zevo/Error.h>
#include <zevo/mappers/Sections.h>

namespace zevo {

void GeneralLedgerEntriesDALC::CreateGeneralLedgerEntries(const GeneralLedgerEntries& value, IDALHelper& helper) {
  if (helper.GetElement(kGeneralLedgerEntries.Text(), {}, {})) {
    throw LibraryError(Message::kEntriesMissingText, "GeneralLedgerEntriesDALC.CreateGeneralLedgerEntries");
  }
  helper.CreateElement(kGeneralLedgerEntries.Text(), {}, {}, true);
  UpdateGeneralLedgerEntries(value, helper);
}

void GeneralLedgerEntriesDALC::UpdateGeneralLedgerEntries(const GeneralLedgerEntries& value, IDALHelper& helper) {
  const Element section = helper.GetElement(kGeneralLedgerEntries.Text(), {}, {});
  if (!section) {
    throw LibraryError(Message::kEntriesExistText, "GeneralLedgerEntriesDALC.UpdateGeneralLedgerEntries");
  }
  UpdateTotals(value, section, helper);
}

void GeneralLedgerEntriesDALC::ReadGeneralLedgerEntries(std::shared_ptr<GeneralLedgerEntries>& value,
                                                        IDALReader& helper) {
  const Element section = helper.GetElement(kGeneralLedgerEntries.Text(), {}, {});
  if (!section) throw LibraryError(Message::kEntriesExistText, "GeneralLedgerEntriesDALC.ReadGeneralLedgerEntries");
  value = std::make_shared<GeneralLedgerEntries>();
  ReadTotals(*value, section);
}

}  // namespace zevo
