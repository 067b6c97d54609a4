// SPDX-License-Identifier: Apache-2.0
// The layout of every record's element, against a table of its own: which children stand in it and in which order,
// which property each of them holds, and what is written, read and left out.

#include <gtest/gtest.h>
#include <zevo/adapters.h>
#include <zevo/mappers/CustomerDALC.h>
#include <zevo/mappers/EntityMapper.h>
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

#include <algorithm>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <ostream>
#include <set>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "tests/dal/XmlTree.h"
#include "tests/mappers/MapperTest.h"
#include "tests/support/RecordValues.h"

namespace zevo {
namespace {

using testing::ParseXml;
using testing::ReadBytes;
using testing::TextOf;
using testing::XmlNode;

// ---- The table ----

constexpr auto kIfSet = Written::kIfSet;
constexpr auto kForEachItem = Written::kForEachItem;
constexpr auto kIfNotZero = Written::kIfNotZero;
constexpr auto kIfPartnerIsZero = Written::kIfPartnerIsZero;
constexpr auto kConstant = NotReadBack::kConstant;
constexpr auto kKeepsDefault = NotReadBack::kKeepsDefault;

/// What is expected of one row.
struct Line {
  std::string_view element;
  Written written;
  std::string_view property = element;
  std::optional<NotReadBack> not_read_back = std::nullopt;
  std::string_view read_as = element;
  bool read_last = false;
  TextForm form = TextForm::kPlain;
  std::string_view partner = {};
  std::string_view child = {};  // the record whose rows stand in the element
};

/// The rows of one class of records.
struct Table {
  std::string_view record;
  std::span<const Property> (*properties)();
  std::span<const LayoutRow> (*layout)();
  std::vector<Line> lines;
};
void PrintTo(const Table& table, std::ostream* out) { *out << table.record; }

std::vector<Line> TotalsOfASection() {
  return {{"NumberOfEntries", kAlways},
          {.element = "TotalDebit", .written = kAlways, .form = TextForm::kTwoDecimals},
          {.element = "TotalCredit", .written = kAlways, .form = TextForm::kTwoDecimals}};
}

const std::vector<Table> kTables = {
    {"AddressStructure",
     &PropertiesOf<AddressStructure>,
     &LayoutOf<AddressStructure>,
     {
         {"BuildingNumber", kIfNotEmpty},
         {"StreetName", kIfNotEmpty},
         {"AddressDetail", kAlways},
         {"City", kAlways},
         {"PostalCode", kAlways},
         {"Region", kIfNotEmpty},
         {"Country", kAlways},
     }},
    {"Header",
     &PropertiesOf<Header>,
     &LayoutOf<Header>,
     {
         {.element = "AuditFileVersion", .written = kAlways, .not_read_back = kConstant},
         {"CompanyID", kAlways},
         {"TaxRegistrationNumber", kAlways},
         {"TaxAccountingBasis", kAlways},
         {"CompanyName", kAlways},
         {.element = "BusinessName", .written = kAlways, .not_read_back = kKeepsDefault},
         {.element = "CompanyAddress", .written = kAlways, .child = "AddressStructure"},
         {"FiscalYear", kAlways},
         {"StartDate", kAlways},
         {"EndDate", kAlways},
         {"CurrencyCode", kAlways},
         {"DateCreated", kAlways},
         {.element = "TaxEntity", .written = kAlways, .not_read_back = kKeepsDefault},
         {"ProductCompanyTaxID", kAlways, "ProductCompanyTaxId", kConstant},
         {.element = "SoftwareCertificateNumber", .written = kAlways, .not_read_back = kKeepsDefault},
         {"ProductID", kAlways},
         {"ProductVersion", kAlways},
         {.element = "HeaderComment", .written = kIfNotEmpty, .read_last = true},
         {"Telephone", kIfNotEmpty},
         {"Fax", kIfNotEmpty},
         {"Email", kIfNotEmpty},
         {.element = "Website", .written = kIfNotEmpty, .read_as = "WebSite"},
     }},
    {"GeneralLedger",
     &PropertiesOf<GeneralLedger>,
     &LayoutOf<GeneralLedger>,
     {
         {"AccountID", kAlways},
         {"AccountDescription", kAlways},
         {.element = "OpeningDebitBalance", .written = kAlways, .form = TextForm::kWithPoint},
         {.element = "OpeningCreditBalance", .written = kAlways, .form = TextForm::kWithPoint},
     }},
    {"Customer",
     &PropertiesOf<Customer>,
     &LayoutOf<Customer>,
     {
         {"CustomerID", kAlways},
         {"AccountID", kAlways},
         {"CustomerTaxID", kAlways},
         {"CompanyName", kAlways},
         {"Contact", kIfNotEmpty},
         {.element = "BillingAddress", .written = kAlways, .child = "AddressStructure"},
         {.element = "ShipToAddress", .written = kIfSet, .child = "AddressStructure"},
         {"Telephone", kIfNotEmpty},
         {"Fax", kIfNotEmpty},
         {"Email", kIfNotEmpty},
         {"Website", kIfNotEmpty},
         {"SelfBillingIndicator", kAlways},
     }},
    {"Supplier",
     &PropertiesOf<Supplier>,
     &LayoutOf<Supplier>,
     {
         {"SupplierID", kAlways},
         {.element = "AccountID", .written = kAlways, .not_read_back = kKeepsDefault},
         {"SupplierTaxID", kAlways},
         {"CompanyName", kAlways},
         {"Contact", kIfNotEmpty},
         {.element = "BillingAddress", .written = kAlways, .child = "AddressStructure"},
         {.element = "ShipFromAddress", .written = kIfSet, .child = "AddressStructure"},
         {"Telephone", kIfNotEmpty},
         {"Fax", kIfNotEmpty},
         {"Email", kIfNotEmpty},
         {"Website", kIfNotEmpty},
         {.element = "SelfBillingIndicator", .written = kAlways, .not_read_back = kKeepsDefault},
     }},
    {"Product",
     &PropertiesOf<Product>,
     &LayoutOf<Product>,
     {
         {"ProductType", kAlways},
         {"ProductCode", kAlways},
         {"ProductGroup", kIfNotEmpty},
         {"ProductDescription", kAlways},
         {"ProductNumberCode", kAlways},
     }},
    {"TaxTable",
     &PropertiesOf<TaxTable>,
     &LayoutOf<TaxTable>,
     {
         {.element = "TaxTableEntry", .written = kForEachItem, .child = "TaxTableEntry"},
     }},
    {"TaxTableEntry",
     &PropertiesOf<TaxTableEntry>,
     &LayoutOf<TaxTableEntry>,
     {
         {.element = "TaxType", .written = kAlways, .not_read_back = kConstant},
         {"TaxCountryRegion", kAlways},
         {"TaxCode", kAlways},
         {"Description", kAlways},
         {.element = "TaxExpirationDate", .written = kIfNotEmpty, .form = TextForm::kDate},
         {.element = "TaxPercentage", .written = kIfNotZero, .form = TextForm::kWithPoint, .partner = "TaxAmount"},
         {.element = "TaxAmount", .written = kIfPartnerIsZero, .partner = "TaxPercentage"},
     }},
    {"GeneralLedgerEntries", &PropertiesOf<GeneralLedgerEntries>, &LayoutOf<GeneralLedgerEntries>, TotalsOfASection()},
    {"Journal",
     &PropertiesOf<Journal>,
     &LayoutOf<Journal>,
     {
         {"JournalID", kAlways},
         {"Description", kAlways},
     }},
    {"Transaction",
     &PropertiesOf<Transaction>,
     &LayoutOf<Transaction>,
     {
         {"TransactionID", kAlways},
         {"Period", kAlways},
         {"TransactionDate", kAlways},
         {"SourceID", kIfNotEmpty},
         {"Description", kAlways},
         {"DocArchivalNumber", kAlways},
         {"TransactionType", kAlways},
         {"GLPostingDate", kAlways},
         {"CustomerID", kIfNotEmpty},
         {"SupplierID", kIfNotEmpty},
         {.element = "Line", .written = kForEachItem, .child = "TransactionLine"},
     }},
    {"TransactionLine",
     &PropertiesOf<TransactionLine>,
     &LayoutOf<TransactionLine>,
     {
         {"RecordID", kAlways},
         {"AccountID", kAlways},
         {"SourceDocumentID", kIfNotEmpty},
         {"SystemEntryDate", kAlways},
         {"Description", kAlways},
         {.element = "DebitAmount", .written = kIfNotZero, .partner = "CreditAmount"},
         {.element = "CreditAmount", .written = kIfPartnerIsZero, .partner = "DebitAmount"},
     }},
    {"SalesInvoices", &PropertiesOf<SalesInvoices>, &LayoutOf<SalesInvoices>, TotalsOfASection()},
    {"Invoice",
     &PropertiesOf<Invoice>,
     &LayoutOf<Invoice>,
     {
         {"InvoiceNo", kAlways},
         {"InvoiceStatus", kAlways},
         {.element = "Hash", .written = kAlways, .not_read_back = kKeepsDefault},
         {.element = "HashControl", .written = kIfNotEmpty, .not_read_back = kKeepsDefault},
         {"Period", kIfNotEmpty},
         {"InvoiceDate", kAlways},
         {"InvoiceType", kAlways},
         {.element = "SelfBillingIndicator", .written = kAlways, .not_read_back = kKeepsDefault},
         {"SystemEntryDate", kAlways},
         {"TransactionID", kIfNotEmpty},
         {"CustomerID", kAlways},
         {.element = "ShipTo", .written = kIfSet, .child = "ShippingPointStructure"},
         {.element = "ShipFrom", .written = kIfSet, .child = "ShippingPointStructure"},
         {.element = "Line", .written = kForEachItem, .child = "InvoiceLine"},
         {.element = "DocumentTotals", .written = kAlways, .child = "DocumentTotals"},
     }},
    {"ShippingPointStructure",
     &PropertiesOf<ShippingPointStructure>,
     &LayoutOf<ShippingPointStructure>,
     {
         {"DeliveryID", kIfNotEmpty},
         {"DeliveryDate", kIfNotEmpty},
         {.element = "Address", .written = kIfSet, .child = "AddressStructure"},
     }},
    {"InvoiceLine",
     &PropertiesOf<InvoiceLine>,
     &LayoutOf<InvoiceLine>,
     {
         {"LineNumber", kAlways},
         {.element = "OrderReferences", .written = kIfSet, .child = "OrderReferences"},
         {"ProductCode", kAlways},
         {"ProductDescription", kAlways},
         {.element = "Quantity", .written = kAlways, .form = TextForm::kSinglePrecision},
         {"UnitOfMeasure", kIfNotEmpty},
         {"UnitPrice", kAlways},
         {"TaxPointDate", kAlways},
         {.element = "References", .written = kIfSet, .child = "References"},
         {"Description", kAlways},
         {.element = "DebitAmount", .written = kIfNotZero, .partner = "CreditAmount"},
         {.element = "CreditAmount", .written = kIfPartnerIsZero, .partner = "DebitAmount"},
         {.element = "Tax", .written = kIfSet, .read_last = true, .child = "Tax"},
         {"TaxExemptionReason", kIfNotEmpty},
         {"SettlementAmount", kAlways},
     }},
    {"OrderReferences",
     &PropertiesOf<OrderReferences>,
     &LayoutOf<OrderReferences>,
     {
         {"OriginatingON", kIfNotEmpty, "OriginatingOn"},
         {"OrderDate", kIfNotEmpty},
     }},
    {"References",
     &PropertiesOf<References>,
     &LayoutOf<References>,
     {
         {.element = "CreditNote", .written = kForEachItem, .child = "CreditNote"},
     }},
    {"CreditNote",
     &PropertiesOf<CreditNote>,
     &LayoutOf<CreditNote>,
     {
         {"Reference", kIfNotEmpty},
         {"Reason", kIfNotEmpty},
     }},
    {"Tax",
     &PropertiesOf<Tax>,
     &LayoutOf<Tax>,
     {
         {.element = "TaxType", .written = kAlways, .not_read_back = kConstant},
         {"TaxCountryRegion", kAlways},
         {"TaxCode", kIfNotEmpty},
         {.element = "TaxPercentage", .written = kIfNotZero, .partner = "TaxAmount"},
         {.element = "TaxAmount", .written = kIfPartnerIsZero, .partner = "TaxPercentage"},
     }},
    {"DocumentTotals",
     &PropertiesOf<DocumentTotals>,
     &LayoutOf<DocumentTotals>,
     {
         {"TaxPayable", kAlways},
         {"NetTotal", kAlways},
         {"GrossTotal", kAlways},
         {.element = "Currency",
          .written = kIfSet,
          .property = "CurrencyValue",
          .read_as = "Currency",
          .child = "CurrencyStructure"},
         {.element = "Settlement", .written = kIfSet, .child = "Settlement"},
     }},
    {"CurrencyStructure",
     &PropertiesOf<CurrencyStructure>,
     &LayoutOf<CurrencyStructure>,
     {
         {"CurrencyCode", kIfNotEmpty},
         {.element = "CurrencyDebitAmount", .written = kIfNotZero, .partner = "CurrencyCreditAmount"},
         {.element = "CurrencyCreditAmount", .written = kIfPartnerIsZero, .partner = "CurrencyDebitAmount"},
     }},
    {"Settlement",
     &PropertiesOf<Settlement>,
     &LayoutOf<Settlement>,
     {
         {"SettlementDiscount", kIfNotEmpty},
         {"SettlementAmount", kIfNotEmpty},
         {"SettlementDate", kIfNotEmpty},
         {"PaymentMechanism", kIfNotEmpty},
     }},
};

const Table& TableNamed(std::string_view record) {
  const auto found = std::ranges::find(kTables, record, &Table::record);
  if (found == kTables.end()) throw std::invalid_argument("no table for " + std::string(record));
  return *found;
}

const Property& PropertyOf(const Table& table, std::string_view name) {
  const auto properties = table.properties();
  const auto found = std::ranges::find(properties, name, &Property::name);
  if (found == properties.end()) throw std::invalid_argument("no property " + std::string(name));
  return *found;
}

// ---- The table and the layout have the same rows ----

std::string_view NameOf(std::span<const LayoutRow> (*layout)()) {
  if (layout == nullptr) return {};
  const auto found =
      std::ranges::find_if(kTables, [&](const Table& table) { return table.layout().data() == layout().data(); });
  return found == kTables.end() ? "no table" : found->record;
}

std::string Described(const Line& line) {
  std::string text = std::string(line.element) + " of " + std::string(line.property);
  text += " written " + std::to_string(static_cast<int>(line.written));
  text += " form " + std::to_string(static_cast<int>(line.form));
  text += line.not_read_back ? " not read " + std::to_string(static_cast<int>(*line.not_read_back)) : " read";
  text += " as " + std::string(line.read_as) + (line.read_last ? " last" : "");
  text += " partner " + std::string(line.partner) + " child " + std::string(line.child);
  return text;
}

class LayoutTableTest : public ::testing::TestWithParam<Table> {};

TEST_P(LayoutTableTest, HasALineForEachRowAndARowForEachLine) {
  std::vector<std::string> rows;
  for (const LayoutRow& row : GetParam().layout()) {
    rows.push_back(Described({row.element, row.written, row.property, row.not_read_back, row.read_as, row.read_last,
                              row.form, row.partner, NameOf(row.children)}));
  }
  std::vector<std::string> lines;
  for (const Line& line : GetParam().lines) lines.push_back(Described(line));
  EXPECT_EQ(rows, lines);
}

TEST_P(LayoutTableTest, EveryPropertyOfTheRecordHasOneRowThatTellsItsPlace) {
  std::vector<std::string_view> names(GetParam().properties().size());
  for (const LayoutRow& row : GetParam().layout()) {
    ASSERT_LT(row.slot, names.size());
    EXPECT_EQ(names[row.slot], "") << row.property;
    names[row.slot] = row.property;
  }
  for (size_t place = 0; place < names.size(); ++place) {
    EXPECT_EQ(names[place], GetParam().properties()[place].name) << GetParam().record;
  }
}

TEST_P(LayoutTableTest, OnlyAConstantHasATextAndNoSetter) {
  for (const LayoutRow& row : GetParam().layout()) {
    if (row.children != nullptr) continue;
    const bool settable = GetParam().properties()[row.slot].set != nullptr;
    EXPECT_EQ(settable, row.not_read_back != kConstant) << row.property;
  }
}

INSTANTIATE_TEST_SUITE_P(Records, LayoutTableTest, ::testing::ValuesIn(kTables),
                         [](const auto& test) { return std::string(test.param.record); });

TEST(LayoutTablesTest, EveryLayoutHasATable) {
  std::set<std::string_view> reached;
  const std::function<void(std::span<const LayoutRow>(*)())> reach = [&](auto layout) {
    reached.insert(NameOf(layout));
    for (const LayoutRow& row : layout()) {
      if (row.children != nullptr) reach(row.children);
    }
  };
  for (const EntityKind kind : EntityKinds()) {
    EXPECT_EQ(LayoutOf(kind).data(), TableNamed(zevo::NameOf(kind)).layout().data()) << zevo::NameOf(kind);
    reach(TableNamed(zevo::NameOf(kind)).layout);
  }
  std::set<std::string_view> tables;
  for (const Table& table : kTables) tables.insert(table.record);
  EXPECT_EQ(reached, tables);
}

// ---- What is written and read ----

/// A value of a property, as it is assigned, written and described.
struct Sample {
  PropertyValue value;
  std::string written;
  std::string read;       // a text that reads as the value
  std::string described;  // what TextOf makes of the value
};

Sample SampleOf(const Property& property, TextForm form, bool other) {
  const auto same = [](const PropertyValue& value, const std::string& text) {
    return Sample{value, text, text, TextOf(value)};
  };
  switch (property.type) {
    case PropertyType::kAmount: {
      if (!other) return same(Amount(7), form == TextForm::kTwoDecimals ? "7.00" : "7");
      Sample sample = same(Amount::FromText("1234567.1234"), "1234567.1234");
      if (form == TextForm::kTwoDecimals) sample.written = "1234567.12";
      if (form == TextForm::kSinglePrecision) sample.written = "1234567.1";
      return sample;
    }
    case PropertyType::kFlag:
      return same(!other, other ? "0" : "1");
    case PropertyType::kCount:
      return same(other ? 8 : 7, other ? "8" : "7");
    case PropertyType::kSingle:
      return same(other ? 8.5F : 7.5F, other ? "8.5" : "7.5");
    case PropertyType::kCode: {
      const Code& code = property.codes()[other ? 1 : 0];
      return same(code.value, std::string(code.text));
    }
    default: {
      Sample sample = same(std::string(other ? "02/01/2008" : "01/01/2008"), other ? "02/01/2008" : "01/01/2008");
      if (form == TextForm::kDate) sample.written = other ? "2008-01-02" : "2008-01-01";
      return sample;
    }
  }
}

TextForm FormOf(const Table& table, std::string_view property) {
  return std::ranges::find(table.lines, property, &Line::property)->form;
}

/// The child record of a property, or the first item of its collection.
std::shared_ptr<Record> ChildOf(const Record& record, const Property& property) {
  if (property.type == PropertyType::kCollection) return property.item(record, 1);
  return std::get<std::shared_ptr<Record>>(property.get(record));
}

/// Gives a record all the children that it may have, and an item in each collection.
void AddChildren(Record& record, const Table& table, const std::function<void(Record&, const Table&)>& fill) {
  for (const Line& line : table.lines) {
    if (line.child.empty()) continue;
    const Property& property = PropertyOf(table, line.property);
    const Table& child_table = TableNamed(line.child);
    const bool owned = property.type == PropertyType::kRecord && property.set == nullptr;
    const std::shared_ptr<Record> child = owned ? ChildOf(record, property) : property.make();
    fill(*child, child_table);
    if (property.type == PropertyType::kCollection) property.add(record, child);
    if (property.type == PropertyType::kRecord && !owned) property.set(record, child);
  }
}

/// Something in every property, other than what it has from the start.
void Fill(Record& record, const Table& table) {
  for (const Property& property : table.properties()) {
    if (property.set == nullptr || property.type == PropertyType::kRecord) continue;
    property.set(record, SampleOf(property, FormOf(table, property.name), false).value);
  }
  AddChildren(record, table, Fill);
}

void AddEmptyChildren(Record& record, const Table& table) { AddChildren(record, table, AddEmptyChildren); }

/// The texts of the elements of a file or the values of a record's properties, by their paths, in their order.
using Values = std::vector<std::pair<std::string, std::string>>;

std::vector<std::string> PathsOf(const Values& values) {
  std::vector<std::string> paths;
  for (const auto& [path, text] : values) paths.push_back(path);
  return paths;
}

/// Texts of elements by their paths.
using Texts = std::map<std::string, std::string>;
using Changed = std::map<std::string, std::string>;

/// What is in `after` and was not, or was otherwise, in `before`.
Changed Changes(const Values& before, const Values& after) {
  Changed changes(after.begin(), after.end());
  const Changed old(before.begin(), before.end());
  std::erase_if(changes, [&](const auto& value) {
    const auto found = old.find(value.first);
    return found != old.end() && found->second == value.second;
  });
  return changes;
}

void Flatten(const XmlNode& element, const std::string& path, Values& values) {
  for (const XmlNode& child : element.children) {
    if (child.kind != XmlNode::Kind::kElement) continue;
    values.emplace_back(path + child.name, child.Text());
    Flatten(child, path + child.name + "/", values);
  }
}

/// A kind of entity: what stands around it in the file, and how its mapper writes and reads it.
struct Entity {
  std::string_view record;
  std::vector<std::string> path;  // from the root to the entity, which its rows stand in
  std::shared_ptr<Record> (*make)();
  void (*write)(const Record&, IDALHelper&);
  std::shared_ptr<Record> (*read)(IDALReader&);
};
void PrintTo(const Entity& entity, std::ostream* out) { *out << entity.record; }

template <class R>
std::shared_ptr<Record> Make() {
  return std::make_shared<R>();
}

template <class Mapper, class R>
void WriteOne(void (Mapper::*create)(const R&, IDALHelper&), const Record& record, IDALHelper& writer) {
  (Mapper().*create)(dynamic_cast<const R&>(record), writer);
}
template <auto kCreate>
void Write(const Record& record, IDALHelper& writer) {
  WriteOne(kCreate, record, writer);
}

template <class Mapper, class R>
std::shared_ptr<Record> ReadOne(void (Mapper::*read)(std::shared_ptr<R>&, IDALReader&), IDALReader& reader) {
  std::shared_ptr<R> slot;
  (Mapper().*read)(slot, reader);
  return slot;
}
template <class Mapper, class R>
std::shared_ptr<Record> ReadOne(void (Mapper::*read)(std::shared_ptr<R>&, IDALReader&, bool), IDALReader& reader) {
  std::shared_ptr<R> slot;
  (Mapper().*read)(slot, reader, true);
  return slot;
}
template <auto kRead>
std::shared_ptr<Record> Read(IDALReader& reader) {
  return ReadOne(kRead, reader);
}

void WriteJournal(const Record& record, IDALHelper& writer) {
  GeneralLedgerEntriesDALC().CreateGeneralLedgerEntries(GeneralLedgerEntries(), writer);
  JournalDALC().CreateJournal(dynamic_cast<const Journal&>(record), writer);
}

void WriteTransaction(const Record& record, IDALHelper& writer) {
  WriteJournal(Journal(), writer);
  TransactionDALC().CreateTransaction(dynamic_cast<const Transaction&>(record), nullptr, writer);
}
std::shared_ptr<Record> ReadTransaction(IDALReader& reader) {
  std::shared_ptr<Transaction> slot;
  Journal journal;
  journal.set_JournalID("J");
  TransactionDALC().ReadTransaction(slot, &journal, reader, true);
  return slot;
}

void WriteInvoice(const Record& record, IDALHelper& writer) {
  SalesInvoicesDALC().CreateSalesInvoices(SalesInvoices(), writer);
  InvoiceDALC().CreateInvoice(dynamic_cast<const Invoice&>(record), writer);
}

const std::vector<Entity> kEntities = {
    {"Header", {"Header"}, &Make<Header>, &Write<&HeaderDALC::CreateHeader>, &Read<&HeaderDALC::ReadHeader>},
    {"GeneralLedger",
     {"MasterFiles", "GeneralLedger"},
     &Make<GeneralLedger>,
     &Write<&GeneralLedgerDALC::CreateGeneralLedger>,
     &Read<&GeneralLedgerDALC::ReadGeneralLedger>},
    {"Customer",
     {"MasterFiles", "Customer"},
     &Make<Customer>,
     &Write<&CustomerDALC::CreateCustomer>,
     &Read<&CustomerDALC::ReadCustomer>},
    {"Supplier",
     {"MasterFiles", "Supplier"},
     &Make<Supplier>,
     &Write<&SupplierDALC::CreateSupplier>,
     &Read<&SupplierDALC::ReadSupplier>},
    {"Product",
     {"MasterFiles", "Product"},
     &Make<Product>,
     &Write<&ProductDALC::CreateProduct>,
     &Read<&ProductDALC::ReadProduct>},
    {"TaxTable",
     {"MasterFiles", "TaxTable"},
     &Make<TaxTable>,
     &Write<&TaxTableDALC::CreateTaxTable>,
     &Read<&TaxTableDALC::ReadTaxTable>},
    {"GeneralLedgerEntries",
     {"GeneralLedgerEntries"},
     &Make<GeneralLedgerEntries>,
     &Write<&GeneralLedgerEntriesDALC::CreateGeneralLedgerEntries>,
     &Read<&GeneralLedgerEntriesDALC::ReadGeneralLedgerEntries>},
    {"Journal", {"GeneralLedgerEntries", "Journal"}, &Make<Journal>, &WriteJournal, &Read<&JournalDALC::ReadJournal>},
    {"Transaction",
     {"GeneralLedgerEntries", "Journal", "Transaction"},
     &Make<Transaction>,
     &WriteTransaction,
     &ReadTransaction},
    {"SalesInvoices",
     {"SourceDocuments", "SalesInvoices"},
     &Make<SalesInvoices>,
     &Write<&SalesInvoicesDALC::CreateSalesInvoices>,
     &Read<&SalesInvoicesDALC::ReadSalesInvoices>},
    {"Invoice",
     {"SourceDocuments", "SalesInvoices", "Invoice"},
     &Make<Invoice>,
     &WriteInvoice,
     &Read<&InvoiceDALC::ReadInvoice>},
};

/// A row and how to get to it.
struct Place {
  const Table& table;
  const Line& line;
  std::vector<std::string_view> properties;  // those that lead from the entity to the row's record
  std::string elements;                      // the elements that do, each with a slash behind it

