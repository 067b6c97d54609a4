// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/words/Meanings.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "tools/saft/columns/ColumnFacts.h"
#include "tools/saft/dataset/RecordColumns.h"
#include "tools/saft/dataset/RecordKind.h"

namespace zevo::saft {
namespace {

constexpr size_t kLongest = 80;  // bytes that a sentence takes in a table

template <class Action>
void ForEachColumn(Action&& action) {
  for (const RecordKind& kind : RecordKinds()) {
    if (kind.file.empty()) continue;
    const RecordColumns columns(kind);
    for (const RecordColumn& column : columns.Columns()) action(kind, column);
  }
}

TEST(MeaningsTest, EveryColumnHasOneInBothLanguages) {
  ForEachColumn([](const RecordKind& kind, const RecordColumn& column) {
    SCOPED_TRACE(std::string(kind.name) + "." + column.name);
    const Meaning* const meaning = MeaningOf(kind.name, column.name);
    ASSERT_NE(meaning, nullptr);
    for (const Language language : {Language::kEnglish, Language::kPortuguese}) {
      const std::string_view sentence = meaning->text.In(language);
      EXPECT_TRUE(sentence.ends_with('.'));
      EXPECT_GT(sentence.size(), 4U);
      EXPECT_LE(sentence.size(), kLongest);
    }
    EXPECT_NE(meaning->text.In(Language::kEnglish), meaning->text.In(Language::kPortuguese));
  });
}

TEST(MeaningsTest, NoRowIsLeftOver) {
  std::vector<const Meaning*> used;
  ForEachColumn(
      [&](const RecordKind& kind, const RecordColumn& column) { used.push_back(MeaningOf(kind.name, column.name)); });
  for (const Meaning& meaning : Meanings()) EXPECT_GT(std::ranges::count(used, &meaning), 0) << meaning.column;
}

TEST(MeaningsTest, ATextWithAPatternHasAnExampleAndNoOtherHas) {
  UseBuiltInSchema();
  const SchemaFacts schema;
  for (const RecordKind& kind : RecordKinds()) {
    if (kind.file.empty()) continue;
    for (const ColumnFacts& column : FactsOf(kind, schema)) {
      const Meaning* const meaning = MeaningOf(kind.name, column.name);
      ASSERT_NE(meaning, nullptr);
      EXPECT_EQ(meaning->example.empty(), column.pattern.empty()) << kind.name << "." << column.name;
    }
  }
}

TEST(MeaningsTest, AColumnThatIsNotThereHasNone) {
  EXPECT_EQ(MeaningOf("Customer", "City"), nullptr);
  EXPECT_EQ(MeaningOf("Customer", ""), nullptr);
  EXPECT_EQ(MeaningOf("", "CustomerID"), nullptr);
  EXPECT_EQ(MeaningOf("Supplier", "CustomerID"), nullptr);
}

}  // namespace
}  // namespace zevo::saft
