// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TOOLS_SAFT_WORDS_CREATEWORDS_H_
#define ZEVO_TOOLS_SAFT_WORDS_CREATEWORDS_H_

#include "tools/saft/words/Text.h"

// What "saft create" says beyond what is said of a dataset.
namespace zevo::saft::words {

inline constexpr Text<> kDatasetArgument{"PASTA", "DATASET"};
inline constexpr Text<> kDatasetOption{"Pasta do conjunto de dados", "Folder of the dataset"};
inline constexpr Text<> kFileOption{"Ficheiro SAF-T a escrever; ainda não pode existir",
                                    "Audit file to write; it must not exist yet"};
inline constexpr Text<> kForceOption{"Substituir um ficheiro que já existe", "Replace a file that is there already"};
inline constexpr Text<> kNoValidateOption{"Não validar o ficheiro pelo esquema antes de o pôr no seu lugar",
                                          "Put the file in its place without checking it against the schema"};
inline constexpr Text<> kStreamOption{"Escrever o ficheiro de seguida, em vez de o construir primeiro em memória",
                                      "Write the file from front to back instead of building it in memory first"};
inline constexpr Text<> kRoundOption{
    "Escrever mesmo assim os números que o ficheiro não comporta como são dados, ver abaixo",
    "Write numbers that the file does not hold as given all the same, see below"};
inline constexpr Text<> kPrivateKeyOption{
    "Assinar os documentos que não têm Hash com a chave privada deste ficheiro, ver abaixo",
    "Sign the documents that have no Hash with the private key in this file, see below"};
inline constexpr Text<1> kCreateHelp{
    R"(Exemplos:

  saft create dados empresa.xml
  saft create dados empresa.xml --stream
  saft create dados empresa.xml --private-key chave.pem

O conjunto de dados é uma pasta de ficheiros CSV; só header.csv tem de existir:

{1}
"saft template" escreve-os vazios; "saft columns" diz que colunas são obrigatórias, o que levam e o que o ficheiro tem
quando uma célula está vazia.

Os ficheiros são UTF-8 com vírgulas, e com aspas à volta das células que precisam delas. A primeira linha nomeia as
colunas. Uma coluna é uma propriedade do registo, como CustomerID; um ponto leva a um registo dentro dele:
BillingAddress.City. Os códigos escrevem-se como no ficheiro SAF-T (FT), sim e não como 1 e 0, os números com ponto.
Os espaços nas pontas de uma célula não contam. Uma célula vazia deixa o que um registo novo tem: no cabeçalho a moeda
EUR, o país PT e, como DateCreated, o dia de hoje; o país PT numa morada; 0 em números e em vez de sim ou não; os
códigos que "saft columns" diz; nos restantes casos nenhum texto. Um registo dentro de outro que pode faltar existe
quando uma das suas células está preenchida. A secção da contabilidade existe quando existem journals.csv e
transactions.csv, mesmo sem linhas; a secção das vendas, quando há uma fatura.

Os nomes são estes, letra por letra: um ficheiro CSV com outro nome é um erro; os que não são CSV são deixados em paz.
Também são erros uma linha cujo diário, movimento ou documento não existe, uma AuditFileVersion que não seja 1.01_01 e
registos com a mesma chave, exceto os de um mesmo documento: linhas com o mesmo LineNumber ou RecordID e notas de
crédito de uma linha com a mesma Reference ficam todas. Encomendas e notas de crédito que nomeiam uma dessas linhas vão
à vez para as linhas com esse número, e o que sobra para a primeira. Uma encomenda também pode estar em
invoice_lines.csv, como OrderReferences.OriginatingOn e OrderReferences.OrderDate.

Com --private-key cada documento cuja célula Hash está vazia é assinado, e onde HashControl está vazio, é 1. A chave é
RSA, de 1024 bits, em PEM e sem palavra-passe ("openssl genrsa -out chave.pem 1024"). Assina-se
InvoiceDate;SystemEntryDate;InvoiceNo;GrossTotal; e o Hash do documento anterior da série; no primeiro da série no
ficheiro, e depois de um Hash 0, não há anterior. Um documento que já tem Hash fica com ele. As linhas dos documentos de
uma série têm de estar por ordem de número.

Todo o conjunto de dados é verificado. Se alguma coisa estiver errada, nada é escrito: a saída de erros diz os primeiros
50 erros, cada um com ficheiro, linha, coluna e o que é permitido, e quantos mais há em cada ficheiro.

Dito e contado na saída de erros quando o ficheiro é escrito:

  - textos mais longos do que o esquema permite, que são encurtados
  - linhas cujas células estão todas vazias, que são ignoradas
  - totais de secções com mais de duas casas decimais, que são arredondados: o ficheiro tem-nos com duas
  - valores de TaxType e ProductCompanyTaxId diferentes dos que são iguais em todos os ficheiros, que são os escritos
  - o InvoiceType FS, para o qual a biblioteca não tem código: o elemento fica vazio
  - um cabeçalho sem BusinessName: o elemento fica vazio
  - uma segunda encomenda de uma linha, que fica de fora
  - chaves repetidas num documento, e encomendas e notas de crédito que nomeiam uma de várias linhas com o mesmo número
  - com --stream, textos com retornos de carro, que não são escritos como referências e se leem como mudanças de linha
  - números que o ficheiro não comporta como são dados; com eles nada é escrito, a não ser com --round:
      valores e quantidades com mais de quatro casas decimais, que são arredondados
      quantidades, e percentagens e valores de imposto de linhas de fatura, que a precisão simples altera: conserva
      cerca de sete algarismos
      um segundo número onde o ficheiro só comporta um: CreditAmount ao lado de DebitAmount, TaxAmount ao lado de
      TaxPercentage, CurrencyCreditAmount ao lado de CurrencyDebitAmount, nenhum deles 0. É escrito o primeiro.

Não dito, porque é assim que aqui se escrevem ficheiros SAF-T: os totais das secções são calculados. Os clientes
ficam juntos, e assim os registos de cada outro tipo; há uma só tabela de impostos. Os espaços nas pontas dos textos são
deixados de fora, e também os elementos sem texto que podem faltar. Os números não têm zeros a mais. Onde não há
SettlementAmount, é acrescentado como 0, e assim o CurrencyCreditAmount de uma moeda sem valor. Um débito de 0 é escrito
como crédito, uma percentagem de imposto de 0 como valor de imposto, e o país da empresa é PT onde não é dado.)",
    R"(Examples:

