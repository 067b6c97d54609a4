// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/validate/ViolationJson.h"

#include <nlohmann/json.hpp>

namespace zevo::saft {

std::string JsonOf(const Violation& violation, Language language) {
  using Json = nlohmann::ordered_json;
  // libxml2, where it tells a violation itself, knows no element and no offset.
  const bool has_element = violation.kind || !violation.path.empty();
  const Json json = {
      {"number", violation.number},
      {"kind", violation.kind ? Json(NameOf(*violation.kind)) : Json()},
      {"key", violation.key},
      {"path", violation.path},
      {"line", violation.place.line},
      {"column", violation.place.column},
      {"offset", has_element ? Json(violation.place.offset) : Json()},
      {"value", violation.value},
      {"allowed", violation.allowed},
      {"message", Describe(violation, language)},
  };
  return json.dump();
}

}  // namespace zevo::saft
