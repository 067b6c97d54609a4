// SPDX-License-Identifier: Apache-2.0
#include <zevo/mappers/SalesInvoicesDALC.h>

#include <zevo/Error.h>
#include <zevo/mappers/Sections.h>

namespace zevo {

void SalesInvoicesDALC::CreateSalesInvoices(const SalesInvoices& value, IDALHelper& helper) {
  const Element sourceDocuments = GetOrCreate(helper, kSourceDocuments, {});
  if (helper.GetElement(kSalesInvoices.Text(), sourceDocuments, {})) {
    throw LibraryError(Message::kSalesInvoicesExist, "SalesInvoicesDALC.CreateSalesInvoices");
  }
  helper.CreateElement(kSalesInvoices.Text(), {}, sourceDocuments, true);
  UpdateSalesInvoices(value, helper);
}

void SalesInvoicesDALC::UpdateSalesInvoices(const SalesInvoices& value, IDALHelper& helper) {
  const Element section = SalesInvoicesSection(helper);
  if (!section) throw LibraryError(Message::kSalesInvoicesMissing, "SalesInvoicesDALC.UpdateSalesInvoices");
  UpdateTotals(value, section, helper);
}

void SalesInvoicesDALC::ReadSalesInvoices(std::shared_ptr<SalesInvoices>& value, IDALReader& helper) {
  const Element section = SalesInvoicesSection(helper);
  if (!section) throw LibraryError(Message::kSalesInvoicesMissing, "SalesInvoicesDALC.ReadSalesInvoices");
  value = std::make_shared<SalesInvoices>();
  ReadTotals(*value, section);
}

}  // namespace zevo
