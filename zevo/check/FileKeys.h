// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_CHECK_FILEKEYS_H_
#define ZEVO_CHECK_FILEKEYS_H_

#include <zevo/check/EntityFacts.h>
#include <zevo/check/KeptElement.h>
#include <zevo/check/KeySet.h>

#include <array>
#include <cstddef>
#include <vector>

namespace zevo {

/// The keys of a file's entities, and what refers to them. Whether a key exists is known at the end of the file.
class FileKeys {
 public:
  /// What refers to a key.
  enum class Use : uint8_t { kCustomer, kSupplier, kProduct, kAccountOfLine, kAccountOfParty, kTransaction };

  /// Of uses without their key, so many of a kind are kept whole, the rest as digests; 0 keeps all whole.
  explicit FileKeys(size_t mostKept);

  void Take(const EntityFacts& facts);
  /// Takes one whose key is not kept here: whether it is that of an entity before is known.
  void TakeKnown(bool repeated) { repeated_ = repeated; }
  void Add(Use use, const EntityFacts& facts, const TextFact& key);

  /// Whether the key of the entity that was taken last is that of an entity before it.
  bool IsRepeated() const { return repeated_; }
  bool Has(EntityKind kind, std::string_view key) const { return SetOf(kind).Has(key); }
  size_t CountOf(EntityKind kind) const { return SetOf(kind).Count(); }
  /// Whether the file has any accounts, customers, suppliers, products or tax tables.
  bool HasMasterFiles() const;
  /// Whether each entity of the kind had its key. Otherwise what refers to one may mean one that has none.
  bool IsComplete(EntityKind kind) const { return complete_[static_cast<size_t>(kind)]; }

  /// Uses of keys that no entity has: those that are kept, in the order of the file, and how many more there are.
  struct Dangling {
    std::vector<const KeptElement*> kept;
    size_t more = 0;
    bool none = false;  ///< the file has no entity that they might mean
  };
  Dangling DanglingOf(Use use) const;

 private:
  struct Uses {
    std::vector<KeptElement> kept;
    std::vector<Digest> digests;  // of the others
  };
  static constexpr size_t kUses = static_cast<size_t>(Use::kTransaction) + 1;

  const KeySet& SetOf(EntityKind kind) const { return sets_[static_cast<size_t>(kind)]; }

  size_t most_kept_;
  std::array<KeySet, kEntityKinds> sets_;
  std::array<bool, kEntityKinds> complete_;
  std::array<bool, kEntityKinds> seen_{};
  std::array<Uses, kUses> uses_;
  bool repeated_ = false;
};

}  // namespace zevo

#endif  // ZEVO_CHECK_FILEKEYS_H_