  saft create data company.xml
  saft create data company.xml --stream
  saft create data company.xml --private-key key.pem

The dataset is a folder of CSV files, each of which but header.csv may be absent:

{1}
"saft template" writes them empty; "saft columns" tells which columns are required, what goes into them, and what the
file has where a cell is empty.

The files are UTF-8 with commas, and quotation marks around cells that need them. The first row names the columns. A
column is a property of the record, such as CustomerID; a dot leads into a record inside: BillingAddress.City. Codes
are written as in the audit file (FT), yes and no as 1 and 0, numbers with a point. Spaces at the ends of a cell do not
count. An empty cell leaves what a new record has: the currency EUR, the country PT and, as DateCreated, today in the
header; the country PT in an address; 0 for numbers and for yes or no; the codes that "saft columns" names; no text
otherwise. A record inside another that may be absent is there when one of its cells is filled. The ledger section is
there when journals.csv and transactions.csv are, even without rows, the sales section when there is an invoice.

The names are these, letter for letter: a CSV file of another name is an error, files that are no CSV are left alone. A
row whose journal, transaction or document is not there is an error too, and so are an AuditFileVersion other than
1.01_01 and records with the same key, but for those of one document: lines with one LineNumber or RecordID and credit
notes of a line with one Reference are all kept. Orders and credit notes that name such a line go to the lines of that
number in turn, and what is left over to the first. An order may also stand in invoice_lines.csv, as
OrderReferences.OriginatingOn and OrderReferences.OrderDate.

With --private-key each document whose cell Hash is empty is signed, and HashControl is 1 where it is empty. The key is
one of RSA, of 1024 bits, as PEM and without a password ("openssl genrsa -out key.pem 1024"). What is signed is
InvoiceDate;SystemEntryDate;InvoiceNo;GrossTotal; and the Hash of the document before in the series; the first of its
series in the file, and one behind a Hash of 0, have none before. A document that has a Hash keeps it. The rows of the
documents of a series have to be sorted by number.

All of the dataset is looked through. When anything in it is wrong, nothing is written: standard error tells the first
50 errors, each with file, row, column and what is allowed, and how many more there are in each file.

Told and counted on standard error when the file is written:

