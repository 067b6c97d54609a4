// SPDX-License-Identifier: Apache-2.0
#include <zevo/platform/fastpath/RootTag.h>

#include <zevo/platform/fastpath/FastText.h>

#include <algorithm>

namespace zevo {
namespace {

constexpr size_t kMostAttributes = 16;
constexpr std::string_view kXmlns = "xmlns";

bool EndsName(char c) { return static_cast<unsigned char>(c) <= ' ' || c == '=' || c == '/' || c == '>' || c == '<'; }

const char* SkipName(const char* at) {
  while (!EndsName(*at)) ++at;
  return at;
}

// Values are taken as they stand: what would be changed or is not ASCII is not taken.
bool IsPlainValue(char c) { return c >= ' ' && c <= '~' && c != '&' && c != '<'; }

bool IsDeclaration(std::string_view name) { return name == kXmlns || name.starts_with("xmlns:"); }

std::string_view LocalPart(std::string_view name) { return name.substr(name.find(':') + 1); }

// The namespaces of XML itself, which have their own prefixes.
bool IsReserved(std::string_view uri) { return uri.starts_with("http://www.w3.org/XML/") || uri.ends_with("/xmlns/"); }

}  // namespace

const char* RootTag::Parse(const char* at) {
  const char* const begin = at;
  at = SkipName(at);
  const std::string_view name(begin, static_cast<size_t>(at - begin));
  // An instruction may look like a tag from here on. Its names must not be known, as they are no names to libxml2.
  if (!FastNames::IsPlain(name.substr(0, name.find(':')))) return nullptr;
  for (;;) {
    const char* const attribute = SkipBlanks(at);
    if (*attribute == '>' || (*attribute == '/' && attribute[1] == '>')) {
      at = attribute;
      break;
    }
    if (attribute == at || given_.size() == kMostAttributes) return nullptr;
    at = ParseAttribute(attribute);
    if (at == nullptr) return nullptr;
  }
  if (at - begin > kMostBytes) return nullptr;
  empty_ = *at == '/';
  if (!Declare() || !AddOthers()) return nullptr;
  name_ = names_.Find(name);
  if (name_ == nullptr) return nullptr;
  return at + (empty_ ? 2 : 1);
}

const char* RootTag::ParseAttribute(const char* at) {
  const char* const name = at;
  at = SkipName(at);
  const std::string_view name_text(name, static_cast<size_t>(at - name));
  at = SkipBlanks(at);
  if (*at != '=') return nullptr;
  at = SkipBlanks(at + 1);
  const char quote = *at;
  if (quote != '"' && quote != '\'') return nullptr;
  const char* const value = ++at;
  while (IsPlainValue(*at) && *at != quote) ++at;
  if (*at != quote) return nullptr;
  // Names without their prefixes too: two prefixes may mean the same.
  const auto same = [&](const Given& other) {
    return LocalPart(other.name) == LocalPart(name_text) && IsDeclaration(other.name) == IsDeclaration(name_text);
  };
  if (std::ranges::any_of(given_, same)) return nullptr;
  given_.push_back({name_text, {value, static_cast<size_t>(at - value)}});
  return at + 1;
}

bool RootTag::Declare() {
  for (const Given& given : given_) {
    if (!IsDeclaration(given.name)) continue;
    if (given.value.empty() || IsReserved(given.value)) return false;
    if (given.name == kXmlns) {
      attributes_.push_back({{names_.Interned(kXmlns), nullptr}, given.value});
      continue;
    }
    const std::string_view prefix = LocalPart(given.name);
    if (prefix.starts_with("xml") || !FastNames::IsPlain(prefix)) return false;
    names_.Declare(prefix);
    attributes_.push_back({{names_.Interned(prefix), names_.Interned(kXmlns)}, given.value});
  }
  return true;
}

bool RootTag::AddOthers() {
  for (const Given& given : given_) {
    if (IsDeclaration(given.name)) continue;
    const FastName* const name = names_.Find(given.name);
    if (name == nullptr) return false;
    attributes_.push_back({name->Parsed(), given.value});
  }
  return true;
}

}  // namespace zevo
