// SPDX-License-Identifier: Apache-2.0
#include <zevo/platform/fastpath/FastNames.h>

#include <zevo/platform/ParserLimits.h>

#include <algorithm>

namespace zevo {
namespace {

bool IsLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_'; }
bool IsNameCharacter(char c) { return IsLetter(c) || (c >= '0' && c <= '9') || c == '-' || c == '.'; }

}  // namespace

bool FastNames::IsPlain(std::string_view name) {
  return !name.empty() && IsLetter(name.front()) && std::ranges::all_of(name, IsNameCharacter);
}

FastName* FastNames::LookUp(std::string_view qualified) {
  const auto known = texts_.find(qualified);
  if (known != texts_.end() && known->second != nullptr) return known->second;
  if (qualified.size() > FastName::kMost || names_.size() >= ParserLimits::kNames) return nullptr;
  const size_t colon = qualified.find(':');
  const bool prefixed = colon != std::string_view::npos;
  const std::string_view local = prefixed ? qualified.substr(colon + 1) : qualified;
  if (!IsPlain(local)) return nullptr;
  const char* const prefix = prefixed ? Declared(qualified.substr(0, colon)) : nullptr;
  if (prefixed && prefix == nullptr) return nullptr;
  const auto number = static_cast<uint32_t>(names_.size() + 1);
  auto& [text, name] = Known(qualified);
  name = &names_.emplace_back(qualified, ParsedName{prefixed ? Interned(local) : text.c_str(), prefix, number});
  return name;
}

const char* FastNames::Declared(std::string_view prefix) const {
  const auto found = std::ranges::find(declared_, prefix);
  return found == declared_.end() ? nullptr : *found;
}

}  // namespace zevo