  std::string Path() const { return elements + std::string(line.element); }
  std::string PathRead() const { return elements + std::string(line.read_as); }
  const Property& OwnProperty() const { return PropertyOf(table, line.property); }
  /// As WalkProperties names it.
  std::string Name(std::string_view entity) const {
    std::string name;
    std::string_view record = entity;
    for (const std::string_view step : properties) {
      const Table& from = TableNamed(record);
      const bool item = PropertyOf(from, step).type == PropertyType::kCollection;
      name.append(step).append(item ? "[1]." : ".");
      record = std::ranges::find(from.lines, step, &Line::property)->child;
    }
    return name.append(line.property);
  }
  /// The row's record under the entity.
  Record& Find(Record& entity, std::string_view name) const {
    Record* found = &entity;
    std::string_view record = name;
    for (const std::string_view step : properties) {
      const Table& from = TableNamed(record);
      found = ChildOf(*found, PropertyOf(from, step)).get();
      record = std::ranges::find(from.lines, step, &Line::property)->child;
    }
    return *found;
  }
};

/// All rows of a record and of the records in it, in the order of the file.
void AddPlaces(const Table& table, const std::vector<std::string_view>& properties, const std::string& elements,
               std::vector<Place>& places) {
  for (const Line& line : table.lines) {
    places.push_back({table, line, properties, elements});
    if (line.child.empty()) continue;
    auto deeper = properties;
    deeper.push_back(line.property);
    AddPlaces(TableNamed(line.child), deeper, elements + std::string(line.element) + "/", places);
  }
}

class LayoutTest : public testing::MapperTest, public ::testing::WithParamInterface<Entity> {
 protected:
  std::shared_ptr<Record> Filled() const {
    auto record = GetParam().make();
    Fill(*record, TableNamed(GetParam().record));
    return record;
  }
  std::vector<Place> Places() const {
    std::vector<Place> places;
    AddPlaces(TableNamed(GetParam().record), {}, {}, places);
    return places;
  }

