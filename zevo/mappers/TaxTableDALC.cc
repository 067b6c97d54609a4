// SPDX-License-Identifier: Apache-2.0
#include <zevo/mappers/TaxTableDALC.h>

#include <zevo/mappers/Layout.h>
#include <zevo/mappers/TaxTableEntryDALC.h>

namespace zevo {
namespace {

// The mapper of the entries finds the table in the file itself.
constexpr auto kTaxTableLayout = LayoutFor<TaxTable>(Rows{
    ZEVO_ROW(TaxTableEntry, Items{[](const TaxTableEntry& entry, Element, IDALHelper& writer) {
                                    TaxTableEntryDALC().CreateTaxTableEntry(entry, writer);
                                  },
                                  [](std::shared_ptr<TaxTableEntry>& entry, Element, IDALReader& reader, bool first) {
                                    TaxTableEntryDALC().ReadTaxTableEntry(entry, reader, first);
                                  }}),
});

}  // namespace

template <>
std::span<const LayoutRow> LayoutOf<TaxTable>() {
  return DataOf<kTaxTableLayout>();
}

void TaxTableDALC::CreateTaxTable(const TaxTable& value, IDALHelper& writer) {
  kTaxTableLayout.Write(value, {}, writer);
}

void TaxTableDALC::ReadTaxTable(std::shared_ptr<TaxTable>& value, IDALReader& reader) {
  value = std::make_shared<TaxTable>();
  kTaxTableLayout.Read(*value, {}, reader);
}

}  // namespace zevo
