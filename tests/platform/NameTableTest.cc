#include <gtest/gtest.h>
#include <zevo/platform/NameTable.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <string>
#include <string_view>
#include <vector>

namespace zevo {
namespace {

constexpr std::array<std::string_view, 3> kVocabulary = {"AuditFile", "Header", "Journal"};

TEST(NameTable, NumbersItsFirstNamesFromOne) {
  const NameTable names(kVocabulary);
  EXPECT_EQ(names.Find("AuditFile"), 1u);
  EXPECT_EQ(names.Find("Header"), 2u);
  EXPECT_EQ(names.Find("Journal"), 3u);
  EXPECT_EQ(names.Text(2), "Header");
}

TEST(NameTable, HoldsANameOnce) {
  NameTable names({});
  const uint32_t first = names.Add("Customer");
  EXPECT_EQ(names.Add(std::string("Customer")), first);
  EXPECT_NE(names.Add("customer"), first);
}

TEST(NameTable, DoesNotFindWhatWasNotAdded) {
  NameTable names(kVocabulary);
  EXPECT_EQ(names.Find("Customer"), NameTable::kNone);
  EXPECT_EQ(names.Find(""), NameTable::kNone);
}

TEST(NameTable, LocalNameIsTheNameWithoutItsPrefix) {
  NameTable names(kVocabulary);
  const uint32_t prefixed = names.Add("n1:Header");
  EXPECT_EQ(names.Local(prefixed), 2u);
  EXPECT_EQ(names.Text(prefixed), "n1:Header");
  EXPECT_EQ(names.Local(2), 2u);
}

TEST(NameTable, KeepsEveryNameAsItGrows) {
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
TEST(NameTable, AddingANameTakesNoLongerTheMoreThereAre) {
  const auto seconds = [](int count) {
    const auto start = std::chrono::steady_clock::now();
    NameTable names({});
    for (int i = 0; i < count; ++i) names.Add("n" + std::to_string(i));
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
  };
  const double some = std::min(seconds(5'000), seconds(5'000));
  const double eightTimes = std::min(seconds(40'000), seconds(40'000));
  EXPECT_LT(eightTimes, 24 * some);
}

TEST(NameTable, AParsedNameIsTheNameWithItsPrefix) {
  NameTable names({});
  EXPECT_EQ(names.Text(names.AddParsed("Line", nullptr)), "Line");
  EXPECT_EQ(names.Text(names.AddParsed("Line", "n1")), "n1:Line");
}

TEST(NameTable, ASharedLocalPointerDoesNotMixUpPrefixes) {
  NameTable names({});
  const char* local = "Line";
  const uint32_t plain = names.AddParsed(local, nullptr);
  const uint32_t one = names.AddParsed(local, "n1");
  const uint32_t two = names.AddParsed(local, "n2");
  EXPECT_EQ(names.AddParsed(local, nullptr), plain);
  EXPECT_EQ(names.Text(one), "n1:Line");
  EXPECT_EQ(names.Text(two), "n2:Line");
}

TEST(NameTable, APointerMayStandForAnotherNameOnceForgotten) {
  NameTable names({});
  std::string buffer = "Line";
  names.AddParsed(buffer.c_str(), nullptr);
  buffer = "Date";
  names.ForgetPointers();
  EXPECT_EQ(names.Text(names.AddParsed(buffer.c_str(), nullptr)), "Date");
}

TEST(NameTable, TellsWhetherWindows1252HasEveryCharacterOfAName) {
  NameTable names(kVocabulary);
  EXPECT_TRUE(names.IsWindows1252(1));
  EXPECT_TRUE(names.IsWindows1252(names.Add("Endereço")));
  EXPECT_FALSE(names.IsWindows1252(names.Add("Ulica_Łódź")));
  EXPECT_FALSE(names.IsWindows1252(names.Add("ź:Header")));
  EXPECT_TRUE(names.IsWindows1252(names.Find("Header")));
}

}  // namespace
}  // namespace zevo