  - texts that are longer than the schema allows, which are shortened
  - rows whose cells are all empty, which are skipped
  - section totals of more than two decimals, which are rounded: the file has them with two
  - values of TaxType and ProductCompanyTaxId other than those that are the same in every file, which are written
  - the InvoiceType FS, for which the library has no code: the element is empty
  - a header without a BusinessName: the element is empty
  - a second order of a line, which is left out
  - keys that repeat in one document, and orders and credit notes that name one of several lines of the same number
  - with --stream, texts with carriage returns, which are not written as references and read back as line feeds
  - numbers that the file does not hold as given; with them nothing is written, unless --round is given:
      amounts and quantities of more than four decimals, which are rounded
      quantities, and tax percentages and amounts of invoice lines, that single precision changes: it keeps about
      seven digits
      a second number where the file holds only one: CreditAmount beside DebitAmount, TaxAmount beside TaxPercentage,
      CurrencyCreditAmount beside CurrencyDebitAmount, neither of them 0. The first of them is written.

Not told, because it is how audit files are written here: totals of sections are computed. Customers stand together, and
so do the records of every other kind; there is one tax table. Spaces at the ends of texts are left out, and so are
elements without a text that may be absent. Numbers have no zeros to spare. Where there is no SettlementAmount it is
added as 0, and so is the CurrencyCreditAmount of a currency without amount. A debit of 0 is written as a credit, a tax
percentage of 0 as a tax amount, and the country of the company is PT where it is not given.)"};

inline constexpr Text<> kIsThereAlready{"já existe; --force substitui-o", "is there already; --force replaces it"};
inline constexpr Text<> kOfTheDataset{"é um ficheiro do conjunto de dados", "is a file of the dataset"};
inline constexpr Text<> kNotWrittenRounded{"não foi escrito, por causa destes números; --round escreve-o mesmo assim",
                                           "not written, because of these numbers; --round writes it all the same"};
inline constexpr Text<> kNoTransactionsFile{"não escrito, não há transactions.csv",
                                            "not written, there is no transactions.csv"};
inline constexpr Text<> kNoHeaderFile{"não existe, e um ficheiro sem cabeçalho nunca é válido",
                                      "is not there, and a file without a header is never valid"};
inline constexpr Text<> kNoHeaderRow{"não tem nenhuma linha, e um ficheiro sem cabeçalho nunca é válido",
                                     "has no row, and a file without a header is never valid"};
inline constexpr Text<> kSecondHeader{"um segundo cabeçalho", "a second header"};
inline constexpr Text<> kQuotationMark{"um JournalID com aspas só é escrito com --stream",
                                       "a JournalID with a quotation mark is written with --stream only"};
inline constexpr Text<> kNoPrivateKey{"não tem uma chave privada RSA, em PEM", "has no private key of RSA, as PEM"};
inline constexpr Text<> kEncryptedKey{"a chave privada está protegida por palavra-passe; guarde-a sem ela",
                                      "the private key is protected by a password; save it without"};
inline constexpr Text<> kOtherKeySize{"a chave privada não é de 1024 bits, e só uma assinatura dessas cabe em Hash",
                                      "the private key is not of 1024 bits, and only such a signature fits a Hash"};
inline constexpr Text<> kNoDocumentNumber{"não é um número de documento como FT A/12, e não pode ser assinado",
                                          "is no number of a document such as FT A/12, and cannot be signed"};
inline constexpr Text<> kNotAlongSeries{
    "vem depois de um número maior ou igual da mesma série; para assinar, ordene as linhas por número",
    "comes behind a higher or equal number of its series; to sign, sort the rows by number"};
inline constexpr Text<> kNoSuchLine{"não há essa linha na fatura", "no such line in its invoice"};
inline constexpr Text<1> kNoRowIn{"não tem nenhuma linha em {1}", "has no row in {1}"};
inline constexpr Text<> kEmptyCell{"está vazia, e é obrigatória", "is empty, and it is required"};
inline constexpr Text<1> kNotLike{"não tem a forma certa, que é como {1}",
                                  "does not have the right form, which is like {1}"};
inline constexpr Text<1> kNoneOfTheCodes{"não é nenhum dos códigos, que \"saft columns {1}\" diz",
                                         "is none of the codes, which \"saft columns {1}\" tells"};
inline constexpr Text<> kCannotBeWritten{"não pode ser escrito, e o elemento não pode ficar vazio",
                                         "cannot be written, and the element must not be empty"};
inline constexpr Text<> kTotalOutOfRange{"o total da secção até esta linha é demasiado grande para o ficheiro",
                                         "the total of the section up to this row is too great for the file"};

}  // namespace zevo::saft::words

#endif  // ZEVO_TOOLS_SAFT_WORDS_CREATEWORDS_H_
