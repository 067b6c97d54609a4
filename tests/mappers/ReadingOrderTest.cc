// SPDX-License-Identifier: Apache-2.0
// The order in which a record's properties are set when it is read: a read that fails leaves in the record what was set
// before. Each property in turn is made to fail, by a schema whose greatest length for its element is no number.

#include <gtest/gtest.h>
#include <zevo/mappers/CustomerDALC.h>
#include <zevo/mappers/GeneralLedgerDALC.h>
#include <zevo/mappers/GeneralLedgerEntriesDALC.h>
#include <zevo/mappers/HeaderDALC.h>
#include <zevo/mappers/InvoiceDALC.h>
#include <zevo/mappers/InvoiceLineDALC.h>
#include <zevo/mappers/JournalDALC.h>
#include <zevo/mappers/ProductDALC.h>
#include <zevo/mappers/SalesInvoicesDALC.h>
#include <zevo/mappers/SupplierDALC.h>
#include <zevo/mappers/TaxTableEntryDALC.h>
#include <zevo/mappers/TransactionDALC.h>
#include <zevo/mappers/TransactionLineDALC.h>

#include <functional>
#include <memory>
#include <ostream>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include "tests/mappers/MapperTest.h"
#include "tests/model/SchemaText.h"

namespace zevo {
namespace {

using testing::Describe;
using testing::ErrorOf;

enum class Fails {
  kWhenItsLengthIsBroken,
  kNever,  // no length is looked for, or it is broken for a default value already, or what comes before is lost as well
};

struct Step {
  std::string_view property;
  Fails fails = Fails::kWhenItsLengthIsBroken;
  std::string_view element = property.substr(property.rfind('.') + 1);
};

struct RecordCase {
  const char* name;
  std::string_view content;                                          // what stands in the file's root
  std::function<std::string(IDALReader&, std::string* error)> read;  // what the record holds afterwards
  std::vector<Step> order;
};
void PrintTo(const RecordCase& record, std::ostream* out) { *out << record.name; }

// Reads into a slot; what is in the slot then.
template <class R, class Read>
auto Reader(Read read) {
  return [read](IDALReader& reader, std::string* error) {
    std::shared_ptr<R> slot;
    try {
      read(slot, reader);
    } catch (const Error& raised) {
      *error = std::to_string(raised.Number());
    }
    return slot ? Describe(*slot) : std::string("nothing");
  };
}

// Those of the properties that hold what they hold after a whole reading.
std::string Set(const std::vector<Step>& order, const std::string& held, const std::string& whole) {
  const auto lineOf = [](const std::string& text, std::string_view property) {
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);) {
      if (line.starts_with(std::string(property) + "=")) return line;
    }
    return std::string();
  };
  std::string set;
  for (const Step& step : order) {
    const std::string line = lineOf(held, step.property);
    if (!line.empty() && line == lineOf(whole, step.property)) set.append(step.property).append(" ");
  }
  return set;
}

std::string UpTo(const std::vector<Step>& order, size_t count) {
  std::string names;
  for (size_t i = 0; i < count; ++i) names.append(order[i].property).append(" ");
  return names;
}

class ReadingOrderTest : public testing::MapperTest, public ::testing::WithParamInterface<RecordCase> {};

TEST_P(ReadingOrderTest, WhatComesBeforeAPropertyThatFailsIsSetAndNothingElse) {
  const RecordCase& record = GetParam();
  std::string error;
  const std::string whole = record.read(Reading(testing::OneLine(record.content)), &error);
  ASSERT_EQ(error, "");
  ASSERT_EQ(Set(record.order, whole, whole), UpTo(record.order, record.order.size()));
  for (size_t i = 0; i < record.order.size(); ++i) {
    const Step& step = record.order[i];
    if (step.fails == Fails::kNever) continue;
    const testing::UseSchemaText schema(testing::SchemaLimiting({{"/" + std::string(step.element), "many"}}));
    error.clear();
    const std::string held = record.read(Reading(testing::OneLine(record.content)), &error);
    EXPECT_EQ(error, "13") << step.property;
    EXPECT_EQ(Set(record.order, held, whole), UpTo(record.order, i)) << step.property;
  }
}

