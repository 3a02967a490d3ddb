// The floor: the least that any answer costs. One uncontended mutex of the library's
// own class, one probe of a hash table by the key, one lookup in the container in which
// a profile keeps its abilities, the result handed back as the library does.
#ifndef BENCH_FLOOR_REFERENCE_H
#define BENCH_FLOOR_REFERENCE_H

#include <cstddef>
#include <map>
#include <unordered_map>
#include <vector>

#include "mutex_lock.h"
#include "population.h"

using BareProfile = std::map<unsigned short, ONU_ABILITY_COMMON_ABILITY_VALUE>;

// Inserts what a profile holds in the end, the derived totals included.
void InsertBare(const Description& description, BareProfile& profile);

class FloorReference {
 public:
  explicit FloorReference(std::size_t profiles);

  // The number of a code, 0 without one.
  unsigned int Number(unsigned int key, unsigned short code);
  // Writes the text of a code into a buffer, as the query functions do. 0, or 1 when
  // there is none.
  unsigned int Text(unsigned int key, unsigned short code, char* buffer, unsigned int size);
  // Beside the lookup the sum over the codes of this profile that count lamps.
  unsigned int Lamps(unsigned int key, unsigned short code);

 private:
  struct Profile {
    BareProfile abilities;
    std::vector<unsigned short> lamp_codes;
  };

  CMutexLock _mutex;
  std::vector<Profile> _profiles;
  std::unordered_map<unsigned int, const Profile*> _by_key;
};

#endif  // BENCH_FLOOR_REFERENCE_H
