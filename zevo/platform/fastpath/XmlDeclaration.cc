// SPDX-License-Identifier: Apache-2.0
#include <zevo/platform/fastpath/XmlDeclaration.h>

#include <zevo/platform/fastpath/FastText.h>

#include <algorithm>

namespace zevo {
namespace {

bool TakeBlanks(std::string_view& text) {
  const auto end = std::ranges::find_if_not(text, [](char c) { return IsWhiteSpace(c); });
  const auto length = static_cast<size_t>(end - text.begin());
  text.remove_prefix(length);
  return length > 0;
}

bool Take(std::string_view& text, std::string_view expected) {
  if (!text.starts_with(expected)) return false;
  text.remove_prefix(expected.size());
  return true;
}

// ` name="value"`, with blanks where XML allows them. Nothing, and nothing taken, where something else stands.
std::optional<std::string_view> TakePart(std::string_view& text, std::string_view name) {
  std::string_view rest = text;
  if (!TakeBlanks(rest) || !Take(rest, name)) return std::nullopt;
  TakeBlanks(rest);
  if (!Take(rest, "=")) return std::nullopt;
  TakeBlanks(rest);
  if (rest.empty() || (rest.front() != '"' && rest.front() != '\'')) return std::nullopt;
  const size_t end = rest.find(rest.front(), 1);
  if (end == std::string_view::npos) return std::nullopt;
  const std::string_view value = rest.substr(1, end - 1);
  text = rest.substr(end + 1);
  return value;
}

bool IsEncodingName(std::string_view value) {
  const auto is_letter = [](char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); };
  const auto goes_on = [&](char c) {
    return is_letter(c) || (c >= '0' && c <= '9') || c == '.' || c == '_' || c == '-';
  };
  return !value.empty() && is_letter(value.front()) && std::ranges::all_of(value, goes_on);
}

}  // namespace

std::optional<XmlDeclaration> ParseXmlDeclaration(std::string_view text) {
  std::string_view rest = text;
  if (!Take(rest, "<?xml") || TakePart(rest, "version") != "1.0") return std::nullopt;
  const auto encoding = TakePart(rest, "encoding");
  if (encoding && !IsEncodingName(*encoding)) return std::nullopt;
  XmlDeclaration declaration;
  if (const auto standalone = TakePart(rest, "standalone")) {
    if (standalone != "yes" && standalone != "no") return std::nullopt;
    declaration.standalone = standalone == "yes";
  }
  TakeBlanks(rest);
  if (!Take(rest, "?>")) return std::nullopt;
  declaration.size = text.size() - rest.size();
  return declaration;
}

}  // namespace zevo
