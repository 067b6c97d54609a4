// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/columns/ColumnFacts.h"

#include <algorithm>
#include <memory>
#include <span>
#include <utility>

#include "tools/saft/columns/PatternTexts.h"
#include "tools/saft/dataset/RecordColumns.h"

namespace zevo::saft {
namespace {

const Property& PropertyNamed(std::string_view name, const Record& record) {
  return *std::ranges::find(PropertiesOf(record), name, &Property::name);
}

bool FitsLength(const ElementFacts& facts, std::string_view text) {
  const auto length = static_cast<int64_t>(CharactersIn(text));
  return length >= facts.min_length.value_or(0) && length <= facts.max_length.value_or(INT32_MAX);
}

/// The values that an element may have, as far as they can be listed.
PatternTexts ValuesOf(const ElementFacts& facts) {
  if (facts.fixed) return {.texts = {*facts.fixed}};
  if (!facts.values.empty()) return {.texts = facts.values};
  if (facts.patterns.empty()) return {.texts = {}, .others = true};
  PatternTexts values = TextsOf(facts.patterns.front());
  std::erase_if(values.texts, [&](const std::string& text) { return !FitsLength(facts, text); });
  return values;
}

bool IsWithin(const ElementFacts& facts, std::string_view text) {
  const auto number = Decimal::FromText(text);
  const auto least = Decimal::FromText(facts.least);
  const auto greatest = Decimal::FromText(facts.greatest);
  return (!least || (number && !(*number < *least))) && (!greatest || (number && !(*greatest < *number)));
}

// Whether an element is valid with the text that a new record gives it. A text that only a pattern could tell is not
// taken to be.
bool Takes(const ElementFacts& facts, const std::string& text) {
  if (text.empty() && facts.fixed) return true;
  if (text.empty() && facts.type != "string") return false;
  if (!FitsLength(facts, text) || !IsWithin(facts, text)) return false;
  const PatternTexts values = ValuesOf(facts);
  const bool listed = facts.fixed || !facts.values.empty() || !facts.patterns.empty();
  return !listed || std::ranges::find(values.texts, text) != values.texts.end();
}

ValueType TypeOf(const Property* property, const ElementFacts& facts, bool fewCodes) {
  switch (property == nullptr ? PropertyType::kText : property->type) {
    case PropertyType::kAmount:
    case PropertyType::kSingle:
      return ValueType::kAmount;
    case PropertyType::kFlag:
      return ValueType::kFlag;
    case PropertyType::kCount:
      return ValueType::kWholeNumber;
    case PropertyType::kCode:
      return ValueType::kCode;
    default:
      break;
  }
  const TextKind kind = property == nullptr ? TextKind::kPlain : property->text_kind;
  if (kind == TextKind::kDate) return ValueType::kDate;
  if (kind == TextKind::kDateTime) return ValueType::kDateAndTime;
  if (facts.type == "integer") return ValueType::kWholeNumber;
  return fewCodes ? ValueType::kCode : ValueType::kText;
}

class FactsFinder {
 public:
  FactsFinder(const RecordKind& kind, const SchemaFacts& schema) : kind_(kind), schema_(schema), columns_(kind) {}

  std::vector<ColumnFacts> Find() {
    facts_.resize(columns_.Columns().size());
    AddParents();
    const std::shared_ptr<Record> record = kind_.make();
    std::string path(PathOf(kind_.entity));
    if (!kind_.path.empty()) path.append("/").append(kind_.path);
    Add(columns_.Elements(), *record, path, {}, {});
    const std::string_view key = KeyColumn();
    for (ColumnFacts& column : facts_) {
      if (column.name != key) continue;
      column.needed = Needed::kYes;
      column.preset.clear();
    }
    return std::move(facts_);
  }

