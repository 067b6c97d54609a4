// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>
#include <zevo/platform/NameTable.h>

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "tests/support/ProcessorTime.h"
#include "tests/support/Sanitizers.h"

namespace zevo {
namespace {

constexpr std::array<std::string_view, 3> kVocabulary = {"AuditFile", "Header", "Journal"};

TEST(NameTableTest, NumbersItsFirstNamesFromOne) {
  const NameTable names(kVocabulary);
  EXPECT_EQ(names.Find("AuditFile"), 1u);
  EXPECT_EQ(names.Find("Header"), 2u);
  EXPECT_EQ(names.Find("Journal"), 3u);
  EXPECT_EQ(names.Text(2), "Header");
}

TEST(NameTableTest, HoldsANameOnce) {
  NameTable names({});
  const uint32_t first = names.Add("Customer");
  EXPECT_EQ(names.Add(std::string("Customer")), first);
  EXPECT_NE(names.Add("customer"), first);
}

TEST(NameTableTest, DoesNotFindWhatWasNotAdded) {
  NameTable names(kVocabulary);
  EXPECT_EQ(names.Find("Customer"), NameTable::kNone);
  EXPECT_EQ(names.Find(""), NameTable::kNone);
}

TEST(NameTableTest, LocalNameIsTheNameWithoutItsPrefix) {
  NameTable names(kVocabulary);
  const uint32_t prefixed = names.Add("n1:Header");
  EXPECT_EQ(names.Local(prefixed), 2u);
  EXPECT_EQ(names.Text(prefixed), "n1:Header");
  EXPECT_EQ(names.Local(2), 2u);
}

TEST(NameTableTest, KeepsEveryNameAsItGrows) {
  NameTable names(kVocabulary);
  std::vector<uint32_t> numbers;
  for (int i = 0; i < 20'000; ++i) numbers.push_back(names.Add("Name" + std::to_string(i)));
  for (int i = 0; i < 20'000; ++i) {
    const std::string name = "Name" + std::to_string(i);
    ASSERT_EQ(names.Find(name), numbers[static_cast<size_t>(i)]);
    ASSERT_EQ(names.Text(numbers[static_cast<size_t>(i)]), name);
  }
  EXPECT_EQ(names.Find("Journal"), 3u);
}

// A file may be hostile: every element of another name.
TEST(NameTableTest, AddingANameTakesNoLongerTheMoreThereAre) {
  NameTable names({});
  // Some 0.05 seconds; a look at every name before it, for each, is half a minute.
  EXPECT_LT(testing::ProcessorSeconds([&] {
              for (int i = 0; i < 200'000; ++i) names.Add("n" + std::to_string(i));
            }),
            testing::kSanitized ? 10 : 2);
}

// Names that differ at their very end alone, which a hash that multiplies has in one slot.
TEST(NameTableTest, ChosenNamesTakeNoLongerThanOthers) {
  if (testing::kSanitized) GTEST_SKIP() << "a sanitizer distorts time";
  constexpr std::string_view kLetters = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789_";
  std::vector<std::string> texts;
  for (const char first : kLetters) {
    for (const char second : kLetters) texts.push_back(std::string("Chosen__") + first + second);
  }
  NameTable names({});
  std::vector<uint32_t> numbers;
  for (const std::string& text : texts) numbers.push_back(names.Add(text));
  EXPECT_LT(testing::ProcessorSeconds([&] {
              for (int round = 0; round < 50; ++round) {
                for (size_t i = 0; i < texts.size(); ++i) {
                  if (names.Find(texts[i]) != numbers[i]) ADD_FAILURE() << texts[i];
                }
              }
            }),
            0.2);
}

TEST(NameTableTest, AParsedNameIsTheNameWithItsPrefix) {
  NameTable names({});
  EXPECT_EQ(names.Text(names.AddParsed(1, "Line", nullptr)), "Line");
  EXPECT_EQ(names.Text(names.AddParsed(2, "Line", "n1")), "n1:Line");
}

TEST(NameTableTest, NumbersOfAParseMayComeInAnyOrder) {
  NameTable names(kVocabulary);
  EXPECT_EQ(names.Text(names.AddParsed(700, "Line", nullptr)), "Line");
  EXPECT_EQ(names.AddParsed(5, "Header", nullptr), 2u);
  EXPECT_EQ(names.AddParsed(6, "Header", nullptr), 2u);
  EXPECT_EQ(names.Text(names.AddParsed(700, "Line", nullptr)), "Line");
}

TEST(NameTableTest, NamesOfEveryLengthAreToldApart) {
  NameTable names({});
  std::vector<std::string> texts;
  for (size_t length = 1; length < 40; ++length) {
    for (size_t at = 0; at < length; ++at) {
      texts.emplace_back(length, 'a');
      texts.back()[at] = 'b';
    }
  }
  std::vector<uint32_t> numbers;
  for (const std::string& text : texts) numbers.push_back(names.Add(text));
  for (size_t i = 0; i < texts.size(); ++i) {
    EXPECT_EQ(names.Find(texts[i]), numbers[i]);
    EXPECT_EQ(names.Text(numbers[i]), texts[i]);
  }
}

TEST(NameTableTest, OnlyGivenNamesWithoutPrefixOrAccentsArePlain) {
  NameTable names(kVocabulary);
  EXPECT_TRUE(names.IsPlain(NameTable::kNone));
  for (uint32_t number = 1; number <= std::size(kVocabulary); ++number) EXPECT_TRUE(names.IsPlain(number));
  EXPECT_FALSE(names.IsPlain(names.Add("other")));
  constexpr std::string_view kMixed[] = {"Header", "n:Line", "Endereço"};
  NameTable mixed(kMixed);
  EXPECT_TRUE(mixed.IsPlain(mixed.Find("Header")));
  EXPECT_FALSE(mixed.IsPlain(mixed.Find("n:Line")));
  EXPECT_FALSE(mixed.IsPlain(mixed.Find("Endereço")));
}

TEST(NameTableTest, ANameIsShortUpToALengthThatCanBeReadOfEveryName) {
  NameTable names(kVocabulary);
  EXPECT_FALSE(names.IsShort(NameTable::kNone));
  for (size_t length = 1; length <= NameTable::kShort + 2; ++length) {
    const std::string text(length, 'n');
    const uint32_t name = names.Add(text);
    EXPECT_EQ(names.IsShort(name), length <= NameTable::kShort) << length;
    const std::string read(names.Text(name).data(), NameTable::kShort);
    EXPECT_EQ(read.substr(0, length), text.substr(0, NameTable::kShort));
  }
  EXPECT_TRUE(names.IsShort(names.Add("n:Line")));
  EXPECT_FALSE(names.IsShort(names.Add("Endereço")));
}

TEST(NameTableTest, ANumberMayStandForAnotherNameOnceForgotten) {
  NameTable names({});
  names.AddParsed(1, "Line", nullptr);
  EXPECT_EQ(names.Text(names.AddParsed(1, "Date", nullptr)), "Line");
  names.ForgetParsed();
  EXPECT_EQ(names.Text(names.AddParsed(1, "Date", nullptr)), "Date");
}

TEST(NameTableTest, TellsWhetherWindows1252HasEveryCharacterOfAName) {
  NameTable names(kVocabulary);
  EXPECT_TRUE(names.IsWindows1252(1));
  EXPECT_TRUE(names.IsWindows1252(names.Add("Endereço")));
  EXPECT_FALSE(names.IsWindows1252(names.Add("Ulica_Łódź")));
  EXPECT_FALSE(names.IsWindows1252(names.Add("ź:Header")));
  EXPECT_TRUE(names.IsWindows1252(names.Find("Header")));
}

}  // namespace
}  // namespace zevo
