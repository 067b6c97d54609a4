// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_MODEL_INTERNAL_PARSERWORDS_H_
#define ZEVO_MODEL_INTERNAL_PARSERWORDS_H_

#include <zevo/model/Language.h>

#include <cstdint>
#include <string>
#include <string_view>

namespace zevo {

/// Whether a number is one that the parser has for what a schema does not allow in a file.
bool IsViolation(int32_t number);

/// What the parser has against a file or a schema, in the language, without its place and a full stop. `reason` is what
/// it said, perhaps behind the name of a schema and ": ", which is kept; `placed` whether it said where. Empty for what
/// is not the parser's: hosts have the same numbers, but no places.
std::string ParserSentence(int32_t number, std::string_view reason, bool placed, Language language);

}  // namespace zevo

#endif  // ZEVO_MODEL_INTERNAL_PARSERWORDS_H_
