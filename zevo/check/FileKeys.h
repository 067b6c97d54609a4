// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_CHECK_FILEKEYS_H_
#define ZEVO_CHECK_FILEKEYS_H_

#include <zevo/check/CompactKey.h>
#include <zevo/check/EntityFacts.h>
#include <zevo/check/KeptElement.h>
#include <zevo/check/KeySet.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

namespace zevo {

/// The keys of a file's entities, and what refers to them. Whether a key exists is known at the end of the file.
class FileKeys {
 public:
  /// What refers to a key.
  enum class Use : uint8_t { kCustomer, kSupplier, kProduct, kAccountOfLine, kAccountOfParty, kTransaction };

  /// Of uses without their key, so many of a kind are kept whole, of the rest the keys; 0 keeps all whole.
  explicit FileKeys(size_t mostKept);

  void Take(const EntityFacts& facts);
  /// Takes one whose key is not kept here: whether it is that of an entity before is known.
  void TakeKnown(bool repeated) {
    repeated_ = repeated;
    number_.reset();
  }
  /// Gives which one of its kind the entity with the key is, where the file has had it.
  std::optional<uint32_t> Add(Use use, const EntityFacts& facts, const TextFact& key);

  /// Whether the key of the entity that was taken last is that of an entity before it.
  bool IsRepeated() const { return repeated_; }
  /// The first of its kind with that key, counted from 0; nothing where it has none, or one that is not kept here.
  std::optional<uint32_t> Number() const { return number_; }
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
    std::vector<CompactKey> more;
  };
  static constexpr size_t kUses = static_cast<size_t>(Use::kTransaction) + 1;

  const KeySet& SetOf(EntityKind kind) const { return sets_[static_cast<size_t>(kind)]; }

  size_t most_kept_;
  std::array<KeySet, kEntityKinds> sets_;
  std::array<bool, kEntityKinds> complete_;
  std::array<bool, kEntityKinds> seen_{};
  std::array<Uses, kUses> uses_;
  bool repeated_ = false;
  std::optional<uint32_t> number_;
};

}  // namespace zevo

#endif  // ZEVO_CHECK_FILEKEYS_H_
