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
inline constexpr Text<> kNotWindows1252{"não é Windows-1252", "not Windows-1252"};
inline constexpr Text<> kUtf16{"está em UTF-16, que não é lido; grave-o como \"CSV UTF-8\"",
                               "is in UTF-16, which is not read; save it as \"CSV UTF-8\""};

// How a file is written, where it is not as in a dataset.

inline constexpr Text<2> kRecognised{"{1}: reconhecido: {2}", "{1}: recognised: {2}"};
inline constexpr Text<> kSemicolons{"ponto e vírgula entre células, vírgula decimal",
                                    "semicolons between cells, decimal commas"};
inline constexpr Text<> kTabs{"tabulações entre células, vírgula decimal", "tabs between cells, decimal commas"};
inline constexpr Text<> kWindows1252{"Windows-1252", "Windows-1252"};
inline constexpr Text<> kDayFirst{"datas dia/mês/ano", "dates day/month/year"};

}  // namespace zevo::saft::words

#endif  // ZEVO_TOOLS_SAFT_WORDS_CSVWORDS_H_
