// SPDX-License-Identifier: Apache-2.0
#include <zevo/mappers/TaxTableEntryDALC.h>

#include <zevo/mappers/Sections.h>

namespace zevo {
namespace {

constexpr ElementName kTaxTable = "TaxTable";
constexpr ElementName kElement = "TaxTableEntry";

using R = TaxTableEntry;
constexpr Layout kTaxTableEntry(
    Row("TaxType", kAlways, &R::TaxType),
    Row("TaxCountryRegion", kAlways, &R::TaxCountryRegion, &R::set_TaxCountryRegion),
    Row("TaxCode", kAlways, &R::TaxCode, &R::set_TaxCode),
    Row("Description", kAlways, &R::Description, &R::set_Description),
    Row<DateCodec>("TaxExpirationDate", kIfNotEmpty, &R::TaxExpirationDate, &R::set_TaxExpirationDate),
    Either(Row<StrictPointAmountCodec>("TaxPercentage", kAlways, &R::TaxPercentage, &R::set_TaxPercentage),
           Row<StrictAmountCodec>("TaxAmount", kAlways, &R::TaxAmount, &R::set_TaxAmount)));

}  // namespace

void TaxTableEntryDALC::CreateTaxTableEntry(const TaxTableEntry& value, IDALHelper& helper) {
  const Element table = GetOrCreate(helper, kTaxTable, GetOrCreate(helper, kMasterFiles, {}));
  kTaxTableEntry.Write(value, helper.CreateElement(kElement.Text(), {}, table, true), helper);
  helper.EndElement(kElement.Text());
}

void TaxTableEntryDALC::ReadTaxTableEntry(std::shared_ptr<TaxTableEntry>& value, IDALReader& helper, bool first) {
  Element element;
  if (!first) {
    element = helper.GetNextElement(kElement.Text());
  } else if (const Element masterFiles = helper.GetElement(kMasterFiles.Text(), {}, {})) {
    const Element table = helper.GetElement(kTaxTable.Text(), masterFiles, {});
    if (table) element = helper.GetFirstElement(kElement.Text(), table);
  }
  ReadRecord(kTaxTableEntry, element, value, helper);
}

int32_t TaxTableEntryDALC::TaxTableEntrys(IDALReader& helper) {
  const Element masterFiles = helper.GetElement(kMasterFiles.Text(), {}, {});
  const Element table = masterFiles ? helper.GetElement(kTaxTable.Text(), masterFiles, {}) : Element();
  return table ? CountOf(helper, kElement, table) : 0;
}

}  // namespace zevo
