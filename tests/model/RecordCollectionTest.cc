// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>
#include <zevo/adapters.h>

#include <limits>
#include <memory>
#include <string>
#include <vector>

#include "tests/support/Errors.h"
#include "tests/support/ProcessorTime.h"

namespace zevo {
namespace {

// How each collection's items are made to carry a number as their key. Entries of a tax table carry none.
struct Lines {
  using Collection = LineCollection;
  static auto Item(int number) {
    auto item = std::make_shared<TransactionLine>();
    item->set_RecordID("L" + std::to_string(number));
    return item;
  }
  static std::string Key(int number) { return "L" + std::to_string(number); }
};
struct InvoiceLines {
  using Collection = InvoiceLineCollection;
  static auto Item(int number) {
    auto item = std::make_shared<InvoiceLine>();
    item->set_LineNumber(number);
    return item;
  }
  static std::string Key(int number) { return std::to_string(number); }
};
struct CreditNotes {
  using Collection = CreditNoteCollection;
  static auto Item(int number) {
    auto item = std::make_shared<CreditNote>();
    item->set_Reference("FT A/" + std::to_string(number));
    return item;
  }
  static std::string Key(int number) { return "ft a/" + std::to_string(number); }
};
struct TaxEntries {
  using Collection = TaxTableEntryCollection;
  static auto Item(int number) {
    auto item = std::make_shared<TaxTableEntry>();
    item->set_TaxCode(std::to_string(number));
    return item;
  }
};

template <class Traits>
class RecordCollectionContract : public ::testing::Test {
 protected:
  using Item = std::shared_ptr<typename Traits::Collection::ItemType>;

  // Adds items with the numbers 1, 2 and so on.
  void Fill(int count) {
    for (int number = 1; number <= count; ++number) {
      items_.push_back(Traits::Item(number));
      collection_.Add(items_.back());
    }
  }
  void ExpectHolds(const std::vector<Item>& items) const {
    EXPECT_EQ(std::vector<Item>(collection_.begin(), collection_.end()), items);
    ASSERT_EQ(collection_.Count(), static_cast<int32_t>(items.size()));
    for (size_t i = 0; i < items.size(); ++i) EXPECT_EQ(collection_.Item(static_cast<int32_t>(i) + 1), items[i]);
  }

