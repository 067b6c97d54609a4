// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TOOLS_SAFT_WORDS_TERMINALWORDS_H_
#define ZEVO_TOOLS_SAFT_WORDS_TERMINALWORDS_H_

#include "tools/saft/words/Text.h"

/// What stands in a progress bar.
namespace zevo::saft::words {

inline constexpr Text<2> kDoneOf{"{1} de {2}", "{1} of {2}"};
inline constexpr Text<1> kTimeLeft{"faltam {1}", "{1} left"};

}  // namespace zevo::saft::words

#endif  // ZEVO_TOOLS_SAFT_WORDS_TERMINALWORDS_H_
