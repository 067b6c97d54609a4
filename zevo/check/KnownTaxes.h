// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_CHECK_KNOWNTAXES_H_
#define ZEVO_CHECK_KNOWNTAXES_H_

#include <zevo/check/CalendarDate.h>
#include <zevo/check/EntityFacts.h>
#include <zevo/model/Decimal.h>

#include <map>
#include <string>
#include <string_view>
#include <utility>

namespace zevo {

/// The taxes of a file's tax table. Equal ones are kept once, however often the table has them.
class KnownTaxes {
 public:
  /// When a tax may be used.
  struct Use {
    bool expires = false;
    CalendarDate last_day;  ///< where it expires
  };

  void Take(const TaxTableFacts& facts);

  /// Whether type, region and code may be such, as the schema has them: two capitals are taken for a country.
  static bool HasCodes(const TaxFacts& tax);

  /// Of a tax of this type, region, code and percentage, or amount: the use that is longest; null where the table has
  /// no such tax. A percentage of 0 is an amount of 0.
  const Use* Find(const TaxFacts& tax) const;

  bool IsEmpty() const { return uses_.empty(); }
  /// Whether each entry could be read, its codes too.
  bool IsWhole() const { return whole_; }

 private:
  struct View {
    std::string_view type;
    std::string_view region;
    std::string_view code;
    bool is_amount;
    const Decimal& rate;
  };
  struct Key {
    std::string type;
    std::string region;
    std::string code;
    bool is_amount;
    Decimal rate;

    operator View() const { return {type, region, code, is_amount, rate}; }  // NOLINT(google-explicit-constructor)
  };
  struct Before {
    using is_transparent = void;
    bool operator()(const View& left, const View& right) const;
  };

  static View ViewOf(const TaxFacts& tax);
  static bool AreEqual(const View& left, const View& right);

  std::map<Key, Use, Before> uses_;
  mutable const std::pair<const Key, Use>* last_ = nullptr;  // found
  bool whole_ = true;
};

}  // namespace zevo

#endif  // ZEVO_CHECK_KNOWNTAXES_H_