  /// What stands in the entity's element once the record is written.
  Values Written(const Record& record) {
    helper_.CreateFile();
    GetParam().write(record, helper_);
    helper_.SaveFile();
    const XmlNode document = ParseXml(ReadBytes(helper_.AuditFileName()));
    const XmlNode* element = &document.Child("AuditFile");
    Values values;
    for (const std::string& step : GetParam().path) {
      const auto child = std::ranges::find(element->children, step, &XmlNode::name);
      if (child == element->children.end()) return values;  // nothing is written of a tax table without entries
      element = &*child;
    }
    Flatten(*element, {}, values);
    return values;
  }

  /// What the entity holds that is read from a file with these texts in its element.
  Values Held(const Texts& texts) {
    std::string content = Elements(TableNamed(GetParam().record), {}, texts);
    for (size_t step = GetParam().path.size(); step-- > 0;) {
      const std::string& name = GetParam().path[step];
      // By which a transaction finds its journal.
      if (name == "Journal" && GetParam().record != name) content.insert(0, "<JournalID>J</JournalID>");
      content = "<" + name + ">" + content + "</" + name + ">";
    }
    const std::shared_ptr<Record> record = GetParam().read(Reading(content));
    Values values;
    WalkProperties(*record, [&](std::string_view path, const Property& property, const Record& owner) {
      const bool isCollection = property.type == PropertyType::kCollection;
      values.emplace_back(path, isCollection ? std::to_string(property.count(owner)) : TextOf(property.get(owner)));
    });
    return values;
  }

