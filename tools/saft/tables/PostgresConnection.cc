// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/tables/PostgresConnection.h"

#include <libpq-fe.h>
#include <poll.h>

#include <algorithm>
#include <array>
#include <new>
#include <utility>

#include "tools/saft/errors/Failure.h"
#include "tools/saft/errors/Interruption.h"
#include "tools/saft/tables/PostgresAddress.h"
#include "tools/saft/tables/Sql.h"
#include "tools/saft/words/ExportWords.h"

namespace zevo::saft {
namespace {

// Between two looks for an interruption, in milliseconds.
constexpr int kPatience = 100;

// libpq keeps what it gets in one piece; so it keeps little.
constexpr size_t kPiece = size_t{1} << 16;

// What an address says of them goes before what stands in front of it here.
constexpr std::array<const char*, 5> kParameters{"connect_timeout", "fallback_application_name", "dbname",
                                                 "client_encoding", nullptr};
std::array<const char*, kParameters.size()> ValuesFor(const std::string& address) {
  return {"10", "saft", address.c_str(), "UTF8", nullptr};
}

// Of what libpq says of a connection that failed, the reason: in its first line, behind where it failed.
std::string_view ReasonIn(std::string_view message) {
  message = message.substr(0, message.find('\n'));
  constexpr std::string_view kFatal = "FATAL:  ";
  if (const size_t at = message.find(kFatal); at != std::string_view::npos) message.remove_prefix(at + kFatal.size());
  return message;
}

}  // namespace

void PostgresConnection::Close::operator()(pg_conn* connection) const { PQfinish(connection); }
void PostgresConnection::Close::operator()(pg_result* result) const { PQclear(result); }

PostgresConnection::PostgresConnection(const std::string& address) : name_(ShownAddress(address)) { Connect(address); }

void PostgresConnection::Connect(const std::string& address) {
  const auto values = ValuesFor(address);
  connection_.reset(PQconnectdbParams(kParameters.data(), values.data(), 1));
  if (!connection_) throw std::bad_alloc();
  PQsetNoticeReceiver(
      connection_.get(), [](void*, const PGresult*) {}, nullptr);
  if (PQstatus(connection_.get()) == CONNECTION_OK) {
    Require(PQsetnonblocking(connection_.get(), 1) == 0);
    return;
  }
  if (PQconnectionNeedsPassword(connection_.get()) != 0) throw Failure(name_, Say(words::kPasswordNeeded));
  const bool silent = PQpingParams(kParameters.data(), values.data(), 1) == PQPING_NO_RESPONSE;
  throw Failure(
      name_, Say(silent ? words::kServerSilent : words::kServerRefuses, ReasonIn(PQerrorMessage(connection_.get()))));
}

std::vector<PostgresConnection::Row> PostgresConnection::Run(const std::string& statements) {
  Last();
  Require(PQsendQuery(connection_.get(), statements.c_str()) != 0);
  return Rows();
}

std::vector<PostgresConnection::Row> PostgresConnection::Run(const std::string& statement,
                                                             const std::vector<std::string>& values) {
  Last();
  std::vector<const char*> texts;
  texts.reserve(values.size());
  for (const std::string& value : values) texts.push_back(value.c_str());
  Require(PQsendQueryParams(connection_.get(), statement.c_str(), static_cast<int>(texts.size()), nullptr, texts.data(),
                            nullptr, nullptr, 0) != 0);
  return Rows();
}

void PostgresConnection::Copy(const std::string& table, std::string_view rows) {
  Last();
  Require(PQsendQuery(connection_.get(), ("COPY " + QuotedName(table) + " FROM STDIN").c_str()) != 0);
  if (const Result result = Next(); PQresultStatus(result.get()) != PGRES_COPY_IN) Fail(result.get());
  for (; !rows.empty(); rows.remove_prefix(std::min(kPiece, rows.size()))) {
    const std::string_view piece = rows.substr(0, kPiece);
    Require(PQputCopyData(connection_.get(), piece.data(), static_cast<int>(piece.size())) == 1);
  }
  Require(PQputCopyEnd(connection_.get(), nullptr) == 1);
}

bool PostgresConnection::IsDone() {
  Require(PQconsumeInput(connection_.get()) != 0);
  return PQisBusy(connection_.get()) == 0;
}

// Once it has begun to end nobody could tell an interrupted transaction from one that stands.
void PostgresConnection::Commit() {
  Last();
  const Result result(PQexec(connection_.get(), "COMMIT"));
  if (PQstatus(connection_.get()) == CONNECTION_BAD) throw Failure(name_, Say(words::kServerLostAtEnd));
  if (PQresultStatus(result.get()) != PGRES_COMMAND_OK) Fail(result.get());
}

// The next result of what was sent; null behind the last one.
PostgresConnection::Result PostgresConnection::Next() {
  while (PQisBusy(connection_.get()) != 0) {
    const int unsent = PQflush(connection_.get());
    Require(unsent >= 0);
    pollfd socket{PQsocket(connection_.get()), POLLIN, 0};
    if (unsent != 0) socket.events = POLLIN | POLLOUT;
    poll(&socket, 1, kPatience);
    Interruption::ThrowIfRequested();
    Require(PQconsumeInput(connection_.get()) != 0);
  }
  return Result(PQgetResult(connection_.get()));
}

// Waits until all that was sent is done. Gives the last of its results; fails with the first that failed.
PostgresConnection::Result PostgresConnection::Last() {
  Result last;
  Result failed;
  while (Result result = Next()) {
    const ExecStatusType status = PQresultStatus(result.get());
    if (status == PGRES_COMMAND_OK || status == PGRES_TUPLES_OK) {
      last = std::move(result);
    } else if (!failed) {
      failed = std::move(result);
    }
  }
  if (failed) Fail(failed.get());
  return last;
}

std::vector<PostgresConnection::Row> PostgresConnection::Rows() {
  const Result result = Last();
  std::vector<Row> rows(static_cast<size_t>(PQntuples(result.get())));
  for (size_t row = 0; row < rows.size(); ++row) {
    for (int column = 0; column < PQnfields(result.get()); ++column) {
      rows[row].emplace_back(PQgetvalue(result.get(), static_cast<int>(row), column));
    }
  }
  return rows;
}

void PostgresConnection::Require(bool sent) {
  if (!sent) Fail(nullptr);
}

void PostgresConnection::Fail(const pg_result* result) const {
  const auto field = [&](int code) {
    const char* const text = result == nullptr ? nullptr : PQresultErrorField(result, code);
    return std::string_view(text == nullptr ? "" : text);
  };
  const std::string_view state = field(PG_DIAG_SQLSTATE);
  if (PQstatus(connection_.get()) == CONNECTION_BAD || state.starts_with("57P")) {
    throw Failure(name_, Say(words::kServerLost));
  }
  // Conditions by the codes of the standard and of PostgreSQL.
  if (state == "42501" || state == "25006") throw Failure(name_, Say(words::kDatabaseReadOnly));
  if (state == "53100") throw Failure(name_, Say(words::kDatabaseFull));
  if (state == "55P03" || state == "40P01") throw Failure(name_, Say(words::kDatabaseLocked));
  if (state == "22P05" || state == "22021") throw Failure(name_, Say(words::kDatabaseCharacters));
  const std::string_view told = field(PG_DIAG_MESSAGE_PRIMARY);
  throw Failure(name_, Say(words::kDatabaseFault, told.empty() ? ReasonIn(PQerrorMessage(connection_.get())) : told));
}

}  // namespace zevo::saft
