// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TOOLS_SAFT_WORDS_SUMMARYWORDS_H_
#define ZEVO_TOOLS_SAFT_WORDS_SUMMARYWORDS_H_

#include "tools/saft/words/Text.h"

/// What "saft summary" says.
namespace zevo::saft::words {

inline constexpr Text<> kSummaryJson{"Escreve JSON para programas, com os valores como textos",
                                     "Write JSON for programs, with amounts as texts"};

inline constexpr Text<> kSummaryHelp{
    R"(Exemplos:

  saft summary empresa.xml
  saft summary empresa.xml --json

O cabeçalho, os códigos e os totais das secções são ditos tal como estão no ficheiro, as somas como dão os registos, ao
cêntimo e sem arredondar. Os documentos cujo TransactionID é "Anulado" ficam fora dos dois totais; a tabela dos tipos de
documento tem todos. Um traço está em vez de um total que o ficheiro não tem. O ficheiro é lido uma vez e pode ter qualquer
tamanho.

O que faz com que os números sejam diferentes do ficheiro, ou possam ser, é dito no fim e faz com que o código de saída
seja 2:
  um valor ou total que não é um número: as somas a que pertence ficam sem ele e têm um *
  um elemento de que se fazem números, um cabeçalho ou uma secção que existe duas vezes: conta o primeiro
  um elemento dentro de um de que se fazem números: conta o primeiro pedaço do texto
  um elemento entre registos, num diário, numa secção ou na tabela de impostos, que não é um registo, ou um noutro sítio
  com o nome de um registo ou de um elemento de que se fazem números: pode ser um mal escrito
  um registo fora do seu lugar: conta entre os do seu tipo
  um ficheiro que não diz a sua versão
Códigos desconhecidos, outras constantes, mais de quatro casas decimais e chaves repetidas não mudam nenhum número.

Em JSON, os valores e os totais de InFile são textos; os membros de Counts e outros números de registos são números.
Version é o AuditFileVersion do cabeçalho. null é o que o ficheiro não tem. Unreadable, onde existe, diz por nome quantos
textos ao lado não são números, ou sem quantos valores fica uma soma. Problems tem o seu número, Count, e em First os
primeiros cinco de cada tipo, em frases.)",
    R"(Examples:

  saft summary company.xml
  saft summary company.xml --json

The header, codes and section totals are told as the file has them, sums as its records sum up to, exactly. Documents
whose TransactionID is "Anulado" are left out of both totals; the table of invoice types has all documents. A dash stands
for a total that the file does not have. The file is read in one pass and may be of any size.

What makes figures differ from the file, or may, is told at the end and makes the exit code 2:
  an amount or total that is no number: sums that it belongs to go without it and have a *
  an element of which figures are made, a header or a section that is there twice: the first one counts
  an element inside one of which figures are made: the first piece of its text counts
  an element between records, in a journal, a section or the tax table, that is no record, or one elsewhere with the
  name of a record or of an element of which figures are made: it may be one spelt otherwise
  a record out of its place: it counts among those of its kind
  a file that does not say its version
Codes that are unknown, other constants, decimals beyond four and repeated keys change no figure.

In JSON, amounts and the totals of InFile are texts; the members of Counts and other numbers of entries are numbers.
Version is the AuditFileVersion of the header. null is what the file does not have. Unreadable, where it is there, tells
by name how many texts beside it are no numbers, or how many amounts a sum goes without. Problems has their Count, and
First: the first five of each kind, in sentences.)"};

inline constexpr Text<> kHeading{"Cabeçalho", "Header"};
inline constexpr Text<> kRecords{"Registos", "Records"};
inline constexpr Text<> kLedgerEntries{"Movimentos contabilísticos", "General ledger entries"};
inline constexpr Text<> kJournals{"Diários", "Journals"};
inline constexpr Text<> kSalesInvoices{"Documentos de venda", "Sales invoices"};
inline constexpr Text<> kInvoiceTypes{"Tipos de documento", "Invoice types"};

inline constexpr Text<> kEntries{"Registos", "Entries"};
inline constexpr Text<> kDebit{"Débito", "Debit"};
inline constexpr Text<> kCredit{"Crédito", "Credit"};
inline constexpr Text<> kTax{"Imposto", "Tax"};
inline constexpr Text<> kNet{"Sem imposto", "Net"};
inline constexpr Text<> kGross{"Com imposto", "Gross"};
inline constexpr Text<> kJournal{"Diário", "Journal"};
inline constexpr Text<> kDescription{"Descrição", "Description"};
inline constexpr Text<> kType{"Tipo", "Type"};
inline constexpr Text<> kNone{"nenhum", "none"};

inline constexpr Text<> kInTheFile{"No ficheiro", "In the file"};
inline constexpr Text<> kAsSummed{"Somados", "As summed"};
inline constexpr Text<> kDifference{"Diferença", "Difference"};
inline constexpr Text<> kLeftOut{"De fora (Anulado)", "Left out (Anulado)"};
inline constexpr Text<> kWithoutUnreadable{"* sem os valores que não se conseguem ler",
                                           "* without the amounts that cannot be read"};
/// What stands before the decimals of a figure.
inline constexpr Text<> kDecimalMark{",", "."};

}  // namespace zevo::saft::words

#endif  // ZEVO_TOOLS_SAFT_WORDS_SUMMARYWORDS_H_
