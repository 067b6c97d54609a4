// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/words/SpokenLanguage.h"

#include <cstdlib>

namespace zevo::saft {
namespace {

Language spoken = Language::kEnglish;

}  // namespace

Language SpokenLanguage() { return spoken; }

void Speak(Language language) { spoken = language; }

std::optional<Language> LanguageNamed(std::string_view name) {
  if (name == "pt") return Language::kPortuguese;
  if (name == "en") return Language::kEnglish;
  return std::nullopt;
}

Language LanguageOfEnvironment() {
  for (const char* variable : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
    const char* const value = std::getenv(variable);
    if (value == nullptr || *value == '\0') continue;
    const std::string_view locale(value);
    return locale.substr(0, locale.find_first_of("_.@")) == "pt" ? Language::kPortuguese : Language::kEnglish;
  }
  return Language::kEnglish;
}

}  // namespace zevo::saft
