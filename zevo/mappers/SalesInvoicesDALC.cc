// SPDX-License-Identifier: Apache-2.0
#include <zevo/mappers/SalesInvoicesDALC.h>

#include <zevo/Error.h>
#include <zevo/mappers/Sections.h>

namespace zevo {

template <>
std::span<const LayoutRow> LayoutOf<SalesInvoices>() {
  return DataOf<kTotalsLayout<SalesInvoices>>();
}

void SalesInvoicesDALC::CreateSalesInvoices(const SalesInvoices& value, IDALHelper& writer) {
  const Element sourceDocuments = GetOrCreate(writer, kSourceDocuments, {});
  if (writer.GetElement(kSalesInvoices, sourceDocuments, {})) {
    throw LibraryError(Message::kSalesInvoicesExist, "SalesInvoicesDALC.CreateSalesInvoices");
  }
  writer.CreateElement(kSalesInvoices, {}, sourceDocuments, true);
  UpdateSalesInvoices(value, writer);
}

void SalesInvoicesDALC::UpdateSalesInvoices(const SalesInvoices& value, IDALHelper& writer) {
  const Element section = SalesInvoicesSection(writer);
  if (!section) throw LibraryError(Message::kSalesInvoicesMissing, "SalesInvoicesDALC.UpdateSalesInvoices");
  kTotalsLayout<SalesInvoices>.Update(value, section, writer);
}

void SalesInvoicesDALC::ReadSalesInvoices(std::shared_ptr<SalesInvoices>& value, IDALReader& reader) {
  const Element section = SalesInvoicesSection(reader);
  if (!section) throw LibraryError(Message::kSalesInvoicesMissing, "SalesInvoicesDALC.ReadSalesInvoices");
  value = std::make_shared<SalesInvoices>();
  kTotalsLayout<SalesInvoices>.Read(*value, section, reader);
}

}  // namespace zevo
