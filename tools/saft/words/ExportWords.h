// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TOOLS_SAFT_WORDS_EXPORTWORDS_H_
#define ZEVO_TOOLS_SAFT_WORDS_EXPORTWORDS_H_

#include "tools/saft/words/Text.h"

/// What "saft export" says.
namespace zevo::saft::words {

inline constexpr Text<> kExportCommand{"Põe ficheiros numa base de dados, em folhas de cálculo ou numa pasta",
                                       "Put files into a database, into spreadsheets or into a folder"};
inline constexpr Text<> kExportFiles{"Ficheiros SAF-T a ler", "Audit files to read"};
inline constexpr Text<> kExportTo{"Para onde vão as tabelas; ver abaixo", "Where the tables go, see below"};
inline constexpr Text<> kExportToValue{"DESTINO", "TARGET"};
inline constexpr Text<> kExportReplace{
    "Substitui o que o destino tem da mesma empresa e período; uma pasta ou um livro, todo",
    "Replace what the target has of the company in the period; a folder or a workbook, as a whole"};
inline constexpr Text<> kExportFormat{"Como são os ficheiros de uma pasta: csv, que é o normal, ou jsonl",
                                      "How the files of a folder are: csv, which is the default, or jsonl"};
inline constexpr Text<> kExportPartition{"Divide as tabelas de uma pasta por empresa e ano",
                                         "Divide the tables of a folder by company and year"};
inline constexpr Text<> kExportCheck{"Junta o que \"saft check\" encontra, na tabela findings",
                                     "Add what \"saft check\" finds, in the table findings"};

inline constexpr Text<> kExportHelp{
    R"(Exemplos:

  saft export empresa.xml --to livros.db
  saft export empresa.xml --to livros.db --check
  saft export empresa.xml --to livros.xlsx
  saft export empresa.xml --to livros/
  saft export empresa.xml --to livros/ --format jsonl --partition

O DESTINO diz o que é feito:

  livros.db     uma base de dados SQLite, que é criada se não existir
  postgresql:// uma base de dados PostgreSQL, como postgresql://ana@servidor/livros; a palavra-passe pode estar na
                variável PGPASSWORD ou no ficheiro ~/.pgpass
  livros.xlsx   um livro do Excel
  livros/       uma pasta de ficheiros CSV ou, com --format jsonl, com um objeto JSON por linha

Cada tipo de registo é uma tabela; as colunas são os elementos, como billing_address_city. Um texto que não é o número ou a
data que devia ser fica vazio e está na tabela problems. Nas bases de dados, e só aí, perguntas como as vendas por mês são
vistas, sem os documentos anulados.

Numa base de dados, cada ficheiro entra inteiro ou não entra. O mesmo ficheiro outra vez substitui o que trouxe. Outro da
mesma empresa e de um período que se sobrepõe é recusado sem --replace.

Uma pasta e um livro são feitos de novo, com todos os ficheiros indicados ou nenhum; o que já existe só é substituído com
--replace, uma pasta só se nada tiver além de tabelas. Não podem ter o mesmo ficheiro duas vezes, nem dois da mesma empresa
e de períodos que se sobrepõem.

Num livro, cada tabela com linhas é uma folha; o que não cabe continua noutra, como invoice_lines (2). Um número com mais
de 15 algarismos, uma data antes de 1900-03-01 e uma fração de milésimo de segundo ficam como texto, e um texto acaba aos
32 767 caracteres: a folha notes diz onde.

Numa pasta, datapackage.json descreve as tabelas para os programas (Data Package). Uma célula vazia é nada, "" é um texto
vazio. Os textos estão lá como no ficheiro; o Excel faria contas com um que comece por =, por isso para ele é o livro.
Com --partition, cada tabela tem um ficheiro por cada ficheiro SAF-T, no ano em que o período deste começa:
invoices/company=501234560/year=2012/part-1.csv.)",
    R"(Examples:

  saft export company.xml --to books.db
  saft export company.xml --to books.db --check
  saft export company.xml --to books.xlsx
  saft export company.xml --to books/
  saft export company.xml --to books/ --format jsonl --partition

The TARGET tells what is made:

