// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TOOLS_SAFT_TABLES_POSTGRESCONNECTION_H_
#define ZEVO_TOOLS_SAFT_TABLES_POSTGRESCONNECTION_H_

#include <memory>
#include <string>
#include <string_view>
#include <vector>

struct pg_conn;
struct pg_result;

namespace zevo::saft {

/// A connection to a database of PostgreSQL. What the server is waited for can be interrupted, save the end of a
/// transaction. Failures are thrown as `Failure`; messages name the database as `ShownAddress` does.
class PostgresConnection {
 public:
  /// Texts; nothing is an empty one.
  using Row = std::vector<std::string>;

  explicit PostgresConnection(const std::string& address);

  /// Runs statements, and gives the rows of the last one.
  std::vector<Row> Run(const std::string& statements);
  /// Runs a statement in which $1, $2, … are these values.
  std::vector<Row> Run(const std::string& statement, const std::vector<std::string>& values);
  /// Has the server take rows, in the text form of COPY, into a table while the program goes on. Whether it could is
  /// told by what is called next.
  void Copy(const std::string& table, std::string_view rows);
  /// Whether the server may have done what it was sent. Does not wait.
  bool IsDone();
  /// Ends the transaction: what was done in it stands.
  void Commit();

  const std::string& Name() const { return name_; }

 private:
  struct Close {
    void operator()(pg_conn* connection) const;
    void operator()(pg_result* result) const;
  };
  using Result = std::unique_ptr<pg_result, Close>;

  void Connect(const std::string& address);
  Result Next();
  Result Last();
  std::vector<Row> Rows();
  void Require(bool sent);
  [[noreturn]] void Fail(const pg_result* result) const;

  std::string name_;
  std::unique_ptr<pg_conn, Close> connection_;
};

}  // namespace zevo::saft

#endif  // ZEVO_TOOLS_SAFT_TABLES_POSTGRESCONNECTION_H_
