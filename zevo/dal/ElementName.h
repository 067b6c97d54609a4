// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_DAL_ELEMENTNAME_H_
#define ZEVO_DAL_ELEMENTNAME_H_

#include <algorithm>
#include <array>
#include <cstdint>
#include <functional>
#include <string_view>

namespace zevo {

/// The names of the file's elements, in the order of their numbers: documents number them 1, 2 and so on.
inline constexpr auto kElementNames = std::to_array<std::string_view>({
    "AccountDescription",
    "AccountID",
    "Address",
    "AddressDetail",
    "AuditFile",
    "AuditFileVersion",
    "BillingAddress",
    "BuildingNumber",
    "BusinessName",
    "City",
    "CompanyAddress",
    "CompanyID",
    "CompanyName",
    "Contact",
    "Country",
    "CreditAmount",
    "CreditNote",
    "Currency",
    "CurrencyCode",
    "CurrencyCreditAmount",
    "CurrencyDebitAmount",
    "Customer",
    "CustomerID",
    "CustomerTaxID",
    "DateCreated",
    "DebitAmount",
    "DeliveryDate",
    "DeliveryID",
    "Description",
    "DocArchivalNumber",
    "DocumentTotals",
    "Email",
    "EndDate",
    "Fax",
    "FiscalYear",
    "GLPostingDate",
    "GeneralLedger",
    "GeneralLedgerEntries",
    "GrossTotal",
    "Hash",
    "HashControl",
    "Header",
    "HeaderComment",
    "Invoice",
    "InvoiceDate",
    "InvoiceNo",
    "InvoiceStatus",
    "InvoiceType",
    "Journal",
    "JournalID",
    "Line",
    "LineNumber",
    "MasterFiles",
    "NetTotal",
    "NumberOfEntries",
    "OpeningCreditBalance",
    "OpeningDebitBalance",
    "OrderDate",
    "OrderReferences",
    "OriginatingON",
    "PaymentMechanism",
    "Period",
    "PostalCode",
    "Product",
    "ProductCode",
    "ProductCompanyTaxID",
    "ProductDescription",
    "ProductGroup",
    "ProductID",
    "ProductNumberCode",
    "ProductType",
    "ProductVersion",
    "Quantity",
    "Reason",
    "RecordID",
    "Reference",
    "References",
    "Region",
    "SalesInvoices",
    "SelfBillingIndicator",
    "Settlement",
    "SettlementAmount",
    "SettlementDate",
    "SettlementDiscount",
    "ShipFrom",
    "ShipFromAddress",
    "ShipTo",
    "ShipToAddress",
    "SoftwareCertificateNumber",
    "SourceDocumentID",
    "SourceDocuments",
    "SourceID",
    "StartDate",
    "StreetName",
    "Supplier",
    "SupplierID",
    "SupplierTaxID",
    "SystemEntryDate",
    "Tax",
    "TaxAccountingBasis",
    "TaxAmount",
    "TaxCode",
    "TaxCountryRegion",
    "TaxEntity",
    "TaxExemptionReason",
    "TaxExpirationDate",
    "TaxPayable",
    "TaxPercentage",
    "TaxPointDate",
    "TaxRegistrationNumber",
    "TaxTable",
    "TaxTableEntry",
    "TaxType",
    "Telephone",
    "TotalCredit",
    "TotalDebit",
    "Transaction",
    "TransactionDate",
    "TransactionID",
    "TransactionType",
    "UnitOfMeasure",
    "UnitPrice",
    "WebSite",
    "Website",
});
static_assert(std::ranges::adjacent_find(kElementNames, std::ranges::greater_equal{}) == kElementNames.end(),
              "in alphabetical order, each once");

/// One of those names; a literal that is none of them does not compile.
class ElementName {
 public:
  // NOLINTNEXTLINE(google-explicit-constructor): a literal stands for the name wherever one is expected.
  consteval ElementName(const char* text) : number_(NumberOf(text)) {}

  constexpr std::string_view Text() const { return kElementNames[number_ - 1U]; }
  // NOLINTNEXTLINE(google-explicit-constructor): it stands wherever a text is expected.
  constexpr operator std::string_view() const { return Text(); }
  /// Its number in a document.
  constexpr uint32_t Number() const { return number_; }

 private:
  static consteval uint8_t NumberOf(std::string_view text) {
    static_assert(kElementNames.size() < 255);
    const auto found = std::ranges::find(kElementNames, text);
    if (found == kElementNames.end()) throw "not the name of an element";
    return static_cast<uint8_t>(found - kElementNames.begin() + 1);
  }

  uint8_t number_;
};

}  // namespace zevo

#endif  // ZEVO_DAL_ELEMENTNAME_H_
