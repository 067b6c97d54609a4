// SPDX-License-Identifier: Apache-2.0
#include <zevo/component/FaceOfEntity.h>

#include <zevo/component/Faces.h>
#include <zevo/model/EntityKind.h>

#include <optional>

namespace zevo::component {

using Microsoft::WRL::ComPtr;

namespace {

template <class R>
ComPtr<IDispatch> FaceAs(const std::shared_ptr<Record>& record) {
  return FaceFor(std::static_pointer_cast<R>(record));
}

}  // namespace

ComPtr<IDispatch> FaceOfEntity(const std::shared_ptr<Record>& record) {
  const std::optional<EntityKind> kind = record == nullptr ? std::nullopt : record->Kind();
  if (!kind) return nullptr;
  switch (*kind) {
    case EntityKind::kHeader:
      return FaceAs<zevo::Header>(record);
    case EntityKind::kGeneralLedger:
      return FaceAs<zevo::GeneralLedger>(record);
    case EntityKind::kCustomer:
      return FaceAs<zevo::Customer>(record);
    case EntityKind::kSupplier:
      return FaceAs<zevo::Supplier>(record);
    case EntityKind::kProduct:
      return FaceAs<zevo::Product>(record);
    case EntityKind::kTaxTable:
      return FaceAs<zevo::TaxTable>(record);
    case EntityKind::kGeneralLedgerEntries:
      return FaceAs<zevo::GeneralLedgerEntries>(record);
    case EntityKind::kJournal:
      return FaceAs<zevo::Journal>(record);
    case EntityKind::kTransaction:
      return FaceAs<zevo::Transaction>(record);
    case EntityKind::kSalesInvoices:
      return FaceAs<zevo::SalesInvoices>(record);
    case EntityKind::kInvoice:
      return FaceAs<zevo::Invoice>(record);
  }
  return nullptr;
}

}  // namespace zevo::component
