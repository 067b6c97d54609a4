// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>
#include <zevo/model/BasePath.h>

#include <set>
#include <string_view>

namespace zevo {
namespace {

TEST(BasePathTest, HasTheTextOfItsElement) {
  const struct {
    BasePath path;
    std::string_view text;
  } kRows[] = {
      {BasePath::kUnattachedAddress, ""},
      {BasePath::kUnattachedShippingPoint, ""},
      {BasePath::kTaxTable, "/AuditFile/MasterFiles/TaxTable"},
      {BasePath::kHeader, "/AuditFile/Header"},
      {BasePath::kHeaderCompanyAddress, "/AuditFile/Header/CompanyAddress"},
      {BasePath::kCustomer, "/AuditFile/MasterFiles/Customer"},
      {BasePath::kCustomerBillingAddress, "/AuditFile/MasterFiles/Customer/BillingAddress"},
      {BasePath::kCustomerShipToAddress, "/AuditFile/MasterFiles/Customer/ShipToAddress"},
      {BasePath::kSupplier, "/AuditFile/MasterFiles/Supplier"},
      {BasePath::kSupplierBillingAddress, "/AuditFile/MasterFiles/Supplier/BillingAddress"},
      {BasePath::kSupplierShipFromAddress, "/AuditFile/MasterFiles/Supplier/ShipFromAddress"},
      {BasePath::kProduct, "/AuditFile/MasterFiles/Product"},
      {BasePath::kTaxTableEntry, "/AuditFile/MasterFiles/TaxTable/TaxTableEntry"},
      // Accounts are checked under the path of the entries, not under that of the master files.
      {BasePath::kGeneralLedger, "/AuditFile/GeneralLedgerEntries"},
      {BasePath::kGeneralLedgerEntries, "/AuditFile/GeneralLedgerEntries"},
      {BasePath::kJournal, "/AuditFile/GeneralLedgerEntries/Journal"},
      {BasePath::kTransaction, "/AuditFile/GeneralLedgerEntries/Journal/Transaction"},
      {BasePath::kTransactionLine, "/AuditFile/GeneralLedgerEntries/Journal/Transaction/Line"},
      {BasePath::kSalesInvoices, "/AuditFile/SourceDocuments/SalesInvoices"},
      {BasePath::kInvoice, "/AuditFile/SourceDocuments/SalesInvoices/Invoice"},
      {BasePath::kInvoiceShipTo, "/AuditFile/SourceDocuments/SalesInvoices/Invoice/ShipTo"},
      {BasePath::kInvoiceShipToAddress, "/AuditFile/SourceDocuments/SalesInvoices/Invoice/ShipTo/Address"},
      {BasePath::kInvoiceShipFrom, "/AuditFile/SourceDocuments/SalesInvoices/Invoice/ShipFrom"},
      {BasePath::kInvoiceShipFromAddress, "/AuditFile/SourceDocuments/SalesInvoices/Invoice/ShipFrom/Address"},
      {BasePath::kDetachedAddress, "/Address"},
      {BasePath::kDocumentTotals, "/AuditFile/SourceDocuments/SalesInvoices/Invoice/DocumentTotals"},
      {BasePath::kCurrency, "/AuditFile/SourceDocuments/SalesInvoices/Invoice/DocumentTotals/Currency"},
      {BasePath::kSettlement, "/AuditFile/SourceDocuments/SalesInvoices/Invoice/DocumentTotals/Settlement"},
      {BasePath::kInvoiceLine, "/AuditFile/SourceDocuments/SalesInvoices/Invoice/Line"},
      {BasePath::kTax, "/AuditFile/SourceDocuments/SalesInvoices/Invoice/Tax"},
      {BasePath::kOrderReferences, "/AuditFile/SourceDocuments/SalesInvoices/Invoice/OrderReferences"},
      {BasePath::kReferences, "/AuditFile/SourceDocuments/SalesInvoices/Invoice/References"},
      {BasePath::kCreditNote, "/AuditFile/SourceDocuments/SalesInvoices/Invoice/References/CreditNote"},
  };
  std::set<BasePath> seen;
  for (const auto& row : kRows) {
    EXPECT_EQ(TextOf(row.path), row.text);
    seen.insert(row.path);
  }
  EXPECT_EQ(seen.size(), static_cast<size_t>(kBasePaths));
}

TEST(BasePathTest, AnAddressLiesUnderItsShippingPoint) {
  EXPECT_EQ(AddressPathUnder(BasePath::kInvoiceShipTo), BasePath::kInvoiceShipToAddress);
  EXPECT_EQ(AddressPathUnder(BasePath::kInvoiceShipFrom), BasePath::kInvoiceShipFromAddress);
  EXPECT_EQ(AddressPathUnder(BasePath::kUnattachedShippingPoint), BasePath::kDetachedAddress);
}

}  // namespace
}  // namespace zevo
