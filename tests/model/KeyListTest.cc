// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>
#include <zevo/model/KeyList.h>
#include <zevo/platform/LetterCase.h>

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "tests/support/ChosenKeys.h"
#include "tests/support/Errors.h"
#include "tests/support/ProcessorTime.h"
#include "tests/support/Sanitizers.h"

namespace zevo {
namespace {

KeyList ListOf(int count) {
  KeyList list;
  for (int i = 0; i < count; ++i) list.Add("Chave " + std::to_string(i));
  return list;
}

class KeyListTest : public ::testing::TestWithParam<int> {
 protected:
  KeyList list_ = ListOf(GetParam());
};

// Few keys are searched through, many are looked up: the answers are the same.
INSTANTIATE_TEST_SUITE_P(OfAnyLength, KeyListTest, ::testing::Values(1, 15, 16, 17, 18, 100, 1000));

TEST_P(KeyListTest, EachKeyIsFoundAtItsPlace) {
  for (int i = 0; i < GetParam(); ++i) {
    EXPECT_EQ(list_.Find("Chave " + std::to_string(i)), static_cast<size_t>(i));
    EXPECT_EQ(list_.Find("CHAVE " + std::to_string(i)), static_cast<size_t>(i));
  }
}

TEST_P(KeyListTest, AnUnknownKeyIsAnInvalidCall) {
  EXPECT_ERROR(list_.Find("outra"), 5, "ZevoAdapters11");
  EXPECT_ERROR(list_.Find(""), 5, "ZevoAdapters11");
}

TEST_P(KeyListTest, ATakenKeyIsRefusedAndChangesNothing) {
  EXPECT_ERROR(list_.Add("chave 0"), 457, "ZevoAdapters11");
  list_.Add("nova");
  EXPECT_EQ(list_.Find("nova"), static_cast<size_t>(GetParam()));
}

TEST_P(KeyListTest, LaterKeysMoveUpWhenOneIsRemoved) {
  list_.RemoveAt(0);
  EXPECT_ERROR(list_.Find("Chave 0"), 5, "ZevoAdapters11");
  for (int i = 1; i < GetParam(); ++i) {
    EXPECT_EQ(list_.Find("Chave " + std::to_string(i)), static_cast<size_t>(i) - 1);
  }
  list_.Add("chave 0");
  EXPECT_EQ(list_.Find("Chave 0"), static_cast<size_t>(GetParam()) - 1);
}

TEST_P(KeyListTest, AClearedListTakesTheKeysAgain) {
  list_.Clear();
  EXPECT_ERROR(list_.Find("Chave 0"), 5, "ZevoAdapters11");
  list_.Add("Chave 0");
  EXPECT_EQ(list_.Find("Chave 0"), 0U);
}

TEST(KeyListLetterCaseTest, KeysDifferInMoreThanLetterCase) {
  KeyList list;
  list.Add("Ação");
  list.Add("Acao");
  list.Add("");
  list.Add(" ");
  list.Add("ŠŒŸ");
  EXPECT_EQ(list.Find("AÇÃO"), 0U);
  EXPECT_EQ(list.Find("ACAO"), 1U);
  EXPECT_EQ(list.Find(""), 2U);
  EXPECT_EQ(list.Find("šœÿ"), 4U);
  EXPECT_ERROR(list.Add("aÇãO"), 457, "ZevoAdapters11");
  EXPECT_ERROR(list.Add(""), 457, "ZevoAdapters11");
}

// Somebody may choose the keys: they take no longer than any others.
TEST(KeyListTimeTest, ChosenKeysTakeNoLongerThanOthers) {
  if (testing::kSanitized) GTEST_SKIP() << "a sanitizer distorts time";
  const std::vector<std::string> keys = testing::KeysOfOneHash(2'000, testing::Capitals::kNo);
  KeyList list;
  for (const std::string& key : keys) list.Add(key);
  EXPECT_LT(testing::ProcessorSeconds([&] {
              for (int round = 0; round < 200; ++round) {
                for (size_t i = 0; i < keys.size(); ++i) {
                  if (list.Find(keys[i]) != i) ADD_FAILURE() << keys[i];
                }
              }
            }),
            0.3);
}

RC_GTEST_PROP(KeyListLetterCaseTest, BehavesAsAListOfKeys, ()) {
  const auto steps = *rc::gen::resize(60, rc::gen::container<std::vector<std::pair<int, int>>>(
                                              rc::gen::pair(rc::gen::inRange(0, 5), rc::gen::inRange(0, 40))));
  KeyList list;
  std::vector<std::string> model;
  for (const auto& [what, number] : steps) {
    const std::string key = "k" + std::to_string(number);
    const auto found = std::find(model.begin(), model.end(), key);
    if (what == 0 && !model.empty()) {
      const size_t place = static_cast<size_t>(number) % model.size();
      list.RemoveAt(place);
      model.erase(model.begin() + static_cast<std::ptrdiff_t>(place));
    } else if (what == 1) {
      if (found == model.end()) {
        RC_ASSERT_THROWS_AS(list.Find(key), Error);
      } else {
        RC_ASSERT(list.Find("K" + std::to_string(number)) == static_cast<size_t>(found - model.begin()));
      }
    } else if (found == model.end()) {
      list.Add(key);
      model.push_back(key);
    } else {
      RC_ASSERT_THROWS_AS(list.Add(key), Error);
    }
  }
  for (size_t i = 0; i < model.size(); ++i) RC_ASSERT(list.Find(model[i]) == i);
}

}  // namespace
}  // namespace zevo
