// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>
#include <zevo/dal/LoadDocument.h>
#include <zevo/model/EntityKind.h>
#include <zevo/model/Options.h>
#include <zevo/model/Property.h>
#include <zevo/platform/LetterCase.h>

#include <cstdint>
#include <limits>
#include <map>
#include <memory>
#include <set>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "tests/model/RecordTable.h"
#include "tests/model/SchemaText.h"
#include "tests/support/Errors.h"
#include "tests/support/UseSchema.h"

namespace zevo {
namespace {

using testing::PropertyNamed;
using testing::PropertyRow;
using testing::RecordClass;
using testing::RecordClasses;
using testing::SchemaOf;
using testing::UseSchema;
using testing::UseSchemaText;

// As many two-byte characters as told.
std::string Characters(size_t count) {
  std::string text;
  while (count-- > 0) text.append("ã");
  return text;
}

// Values that differ from each other and from what a new record holds.
std::vector<PropertyValue> ValuesFor(const Property& property) {
  switch (property.type) {
    case PropertyType::kText:
      return {std::string("a"), std::string("A"), std::string(" a "), std::string()};
    case PropertyType::kAmount:
      return {Amount::FromScaled(1), Amount::FromScaled(std::numeric_limits<int64_t>::min()),
              Amount::FromScaled(std::numeric_limits<int64_t>::max()), Amount()};
    case PropertyType::kFlag:
      return {true, false};
    case PropertyType::kCount:
      return {1, std::numeric_limits<int32_t>::min(), std::numeric_limits<int32_t>::max(), 0};
    case PropertyType::kSingle:
      return {0.1F, -3.0e38F, 0.0F};
    case PropertyType::kCode:
      return {7, std::numeric_limits<int32_t>::min(), std::numeric_limits<int32_t>::max(), 51, 0};
    case PropertyType::kRecord:
      return {property.make(), property.make(), std::shared_ptr<Record>()};
    case PropertyType::kCollection:
      return {};
  }
  return {};
}

PropertyValue EmptyOf(PropertyType type) {
  switch (type) {
    case PropertyType::kAmount:
      return Amount();
    case PropertyType::kFlag:
      return false;
    case PropertyType::kCount:
    case PropertyType::kCode:
      return 0;
    case PropertyType::kSingle:
      return 0.0F;
    case PropertyType::kRecord:
      return std::shared_ptr<Record>();
    default:
      return std::string();
  }
}

std::string_view AttributeOf(Element element, std::string_view name) { return element.Attribute(name).value_or(""); }

// What the shipped schema makes of the texts of its elements. A name has one kind, wherever it is declared; letter case
// is not that of the properties everywhere.
class SchemaKinds {
 public:
  SchemaKinds() {
    for (const Element type : schema_->Root().Children()) {
      if (type.Name() == "simpleType") types_.emplace(AttributeOf(type, "name"), type);
    }
    AddElementsUnder(schema_->Root());
  }

  TextKind Of(std::string_view name) const {
    const auto found = kinds_.find(FoldCase(name));
    if (found == kinds_.end()) throw std::out_of_range("no element " + std::string(name));
    return found->second;
  }

 private:
  void AddElementsUnder(Element parent) {
    for (const Element child : parent.Children()) {
      if (child.Name() == "element" && child.Attribute("name")) Add(child);
      AddElementsUnder(child);
    }
  }

  void Add(Element element) {
    const Element ownType = schema_->FirstChild(element, "simpleType");
    const TextKind kind = ownType ? KindOf(ownType) : KindOf(AttributeOf(element, "type"));
    const auto [entry, isNew] = kinds_.emplace(FoldCase(AttributeOf(element, "name")), kind);
    if (!isNew && entry->second != kind) throw std::logic_error(entry->first + " is of two kinds");
  }

  TextKind KindOf(std::string_view type) const {
    if (type == "xs:date") return TextKind::kDate;
    if (type == "xs:dateTime") return TextKind::kDateTime;
    const auto found = types_.find(type);
    return found == types_.end() ? TextKind::kPlain : KindOf(found->second);
  }

