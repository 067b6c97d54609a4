// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TOOLS_SAFT_WORDS_CSVWORDS_H_
#define ZEVO_TOOLS_SAFT_WORDS_CSVWORDS_H_

#include "tools/saft/words/Text.h"

/// What is said of CSV files and of the cells in them.
namespace zevo::saft::words {

// Rows that are not what they should be.

inline constexpr Text<1> kCell{"célula {1}", "cell {1}"};
inline constexpr Text<2> kOtherCell{"{1} célula, mas o cabeçalho tem {2}", "{1} cell, but the header has {2}"};
inline constexpr Text<2> kOtherCells{"{1} células, mas o cabeçalho tem {2}", "{1} cells, but the header has {2}"};
inline constexpr Text<1> kColumnTwice{"a coluna {1} está repetida", "column {1} is there twice"};
inline constexpr Text<> kLoneReturn{"CSV mal formado, um retorno (CR) sem mudança de linha (LF)",
                                    "malformed CSV, a carriage return without a line feed"};
inline constexpr Text<> kStrayQuotationMark{"CSV mal formado, aspas fora do lugar",
                                            "malformed CSV, a quotation mark out of place"};
inline constexpr Text<> kOpenQuotationMark{"CSV mal formado, as aspas não são fechadas",
                                           "malformed CSV, a quotation mark is not closed"};
inline constexpr Text<> kNotUtf8{"não é UTF-8", "not UTF-8"};

}  // namespace zevo::saft::words

#endif  // ZEVO_TOOLS_SAFT_WORDS_CSVWORDS_H_
