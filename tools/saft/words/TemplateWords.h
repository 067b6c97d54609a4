// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TOOLS_SAFT_WORDS_TEMPLATEWORDS_H_
#define ZEVO_TOOLS_SAFT_WORDS_TEMPLATEWORDS_H_

#include "tools/saft/words/Text.h"

/// What "saft template" says.
namespace zevo::saft::words {

inline constexpr Text<> kTemplateFolder{"Pasta a escrever; não pode existir, ou tem de estar vazia",
                                        "Folder to write; it must not exist yet, or be empty"};

inline constexpr Text<> kTemplateHelp{
    R"(Exemplo:

  saft template dados

Cada ficheiro tem uma linha, com os nomes das suas colunas, pela ordem do ficheiro SAF-T. Preencha as linhas abaixo dela e
use "saft create". Os ficheiros e as colunas de que não precisa podem ser apagados, menos header.csv, e as colunas podem
estar por qualquer ordem.

"saft columns" diz que colunas são obrigatórias e o que vai nelas; "saft create --help" diz a forma dos ficheiros.)",
    R"(Example:

  saft template data

Every file has one row, the names of its columns, in the order of the audit file. Fill the rows below it and run "saft
create". Files and columns that are not needed may be deleted, but for header.csv, and columns may be in any order.

"saft columns" tells which columns are required and what goes into them; "saft create --help" tells the form of the files.)"};

}  // namespace zevo::saft::words

#endif  // ZEVO_TOOLS_SAFT_WORDS_TEMPLATEWORDS_H_
