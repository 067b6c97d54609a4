// SPDX-License-Identifier: Apache-2.0
#include <zevo/check/LineAmounts.h>

#include <zevo/Digit.h>
#include <zevo/check/AbsoluteValue.h>
#include <zevo/check/InvoiceSums.h>
#include <zevo/check/MoneyText.h>

#include <algorithm>
#include <string_view>
#include <utility>

namespace zevo {
namespace {

// Half a unit of a decimal.
Decimal HalfUnit(size_t decimals) { return *Decimal::FromText("0." + std::string(decimals, '0') + "5"); }

// Quantities of seven digits or more come from numbers that hold no more: their last digit is rounded.
bool HasSevenDigits(std::string_view quantity) {
  size_t digits = 0;
  for (const char c : quantity) {
    if (c >= '0' && c <= '9' && (digits > 0 || c != '0')) ++digits;
  }
  return digits >= 7;
}

size_t DecimalsOf(std::string_view number) {
  const size_t point = number.find('.');
  if (point == std::string_view::npos) return 0;
  return static_cast<size_t>(std::ranges::count_if(number.substr(point), IsDigit));
}

}  // namespace

const NumberFact* LineAmounts::AmountOf(const InvoiceLineFacts& line) {
  if (line.credit.Missing()) return line.debit.Read() ? &line.debit : nullptr;
  if (line.debit.Missing()) return line.credit.Read() ? &line.credit : nullptr;
  if (!line.debit.Read() || !line.credit.Read()) return nullptr;
  if (line.debit->IsZero()) return &line.credit;
  return line.credit->IsZero() ? &line.debit : nullptr;
}

std::string LineAmounts::ExpectedOf(const InvoiceLineFacts& line, bool lessSettlement) {
  Decimal amount = AbsoluteValue(*line.quantity * *line.unit_price);
  std::string text = AbsoluteValue(*line.quantity).Text() + " × " + MoneyText(AbsoluteValue(*line.unit_price));
  if (lessSettlement) {
    amount -= AbsoluteValue(*line.settlement);
    text += " - " + MoneyText(AbsoluteValue(*line.settlement));
  }
  return text + " = " + MoneyText(amount);
}

void LineAmounts::Take(const InvoiceFacts& facts) {
  of_this_.clear();
  for (const InvoiceLineFacts& line : facts.lines) {
    if (line.unit_price.Read()) decimals_ = std::max(decimals_, std::min(line.unit_price->Decimals(), kMostDecimals));
  }
  for (size_t line = 0; line < facts.lines.size(); ++line) TakeLine(facts, line);
}

void LineAmounts::TakeLine(const InvoiceFacts& facts, size_t number) {
  const InvoiceLineFacts& line = facts.lines[number];
  const NumberFact* const amount = AmountOf(line);
  if (amount == nullptr || !CanMultiply(facts, line.quantity) || !CanMultiply(facts, line.unit_price)) return;
  Fault fault{number, false, AbsoluteValue(**amount)};
  fault.difference -= AbsoluteValue(*line.quantity * *line.unit_price);
  if (fault.difference.IsZero()) return;
  const NumberFact& settlement = line.settlement;
  if (settlement.IsThere() && !settlement.Read()) return;
  if (settlement.Read() && !settlement->IsZero()) {
    Decimal less = fault.difference + AbsoluteValue(*settlement);
    if (less.IsZero()) return;
    if (AbsoluteValue(less) < AbsoluteValue(fault.difference)) {
      fault.difference = std::move(less);
      fault.less_settlement = true;
    }
  }
  TakeDifference(facts, std::move(fault));
}

void LineAmounts::TakeDifference(const InvoiceFacts& facts, Fault fault) {
  const InvoiceLineFacts& line = facts.lines[fault.line];
  Decimal excess = AbsoluteValue(fault.difference) - Decimal::OfUnits(1, 2);
  if (!(excess > 0)) return;
  const std::string_view quantity = facts.entity->TextOf(line.quantity.element);
  if (HasSevenDigits(quantity)) excess -= HalfUnit(DecimalsOf(quantity)) * AbsoluteValue(*line.unit_price);
  const Decimal units = AbsoluteValue(*line.quantity);
  const auto is_right = [&](size_t decimals) { return excess <= units * HalfUnit(decimals); };
  if (!is_right(decimals_)) {
    of_this_.push_back(std::move(fault));
    return;
  }
  size_t most = decimals_;
  while (most < kMostDecimals && is_right(most + 1)) ++most;
  if (most == kMostDecimals) return;
  Doubts& doubts = doubts_[most];
  const bool cancelled = facts.IsCancelled();
  if (most_kept_ == 0 || doubts.kept.size() < most_kept_) {
    doubts.kept.push_back({Keep(facts, *AmountOf(line)), ExpectedOf(line, fault.less_settlement),
                           std::move(fault.difference), cancelled});
  } else {
    ++(cancelled ? doubts.more_cancelled : doubts.more);
  }
}

LineAmounts::Doubtful LineAmounts::WrongByNow() const {
  Doubtful wrong;
  for (size_t most = 0; most < decimals_; ++most) {
    for (const KeptFault& fault : doubts_[most].kept) wrong.kept.push_back(&fault);
    wrong.more += doubts_[most].more;
    wrong.more_cancelled += doubts_[most].more_cancelled;
  }
  std::ranges::stable_sort(wrong.kept, {}, [](const KeptFault* fault) { return fault->at.place.offset; });
  return wrong;
}

}  // namespace zevo