  typename Traits::Collection collection_;
  std::vector<Item> items_;
};
using AllCollections = ::testing::Types<Lines, InvoiceLines, CreditNotes, TaxEntries>;
TYPED_TEST_SUITE(RecordCollectionContract, AllCollections);

template <class Traits>
using KeyedCollectionContract = RecordCollectionContract<Traits>;
using KeyedCollections = ::testing::Types<Lines, InvoiceLines, CreditNotes>;
TYPED_TEST_SUITE(KeyedCollectionContract, KeyedCollections);

TYPED_TEST(RecordCollectionContract, StartsEmpty) {
  this->ExpectHolds({});
  EXPECT_EQ(this->collection_.begin(), this->collection_.end());
}

TYPED_TEST(RecordCollectionContract, KeepsTheOrderInWhichItemsWereAdded) {
  this->Fill(20);
  this->ExpectHolds(this->items_);
}

TYPED_TEST(RecordCollectionContract, LaterItemsMoveUpWhenOneIsRemoved) {
  this->Fill(20);
  for (const int position : {20, 7, 1}) {
    this->collection_.Remove(position);
    this->items_.erase(this->items_.begin() + position - 1);
    this->ExpectHolds(this->items_);
  }
}

TYPED_TEST(RecordCollectionContract, APositionOutOfRangeFailsAndChangesNothing) {
  this->Fill(2);
  for (const int position : {0, -1, 3, std::numeric_limits<int32_t>::max(), std::numeric_limits<int32_t>::min()}) {
    EXPECT_ERROR(this->collection_.Item(position), 9, "ZevoAdapters11");
    EXPECT_ERROR(this->collection_.Remove(position), 9, "ZevoAdapters11");
  }
  this->ExpectHolds(this->items_);
  this->collection_.Clear();
  EXPECT_ERROR(this->collection_.Item(1), 9, "ZevoAdapters11");
}

TYPED_TEST(RecordCollectionContract, AnUnknownKeyFailsAndChangesNothing) {
  this->Fill(2);
  for (const std::string_view key : {"", "3", "L3", "outra"}) {
    EXPECT_ERROR(this->collection_.Item(key), 5, "ZevoAdapters11");
    EXPECT_ERROR(this->collection_.Remove(key), 5, "ZevoAdapters11");
  }
  this->ExpectHolds(this->items_);
}

TYPED_TEST(RecordCollectionContract, ANullItemIsAnInvalidCall) {
  this->Fill(1);
  EXPECT_ERROR(this->collection_.Add(nullptr), 5, "ZevoAdapters11");
  this->ExpectHolds(this->items_);
}

TYPED_TEST(RecordCollectionContract, ClearRemovesEveryItemAndDoesNothingOnAnEmptyList) {
  this->collection_.Clear();
  this->ExpectHolds({});
  this->Fill(20);
  this->collection_.Clear();
  this->ExpectHolds({});
  this->collection_.Clear();
  this->items_.clear();
  this->Fill(3);
  this->ExpectHolds(this->items_);
}

TYPED_TEST(RecordCollectionContract, ItemsLiveAsLongAsTheyAreInTheList) {
  auto item = TypeParam::Item(1);
  const std::weak_ptr alive = item;
  this->collection_.Add(item);
  item.reset();
  EXPECT_FALSE(alive.expired());
  this->collection_.Remove(1);
  EXPECT_TRUE(alive.expired());
}

TYPED_TEST(KeyedCollectionContract, AKeyFindsItsItemHoweverManyThereAre) {
  this->Fill(20);
  for (int number = 1; number <= 20; ++number) {
    EXPECT_EQ(this->collection_.Item(TypeParam::Key(number)), this->items_[static_cast<size_t>(number) - 1]);
  }
}

TYPED_TEST(KeyedCollectionContract, ATakenKeyFailsAndChangesNothing) {
  for (const int count : {2, 20}) {
    this->collection_.Clear();
    this->items_.clear();
    this->Fill(count);
    EXPECT_ERROR(this->collection_.Add(TypeParam::Item(2)), 457, "ZevoAdapters11");
    this->ExpectHolds(this->items_);
    EXPECT_EQ(this->collection_.Item(TypeParam::Key(2)), this->items_[1]);
  }
}

TYPED_TEST(KeyedCollectionContract, TheSameItemCannotBeAddedTwiceToOneListButToTwo) {
  this->Fill(1);
  EXPECT_ERROR(this->collection_.Add(this->items_[0]), 457, "ZevoAdapters11");
  typename TypeParam::Collection other;
  other.Add(this->items_[0]);
  EXPECT_EQ(other.Item(TypeParam::Key(1)), this->items_[0]);
}

TYPED_TEST(KeyedCollectionContract, AnItemIsRemovedByItsKey) {
  this->Fill(20);
  for (const int number : {5, 20, 1}) {
    this->collection_.Remove(TypeParam::Key(number));
    EXPECT_ERROR(this->collection_.Item(TypeParam::Key(number)), 5, "ZevoAdapters11");
  }
  EXPECT_EQ(this->collection_.Count(), 17);
  EXPECT_EQ(this->collection_.Item(1), this->items_[1]);
  EXPECT_EQ(this->collection_.Item(TypeParam::Key(6)), this->items_[5]);
}

TYPED_TEST(KeyedCollectionContract, ARemovedKeyCanBeAddedAgain) {
  this->Fill(3);
  this->collection_.Remove(2);
  const auto again = TypeParam::Item(2);
  this->collection_.Add(again);
  EXPECT_EQ(this->collection_.Item(TypeParam::Key(2)), again);
  EXPECT_EQ(this->collection_.Item(3), again);
  this->collection_.Clear();
  this->collection_.Add(again);
  EXPECT_EQ(this->collection_.Item(TypeParam::Key(2)), again);
}

TYPED_TEST(KeyedCollectionContract, TheKeyIsThatOfTheTimeOfAdding) {
  auto item = TypeParam::Item(1);
  this->collection_.Add(item);
  if constexpr (std::is_same_v<TypeParam, Lines>) item->set_RecordID("L9");
  if constexpr (std::is_same_v<TypeParam, InvoiceLines>) item->set_LineNumber(9);
  if constexpr (std::is_same_v<TypeParam, CreditNotes>) item->set_Reference("FT A/9");
  EXPECT_EQ(this->collection_.Item(TypeParam::Key(1)), item);
  EXPECT_ERROR(this->collection_.Item(TypeParam::Key(9)), 5, "ZevoAdapters11");
  EXPECT_ERROR(this->collection_.Add(TypeParam::Item(1)), 457, "ZevoAdapters11");
  this->collection_.Add(TypeParam::Item(9));
  EXPECT_EQ(this->collection_.Count(), 2);
}

TEST(RecordCollectionTest, AKeyTextIsNotAPosition) {
  InvoiceLineCollection lines;
  for (const int number : {3, 2, 1}) lines.Add(InvoiceLines::Item(number));
  EXPECT_EQ(lines.Item("1")->LineNumber(), 1);
  EXPECT_EQ(lines.Item(1)->LineNumber(), 3);
  EXPECT_EQ(lines.Item("2"), lines.Item(2));
  EXPECT_ERROR(lines.Item("01"), 5, "ZevoAdapters11");
}

TEST(RecordCollectionTest, ALineNumberIsAKeyWhateverItsSign) {
  InvoiceLineCollection lines;
  for (const int number : {0, -1, std::numeric_limits<int32_t>::min()}) lines.Add(InvoiceLines::Item(number));
  EXPECT_EQ(lines.Item("0"), lines.Item(1));
  EXPECT_EQ(lines.Item("-1"), lines.Item(2));
  EXPECT_EQ(lines.Item("-2147483648"), lines.Item(3));
}

TEST(RecordCollectionTest, KeysCompareWithoutRegardToLetterCase) {
  LineCollection lines;
  auto line = std::make_shared<TransactionLine>();
  line->set_RecordID("Ação-Š");
  lines.Add(line);
  EXPECT_EQ(lines.Item("AÇÃO-š"), line);
  EXPECT_ERROR(lines.Item("Acao-S"), 5, "ZevoAdapters11");
  auto other = std::make_shared<TransactionLine>();
  other->set_RecordID("aÇÃO-š");
  EXPECT_ERROR(lines.Add(other), 457, "ZevoAdapters11");
  CreditNoteCollection notes;
  auto note = std::make_shared<CreditNote>();
  note->set_Reference("FT ç/1");
  notes.Add(note);
  EXPECT_EQ(notes.Item("ft Ç/1"), note);
}

TEST(RecordCollectionTest, TwoLinesWithoutAnIdentifierCollide) {
  LineCollection lines;
  lines.Add(std::make_shared<TransactionLine>());
  EXPECT_ERROR(lines.Add(std::make_shared<TransactionLine>()), 457, "ZevoAdapters11");
  EXPECT_EQ(lines.Count(), 1);
  EXPECT_EQ(lines.Item(""), lines.Item(1));
}

TEST(RecordCollectionTest, AppendingKeepsAnItemWhoseKeyIsTaken) {
  // More than are searched through, so that the index of keys is met too.
  for (const int before : {1, 40}) {
    LineCollection lines;
    for (int number = 1; number <= before; ++number) EXPECT_TRUE(lines.Append(Lines::Item(number)));
    const auto again = Lines::Item(1);
    EXPECT_FALSE(lines.Append(again));
    ASSERT_EQ(lines.Count(), before + 1);
    EXPECT_EQ(lines.Item(before + 1), again);
    EXPECT_EQ(lines.Item("l1"), lines.Item(1));
    EXPECT_ERROR(lines.Add(Lines::Item(1)), RunTimeError::kDuplicateKey, kRunTimeSource);
    lines.Remove(1);
    EXPECT_EQ(lines.Item("L1"), again);
  }
  EXPECT_ERROR(LineCollection().Append(nullptr), RunTimeError::kInvalidCall, kRunTimeSource);
}

TEST(RecordCollectionTest, EntriesWithoutAKeyMayBeEqualAndTheSame) {
  TaxTableEntryCollection entries;
  const auto entry = std::make_shared<TaxTableEntry>();
  entries.Add(entry);
  entries.Add(entry);
  entries.Add(std::make_shared<TaxTableEntry>());
  EXPECT_EQ(entries.Count(), 3);
  EXPECT_EQ(entries.Item(2), entry);
}

TEST(RecordCollectionTest, OneIdentifierMayStandInTwoTransactions) {
  Transaction first, second;
  first.Line()->Add(Lines::Item(1));
  second.Line()->Add(Lines::Item(1));
  EXPECT_EQ(first.Line()->Count(), 1);
  EXPECT_NE(first.Line()->Item("L1"), second.Line()->Item("L1"));
}

TEST(RecordCollectionTest, AddingTakesNoLongerTheMoreItemsThereAre) {
  const auto entry = std::make_shared<TaxTableEntry>();
  const auto secondsFor = [&](int count) {
    return testing::LeastProcessorSeconds(5, [&] {
      TaxTableEntryCollection entries;
      for (int i = 0; i < count; ++i) entries.Add(entry);
    });
  };
  // Sixteen times the items: linear growth stays far below this, quadratic growth takes 256 times as long.
  const double few = secondsFor(8000) + 1e-3;
  EXPECT_LT(secondsFor(128000), 100 * few);
}

}  // namespace
}  // namespace zevo
