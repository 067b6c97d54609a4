// SPDX-License-Identifier: Apache-2.0
#include <zevo/platform/RestOfEvents.h>

#include <zevo/platform/fastpath/FastNames.h>

#include <algorithm>

namespace zevo {

void RestOfEvents::StartElement(const ParsedName& name, std::span<const ParsedAttribute> attributes) {
  if (names_ == nullptr) {
    if (Passes()) handler_.StartElement(name, attributes);
    return;
  }
  open_.push_back(AsKnown(name));
  if (!Passes()) return;
  attributes_.assign(attributes.begin(), attributes.end());
  for (ParsedAttribute& attribute : attributes_) attribute.name = AsKnown(attribute.name);
  handler_.StartElement(open_.back(), attributes_);
}

void RestOfEvents::EndElement(const ParsedName& name) {
  const ParsedName known = Close(name);
  if (Passes()) handler_.EndElement(known);
}

void RestOfEvents::EndEmptyTag(const ParsedName& name) {
  const ParsedName known = Close(name);
  if (Passes()) handler_.EndEmptyTag(known);
}

// The name of the element that ends, as the handler knows it.
ParsedName RestOfEvents::Close(const ParsedName& name) {
  if (names_ == nullptr) return name;
  const ParsedName known = {open_.back().local, open_.back().prefix};
  open_.pop_back();
  return known;
}

bool RestOfEvents::Passes() {
  if (events_ == 0) return true;
  --events_;
  return false;
}

bool RestOfEvents::Left(std::string_view& text) {
  if (events_ > 0) return false;
  const auto known = static_cast<size_t>(std::min<uint64_t>(text_, text.size()));
  text_ -= known;
  text.remove_prefix(known);
  return !text.empty();
}

// Both parses number names alike. Names that come later share their parts with those before.
ParsedName RestOfEvents::AsKnown(const ParsedName& name) {
  if (name.number == 0) return Interned(name);
  if (const FastName* const known = names_->Numbered(name.number)) return known->Parsed();
  const size_t later = name.number - names_->Count() - 1;
  if (later >= later_.size()) later_.resize(later + 1);
  if (later_[later].local == nullptr) later_[later] = Interned(name);
  return later_[later];
}

ParsedName RestOfEvents::Interned(const ParsedName& name) {
  return {names_->Interned(name.local), name.prefix == nullptr ? nullptr : names_->Interned(name.prefix), name.number};
}

}  // namespace zevo
