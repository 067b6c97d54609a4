// SPDX-License-Identifier: Apache-2.0
#include <zevo/mappers/EntityMapper.h>

#include <zevo/mappers/CustomerDALC.h>
#include <zevo/mappers/GeneralLedgerDALC.h>
#include <zevo/mappers/GeneralLedgerEntriesDALC.h>
#include <zevo/mappers/HeaderDALC.h>
#include <zevo/mappers/InvoiceDALC.h>
#include <zevo/mappers/JournalDALC.h>
#include <zevo/mappers/ProductDALC.h>
#include <zevo/mappers/SalesInvoicesDALC.h>
#include <zevo/mappers/SupplierDALC.h>
#include <zevo/mappers/TaxTableDALC.h>
#include <zevo/mappers/TransactionDALC.h>

namespace zevo {
namespace {

// How the mappers read: a record that stands alone, one of several, one of a journal.

template <class Mapper, class R>
std::shared_ptr<Record> Read(void (Mapper::*read)(std::shared_ptr<R>&, IDALReader&), IDALReader& helper) {
  std::shared_ptr<R> record;
  (Mapper().*read)(record, helper);
  return record;
}
template <class Mapper, class R>
std::shared_ptr<Record> Read(void (Mapper::*read)(std::shared_ptr<R>&, IDALReader&, bool), IDALReader& helper) {
  std::shared_ptr<R> record;
  (Mapper().*read)(record, helper, false);
  return record;
}
template <class Mapper, class R>
std::shared_ptr<Record> Read(void (Mapper::*read)(std::shared_ptr<R>&, const Journal*, IDALReader&, bool),
                             IDALReader& helper) {
  std::shared_ptr<R> record;
  (Mapper().*read)(record, nullptr, helper, false);
  return record;
}

}  // namespace

std::shared_ptr<Record> ReadEntity(EntityKind kind, IDALReader& helper) {
  switch (kind) {
    case EntityKind::kHeader:
      return Read(&HeaderDALC::ReadHeader, helper);
    case EntityKind::kGeneralLedger:
      return Read(&GeneralLedgerDALC::ReadGeneralLedger, helper);
    case EntityKind::kCustomer:
      return Read(&CustomerDALC::ReadCustomer, helper);
    case EntityKind::kSupplier:
      return Read(&SupplierDALC::ReadSupplier, helper);
    case EntityKind::kProduct:
      return Read(&ProductDALC::ReadProduct, helper);
    case EntityKind::kTaxTable:
      return Read(&TaxTableDALC::ReadTaxTable, helper);
    case EntityKind::kGeneralLedgerEntries:
      return Read(&GeneralLedgerEntriesDALC::ReadGeneralLedgerEntries, helper);
    case EntityKind::kJournal:
      return Read(&JournalDALC::ReadJournal, helper);
    case EntityKind::kTransaction:
      return Read(&TransactionDALC::ReadTransaction, helper);
    case EntityKind::kSalesInvoices:
      return Read(&SalesInvoicesDALC::ReadSalesInvoices, helper);
    case EntityKind::kInvoice:
      return Read(&InvoiceDALC::ReadFlatInvoice, helper);
  }
  return nullptr;
}

}  // namespace zevo
