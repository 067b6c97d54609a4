// SPDX-License-Identifier: Apache-2.0
#include <zevo/platform/RegionalSettings.h>

#include <array>
#include <clocale>
#include <ctime>

namespace zevo {

std::string_view DecimalSeparator() { return std::localeconv()->decimal_point; }

std::string_view ThousandsSeparator() { return std::localeconv()->thousands_sep; }

std::string LocalDate() {
  const std::time_t now = std::time(nullptr);
  std::tm local{};
  localtime_s(&local, &now);
  std::array<char, 16> text{};
  return std::string(text.data(), std::strftime(text.data(), text.size(), "%Y-%m-%d", &local));
}

}  // namespace zevo
