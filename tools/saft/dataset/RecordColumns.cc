// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/dataset/RecordColumns.h"

#include <algorithm>
#include <memory>
#include <utility>

#include "tools/saft/errors/Failure.h"
#include "tools/saft/errors/NearestName.h"
#include "tools/saft/terminal/VisibleText.h"
#include "tools/saft/words/DatasetWords.h"

namespace zevo::saft {
namespace {

using WrittenProperty = std::pair<WrittenForm, const Property*>;

std::vector<WrittenProperty> InOrderOfTheFile(const Record& record) {
  std::vector<WrittenProperty> written;
  for (const Property& property : PropertiesOf(record)) {
    if (const auto form = WrittenFormOf(record, property.name)) written.emplace_back(*form, &property);
  }
  std::ranges::sort(written, {}, [](const WrittenProperty& each) { return each.first.position; });
  return written;
}

}  // namespace

RecordColumns::RecordColumns(const RecordKind& kind) : kind_(kind) {
  for (size_t i = 0; i < kind.Parents(); ++i) columns_.push_back({std::string(kind.parents[i]), nullptr});
  elements_ = ElementsOf(*kind.make(), std::string(kind.path), {}, true);
}

// `cells` is false inside a list, whose items are records of another kind.
std::vector<ListedElement> RecordColumns::ElementsOf(const Record& record, const std::string& elementPath,
                                                     const std::string& columnPath, bool cells) {
  std::vector<ListedElement> elements;
  for (const auto& [form, written] : InOrderOfTheFile(record)) {
    const Property& property = *written;
    ListedElement element{.name = form.element, .property = property.name, .is = ListedElement::kCell};
    const std::string column = columnPath + std::string(property.name);
    if (IsPlain(property)) {
      element.column = columns_.size();
      if (cells) columns_.push_back({column, &property});
    } else {
      std::string path = elementPath;
      if (!path.empty()) path += '/';
      path.append(element.name);
      const bool other = &RecordKindAt(kind_.entity, path) != &RecordKindAt(kind_.entity, elementPath);
      element.is = other ? ListedElement::kList : ListedElement::kRecord;
      element.children = ElementsOf(*property.make(), path, column + ".", cells && !other);
    }
    elements.push_back(std::move(element));
  }
  return elements;
}

size_t RecordColumns::PlaceOf(std::string_view column) const {
  const auto found = std::ranges::find(columns_, column, &RecordColumn::name);
  if (found != columns_.end()) return static_cast<size_t>(found - columns_.begin());
  throw Failure(Say(words::kNoColumn, kind_.name, Quoted(column)) + DidYouMean(column, columns_, &RecordColumn::name));
}

}  // namespace zevo::saft
