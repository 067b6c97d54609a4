// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TOOLS_SAFT_WORDS_TEXT_H_
#define ZEVO_TOOLS_SAFT_WORDS_TEXT_H_

#include <zevo/adapters.h>

#include <array>
#include <concepts>
#include <cstddef>
#include <span>
#include <string>
#include <string_view>

#include "tools/saft/words/SpokenLanguage.h"

namespace zevo::saft {

/// A text for people in both languages, with places for so many values: "{1}" is the first, wherever it stands. A text
/// that lacks a language, or a place in one of them, does not compile.
template <size_t Values = 0>
class Text {
 public:
  // NOLINTNEXTLINE(bugprone-easily-swappable-parameters): the order is that of `Language`.
  consteval Text(std::string_view portuguese, std::string_view english) : portuguese_(portuguese), english_(english) {
    Require(portuguese);
    Require(english);
  }

  constexpr std::string_view In(Language language) const {
    return language == Language::kPortuguese ? portuguese_ : english_;
  }

 private:
  static consteval void Require(std::string_view text) {
    if (text.empty()) throw "a language is missing";
    constexpr std::string_view kPlaces = std::string_view("123456789").substr(0, Values);
    std::array<bool, Values + 1> there{};
    for (size_t at = text.find('{'); at != std::string_view::npos; at = text.find('{', at + 1)) {
      if (at + 2 >= text.size() || text[at + 2] != '}') throw "a place is written {1}";
      const size_t place = kPlaces.find(text[at + 1]);
      if (place == std::string_view::npos) throw "a place without a value";
      there[place + 1] = true;
    }
    for (size_t place = 1; place <= Values; ++place) {
      if (!there[place]) throw "a value without a place";
    }
  }

  std::string_view portuguese_;
  std::string_view english_;
};

/// Puts values into the places of a text.
std::string Filled(std::string_view text, std::span<const std::string> values);

inline std::string TextOfValue(std::string_view text) { return std::string(text); }
std::string TextOfValue(std::integral auto number) { return std::to_string(number); }

/// What a text says with these values, which are texts and whole numbers, in the language spoken.
template <size_t Values, class... Value>
requires(sizeof...(Value) == Values) std::string Say(const Text<Values>& text, const Value&... value) {
  return Filled(text.In(SpokenLanguage()), std::array<std::string, Values>{TextOfValue(value)...});
}

/// The same of a number of things, with the text for one or that for several; the number is the first value.
template <size_t Values, class... Value>
std::string SayOf(size_t count, const Text<Values>& one, const Text<Values>& several, const Value&... value) {
  return Say(count == 1 ? one : several, count, value...);
}

}  // namespace zevo::saft

#endif  // ZEVO_TOOLS_SAFT_WORDS_TEXT_H_
