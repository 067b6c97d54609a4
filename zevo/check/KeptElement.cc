// SPDX-License-Identifier: Apache-2.0
#include <zevo/check/KeptElement.h>

#include <algorithm>
#include <array>
#include <cstddef>

namespace zevo {
namespace {

// Those of which the schema allows several in an entity.
constexpr std::array<std::string_view, 3> kCounted{"Line", "OrderReferences", "TaxTableEntry"};

bool IsCounted(std::string_view name) { return std::ranges::find(kCounted, name) != kCounted.end(); }

// The path as violations have it: elements of which there may be several are counted also where there is one.
std::string CountedPath(std::string_view path) {
  std::string counted;
  while (!path.empty()) {
    const std::string_view step = path.substr(0, path.find('/'));
    counted.append(counted.empty() ? "" : "/").append(step);
    if (IsCounted(step)) counted.append("[1]");
    path.remove_prefix(std::min(path.size(), step.size() + 1));
  }
  return counted;
}

}  // namespace

KeptElement Keep(const EntityFacts& facts, const ElementSpot& spot) {
  const ScannedEntity& entity = *facts.entity;
  KeptElement kept{.kind = facts.Kind(),
                   .key = std::string(facts.key.value),
                   .path = CountedPath(entity.PathOf(spot.element)),
                   .place = entity.PlaceOf(spot.element),
                   .text = {}};
  if (spot.missing.empty()) {
    kept.text = entity.TextOf(spot.element);
  } else {
    kept.path.append(kept.path.empty() ? "" : "/").append(spot.missing);
  }
  return kept;
}

bool MayBeToldByRules(std::string_view path) {
  const std::string_view step = path.substr(path.rfind('/') + 1);
  const size_t name = std::min(step.find('['), step.size());
  const bool first = name == step.size() || step.substr(name) == "[1]";
  return !step.starts_with('@') && (first || IsCounted(step.substr(0, name)));
}

}  // namespace zevo
