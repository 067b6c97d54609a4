// SPDX-License-Identifier: Apache-2.0
#include <zevo/mappers/GeneralLedgerEntriesDALC.h>

#include <zevo/Error.h>
#include <zevo/mappers/Sections.h>

namespace zevo {

template <>
std::span<const LayoutRow> LayoutOf<GeneralLedgerEntries>() {
  return DataOf<kTotalsLayout<GeneralLedgerEntries>>();
}

void GeneralLedgerEntriesDALC::CreateGeneralLedgerEntries(const GeneralLedgerEntries& value, IDALHelper& writer) {
  if (writer.GetElement(kGeneralLedgerEntries, {}, {})) {
    throw LibraryError(Message::kEntriesMissingText, "GeneralLedgerEntriesDALC.CreateGeneralLedgerEntries");
  }
  writer.CreateElement(kGeneralLedgerEntries, {}, {}, true);
  UpdateGeneralLedgerEntries(value, writer);
}

void GeneralLedgerEntriesDALC::UpdateGeneralLedgerEntries(const GeneralLedgerEntries& value, IDALHelper& writer) {
  const Element section = writer.GetElement(kGeneralLedgerEntries, {}, {});
  if (!section) {
    throw LibraryError(Message::kEntriesExistText, "GeneralLedgerEntriesDALC.UpdateGeneralLedgerEntries");
  }
  kTotalsLayout<GeneralLedgerEntries>.Update(value, section, writer);
}

void GeneralLedgerEntriesDALC::ReadGeneralLedgerEntries(std::shared_ptr<GeneralLedgerEntries>& value,
                                                        IDALReader& reader) {
  const Element section = reader.GetElement(kGeneralLedgerEntries, {});
  if (!section) throw LibraryError(Message::kEntriesExistText, "GeneralLedgerEntriesDALC.ReadGeneralLedgerEntries");
  value = std::make_shared<GeneralLedgerEntries>();
  kTotalsLayout<GeneralLedgerEntries>.Read(*value, section, reader);
}

}  // namespace zevo
