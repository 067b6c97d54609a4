// SPDX-License-Identifier: Apache-2.0
#include <zevo/mappers/TaxTableDALC.h>

#include <zevo/mappers/TaxTableEntryDALC.h>

namespace zevo {

void TaxTableDALC::CreateTaxTable(const TaxTable& value, IDALHelper& helper) {
  for (const auto& entry : *value.TaxTableEntry()) TaxTableEntryDALC().CreateTaxTableEntry(*entry, helper);
}

void TaxTableDALC::ReadTaxTable(std::shared_ptr<TaxTable>& value, IDALReader& helper) {
  value = std::make_shared<TaxTable>();
  TaxTableEntryDALC mapper;
  std::shared_ptr<TaxTableEntry> entry;
  for (mapper.ReadTaxTableEntry(entry, helper, true); entry; mapper.ReadTaxTableEntry(entry, helper, false)) {
    value->TaxTableEntry()->Add(entry);
  }
}

}  // namespace zevo
