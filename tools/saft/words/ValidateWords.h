// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TOOLS_SAFT_WORDS_VALIDATEWORDS_H_
#define ZEVO_TOOLS_SAFT_WORDS_VALIDATEWORDS_H_

#include "tools/saft/words/Text.h"

/// What "saft validate" says.
namespace zevo::saft::words {

inline constexpr Text<> kValidateAll{"Diz tudo o que o esquema não permite, uma coisa por linha",
                                     "List every violation, one a line"};
inline constexpr Text<> kValidateJson{"Com --all: um objeto JSON por linha", "With --all: a JSON object a line"};

inline constexpr Text<> kValidateHelp{
    R"(Exemplos:

  saft validate empresa.xml
  saft validate empresa.xml --all

De um ficheiro que não é válido diz, na saída de erros, a primeira coisa que o esquema não permite, com o registo, o
elemento, a linha e a coluna; com --all diz todas, na saída padrão. O código de saída é então 1. Um ficheiro que não é XML
bem formado não é válido. Se o ficheiro ou o esquema não se podem ler, o código de saída é 2.

Da entrada padrão, quando é um pipe, guarda uma cópia num ficheiro temporário, na pasta de TMPDIR ou em /tmp; sem espaço
para ela, algumas coisas podem ficar por dizer.)",
    R"(Examples:

  saft validate company.xml
  saft validate company.xml --all

Of a file that is not valid it tells on standard error the first thing that the schema does not allow, with its record,
element, line and column; with --all it tells all of them, on standard output. The exit code is 1 then. A file that is not
well-formed is not valid. Where the file or the schema cannot be read, the exit code is 2.

Of standard input, where that is a pipe, it keeps a copy in a temporary file, in the folder of TMPDIR or in /tmp; without
room for it, some violations may be left out.)"};

}  // namespace zevo::saft::words

#endif  // ZEVO_TOOLS_SAFT_WORDS_VALIDATEWORDS_H_
