// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TOOLS_SAFT_WORDS_ERRORWORDS_H_
#define ZEVO_TOOLS_SAFT_WORDS_ERRORWORDS_H_

#include "tools/saft/words/Text.h"

/// What ends a run, whatever the command.
namespace zevo::saft::words {

/// Follows on what is told of a name that is not known.
inline constexpr Text<1> kDidYouMean{"; queria dizer {1}?", "; did you mean {1}?"};

inline constexpr Text<> kOutOfMemory{"não há memória suficiente", "not enough memory"};
inline constexpr Text<> kInterrupted{"interrompido", "interrupted"};
inline constexpr Text<> kOutputUnwritable{"não é possível escrever na saída padrão",
                                          "standard output cannot be written"};
inline constexpr Text<1> kUnexpected{"erro inesperado: {1}", "unexpected error: {1}"};

}  // namespace zevo::saft::words

#endif  // ZEVO_TOOLS_SAFT_WORDS_ERRORWORDS_H_
