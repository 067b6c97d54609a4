// SPDX-License-Identifier: Apache-2.0
#include <zevo/check/VatRates.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <iterator>
#include <vector>

namespace zevo {
namespace {

/// The rates from a day on: in each region reduced, intermediate and normal.
struct Row {
  CalendarDate from;
  int percentages[3][3];

  int Of(const VatRate& rate) const {
    return percentages[static_cast<size_t>(rate.region)][static_cast<size_t>(rate.level)];
  }
};

constexpr Row kRows[] = {
    // from           mainland       Azores        Madeira
    {{2005, 7, 1}, {{5, 12, 21}, {4, 8, 15}, {4, 8, 15}}},   //
    {{2008, 7, 1}, {{5, 12, 20}, {4, 8, 14}, {4, 8, 14}}},   //
    {{2010, 7, 1}, {{6, 13, 21}, {4, 9, 15}, {4, 9, 15}}},   //
    {{2011, 1, 1}, {{6, 13, 23}, {4, 9, 16}, {4, 9, 16}}},   //
    {{2012, 4, 1}, {{6, 13, 23}, {4, 9, 16}, {5, 12, 22}}},  //
    {{2014, 1, 1}, {{6, 13, 23}, {5, 10, 18}, {5, 12, 22}}},
};

static_assert(std::size(kRows) <= VatTimes::kBits);

uint8_t BitOf(const Row& row) { return static_cast<uint8_t>(1U << static_cast<unsigned>(&row - kRows)); }

// In the order of VatRegion and VatLevel.
constexpr std::array<std::string_view, 3> kRegions{"PT", "PT-AC", "PT-MA"};
constexpr std::array<std::string_view, 3> kLevels{"RED", "INT", "NOR"};

template <class T>
std::optional<T> OfName(const std::array<std::string_view, 3>& names, std::string_view name) {
  const auto found = std::ranges::find(names, name);
  if (found == names.end()) return std::nullopt;
  return static_cast<T>(found - names.begin());
}

// The row of a day; null before the first.
const Row* RowOf(const CalendarDate& date) {
  const Row* row = std::end(kRows);
  while (row != std::begin(kRows)) {
    --row;
    if (row->from <= date) return row;
  }
  return nullptr;
}

}  // namespace

std::optional<VatRegion> VatRegionOf(std::string_view code) { return OfName<VatRegion>(kRegions, code); }

std::optional<VatLevel> VatLevelOf(std::string_view code) { return OfName<VatLevel>(kLevels, code); }

void VatTimes::Add(const CalendarDate& date) {
  const Row* const row = RowOf(date);
  if (row == nullptr) {
    known = false;
    return;
  }
  on |= BitOf(*row);
  if (row != std::begin(kRows) && row->from == date) beside |= BitOf(*std::prev(row));
  const Row* const next = std::next(row);
  if (next != std::end(kRows) && next->from == date.NextDay()) beside |= BitOf(*next);
}

std::optional<int> VatRate::On(const CalendarDate& date) const {
  const Row* const row = RowOf(date);
  return row == nullptr ? std::nullopt : std::optional(row->Of(*this));
}

bool VatRate::IsBeside(const CalendarDate& date, const Decimal& percentage) const {
  const Row* const row = RowOf(date);
  if (row == nullptr) return false;
  const Row* const next = std::next(row);
  if (row != std::begin(kRows) && row->from == date && std::prev(row)->Of(*this) == percentage) return true;
  return next != std::end(kRows) && next->from == date.NextDay() && next->Of(*this) == percentage;
}

bool VatRate::WasIn(uint8_t times, const Decimal& percentage) const {
  return std::ranges::any_of(kRows,
                             [&](const Row& row) { return (times & BitOf(row)) != 0 && row.Of(*this) == percentage; });
}

int VatRate::LastIn(uint8_t times) const {
  const Row* row = std::end(kRows) - 1;
  while (row != std::begin(kRows) && (times & BitOf(*row)) == 0) --row;
  return row->Of(*this);
}

bool VatRate::WasEver(const Decimal& percentage) const {
  return std::ranges::any_of(kRows, [&](const Row& row) { return row.Of(*this) == percentage; });
}

std::string VatRate::Name() const {
  return std::string(kLevels[static_cast<size_t>(level)]).append(" ").append(kRegions[static_cast<size_t>(region)]);
}

std::string VatRate::All() const {
  std::vector<int> percentages;
  for (const Row& row : kRows) {
    if (std::ranges::find(percentages, row.Of(*this)) == percentages.end()) percentages.push_back(row.Of(*this));
  }
  std::string text;
  for (const int percentage : percentages) {
    if (!text.empty()) text += ", ";
    text += std::to_string(percentage);
  }
  return text;
}

}  // namespace zevo
