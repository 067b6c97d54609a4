// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_COMPONENT_IDENTITIES_H_
#define ZEVO_COMPONENT_IDENTITIES_H_

#include <mutex>
#include <unordered_map>

namespace zevo::component {

/// Which face, as hosts see it, an object of the library has at present. It keeps neither of them alive: a face is
/// entered when it is made and removed when it ends, and holds its object in between.
class Identities {
 public:
  static Identities& OfThisProcess();

  Identities(const Identities&) = delete;
  Identities& operator=(const Identities&) = delete;

  /// Null when the object has none.
  void* Find(const void* object);
  void Add(const void* object, void* face);
  void Remove(const void* object) noexcept;

 private:
  Identities() = default;

  // Objects belong to one thread, but a host may release the last reference from another.
  std::mutex mutex_;
  std::unordered_map<const void*, void*> faces_;
};

}  // namespace zevo::component

#endif  // ZEVO_COMPONENT_IDENTITIES_H_
