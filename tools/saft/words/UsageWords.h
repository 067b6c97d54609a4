// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TOOLS_SAFT_WORDS_USAGEWORDS_H_
#define ZEVO_TOOLS_SAFT_WORDS_USAGEWORDS_H_

#include "tools/saft/words/Text.h"

/// How the program and its commands are called, and what is wrong with a call.
namespace zevo::saft::words {

inline constexpr Text<> kProgram{"Escreve, valida, resume e lista ficheiros SAF-T (PT) 1.01_01.",
                                 "Writes, checks, sums up and lists SAF-T (PT) 1.01_01 audit files."};

inline constexpr Text<> kProgramHelp{
    R"(Para começar, de uma pasta de ficheiros CSV a um ficheiro válido:

  saft template dados                    escreve os ficheiros CSV, vazios
  saft columns                           diz o que vai em cada coluna
  saft create dados empresa.xml          faz deles um ficheiro SAF-T, que valida
  saft check empresa.xml                 verifica se está certo
  saft summary empresa.xml               mostra o que lá está

Mais sobre um comando, com exemplos: saft COMANDO --help

O programa fala português ou inglês: como diz --lang, senão como o terminal.

Códigos de saída, de todos os comandos:

  0  feito; em validate: o ficheiro é válido; em check: sem erros
  1  só em validate e check: o ficheiro não é válido, ou tem erros
  2  não foi possível, ou só em parte (o que list e summary não conseguem ler do ficheiro); os erros são ditos na
     saída de erros)",
    R"(To begin, from a folder of CSV files to a valid file:

  saft template data                     writes the CSV files, empty
  saft columns                           tells what goes into each column
  saft create data company.xml           makes an audit file of them, and validates it
  saft check company.xml                 checks whether it is right
  saft summary company.xml               shows what is in it

More about a command, with examples: saft COMMAND --help

The program speaks Portuguese or English: as --lang says, else as the terminal does.

Exit codes, of all commands:

  0  done; of validate: the file is valid; of check: no errors
  1  of validate and check only: the file is not valid, or has errors
  2  it could not be done, or only in part (what list and summary cannot read of the file); errors are told on
     standard error)"};

// The headings of a help page and what its options have in common.

inline constexpr Text<> kUsage{"Utilização", "Usage"};
inline constexpr Text<> kArguments{"Argumentos", "Arguments"};
inline constexpr Text<> kOptions{"Opções", "Options"};
inline constexpr Text<> kCommands{"Comandos", "Commands"};
inline constexpr Text<> kOptionsBadge{"OPÇÕES", "OPTIONS"};
inline constexpr Text<> kCommandBadge{"COMANDO", "COMMAND"};
inline constexpr Text<> kHelpOption{"Mostra esta ajuda", "Print this help"};
inline constexpr Text<> kVersionOption{"Mostra a versão do programa", "Print the version of the program"};
inline constexpr Text<> kLanguageOption{"Fala português ou inglês", "Speak Portuguese or English"};

inline constexpr Text<> kFileArgument{"FICHEIRO.xml", "FILE.xml"};
inline constexpr Text<> kFileValue{"FICHEIRO", "FILE"};
inline constexpr Text<> kFolderArgument{"PASTA", "DIR"};
inline constexpr Text<> kKindArgument{"TIPO", "KIND"};
inline constexpr Text<> kInputFile{"Ficheiro SAF-T a ler, - para a entrada padrão",
                                   "Audit file to read, - for standard input"};
inline constexpr Text<> kSchemaOption{"Esquema a usar em vez do que vem com o programa",
                                      "Schema to use instead of the one that comes with the program"};

// What each command does.

inline constexpr Text<> kTemplateCommand{"Escreve os ficheiros CSV de uma empresa, só com os nomes das colunas",
                                         "Write the CSV files of a company, with nothing but the names of columns"};
inline constexpr Text<> kColumnsCommand{"Diz o que vai em cada coluna dos ficheiros CSV",
                                        "Tell what goes into each column of the CSV files"};
inline constexpr Text<> kCreateCommand{"Faz de uma pasta de ficheiros CSV um ficheiro SAF-T",
                                       "Turn a folder of CSV files into an audit file"};
inline constexpr Text<> kValidateCommand{"Verifica um ficheiro SAF-T pelo esquema",
                                         "Check an audit file against the schema"};
inline constexpr Text<> kCheckCommand{"Verifica se ficheiros SAF-T estão certos, pelo esquema e por regras",
                                      "Check whether audit files are right, by the schema and by rules"};
inline constexpr Text<> kRulesCommand{"Mostra e explica as regras da verificação",
                                      "List and explain the rules of the check"};
inline constexpr Text<> kSummaryCommand{"Mostra o que um ficheiro SAF-T tem: cabeçalho, contagens e totais",
                                        "Tell what an audit file holds: header, counts and totals"};
inline constexpr Text<> kListCommand{"Escreve os registos de um ficheiro SAF-T em CSV ou JSON",
                                     "Write the records of an audit file as CSV or JSON"};
inline constexpr Text<> kMergeCommand{"Junta ficheiros SAF-T de uma empresa num só, como os meses de um ano",
                                      "Make one file of audit files of a company, such as the months of a year"};

// What commands that judge a file say of it.

inline constexpr Text<1> kValid{"{1}: válido", "{1}: valid"};

// What is wrong with a call.

inline constexpr Text<1> kSeeHelp{"Veja a ajuda: {1} --help", "See the help: {1} --help"};
inline constexpr Text<1> kCommandMissing{"falta o comando, que é um de: {1}",
                                         "the command is missing, which is one of: {1}"};
inline constexpr Text<1> kUnknownCommand{"o comando {1} não é conhecido", "the command {1} is not known"};
inline constexpr Text<2> kArgumentMissing{"o comando {1} precisa de {2}", "the command {1} needs {2}"};
inline constexpr Text<2> kArgumentTooMany{"o comando {1} não leva mais argumentos: {2}",
                                          "the command {1} takes no more arguments: {2}"};
inline constexpr Text<2> kUnknownOption{"o comando {1} não tem a opção {2}", "the command {1} has no option {2}"};
inline constexpr Text<3> kValueMissing{"o comando {1} precisa de um valor depois de {2}: {3}",
                                       "the command {1} needs a value behind {2}: {3}"};
inline constexpr Text<2> kValueTooMuch{"a opção {2} do comando {1} não leva um valor",
                                       "the option {2} of the command {1} takes no value"};
inline constexpr Text<2> kOptionTwice{"o comando {1} só leva a opção {2} uma vez",
                                      "the command {1} takes the option {2} only once"};
inline constexpr Text<3> kNotTogether{"o comando {1} não leva {2} e {3} ao mesmo tempo",
                                      "the command {1} does not take both {2} and {3}"};
inline constexpr Text<3> kOnlyWith{"o comando {1} só leva {2} com {3}", "the command {1} takes {2} only with {3}"};
inline constexpr Text<1> kWrongUsage{"o comando {1} não se usa assim", "the command {1} is not used like that"};
inline constexpr Text<1> kUnknownLanguage{"--lang leva pt ou en, não {1}", "--lang takes pt or en, not {1}"};

}  // namespace zevo::saft::words

#endif  // ZEVO_TOOLS_SAFT_WORDS_USAGEWORDS_H_
