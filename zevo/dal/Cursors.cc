// SPDX-License-Identifier: Apache-2.0
#include <zevo/dal/Cursors.h>

#include <algorithm>

namespace zevo {

std::vector<Cursors::Cursor>::iterator Cursors::Find(uint32_t name) {
  return std::ranges::find(cursors_, name, &Cursor::name);
}

void Cursors::Begin(uint32_t name, Element first) {
  const auto cursor = Find(name);
  if (cursor == cursors_.end()) {
    cursors_.push_back({name, first});
  } else {
    cursor->next = first;
  }
}

bool Cursors::Has(uint32_t name) const { return std::ranges::find(cursors_, name, &Cursor::name) != cursors_.end(); }

Element Cursors::Next(uint32_t name) {
  const auto cursor = Find(name);
  if (cursor == cursors_.end()) return Element();
  const Element element = cursor->next;
  if (!element) {
    cursors_.erase(cursor);
    return element;
  }
  const Document& document = element.Owner();
  cursor->next = Element(document.FirstNamed(document.Next(element.node()), name));
  return element;
}

}  // namespace zevo
