// SPDX-License-Identifier: Apache-2.0
#include <zevo/check/FileKeys.h>

#include <algorithm>

namespace zevo {
namespace {

// What has to have the key, in the order of the uses.
constexpr std::array kTargets{EntityKind::kCustomer,      EntityKind::kSupplier,      EntityKind::kProduct,
                              EntityKind::kGeneralLedger, EntityKind::kGeneralLedger, EntityKind::kTransaction};

EntityKind TargetOf(FileKeys::Use use) { return kTargets[static_cast<size_t>(use)]; }

}  // namespace

FileKeys::FileKeys(size_t mostKept) : most_kept_(mostKept) { complete_.fill(true); }

void FileKeys::Take(const EntityFacts& facts) {
  TakeKnown(false);
  seen_[static_cast<size_t>(facts.Kind())] = true;
  if (KeyOf(facts.Kind()).empty()) return;
  const auto kind = static_cast<size_t>(facts.Kind());
  if (facts.key.Missing()) {
    complete_[kind] = false;
  } else {
    KeySet& keys = sets_[kind];
    repeated_ = !keys.Add(*facts.key);
    number_ = repeated_ ? keys.Find(*facts.key) : keys.Count() - 1;
  }
}

std::optional<uint32_t> FileKeys::Add(Use use, const EntityFacts& facts, const TextFact& key) {
  if (key.Missing()) return std::nullopt;
  const CompactKey compact(*key);
  if (const auto found = SetOf(TargetOf(use)).Find(compact)) return found;
  Uses& uses = uses_[static_cast<size_t>(use)];
  if (most_kept_ == 0 || uses.kept.size() < most_kept_) {
    uses.kept.push_back(Keep(facts, key));
  } else {
    uses.more.push_back(compact);
  }
  return std::nullopt;
}

bool FileKeys::HasMasterFiles() const {
  constexpr std::array kMasterFiles{EntityKind::kGeneralLedger, EntityKind::kCustomer, EntityKind::kSupplier,
                                    EntityKind::kProduct, EntityKind::kTaxTable};
  return std::ranges::any_of(kMasterFiles, [this](EntityKind kind) { return seen_[static_cast<size_t>(kind)]; });
}

FileKeys::Dangling FileKeys::DanglingOf(Use use) const {
  Dangling dangling;
  const EntityKind target = TargetOf(use);
  if (!IsComplete(target)) return dangling;
  dangling.none = !seen_[static_cast<size_t>(target)];
  const Uses& uses = uses_[static_cast<size_t>(use)];
  for (const KeptElement& kept : uses.kept) {
    if (!Has(target, kept.text)) dangling.kept.push_back(&kept);
  }
  for (const CompactKey& key : uses.more) {
    if (!SetOf(target).Has(key)) ++dangling.more;
  }
  return dangling;
}

}  // namespace zevo
