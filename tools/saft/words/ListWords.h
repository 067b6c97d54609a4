// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TOOLS_SAFT_WORDS_LISTWORDS_H_
#define ZEVO_TOOLS_SAFT_WORDS_LISTWORDS_H_

#include "tools/saft/words/Text.h"

/// What "saft list" says.
namespace zevo::saft::words {

inline constexpr Text<> kListKind{"Que registos; os tipos estão abaixo", "Which records; the kinds are below"};
inline constexpr Text<> kListAll{"Escreve todos os registos numa pasta nova, para \"saft create\"",
                                 "Write all records into a new folder, for \"saft create\""};
inline constexpr Text<> kListColumns{"Só estas colunas; em CSV por esta ordem",
                                     "Only these columns, in CSV in this order"};
inline constexpr Text<> kListWhere{"Só os registos com este valor; pode repetir-se",
                                   "Only the records that have this value; may be given several times"};
inline constexpr Text<> kListOutput{"Escreve num ficheiro novo, - para a saída padrão",
                                    "Write into a new file, - for standard output"};
inline constexpr Text<> kListJson{"Escreve um objeto JSON por linha em vez de CSV",
                                  "Write a JSON object a line instead of CSV"};
inline constexpr Text<> kListExcel{"Escreve CSV para o Excel português: pontos e vírgulas, vírgulas decimais",
                                   "Write CSV for a Portuguese Excel: semicolons, decimal commas"};
inline constexpr Text<> kListColumnsValue{"A,B,...", "A,B,..."};
inline constexpr Text<> kListWhereValue{"COLUNA=VALOR", "COLUMN=VALUE"};

inline constexpr Text<1> kListHelp{
    R"(Exemplos:

  saft list empresa.xml Customer
  saft list empresa.xml Invoice --where InvoiceType=NC --columns InvoiceNo,DocumentTotals.GrossTotal
  saft list empresa.xml Invoice --excel -o faturas.csv
  saft list empresa.xml --all dados

Tipos:
{1}

O ficheiro é lido uma vez e pode ter qualquer tamanho. Uma lista tem os textos dos elementos tal como estão no ficheiro,
sem espaços nas pontas; um elemento que não existe é uma célula vazia, em JSON null. As colunas têm os nomes das
propriedades dos registos, um ponto leva a um registo dentro de outro: BillingAddress.City. O CSV de um tipo é um ficheiro
dos que "saft create" lê.

Em JSON todos os valores são textos, para que os números fiquem com todos os algarismos; os registos dentro de outros são
objetos, as linhas e semelhantes são listas.

--where compara valores como números, tudo o resto letra a letra: --where DocumentTotals.NetTotal=0
--excel escreve pontos e vírgulas, vírgulas decimais e a marca de UTF-8. Um texto que o Excel calcularia ou tomaria por um
número ou uma data, como =1+1, 007 ou 1-2, começa por um apóstrofo.

O que faz com que uma lista seja diferente do ficheiro, ou engane, é dito no fim e faz com que o código de saída seja 2: um
texto que não pode ser o valor do seu elemento, como um valor de 12x, que fica na lista tal como está; elementos que não
são conhecidos onde estão, e os que lá estão mais uma vez, que ficam de fora; um ficheiro que não diz a sua versão. Um
ficheiro de outra versão, ou que não é um ficheiro SAF-T, não é listado.)",
    R"(Examples:

  saft list company.xml Customer
  saft list company.xml Invoice --where InvoiceType=NC --columns InvoiceNo,DocumentTotals.GrossTotal
  saft list company.xml Invoice --excel -o invoices.csv
  saft list company.xml --all data

Kinds:
{1}

The file is read in one pass and may be of any size. A list has the texts of the elements as they stand in the file,
without white space at their ends; an element that is not there is an empty cell, in JSON null. Columns are named as the
properties of the records, a dot leads into a child: BillingAddress.City. The CSV of a kind is a file of those that
"saft create" reads.

In JSON every value is a text, so that numbers keep all their digits; children are objects, lines and the like are lists.

--where compares amounts as numbers, all else letter by letter: --where DocumentTotals.NetTotal=0
--excel writes semicolons, decimal commas and a byte order mark. A text that a spreadsheet program would calculate or
take for a number or a date, such as =1+1, 007 or 1-2, begins with an apostrophe.

What makes a list differ from the file, or mislead, is told at the end and makes the exit code 2: a text that cannot be
the value of its element, such as an amount of 12x, which is listed as it stands; elements that are not known where they
stand, and those that stand there once more, which are left out; a file that does not say its version. A file of another
version, or one that is no audit file, is not listed at all.)"};

inline constexpr Text<> kListNeedsKind{"o comando list precisa de um TIPO, ou de --all PASTA",
                                       "the command list needs a KIND, or --all DIR"};
inline constexpr Text<1> kUnknownKind{"o tipo {1} não é conhecido", "the kind {1} is not known"};
inline constexpr Text<1> kNoCondition{"--where leva COLUNA=VALOR, não {1}", "--where takes COLUMN=VALUE, not {1}"};

}  // namespace zevo::saft::words

#endif  // ZEVO_TOOLS_SAFT_WORDS_LISTWORDS_H_
