// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/errors/NearestName.h"

#include <algorithm>
#include <cstddef>
#include <numeric>
#include <vector>

#include "tools/saft/words/ErrorWords.h"

namespace zevo::saft {
namespace {

char Lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

// The edit distance of two names, whatever their case, divided by the length of the longer one.
double Distance(std::string_view from, std::string_view to) {
  std::vector<size_t> row(to.size() + 1);  // distances from the letters of `from` seen so far to each beginning of `to`
  std::iota(row.begin(), row.end(), 0);
  for (const char letter : from) {
    size_t before = row[0]++;
    for (size_t i = 0; i < to.size(); ++i) {
      const size_t same = before + (Lower(letter) == Lower(to[i]) ? 0 : 1);
      before = row[i + 1];
      row[i + 1] = std::min({same, before + 1, row[i] + 1});
    }
  }
  return static_cast<double>(row.back()) / static_cast<double>(std::max(from.size(), to.size()));
}

}  // namespace

std::string_view NearestName(std::string_view given, std::span<const std::string_view> known) {
  return *std::ranges::min_element(known, {}, [given](std::string_view name) { return Distance(given, name); });
}

std::string DidYouMean(std::string_view given, std::span<const std::string_view> known) {
  constexpr double kFar = 0.5;
  const std::string_view nearest = NearestName(given, known);
  return Distance(given, nearest) > kFar ? std::string() : Say(words::kDidYouMean, nearest);
}

}  // namespace zevo::saft
