// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TOOLS_SAFT_WORDS_COLUMNWORDS_H_
#define ZEVO_TOOLS_SAFT_WORDS_COLUMNWORDS_H_

#include "tools/saft/words/Text.h"

/// What "saft columns" says, but for what each column means.
namespace zevo::saft::words {

inline constexpr Text<> kColumnsKind{"Tipo de registo ou ficheiro CSV, como Customer ou customers.csv",
                                     "Kind of records or CSV file, such as Customer or customers.csv"};
inline constexpr Text<> kColumnsJson{"Escreve um objeto JSON por linha em vez de tabelas",
                                     "Write a JSON object a line instead of tables"};

inline constexpr Text<> kColumnsHelp{
    R"(Exemplos:

  saft columns Customer
  saft columns invoice_lines.csv

Diz as colunas que podem ter os ficheiros CSV de que "saft create" faz um ficheiro SAF-T, pela ordem deste; sem TIPO, as de
todos os ficheiros. "saft template" escreve os ficheiros com estas colunas.

Obrigatória é uma coluna sem a qual "saft create" não faz um ficheiro válido. O resto vem por si ou pode faltar:

  sim      em todas as linhas
  não      não é preciso nada
  ou X     esta coluna ou X, não ambas; sem nenhuma o ficheiro tem um 0
  com X    numa linha em que outra coluna de X está preenchida

O comprimento é o maior, em caracteres; os textos mais compridos são cortados ou fazem o ficheiro inválido. Uma coluna do
tipo "código" só leva os códigos, um texto com códigos leva esses e textos como o do exemplo.

Com --json cada linha é um objeto com estes membros. Todos os valores são textos, menos o comprimento, que é um número, e
a lista dos códigos; null está em vez do que não existe:

  file        ficheiro CSV, como customers.csv
  kind        tipo de registo, como Customer
  column      coluna, como BillingAddress.City
  required    yes, no, "or COLUMN" ou "with GROUP", como acima
  partner     a outra coluna de duas de que o ficheiro só tem uma
  type        text, date (2010-01-31), date and time (2010-01-31T09:30:00), amount, whole number, flag (0 ou 1) ou code
  max_length  maior comprimento em caracteres
  least       menor valor
  greatest    maior valor
  codes       todos os códigos, numa lista que pode ser vazia
  pattern     a forma de um texto que não é um código, uma expressão regular do XML Schema
  example     um texto com essa forma
  preset      o que o ficheiro tem onde a célula está vazia
  meaning     uma frase)",
    R"(Examples:

  saft columns Customer
  saft columns invoice_lines.csv

Tells the columns that the CSV files may have of which "saft create" makes an audit file, in the order of that; without
KIND those of all files. "saft template" writes the files with these columns.

Required is a column without which "saft create" makes no valid file. The rest comes by itself or may be absent:

  yes      in every row
  no       nothing is needed
  or X     this column or X, not both; without either the file has a 0
  with X   in a row where another column of X is filled

The length is the greatest one in characters; longer texts are shortened or make the file invalid. A column of type "code"
takes the codes only, a text with codes takes these and texts like the example.

With --json each line is an object with these members. All values are texts, but for the length, a number, and the list of
codes; null stands for what there is not:

  file        CSV file, such as customers.csv
  kind        of record, such as Customer
  column      such as BillingAddress.City
  required    yes, no, "or COLUMN" or "with GROUP", as above
  partner     the other column of two of which the file holds one
  type        text, date (2010-01-31), date and time (2010-01-31T09:30:00), amount, whole number, flag (0 or 1) or code
  max_length  greatest length in characters
  least       least value
  greatest    greatest value
  codes       all codes, in a list that may be empty
  pattern     what a text that is no code must match, a regular expression of XML Schema
  example     a text that matches the pattern
  preset      what the file has where the cell is empty
  meaning     a sentence)"};

inline constexpr Text<1> kUnknownKindOrFile{"nem um tipo de registo nem um ficheiro se chama {1}",
                                            "no kind of record and no file is named {1}"};

inline constexpr Text<> kColumn{"Coluna", "Column"};
inline constexpr Text<> kRequired{"Obrigatória", "Required"};
inline constexpr Text<> kTypeOfColumn{"Tipo", "Type"};
inline constexpr Text<> kLength{"Comprimento", "Length"};
inline constexpr Text<> kMeaning{"Significado", "Meaning"};

inline constexpr Text<> kYes{"sim", "yes"};
inline constexpr Text<> kNo{"não", "no"};
inline constexpr Text<1> kOr{"ou {1}", "or {1}"};
inline constexpr Text<1> kWith{"com {1}", "with {1}"};

inline constexpr Text<> kText{"texto", "text"};
inline constexpr Text<> kDate{"data", "date"};
inline constexpr Text<> kDateAndTime{"data e hora", "date and time"};
inline constexpr Text<> kAmount{"valor", "amount"};
inline constexpr Text<> kWholeNumber{"número inteiro", "whole number"};
inline constexpr Text<> kFlag{"0 ou 1", "0 or 1"};
inline constexpr Text<> kCode{"código", "code"};

// What follows the meaning of a column.

inline constexpr Text<1> kCodes{"Códigos: {1}.", "Codes: {1}."};
inline constexpr Text<1> kNotBeside{"Não com {1}.", "Not beside {1}."};
inline constexpr Text<1> kSuchAs{"Por exemplo {1}.", "Such as {1}."};
inline constexpr Text<1> kOrSuchAs{"Ou por exemplo {1}.", "Or such as {1}."};
inline constexpr Text<2> kFromTo{"De {1} a {2}.", "{1} to {2}."};
inline constexpr Text<1> kIfEmpty{"Se vazia: {1}.", "If empty: {1}."};

}  // namespace zevo::saft::words

#endif  // ZEVO_TOOLS_SAFT_WORDS_COLUMNWORDS_H_
