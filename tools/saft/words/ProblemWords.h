// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TOOLS_SAFT_WORDS_PROBLEMWORDS_H_
#define ZEVO_TOOLS_SAFT_WORDS_PROBLEMWORDS_H_

#include "tools/saft/words/Text.h"

/// What of an audit file could not be taken as it stands.
namespace zevo::saft::words {

inline constexpr Text<1> kProblem{"{1} problema", "{1} problem"};
inline constexpr Text<1> kProblems{"{1} problemas do mesmo tipo", "{1} problems of one kind"};
inline constexpr Text<1> kAndMore{"e mais {1}", "and {1} more"};
inline constexpr Text<1> kCharacters{"{1} caracteres", "{1} characters"};

}  // namespace zevo::saft::words

#endif  // ZEVO_TOOLS_SAFT_WORDS_PROBLEMWORDS_H_
