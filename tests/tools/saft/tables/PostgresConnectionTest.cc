// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/tables/PostgresConnection.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <csignal>
#include <memory>
#include <string>

#include "tests/support/TemporaryFolder.h"
#include "tests/tools/saft/tables/TestDatabase.h"
#include "tools/saft/errors/Failure.h"
#include "tools/saft/errors/Interruption.h"
#include "tools/saft/words/SpokenLanguage.h"

namespace zevo::saft {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::ThrowsMessage;
using Row = PostgresConnection::Row;

class PostgresConnectionTest : public ::testing::Test {
 protected:
  PostgresConnectionTest() { Speak(Language::kEnglish); }
  ~PostgresConnectionTest() override { Speak(Language::kEnglish); }
  void SetUp() override {
    if (!database_) GTEST_SKIP() << testing::kNoServer;
  }

  std::string In(const std::string& message) const { return database_->Shown() + ": " + message; }

  testing::TemporaryFolder folder_;
  const std::unique_ptr<testing::TestDatabase> database_ =
      testing::MakeDatabase(testing::DatabaseKind::kPostgres, folder_);
};

TEST_F(PostgresConnectionTest, GivesTheRowsOfTheLastStatement) {
  PostgresConnection connection(database_->Name());
  EXPECT_THAT(connection.Run("SELECT 1; SELECT 2, NULL, 'ã' UNION SELECT 3, 'b', ''"),
              ElementsAre(Row{"2", "", "ã"}, Row{"3", "b", ""}));
  EXPECT_THAT(connection.Run("SELECT $1, $2", {"'; --", "x"}), ElementsAre(Row{"'; --", "x"}));
  EXPECT_THAT(connection.Run("CREATE TABLE a (b text)"), IsEmpty());
}

TEST_F(PostgresConnectionTest, TellsWhatTheServerRefuses) {
  PostgresConnection connection(database_->Name());
  EXPECT_THAT([&] { connection.Run("SELECT 1; SELECT x; SELECT 2"); },
              ThrowsMessage<Failure>(In("the database refused: column \"x\" does not exist")));
  EXPECT_THAT(
      [&] { connection.Run("SELECT pg_catalog.convert_from('\\xff', 'UTF8')"); },
      ThrowsMessage<Failure>(In("the database does not take all characters of the file: its encoding must be UTF8")));
  connection.Run("BEGIN READ ONLY");
  EXPECT_THAT([&] { connection.Run("CREATE TABLE a (b text)"); },
              ThrowsMessage<Failure>(In("there is no permission to write into the database")));
  connection.Run("ROLLBACK");
  PostgresConnection other(database_->Name());
  other.Run("CREATE TABLE a (b text)");
  other.Run("BEGIN; LOCK TABLE a");
  EXPECT_THAT([&] { connection.Run("SET lock_timeout = 10; SELECT * FROM a"); },
              ThrowsMessage<Failure>(In("another program is using the database; close it, or wait until it ends, "
                                        "and run the command again")));
}

TEST_F(PostgresConnectionTest, TellsRowsThatTheServerRefusesWithWhatComesNext) {
  PostgresConnection connection(database_->Name());
  connection.Run("CREATE TABLE numbers (number bigint)");
  connection.Copy("numbers", "1\n2\n");
  connection.Copy("numbers", "3\n");
  EXPECT_THAT(connection.Run("SELECT sum(number) FROM numbers"), ElementsAre(Row{"6"}));
  connection.Copy("numbers", "x\n");
  EXPECT_THAT([&] { connection.Run("SELECT 1"); },
              ThrowsMessage<Failure>(In("the database refused: invalid input syntax for type bigint: \"x\"")));
  EXPECT_THAT([&] { connection.Copy("none", "x\n"); },
              ThrowsMessage<Failure>(In("the database refused: relation \"none\" does not exist")));
}

// More of them than are on their way at once.
TEST_F(PostgresConnectionTest, GoesOnWhileTheServerTakesRows) {
  PostgresConnection connection(database_->Name());
  connection.Run("CREATE TABLE slow (number bigint CHECK (pg_sleep(600) IS NOT NULL))");
  const std::string server = connection.Run("SELECT pg_backend_pid()")[0][0];
  EXPECT_TRUE(connection.IsDone());
  std::string rows;
  while (rows.size() < 4'000'000) rows += "1\n";
  connection.Copy("slow", rows);
  EXPECT_FALSE(connection.IsDone());
  const Interruption writing(Interruption::During::kWriting);
  std::raise(SIGTERM);
  EXPECT_THROW(connection.Run("SELECT 1"), Interrupted);
  database_->Run("SELECT pg_terminate_backend(" + server + ")");
}

TEST_F(PostgresConnectionTest, TellsAConnectionThatIsLost) {
  PostgresConnection connection(database_->Name());
  const auto end = [&] {
    database_->Run("SELECT pg_terminate_backend(" + connection.Run("SELECT pg_backend_pid()")[0][0] + ")");
  };
  end();
  EXPECT_THAT([&] { connection.Run("SELECT 1"); },
              ThrowsMessage<Failure>(In("the connection to the server was lost; nothing of this file is left there")));
  connection = PostgresConnection(database_->Name());
  connection.Run("BEGIN");
  end();
  EXPECT_THAT([&] { connection.Commit(); },
              ThrowsMessage<Failure>(In("the connection to the server was lost at the end: this file may be there; "
                                        "exported again, it replaces itself")));
}

TEST_F(PostgresConnectionTest, IsInterruptedWhileItWaits) {
  PostgresConnection connection(database_->Name());
  const Interruption writing(Interruption::During::kWriting);
  std::raise(SIGTERM);
  EXPECT_THROW(connection.Run("SELECT pg_sleep(600)"), Interrupted);
}

TEST_F(PostgresConnectionTest, TellsWhyThereIsNoConnection) {
  const std::string server = database_->Name();
  const std::string refused = server.substr(0, server.find('@')) + "@/none" + server.substr(server.find('?'));
  EXPECT_THAT([&] { PostgresConnection{refused}; },
              ThrowsMessage<Failure>(
                  "postgresql:///none: the server refuses the connection: database \"none\" does not exist"));
  const std::string silent = "postgresql://ana:secret@/books?host=" + folder_.Path("");
  EXPECT_THAT([&] { PostgresConnection{silent}; },
              ThrowsMessage<Failure>("postgresql:///books: no server of PostgreSQL answers; are the name of the host "
                                     "and the port right, and is it running? (connection to server on socket \"" +
                                     folder_.Path("") + "/.s.PGSQL.5432\" failed: No such file or directory)"));
  Speak(Language::kPortuguese);
  EXPECT_THAT(
      [&] { PostgresConnection{refused}; },
      ThrowsMessage<Failure>("postgresql:///none: o servidor recusa a ligação: database \"none\" does not exist"));
}

}  // namespace
}  // namespace zevo::saft
