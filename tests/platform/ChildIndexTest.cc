// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>
#include <zevo/platform/ChildIndex.h>
#include <zevo/platform/Document.h>

#include <string>
#include <string_view>
#include <vector>

#include "tests/support/ChosenKeys.h"
#include "tests/support/ProcessorTime.h"
#include "tests/support/Sanitizers.h"

namespace zevo {
namespace {

// Asked through its document, which tells it what changes.
class ChildIndexTest : public ::testing::Test {
 protected:
  Element AddJournal(std::string_view id) {
    const Element journal = document_.AppendElement(root_, "Journal");
    document_.SetText(document_.AppendElement(journal, "JournalID"), id);
    return journal;
  }
  Element JournalOf(std::string_view id) { return document_.FirstChildByKey(root_, "Journal", "JournalID", id); }
  Element Add(Element parent, std::string_view name, std::string_view text = {}) {
    const Element element = document_.AppendElement(parent, name);
    if (!text.empty()) document_.SetText(element, text);
    return element;
  }

  Document document_;
  Element root_ = document_.AppendElement(Element(), "AuditFile");
};

// The first child of a name.

TEST_F(ChildIndexTest, TheFirstChildOfANameIsFoundAgainAndAgain) {
  const Element first = Add(root_, "Header");
  Add(root_, "Header");
  for (int i = 0; i < 3; ++i) EXPECT_EQ(document_.FirstChild(root_, "Header"), first);
}

TEST_F(ChildIndexTest, AChildThatWasMissingIsFoundOnceItIsThere) {
  EXPECT_FALSE(document_.FirstChild(root_, "Header"));
  Add(root_, "MasterFiles");
  EXPECT_FALSE(document_.FirstChild(root_, "Header"));
  const Element header = Add(root_, "Header");
  EXPECT_EQ(document_.FirstChild(root_, "Header"), header);
}

TEST_F(ChildIndexTest, FirstChildrenOfManyParentsAreNotMixedUp) {
  std::vector<Element> parents;
  for (int i = 0; i < 100; ++i) {
    const Element parent = Add(root_, "p");
    Add(parent, "a", std::to_string(i));
    Add(parent, "b", std::to_string(-i));
    parents.push_back(parent);
  }
  for (int round = 0; round < 2; ++round) {
    for (int i = 0; i < 100; ++i) {
      const Element parent = parents[static_cast<size_t>(i)];
      EXPECT_EQ(document_.FirstChild(parent, "a").LeadingText(), std::to_string(i));
      EXPECT_EQ(document_.FirstChild(parent, "b").LeadingText(), std::to_string(-i));
    }
  }
}

TEST_F(ChildIndexTest, AChildThatWasReplacedByTextIsNotFoundAnyMore) {
  const Element parent = Add(root_, "p");
  Add(parent, "a");
  EXPECT_TRUE(document_.FirstChild(parent, "a"));
  document_.SetText(parent, "text");
  EXPECT_FALSE(document_.FirstChild(parent, "a"));
  const Element again = Add(parent, "a");
  EXPECT_EQ(document_.FirstChild(parent, "a"), again);
  document_.SetText(parent, "");
  EXPECT_FALSE(document_.FirstChild(parent, "a"));
}

TEST_F(ChildIndexTest, AChildOfAParentWithAttributesThatWasReplacedByTextIsNotFoundAnyMore) {
  const Element parent = Add(root_, "p");
  document_.AppendAttribute(parent, "k", "v");
  Add(parent, "a");
  EXPECT_TRUE(document_.FirstChild(parent, "a"));
  document_.SetText(parent, "text");
  EXPECT_FALSE(document_.FirstChild(parent, "a"));
}

TEST_F(ChildIndexTest, AnAttributeIsNoChild) {
  document_.AppendAttribute(root_, "Header", "v");
  EXPECT_FALSE(document_.FirstChild(root_, "Header"));
}

// Children by key.

TEST_F(ChildIndexTest, AChildIsFoundByItsKey) {
  const Element a = AddJournal("A");
  const Element b = AddJournal("B");
  EXPECT_EQ(JournalOf("A"), a);
  EXPECT_EQ(JournalOf("B"), b);
  EXPECT_FALSE(JournalOf("C"));
  EXPECT_FALSE(JournalOf("a"));
  EXPECT_FALSE(JournalOf(""));
}

TEST_F(ChildIndexTest, OfEqualKeysTheFirstIsFound) {
  const Element first = AddJournal("A");
  EXPECT_EQ(JournalOf("A"), first);
  AddJournal("A");
  EXPECT_EQ(JournalOf("A"), first);
}

TEST_F(ChildIndexTest, AChildAddedAfterAQuestionIsFound) {
  EXPECT_FALSE(JournalOf("A"));
  AddJournal("B");
  EXPECT_FALSE(JournalOf("A"));
  const Element a = AddJournal("A");
  EXPECT_EQ(JournalOf("A"), a);
}

TEST_F(ChildIndexTest, AKeyAddedAfterAQuestionIsFound) {
  const Element journal = document_.AppendElement(root_, "Journal");
  AddJournal("B");
  EXPECT_FALSE(JournalOf("A"));
  const Element id = document_.AppendElement(journal, "JournalID");
  document_.SetText(id, "A");
  EXPECT_EQ(JournalOf("A"), journal);
}

TEST_F(ChildIndexTest, AnEarlierChildThatGetsTheKeyLaterComesFirst) {
  const Element earlier = document_.AppendElement(root_, "Journal");
  const Element later = AddJournal("A");
  EXPECT_EQ(JournalOf("A"), later);
  document_.SetText(document_.AppendElement(earlier, "JournalID"), "A");
  EXPECT_EQ(JournalOf("A"), earlier);
}

TEST_F(ChildIndexTest, AKeyWhoseTextIsSetAfterAQuestionIsFound) {
  const Element journal = document_.AppendElement(root_, "Journal");
  const Element id = document_.AppendElement(journal, "JournalID");
  EXPECT_EQ(JournalOf(""), journal);
  document_.SetText(id, "A");
  EXPECT_EQ(JournalOf("A"), journal);
  EXPECT_FALSE(JournalOf(""));
}

TEST_F(ChildIndexTest, AKeyThatIsAdoptedAfterAQuestionIsFound) {
  const Element journal = document_.AppendElement(root_, "Journal");
  const Element id = document_.AppendElement(journal, "JournalID");
  EXPECT_EQ(JournalOf(""), journal);
  document_.AdoptText(id, document_.CopyText("A"));
  EXPECT_EQ(JournalOf("A"), journal);
}

TEST_F(ChildIndexTest, AKeyToWhichTextIsAppendedAfterAQuestionIsFoundWhole) {
  const Element journal = AddJournal("A");
  EXPECT_EQ(JournalOf("A"), journal);
  document_.AppendText(document_.FirstChild(journal, "JournalID"), NodeKind::kCData, "B");
  EXPECT_EQ(JournalOf("AB"), journal);
  EXPECT_FALSE(JournalOf("A"));
}

TEST_F(ChildIndexTest, AKeyThatChangedIsFoundUnderItsNewText) {
  const Element journal = AddJournal("A");
  const Element other = AddJournal("B");
  EXPECT_EQ(JournalOf("A"), journal);
  for (const std::string_view text : {"C", "longer than before", "D"}) {
    document_.SetText(document_.FirstChild(journal, "JournalID"), text);
    EXPECT_FALSE(JournalOf("A"));
    EXPECT_EQ(JournalOf(text), journal);
    EXPECT_EQ(JournalOf("B"), other);
  }
}

TEST_F(ChildIndexTest, AKeyMayHoldElements) {
  const Element journal = document_.AppendElement(root_, "Journal");
  const Element id = document_.AppendElement(journal, "JournalID");
  Add(id, "part", "A");
  Add(id, "part", "B");
  EXPECT_EQ(JournalOf("AB"), journal);
  EXPECT_FALSE(JournalOf("A"));
}

TEST_F(ChildIndexTest, AChildIsFoundByAnyOfItsKeys) {
  const Element journal = AddJournal("A");
  Add(journal, "JournalID", "B");
  EXPECT_EQ(JournalOf("A"), journal);
  EXPECT_EQ(JournalOf("B"), journal);
}

TEST_F(ChildIndexTest, AChildThatWasReplacedByTextIsNotFoundByItsKeyAnyMore) {
  const Element journal = AddJournal("A");
  EXPECT_TRUE(JournalOf("A"));
  document_.SetText(journal, "text");
  EXPECT_FALSE(JournalOf("A"));
  AddJournal("B");
  document_.SetText(root_, "text");
  EXPECT_FALSE(JournalOf("B"));
}

TEST_F(ChildIndexTest, QuestionsAboutSeveralParentsAndKeysDoNotMix) {
  const Element one = Add(root_, "Journal");
  const Element two = Add(root_, "Journal");
  const Element inOne = Add(one, "Transaction");
  const Element inTwo = Add(two, "Transaction");
  for (const Element transaction : {inOne, inTwo}) {
    Add(transaction, "TransactionID", "1");
    Add(transaction, "Period", "12");
  }
  const auto find = [&](Element parent, std::string_view key, std::string_view text) {
    return document_.FirstChildByKey(parent, "Transaction", key, text);
  };
  for (int i = 0; i < 2; ++i) {
    EXPECT_EQ(find(one, "TransactionID", "1"), inOne);
    EXPECT_EQ(find(two, "TransactionID", "1"), inTwo);
    EXPECT_EQ(find(two, "Period", "12"), inTwo);
    EXPECT_FALSE(find(one, "Period", "1"));
    EXPECT_FALSE(find(root_, "TransactionID", "1"));
  }
}

TEST_F(ChildIndexTest, SeveralDocumentsKeepTheirOwnAnswers) {
  Document other;
  const Element otherRoot = other.AppendElement(Element(), "AuditFile");
  const Element otherJournal = other.AppendElement(otherRoot, "Journal");
  other.SetText(other.AppendElement(otherJournal, "JournalID"), "A");
  const Element journal = AddJournal("A");
  for (int i = 0; i < 2; ++i) {
    EXPECT_EQ(JournalOf("A"), journal);
    EXPECT_EQ(other.FirstChildByKey(otherRoot, "Journal", "JournalID", "A"), otherJournal);
    EXPECT_EQ(document_.FirstChild(root_, "Journal"), journal);
    EXPECT_EQ(other.FirstChild(otherRoot, "Journal"), otherJournal);
  }
  EXPECT_EQ(&otherJournal.Owner(), &other);
}

// Adds journals, looks each one up right away and again at the end, and gives every one a child.
void BuildJournals(int count) {
  Document document;
  const Element root = document.AppendElement(Element(), "Entries");
  int found = 0;
  const auto find = [&](int i) {
    const Element journal = document.FirstChildByKey(root, "Journal", "JournalID", std::to_string(i));
    if (journal) document.AppendElement(journal, "Transaction");
    return journal ? 1 : 0;
  };
  for (int i = 0; i < count; ++i) {
    const Element journal = document.AppendElement(root, "Journal");
    document.SetText(document.AppendElement(journal, "JournalID"), std::to_string(i));
    found += find(i);
  }
  for (int i = 0; i < count; ++i) found += find(i);
  EXPECT_EQ(found, 2 * count);
}

// Some 0.2 seconds; a look at every journal before it, for each, is minutes.
constexpr double kMostSeconds = testing::kSanitized ? 40 : 5;

TEST_F(ChildIndexTest, LookingUp200000JournalsByKeyTakesTimeLinearInTheirNumber) {
  EXPECT_LT(testing::ProcessorSeconds([] { BuildJournals(200'000); }), kMostSeconds);
}

// Somebody may choose the keys: they take no longer than any others.
TEST_F(ChildIndexTest, LookingUpChosenKeysTakesNoLongerThanOthers) {
  if (testing::kSanitized) GTEST_SKIP() << "a sanitizer distorts time";
  const std::vector<std::string> keys = testing::KeysOfOneHash(20'000);
  EXPECT_LT(testing::ProcessorSeconds([&] {
              std::vector<Element> journals;
              for (const std::string& key : keys) journals.push_back(AddJournal(key));
              for (size_t i = 0; i < keys.size(); ++i) {
                EXPECT_EQ(JournalOf(keys[i]), journals[i]);
              }
            }),
            0.5);
}

TEST_F(ChildIndexTest, AppendingAndFindingTheFirstChildTakesTimeLinearInTheChildren) {
  constexpr int kCount = 200'000;
  EXPECT_LT(testing::ProcessorSeconds([&] {
              for (int i = 0; i < kCount; ++i) document_.AppendElement(root_, "Customer");
              const Element last = document_.AppendElement(root_, "Totals");
              for (int i = 0; i < kCount; ++i) {
                document_.SetText(document_.FirstChild(root_, "Totals"), std::to_string(i));
                EXPECT_EQ(document_.FirstChild(root_, "Totals"), last);
              }
            }),
            kMostSeconds);
}

TEST_F(ChildIndexTest, ClearedItFindsTheSameAnswersInOtherContent) {
  // The same memory holds other elements now.
  AddJournal("A");
  EXPECT_TRUE(JournalOf("A"));
  document_.Clear();
  root_ = document_.AppendElement(Element(), "AuditFile");
  Add(root_, "Header");
  const Element journal = AddJournal("A");
  EXPECT_EQ(JournalOf("A"), journal);
  EXPECT_EQ(document_.FirstChild(root_, "Journal"), journal);
}

}  // namespace
}  // namespace zevo
