// SPDX-License-Identifier: Apache-2.0
#include "tests/facades/Contents.h"

#include <array>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <variant>

#include "tests/support/CodePoints.h"

namespace zevo::testing {
namespace {

// Texts that mean something to XML, to the code page or to how texts are read.
constexpr std::array<std::string_view, 28> kPieces = {
    "a",  "Z", "7",   " ",     "  ",     "é",    "ã",  "€",  "–",  "Ω",    "😀",           "&", "<", ">",
    "\"", "'", "]]>", "&amp;", "&quot;", "<!--", "\t", "\n", "\r", "\r\n", "uma palavra", ".", ",", "-1"};

std::string ArbitraryCharacter(Choices& choices) {
  const auto character = static_cast<char32_t>(choices.Below(kLastCodePoint + 1));
  return IsXmlCharacter(character) ? Utf8Of(character) : "?";
}

std::string ArbitraryText(Choices& choices) {
  std::string text;
  for (size_t pieces = choices.Below(6); pieces > 0; --pieces) {
    const size_t piece = choices.Below(kPieces.size() + 1);
    text += piece < kPieces.size() ? std::string(kPieces[piece]) : ArbitraryCharacter(choices);
  }
  // What becomes of nothing but spaces has a test of its own.
  return text.find_first_not_of(' ') == std::string::npos ? "" : text;
}

int64_t Between(Choices& choices, int64_t low, int64_t high) {
  return low + static_cast<int64_t>(choices.Below(static_cast<size_t>(high - low)));
}

PropertyValue ArbitraryValue(Choices& choices, const Property& property) {
  switch (property.type) {
    case PropertyType::kAmount:
      return choices.Flag() ? Amount::FromScaled(Between(choices, -50'000'000, 50'000'000)) : Amount();
    case PropertyType::kFlag:
      return choices.Flag();
    case PropertyType::kCount:
      return static_cast<int32_t>(choices.Below(1000));
    case PropertyType::kSingle:
      return static_cast<float>(Between(choices, -400, 400)) / 8;
    case PropertyType::kCode: {
      const auto codes = property.codes();
      return codes[choices.Below(codes.size())].value;
    }
    default:
      return ArbitraryText(choices);
  }
}

// The property by which the items of a collection are told apart.
bool IsKey(std::string_view name) { return name == "RecordID" || name == "LineNumber" || name == "Reference"; }

void Fill(Choices& choices, Record& record, std::span<const Property> properties);

void FillCollection(Choices& choices, Record& record, const Property& property) {
  const auto count = static_cast<int32_t>(choices.Below(3));
  for (int32_t number = 1; number <= count; ++number) {
    const std::shared_ptr<Record> item = property.make();
    Fill(choices, *item, property.properties());
    for (const Property& key : property.properties()) {
      if (!IsKey(key.name)) continue;
      key.set(*item, key.type == PropertyType::kCount ? PropertyValue(number) : PropertyValue(std::to_string(number)));
    }
    property.add(record, item);
  }
}

void Fill(Choices& choices, Record& record, std::span<const Property> properties) {
  for (const Property& property : properties) {
    if (property.type == PropertyType::kCollection) {
      FillCollection(choices, record, property);
    } else if (property.type == PropertyType::kRecord) {
      // A child learns where it stands when it is assigned.
      if (property.set != nullptr && choices.Flag()) property.set(record, property.make());
      if (const auto child = std::get<std::shared_ptr<Record>>(property.get(record))) {
        Fill(choices, *child, property.properties());
      }
    } else if (property.set != nullptr) {
      property.set(record, ArbitraryValue(choices, property));
    }
  }
}

template <class T>
void Make(Choices& choices, std::shared_ptr<T>& record) {
  record = std::make_shared<T>();
  Fill(choices, *record, PropertiesOf<T>());
}

template <class T>
void Make(Choices& choices, std::vector<std::shared_ptr<T>>& records) {
  records.resize(choices.Below(3));
  for (auto& record : records) Make(choices, record);
}

template <class File>
bool WriteMasterFiles(File& file, const Contents& contents) {
  bool good = file.CreateHeader(*contents.header);
  for (const auto& record : contents.accounts) good = file.CreateGeneralLedger(*record) && good;
  for (const auto& record : contents.customers) good = file.CreateCustomer(*record) && good;
  for (const auto& record : contents.suppliers) good = file.CreateSupplier(*record) && good;
  for (const auto& record : contents.products) good = file.CreateProduct(*record) && good;
  return file.CreateTaxTable(*contents.taxes) && good;
}

}  // namespace

Contents::Contents(Choices& choices) {
  Make(choices, header);
  Make(choices, accounts);
  Make(choices, customers);
  Make(choices, suppliers);
  Make(choices, products);
  Make(choices, taxes);
  Make(choices, entries);
  Make(choices, journals);
  Make(choices, sales);
  Make(choices, invoices);
  for (size_t i = 0; i < journals.size(); ++i) {
    journals[i]->set_JournalID("J" + std::to_string(i));
    journals[i]->set_Description("D" + journals[i]->Description());
    Make(choices, transactions.emplace_back());
  }
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

}  // namespace zevo::testing
