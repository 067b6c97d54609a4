// SPDX-License-Identifier: Apache-2.0
#include "tests/model/RecordTable.h"

#include <zevo/adapters.h>

#include <array>
#include <stdexcept>

namespace zevo::testing {
namespace {

constexpr PropertyRow Text(std::string_view name, size_t limit = 0) {
  return {.name = name, .type = PropertyType::kText, .check = name, .limit = limit};
}
constexpr PropertyRow Amounts(std::string_view name) {
  return {.name = name, .type = PropertyType::kAmount, .check = name};
}
constexpr PropertyRow Single(std::string_view name) {
  return {.name = name, .type = PropertyType::kSingle, .check = name};
}
constexpr PropertyRow Count(std::string_view name) {
  return {.name = name, .type = PropertyType::kCount, .check = name};
}
constexpr PropertyRow Flag(std::string_view name) { return {.name = name, .type = PropertyType::kFlag, .check = name}; }
constexpr PropertyRow Coded(std::string_view name) { return {.name = name, .type = PropertyType::kCode}; }
constexpr PropertyRow Constant(std::string_view name) {
  return {.name = name, .type = PropertyType::kText, .writable = false};
}
constexpr PropertyRow Owned(std::string_view name) {
  return {.name = name, .type = PropertyType::kRecord, .writable = false};
}
constexpr PropertyRow Shared(std::string_view name) { return {.name = name, .type = PropertyType::kRecord}; }
constexpr PropertyRow Collection(std::string_view name) {
  return {.name = name, .type = PropertyType::kCollection, .writable = false};
}

constexpr std::array kHeader = {
    Text("CompanyID"),
    Text("TaxRegistrationNumber"),
    Coded("TaxAccountingBasis"),
    Text("CompanyName", 60),
    Text("BusinessName", 60),
    Text("FiscalYear"),
    Text("StartDate"),
    Text("EndDate"),
    Text("CurrencyCode"),
    Text("DateCreated"),
    Text("TaxEntity", 20),
    Text("SoftwareCertificateNumber", 20),
    Text("ProductID", 255),
    Text("ProductVersion", 30),
    Text("Telephone", 20),
    Text("Fax", 20),
    Text("Email", 60),
    PropertyRow{.name = "Website", .type = PropertyType::kText, .check = "WebSite", .limit = 60},
    Text("HeaderComment", 255),
    Constant("AuditFileVersion"),
    Constant("ProductCompanyTaxId"),
    Owned("CompanyAddress"),
};
constexpr std::array kAddress = {
    Text("BuildingNumber", 10), Text("StreetName", 50), Text("AddressDetail", 60), Text("City", 50),
    Text("PostalCode", 20),     Text("Region", 50),     Text("Country"),
};
constexpr std::array kGeneralLedger = {
    // Checked under the path of the entries, where the schema has no such account: nothing cuts it.
    Text("AccountID"),
    Text("AccountDescription", 60),
    Amounts("OpeningDebitBalance"),
    Amounts("OpeningCreditBalance"),
};
constexpr std::array kProduct = {
    Coded("ProductType"),           Text("ProductCode", 30),       Text("ProductGroup", 50),
    Text("ProductDescription", 60), Text("ProductNumberCode", 50),
};
constexpr std::array kCustomer = {
    Text("CustomerID", 30),    Text("AccountID"),
    Text("CustomerTaxID", 20), Text("CompanyName", 60),
    Text("Contact", 50),       Text("Telephone", 20),
    Text("Fax", 20),           Text("Email", 60),
    Text("Website", 60),       Flag("SelfBillingIndicator"),
    Owned("BillingAddress"),   Shared("ShipToAddress"),
};
// The obsolete ShipToAddress is no property to walk over: it can be neither read nor assigned.
constexpr std::array kSupplier = {
    Text("SupplierID", 30),    Text("AccountID"),
    Text("SupplierTaxID", 20), Text("CompanyName", 60),
    Text("Contact", 50),       Text("Telephone", 20),
    Text("Fax", 20),           Text("Email", 60),
    Text("Website", 60),       Flag("SelfBillingIndicator"),
    Owned("BillingAddress"),   Shared("ShipFromAddress"),
};
constexpr std::array kTaxTable = {Collection("TaxTableEntry")};
constexpr std::array kTaxTableEntry = {
    Text("TaxCountryRegion"), Text("TaxCode"),      Text("Description", 255), Text("TaxExpirationDate"),
    Amounts("TaxPercentage"), Amounts("TaxAmount"), Constant("TaxType"),
};
constexpr std::array kGeneralLedgerEntries = {Count("NumberOfEntries"), Amounts("TotalDebit"), Amounts("TotalCredit")};
constexpr std::array kJournal = {Text("JournalID", 30), Text("Description", 60)};
constexpr std::array kTransaction = {
    Text("TransactionID", 70), Text("Period"),          Text("TransactionDate"),
    Text("SourceID", 30),      Text("Description", 60), Text("DocArchivalNumber", 20),
    Coded("TransactionType"),  Text("GLPostingDate"),   Text("CustomerID", 30),
    Text("SupplierID", 30),    Collection("Line"),
};
constexpr std::array kTransactionLine = {
    Text("RecordID", 10),    Text("AccountID", 30),  Text("SourceDocumentID", 30), Text("SystemEntryDate"),
    Text("Description", 60), Amounts("DebitAmount"), Amounts("CreditAmount"),
};
constexpr std::array kTax = {
    Text("TaxCountryRegion"), Text("TaxCode"), Single("TaxPercentage"), Single("TaxAmount"), Constant("TaxType"),
};
constexpr std::array kShippingPoint = {Text("DeliveryID", 30), Text("DeliveryDate"), Shared("Address")};
constexpr std::array kOrderReferences = {
    // The element is OriginatingON; among global declarations letter case counts, so nothing cuts it.
    Text("OriginatingOn"),
    Text("OrderDate"),
};
constexpr std::array kCreditNote = {Text("Reference", 60), Text("Reason", 50)};
constexpr std::array kReferences = {Collection("CreditNote")};
constexpr std::array kSettlement = {
    Text("SettlementDiscount", 30),
    Amounts("SettlementAmount"),
    Text("SettlementDate"),
    Coded("PaymentMechanism"),
};
constexpr std::array kCurrency = {
    Text("CurrencyCode"),
    Amounts("CurrencyDebitAmount"),
    Amounts("CurrencyCreditAmount"),
};
constexpr std::array kDocumentTotals = {
    Amounts("TaxPayable"), Amounts("NetTotal"), Amounts("GrossTotal"), Shared("CurrencyValue"), Shared("Settlement"),
};
constexpr std::array kInvoiceLine = {
    Count("LineNumber"),       Text("ProductCode", 30),        Text("ProductDescription", 60),
    Amounts("Quantity"),       Text("UnitOfMeasure", 20),      Amounts("UnitPrice"),
    Text("TaxPointDate"),      Text("Description", 60),        Amounts("DebitAmount"),
    Amounts("CreditAmount"),   Text("TaxExemptionReason", 60), Amounts("SettlementAmount"),
    Shared("OrderReferences"), Shared("References"),           Shared("Tax"),
};
constexpr std::array kInvoice = {
    Text("InvoiceNo"),       Coded("InvoiceStatus"),    Text("Hash", 200),      Text("HashControl", 40),
    Text("Period"),          Text("InvoiceDate"),       Coded("InvoiceType"),   Flag("SelfBillingIndicator"),
    Text("SystemEntryDate"), Text("TransactionID", 70), Text("CustomerID", 30), Shared("ShipTo"),
    Shared("ShipFrom"),      Owned("DocumentTotals"),   Collection("Line"),
};
constexpr std::array kSalesInvoices = {Count("NumberOfEntries"), Amounts("TotalDebit"), Amounts("TotalCredit")};

template <class T>
std::shared_ptr<Record> New() {
  return std::make_shared<T>();
}

// A record after it was assigned to a property of an owner.
template <class Owner, auto kAssign, class T>
std::shared_ptr<Record> Attached() {
  auto record = std::make_shared<T>();
  (Owner().*kAssign)(record);
  return record;
}

template <auto kAssign>
std::shared_ptr<Record> AddressOfShippingPoint() {
  auto point = std::make_shared<ShippingPointStructure>();
  (Invoice().*kAssign)(point);
  auto address = std::make_shared<AddressStructure>();
  point->set_Address(address);
  return address;
}

template <class T>
constexpr RecordClass Class(std::string_view name, std::string_view path, std::span<const PropertyRow> rows) {
  return {name, path, &PropertiesOf<T>, &New<T>, rows};
}

constexpr RecordClass Address(std::string_view owner, std::string_view path, std::shared_ptr<Record> (*make)()) {
  return {owner, path, &PropertiesOf<AddressStructure>, make, kAddress};
}

constexpr RecordClass ShippingPoint(std::string_view owner, std::string_view path, std::shared_ptr<Record> (*make)()) {
  return {owner, path, &PropertiesOf<ShippingPointStructure>, make, kShippingPoint};
}

constexpr std::array kClasses = {
    Class<Header>("Header", "/AuditFile/Header", kHeader),
    Class<GeneralLedger>("GeneralLedger", "/AuditFile/GeneralLedgerEntries", kGeneralLedger),
    Class<Product>("Product", "/AuditFile/MasterFiles/Product", kProduct),
    Class<Customer>("Customer", "/AuditFile/MasterFiles/Customer", kCustomer),
    Class<Supplier>("Supplier", "/AuditFile/MasterFiles/Supplier", kSupplier),
    Class<TaxTable>("TaxTable", "", kTaxTable),
    Class<TaxTableEntry>("TaxTableEntry", "/AuditFile/MasterFiles/TaxTable/TaxTableEntry", kTaxTableEntry),
    Class<GeneralLedgerEntries>("GeneralLedgerEntries", "/AuditFile/GeneralLedgerEntries", kGeneralLedgerEntries),
    Class<Journal>("Journal", "/AuditFile/GeneralLedgerEntries/Journal", kJournal),
    Class<Transaction>("Transaction", "/AuditFile/GeneralLedgerEntries/Journal/Transaction", kTransaction),
    Class<TransactionLine>("TransactionLine", "/AuditFile/GeneralLedgerEntries/Journal/Transaction/Line",
                           kTransactionLine),
    Class<SalesInvoices>("SalesInvoices", "/AuditFile/SourceDocuments/SalesInvoices", kSalesInvoices),
    Class<Invoice>("Invoice", "/AuditFile/SourceDocuments/SalesInvoices/Invoice", kInvoice),
    Class<InvoiceLine>("InvoiceLine", "/AuditFile/SourceDocuments/SalesInvoices/Invoice/Line", kInvoiceLine),
    Class<DocumentTotals>("DocumentTotals", "/AuditFile/SourceDocuments/SalesInvoices/Invoice/DocumentTotals",
                          kDocumentTotals),
    Class<CurrencyStructure>("CurrencyStructure",
                             "/AuditFile/SourceDocuments/SalesInvoices/Invoice/DocumentTotals/Currency", kCurrency),
    Class<Settlement>("Settlement", "/AuditFile/SourceDocuments/SalesInvoices/Invoice/DocumentTotals/Settlement",
                      kSettlement),
    // What belongs to a line is checked one level up, without the step of the line.
    Class<Tax>("Tax", "/AuditFile/SourceDocuments/SalesInvoices/Invoice/Tax", kTax),
    Class<OrderReferences>("OrderReferences", "/AuditFile/SourceDocuments/SalesInvoices/Invoice/OrderReferences",
                           kOrderReferences),
    Class<References>("References", "/AuditFile/SourceDocuments/SalesInvoices/Invoice/References", kReferences),
    Class<CreditNote>("CreditNote", "/AuditFile/SourceDocuments/SalesInvoices/Invoice/References/CreditNote",
                      kCreditNote),
    ShippingPoint("ShippingPointOfNobody", "", &New<ShippingPointStructure>),
    ShippingPoint("ShippingPointOfShipTo", "/AuditFile/SourceDocuments/SalesInvoices/Invoice/ShipTo",
                  &Attached<Invoice, &Invoice::set_ShipTo, ShippingPointStructure>),
    ShippingPoint("ShippingPointOfShipFrom", "/AuditFile/SourceDocuments/SalesInvoices/Invoice/ShipFrom",
                  &Attached<Invoice, &Invoice::set_ShipFrom, ShippingPointStructure>),
    Address("AddressOfNobody", "", &New<AddressStructure>),
    Address(
        "AddressOfHeader", "/AuditFile/Header/CompanyAddress",
        +[]() -> std::shared_ptr<Record> { return Header().CompanyAddress(); }),
    Address(
        "AddressOfCustomerBilling", "/AuditFile/MasterFiles/Customer/BillingAddress",
        +[]() -> std::shared_ptr<Record> { return Customer().BillingAddress(); }),
    Address("AddressOfCustomerShipTo", "/AuditFile/MasterFiles/Customer/ShipToAddress",
            &Attached<Customer, &Customer::set_ShipToAddress, AddressStructure>),
    Address(
        "AddressOfSupplierBilling", "/AuditFile/MasterFiles/Supplier/BillingAddress",
        +[]() -> std::shared_ptr<Record> { return Supplier().BillingAddress(); }),
    Address("AddressOfSupplierShipFrom", "/AuditFile/MasterFiles/Supplier/ShipFromAddress",
            &Attached<Supplier, &Supplier::set_ShipFromAddress, AddressStructure>),
    Address("AddressOfShipTo", "/AuditFile/SourceDocuments/SalesInvoices/Invoice/ShipTo/Address",
            &AddressOfShippingPoint<&Invoice::set_ShipTo>),
    Address("AddressOfShipFrom", "/AuditFile/SourceDocuments/SalesInvoices/Invoice/ShipFrom/Address",
            &AddressOfShippingPoint<&Invoice::set_ShipFrom>),
    Address("AddressOfShippingPointOfNobody", "/Address",
            &Attached<ShippingPointStructure, &ShippingPointStructure::set_Address, AddressStructure>),
};

}  // namespace

std::span<const RecordClass> RecordClasses() { return kClasses; }

const Property& PropertyNamed(std::span<const Property> properties, std::string_view name) {
  for (const Property& property : properties) {
    if (property.name == name) return property;
  }
  throw std::out_of_range("no property " + std::string(name));
}

}  // namespace zevo::testing