  books.db      a database of SQLite, which is made where there is none
  postgresql:// a database of PostgreSQL, such as postgresql://ana@server/books; the password may be in the variable
                PGPASSWORD or in the file ~/.pgpass
  books.xlsx    a workbook of Excel
  books/        a folder of CSV files or, with --format jsonl, of a JSON object a line

Each kind of record is a table; the columns are the elements, such as billing_address_city. A text that is no number or
date where one is due is left empty and stands in the table problems. In databases, and only there, questions such as sales
by month are views, without documents that are cancelled.

A file goes into a database as a whole or not at all. The same file once more replaces what it brought. Another one of the
same company and an overlapping period is refused without --replace.

A folder and a workbook are made anew, with all the files named or none; what is there is replaced with --replace only, a
folder only when it has nothing but tables. They cannot have the same file twice, nor two of the same company and of
periods that overlap.

In a workbook each table that has rows is a sheet; what has no room goes on in another, such as invoice_lines (2). A number
of more than 15 digits, a date before 1900-03-01 and a fraction of a millisecond go in as texts, and a text ends at 32,767
characters: the sheet notes tells where.

In a folder, datapackage.json describes the tables to programs (Data Package). An empty cell is nothing, "" an empty text.
Texts stand there as in the file; Excel would calculate one that begins with =, so the workbook is what it should open.
With --partition each table has a file for each audit file, under the year in which the period of that begins:
invoices/company=501234560/year=2012/part-1.csv.)"};

inline constexpr Text<> kExportNoPipe{"um ficheiro é lido duas vezes: não pode ser a entrada padrão",
                                      "a file is read twice: it cannot be standard input"};
inline constexpr Text<1> kUnknownTarget{
    "{1} não é um destino conhecido; uma base de dados acaba em .db ou começa por postgresql://, um "
    "livro acaba em .xlsx, uma pasta em /",
    "{1} is no target that is known; a database ends in .db or begins with postgresql://, a workbook ends "
    "in .xlsx, a folder in /"};
inline constexpr Text<1> kOnlyForFolders{"{1} não é uma pasta, que acaba em /: --format e --partition são só para elas",
                                         "{1} is no folder, which ends in /: --format and --partition are for those"};
inline constexpr Text<1> kUnknownFormat{"{1} não é um formato conhecido; são csv e jsonl",
                                        "{1} is no format that is known; there are csv and jsonl"};
inline constexpr Text<2> kExportedRecord{"{2}: {1} registo", "{2}: {1} record"};
inline constexpr Text<2> kExportedRecords{"{2}: {1} registos", "{2}: {1} records"};
inline constexpr Text<1> kExportedProblem{"; {1} problema, na tabela problems", "; {1} problem, in the table problems"};
inline constexpr Text<1> kExportedProblems{"; {1} problemas, na tabela problems",
                                           "; {1} problems, in the table problems"};
inline constexpr Text<1> kExportedFinding{"; {1} resultado da verificação, na tabela findings",
                                          "; {1} finding of the check, in the table findings"};
inline constexpr Text<1> kExportedFindings{"; {1} resultados da verificação, na tabela findings",
                                           "; {1} findings of the check, in the table findings"};

inline constexpr Text<2> kExportedNote{"{2}: {1} célula difere do ficheiro; a folha notes diz qual",
                                       "{2}: {1} cell differs from the file; the sheet notes tells which"};
inline constexpr Text<2> kExportedNotes{"{2}: {1} células diferem do ficheiro; a folha notes diz quais",
                                        "{2}: {1} cells differ from the file; the sheet notes tells which"};

inline constexpr Text<1> kSameTwice{"é o mesmo que {1}", "is the same as {1}"};
inline constexpr Text<3> kPeriodTwice{
    "é da mesma empresa que {1}, que vai de {2} a {3}, e os períodos sobrepõem-se; exporte-os em separado",
    "is of the same company as {1}, which is from {2} to {3}, and the periods overlap; export them one by one"};
inline constexpr Text<3> kPeriodThere{
    "o destino já tem {1} da mesma empresa, de {2} a {3}; --replace substitui-o",
    "the target already has {1} of the same company, from {2} to {3}; --replace replaces it"};

inline constexpr Text<> kReplaceReplaces{"já existe; --replace substitui-o", "is there already; --replace replaces it"};
inline constexpr Text<> kReplaceReplacesFolder{
    "já existe e não está vazia; --replace substitui uma pasta que só tem tabelas",
    "is there already and is not empty; --replace replaces a folder that has only tables"};
