// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_DAL_CURSORS_H_
#define ZEVO_DAL_CURSORS_H_

#include <zevo/platform/Document.h>

#include <cstdint>
#include <vector>

namespace zevo {

/// Walks over the children of one local name, told by its number in their document; one for each name at most.
class Cursors {
 public:
  /// Begins a walk at the first child of a name, in place of an unfinished one.
  void Begin(uint32_t name, Element first);
  bool Has(uint32_t name) const;
  /// The element at which the walk stands; the walk then moves to the next. Nothing at the end, where the walk is
  /// forgotten, or without a walk.
  Element Next(uint32_t name);
  void Clear() { cursors_.clear(); }

 private:
  struct Cursor {
    uint32_t name;
    Element next;
  };
  std::vector<Cursor>::iterator Find(uint32_t name);

  std::vector<Cursor> cursors_;
};

}  // namespace zevo

#endif  // ZEVO_DAL_CURSORS_H_
