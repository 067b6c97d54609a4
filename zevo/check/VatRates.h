// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_CHECK_VATRATES_H_
#define ZEVO_CHECK_VATRATES_H_

#include <zevo/check/CalendarDate.h>
#include <zevo/model/Decimal.h>

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace zevo {

/// Where Portuguese VAT has rates of its own.
enum class VatRegion : uint8_t { kMainland, kAzores, kMadeira };
enum class VatLevel : uint8_t { kReduced, kIntermediate, kNormal };

/// By TaxCountryRegion: PT, PT-AC, PT-MA.
std::optional<VatRegion> VatRegionOf(std::string_view code);
/// By TaxCode: RED, INT, NOR.
std::optional<VatLevel> VatLevelOf(std::string_view code);

/// The days that a document takes its VAT rates of, by the years' rates: a bit for each time that has rates of its own.
struct VatTimes {
  uint8_t on = 0;      ///< those that the days are in
  uint8_t beside = 0;  ///< those that begin on the day behind one of them, or ended on the day before
  bool known = true;   ///< whether each day is known, and its rates

  void Add(const CalendarDate& date);

  static constexpr int kBits = 6;  ///< of `on` and `beside`
};

/// A VAT rate through the years, in per cent.
struct VatRate {
  VatRegion region;
  VatLevel level;

  /// On a day; nothing before the first that is known.
  std::optional<int> On(const CalendarDate& date) const;
  /// Whether the day is the first of another rate, and this is the one before; or the last, and this is the next.
  bool IsBeside(const CalendarDate& date, const Decimal& percentage) const;
  /// Whether it was the rate in one of several times, which are bits of `VatTimes`.
  bool WasIn(uint8_t times, const Decimal& percentage) const;
  /// That of the last of several times, of which there is one at least.
  int LastIn(uint8_t times) const;
  bool WasEver(const Decimal& percentage) const;
  /// By its codes: "NOR PT".
  std::string Name() const;
  /// All that there were, in their order: "21, 20, 23".
  std::string All() const;
};

}  // namespace zevo

#endif  // ZEVO_CHECK_VATRATES_H_
