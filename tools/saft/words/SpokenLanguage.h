// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TOOLS_SAFT_WORDS_SPOKENLANGUAGE_H_
#define ZEVO_TOOLS_SAFT_WORDS_SPOKENLANGUAGE_H_

#include <zevo/adapters.h>

#include <optional>
#include <string_view>

namespace zevo::saft {

/// The language in which the program speaks; English until another is chosen.
Language SpokenLanguage();

/// Chooses it. To be called before anything is said.
void Speak(Language language);

/// The language that a user calls "pt" or "en".
std::optional<Language> LanguageNamed(std::string_view name);

/// The language of the environment: Portuguese where LC_ALL, else LC_MESSAGES, else LANG is a Portuguese locale, such
/// as "pt_PT.UTF-8". The locale need not be installed.
Language LanguageOfEnvironment();

}  // namespace zevo::saft

#endif  // ZEVO_TOOLS_SAFT_WORDS_SPOKENLANGUAGE_H_
