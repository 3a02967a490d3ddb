// The other thing that an engineer would reach for: the same values in LMDB on a memory
// file system, one read transaction reset and renewed for each lookup.
#ifndef BENCH_LMDB_REFERENCE_H
#define BENCH_LMDB_REFERENCE_H

#include <lmdb.h>

#include <cstddef>

class LmdbReference {
 public:
  // The first `profiles` real profiles.
  explicit LmdbReference(std::size_t profiles);
  ~LmdbReference();
  LmdbReference(const LmdbReference&) = delete;
  LmdbReference& operator=(const LmdbReference&) = delete;

  // The number of a code, 0 without one.
  unsigned int Number(unsigned int key, unsigned short code);
  // Writes the text of a code into a buffer. 0, or 1 when there is none.
  unsigned int Text(unsigned int key, unsigned short code, char* buffer, unsigned int size);

 private:
  void Load(std::size_t profiles);
  // The transaction stays renewed until Reset: the value lies in its pages.
  bool Find(unsigned int key, unsigned short code, MDB_val& value);

  MDB_env* _environment = nullptr;
  MDB_txn* _transaction = nullptr;
  MDB_dbi _database = 0;
};

#endif  // BENCH_LMDB_REFERENCE_H
