// SPDX-License-Identifier: Apache-2.0
#include <zevo/check/KeptElement.h>

namespace zevo {

KeptElement Keep(const EntityFacts& facts, const ElementSpot& spot) {
  const ScannedEntity& entity = *facts.entity;
  KeptElement kept{.kind = facts.Kind(),
                   .key = std::string(facts.key.value),
                   .path = entity.PathOf(spot.element),
                   .place = entity.PlaceOf(spot.element),
                   .text = {}};
  if (spot.missing.empty()) {
    kept.text = entity.TextOf(spot.element);
  } else {
    kept.path.append(kept.path.empty() ? "" : "/").append(spot.missing);
  }
  return kept;
}

}  // namespace zevo
