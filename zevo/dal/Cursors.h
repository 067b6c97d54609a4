// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_DAL_CURSORS_H_
#define ZEVO_DAL_CURSORS_H_

#include <zevo/platform/Document.h>

#include <string>
#include <string_view>
#include <vector>

namespace zevo {

/// Walks over the children of one name, one for each name at most.
class Cursors {
 public:
  /// Begins a walk at the first child of a name, in place of an unfinished one.
  void Begin(std::string_view name, Element first);
  bool Has(std::string_view name) const;
  /// The element at which the walk stands; the walk then moves to the next. Nothing at the end, where the walk is
  /// forgotten, or without a walk.
  Element Next(std::string_view name);
  void Clear() { cursors_.clear(); }

 private:
  struct Cursor {
    std::string name;
    Element next;
  };
  std::vector<Cursor>::iterator Find(std::string_view name);

  std::vector<Cursor> cursors_;
};

}  // namespace zevo

#endif  // ZEVO_DAL_CURSORS_H_
