#pragma once

#include <string>

struct sqlite3;
struct sqlite3_stmt;

namespace tarvik::bench {

/// The logbook as a table of SQLite, whose statements are prepared ahead: what a program built on it would
/// have. All settings are SQLite's own, so that an insert is as durable as an entry that is recorded.
class SqlitePeer {
 public:
  /// Makes a new database file with that many entries in it.
  SqlitePeer(const std::string& path, int entries);
  ~SqlitePeer();
  SqlitePeer(const SqlitePeer&) = delete;
  SqlitePeer& operator=(const SqlitePeer&) = delete;

  /// Reads all rows in order, every column of them.
  void select();
  /// Appends a row, as a transaction of its own.
  void insert();

 private:
  void run(const char* sql);
  sqlite3_stmt* prepared(const char* sql);
  void bind(int number);

  sqlite3* database_ = nullptr;
  sqlite3_stmt* select_ = nullptr;
  sqlite3_stmt* insert_ = nullptr;
  int rows_ = 0;
};

}  // namespace tarvik::bench