 private:
  // The identifiers of what the record belongs to are in other elements.
  void AddParents() {
    const EntityKind owner = kind_.path.empty() ? ParentOf(kind_.entity).value_or(kind_.entity) : kind_.entity;
    std::string path(PathOf(owner));
    for (size_t i = 0; i < kind_.Parents(); ++i) {
      const std::string name(kind_.parents[i]);
      Describe(facts_[i], nullptr, schema_.Of(std::string(path).append("/").append(name)).value_or(ElementFacts()));
      facts_[i].name = name;
      facts_[i].needed = Needed::kYes;
      path.append("/").append(kind_.path.substr(0, kind_.path.find('/')));
    }
  }

  // "saft create" finds records by it, so that there must be such a column.
  std::string_view KeyColumn() const {
    if (kind_.path.empty()) return KeyOf(kind_.entity);
    std::shared_ptr<Record> owner;
    for (const RecordKind& each : RecordKinds()) {
      if (each.entity == kind_.entity && each.path.empty()) owner = each.make();
    }
    if (!owner) return {};
    std::string_view key;
    for (std::string_view left = kind_.path; !left.empty();) {
      const std::string_view name = left.substr(0, left.find('/'));
      left.remove_prefix(std::min(name.size() + 1, left.size()));
      const Property& property = PropertyNamed(name, *owner);
      key = property.key;
      owner = property.make();
    }
    return key;
  }

  // `prefix` is what the names of the columns begin with, `group` the innermost record around that may be absent.
  void Add(std::span<const ListedElement> elements, const Record& record, const std::string& path,
           const std::string& prefix, const std::string& group) {
    for (const ListedElement& element : elements) {
      const std::string inside = path + "/" + std::string(element.name);
      const Property& property = PropertyNamed(element.property, record);
      const std::string column = prefix + std::string(property.name);
      if (element.is == ListedElement::kCell) {
        AddColumn(column, facts_[element.column], property, record, schema_.Of(inside).value_or(ElementFacts()), group);
      } else if (element.is == ListedElement::kRecord) {
        const bool owned = property.set == nullptr;
        const auto child = owned ? std::get<std::shared_ptr<Record>>(property.get(record)) : property.make();
        Add(element.children, *child, inside, column + ".", owned ? group : column);
      }
    }
  }

  void AddColumn(const std::string& name, ColumnFacts& column, const Property& property, const Record& record,
                 const ElementFacts& element, const std::string& group) {
    const WrittenForm form = WrittenFormOf(record, property.name).value_or(WrittenForm());
    column.name = name;
    Describe(column, &property, element);
    const std::string text = TextFromValue(property, property.get(record));
    const bool constant = property.set == nullptr;
    if (constant) {
      column.type = ValueType::kCode;
      column.codes = {text};
      column.pattern.clear();
    }
    const bool fits = constant || Takes(element, text);
    if (fits) column.preset = text.empty() ? element.fixed.value_or("") : text;
    if (!form.partner.empty()) {
      column.partner = name.substr(0, name.size() - property.name.size()).append(form.partner);
      if (element.required) column.needed = Needed::kOr;
    } else if ((element.required || form.always) && !fits) {
      column.needed = group.empty() ? Needed::kYes : Needed::kWith;
      column.group = group;
    }
  }

  static void Describe(ColumnFacts& column, const Property* property, const ElementFacts& element) {
    PatternTexts values = ValuesOf(element);
    if (property != nullptr && property->type == PropertyType::kCode) {
      for (const Code& code : property->codes()) column.codes.emplace_back(code.text);
    } else {
      column.codes = std::move(values.texts);
    }
    column.type = TypeOf(property, element, !values.others);
    column.max_length = element.max_length;
    column.least = element.least;
    column.greatest = element.greatest;
    if (values.others && !element.patterns.empty()) column.pattern = element.patterns.front();
  }

  const RecordKind& kind_;
  const SchemaFacts& schema_;
  RecordColumns columns_;
  std::vector<ColumnFacts> facts_;
};

}  // namespace

std::vector<ColumnFacts> FactsOf(const RecordKind& kind, const SchemaFacts& schema) {
  return FactsFinder(kind, schema).Find();
}

}  // namespace zevo::saft
