// SPDX-License-Identifier: Apache-2.0
#include "tests/facades/RecordMaker.h"

#include <array>
#include <cstdio>
#include <functional>
#include <stdexcept>
#include <variant>
#include <vector>

namespace zevo::testing {
namespace {

std::string Digits(int serial) { return std::to_string(serial); }

std::string Padded(const char* prefix, int number, int width) {
  std::string digits = std::to_string(number);
  digits.insert(0, static_cast<size_t>(std::max(0, width - static_cast<int>(digits.size()))), '0');
  return prefix + digits;
}

std::string Day(int serial) {
  return Padded("", 2001 + serial / 336, 4) + Padded("-", 1 + serial / 28 % 12, 2) + Padded("-", 1 + serial % 28, 2);
}

template <size_t kSize>
std::string InTurn(const std::array<const char*, kSize>& texts, int serial) {
  return texts[static_cast<size_t>(serial) % kSize];
}

struct TextRule {
  std::string_view path;  // the end of the property's path
  std::string (*text)(int serial);
};

// What the schema accepts where it does not accept any text; the first rule that fits counts.
const std::vector<TextRule>& TextRules() {
  static const std::vector<TextRule> kRules = {
      {"Header.CompanyID", Digits},
      {"TaxRegistrationNumber", [](int serial) { return Padded("5", serial, 8); }},
      {"Header.CurrencyCode", [](int) { return std::string("EUR"); }},
      {".CurrencyCode",
       [](int serial) {
         return InTurn(std::array{"USD", "GBP", "CHF"}, serial);
       }},
      {"FiscalYear", [](int serial) { return Padded("", 2001 + serial % 50, 4); }},
      {"CompanyAddress.Country", [](int) { return std::string("PT"); }},
      {".Country",
       [](int serial) {
         return InTurn(std::array{"ES", "FR", "DE", "BR"}, serial);
       }},
      {"CompanyAddress.PostalCode", [](int serial) { return Padded("4000-", serial % 1000, 3); }},
      {".AccountID", [](int serial) { return Padded("21", serial, 5); }},
      {".TaxCountryRegion",
       [](int serial) {
         return InTurn(std::array{"PT", "PT-AC", "PT-MA"}, serial);
       }},
      {".TaxCode", Digits},
      {"Header.ProductID", [](int serial) { return Padded("Gestor/Oficina ", serial, 5); }},
      {".TransactionID", [](int serial) { return Day(serial) + Padded(" D1 ", serial, 5); }},
      {"Transaction.Period", [](int serial) { return Digits(1 + serial % 16); }},
      {"Invoice.Period", [](int serial) { return Digits(1 + serial % 12); }},
      {".InvoiceNo", [](int serial) { return Padded("FT A/", serial, 5); }},
      // A double quote would break the look-up of the journal.
      {".JournalID", [](int serial) { return Padded("D<&>é", serial, 4); }},
      // With characters that are escaped and that are not ASCII; ten characters, the least that any element takes.
      {"", [](int serial) { return Padded("ã€<&>\"", serial, 4); }},
  };
  return kRules;
}

}  // namespace

void RecordMaker::Fill(Record& record, std::span<const Property> properties, const std::string& path) {
  for (const Property& property : properties) FillProperty(record, property, path + "." + std::string(property.name));
}

void RecordMaker::FillProperty(Record& record, const Property& property, const std::string& path) {
  if (property.type == PropertyType::kCollection) {
    // The schema takes one credit note for a line, and two or more of everything else.
    const int items = property.name == "CreditNote" ? 1 : 2;
    for (int i = 0; i < items; ++i) {
      const auto item = property.make();
      Fill(*item, property.properties(), path);
      property.add(record, item);
    }
  } else if (property.type == PropertyType::kRecord) {
    if (property.set != nullptr) property.set(record, property.make());
    Fill(*std::get<std::shared_ptr<Record>>(property.get(record)), property.properties(), path);
  } else if (property.set != nullptr) {
    property.set(record, ValueFor(property, path));
  }
}

PropertyValue RecordMaker::ValueFor(const Property& property, const std::string& path) {
  ++serial_;
  const bool zero =
      side_ == Side::kCreditAlone && (property.name.ends_with("DebitAmount") || property.name == "TaxPercentage");
  switch (property.type) {
    case PropertyType::kText:
      return TextFor(property, path);
    case PropertyType::kAmount:
      // A quantity passes through single precision, which holds quarters exactly.
      return zero ? Amount()
                  : Amount::FromScaled(int64_t{serial_} * 10000 + (property.name == "Quantity" ? 2500 : 1234));
    case PropertyType::kFlag:
      return true;
    case PropertyType::kCount:
      return serial_;
    case PropertyType::kSingle:
      return zero ? 0.0F : static_cast<float>(serial_) + 0.25F;
    case PropertyType::kCode: {
      const auto codes = property.codes();
      return codes[static_cast<size_t>(serial_) % codes.size()].value;
    }
    case PropertyType::kRecord:
    case PropertyType::kCollection:
      break;
  }
  throw std::logic_error("no value");
}

std::string RecordMaker::TextFor(const Property& property, std::string_view path) {
  if (property.text_kind == TextKind::kDate) return Day(serial_);
  if (property.text_kind == TextKind::kDateTime) return Day(serial_) + "T10:20:30";
  for (const TextRule& rule : TextRules()) {
    if (path.ends_with(rule.path)) return rule.text(serial_);
  }
  throw std::logic_error("no rule");
}

}  // namespace zevo::testing
