// SPDX-License-Identifier: Apache-2.0
#include <zevo/check/InvoiceSums.h>

#include <zevo/check/AbsoluteValue.h>

#include <algorithm>
#include <array>
#include <tuple>

namespace zevo {
namespace {

constexpr size_t kMostMultiplied = 1000;

/// How amounts are understood.
struct TaxReading {
  bool by_quantity = false;    // a TaxAmount is that of a unit
  bool without_signs = false;  // a minus counts for nothing
};

Decimal Amount(const NumberFact& amount, const TaxReading& reading) {
  return reading.without_signs ? AbsoluteValue(*amount) : *amount;
}

// Of a line that has both amounts, the one that is not zero tells.
bool IsOnDebit(const InvoiceLineFacts& line) {
  return line.debit.Read() && (line.credit.Missing() || (line.credit->IsZero() && !line.debit->IsZero()));
}

// In cents: so many per cent of an amount.
Decimal TaxOf(const InvoiceLineFacts& line, const TaxReading& reading) {
  const TaxFacts& tax = line.tax;
  if (tax.percentage.Read()) {
    if (line.debit.Missing()) return Amount(line.credit, reading) * *tax.percentage;
    const Decimal of_debit = Amount(line.debit, reading) * *tax.percentage;
    return line.credit.Missing() ? -of_debit : Amount(line.credit, reading) * *tax.percentage - of_debit;
  }
  if (!tax.amount.Read()) return {};
  Decimal amount = 100 * Amount(tax.amount, reading);
  if (reading.by_quantity) amount = amount * Amount(line.quantity, reading);
  return IsOnDebit(line) ? -amount : amount;
}

bool IsTaxKnown(const InvoiceFacts& facts, const InvoiceLineFacts& line) {
  const TaxFacts& tax = line.tax;
  if (!tax.there) return true;
  for (const NumberFact* const amount : {&line.debit, &line.credit}) {
    if (amount->IsThere() && !CanMultiply(facts, *amount)) return false;
  }
  if (tax.amount.Missing()) return CanMultiply(facts, tax.percentage);
  return tax.percentage.Missing() && CanMultiply(facts, tax.amount) && CanMultiply(facts, line.quantity);
}

// The lines of a group stand together, in the order of the file.
auto GroupOf(const InvoiceLineFacts* line) {
  const TaxFacts& tax = line->tax;
  return std::tuple(*tax.type, *tax.region, *tax.code, tax.percentage.Read());
}

bool IsBefore(const InvoiceLineFacts* left, const InvoiceLineFacts* right) {
  const auto rate = [](const InvoiceLineFacts* line) -> const Decimal& {
    return line->tax.percentage.Read() ? *line->tax.percentage : *line->tax.amount;
  };
  const auto order = GroupOf(left) <=> GroupOf(right);
  return std::is_eq(order) ? rate(left) < rate(right) : std::is_lt(order);
}

struct RoundedTaxes {
  Decimal never;
  Decimal by_line;
  Decimal by_rate;
};

// The lines are sorted.
RoundedTaxes TaxesOf(const std::vector<const InvoiceLineFacts*>& lines, const TaxReading& reading) {
  RoundedTaxes taxes;
  Decimal of_rate;
  for (size_t i = 0; i < lines.size(); ++i) {
    if (i > 0 && IsBefore(lines[i - 1], lines[i])) {
      taxes.by_rate += of_rate.RoundedTo(0);
      of_rate = {};
    }
    const Decimal tax = TaxOf(*lines[i], reading);
    taxes.never += tax;
    taxes.by_line += tax.RoundedTo(0);
    of_rate += tax;
  }
  taxes.by_rate += of_rate.RoundedTo(0);
  return taxes;
}

bool IsNegativeLine(const InvoiceLineFacts& line) {
  return std::ranges::any_of(std::array{&line.debit, &line.credit, &line.quantity, &line.tax.amount},
                             [](const NumberFact* number) { return number->Read() && number->value.IsNegative(); });
}

}  // namespace

bool CanMultiply(const EntityFacts& facts, const NumberFact& number) {
  return number.Read() && facts.entity->TextOf(number.element).size() <= kMostMultiplied;
}

void InvoiceSums::Take(const InvoiceFacts& facts) {
  *this = {};
  // That there are no lines is told by SCHEMA.
  if (facts.lines.empty()) debit_.known = credit_.known = false;
  for (const InvoiceLineFacts& line : facts.lines) {
    debit_.Add(line.debit);
    credit_.Add(line.credit);
    // A line without an amount lacks one of the two.
    if (line.debit.Missing() && line.credit.Missing()) debit_.known = credit_.known = false;
    if (tax_known_ && line.tax.there) {
      tax_known_ = Known() && IsTaxKnown(facts, line);
      if (tax_known_) tax_ += TaxOf(line, {});
    }
  }
  tax_known_ = tax_known_ && Known();
}

Decimal NetWithoutSigns(const InvoiceFacts& facts) {
  Decimal net;
  for (const InvoiceLineFacts& line : facts.lines) {
    if (line.credit.Read()) net += AbsoluteValue(*line.credit);
    if (line.debit.Read()) net -= AbsoluteValue(*line.debit);
  }
  return net;
}

std::vector<Decimal> PossibleTaxesInCents(const InvoiceFacts& facts) {
  std::vector<const InvoiceLineFacts*> lines;
  bool amounts = false;
  bool signs = false;
  for (const InvoiceLineFacts& line : facts.lines) {
    if (!line.tax.there) continue;
    lines.push_back(&line);
    amounts = amounts || line.tax.amount.Read();
    signs = signs || IsNegativeLine(line);
  }
  std::ranges::stable_sort(lines, IsBefore);
  std::vector<Decimal> possible;
  for (const bool by_quantity : {false, true}) {
    for (const bool without_signs : {false, true}) {
      if ((by_quantity && !amounts) || (without_signs && !signs)) continue;
      RoundedTaxes taxes = TaxesOf(lines, {by_quantity, without_signs});
      for (Decimal* const tax : {&taxes.never, &taxes.by_line, &taxes.by_rate}) possible.push_back(AbsoluteValue(*tax));
    }
  }
  return possible;
}

}  // namespace zevo
