// SPDX-License-Identifier: Apache-2.0
#include <zevo/mappers/TaxTableEntryDALC.h>

#include <zevo/mappers/Sections.h>

namespace zevo {
namespace {

constexpr auto kTaxTableEntryLayout = LayoutFor<TaxTableEntry>(Rows{
    ZEVO_ROW(TaxType, kAlways, NotReadBack::kConstant),
    ZEVO_ROW(TaxCountryRegion, kAlways),
    ZEVO_ROW(TaxCode, kAlways),
    ZEVO_ROW(Description, kAlways),
    ZEVO_ROW(TaxExpirationDate, kIfNotEmpty, DateCodec()),
    Either{
        ZEVO_ROW(TaxPercentage, kAlways, StrictPointAmountCodec()),
        ZEVO_ROW(TaxAmount, kAlways, StrictAmountCodec()),
    },
});

}  // namespace

template <>
std::span<const LayoutRow> LayoutOf<TaxTableEntry>() {
  return DataOf<kTaxTableEntryLayout>();
}

void TaxTableEntryDALC::CreateTaxTableEntry(const TaxTableEntry& value, IDALHelper& writer) {
  const Element table = GetOrCreate(writer, kTaxTable, GetOrCreate(writer, kMasterFiles, {}));
  kTaxTableEntryLayout.Write(value, writer.CreateElement(kTaxTableEntry, {}, table, true), writer);
  writer.EndElement(kTaxTableEntry);
}

void TaxTableEntryDALC::ReadTaxTableEntry(std::shared_ptr<TaxTableEntry>& value, IDALReader& reader, bool first) {
  Element element;
  if (!first) {
    element = reader.GetNextElement(kTaxTableEntry);
  } else if (const Element masterFiles = reader.GetElement(kMasterFiles, {})) {
    const Element table = reader.GetElement(kTaxTable, masterFiles);
    if (table) element = reader.GetFirstElement(kTaxTableEntry, table);
  }
  ReadRecord(kTaxTableEntryLayout, element, value, reader);
}

int32_t TaxTableEntryDALC::TaxTableEntrys(IDALReader& reader) {
  const Element masterFiles = reader.GetElement(kMasterFiles, {});
  const Element table = masterFiles ? reader.GetElement(kTaxTable, masterFiles) : Element();
  return table ? CountOf(reader, kTaxTableEntry, table) : 0;
}

}  // namespace zevo
