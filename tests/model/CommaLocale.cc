// SPDX-License-Identifier: Apache-2.0
#include "tests/model/CommaLocale.h"

#include <array>
#include <clocale>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <string_view>

namespace zevo::testing {
namespace {

// The category as glibc keeps it in a file: a magic number, how many items follow, where each begins, the items.
std::string NumericCategory() {
  using std::string_view_literals::operator""sv;
  constexpr uint32_t kMagic = 0x20031115U ^ LC_NUMERIC;
  // Separator of decimals and of thousands, sizes of groups, the separators as wide characters, the encoding.
  constexpr std::array kItems = {",\0"sv, ".\0"sv, "\3\3\0\0"sv, ",\0\0\0"sv, ".\0\0\0"sv, "UTF-8\0"sv};
  std::string bytes;
  const auto append = [&bytes](uint32_t number) {
    bytes.append(reinterpret_cast<const char*>(&number), sizeof(number));
  };
  append(kMagic);
  append(kItems.size());
  std::string items;
  const size_t start = (2 + kItems.size()) * sizeof(uint32_t);
  for (const std::string_view item : kItems) {
    append(static_cast<uint32_t>(start + items.size()));
    items.append(item);
    items.resize((items.size() + 3) / 4 * 4);
  }
  return bytes + items;
}

}  // namespace

CommaLocale::CommaLocale() : before_(std::setlocale(LC_NUMERIC, nullptr)) {
  std::filesystem::create_directory(folder_.Path("comma"));
  folder_.Write("comma/LC_NUMERIC", NumericCategory());
  setenv("LOCPATH", folder_.Path("").c_str(), 1);
  if (std::setlocale(LC_NUMERIC, "comma") == nullptr) return;
  in_force_ = std::string_view(std::localeconv()->decimal_point) == ",";
}

CommaLocale::~CommaLocale() {
  std::setlocale(LC_NUMERIC, before_.c_str());
  unsetenv("LOCPATH");
}

}  // namespace zevo::testing
