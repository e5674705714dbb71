#include "benchmarks/sqlite_peer.h"

#include <benchmark/benchmark.h>
#include <sqlite3.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>

#include "benchmarks/logbook.h"
#include "core/napi_adat.h"

namespace tarvik::bench {
namespace {

constexpr int kColumns = 14;

void check(bool success, sqlite3* database) {
  if (success) return;
  std::fprintf(stderr, "sqlite: %s\n", sqlite3_errmsg(database));
  std::exit(1);
}

void bindText(sqlite3_stmt* statement, int column, const std::string& text) {
  sqlite3_bind_text(statement, column, text.data(), static_cast<int>(text.size()), SQLITE_TRANSIENT);
}

void readColumn(sqlite3_stmt* row, int column) {
  switch (sqlite3_column_type(row, column)) {
    case SQLITE_TEXT:
      benchmark::DoNotOptimize(sqlite3_column_text(row, column));
      return;
    case SQLITE_FLOAT:
      benchmark::DoNotOptimize(sqlite3_column_double(row, column));
      return;
    default:
      benchmark::DoNotOptimize(sqlite3_column_int64(row, column));
  }
}

}  // namespace

SqlitePeer::SqlitePeer(const std::string& path, int entries) {
  std::filesystem::remove(path);
  check(sqlite3_open(path.c_str(), &database_) == SQLITE_OK, database_);
  run("CREATE TABLE napiadat (KmOra INTEGER, Datum REAL, Teletank INTEGER, TankoltLiter INTEGER,"
      " TankoltKtg INTEGER, AlkatreszKtg INTEGER, FtPerLiter INTEGER, Olajcsere INTEGER,"
      " Szurocsere INTEGER, Gyertyacsere INTEGER, Alkatresz TEXT, MegjKtg INTEGER, Megjegyzes TEXT,"
      " Fogyasztas INTEGER)");
  select_ = prepared("SELECT * FROM napiadat ORDER BY rowid");
  insert_ = prepared("INSERT INTO napiadat VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)");
  run("BEGIN");
  for (int i = 0; i < entries; ++i) insert();
  run("COMMIT");
}

SqlitePeer::~SqlitePeer() {
  sqlite3_finalize(select_);
  sqlite3_finalize(insert_);
  sqlite3_close(database_);
}

void SqlitePeer::run(const char* sql) {
  check(sqlite3_exec(database_, sql, nullptr, nullptr, nullptr) == SQLITE_OK, database_);
}

sqlite3_stmt* SqlitePeer::prepared(const char* sql) {
  sqlite3_stmt* statement = nullptr;
  check(sqlite3_prepare_v2(database_, sql, -1, &statement, nullptr) == SQLITE_OK, database_);
  return statement;
}

void SqlitePeer::select() {
  while (sqlite3_step(select_) == SQLITE_ROW)
    for (int column = 0; column < kColumns; ++column) readColumn(select_, column);
  check(sqlite3_reset(select_) == SQLITE_OK, database_);
}

void SqlitePeer::bind(int number) {
  const core::NapiAdat entry = entryOf(number);
  const sqlite3_int64 whole[kColumns] = {entry.KmOra,
                                         0,
                                         entry.Teletank,
                                         entry.TankoltLiter.tenThousandths,
                                         entry.TankoltKtg,
                                         entry.AlkatreszKtg,
                                         entry.FtPerLiter.tenThousandths,
                                         entry.Olajcsere,
                                         entry.Szurocsere,
                                         entry.Gyertyacsere,
                                         0,
                                         entry.MegjKtg,
                                         0,
                                         entry.Fogyasztas.tenThousandths};
  for (int column = 0; column < kColumns; ++column) sqlite3_bind_int64(insert_, column + 1, whole[column]);
  sqlite3_bind_double(insert_, 2, entry.Datum);
  bindText(insert_, 11, entry.Alkatresz.trimmed());
  bindText(insert_, 13, entry.Megjegyzes.trimmed());
}

void SqlitePeer::insert() {
  bind(++rows_);
  check(sqlite3_step(insert_) == SQLITE_DONE, database_);
  check(sqlite3_reset(insert_) == SQLITE_OK, database_);
}

}  // namespace tarvik::bench
