// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_FACADES_RECORDWRITING_H_
#define ZEVO_FACADES_RECORDWRITING_H_

#include <zevo/dal/IDALHelper.h>
#include <zevo/facades/Facade.h>
#include <zevo/facades/NullRecordWriter.h>
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
#include <zevo/mappers/TaxTableEntryDALC.h>
#include <zevo/mappers/TransactionDALC.h>

#include <string_view>

namespace zevo {

// What AuditFile and AuditFileStreamWriter share: the mapper that creates a record of each class, and how it is run.

inline void CreateRecord(const Header& value, IDALHelper& helper) { HeaderDALC().CreateHeader(value, helper); }
inline void CreateRecord(const GeneralLedger& value, IDALHelper& helper) {
  GeneralLedgerDALC().CreateGeneralLedger(value, helper);
}
inline void CreateRecord(const Customer& value, IDALHelper& helper) { CustomerDALC().CreateCustomer(value, helper); }
inline void CreateRecord(const Supplier& value, IDALHelper& helper) { SupplierDALC().CreateSupplier(value, helper); }
inline void CreateRecord(const TaxTable& value, IDALHelper& helper) { TaxTableDALC().CreateTaxTable(value, helper); }
inline void CreateRecord(const TaxTableEntry& value, IDALHelper& helper) {
  TaxTableEntryDALC().CreateTaxTableEntry(value, helper);
}
inline void CreateRecord(const Product& value, IDALHelper& helper) { ProductDALC().CreateProduct(value, helper); }
inline void CreateRecord(const GeneralLedgerEntries& value, IDALHelper& helper) {
  GeneralLedgerEntriesDALC().CreateGeneralLedgerEntries(value, helper);
}
inline void CreateRecord(const Journal& value, IDALHelper& helper) { JournalDALC().CreateJournal(value, helper); }
/// Into the journal begun last.
inline void CreateRecord(const Transaction& value, IDALHelper& helper) {
  TransactionDALC().CreateTransaction(value, nullptr, helper);
}
inline void CreateRecord(const SalesInvoices& value, IDALHelper& helper) {
  SalesInvoicesDALC().CreateSalesInvoices(value, helper);
}
inline void CreateRecord(const Invoice& value, IDALHelper& helper) { InvoiceDALC().CreateInvoice(value, helper); }

template <class R, class Operation>
bool Facade::Write(std::string_view member, IDALHelper& writer, const R& record, Operation&& operation) {
  return Attempt([&] {
    Require(writer.IsOpen(), Message::kNotStarted, member);
    WriteRecord(record, writer, operation);
  });
}

template <class R>
bool Facade::Write(std::string_view member, IDALHelper& writer, const R& record) {
  // Not by way of the above: a function inside a function costs 2 % of the instructions of writing and reading back.
  return Attempt([&] {
    Require(writer.IsOpen(), Message::kNotStarted, member);
    if (!IsNull(record)) return CreateRecord(record, writer);
    NullRecordWriter refusing(writer);
    CreateRecord(record, refusing);
    NullRecordWriter::Refuse();
  });
}

}  // namespace zevo

#endif  // ZEVO_FACADES_RECORDWRITING_H_
