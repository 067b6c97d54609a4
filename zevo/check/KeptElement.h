// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_CHECK_KEPTELEMENT_H_
#define ZEVO_CHECK_KEPTELEMENT_H_

#include <zevo/FilePlace.h>
#include <zevo/check/EntityFacts.h>
#include <zevo/model/EntityKind.h>

#include <optional>
#include <string>
#include <string_view>

namespace zevo {

/// An element of an entity, as findings name it. A fact leads to it; of one that is missing, to where it would stand.
struct ElementSpot {
  uint32_t element = 0;  // the one around it where it is missing
  std::string_view missing = {};

  ElementSpot() = default;
  ElementSpot(uint32_t at, std::string_view missing_there) : element(at), missing(missing_there) {}
  template <class T>
  // NOLINTNEXTLINE(google-explicit-constructor): a fact stands for its element.
  ElementSpot(const Fact<T>& fact) : element(fact.element) {}
  // NOLINTNEXTLINE(google-explicit-constructor)
  ElementSpot(const GroupFacts& group) : element(group.element) {}
};

/// An element that is told of when its entity is gone.
struct KeptElement {
  std::optional<EntityKind> kind;
  std::string key;
  std::string path;
  FilePlace place;
  std::string text;
};

KeptElement Keep(const EntityFacts& facts, const ElementSpot& spot);

/// Whether rules may tell of an element that a violation is of, by its path. Of attributes they tell nothing, and of
/// elements that are there too often only of the first.
bool MayBeToldByRules(std::string_view path);

}  // namespace zevo

#endif  // ZEVO_CHECK_KEPTELEMENT_H_
