// SPDX-License-Identifier: Apache-2.0
#include <zevo/component/FileFaces.h>

namespace zevo::component {
namespace {

// A record that is optional: none without a pointer, or with a variable that holds no object.
template <class Record>
std::shared_ptr<Record> Optional(Interface<Record>** face) {
  return face == nullptr ? nullptr : CoreOf<Record>(*face);
}

class AuditFileFace final : public Face<zevo::AuditFile> {
 public:
  using Face::Face;
  ZEVO_READ_ONLY(AuditException)
  ZEVO_PROPERTY(AuditFileName)
  ZEVO_PROPERTY(AuditFileSchema)
  ZEVO_OPERATION(CreateAuditFile)
  ZEVO_OPERATION(OpenAuditFile)
  ZEVO_OPERATION(UpdateAuditFile)
  ZEVO_OPERATION(CloseAuditFile)
  ZEVO_OPERATION(DeleteAuditFile)
  ZEVO_OPERATION(ValidateAuditFile)
  ZEVO_WITH_RECORD(CreateHeader, Header)
  ZEVO_WITH_RECORD(CreateGeneralLedger, GeneralLedger)
  ZEVO_WITH_RECORD(CreateCustomer, Customer)
  ZEVO_WITH_RECORD(CreateSupplier, Supplier)
  ZEVO_WITH_RECORD(CreateTaxTable, TaxTable)
  ZEVO_WITH_RECORD(CreateTaxTableEntry, TaxTableEntry)
  ZEVO_WITH_RECORD(CreateProduct, Product)
  ZEVO_WITH_RECORD(CreateGeneralLedgerEntries, GeneralLedgerEntries)
  ZEVO_WITH_RECORD(UpdateGeneralLedgerEntries, GeneralLedgerEntries)
  ZEVO_WITH_RECORD(CreateJournal, Journal)
  STDMETHODIMP CreateTransaction(_Transaction* value, _Journal* journalValue, _GeneralLedgerEntries** totals,
                                 VARIANT_BOOL* result) override {
    return Answer(result, [&] {
      return core().CreateTransaction(OrNone(CoreOf<zevo::Transaction>(value)),
                                      CoreOf<zevo::Journal>(journalValue).get(),
                                      Optional<zevo::GeneralLedgerEntries>(totals).get());
    });
  }
  ZEVO_WITH_RECORD(CreateSalesInvoices, SalesInvoices)
  ZEVO_WITH_RECORD(UpdateSalesInvoices, SalesInvoices)
  STDMETHODIMP CreateInvoice(_Invoice* value, _SalesInvoices** totals, VARIANT_BOOL* result) override {
    return Answer(result, [&] {
      return core().CreateInvoice(OrNone(CoreOf<zevo::Invoice>(value)), Optional<zevo::SalesInvoices>(totals).get());
    });
  }
};

class AuditFileStreamWriterFace final : public Face<zevo::AuditFileStreamWriter> {
 public:
  using Face::Face;
  ZEVO_READ_ONLY(AuditException)
  ZEVO_PROPERTY(AuditFileName)
  ZEVO_OPERATION(CreateAuditFile)
  ZEVO_OPERATION(CloseAuditFile)
  ZEVO_WITH_VARIABLE(CreateHeader, Header)
  ZEVO_WITH_VARIABLE(CreateGeneralLedger, GeneralLedger)
  ZEVO_WITH_VARIABLE(CreateCustomer, Customer)
  ZEVO_WITH_VARIABLE(CreateSupplier, Supplier)
  ZEVO_WITH_VARIABLE(CreateTaxTable, TaxTable)
  ZEVO_WITH_VARIABLE(CreateProduct, Product)
  ZEVO_WITH_VARIABLE(BeginGeneralLedgerEntries, GeneralLedgerEntries)
  ZEVO_OPERATION(EndGeneralLedgerEntries)
  ZEVO_WITH_VARIABLE(BeginJournal, Journal)
  ZEVO_OPERATION(EndJournal)
  ZEVO_WITH_VARIABLE(CreateTransaction, Transaction)
  ZEVO_WITH_VARIABLE(BeginSalesInvoices, SalesInvoices)
  ZEVO_OPERATION(EndSalesInvoices)
  ZEVO_WITH_VARIABLE(CreateInvoice, Invoice)
};

class AuditFileReaderFace final : public Face<zevo::AuditFileReader> {
 public:
  using Face::Face;
  ZEVO_READ_ONLY(AuditException)
  ZEVO_PROPERTY(AuditFileName)
  ZEVO_OPERATION(OpenAuditFile)
  ZEVO_OPERATION(CloseAuditFile)
  ZEVO_INTO_VARIABLE(ReadHeader, Header)
  ZEVO_INTO_VARIABLE(ReadGeneralLedger, GeneralLedger)
  ZEVO_INTO_VARIABLE(ReadCustomer, Customer)
  ZEVO_INTO_VARIABLE(ReadSupplier, Supplier)
  ZEVO_INTO_VARIABLE(ReadTaxTable, TaxTable)
  ZEVO_INTO_VARIABLE(ReadTaxTableEntry, TaxTableEntry)
  ZEVO_INTO_VARIABLE(ReadProduct, Product)
  ZEVO_INTO_VARIABLE(ReadGeneralLedgerEntries, GeneralLedgerEntries)
  ZEVO_INTO_VARIABLE(ReadJournal, Journal)
  STDMETHODIMP ReadTransaction(_Transaction** value, _Journal** journalValue, VARIANT_BOOL* result) override {
    if (value == nullptr || journalValue == nullptr) return E_POINTER;
    return Answer(result, [&] {
      Variable<zevo::Transaction> variable(value);
      const bool succeeded = core().ReadTransaction(variable.record(), OrNone(CoreOf<zevo::Journal>(*journalValue)));
      variable.Assign();
      return succeeded;
    });
  }
  ZEVO_INTO_VARIABLE(ReadSalesInvoices, SalesInvoices)
  ZEVO_INTO_VARIABLE(ReadInvoice, Invoice)
  ZEVO_COUNT_OF(Customers)
  ZEVO_COUNT_OF(Suppliers)
  ZEVO_COUNT_OF(Products)
  ZEVO_COUNT_OF(GeneralLedgers)
  ZEVO_COUNT_OF(TaxTableEntrys)
  ZEVO_COUNT_OF(Invoices)
  ZEVO_COUNT_OF(Journals)
  STDMETHODIMP Transactions(_Journal** journalValue, LONG* result) override {
    return Answer(result, [&] { return core().Transactions(Optional<zevo::Journal>(journalValue).get()); });
  }
};

}  // namespace

ZEVO_FACE_OF(AuditFile);
ZEVO_FACE_OF(AuditFileStreamWriter);
ZEVO_FACE_OF(AuditFileReader);

}  // namespace zevo::component
