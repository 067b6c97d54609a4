// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TOOLS_SAFT_WORDS_CHECKWORDS_H_
#define ZEVO_TOOLS_SAFT_WORDS_CHECKWORDS_H_

#include "tools/saft/words/Text.h"

/// What "saft check" and "saft rules" say.
namespace zevo::saft::words {

inline constexpr Text<> kCheckJson{"Um objeto JSON por ficheiro, um por linha", "A JSON object a file, one a line"};
inline constexpr Text<> kCheckSarif{"Um documento SARIF 2.1.0 para todos os ficheiros",
                                    "A SARIF 2.1.0 document for all files"};
inline constexpr Text<> kCheckSummary{"Só quantas ocorrências há de cada regra, e o veredicto",
                                      "Only how many findings there are of each rule, and the verdict"};
inline constexpr Text<> kCheckKey{"Chave pública, em PEM, das assinaturas dos documentos, e a sua versão",
                                  "Public key, in PEM, of the signatures of documents, and its version"};
inline constexpr Text<> kCheckKeyValue{"FICHEIRO[:VERSÃO]", "FILE[:VERSION]"};
inline constexpr Text<> kCheckSeverity{"Gravidade de uma regra: error, warning, information ou off",
                                       "Severity of a rule: error, warning, information or off"};
inline constexpr Text<> kCheckSeverityValue{"REGRA=GRAVIDADE", "RULE=SEVERITY"};
inline constexpr Text<> kCheckMost{"Quantas ocorrências de cada regra se mostram; 20, ou 0 para todas",
                                   "How many findings of each rule are listed; 20, or 0 for all"};
inline constexpr Text<> kCheckConfiguration{"Ficheiro TOML com estas escolhas", "TOML file with these choices"};

inline constexpr Text<> kCheckHelp{
    R"(Exemplos:

  saft check empresa.xml
  saft check empresa.xml --summary
  saft check empresa.xml --severity NIF-PREFIX=off --max 5
  saft check empresa.xml --json
  saft check empresa.xml --sarif

Verifica o ficheiro pelo esquema e pelas regras que "saft rules" mostra. O que está mal vem por regra, com a linha e a
coluna, e no fim o veredicto. O que aqui se escolhe pode estar num ficheiro TOML, indicado com --config; o que está na
linha de comandos vale mais:

  max = 5
  schema = "SAF-T-PT_1_01.xsd"
  [severity]
  NIF-PREFIX = "off"
  [[public-keys]]
  file = "chave.pem"
  version = 1

Códigos de saída: 0 sem erros, 1 com erros, 2 se um ficheiro não se pôde verificar; de vários ficheiros, o pior. Da
entrada padrão, quando é um pipe, guarda uma cópia num ficheiro temporário, na pasta de TMPDIR ou em /tmp.)",
    R"(Examples:

  saft check company.xml
  saft check company.xml --summary
  saft check company.xml --severity NIF-PREFIX=off --max 5
  saft check company.xml --json
  saft check company.xml --sarif

Checks the file by the schema and by the rules that "saft rules" shows. Findings come by rule, each with its line and
column, and the verdict at the end. What is chosen here may stand in a TOML file that --config names; what is on the
command line counts for more:

  max = 5
  schema = "SAF-T-PT_1_01.xsd"
  [severity]
  NIF-PREFIX = "off"
  [[public-keys]]
  file = "key.pem"
  version = 1

Exit codes: 0 without errors, 1 with errors, 2 when a file could not be judged; of several files, the worst. Of standard
input, where that is a pipe, it keeps a copy in a temporary file, in the folder of TMPDIR or in /tmp.)"};

inline constexpr Text<> kRulesJson{"Uma lista JSON", "A JSON array"};
inline constexpr Text<> kRuleArgument{"REGRA", "RULE"};
inline constexpr Text<> kRulesOf{"Regras a explicar; sem nenhuma, mostra todas",
                                 "Rules to explain; without any, all are listed"};
inline constexpr Text<> kRulesHelp{
    R"(Exemplos:

  saft rules NIF-CHECK GL-BALANCE
  saft rules --json

Mostra o que "saft check" verifica: todas as regras, com a gravidade que têm se nada se escolhe, ou o que cada uma das
indicadas exige, e de que lei vem.)",
    R"(Examples:

  saft rules NIF-CHECK GL-BALANCE
  saft rules --json

