// Random records through both writers and both readers: whichever way they go, the same comes back.

#include <gtest/gtest.h>
#include <rapidcheck.h>
#include <rapidcheck/gtest.h>
#include <zevo/adapters.h>

#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "tests/facades/RecordWalk.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/UseSchema.h"

namespace zevo {
namespace {

using namespace zevo::testing;

// Texts that mean something to XML, to the code page or to how texts are read.
std::string RandomText() {
  const auto pieces =
      *rc::gen::resize(6, rc::gen::container<std::vector<std::string>>(rc::gen::element<std::string>(
                              "a", "Z", "7", " ", "  ", "é", "ã", "€", "–", "Ω", "😀", "&", "<", ">", "\"", "'", "]]>",
                              "&amp;", "&quot;", "<!--", "\t", "\n", "\r\n", "uma palavra", ".", ",", "-1")));
  std::string text;
  for (const std::string& piece : pieces) text += piece;
  // What becomes of nothing but spaces has a test of its own.
  return text.find_first_not_of(' ') == std::string::npos ? "" : text;
}

Amount RandomAmount() { return Amount::FromScaled(*rc::gen::inRange<int64_t>(-50'000'000, 50'000'000)); }

void Fill(Record& record, std::span<const Property> properties);

PropertyValue RandomValue(const Property& property) {
  switch (property.type) {
    case PropertyType::kAmount:
      return *rc::gen::element(Amount(), RandomAmount());
    case PropertyType::kFlag:
      return *rc::gen::arbitrary<bool>();
    case PropertyType::kCount:
      return *rc::gen::inRange<int32_t>(0, 1000);
    case PropertyType::kSingle:
      return static_cast<float>(*rc::gen::inRange(-400, 400)) / 8;
    case PropertyType::kCode: {
      const auto codes = property.codes();
      return codes[*rc::gen::inRange<size_t>(0, codes.size())].value;
    }
    default:
      return RandomText();
  }
}

// The property by which the items of a collection are told apart.
bool IsKey(std::string_view name) { return name == "RecordID" || name == "LineNumber" || name == "Reference"; }

void FillCollection(Record& record, const Property& property) {
  const int count = *rc::gen::inRange(0, 3);
  for (int number = 1; number <= count; ++number) {
    const std::shared_ptr<Record> item = property.make();
    Fill(*item, property.properties());
    for (const Property& key : property.properties()) {
      if (!IsKey(key.name)) continue;
      key.set(*item, key.type == PropertyType::kCount ? PropertyValue(number) : PropertyValue(std::to_string(number)));
    }
    property.add(record, item);
  }
}

void Fill(Record& record, std::span<const Property> properties) {
  for (const Property& property : properties) {
    if (property.type == PropertyType::kCollection) {
      FillCollection(record, property);
    } else if (property.type == PropertyType::kRecord) {
      // A child learns where it stands when it is assigned.
      if (property.set != nullptr && *rc::gen::arbitrary<bool>()) property.set(record, property.make());
      if (const auto child = std::get<std::shared_ptr<Record>>(property.get(record))) {
        Fill(*child, property.properties());
      }
    } else if (property.set != nullptr) {
      property.set(record, RandomValue(property));
    }
  }
}

template <class T>
std::shared_ptr<T> RandomRecord() {
  auto record = std::make_shared<T>();
  Fill(*record, PropertiesOf<T>());
  return record;
}

template <class T>
std::vector<std::shared_ptr<T>> RandomRecords() {
  std::vector<std::shared_ptr<T>> records(*rc::gen::inRange<size_t>(0, 3));
  for (auto& record : records) record = RandomRecord<T>();
  return records;
}

struct Contents {
  std::shared_ptr<Header> header = RandomRecord<Header>();
  std::vector<std::shared_ptr<GeneralLedger>> accounts = RandomRecords<GeneralLedger>();
  std::vector<std::shared_ptr<Customer>> customers = RandomRecords<Customer>();
  std::vector<std::shared_ptr<Supplier>> suppliers = RandomRecords<Supplier>();
  std::vector<std::shared_ptr<Product>> products = RandomRecords<Product>();
  std::shared_ptr<TaxTable> taxes = RandomRecord<TaxTable>();
  std::shared_ptr<GeneralLedgerEntries> entries = RandomRecord<GeneralLedgerEntries>();
  std::vector<std::shared_ptr<Journal>> journals = RandomRecords<Journal>();
  std::vector<std::vector<std::shared_ptr<Transaction>>> transactions;  // of each journal
  std::shared_ptr<SalesInvoices> sales = RandomRecord<SalesInvoices>();
  std::vector<std::shared_ptr<Invoice>> invoices = RandomRecords<Invoice>();

