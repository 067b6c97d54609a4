// SPDX-License-Identifier: Apache-2.0
#include <zevo/dal/Cursors.h>

#include <algorithm>

namespace zevo {

std::vector<Cursors::Cursor>::iterator Cursors::Find(std::string_view name) {
  return std::ranges::find(cursors_, name, &Cursor::name);
}

void Cursors::Begin(std::string_view name, Element first) {
  const auto cursor = Find(name);
  if (cursor == cursors_.end()) {
    cursors_.push_back({std::string(name), first});
  } else {
    cursor->next = first;
  }
}

bool Cursors::Has(std::string_view name) const {
  return std::ranges::find(cursors_, name, &Cursor::name) != cursors_.end();
}

Element Cursors::Next(std::string_view name) {
  const auto cursor = Find(name);
  if (cursor == cursors_.end()) return Element();
  const Element element = cursor->next;
  if (!element) {
    cursors_.erase(cursor);
    return element;
  }
  Element next = element.NextSibling();
  while (next && next.Name() != name) next = next.NextSibling();
  cursor->next = next;
  return element;
}

}  // namespace zevo