Shows what "saft check" looks at: all rules, each with the severity that it has where none is chosen, or what each of
those named demands, and the law it comes from.)"};
inline constexpr Text<1> kRuleSince{"desde {1}", "since {1}"};
inline constexpr Text<1> kRuleUntil{"até {1}", "until {1}"};
inline constexpr Text<1> kRuleSource{"Fonte: {1}", "Source: {1}"};

// Severities, of one finding and of several.

inline constexpr Text<> kError{"erro", "error"};
inline constexpr Text<> kWarning{"aviso", "warning"};
inline constexpr Text<> kInformation{"informação", "note"};
inline constexpr Text<> kOff{"desligada", "off"};
inline constexpr Text<1> kErrors{"{1} erros", "{1} errors"};
inline constexpr Text<1> kOneError{"{1} erro", "{1} error"};
inline constexpr Text<1> kWarnings{"{1} avisos", "{1} warnings"};
inline constexpr Text<1> kOneWarning{"{1} aviso", "{1} warning"};
inline constexpr Text<1> kNotes{"{1} informações", "{1} notes"};
inline constexpr Text<1> kOneNote{"{1} informação", "{1} note"};
inline constexpr Text<> kNothingWrong{"sem erros nem avisos", "no errors or warnings"};
inline constexpr Text<> kNotJudged{"não verificado", "not judged"};
inline constexpr Text<1> kDocumentsJudged{"{1} documentos", "{1} documents"};
inline constexpr Text<1> kOneDocumentJudged{"{1} documento", "{1} document"};
inline constexpr Text<1> kTransactionsJudged{"{1} movimentos", "{1} transactions"};
inline constexpr Text<1> kOneTransactionJudged{"{1} movimento", "{1} transaction"};

// Of many files, how each came out.

inline constexpr Text<2> kFilesJudged{"{1} ficheiros: {2}", "{1} files: {2}"};
inline constexpr Text<1> kFilesClean{"{1} sem erros nem avisos", "{1} without errors or warnings"};
inline constexpr Text<1> kFilesWithWarnings{"{1} com avisos", "{1} with warnings"};
inline constexpr Text<1> kFilesWithErrors{"{1} com erros", "{1} with errors"};
inline constexpr Text<1> kFilesNotJudged{"{1} por verificar", "{1} not judged"};

// A rule with what it found, and where.

inline constexpr Text<4> kGroup{"{1} {2}: {3} ({4})", "{1} {2}: {3} ({4})"};
inline constexpr Text<3> kAtColumn{"{1} [linha {2}, coluna {3}]", "{1} [line {2}, column {3}]"};
inline constexpr Text<2> kAtLine{"{1} [linha {2}]", "{1} [line {2}]"};
inline constexpr Text<1> kFindingsMore{"… e mais {1}", "… and {1} more"};

// What is wrong with the choices.

inline constexpr Text<1> kUnknownRule{"a regra {1} não é conhecida", "the rule {1} is not known"};
inline constexpr Text<2> kUnknownSeverity{"a gravidade de {1} é error, warning, information ou off, não {2}",
                                          "the severity of {1} is error, warning, information or off, not {2}"};
inline constexpr Text<1> kNoSeverity{"--severity leva REGRA=GRAVIDADE, não {1}",
                                     "--severity takes RULE=SEVERITY, not {1}"};
inline constexpr Text<2> kNoCount{"{1} leva um número inteiro, 0 ou mais, não {2}",
                                  "{1} takes a whole number, 0 or more, not {2}"};
inline constexpr Text<> kNoKey{"não é uma chave pública RSA em PEM", "is no RSA public key in PEM"};

// What is wrong with a configuration file; its name and the place stand in front.

inline constexpr Text<> kNoToml{"o texto até aqui não é TOML", "the text up to here is no TOML"};
inline constexpr Text<1> kUnknownSetting{"{1} não é uma escolha", "{1} is no setting"};
inline constexpr Text<1> kNoText{"{1} tem de ser um texto entre aspas", "{1} must be a text in quotation marks"};
inline constexpr Text<1> kNoNumber{"{1} tem de ser um número inteiro, 0 ou mais",
                                   "{1} must be a whole number, 0 or more"};
inline constexpr Text<1> kNoTable{"{1} tem de ser uma tabela", "{1} must be a table"};
inline constexpr Text<1> kNoTables{"{1} tem de ser uma lista de tabelas, cada uma com file",
                                   "{1} must be a list of tables, each with file"};

}  // namespace zevo::saft::words

#endif  // ZEVO_TOOLS_SAFT_WORDS_CHECKWORDS_H_
