// SPDX-License-Identifier: Apache-2.0
// The layout of every record's element, against a table of its own: which children stand in it, in which order, and
// which of them are left out.

#include <gtest/gtest.h>
#include <zevo/mappers/CustomerDALC.h>
#include <zevo/mappers/GeneralLedgerDALC.h>
#include <zevo/mappers/GeneralLedgerEntriesDALC.h>
#include <zevo/mappers/HeaderDALC.h>
#include <zevo/mappers/InvoiceDALC.h>
#include <zevo/mappers/JournalDALC.h>
#include <zevo/mappers/ProductDALC.h>
#include <zevo/mappers/SalesInvoicesDALC.h>
#include <zevo/mappers/SupplierDALC.h>
#include <zevo/mappers/TaxTableEntryDALC.h>
#include <zevo/mappers/TransactionDALC.h>

#include <memory>
#include <ostream>
#include <string>
#include <vector>

#include "tests/dal/XmlTree.h"
#include "tests/mappers/MapperTest.h"
#include "tests/mappers/Records.h"

namespace zevo {
namespace {

using testing::ParseXml;
using testing::ReadBytes;
using testing::XmlNode;

enum class When {
  kAlways,
  kIfNotEmpty,
  kIfSet,        // an object assigned by reference, or an item of a collection
  kIfNotZero,    // the first of two of which exactly one is written
  kIfOtherZero,  // the second of them
};
using enum When;

struct Row {
  const char* element;
  When when;
};

enum class Empty {
  kBare,          // the record holds no others
  kWithChildren,  // it holds empty ones
};

struct ElementCase {
  const char* name;
  Empty empty;
  std::vector<const char*> path;  // from the root to the element
  std::vector<Row> rows;
};
void PrintTo(const ElementCase& element, std::ostream* out) { *out << element.name; }

std::vector<std::string> Expected(const std::vector<Row>& rows, bool full) {
  std::vector<std::string> names;
  for (const Row& row : rows) {
    const bool written = row.when == kAlways || (full ? row.when != kIfOtherZero : row.when == kIfOtherZero);
    if (written) names.emplace_back(row.element);
  }
  return names;
}

std::shared_ptr<Invoice> InvoiceOfEmptyRecords() {
  auto invoice = std::make_shared<Invoice>();
  invoice->set_ShipTo(std::make_shared<ShippingPointStructure>());
  auto line = std::make_shared<InvoiceLine>();
  line->set_OrderReferences(std::make_shared<OrderReferences>());
  line->set_References(std::make_shared<References>());
  line->References()->CreditNote()->Add(std::make_shared<CreditNote>());
  line->set_Tax(std::make_shared<Tax>());
  invoice->Line()->Add(line);
  invoice->DocumentTotals()->set_CurrencyValue(std::make_shared<CurrencyStructure>());
  invoice->DocumentTotals()->set_Settlement(std::make_shared<Settlement>());
  return invoice;
}

std::shared_ptr<Transaction> TransactionOfAnEmptyLine() {
  auto transaction = std::make_shared<Transaction>();
  transaction->Line()->Add(std::make_shared<TransactionLine>());
  return transaction;
}

void WriteTransactionAndInvoice(const Transaction& transaction, const Invoice& invoice, IDALHelper& helper) {
  GeneralLedgerEntriesDALC().CreateGeneralLedgerEntries(GeneralLedgerEntries(), helper);
  JournalDALC().CreateJournal(Journal(), helper);
  TransactionDALC().CreateTransaction(transaction, nullptr, helper);
  SalesInvoicesDALC().CreateSalesInvoices(SalesInvoices(), helper);
  InvoiceDALC().CreateInvoice(invoice, helper);
}

void WriteFull(IDALHelper& helper) {
  HeaderDALC().CreateHeader(*testing::FullHeader(), helper);
  GeneralLedgerDALC().CreateGeneralLedger(*testing::FullGeneralLedger(), helper);
  CustomerDALC().CreateCustomer(*testing::FullCustomer("C1"), helper);
  SupplierDALC().CreateSupplier(*testing::FullSupplier("S1"), helper);
  ProductDALC().CreateProduct(*testing::FullProduct(), helper);
  TaxTableEntryDALC().CreateTaxTableEntry(*testing::FullTaxTableEntry(), helper);
  WriteTransactionAndInvoice(*testing::FullTransaction(), *testing::FullInvoice(), helper);
}

void WriteEmpty(Empty empty, IDALHelper& helper) {
  HeaderDALC().CreateHeader(Header(), helper);
  GeneralLedgerDALC().CreateGeneralLedger(GeneralLedger(), helper);
  CustomerDALC().CreateCustomer(Customer(), helper);
  SupplierDALC().CreateSupplier(Supplier(), helper);
  ProductDALC().CreateProduct(Product(), helper);
  TaxTableEntryDALC().CreateTaxTableEntry(TaxTableEntry(), helper);
  if (empty == Empty::kBare) {
    WriteTransactionAndInvoice(Transaction(), Invoice(), helper);
  } else {
    WriteTransactionAndInvoice(*TransactionOfAnEmptyLine(), *InvoiceOfEmptyRecords(), helper);
  }
}

class LayoutTest : public testing::MapperTest, public ::testing::WithParamInterface<ElementCase> {
 protected:
  std::vector<std::string> ChildrenOfTheElement() {
    helper_.SaveFile();
    const XmlNode document = ParseXml(ReadBytes(helper_.AuditFileName()));
    const XmlNode* node = &document.Child("AuditFile");
    for (const char* step : GetParam().path) node = &node->Child(step);
    std::vector<std::string> names;
    for (const XmlNode& child : node->children) {
      if (child.kind == XmlNode::Kind::kElement) names.push_back(child.name);
    }
    return names;
  }
};

TEST_P(LayoutTest, FullRecordHasEveryElementInOrder) {
  WriteFull(helper_);
  EXPECT_EQ(ChildrenOfTheElement(), Expected(GetParam().rows, true));
}

TEST_P(LayoutTest, EmptyRecordHasThoseThatAreAlwaysWrittenInOrder) {
  WriteEmpty(GetParam().empty, helper_);
  EXPECT_EQ(ChildrenOfTheElement(), Expected(GetParam().rows, false));
}

const std::vector<Row> kAddress = {
    {"BuildingNumber", kIfNotEmpty}, {"StreetName", kIfNotEmpty}, {"AddressDetail", kAlways}, {"City", kAlways},
    {"PostalCode", kAlways},         {"Region", kIfNotEmpty},     {"Country", kAlways}};

const std::vector<ElementCase> kElements = {
    {"Header",
     Empty::kBare,
     {"Header"},
     {{"AuditFileVersion", kAlways},
      {"CompanyID", kAlways},
      {"TaxRegistrationNumber", kAlways},
      {"TaxAccountingBasis", kAlways},
      {"CompanyName", kAlways},
      {"BusinessName", kAlways},
      {"CompanyAddress", kAlways},
      {"FiscalYear", kAlways},
      {"StartDate", kAlways},
      {"EndDate", kAlways},
      {"CurrencyCode", kAlways},
      {"DateCreated", kAlways},
      {"TaxEntity", kAlways},
      {"ProductCompanyTaxID", kAlways},
      {"SoftwareCertificateNumber", kAlways},
      {"ProductID", kAlways},
      {"ProductVersion", kAlways},
      {"HeaderComment", kIfNotEmpty},
      {"Telephone", kIfNotEmpty},
      {"Fax", kIfNotEmpty},
      {"Email", kIfNotEmpty},
      {"Website", kIfNotEmpty}}},
    {"CompanyAddress", Empty::kBare, {"Header", "CompanyAddress"}, kAddress},
    {"GeneralLedger",
     Empty::kBare,
     {"MasterFiles", "GeneralLedger"},
     {{"AccountID", kAlways},
      {"AccountDescription", kAlways},
      {"OpeningDebitBalance", kAlways},
      {"OpeningCreditBalance", kAlways}}},
    {"Customer",
     Empty::kBare,
     {"MasterFiles", "Customer"},
     {{"CustomerID", kAlways},
      {"AccountID", kAlways},
      {"CustomerTaxID", kAlways},
      {"CompanyName", kAlways},
      {"Contact", kIfNotEmpty},
      {"BillingAddress", kAlways},
      {"ShipToAddress", kIfSet},
      {"Telephone", kIfNotEmpty},
      {"Fax", kIfNotEmpty},
      {"Email", kIfNotEmpty},
      {"Website", kIfNotEmpty},
      {"SelfBillingIndicator", kAlways}}},
    {"CustomerBillingAddress", Empty::kBare, {"MasterFiles", "Customer", "BillingAddress"}, kAddress},
    {"Supplier",
     Empty::kBare,
     {"MasterFiles", "Supplier"},
     {{"SupplierID", kAlways},
      {"AccountID", kAlways},
      {"SupplierTaxID", kAlways},
      {"CompanyName", kAlways},
      {"Contact", kIfNotEmpty},
      {"BillingAddress", kAlways},
      {"ShipFromAddress", kIfSet},
      {"Telephone", kIfNotEmpty},
      {"Fax", kIfNotEmpty},
      {"Email", kIfNotEmpty},
      {"Website", kIfNotEmpty},
      {"SelfBillingIndicator", kAlways}}},
    {"SupplierBillingAddress", Empty::kBare, {"MasterFiles", "Supplier", "BillingAddress"}, kAddress},
    {"Product",
     Empty::kBare,
     {"MasterFiles", "Product"},
     {{"ProductType", kAlways},
      {"ProductCode", kAlways},
      {"ProductGroup", kIfNotEmpty},
      {"ProductDescription", kAlways},
      {"ProductNumberCode", kAlways}}},
    {"TaxTableEntry",
     Empty::kBare,
     {"MasterFiles", "TaxTable", "TaxTableEntry"},
     {{"TaxType", kAlways},
      {"TaxCountryRegion", kAlways},
      {"TaxCode", kAlways},
      {"Description", kAlways},
      {"TaxExpirationDate", kIfNotEmpty},
      {"TaxPercentage", kIfNotZero},
      {"TaxAmount", kIfOtherZero}}},
    {"GeneralLedgerEntries",
     Empty::kBare,
     {"GeneralLedgerEntries"},
     {{"NumberOfEntries", kAlways}, {"TotalDebit", kAlways}, {"TotalCredit", kAlways}, {"Journal", kAlways}}},
    {"Journal",
     Empty::kBare,
     {"GeneralLedgerEntries", "Journal"},
     {{"JournalID", kAlways}, {"Description", kAlways}, {"Transaction", kAlways}}},
    {"Transaction",
     Empty::kBare,
     {"GeneralLedgerEntries", "Journal", "Transaction"},
     {{"TransactionID", kAlways},
      {"Period", kAlways},
      {"TransactionDate", kAlways},
      {"SourceID", kIfNotEmpty},
      {"Description", kAlways},
      {"DocArchivalNumber", kAlways},
      {"TransactionType", kAlways},
      {"GLPostingDate", kAlways},
      {"CustomerID", kIfNotEmpty},
      {"SupplierID", kIfNotEmpty},
      {"Line", kIfSet}}},
    {"TransactionLine",
     Empty::kWithChildren,
     {"GeneralLedgerEntries", "Journal", "Transaction", "Line"},
     {{"RecordID", kAlways},
      {"AccountID", kAlways},
      {"SourceDocumentID", kIfNotEmpty},
      {"SystemEntryDate", kAlways},
      {"Description", kAlways},
      {"DebitAmount", kIfNotZero},
      {"CreditAmount", kIfOtherZero}}},
    {"SalesInvoices",
     Empty::kBare,
     {"SourceDocuments", "SalesInvoices"},
     {{"NumberOfEntries", kAlways}, {"TotalDebit", kAlways}, {"TotalCredit", kAlways}, {"Invoice", kAlways}}},
    {"Invoice",
     Empty::kBare,
     {"SourceDocuments", "SalesInvoices", "Invoice"},
     {{"InvoiceNo", kAlways},
      {"InvoiceStatus", kAlways},
      {"Hash", kAlways},
      {"HashControl", kIfNotEmpty},
      {"Period", kIfNotEmpty},
      {"InvoiceDate", kAlways},
      {"InvoiceType", kAlways},
      {"SelfBillingIndicator", kAlways},
      {"SystemEntryDate", kAlways},
      {"TransactionID", kIfNotEmpty},
      {"CustomerID", kAlways},
      {"ShipTo", kIfSet},
      {"ShipFrom", kIfSet},
      {"Line", kIfSet},
      {"DocumentTotals", kAlways}}},
    {"ShipTo",
     Empty::kWithChildren,
     {"SourceDocuments", "SalesInvoices", "Invoice", "ShipTo"},
     {{"DeliveryID", kIfNotEmpty}, {"DeliveryDate", kIfNotEmpty}, {"Address", kIfSet}}},
    {"InvoiceLine",
     Empty::kWithChildren,
     {"SourceDocuments", "SalesInvoices", "Invoice", "Line"},
     {{"LineNumber", kAlways},
      {"OrderReferences", kAlways},
      {"ProductCode", kAlways},
      {"ProductDescription", kAlways},
      {"Quantity", kAlways},
      {"UnitOfMeasure", kIfNotEmpty},
      {"UnitPrice", kAlways},
      {"TaxPointDate", kAlways},
      {"References", kAlways},
      {"Description", kAlways},
      {"DebitAmount", kIfNotZero},
      {"CreditAmount", kIfOtherZero},
      {"Tax", kAlways},
      {"TaxExemptionReason", kIfNotEmpty},
      {"SettlementAmount", kAlways}}},
    {"OrderReferences",
     Empty::kWithChildren,
     {"SourceDocuments", "SalesInvoices", "Invoice", "Line", "OrderReferences"},
     {{"OriginatingON", kIfNotEmpty}, {"OrderDate", kIfNotEmpty}}},
    {"References",
     Empty::kWithChildren,
     {"SourceDocuments", "SalesInvoices", "Invoice", "Line", "References"},
     {{"CreditNote", kAlways}}},
    {"CreditNote",
     Empty::kWithChildren,
     {"SourceDocuments", "SalesInvoices", "Invoice", "Line", "References", "CreditNote"},
     {{"Reference", kIfNotEmpty}, {"Reason", kIfNotEmpty}}},
    {"Tax",
     Empty::kWithChildren,
     {"SourceDocuments", "SalesInvoices", "Invoice", "Line", "Tax"},
     {{"TaxType", kAlways},
      {"TaxCountryRegion", kAlways},
      {"TaxCode", kIfNotEmpty},
      {"TaxPercentage", kIfNotZero},
      {"TaxAmount", kIfOtherZero}}},
    {"DocumentTotals",
     Empty::kBare,
     {"SourceDocuments", "SalesInvoices", "Invoice", "DocumentTotals"},
     {{"TaxPayable", kAlways},
      {"NetTotal", kAlways},
      {"GrossTotal", kAlways},
      {"Currency", kIfSet},
      {"Settlement", kIfSet}}},
    {"Currency",
     Empty::kWithChildren,
     {"SourceDocuments", "SalesInvoices", "Invoice", "DocumentTotals", "Currency"},
     {{"CurrencyCode", kIfNotEmpty}, {"CurrencyDebitAmount", kIfNotZero}, {"CurrencyCreditAmount", kIfOtherZero}}},
    {"Settlement",
     Empty::kWithChildren,
     {"SourceDocuments", "SalesInvoices", "Invoice", "DocumentTotals", "Settlement"},
     {{"SettlementDiscount", kIfNotEmpty},
      {"SettlementAmount", kAlways},
      {"SettlementDate", kIfNotEmpty},
      {"PaymentMechanism", kIfNotEmpty}}},
};

INSTANTIATE_TEST_SUITE_P(Elements, LayoutTest, ::testing::ValuesIn(kElements),
                         [](const auto& test) { return test.param.name; });

}  // namespace
}  // namespace zevo
