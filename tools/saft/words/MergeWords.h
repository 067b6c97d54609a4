// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TOOLS_SAFT_WORDS_MERGEWORDS_H_
#define ZEVO_TOOLS_SAFT_WORDS_MERGEWORDS_H_

#include "tools/saft/words/Text.h"

/// What "saft merge" says.
namespace zevo::saft::words {

inline constexpr Text<> kMergeFiles{"Ficheiros SAF-T a juntar, por qualquer ordem",
                                    "Audit files to merge, in any order"};
inline constexpr Text<> kMergeFilesArgument{"FICHEIROS.xml", "FILES.xml"};
inline constexpr Text<> kMergeOutput{"Ficheiro SAF-T a escrever; ainda não pode existir, a não ser com --force",
                                     "Audit file to write; it must not exist yet, unless with --force"};

inline constexpr Text<> kMergeHelp{
    R"(Exemplos:

  saft merge 2012-01.xml 2012-02.xml 2012-03.xml -o trimestre.xml
  saft merge 2012-*.xml -o ano.xml

Os ficheiros são de uma empresa e de períodos que não se sobrepõem. O que não é calculado é copiado, elemento por
elemento, tal como está: assinaturas (Hash), textos, códigos e números com todas as casas decimais.

  Cabeçalho              o do último período, com o StartDate e o FiscalYear do primeiro
  Contas, clientes,      cada um uma vez; se um difere entre ficheiros, é dito e fica o do último
  fornecedores, artigos
  Saldos de abertura     os do primeiro ficheiro que tem a conta
  Tabela de impostos     as entradas de todos os ficheiros, as iguais uma vez
  Diários                os do mesmo JournalID são um só, com a descrição do último ficheiro
  Movimentos, documentos por período e, em cada ficheiro, pela sua ordem
  Totais das secções     somados exatamente. Um documento anulado ou faturado conta como nos totais dos ficheiros; se
                         estes não dão com nenhuma forma de contar, só ficam de fora os de TransactionID "Anulado"

Nada é escrito, e é dito tudo o que o impede, quando há: um ficheiro que não é um ficheiro SAF-T 1.01_01, outra empresa
(TaxRegistrationNumber), outra TaxAccountingBasis, períodos que se sobrepõem, um InvoiceNo ou TransactionID repetido, ou
alguma coisa que não se pode copiar, como um atributo ou um elemento entre registos. Dias em falta entre períodos, um
período de mais de um ano e totais errados são ditos, e não o impedem.

Cada ficheiro é lido duas vezes, por isso a entrada padrão não serve. A memória é de poucos megabytes por ficheiro, mais
57 bytes por documento, e uns 120 por conta, cliente, fornecedor ou artigo. O ficheiro é validado antes de ser posto no
seu lugar.)",
    R"(Examples:

  saft merge 2012-01.xml 2012-02.xml 2012-03.xml -o quarter.xml
  saft merge 2012-*.xml -o year.xml

The files are of one company, and of periods that do not overlap. What is not computed is copied, element by element, as
it stands: signatures (Hash), texts, codes, and numbers with all their decimals.

  Header                 that of the last period, with the StartDate and the FiscalYear of the first
  Accounts, customers,   each once; where one differs between files, this is told and that of the last is kept
  suppliers, products
  Opening balances       those of the first file that has the account
  Tax table              the entries of all files, the same ones once
  Journals               those of one JournalID are one, with the description of the last file
  Transactions, invoices by period, and in the order of each file
  Totals of sections     added up exactly. Cancelled and billed documents count as in the totals of the files; where
                         those agree with no way of counting, only those whose TransactionID is "Anulado" are left out

Nothing is written, and all that is in the way is told, where there is: a file that is no audit file of version 1.01_01,
another company (TaxRegistrationNumber), another TaxAccountingBasis, periods that overlap, an InvoiceNo or TransactionID
that repeats, or something that cannot be copied, such as an attribute or an element between records. Days that lack
between periods, a period of more than a year and totals that are wrong are told and are not in the way.

Each file is read twice, so the standard input will not do. Memory is a few megabytes a file, 57 bytes a document, and
some 120 for each account, customer, supplier or product. The file is validated before it is put in its place.)"};

