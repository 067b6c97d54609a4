// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_MODEL_KEYLIST_H_
#define ZEVO_MODEL_KEYLIST_H_

#include <zevo/Api.h>
#include <zevo/TextHash.h>

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace zevo {

/// The keys of a collection's items, in the order of the items. Keys differ when they differ in more than letter case.
class ZEVO_API KeyList {
 public:
  KeyList();
  ~KeyList();

  /// Appends a key. Raises error 457 when it is there already, and changes nothing.
  void Add(std::string_view key);
  /// Appends a key that may be there already, and tells whether it was new. Of equal keys the first is found.
  bool Append(std::string_view key);
  /// 0-based place of the key. Raises error 5 when it is unknown.
  size_t Find(std::string_view key) const;
  /// Removes the key at a 0-based place, which must exist; later ones move up.
  void RemoveAt(size_t place);
  /// Removes all keys.
  void Clear();

 private:
  static constexpr size_t kUnknown = static_cast<size_t>(-1);
  size_t PlaceOf(std::string_view folded) const;
  void AppendFolded(std::string folded);

  std::vector<std::string> folded_;
  // Built when the list outgrows what is quicker to search through, dropped when places move.
  mutable TextMap<size_t> places_;
};

}  // namespace zevo

#endif  // ZEVO_MODEL_KEYLIST_H_
