// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/list/RowPrinter.h"

#include <algorithm>
#include <nlohmann/json.hpp>
#include <optional>
#include <string_view>
#include <utility>

#include "tools/saft/dataset/CellText.h"
#include "tools/saft/input/ScannedElements.h"

namespace zevo::saft {
namespace {

using Json = nlohmann::ordered_json;

}  // namespace

CsvPrinter::CsvPrinter(const RecordColumns& columns, const std::vector<size_t>& places, std::ostream& out, CsvForm form)
    : csv_(out, form) {
  for (const size_t place : places) {
    const RecordColumn& column = columns.Columns()[place];
    columns_.push_back({place, CellKindOf(column.property)});
    csv_.Add(column.name, CellKind::kText);
  }
  csv_.EndRow();
}

void CsvPrinter::Print(const Row& row) {
  for (const auto& [place, kind] : columns_) {
    const std::string_view text = row.cells[place].value_or(std::string_view());
    csv_.Add(text, kind == CellKind::kNumber && !Decimal::FromText(text) ? CellKind::kText : kind);
  }
  csv_.EndRow();
}

JsonPrinter::JsonPrinter(const RecordColumns& columns, const std::vector<size_t>& places, std::ostream& out)
    : columns_(columns), wanted_(columns.Columns().size()), out_(out) {
  for (const size_t place : places) wanted_[place] = true;
  all_ = std::ranges::find(wanted_, false) == wanted_.end();
}

void JsonPrinter::Print(const Row& row) {
  Json json = Json::object();
  for (size_t i = 0; i < row.cells.size() && columns_.Columns()[i].property == nullptr; ++i) {
    if (wanted_[i]) json[columns_.Columns()[i].name] = row.cells[i] ? Json(*row.cells[i]) : Json();
  }
  json.update(ObjectOf(row, row.element, columns_.Elements(), false));
  out_ << json.dump() << '\n';
}

bool JsonPrinter::IsWanted(const ListedElement& element) const {
  switch (element.is) {
    case ListedElement::kCell:
      return wanted_[element.column];
    case ListedElement::kRecord:
      return all_ || std::ranges::any_of(element.children, [this](const auto& child) { return IsWanted(child); });
    case ListedElement::kList:
      return all_;
  }
  return false;
}

// Inside a list everything is wanted.
Json JsonPrinter::ObjectOf(const Row& row, size_t element, std::span<const ListedElement> children,
                           bool isListed) const {
  Json object = Json::object();
  const auto isWanted = [&](const ListedElement& child) { return isListed || IsWanted(child); };
  for (const ListedElement& child : children) {
    if (isWanted(child)) object[child.property] = child.is == ListedElement::kList ? Json::array() : Json();
  }
  ListedElements listed(children);
  ForEachChild(row.elements, element, [&](size_t inside) {
    const ListedElement* const child = listed.Find(row.elements[inside].name);
    if (child == nullptr || !isWanted(*child)) return;
    Json& value = object[child->property];
    if (child->is == ListedElement::kList) {
      value.push_back(ObjectOf(row, inside, child->children, true));
    } else if (value.is_null()) {
      value = child->is == ListedElement::kRecord ? ObjectOf(row, inside, child->children, isListed)
                                                  : Json(Trimmed(row.elements[inside].text));
    }
  });
  return object;
}

}  // namespace zevo::saft