// What keeps files from being merged. The name of the file stands in front.

inline constexpr Text<> kReadTwice{"a entrada padrão não serve: cada ficheiro é lido duas vezes",
                                   "standard input will not do: each file is read twice"};
inline constexpr Text<> kOneOfTheFiles{"é um dos ficheiros a juntar", "is one of the files to merge"};
inline constexpr Text<> kNamedTwice{"está indicado duas vezes", "is named twice"};
inline constexpr Text<> kNoHeader{"não tem cabeçalho", "has no header"};
inline constexpr Text<2> kNoPeriod{"o cabeçalho não diz o período: StartDate é {1}, EndDate {2}",
                                   "the header tells no period: StartDate is {1}, EndDate {2}"};
inline constexpr Text<3> kOtherCompany{"é de outra empresa: TaxRegistrationNumber é {1}, em {2} é {3}",
                                       "is of another company: TaxRegistrationNumber is {1}, in {2} it is {3}"};
inline constexpr Text<3> kOtherBasis{"TaxAccountingBasis é {1}, em {2} é {3}",
                                     "TaxAccountingBasis is {1}, in {2} it is {3}"};
inline constexpr Text<5> kOverlap{"o período, {1} a {2}, sobrepõe-se ao de {3}, {4} a {5}",
                                  "its period, {1} to {2}, overlaps that of {3}, {4} to {5}"};
inline constexpr Text<1> kTwiceInFile{"{1} está lá duas vezes", "{1} is there twice"};
inline constexpr Text<2> kTwice{"{1} já está em {2}", "{1} is in {2} already"};
inline constexpr Text<1> kOneMoreTwice{"e mais {1} documento repetido", "and {1} more document that repeats"};
inline constexpr Text<1> kMoreTwice{"e mais {1} documentos repetidos", "and {1} more documents that repeat"};
inline constexpr Text<> kNotCopied{"tem o que não se pode copiar", "has what cannot be copied"};
inline constexpr Text<> kNotMerged{"não foi escrito, por causa destes erros", "not written, because of these errors"};
inline constexpr Text<1> kMoreViolations{"e mais {1} erros", "and {1} more errors"};

// Notes.

inline constexpr Text<2> kGap{"entre os períodos faltam dias: {1} a {2}", "days lack between the periods: {1} to {2}"};
inline constexpr Text<2> kLongerThanYear{"o período de todos os ficheiros, {1} a {2}, é de mais de um ano",
                                         "the period of all files, {1} to {2}, is longer than a year"};
inline constexpr Text<4> kDiffers{"{1}: {4} não é o mesmo em {2} e em {3}; fica o do último período",
                                  "{1}: {4} is not the same in {2} and in {3}; that of the last period is kept"};
inline constexpr Text<1> kOneMoreDiffers{"e mais {1} nota destas", "and {1} more note of this kind"};
inline constexpr Text<1> kMoreDiffer{"e mais {1} notas destas", "and {1} more notes of this kind"};
inline constexpr Text<1> kWrongTotals{"os totais de {1} não são os dos seus registos; os escritos são somados",
                                      "the totals of {1} are not those of its records; those written are added up"};
inline constexpr Text<1> kUnreadableAmount{"{1} valor não é um número; os totais ficam sem ele",
                                           "{1} amount is no number; the totals go without it"};
inline constexpr Text<1> kUnreadableAmounts{"{1} valores não são números; os totais ficam sem eles",
                                            "{1} amounts are no numbers; the totals go without them"};

}  // namespace zevo::saft::words

#endif  // ZEVO_TOOLS_SAFT_WORDS_MERGEWORDS_H_