  Contents() {
    for (size_t i = 0; i < journals.size(); ++i) {
      // By this a reader that goes record by record finds the journal again.
      journals[i]->set_JournalID("J" + std::to_string(i));
      // Without one of its own, a journal with its transactions inside would have the first of theirs.
      journals[i]->set_Description("D" + journals[i]->Description());
      transactions.push_back(RandomRecords<Transaction>());
    }
  }
};

template <class File>
bool WriteMasterFiles(File& file, const Contents& contents) {
  bool good = file.CreateHeader(*contents.header);
  for (const auto& record : contents.accounts) good = file.CreateGeneralLedger(*record) && good;
  for (const auto& record : contents.customers) good = file.CreateCustomer(*record) && good;
  for (const auto& record : contents.suppliers) good = file.CreateSupplier(*record) && good;
  for (const auto& record : contents.products) good = file.CreateProduct(*record) && good;
  return file.CreateTaxTable(*contents.taxes) && good;
}

bool Write(AuditFile& file, const Contents& contents) {
  bool good = file.CreateAuditFile() && WriteMasterFiles(file, contents);
  good = file.CreateGeneralLedgerEntries(*contents.entries) && good;
  for (size_t i = 0; i < contents.journals.size(); ++i) {
    const Journal& journal = *contents.journals[i];
    good = file.CreateJournal(journal) && good;
    for (const auto& record : contents.transactions[i]) good = file.CreateTransaction(*record, &journal) && good;
  }
  good = file.CreateSalesInvoices(*contents.sales) && good;
  for (const auto& record : contents.invoices) good = file.CreateInvoice(*record) && good;
  return file.UpdateAuditFile() && good;
}

bool Write(AuditFileStreamWriter& file, const Contents& contents) {
  bool good = file.CreateAuditFile() && WriteMasterFiles(file, contents);
  good = file.BeginGeneralLedgerEntries(*contents.entries) && good;
  for (size_t i = 0; i < contents.journals.size(); ++i) {
    good = file.BeginJournal(*contents.journals[i]) && good;
    for (const auto& record : contents.transactions[i]) good = file.CreateTransaction(*record) && good;
    good = file.EndJournal() && good;
  }
  good = file.EndGeneralLedgerEntries() && file.BeginSalesInvoices(*contents.sales) && good;
  for (const auto& record : contents.invoices) good = file.CreateInvoice(*record) && good;
  return file.EndSalesInvoices() && file.CloseAuditFile() && good;
}

// The records of a file in its order, each as the values of its properties; a record that cannot be read has none.
using Records = std::vector<std::pair<std::string, RecordValues>>;

template <class T>
void Add(Records& records, const std::string& name, const std::shared_ptr<T>& record) {
  records.emplace_back(name, ValuesOf(record, name));
}

template <class T>
void AddAll(Records& records, const std::string& name, AuditFileReader& reader,
            bool (AuditFileReader::*read)(std::shared_ptr<T>&)) {
  std::shared_ptr<T> record;
  while ((reader.*read)(record) && record) Add(records, name, record);
  RC_ASSERT(!reader.AuditException());
}

Records ReadOneByOne(const std::string& file, bool hasTaxes) {
  AuditFileReader reader;
  reader.set_AuditFileName(file);
  RC_ASSERT(reader.OpenAuditFile());
  Records records;
  std::shared_ptr<Header> header;
  RC_ASSERT(reader.ReadHeader(header));
  Add(records, "Header", header);
  AddAll(records, "GeneralLedger", reader, &AuditFileReader::ReadGeneralLedger);
  AddAll(records, "Customer", reader, &AuditFileReader::ReadCustomer);
  AddAll(records, "Supplier", reader, &AuditFileReader::ReadSupplier);
  AddAll(records, "Product", reader, &AuditFileReader::ReadProduct);
  std::shared_ptr<TaxTable> taxes;
  // An entry is written with a percentage or an amount, and read with both.
  RC_ASSERT(reader.ReadTaxTable(taxes) != hasTaxes);
  if (hasTaxes) Add(records, "TaxTable", std::shared_ptr<TaxTable>());
  std::shared_ptr<GeneralLedgerEntries> entries;
  RC_ASSERT(reader.ReadGeneralLedgerEntries(entries));
  Add(records, "GeneralLedgerEntries", entries);
  std::shared_ptr<Journal> journal;
  while (reader.ReadJournal(journal) && journal) {
    Add(records, "Journal", journal);
    std::shared_ptr<Transaction> transaction;
    while (reader.ReadTransaction(transaction, *journal) && transaction) Add(records, "Transaction", transaction);
    RC_ASSERT(!reader.AuditException());
  }
  std::shared_ptr<SalesInvoices> sales;
  RC_ASSERT(reader.ReadSalesInvoices(sales));
  Add(records, "SalesInvoices", sales);
  AddAll(records, "Invoice", reader, &AuditFileReader::ReadInvoice);
  return records;
}

template <class T>
bool AddIf(Records& records, const std::string& name, const std::shared_ptr<Record>& record) {
  const auto found = std::dynamic_pointer_cast<T>(record);
  if (found) Add(records, name, found);
  return found != nullptr;
}

template <class... Classes>
void AddAsOneOf(Records& records, const std::string& name, const std::shared_ptr<Record>& record) {
  if (!(AddIf<Classes>(records, name, record) || ...)) records.emplace_back(name, RecordValues());
}

Records ReadStreamed(const std::string& file, bool hasTaxes) {
  AuditFileStreamer streamer;
  streamer.set_AuditFileName(file);
  Records records;
  streamer.ReadEntity = [&](const std::string& name, const std::shared_ptr<Record>& record) {
    AddAsOneOf<Header, GeneralLedger, Customer, Supplier, Product, TaxTable, GeneralLedgerEntries, Journal, Transaction,
               SalesInvoices, Invoice>(records, name, record);
  };
  RC_ASSERT(streamer.OpenAuditFile());
  RC_ASSERT(streamer.ReadAuditFile() != hasTaxes);
  RC_ASSERT(!streamer.AuditException());
  return records;
}

template <class File>
std::string Written(const TemporaryFolder& folder, const char* name, const Contents& contents) {
  File file;
  file.set_AuditFileName(folder.Path(name));
  RC_ASSERT(Write(file, contents));
  return folder.Path(name);
}

std::string WithLineFeeds(const std::string& text) {
  std::string result;
  for (size_t i = 0; i < text.size(); ++i) {
    const bool pair = text[i] == '\r' && i + 1 < text.size() && text[i + 1] == '\n';
    if (!pair) result += text[i] == '\r' ? '\n' : text[i];
  }
  return result;
}

// A line end inside a text goes into a streamed file as it is, and every reader of XML takes it for a line feed.
void NormaliseLineEnds(Record& record, std::span<const Property> properties) {
  for (const Property& property : properties) {
    if (property.type == PropertyType::kCollection) {
      for (int32_t position = 1; position <= property.count(record); ++position) {
        NormaliseLineEnds(*property.item(record, position), property.properties());
      }
    } else if (property.type == PropertyType::kRecord) {
      const auto child = std::get<std::shared_ptr<Record>>(property.get(record));
      if (child) NormaliseLineEnds(*child, property.properties());
    } else if (property.type == PropertyType::kText && property.set != nullptr) {
      property.set(record, WithLineFeeds(std::get<std::string>(property.get(record))));
    }
  }
}

template <class T>
void NormaliseLineEnds(const std::vector<std::shared_ptr<T>>& records) {
  for (const auto& record : records) NormaliseLineEnds(*record, PropertiesOf<T>());
}

void NormaliseLineEnds(const Contents& contents) {
  NormaliseLineEnds(std::vector{contents.header});
  NormaliseLineEnds(contents.accounts);
  NormaliseLineEnds(contents.customers);
  NormaliseLineEnds(contents.suppliers);
  NormaliseLineEnds(contents.products);
  NormaliseLineEnds(std::vector{contents.taxes});
  NormaliseLineEnds(contents.journals);
  for (const auto& transactions : contents.transactions) NormaliseLineEnds(transactions);
  NormaliseLineEnds(contents.invoices);
}

RC_GTEST_PROP(DifferentialTest, BothWritersAndBothReadersAgree, ()) {
  const UseSchema schema;
  const TemporaryFolder folder;
  const Contents contents;
  const bool hasTaxes = contents.taxes->TaxTableEntry()->Count() > 0;
  const std::string built = Written<AuditFile>(folder, "built.xml", contents);
  const std::string streamed = Written<AuditFileStreamWriter>(folder, "streamed.xml", contents);
  RC_ASSERT(ReadStreamed(built, hasTaxes) == ReadOneByOne(built, hasTaxes));

  NormaliseLineEnds(contents);
  const Records expected = ReadOneByOne(Written<AuditFile>(folder, "normal.xml", contents), hasTaxes);
  RC_ASSERT(ReadOneByOne(streamed, hasTaxes) == expected);
  RC_ASSERT(ReadStreamed(streamed, hasTaxes) == expected);
}

// `AuditFile` writes texts without the spaces at their ends, and where nothing is left, an empty element: the text that
// is found is then that of the next element of the name. The sequential writer writes spaces as they are.
TEST(DifferentialTest, ATextOfSpacesIsEmptyInOneFileAndSpacesInTheOther) {
  const TemporaryFolder folder;
  Journal journal;
  journal.set_JournalID("J");
  Transaction transaction;
  transaction.set_Description("  ");
  auto line = std::make_shared<TransactionLine>();
  line->set_Description("L");
  transaction.Line()->Add(line);
  const auto descriptionIn = [](const std::string& file) {
    std::string description;
    AuditFileStreamer streamer;
    streamer.ReadEntity = [&](const std::string&, const std::shared_ptr<Record>& record) {
      const auto read = std::dynamic_pointer_cast<Transaction>(record);
      if (read) description = read->Description();
    };
    streamer.set_AuditFileName(file);
    EXPECT_TRUE(streamer.OpenAuditFile() && streamer.ReadAuditFile());
    return description;
  };

  AuditFile built;
  built.set_AuditFileName(folder.Path("built.xml"));
  ASSERT_TRUE(built.CreateAuditFile() && built.CreateGeneralLedgerEntries(GeneralLedgerEntries()) &&
              built.CreateJournal(journal) && built.CreateTransaction(transaction, &journal) &&
              built.UpdateAuditFile());
  EXPECT_EQ(descriptionIn(folder.Path("built.xml")), "L");

  AuditFileStreamWriter streamed;
  streamed.set_AuditFileName(folder.Path("streamed.xml"));
  ASSERT_TRUE(streamed.CreateAuditFile() && streamed.BeginGeneralLedgerEntries(GeneralLedgerEntries()) &&
              streamed.BeginJournal(journal) && streamed.CreateTransaction(transaction) && streamed.CloseAuditFile());
  EXPECT_EQ(descriptionIn(folder.Path("streamed.xml")), "");
}

// Only a reader that holds the journal with its transactions finds the text of an inner element of that name.
TEST(DifferentialTest, AJournalWithoutADescriptionHasThatOfATransactionWhereItHoldsOne) {
  const TemporaryFolder folder;
  Journal journal;
  journal.set_JournalID("J");
  Transaction transaction;
  transaction.set_Description("T");
  AuditFileStreamWriter file;
  file.set_AuditFileName(folder.Path("audit.xml"));
  ASSERT_TRUE(file.CreateAuditFile() && file.BeginGeneralLedgerEntries(GeneralLedgerEntries()) &&
              file.BeginJournal(journal) && file.CreateTransaction(transaction) && file.CloseAuditFile());

  AuditFileReader reader;
  reader.set_AuditFileName(folder.Path("audit.xml"));
  std::shared_ptr<Journal> read;
  ASSERT_TRUE(reader.OpenAuditFile() && reader.ReadJournal(read));
  EXPECT_EQ(read->Description(), "T");

  std::shared_ptr<Journal> streamed;
  AuditFileStreamer streamer;
  streamer.ReadEntity = [&](const std::string& name, const std::shared_ptr<Record>& record) {
    if (name == "Journal") streamed = std::dynamic_pointer_cast<Journal>(record);
  };
  streamer.set_AuditFileName(folder.Path("audit.xml"));
  ASSERT_TRUE(streamer.OpenAuditFile() && streamer.ReadAuditFile());
  EXPECT_EQ(streamed->Description(), "");
}

}  // namespace
}  // namespace zevo
