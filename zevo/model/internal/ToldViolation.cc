// SPDX-License-Identifier: Apache-2.0
#include <zevo/model/internal/ToldViolation.h>

#include <zevo/model/internal/Phrase.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zevo {
namespace {

// How libxml2 words violations, and which of the places are the value and what is allowed; 0 for none.
struct ToldRow {
  std::string_view said;
  size_t value;
  size_t allowed;
};
constexpr auto kToldRows = std::to_array<ToldRow>({
    {"This element is not expected.", 0, 0},
    {"This element is not expected. Expected is ( {1} ).", 0, 1},
    {"This element is not expected. Expected is one of ( {1} ).", 0, 1},
    {"Missing child element(s). Expected is ( {1} ).", 0, 1},
    {"Missing child element(s). Expected is one of ( {1} ).", 0, 1},
    {"'{1}' is not a valid value of the atomic type '{2}'.", 1, 2},
    {"'{1}' is not a valid value of the local atomic type.", 1, 0},
    {"[facet 'enumeration'] The value '{1}' is not an element of the set {2}.", 1, 2},
    {"[facet 'pattern'] The value '{1}' is not accepted by the pattern '{2}'.", 1, 2},
    {"[facet '{1}'] The value '{2}' has a length of '{3}'; this underruns the allowed minimum length of '{4}'.", 2, 4},
    {"[facet '{1}'] The value '{2}' has a length of '{3}'; this exceeds the allowed maximum length of '{4}'.", 2, 4},
    {"[facet '{1}'] The value '{2}' has a length of '{3}'; this differs from the allowed length of '{4}'.", 2, 4},
    {"[facet '{1}'] The value '{2}' is less than the minimum value allowed ('{3}').", 2, 3},
    {"[facet '{1}'] The value '{2}' is greater than the maximum value allowed ('{3}').", 2, 3},
    {"[facet '{1}'] The value '{2}' must be greater than '{3}'.", 2, 3},
    {"[facet '{1}'] The value '{2}' must be less than '{3}'.", 2, 3},
    {"[facet '{1}'] The value '{2}' has more digits than are allowed ('{3}').", 2, 3},
    {"[facet '{1}'] The value '{2}' has more fractional digits than are allowed ('{3}').", 2, 3},
    {"Duplicate key-sequence ['{1}'] in {2}", 1, 0},
});

// The name behind "{namespace}", or behind the usual prefix of XML Schema.
std::string_view LocalName(std::string_view name) {
  if (name.starts_with("xs:")) return name.substr(3);
  return name.starts_with('{') ? name.substr(name.find('}') + 1) : name;
}

// A list as libxml2 has it, such as "{a}Header, {a}MasterFiles" or "{'N', 'S'}".
std::string ListOf(std::string_view list) {
  if (list.starts_with("{'") && list.ends_with("'}")) list = list.substr(1, list.size() - 2);
  std::string names;
  while (!list.empty()) {
    const size_t comma = std::min(list.find(", "), list.size());
    std::string_view name = list.substr(0, comma);
    if (name.size() > 1 && name.front() == '\'') name = name.substr(1, name.size() - 2);
    names.append(names.empty() ? "" : ", ").append(LocalName(name));
    list.remove_prefix(std::min(comma + 2, list.size()));
  }
  return names;
}

// Takes a name in quotation marks, behind what is before it, off a text.
std::optional<std::string_view> TakeName(std::string_view& text, std::string_view before) {
  if (!text.starts_with(before)) return std::nullopt;
  const size_t end = text.find('\'', before.size());
  if (end == std::string_view::npos) return std::nullopt;
  const std::string_view name = text.substr(before.size(), end - before.size());
  text.remove_prefix(end + 1);
  return LocalName(name);
}

}  // namespace

ToldViolation ReadTold(const Violation& told) {
  ToldViolation read{.violation = told};
  Violation& violation = read.violation;
  violation.value.clear();
  std::string_view said = told.value;
  const auto element = TakeName(said, "Element '");
  if (!element) return read;
  violation.path = *element;
  if (const auto attribute = TakeName(said, ", attribute '")) violation.path.append("/@").append(*attribute);
  if (!said.starts_with(": ")) return read;
  said.remove_prefix(2);
  std::vector<std::string> parts;
  for (const ToldRow& row : kToldRows) {
    if (!IsWorded(said, row.said, parts)) continue;
    if (row.value > 0) violation.value = parts[row.value - 1];
    if (row.allowed > 0) violation.allowed = ListOf(parts[row.allowed - 1]);
    // What lacks is told by its path, as that of the first that may be there.
    if (row.said.starts_with("Missing")) {
      violation.path.append("/").append(violation.allowed.substr(0, violation.allowed.find(", ")));
    }
    read.understood = true;
    break;
  }
  return read;
}

}  // namespace zevo
