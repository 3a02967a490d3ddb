// What an engineer would reach for first: the same values in SQLite, in memory, asked by
// prepared statements. A database in memory has one connection, so threads that share it
// take a mutex, the same as the library's.
#ifndef BENCH_SQLITE_REFERENCE_H
#define BENCH_SQLITE_REFERENCE_H

#include <cstddef>
#include <memory>
#include <string>

#include "mutex_lock.h"
#include "population.h"

struct sqlite3;
struct sqlite3_stmt;

class SqliteReference {
 public:
  // The first `profiles` profiles of both tables.
  explicit SqliteReference(std::size_t profiles);

  // The number of a code, 0 without one.
  unsigned int Number(unsigned int key, unsigned short code);
  // Writes the text of a code into a buffer. 0, or 1 when there is none.
  unsigned int Text(unsigned int key, unsigned short code, char* buffer, unsigned int size);
  // The place of the newest pattern that fits, -1 without one.
  int Recognise(const Report& report);

 private:
  struct Close {
    void operator()(sqlite3* database) const;
  };
  struct Finalize {
    void operator()(sqlite3_stmt* statement) const;
  };
  using Statement = std::unique_ptr<sqlite3_stmt, Finalize>;

  void Execute(const std::string& sql);
  Statement Prepare(const std::string& sql);
  void LoadAbilities(std::size_t profiles);
  void LoadPatterns(std::size_t patterns);

  CMutexLock _mutex;
  std::unique_ptr<sqlite3, Close> _database;
  Statement _number;
  Statement _text;
  Statement _recognise;
};

#endif  // BENCH_SQLITE_REFERENCE_H
