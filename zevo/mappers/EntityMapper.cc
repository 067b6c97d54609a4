// SPDX-License-Identifier: Apache-2.0
#include <zevo/mappers/EntityMapper.h>

#include <zevo/mappers/CustomerDALC.h>
#include <zevo/mappers/GeneralLedgerDALC.h>
#include <zevo/mappers/GeneralLedgerEntriesDALC.h>
#include <zevo/mappers/HeaderDALC.h>
#include <zevo/mappers/InvoiceDALC.h>
#include <zevo/mappers/JournalDALC.h>
#include <zevo/mappers/Layouts.h>
#include <zevo/mappers/ProductDALC.h>
#include <zevo/mappers/SalesInvoicesDALC.h>
#include <zevo/mappers/SupplierDALC.h>
#include <zevo/mappers/TaxTableDALC.h>
#include <zevo/mappers/TransactionDALC.h>

#include <array>
#include <cstddef>

namespace zevo {
namespace {

// How the mappers read: a record that stands alone, one of several, one of a journal.

template <class Mapper, class R>
std::shared_ptr<Record> ReadWith(void (Mapper::*read)(std::shared_ptr<R>&, IDALReader&), IDALReader& reader) {
  std::shared_ptr<R> record;
  (Mapper().*read)(record, reader);
  return record;
}
template <class Mapper, class R>
std::shared_ptr<Record> ReadWith(void (Mapper::*read)(std::shared_ptr<R>&, IDALReader&, bool), IDALReader& reader) {
  std::shared_ptr<R> record;
  (Mapper().*read)(record, reader, false);
  return record;
}
template <class Mapper, class R>
std::shared_ptr<Record> ReadWith(void (Mapper::*read)(std::shared_ptr<R>&, const Journal*, IDALReader&, bool),
                                 IDALReader& reader) {
  std::shared_ptr<R> record;
  (Mapper().*read)(record, nullptr, reader, false);
  return record;
}

template <auto kRead>
std::shared_ptr<Record> Read(IDALReader& reader) {
  return ReadWith(kRead, reader);
}

struct Mapping {
  EntityKind kind;
  std::shared_ptr<Record> (*read)(IDALReader& reader);
  std::span<const LayoutRow> (*layout)();
  std::shared_ptr<Record> (*make)();
};

template <class R, auto kRead>
constexpr Mapping MappingFor(EntityKind kind) {
  return {kind, &Read<kRead>, &LayoutOf<R>, +[]() -> std::shared_ptr<Record> { return std::make_shared<R>(); }};
}

constexpr auto kMappings = std::to_array<Mapping>({
    MappingFor<Header, &HeaderDALC::ReadHeader>(EntityKind::kHeader),
    MappingFor<GeneralLedger, &GeneralLedgerDALC::ReadGeneralLedger>(EntityKind::kGeneralLedger),
    MappingFor<Customer, &CustomerDALC::ReadCustomer>(EntityKind::kCustomer),
    MappingFor<Supplier, &SupplierDALC::ReadSupplier>(EntityKind::kSupplier),
    MappingFor<Product, &ProductDALC::ReadProduct>(EntityKind::kProduct),
    MappingFor<TaxTable, &TaxTableDALC::ReadTaxTable>(EntityKind::kTaxTable),
    MappingFor<GeneralLedgerEntries, &GeneralLedgerEntriesDALC::ReadGeneralLedgerEntries>(
        EntityKind::kGeneralLedgerEntries),
    MappingFor<Journal, &JournalDALC::ReadJournal>(EntityKind::kJournal),
    MappingFor<Transaction, &TransactionDALC::ReadTransaction>(EntityKind::kTransaction),
    MappingFor<SalesInvoices, &SalesInvoicesDALC::ReadSalesInvoices>(EntityKind::kSalesInvoices),
    MappingFor<Invoice, &InvoiceDALC::ReadFlatInvoice>(EntityKind::kInvoice),
});

consteval bool MappingsInOrderOfKinds() {
  for (size_t i = 0; i < kMappings.size(); ++i) {
    if (static_cast<size_t>(kMappings[i].kind) != i) return false;
  }
  return kMappings.size() == kEntityKinds;
}
static_assert(MappingsInOrderOfKinds());

const Mapping& MappingOf(EntityKind kind) { return kMappings[static_cast<size_t>(kind)]; }

}  // namespace

std::shared_ptr<Record> ReadEntity(EntityKind kind, IDALReader& reader) { return MappingOf(kind).read(reader); }

std::shared_ptr<Record> NewRecord(EntityKind kind) { return MappingOf(kind).make(); }

std::span<const LayoutRow> LayoutOf(EntityKind kind) { return MappingOf(kind).layout(); }

}  // namespace zevo
