// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TOOLS_SAFT_WORDS_DATASETWORDS_H_
#define ZEVO_TOOLS_SAFT_WORDS_DATASETWORDS_H_

#include "tools/saft/words/Text.h"

// What is said of a dataset: its folder, files, columns and cells.
namespace zevo::saft::words {

inline constexpr Text<> kNoSuchFolder{"a pasta não existe", "no such folder"};
inline constexpr Text<> kNotAFolder{"não é uma pasta", "not a folder"};
inline constexpr Text<> kNotADataset{
    "não é um conjunto de dados: não tem header.csv, customers.csv, ... (para começar: saft template)",
    "not a dataset: it has no header.csv, customers.csv, ... (to begin: saft template)"};
inline constexpr Text<> kUnknownFile{"não é um ficheiro de um conjunto de dados", "is not a file of a dataset"};
inline constexpr Text<> kTooManyLines{"tem linhas a mais", "has too many lines"};

// Columns.
inline constexpr Text<1> kUnknownColumn{"a coluna {1} não é conhecida", "column {1} is not known"};
inline constexpr Text<2> kNoHeading{
    "esta linha não tem o nome de nenhuma coluna; a primeira linha tem de ter os nomes das colunas, como {1} (saft "
    "columns {2})",
    "this row names no column; the first row must have the names of the columns, such as {1} (saft columns {2})"};
inline constexpr Text<1> kRecordColumn{"a coluna {1} tem de nomear uma propriedade, depois de um ponto",
                                       "column {1} must name one of its properties, after a dot"};
inline constexpr Text<1> kColumnMissing{"falta a coluna {1}", "column {1} is missing"};
inline constexpr Text<2> kNoColumn{"{1} não tem a coluna {2}", "{1} has no column {2}"};

// Cells.
inline constexpr Text<> kOutOfRange{"fora do intervalo permitido", "out of range"};
inline constexpr Text<> kNotAnAmount{"não é um valor com ponto decimal", "not an amount with a decimal point"};
inline constexpr Text<> kNotADecimal{"não é um número com ponto decimal", "not a number with a decimal point"};
inline constexpr Text<> kNotAFlag{"não é 0 nem 1", "is neither 0 nor 1"};
inline constexpr Text<> kNotWhole{"não é um número inteiro", "not a whole number"};
inline constexpr Text<1> kNotACode{"não é um de {1}", "not one of {1}"};
inline constexpr Text<1> kOnlyConstant{"só {1} pode ser escrito", "only {1} can be written"};
inline constexpr Text<> kNotXml{"tem um carácter que XML não permite", "has a character that XML does not allow"};

// Keys.
inline constexpr Text<1> kDuplicate{"repetido, já está na linha {1}", "duplicate, row {1} has it already"};
inline constexpr Text<1> kNotIn{"não está em {1}", "not in {1}"};
inline constexpr Text<1> kEmptyKey{"está vazia; diga uma de {1}, ou apague a linha se for de totais",
                                   "is empty; name one of {1}, or delete the row if it holds totals"};

// How many errors there are besides those that are told.
inline constexpr Text<1> kOneMoreError{"mais {1} erro", "{1} more error"};
inline constexpr Text<1> kMoreErrors{"mais {1} erros", "{1} more errors"};

// How an audit file differs from its dataset: of one and of several what becomes of them.
inline constexpr Text<1> kOneShortened{"{1} texto encurtado para o que o esquema permite",
                                       "{1} text shortened to what the schema allows"};
inline constexpr Text<1> kShortened{"{1} textos encurtados para o que o esquema permite",
                                    "{1} texts shortened to what the schema allows"};
inline constexpr Text<1> kOneRounded{"{1} número arredondado para o que o ficheiro comporta",
                                     "{1} number rounded to what the file holds"};
inline constexpr Text<1> kRounded{"{1} números arredondados para o que o ficheiro comporta",
                                  "{1} numbers rounded to what the file holds"};
inline constexpr Text<1> kOneWouldBeRounded{"{1} número seria arredondado para o que o ficheiro comporta",
                                            "{1} number would be rounded to what the file holds"};
inline constexpr Text<1> kWouldBeRounded{"{1} números seriam arredondados para o que o ficheiro comporta",
                                         "{1} numbers would be rounded to what the file holds"};
inline constexpr Text<1> kOneLeftOut{"{1} número deixado de fora, o ficheiro só comporta um dos dois",
                                     "{1} number left out, the file holds only one of the two"};
inline constexpr Text<1> kNumbersLeftOut{"{1} números deixados de fora, o ficheiro só comporta um dos dois",
                                         "{1} numbers left out, the file holds only one of the two"};
inline constexpr Text<1> kOneWouldBeLeftOut{"{1} número ficaria de fora, o ficheiro só comporta um dos dois",
                                            "{1} number would be left out, the file holds only one of the two"};
inline constexpr Text<1> kWouldBeLeftOut{"{1} números ficariam de fora, o ficheiro só comporta um dos dois",
                                         "{1} numbers would be left out, the file holds only one of the two"};
inline constexpr Text<1> kOneEmptyRow{"{1} linha sem nenhum valor ignorada", "{1} row without any value skipped"};
inline constexpr Text<1> kEmptyRows{"{1} linhas sem nenhum valor ignoradas", "{1} rows without any value skipped"};
inline constexpr Text<1> kOneTotal{"{1} total arredondado a duas casas decimais", "{1} total rounded to two decimals"};
inline constexpr Text<1> kTotals{"{1} totais arredondados a duas casas decimais", "{1} totals rounded to two decimals"};
inline constexpr Text<1> kOneConstant{"{1} valor substituído pela constante que o ficheiro tem nesse sítio",
                                      "{1} value replaced by the constant that the file has there"};
inline constexpr Text<1> kConstants{"{1} valores substituídos pela constante que o ficheiro tem nesse sítio",
                                    "{1} values replaced by the constant that the file has there"};
inline constexpr Text<1> kOneUnknownCode{
    "{1} código deixado de fora, o elemento fica vazio: a biblioteca não tem esse código",
    "{1} code left out, the element is empty: the library has no such code"};
inline constexpr Text<1> kUnknownCodes{
    "{1} códigos deixados de fora, o elemento fica vazio: a biblioteca não tem esses códigos",
    "{1} codes left out, the element is empty: the library has no such code"};
inline constexpr Text<1> kOneAbsent{"{1} texto ausente escrito como elemento vazio",
                                    "{1} absent text written as an empty element"};
inline constexpr Text<1> kAbsent{"{1} textos ausentes escritos como elementos vazios",
                                 "{1} absent texts written as an empty element"};
inline constexpr Text<1> kOneSecond{"{1} linha deixada de fora, uma linha de fatura só comporta uma encomenda",
                                    "{1} row left out, a line holds only one order"};
inline constexpr Text<1> kSeconds{"{1} linhas deixadas de fora, uma linha de fatura só comporta uma encomenda",
                                  "{1} rows left out, a line holds only one order"};
inline constexpr Text<1> kOneRepeatedKey{"{1} chave repetida num documento e mantida",
                                         "{1} key repeated in one document and kept"};
inline constexpr Text<1> kRepeatedKeys{"{1} chaves repetidas num documento e mantidas",
                                       "{1} keys repeated in one document and kept"};
inline constexpr Text<1> kOneGuess{"{1} linha dada a uma de várias linhas com o mesmo número",
                                   "{1} row given to one of several lines of the same number"};
inline constexpr Text<1> kGuesses{"{1} linhas dadas a uma de várias linhas com o mesmo número",
                                  "{1} rows given to one of several lines of the same number"};
inline constexpr Text<1> kOneWithReturns{"{1} texto com retornos de carro, que são lidos como mudanças de linha",
                                         "{1} text with carriage returns, which read back as line feeds"};
inline constexpr Text<1> kWithReturns{"{1} textos com retornos de carro, que são lidos como mudanças de linha",
                                      "{1} texts with carriage returns, which read back as line feeds"};
inline constexpr Text<2> kFromToCharacters{"de {1} para {2} caracteres", "from {1} to {2} characters"};
inline constexpr Text<2> kTo{"{1} para {2}", "{1} to {2}"};
inline constexpr Text<3> kBeside{"{1} ao lado de {2} {3}", "{1} beside {2} {3}"};

// What the rows of the files are.
inline constexpr Text<> kHeaderRows{"a empresa e o período, uma linha", "the company and the period, one row"};
inline constexpr Text<> kGeneralLedgerRows{"contas", "ledger accounts"};
inline constexpr Text<> kCustomersRows{"clientes", "customers"};
inline constexpr Text<> kSuppliersRows{"fornecedores", "suppliers"};
inline constexpr Text<> kProductsRows{"produtos e serviços", "products and services"};
inline constexpr Text<> kTaxTableRows{"taxas de imposto", "tax rates"};
inline constexpr Text<> kJournalsRows{"diários", "journals"};
inline constexpr Text<> kTransactionsRows{"movimentos; JournalID diz o diário",
                                          "transactions; JournalID tells the journal"};
inline constexpr Text<> kTransactionLinesRows{"as suas linhas; TransactionID diz o movimento",
                                              "their lines; TransactionID tells the transaction"};
inline constexpr Text<> kInvoicesRows{"documentos de venda", "sales documents"};
inline constexpr Text<> kInvoiceLinesRows{"as suas linhas; InvoiceNo diz o documento",
                                          "their lines; InvoiceNo tells the document"};
inline constexpr Text<> kOrderReferencesRows{"as suas encomendas; InvoiceNo e LineNumber dizem a linha",
                                             "their orders; InvoiceNo and LineNumber tell the line"};
inline constexpr Text<> kCreditNotesRows{"documentos retificados; InvoiceNo e LineNumber dizem a linha",
                                         "documents corrected; InvoiceNo and LineNumber tell the line"};

}  // namespace zevo::saft::words

#endif  // ZEVO_TOOLS_SAFT_WORDS_DATASETWORDS_H_
