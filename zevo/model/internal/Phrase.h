// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_MODEL_INTERNAL_PHRASE_H_
#define ZEVO_MODEL_INTERNAL_PHRASE_H_

#include <zevo/FilePlace.h>
#include <zevo/model/Language.h>

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace zevo {

/// A text in both languages. "{1}" to "{9}" are the places for values.
struct Phrase {
  std::string_view portuguese;
  std::string_view english;

  std::string_view In(Language language) const { return language == Language::kPortuguese ? portuguese : english; }
};

/// What another program, or another layer, says under a number, and the phrase for it.
struct Rewording {
  int32_t number;
  /// With places for values, each followed by the text up to the next; empty for whatever is said under the number.
  std::string_view said;
  Phrase phrase;
};

/// Puts values into the places of a text; a place without a value stays empty.
std::string Filled(std::string_view text, std::span<const std::string> values);

/// Whether a text is worded so; the values are what stands in its places.
bool IsWorded(std::string_view text, std::string_view said, std::vector<std::string>& values);

/// The first row for what was said under a number, in the language; empty without one. Of rows for whatever is said the
/// last resort, only with `whatever`.
std::string Reworded(std::span<const Rewording> rows, int32_t number, std::string_view said, bool whatever,
                     Language language);

/// The first characters of a text, as a sentence may have it.
std::string AbridgedText(std::string_view text);

/// Ends a sentence with a place, as far as it is known, and a full stop.
std::string WithPlace(std::string sentence, const FilePlace& place, Language language);

}  // namespace zevo

#endif  // ZEVO_MODEL_INTERNAL_PHRASE_H_
