// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/words/SpokenLanguage.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdlib>
#include <optional>
#include <string>

namespace zevo::saft {
namespace {

TEST(SpokenLanguageTest, UsersNameIt) {
  EXPECT_EQ(LanguageNamed("pt"), Language::kPortuguese);
  EXPECT_EQ(LanguageNamed("en"), Language::kEnglish);
  for (const char* other : {"", "PT", "pt_PT", "de"}) EXPECT_EQ(LanguageNamed(other), std::nullopt) << other;
}

struct Locales {
  const char* all;
  const char* messages;
  const char* lang;
  Language language;
};

class SpokenLanguageLocaleTest : public ::testing::TestWithParam<Locales> {
 protected:
  static constexpr std::array kVariables{"LC_ALL", "LC_MESSAGES", "LANG"};

  SpokenLanguageLocaleTest() {
    for (size_t i = 0; i < kVariables.size(); ++i) {
      if (const char* const value = std::getenv(kVariables[i])) before_[i] = value;
    }
  }
  ~SpokenLanguageLocaleTest() override {
    for (size_t i = 0; i < kVariables.size(); ++i) Set(kVariables[i], before_[i] ? before_[i]->c_str() : nullptr);
  }
  static void Set(const char* variable, const char* value) {
    value == nullptr ? unsetenv(variable) : setenv(variable, value, 1);
  }

 private:
  std::array<std::optional<std::string>, kVariables.size()> before_;
};

TEST_P(SpokenLanguageLocaleTest, IsThatOfTheEnvironment) {
  Set("LC_ALL", GetParam().all);
  Set("LC_MESSAGES", GetParam().messages);
  Set("LANG", GetParam().lang);
  EXPECT_EQ(LanguageOfEnvironment(), GetParam().language);
}

INSTANTIATE_TEST_SUITE_P(All, SpokenLanguageLocaleTest,
                         ::testing::Values(Locales{nullptr, nullptr, nullptr, Language::kEnglish},
                                           Locales{"", "", "", Language::kEnglish},
                                           Locales{nullptr, nullptr, "pt_PT.UTF-8", Language::kPortuguese},
                                           Locales{nullptr, nullptr, "pt", Language::kPortuguese},
                                           Locales{nullptr, nullptr, "pt@euro", Language::kPortuguese},
                                           Locales{nullptr, nullptr, "ptx", Language::kEnglish},
                                           Locales{nullptr, "pt_PT", "en_US.UTF-8", Language::kPortuguese},
                                           Locales{"", "pt_PT", "", Language::kPortuguese},
                                           Locales{"C", "pt_PT", "pt_PT", Language::kEnglish},
                                           Locales{"pt_BR.UTF-8", "C", "C", Language::kPortuguese}));

}  // namespace
}  // namespace zevo::saft