const RecordCase kRecords[] = {
    {"Header",
     R"(<Header>
          <CompanyID>a</CompanyID><TaxRegistrationNumber>b</TaxRegistrationNumber>
          <TaxAccountingBasis>C</TaxAccountingBasis><CompanyName>c</CompanyName>
          <CompanyAddress>
            <BuildingNumber>1</BuildingNumber><StreetName>2</StreetName><AddressDetail>3</AddressDetail><City>4</City>
            <PostalCode>5</PostalCode><Region>6</Region><Country>ES</Country>
          </CompanyAddress>
          <FiscalYear>d</FiscalYear><StartDate>e</StartDate><EndDate>f</EndDate><CurrencyCode>USD</CurrencyCode>
          <DateCreated>g</DateCreated><ProductID>h</ProductID><ProductVersion>i</ProductVersion>
          <HeaderComment>j</HeaderComment><Telephone>k</Telephone><Fax>l</Fax><Email>m</Email><WebSite>n</WebSite>
        </Header>)",
     Reader<Header>([](auto& slot, IDALReader& reader) { HeaderDALC().ReadHeader(slot, reader); }),
     {{"CompanyID"},
      {"TaxRegistrationNumber"},
      {"TaxAccountingBasis", Fails::kNever},
      {"CompanyName"},
      {"CompanyAddress.BuildingNumber"},
      {"CompanyAddress.StreetName"},
      {"CompanyAddress.AddressDetail"},
      {"CompanyAddress.City"},
      {"CompanyAddress.PostalCode"},
      {"CompanyAddress.Region"},
      {"CompanyAddress.Country", Fails::kNever},
      {"FiscalYear"},
      {"StartDate"},
      {"EndDate"},
      {"CurrencyCode", Fails::kNever},
      {"DateCreated", Fails::kNever},
      {"ProductID"},
      {"ProductVersion"},
      {"Telephone"},
      {"Fax"},
      {"Email"},
      {"Website", Fails::kWhenItsLengthIsBroken, "WebSite"},
      {"HeaderComment"}}},
    {"GeneralLedger",
     R"(<MasterFiles><GeneralLedger>
          <AccountID>a</AccountID><AccountDescription>b</AccountDescription>
          <OpeningDebitBalance>1</OpeningDebitBalance><OpeningCreditBalance>2</OpeningCreditBalance>
        </GeneralLedger></MasterFiles>)",
     Reader<GeneralLedger>(
         [](auto& slot, IDALReader& reader) { GeneralLedgerDALC().ReadGeneralLedger(slot, reader, true); }),
     {{"AccountID"}, {"AccountDescription"}, {"OpeningDebitBalance"}, {"OpeningCreditBalance"}}},
    {"Customer",
     R"(<MasterFiles><Customer>
          <CustomerID>a</CustomerID><AccountID>b</AccountID><CustomerTaxID>c</CustomerTaxID>
          <CompanyName>d</CompanyName><Contact>e</Contact>
          <BillingAddress><City>1</City></BillingAddress><ShipToAddress><Region>2</Region></ShipToAddress>
          <Telephone>f</Telephone><Fax>g</Fax><Email>h</Email><Website>i</Website>
          <SelfBillingIndicator>1</SelfBillingIndicator>
        </Customer></MasterFiles>)",
     Reader<Customer>([](auto& slot, IDALReader& reader) { CustomerDALC().ReadCustomer(slot, reader, true); }),
     {{"CustomerID"},
      {"AccountID"},
      {"CustomerTaxID"},
      {"CompanyName"},
      {"Contact"},
      {"BillingAddress.City"},
      {"ShipToAddress.Region"},
      {"Telephone"},
      {"Fax"},
      {"Email"},
      {"Website"},
      {"SelfBillingIndicator"}}},
    {"Supplier",
     R"(<MasterFiles><Supplier>
          <SupplierID>a</SupplierID><AccountID>-</AccountID><SupplierTaxID>b</SupplierTaxID>
          <CompanyName>c</CompanyName><Contact>d</Contact>
          <BillingAddress><City>1</City></BillingAddress><ShipFromAddress><Region>2</Region></ShipFromAddress>
          <Telephone>e</Telephone><Fax>f</Fax><Email>g</Email><Website>h</Website>
        </Supplier></MasterFiles>)",
     Reader<Supplier>([](auto& slot, IDALReader& reader) { SupplierDALC().ReadSupplier(slot, reader, true); }),
     {{"SupplierID"},
      {"SupplierTaxID"},
      {"CompanyName"},
      {"Contact"},
      {"BillingAddress.City"},
      {"ShipFromAddress.Region"},
      {"Telephone"},
      {"Fax"},
      {"Email"},
      {"Website"}}},
    {"Product",
     R"(<MasterFiles><Product>
          <ProductType>P</ProductType><ProductCode>a</ProductCode><ProductGroup>b</ProductGroup>
          <ProductDescription>c</ProductDescription><ProductNumberCode>d</ProductNumberCode>
        </Product></MasterFiles>)",
     Reader<Product>([](auto& slot, IDALReader& reader) { ProductDALC().ReadProduct(slot, reader, true); }),
     {{"ProductType", Fails::kNever},
      {"ProductCode"},
      {"ProductGroup"},
      {"ProductDescription"},
      {"ProductNumberCode"}}},
    {"TaxTableEntry",
     R"(<MasterFiles><TaxTable><TaxTableEntry>
          <TaxCountryRegion>a</TaxCountryRegion><TaxCode>b</TaxCode><Description>c</Description>
          <TaxExpirationDate>d</TaxExpirationDate><TaxPercentage>1</TaxPercentage><TaxAmount>2</TaxAmount>
        </TaxTableEntry></TaxTable></MasterFiles>)",
     Reader<TaxTableEntry>(
         [](auto& slot, IDALReader& reader) { TaxTableEntryDALC().ReadTaxTableEntry(slot, reader, true); }),
     {{"TaxCountryRegion"}, {"TaxCode"}, {"Description"}, {"TaxExpirationDate"}, {"TaxPercentage"}, {"TaxAmount"}}},
    {"GeneralLedgerEntries",
     R"(<GeneralLedgerEntries>
          <NumberOfEntries>1</NumberOfEntries><TotalDebit>2</TotalDebit><TotalCredit>3</TotalCredit>
        </GeneralLedgerEntries>)",
     Reader<GeneralLedgerEntries>(
         [](auto& slot, IDALReader& reader) { GeneralLedgerEntriesDALC().ReadGeneralLedgerEntries(slot, reader); }),
     {{"NumberOfEntries"}, {"TotalDebit"}, {"TotalCredit"}}},
    {"Journal",
     "<GeneralLedgerEntries><Journal><JournalID>J</JournalID><Description>b</Description></Journal>"
     "</GeneralLedgerEntries>",
     Reader<Journal>([](auto& slot, IDALReader& reader) { JournalDALC().ReadJournal(slot, reader, true); }),
     {{"JournalID"}, {"Description"}}},
    {"Transaction",
     R"(<Journal><Transaction>
          <TransactionID>a</TransactionID><Period>b</Period><TransactionDate>c</TransactionDate>
          <SourceID>d</SourceID><Description>e</Description><DocArchivalNumber>f</DocArchivalNumber>
          <TransactionType>N</TransactionType><GLPostingDate>g</GLPostingDate><CustomerID>h</CustomerID>
          <SupplierID>i</SupplierID><Line><RecordID>j</RecordID></Line>
        </Transaction></Journal>)",
     Reader<Transaction>(
         [](auto& slot, IDALReader& reader) { TransactionDALC().ReadTransaction(slot, nullptr, reader, true); }),
     {{"TransactionID"},
      {"Period"},
      {"TransactionDate"},
      {"SourceID"},
      {"Description"},
      {"DocArchivalNumber"},
      {"TransactionType", Fails::kNever},
      {"GLPostingDate"},
      {"CustomerID"},
      {"SupplierID"},
      {"Line[1].RecordID"}}},
    {"TransactionLine",
     R"(<Transaction><Line>
          <RecordID>a</RecordID><AccountID>b</AccountID><SourceDocumentID>c</SourceDocumentID>
          <SystemEntryDate>d</SystemEntryDate><Description>e</Description>
          <DebitAmount>1</DebitAmount><CreditAmount>2</CreditAmount>
        </Line></Transaction>)",
     Reader<TransactionLine>([](auto& slot, IDALReader& reader) {
       TransactionLineDALC().ReadTransactionLine(slot, reader.GetElement("Transaction", {}, {}), reader, true);
     }),
     {{"RecordID"},
      {"AccountID"},
      {"SourceDocumentID"},
      {"SystemEntryDate"},
      {"Description"},
      {"DebitAmount"},
      {"CreditAmount"}}},
    {"SalesInvoices",
     R"(<SourceDocuments><SalesInvoices>
          <NumberOfEntries>1</NumberOfEntries><TotalDebit>2</TotalDebit><TotalCredit>3</TotalCredit>
        </SalesInvoices></SourceDocuments>)",
     Reader<SalesInvoices>([](auto& slot, IDALReader& reader) { SalesInvoicesDALC().ReadSalesInvoices(slot, reader); }),
     {{"NumberOfEntries"}, {"TotalDebit"}, {"TotalCredit"}}},
    {"Invoice",
     R"(<Invoice>
          <InvoiceNo>a</InvoiceNo><InvoiceStatus>N</InvoiceStatus><Period>b</Period><InvoiceDate>c</InvoiceDate>
          <InvoiceType>FT</InvoiceType><SystemEntryDate>d</SystemEntryDate><TransactionID>e</TransactionID>
          <CustomerID>f</CustomerID>
          <ShipTo><DeliveryID>g</DeliveryID></ShipTo><ShipFrom><DeliveryDate>h</DeliveryDate></ShipFrom>
          <Line><LineNumber>1</LineNumber><Quantity>2</Quantity></Line>
          <DocumentTotals>
            <TaxPayable>3</TaxPayable><NetTotal>4</NetTotal><GrossTotal>5</GrossTotal>
            <Currency>
              <CurrencyCode>USD</CurrencyCode><CurrencyDebitAmount>6</CurrencyDebitAmount>
              <CurrencyCreditAmount>7</CurrencyCreditAmount>
            </Currency>
            <Settlement>
              <SettlementDiscount>i</SettlementDiscount><SettlementAmount>8</SettlementAmount>
              <SettlementDate>j</SettlementDate><PaymentMechanism>NU</PaymentMechanism>
            </Settlement>
          </DocumentTotals>
        </Invoice>)",
     Reader<Invoice>([](auto& slot, IDALReader& reader) { InvoiceDALC().ReadFlatInvoice(slot, reader); }),
     {{"InvoiceNo"},
      {"InvoiceStatus", Fails::kNever},
      {"Period"},
      {"InvoiceDate"},
      {"InvoiceType", Fails::kNever},
      {"SystemEntryDate"},
      {"TransactionID"},
      {"CustomerID"},
      {"ShipTo.DeliveryID"},
      {"ShipFrom.DeliveryDate"},
      {"Line[1].LineNumber"},
      {"Line[1].Quantity", Fails::kNever},
      {"DocumentTotals.TaxPayable"},
      {"DocumentTotals.NetTotal"},
      {"DocumentTotals.GrossTotal"},
      {"DocumentTotals.CurrencyValue.CurrencyCode"},
      {"DocumentTotals.CurrencyValue.CurrencyDebitAmount"},
      {"DocumentTotals.CurrencyValue.CurrencyCreditAmount"},
      {"DocumentTotals.Settlement.SettlementDiscount"},
      {"DocumentTotals.Settlement.SettlementAmount"},
      {"DocumentTotals.Settlement.SettlementDate"},
      {"DocumentTotals.Settlement.PaymentMechanism", Fails::kNever}}},
    {"InvoiceLine",
     R"(<Invoice><Line>
          <LineNumber>1</LineNumber>
          <OrderReferences><OriginatingON>a</OriginatingON><OrderDate>b</OrderDate></OrderReferences>
          <ProductCode>c</ProductCode><ProductDescription>d</ProductDescription><Quantity>2</Quantity>
          <UnitOfMeasure>e</UnitOfMeasure><UnitPrice>3</UnitPrice><TaxPointDate>f</TaxPointDate>
          <References><CreditNote><Reference>g</Reference></CreditNote></References>
          <Description>h</Description><DebitAmount>4</DebitAmount><CreditAmount>5</CreditAmount>
          <Tax>
            <TaxCountryRegion>i</TaxCountryRegion><TaxCode>j</TaxCode><TaxPercentage>6</TaxPercentage>
            <TaxAmount>7</TaxAmount>
          </Tax>
          <TaxExemptionReason>k</TaxExemptionReason><SettlementAmount>8</SettlementAmount>
        </Line></Invoice>)",
     Reader<InvoiceLine>([](auto& slot, IDALReader& reader) {
       InvoiceLineDALC().ReadInvoiceLine(slot, reader.GetElement("Invoice", {}, {}), reader, true);
     }),
     {{"LineNumber"},
      {"OrderReferences.OriginatingOn"},
      {"OrderReferences.OrderDate"},
      {"ProductCode"},
      {"ProductDescription"},
      {"Quantity"},
      {"UnitOfMeasure"},
      {"UnitPrice"},
      {"TaxPointDate"},
      {"References.CreditNote[1].Reference"},
      {"Description"},
      {"DebitAmount"},
      {"CreditAmount"},
      {"TaxExemptionReason"},
      {"SettlementAmount"},
      {"Tax.TaxCountryRegion"},
      {"Tax.TaxCode"},
      {"Tax.TaxPercentage"},
      {"Tax.TaxAmount"}}},
};

INSTANTIATE_TEST_SUITE_P(Records, ReadingOrderTest, ::testing::ValuesIn(kRecords),
                         [](const auto& test) { return test.param.name; });

}  // namespace
}  // namespace zevo
