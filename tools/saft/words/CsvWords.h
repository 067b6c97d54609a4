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
inline constexpr Text<> kWorkbook{
    "é um livro do Excel e não um ficheiro CSV; grave cada folha como \"CSV (separado por vírgulas)\"",
    "is a workbook of Excel and no CSV file; save each sheet as \"CSV (Comma delimited)\""};

// How a file is written, where it is not as in a dataset.

inline constexpr Text<2> kRecognised{"{1}: reconhecido: {2}", "{1}: recognised: {2}"};
inline constexpr Text<> kSemicolons{"ponto e vírgula entre células, vírgula decimal",
                                    "semicolons between cells, decimal commas"};
inline constexpr Text<> kTabs{"tabulações entre células, vírgula decimal", "tabs between cells, decimal commas"};
inline constexpr Text<> kWindows1252{"Windows-1252", "Windows-1252"};
inline constexpr Text<> kDayFirst{"datas dia/mês/ano", "dates day/month/year"};
inline constexpr Text<> kShortRows{"as células que faltam no fim de linhas são vazias",
                                   "cells that are absent at the ends of rows are empty"};

// Cells that are not understood.

inline constexpr Text<2> kAmbiguousNumber{"tanto pode ser {1} como {2}; escreva uma dessas formas, sem ponto",
                                          "may be {1} or {2}; write one of these, without a point"};
inline constexpr Text<> kNotANumber{"não é um número como 1234,56", "not a number such as 1234,56"};
inline constexpr Text<> kShortYear{"o ano tem de ter quatro algarismos, como em 31/12/2012",
                                   "the year must have four digits, as in 31/12/2012"};
inline constexpr Text<> kNoSuchDay{"esse dia não existe; o dia vem primeiro, depois o mês",
                                   "there is no such day; the day comes first, then the month"};
inline constexpr Text<> kNotADate{"não é uma data como 31/12/2012", "not a date such as 31/12/2012"};
inline constexpr Text<> kNotADateTime{"não é uma data e hora como 31/12/2012 14:30",
                                      "not a date and time such as 31/12/2012 14:30"};
inline constexpr Text<> kLostDigits{
    "a folha de cálculo perdeu algarismos; formate a coluna como texto e escreva de novo o valor",
    "the spreadsheet has lost digits; format the column as text and enter the value again"};

// What "saft create --help" says of it.

inline constexpr Text<> kFormHelp{
    R"(Também são lidos os ficheiros que um programa de folha de cálculo grava como CSV. Em cada ficheiro, a linha dos
nomes mostra se as células se separam com ponto e vírgula, vírgula ou tabulação; uma primeira linha "sep=;" também o
diz. O texto está em UTF-8 ou em Windows-1252. O que foi reconhecido é indicado, uma linha por ficheiro.

  - com ponto e vírgula ou tabulações, os números têm vírgula decimal: 1234,56, 1.234,56 ou 1 234,56 €. Um número como
    1.234 pode ser duas coisas e é um erro. O apóstrofo que "saft list --excel" põe antes de um texto é retirado, e um
    texto como 5,60123E+12, que perdeu algarismos, é um erro. VERDADEIRO e FALSO são 1 e 0, uma percentagem de imposto
    pode ser 23%, e as células vazias do fim de uma linha podem faltar.
  - em qualquer ficheiro, as datas podem ter o dia primeiro: 31/12/2012, 31-12-2012 ou 31.12.2012, com a hora como em
    31/12/2012 14:30)",
    R"(Files that a spreadsheet program saves as CSV are read too. In each file the row of names shows whether cells are
separated by semicolons, commas or tabs; a first line "sep=;" tells it as well. The text is UTF-8 or Windows-1252. What
was recognised is told, one line for each file.

  - with semicolons or tabs, numbers have a decimal comma: 1234,56, 1.234,56 or 1 234,56 €. A number such as 1.234 may
    be two things and is an error. The apostrophe that "saft list --excel" puts before a text is taken off, and a text
    such as 5,60123E+12, which has lost digits, is an error. TRUE and FALSE are 1 and 0, a tax percentage may be 23%,
    and empty cells at the end of a row may be absent.
  - in every file, dates may have the day first: 31/12/2012, 31-12-2012 or 31.12.2012, with the time as in
    31/12/2012 14:30)"};

}  // namespace zevo::saft::words

#endif  // ZEVO_TOOLS_SAFT_WORDS_CSVWORDS_H_
