// SPDX-License-Identifier: Apache-2.0
#include <zevo/check/KnownTaxes.h>

#include <utility>

namespace zevo {

// Codes differ most.
bool KnownTaxes::Before::operator()(const View& left, const View& right) const {
  if (const int order = left.code.compare(right.code); order != 0) return order < 0;
  if (const int order = left.region.compare(right.region); order != 0) return order < 0;
  if (const int order = left.type.compare(right.type); order != 0) return order < 0;
  if (left.is_amount != right.is_amount) return right.is_amount;
  return left.rate < right.rate;
}

KnownTaxes::View KnownTaxes::ViewOf(const TaxFacts& tax) {
  const bool amount = !tax.percentage.Read();
  const Decimal& rate = amount ? *tax.amount : *tax.percentage;
  return {*tax.type, *tax.region, *tax.code, amount && !rate.IsZero(), rate};
}

void KnownTaxes::Take(const TaxTableFacts& facts) {
  for (const TaxFacts& entry : facts.entries) {
    const bool read = entry.type.Read() && entry.region.Read() && entry.code.Read() &&
                      entry.percentage.Read() != entry.amount.Read() &&
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
  const auto place = uses_.find(ViewOf(tax));
  return place == uses_.end() ? nullptr : &place->second;
}

}  // namespace zevo