inline constexpr Text<1> kFolderHasOther{"não é substituída: também tem {1}", "is not replaced: it has {1} too"};
inline constexpr Text<> kFolderNoExport{"não é substituída: não é uma exportação, que tem datapackage.json",
                                        "is not replaced: it is no export, which has datapackage.json"};
inline constexpr Text<1> kWorkbookFault{"não foi possível escrever o livro: {1}",
                                        "the workbook could not be written: {1}"};

// What the sheet "notes" says of a cell.
inline constexpr Text<> kNumberAsText{"número com mais de 15 algarismos: ficou como texto",
                                      "a number of more than 15 digits: it is a text"};
inline constexpr Text<> kDateAsText{"data antes de 1900-03-01: ficou como texto",
                                    "a date before 1900-03-01: it is a text"};
inline constexpr Text<> kTimeAsText{"fração de milésimo de segundo: a hora ficou como texto",
                                    "a fraction of a millisecond: the time is a text"};
inline constexpr Text<> kTextCut{"texto com mais de 32 767 caracteres: foi cortado",
                                 "a text of more than 32,767 characters: it was cut"};

inline constexpr Text<1> kOtherTable{"já tem uma tabela {1} com outras colunas",
                                     "it already has a table {1} with other columns"};
inline constexpr Text<> kNoDatabase{"não é uma base de dados SQLite", "it is no database of SQLite"};
inline constexpr Text<> kDatabaseLocked{
    "outro programa está a usar a base de dados; feche-o, ou espere que acabe, e execute o comando outra vez",
    "another program is using the database; close it, or wait until it ends, and run the command again"};
inline constexpr Text<> kDatabaseBusy{"outro programa está a usar a base de dados; à espera que acabe",
                                      "another program is using the database; waiting until it ends"};
inline constexpr Text<> kDatabaseRemoved{"a base de dados foi apagada entretanto; execute o comando outra vez",
                                         "the database was removed meanwhile; run the command again"};
inline constexpr Text<> kDatabaseFull{"não há espaço no disco", "there is no room on the disk"};
inline constexpr Text<> kDatabaseReadOnly{"não há permissão para escrever na base de dados",
                                          "there is no permission to write into the database"};
inline constexpr Text<> kDatabaseUnopened{"não é possível abrir ou criar a base de dados",
                                          "the database cannot be opened or made"};
inline constexpr Text<> kDatabaseCharacters{
    "a base de dados não aceita todos os carateres do ficheiro: deve ter a codificação UTF8",
    "the database does not take all characters of the file: its encoding must be UTF8"};
inline constexpr Text<> kDatabaseWaiting{"outra exportação está a escrever aqui; à espera que acabe",
                                         "another export is writing here; waiting until it ends"};
inline constexpr Text<1> kDatabaseFault{"a base de dados recusou: {1}", "the database refused: {1}"};

// Of a server.
inline constexpr Text<> kPostgresAddress{
    "o endereço da base de dados não está certo: é postgresql://UTILIZADOR@COMPUTADOR:PORTA/BASE; numa palavra-passe, "
    "@ e / escrevem-se %40 e %2F",
    "the address of the database is not right: it is postgresql://USER@HOST:PORT/DATABASE; in a password, @ and / are "
    "written %40 and %2F"};
inline constexpr Text<> kPasswordNeeded{
    "o servidor pede uma palavra-passe; pode estar na variável PGPASSWORD ou no ficheiro ~/.pgpass",
    "the server asks for a password, which may be in the variable PGPASSWORD or in the file ~/.pgpass"};
inline constexpr Text<1> kServerSilent{
    "não responde nenhum servidor PostgreSQL; o nome do computador e a porta estão certos, e está ligado? ({1})",
    "no server of PostgreSQL answers; are the name of the host and the port right, and is it running? ({1})"};
inline constexpr Text<1> kServerRefuses{"o servidor recusa a ligação: {1}", "the server refuses the connection: {1}"};
inline constexpr Text<> kServerLost{"a ligação ao servidor perdeu-se; deste ficheiro não ficou nada",
                                    "the connection to the server was lost; nothing of this file is left there"};
inline constexpr Text<> kServerLostAtEnd{
    "a ligação ao servidor perdeu-se no fim: talvez este ficheiro lá esteja; exportado outra vez, substitui-se a si "
    "próprio",
    "the connection to the server was lost at the end: this file may be there; exported again, it replaces itself"};

}  // namespace zevo::saft::words

#endif  // ZEVO_TOOLS_SAFT_WORDS_EXPORTWORDS_H_