  /// A text for every element, under the name that is read.
  Texts TextsToRead() const {
    Texts texts;
    for (const Place& place : Places()) {
      if (place.line.child.empty()) texts[place.PathRead()] = SampleOf(place.OwnProperty(), {}, false).read;
    }
    return texts;
  }

 private:
  static std::string Elements(const Table& table, const std::string& path, const Texts& texts) {
    std::string content;
    for (const Line& line : table.lines) {
      const std::string name(line.element);
      if (!line.child.empty()) {
        content += "<" + name + ">" + Elements(TableNamed(line.child), path + name + "/", texts) + "</" + name + ">";
        continue;
      }
      for (const std::string& written : std::set<std::string>{name, std::string(line.read_as)}) {
        const auto text = texts.find(path + written);
        if (text != texts.end()) content += "<" + written + ">" + text->second + "</" + written + ">";
      }
    }
    return content;
  }
};

TEST_P(LayoutTest, FullRecordHasEveryElementInOrder) {
  std::vector<std::string> expected;
  for (const Place& place : Places()) {
    if (place.line.written != kIfPartnerIsZero) expected.push_back(place.Path());
  }
  EXPECT_EQ(PathsOf(Written(*Filled())), expected);
}

// A record with empty children, and one without.
TEST_P(LayoutTest, EmptyRecordHasThoseThatAreAlwaysWrittenInOrder) {
  for (const bool with_children : {true, false}) {
    std::vector<std::string> expected;
    std::string left_out = "none";
    for (const Place& place : Places()) {
      if (place.elements.starts_with(left_out)) continue;
      const auto written = place.line.written;
      if ((written == kIfSet || written == kForEachItem) && !with_children) {
        left_out = place.Path() + "/";
        continue;
      }
      // The text of no other type is ever empty.
      const PropertyType type = place.OwnProperty().type;
      const bool empty = type == PropertyType::kText || type == PropertyType::kCode;
      if (written == kIfNotZero || (written == kIfNotEmpty && empty)) continue;
      expected.push_back(place.Path());
    }
    auto record = GetParam().make();
    if (with_children) AddEmptyChildren(*record, TableNamed(GetParam().record));
    EXPECT_EQ(PathsOf(Written(*record)), expected) << with_children;
  }
}

TEST_P(LayoutTest, EachPropertyIsTheTextOfItsOwnElement) {
  const auto record = Filled();
  const Values before = Written(*record);
  for (const Place& place : Places()) {
    const Property& property = place.OwnProperty();
    if (!place.line.child.empty()) continue;
    SCOPED_TRACE(place.Path());
    Record& owner = place.Find(*record, GetParam().record);
    if (property.set == nullptr) {
      EXPECT_EQ(Changes({}, before)[place.Path()], std::get<std::string>(property.get(owner)));
      continue;
    }
    const Sample sample = SampleOf(property, place.line.form, true);
    const PropertyValue held = property.get(owner);
    property.set(owner, sample.value);
    const Changed expected{{place.Path(), sample.written}};
    if (place.line.written != kIfPartnerIsZero) {
      EXPECT_EQ(Changes(before, Written(*record)), expected);
    } else {
      EXPECT_EQ(Changes(before, Written(*record)), Changed());
      const Property& partner = PropertyOf(place.table, place.line.partner);
      const PropertyValue other = partner.get(owner);
      partner.set(owner, partner.type == PropertyType::kSingle ? PropertyValue(0.0F) : PropertyValue(Amount()));
      EXPECT_EQ(Changes(before, Written(*record)), expected);
      partner.set(owner, other);
    }
    property.set(owner, held);
  }
}

TEST_P(LayoutTest, EachElementIsReadIntoItsOwnPropertyUnlessItIsLeftOut) {
  const auto texts = TextsToRead();
  const Values before = Held(texts);
  for (const Place& place : Places()) {
    if (!place.line.child.empty()) continue;
    SCOPED_TRACE(place.Path());
    const Sample first = SampleOf(place.OwnProperty(), {}, false);
    const Sample second = SampleOf(place.OwnProperty(), {}, true);
    const std::string name = place.Name(GetParam().record);
    const bool read = !place.line.not_read_back;
    EXPECT_EQ(Changes({}, before)[name] == first.described, read);

    auto changed = texts;
    changed[place.PathRead()] = second.read;
    Changed expected;
    if (read) expected[name] = second.described;
    EXPECT_EQ(Changes(before, Held(changed)), expected);

    if (place.line.read_as == place.line.element) continue;
    auto written = texts;
    written[place.Path()] = second.read;
    EXPECT_EQ(Changes(before, Held(written)), Changed());
  }
}

TEST_P(LayoutTest, TheLayoutOfEachRecordInItIsFoundByTheRecord) {
  const auto record = Filled();
  WalkProperties(*record, [](std::string_view path, const Property& property, const Record& owner) {
    const auto layout = LayoutOf(owner);
    EXPECT_EQ(std::ranges::count(layout, property.name, &LayoutRow::property), 1) << path;
  });
}

TEST(LayoutEntitiesTest, AreTheKindsOfEntities) {
  std::vector<std::string_view> kinds;
  for (const EntityKind kind : EntityKinds()) kinds.push_back(zevo::NameOf(kind));
  std::vector<std::string_view> entities;
  for (const Entity& entity : kEntities) entities.push_back(entity.record);
  EXPECT_EQ(entities, kinds);
}

INSTANTIATE_TEST_SUITE_P(Entities, LayoutTest, ::testing::ValuesIn(kEntities),
                         [](const auto& test) { return std::string(test.param.record); });

}  // namespace
}  // namespace zevo
