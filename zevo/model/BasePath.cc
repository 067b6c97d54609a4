// SPDX-License-Identifier: Apache-2.0
#include <zevo/model/BasePath.h>

#include <array>

namespace zevo {
namespace {

struct Row {
  BasePath path;
  std::string_view text;
};

constexpr std::array kRows = {
    Row{BasePath::kUnattachedAddress, ""},
    Row{BasePath::kUnattachedShippingPoint, ""},
    Row{BasePath::kTaxTable, "/AuditFile/MasterFiles/TaxTable"},
    Row{BasePath::kHeader, "/AuditFile/Header"},
    Row{BasePath::kHeaderCompanyAddress, "/AuditFile/Header/CompanyAddress"},
    Row{BasePath::kCustomer, "/AuditFile/MasterFiles/Customer"},
    Row{BasePath::kCustomerBillingAddress, "/AuditFile/MasterFiles/Customer/BillingAddress"},
    Row{BasePath::kCustomerShipToAddress, "/AuditFile/MasterFiles/Customer/ShipToAddress"},
    Row{BasePath::kSupplier, "/AuditFile/MasterFiles/Supplier"},
    Row{BasePath::kSupplierBillingAddress, "/AuditFile/MasterFiles/Supplier/BillingAddress"},
    Row{BasePath::kSupplierShipFromAddress, "/AuditFile/MasterFiles/Supplier/ShipFromAddress"},
    Row{BasePath::kProduct, "/AuditFile/MasterFiles/Product"},
    Row{BasePath::kTaxTableEntry, "/AuditFile/MasterFiles/TaxTable/TaxTableEntry"},
    // Accounts are checked under the path of the entries, not of the master files.
    Row{BasePath::kGeneralLedger, "/AuditFile/GeneralLedgerEntries"},
    Row{BasePath::kGeneralLedgerEntries, "/AuditFile/GeneralLedgerEntries"},
    Row{BasePath::kJournal, "/AuditFile/GeneralLedgerEntries/Journal"},
    Row{BasePath::kTransaction, "/AuditFile/GeneralLedgerEntries/Journal/Transaction"},
    Row{BasePath::kTransactionLine, "/AuditFile/GeneralLedgerEntries/Journal/Transaction/Line"},
    Row{BasePath::kSalesInvoices, "/AuditFile/SourceDocuments/SalesInvoices"},
    Row{BasePath::kInvoice, "/AuditFile/SourceDocuments/SalesInvoices/Invoice"},
    Row{BasePath::kInvoiceShipTo, "/AuditFile/SourceDocuments/SalesInvoices/Invoice/ShipTo"},
    Row{BasePath::kInvoiceShipToAddress, "/AuditFile/SourceDocuments/SalesInvoices/Invoice/ShipTo/Address"},
    Row{BasePath::kInvoiceShipFrom, "/AuditFile/SourceDocuments/SalesInvoices/Invoice/ShipFrom"},
    Row{BasePath::kInvoiceShipFromAddress, "/AuditFile/SourceDocuments/SalesInvoices/Invoice/ShipFrom/Address"},
    Row{BasePath::kDetachedAddress, "/Address"},
    Row{BasePath::kDocumentTotals, "/AuditFile/SourceDocuments/SalesInvoices/Invoice/DocumentTotals"},
    Row{BasePath::kCurrency, "/AuditFile/SourceDocuments/SalesInvoices/Invoice/DocumentTotals/Currency"},
    Row{BasePath::kSettlement, "/AuditFile/SourceDocuments/SalesInvoices/Invoice/DocumentTotals/Settlement"},
    Row{BasePath::kInvoiceLine, "/AuditFile/SourceDocuments/SalesInvoices/Invoice/Line"},
    // What belongs to a line is checked one level up, without the step "Line".
    Row{BasePath::kTax, "/AuditFile/SourceDocuments/SalesInvoices/Invoice/Tax"},
    Row{BasePath::kOrderReferences, "/AuditFile/SourceDocuments/SalesInvoices/Invoice/OrderReferences"},
    Row{BasePath::kReferences, "/AuditFile/SourceDocuments/SalesInvoices/Invoice/References"},
    Row{BasePath::kCreditNote, "/AuditFile/SourceDocuments/SalesInvoices/Invoice/References/CreditNote"},
};

consteval bool InOrderOfValues() {
  for (size_t i = 0; i < kRows.size(); ++i) {
    if (static_cast<size_t>(kRows[i].path) != i) return false;
  }
  return kRows.size() == kBasePaths;
}
static_assert(InOrderOfValues());

}  // namespace

std::string_view TextOf(BasePath path) { return kRows[static_cast<size_t>(path)].text; }

BasePath AddressPathUnder(BasePath shippingPoint) {
  switch (shippingPoint) {
    case BasePath::kInvoiceShipTo:
      return BasePath::kInvoiceShipToAddress;
    case BasePath::kInvoiceShipFrom:
      return BasePath::kInvoiceShipFromAddress;
    default:
      return BasePath::kDetachedAddress;
  }
}

}  // namespace zevo
