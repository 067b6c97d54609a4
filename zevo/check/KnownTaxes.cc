// SPDX-License-Identifier: Apache-2.0
#include <zevo/check/KnownTaxes.h>

#include <zevo/check/VatRates.h>

#include <algorithm>
#include <utility>

namespace zevo {
namespace {

bool IsCountry(std::string_view code) {
  return code.size() == 2 && std::ranges::all_of(code, [](char c) { return c >= 'A' && c <= 'Z'; });
}

bool IsTaxCode(std::string_view code) {
  if (VatLevelOf(code) || code == "ISE" || code == "OUT") return true;
  return std::ranges::all_of(code, [](char c) { return (c >= '0' && c <= '9') || c == '.'; });
}

}  // namespace

bool KnownTaxes::HasCodes(const TaxFacts& tax) {
  if (!tax.type.Read() || !tax.region.Read() || !tax.code.Read()) return false;
  const bool type = *tax.type == "IVA" || *tax.type == "IS";
  return type && (VatRegionOf(*tax.region) || IsCountry(*tax.region)) && IsTaxCode(*tax.code);
}

// Codes differ most.
bool KnownTaxes::Before::operator()(const View& left, const View& right) const {
  if (const int order = left.code.compare(right.code); order != 0) return order < 0;
  if (const int order = left.region.compare(right.region); order != 0) return order < 0;
  if (const int order = left.type.compare(right.type); order != 0) return order < 0;
  if (left.is_amount != right.is_amount) return right.is_amount;
  return left.rate < right.rate;
}

bool KnownTaxes::AreEqual(const View& left, const View& right) {
  return left.code == right.code && left.region == right.region && left.type == right.type &&
         left.is_amount == right.is_amount && left.rate == right.rate;
}

KnownTaxes::View KnownTaxes::ViewOf(const TaxFacts& tax) {
  const bool amount = !tax.percentage.Read();
  const Decimal& rate = amount ? *tax.amount : *tax.percentage;
  return {*tax.type, *tax.region, *tax.code, amount && !rate.IsZero(), rate};
}

void KnownTaxes::Take(const TaxTableFacts& facts) {
  for (const TaxFacts& entry : facts.entries) {
    const bool read = HasCodes(entry) && entry.percentage.Read() != entry.amount.Read() &&
                      (entry.expires.Missing() || entry.expires.Read());
    if (!read) {
      whole_ = false;
      continue;
    }
    const View view = ViewOf(entry);
    const Use use{entry.expires.Read(), *entry.expires};
    auto place = uses_.lower_bound(view);
    if (place == uses_.end() || Before()(view, place->first)) {
      uses_.emplace_hint(
          place,
          Key{std::string(view.type), std::string(view.region), std::string(view.code), view.is_amount, view.rate},
          use);
    } else if (place->second.expires && (!use.expires || use.last_day > place->second.last_day)) {
      place->second = use;
    }
  }
}

const KnownTaxes::Use* KnownTaxes::Find(const TaxFacts& tax) const {
  const View view = ViewOf(tax);
  if (last_ == nullptr || !AreEqual(last_->first, view)) {
    const auto place = uses_.find(view);
    if (place == uses_.end()) return nullptr;
    last_ = &*place;
  }
  return &last_->second;
}

}  // namespace zevo