  // A period is a whole number from 1 to 12, or to 16 with year-end entries.
  TextKind KindOf(Element simpleType) const {
    const Element restriction = schema_->FirstChild(simpleType, "restriction");
    const auto limit = [&](std::string_view name) {
      const Element facet = schema_->FirstChild(restriction, name);
      return facet ? AttributeOf(facet, "value") : "";
    };
    const std::string_view base = AttributeOf(restriction, "base");
    const bool ofMonths = limit("maxInclusive") == "12" || limit("maxInclusive") == "16";
    if (base == "xs:integer" && limit("minInclusive") == "1" && ofMonths) return TextKind::kPeriod;
    return KindOf(base);
  }

  std::unique_ptr<Document> schema_ = LoadDocument(ZEVO_SCHEMA_FILE, Indentation::kKept);
  std::map<std::string_view, Element> types_;
  std::map<std::string, TextKind> kinds_;
};

class PropertyTest : public ::testing::TestWithParam<RecordClass> {
 protected:
  // Goes through the properties that `wanted` chooses.
  template <class Wanted, class Visit>
  void ForEach(Wanted&& wanted, Visit&& visit) {
    for (const PropertyRow& row : GetParam().rows) {
      if (!wanted(row)) continue;
      SCOPED_TRACE(row.name);
      visit(row, PropertyNamed(GetParam().properties(), row.name));
    }
  }

