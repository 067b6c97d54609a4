// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TESTS_MAPPERS_RECORDS_H_
#define ZEVO_TESTS_MAPPERS_RECORDS_H_

#include <zevo/adapters.h>

#include <memory>
#include <string_view>

namespace zevo::testing {

// Records with something in every property.

void FillAddress(AddressStructure& address, std::string_view city);
std::shared_ptr<AddressStructure> FullAddress(std::string_view city);
std::shared_ptr<Header> FullHeader();
std::shared_ptr<GeneralLedger> FullGeneralLedger();
std::shared_ptr<Customer> FullCustomer(std::string_view id);
std::shared_ptr<Supplier> FullSupplier(std::string_view id);
std::shared_ptr<Product> FullProduct();
/// Carries a percentage and an amount.
std::shared_ptr<TaxTableEntry> FullTaxTableEntry();
std::shared_ptr<Journal> JournalOf(std::string_view id);
/// Carries a debit and a credit.
std::shared_ptr<TransactionLine> FullTransactionLine(std::string_view id);
/// Has one line.
std::shared_ptr<Transaction> FullTransaction();
std::shared_ptr<ShippingPointStructure> FullShippingPoint(std::string_view id);
/// Carries a debit and a credit, a percentage and an amount, and one credit note.
std::shared_ptr<InvoiceLine> FullInvoiceLine(int32_t number);
/// Has one line, and in its currency a debit and a credit.
std::shared_ptr<Invoice> FullInvoice();

}  // namespace zevo::testing

#endif  // ZEVO_TESTS_MAPPERS_RECORDS_H_
