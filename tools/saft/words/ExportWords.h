// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TOOLS_SAFT_WORDS_EXPORTWORDS_H_
#define ZEVO_TOOLS_SAFT_WORDS_EXPORTWORDS_H_

#include "tools/saft/words/Text.h"

/// What "saft export" says.
namespace zevo::saft::words {

inline constexpr Text<> kExportCommand{"Põe ficheiros numa base de dados, em folhas de cálculo ou numa pasta",
                                       "Put files into a database, into spreadsheets or into a folder"};
inline constexpr Text<> kFilesArgument{"FICHEIRO.xml...", "FILE.xml..."};
inline constexpr Text<> kExportFiles{"Ficheiros SAF-T a ler", "Audit files to read"};
inline constexpr Text<> kExportTo{"Para onde vão as tabelas; ver abaixo", "Where the tables go, see below"};
inline constexpr Text<> kExportToValue{"DESTINO", "TARGET"};
inline constexpr Text<> kExportReplace{"Substitui o que o destino tem da mesma empresa num período que se sobrepõe",
                                       "Replace what the target has of the same company in an overlapping period"};
inline constexpr Text<> kExportCheck{"Junta o que \"saft check\" encontra, na tabela findings",
                                     "Add what \"saft check\" finds, in the table findings"};

inline constexpr Text<> kExportHelp{
    R"(Exemplos:

  saft export empresa.xml --to livros.db
  saft export empresa.xml --to livros.db --check

Um DESTINO que acaba em .db é uma base de dados SQLite, que é criada se não existir. Um que começa por postgresql:// é
uma base de dados PostgreSQL, como postgresql://ana@servidor/livros; a palavra-passe pode estar na variável PGPASSWORD
ou no ficheiro ~/.pgpass. Cada tipo de registo é uma tabela; as colunas são os elementos, como billing_address_city.
Cada ficheiro entra inteiro ou não entra. Perguntas como as vendas por mês são vistas, sem os documentos anulados.

O mesmo ficheiro outra vez substitui o que trouxe. Outro da mesma empresa e de um período que se sobrepõe é recusado sem
--replace. Um texto que não é o número ou a data que devia ser fica vazio e está na tabela problems.)",
    R"(Examples:

  saft export company.xml --to books.db
  saft export company.xml --to books.db --check

A TARGET that ends in .db is a database of SQLite, which is made where there is none. One that begins with postgresql://
is a database of PostgreSQL, such as postgresql://ana@server/books; the password may be in the variable PGPASSWORD or in
the file ~/.pgpass. Each kind of record is a table; the columns are the elements, such as billing_address_city. A file
goes in as a whole or not at all. Questions such as sales by month are views, without documents that are cancelled.

The same file once more replaces what it brought. Another one of the same company and an overlapping period is refused
without --replace. A text that is no number or date where one is due is left empty and stands in the table problems.)"};

inline constexpr Text<> kExportNoPipe{"um ficheiro é lido duas vezes: não pode ser a entrada padrão",
                                      "a file is read twice: it cannot be standard input"};
inline constexpr Text<1> kUnknownTarget{
    "{1} não é um destino conhecido; uma base de dados acaba em .db ou "
    "começa por postgresql://",
    "{1} is no target that is known; a database ends in .db or begins with "
    "postgresql://"};
inline constexpr Text<2> kExported{"{1}: {2} registos", "{1}: {2} records"};
inline constexpr Text<1> kExportedProblems{"; {1} problemas, na tabela problems",
                                           "; {1} problems, in the table problems"};
inline constexpr Text<1> kExportedFindings{"; {1} resultados da verificação, na tabela findings",
                                           "; {1} findings of the check, in the table findings"};

inline constexpr Text<3> kPeriodThere{
    "o destino já tem {1} da mesma empresa, de {2} a {3}; --replace substitui-o",
    "the target already has {1} of the same company, from {2} to {3}; --replace replaces it"};

inline constexpr Text<1> kOtherTable{"já tem uma tabela {1} com outras colunas",
                                     "it already has a table {1} with other columns"};
inline constexpr Text<> kNoDatabase{"não é uma base de dados SQLite", "it is no database of SQLite"};
inline constexpr Text<> kDatabaseLocked{"outro programa está a usar a base de dados",
                                        "another program is using the database"};
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
