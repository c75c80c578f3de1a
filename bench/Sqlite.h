// A SQLite database as the reference of a gate: every transaction is on disk when it is through.
#pragma once

#include <sqlite3.h>

#include <initializer_list>
#include <stdexcept>
#include <string>
#include <vector>

namespace vintoral::bench {

class Sqlite {
 public:
  explicit Sqlite(std::string file) : file_(std::move(file)) { Open(); }
  Sqlite(const Sqlite&) = delete;
  Sqlite& operator=(const Sqlite&) = delete;
  ~Sqlite() { Close(); }

  /// Closed in the evening, and opened again in the morning.
  void Reopen() {
    Close();
    Open();
  }
  void Run(const std::string& sql) { Check(sqlite3_exec(database_, sql.c_str(), nullptr, nullptr, nullptr)); }
  /// A statement that lives as long as the database is open.
  sqlite3_stmt* Prepare(const std::string& sql) {
    sqlite3_stmt* statement = nullptr;
    Check(sqlite3_prepare_v2(database_, sql.c_str(), -1, &statement, nullptr));
    statements_.push_back(statement);
    return statement;
  }
  /// One transaction, its values bound before; the rows of a look-up are passed over.
  void Transaction(std::initializer_list<sqlite3_stmt*> statements) {
    Step(begin_);
    for (sqlite3_stmt* statement : statements)
      Step(statement);
    Step(commit_);
  }
  std::int64_t Count(const std::string& table) {
    sqlite3_stmt* const count = Prepare("SELECT COUNT(*) FROM " + table);
    sqlite3_step(count);
    return sqlite3_column_int64(count, 0);
  }
  static void Bind(sqlite3_stmt* statement, int at, std::int64_t value) {
    sqlite3_bind_int64(statement, at, value);
  }
  static void Bind(sqlite3_stmt* statement, int at, const std::string& value) {
    sqlite3_bind_text(statement, at, value.c_str(), -1, SQLITE_TRANSIENT);
  }

 private:
  static void Check(int code) {
    if (code != SQLITE_OK) throw std::runtime_error(sqlite3_errstr(code));
  }
  void Open() {
    Check(sqlite3_open(file_.c_str(), &database_));
    Run("PRAGMA journal_mode=WAL");
    Run("PRAGMA synchronous=FULL");
    begin_ = Prepare("BEGIN IMMEDIATE");
    commit_ = Prepare("COMMIT");
  }
  void Close() {
    for (sqlite3_stmt* statement : statements_)
      sqlite3_finalize(statement);
    statements_.clear();
    sqlite3_close(database_);
  }
  void Step(sqlite3_stmt* statement) {
    int code = sqlite3_step(statement);
    while (code == SQLITE_ROW)
      code = sqlite3_step(statement);
    if (code != SQLITE_DONE) throw std::runtime_error(sqlite3_errmsg(database_));
    sqlite3_reset(statement);
  }

  std::string file_;
  sqlite3* database_ = nullptr;
  std::vector<sqlite3_stmt*> statements_;
  sqlite3_stmt *begin_ = nullptr, *commit_ = nullptr;
};

}  // namespace vintoral::bench
