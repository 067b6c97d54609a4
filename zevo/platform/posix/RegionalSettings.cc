// SPDX-License-Identifier: Apache-2.0
#include <zevo/platform/RegionalSettings.h>

#include <langinfo.h>

#include <array>
#include <ctime>

namespace zevo {

// nl_langinfo gives the same texts as localeconv without filling in the whole of its structure.

std::string_view DecimalSeparator() { return nl_langinfo(RADIXCHAR); }

std::string_view ThousandsSeparator() { return nl_langinfo(THOUSEP); }

std::string LocalDate() {
  const std::time_t now = std::time(nullptr);
  std::tm local{};
  localtime_r(&now, &local);
  std::array<char, 16> text{};
  return std::string(text.data(), std::strftime(text.data(), text.size(), "%Y-%m-%d", &local));
}

}  // namespace zevo