  std::shared_ptr<Record> record_ = GetParam().make();
};

bool IsWritable(const PropertyRow& row) { return row.writable; }
bool IsChecked(const PropertyRow& row) { return !row.check.empty(); }
bool IsText(const PropertyRow& row) { return row.type == PropertyType::kText && row.writable; }
bool IsLimited(const PropertyRow& row) { return row.limit > 0; }
bool IsUnlimitedText(const PropertyRow& row) { return IsText(row) && row.limit == 0; }

INSTANTIATE_TEST_SUITE_P(EveryRecord, PropertyTest, ::testing::ValuesIn(RecordClasses().begin(), RecordClasses().end()),
                         [](const auto& info) { return std::string(info.param.name); });

TEST(RecordClassesTest, EveryKindOfEntityAndEveryChildHasAClass) {
  std::set<const Property*> tables;
  std::set<std::string_view> names;
  for (const RecordClass& recordClass : RecordClasses()) {
    tables.insert(recordClass.properties().data());
    names.insert(recordClass.name);
  }
  for (const EntityKind kind : EntityKinds()) EXPECT_TRUE(names.contains(NameOf(kind))) << NameOf(kind);
  for (const RecordClass& recordClass : RecordClasses()) {
    for (const Property& property : recordClass.properties()) {
      if (property.properties == nullptr) continue;
      EXPECT_TRUE(tables.contains(property.properties().data())) << recordClass.name << "." << property.name;
    }
  }
}

TEST_P(PropertyTest, TheTableHoldsNamesAndTypesInSlotOrder) {
  const auto properties = GetParam().properties();
  ASSERT_EQ(properties.size(), GetParam().rows.size());
  for (size_t i = 0; i < properties.size(); ++i) {
    const PropertyRow& row = GetParam().rows[i];
    EXPECT_EQ(properties[i].name, row.name);
    EXPECT_EQ(properties[i].type, row.type) << row.name;
    EXPECT_EQ(properties[i].set != nullptr, row.writable) << row.name;
  }
}

TEST_P(PropertyTest, ATextIsOfTheKindThatTheSchemaGivesItsElement) {
  static const SchemaKinds kSchema;
  for (const Property& property : GetParam().properties()) {
    const bool isText = property.type == PropertyType::kText;
    EXPECT_EQ(property.text_kind, isText ? kSchema.Of(property.name) : TextKind::kPlain) << property.name;
  }
}

TEST_P(PropertyTest, WhatWasNeverAssignedIsEmptyZeroFalseOrNull) {
  const auto startsEmpty = [](const PropertyRow& row) {
    const bool headerCurrency = GetParam().name == "Header" && row.name == "CurrencyCode";
    return row.writable && row.name != "DateCreated" && row.name != "Country" && !headerCurrency;
  };
  ForEach(startsEmpty, [&](const PropertyRow& row, const Property& property) {
    EXPECT_TRUE(property.get(*record_) == EmptyOf(row.type));
  });
}

TEST_P(PropertyTest, HoldsWhatIsAssigned) {
  ForEach(IsWritable, [&](const PropertyRow&, const Property& property) {
    for (const PropertyValue& value : ValuesFor(property)) {
      property.set(*record_, value);
      EXPECT_TRUE(property.get(*record_) == value);
      property.set(*record_, value);
      EXPECT_TRUE(property.get(*record_) == value);
    }
  });
}

TEST_P(PropertyTest, AssigningToOnePropertyLeavesTheOthersAlone) {
  const auto properties = GetParam().properties();
  const auto simple = [](const Property& property) { return property.get != nullptr; };
  for (const Property& assigned : properties) {
    if (assigned.set == nullptr) continue;
    const std::shared_ptr<Record> record = GetParam().make();
    std::vector<PropertyValue> before;
    for (const Property& other : properties) before.push_back(simple(other) ? other.get(*record) : PropertyValue());
    assigned.set(*record, ValuesFor(assigned).front());
    for (size_t i = 0; i < properties.size(); ++i) {
      if (!simple(properties[i]) || properties[i].name == assigned.name) continue;
      EXPECT_TRUE(properties[i].get(*record) == before[i]) << assigned.name << " changed " << properties[i].name;
    }
  }
}

TEST_P(PropertyTest, TextIsCutToTheLengthOfItsElementInCharacters) {
  const UseSchema schema;
  ForEach(IsLimited, [&](const PropertyRow& row, const Property& property) {
    property.set(*record_, Characters(row.limit));
    EXPECT_EQ(std::get<std::string>(property.get(*record_)), Characters(row.limit));
    property.set(*record_, std::string());
    property.set(*record_, Characters(row.limit + 1));
    EXPECT_EQ(std::get<std::string>(property.get(*record_)), Characters(row.limit));
  });
}

TEST_P(PropertyTest, TextWithoutALengthInTheSchemaStaysWhole) {
  const UseSchema schema;
  ForEach(IsUnlimitedText, [&](const PropertyRow&, const Property& property) {
    property.set(*record_, Characters(500));
    EXPECT_EQ(std::get<std::string>(property.get(*record_)), Characters(500));
  });
}

TEST_P(PropertyTest, NothingIsCutWhileValidationIsOff) {
  const UseSchema schema;
  Options().set_ValidateOnAssignment(false);
  ForEach(IsText, [&](const PropertyRow&, const Property& property) {
    property.set(*record_, Characters(500));
    EXPECT_EQ(std::get<std::string>(property.get(*record_)), Characters(500));
  });
}

TEST_P(PropertyTest, AnEqualValueIsNotCheckedAgain) {
  const UseSchema schema;
  Options().set_ValidateOnAssignment(false);
  ForEach(IsLimited, [&](const PropertyRow&, const Property& property) { property.set(*record_, Characters(500)); });
  Options().set_ValidateOnAssignment(true);
  ForEach(IsLimited, [&](const PropertyRow&, const Property& property) {
    property.set(*record_, Characters(500));
    EXPECT_EQ(std::get<std::string>(property.get(*record_)), Characters(500));
  });
}

// A length that is no number makes the very look-up fail, so it tells under which path a property is checked.
TEST_P(PropertyTest, IsCheckedUnderItsPathWhateverItsType) {
  ForEach(IsChecked, [&](const PropertyRow& row, const Property& property) {
    const PropertyValue before = property.get(*record_);
    const PropertyValue value = ValuesFor(property).front();
    const UseSchemaText schema(
        SchemaOf(testing::LimitedType("Broken", "many") + testing::ElementAt(GetParam().PathOf(row), "Broken")));
    EXPECT_ERROR(property.set(*record_, value), 13, "ZevoAdapters11");
    EXPECT_TRUE(property.get(*record_) == before);
    EXPECT_NO_THROW(property.set(*record_, before));
  });
}

TEST_P(PropertyTest, ACodeIsStoredAsGivenWithoutACheck) {
  const auto isCode = [](const PropertyRow& row) { return row.type == PropertyType::kCode; };
  ForEach(isCode, [&](const PropertyRow& row, const Property& property) {
    const std::string path = std::string(GetParam().path).append("/").append(row.name);
    const UseSchemaText schema(SchemaOf(testing::LimitedType("Broken", "many") + testing::ElementAt(path, "Broken") +
                                        testing::ElementAt("/" + std::string(row.name), "Broken")));
    property.set(*record_, 12345);
    EXPECT_EQ(std::get<int32_t>(property.get(*record_)), 12345);
  });
}

TEST_P(PropertyTest, AnOwnedRecordIsTheSameEachTimeAndNeverNull) {
  const auto isOwned = [](const PropertyRow& row) { return row.type == PropertyType::kRecord && !row.writable; };
  ForEach(isOwned, [&](const PropertyRow&, const Property& property) {
    const auto owned = std::get<std::shared_ptr<Record>>(property.get(*record_));
    ASSERT_NE(owned, nullptr);
    EXPECT_EQ(std::get<std::shared_ptr<Record>>(property.get(*record_)), owned);
    EXPECT_NE(std::get<std::shared_ptr<Record>>(property.get(*GetParam().make())), owned);
  });
}

TEST_P(PropertyTest, AnAssignedRecordIsHeldByReference) {
  const auto isShared = [](const PropertyRow& row) { return row.type == PropertyType::kRecord && row.writable; };
  ForEach(isShared, [&](const PropertyRow&, const Property& property) {
    std::shared_ptr<Record> assigned = property.make();
    const std::weak_ptr<Record> alive = assigned;
    property.set(*record_, assigned);
    assigned.reset();
    EXPECT_FALSE(alive.expired());
    property.set(*record_, std::shared_ptr<Record>());
    EXPECT_TRUE(alive.expired());
  });
}

TEST_P(PropertyTest, ACollectionStartsEmptyAndIsWalkedInOrder) {
  const auto isCollection = [](const PropertyRow& row) { return row.type == PropertyType::kCollection; };
  ForEach(isCollection, [&](const PropertyRow&, const Property& property) {
    EXPECT_EQ(property.count(*record_), 0);
    const std::shared_ptr<Record> item = property.make();
    property.add(*record_, item);
    EXPECT_EQ(property.count(*record_), 1);
    EXPECT_EQ(property.item(*record_, 1), item);
    EXPECT_FALSE(property.properties().empty());
  });
}

TEST_P(PropertyTest, ACodeKnowsItsTexts) {
  const auto isCode = [](const PropertyRow& row) { return row.type == PropertyType::kCode; };
  ForEach(isCode, [&](const PropertyRow&, const Property& property) { EXPECT_FALSE(property.codes().empty()); });
}

TEST(PropertyTableTest, ObjectsLeadToTheTableOfTheirClass) {
  const struct {
    std::string_view record, property, leads;
  } kRows[] = {
      {"Header", "CompanyAddress", "AddressOfNobody"},
      {"Customer", "BillingAddress", "AddressOfNobody"},
      {"Customer", "ShipToAddress", "AddressOfNobody"},
      {"Supplier", "ShipFromAddress", "AddressOfNobody"},
      {"TaxTable", "TaxTableEntry", "TaxTableEntry"},
      {"Transaction", "Line", "TransactionLine"},
      {"Invoice", "Line", "InvoiceLine"},
      {"Invoice", "DocumentTotals", "DocumentTotals"},
      {"Invoice", "ShipTo", "ShippingPointOfNobody"},
      {"InvoiceLine", "Tax", "Tax"},
      {"InvoiceLine", "References", "References"},
      {"InvoiceLine", "OrderReferences", "OrderReferences"},
      {"References", "CreditNote", "CreditNote"},
      {"DocumentTotals", "Settlement", "Settlement"},
      {"DocumentTotals", "CurrencyValue", "CurrencyStructure"},
  };
  const auto classNamed = [](std::string_view name) {
    for (const RecordClass& recordClass : RecordClasses()) {
      if (recordClass.name == name) return recordClass;
    }
    ADD_FAILURE() << name;
    return RecordClasses().front();
  };
  for (const auto& row : kRows) {
    const Property& property = PropertyNamed(classNamed(row.record).properties(), row.property);
    EXPECT_EQ(property.properties().data(), classNamed(row.leads).properties().data()) << row.property;
  }
}

}  // namespace
}  // namespace zevo
