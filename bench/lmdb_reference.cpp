#include "lmdb_reference.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <map>
#include <stdexcept>

#include "population.h"

namespace {

constexpr std::size_t kMapBytes = std::size_t{1} << 29;

void Require(int result) {
  if (result != MDB_SUCCESS) throw std::runtime_error(std::string("LMDB: ") + mdb_strerror(result));
}

// Integer keys are the quickest of LMDB; they have the machine's own width.
std::size_t KeyOf(unsigned int key, unsigned short code) { return (std::size_t{key} << 16) | code; }

std::string MakeDirectory() {
  const std::filesystem::path memory = "/dev/shm";
  const auto parent =
      std::filesystem::is_directory(memory) ? memory : std::filesystem::temp_directory_path();
  std::string name = (parent / "onu_ability_bench.XXXXXX").string();
  if (mkdtemp(name.data()) == nullptr) throw std::runtime_error("no directory for LMDB: " + name);
  return name;
}

// By key: pages are then filled one after the other.
std::map<std::size_t, const ONU_ABILITY_COMMON_ABILITY_VALUE*> InOrder(std::size_t profiles) {
  std::map<std::size_t, const ONU_ABILITY_COMMON_ABILITY_VALUE*> values;
  for (std::size_t i = 0; i < profiles; ++i) {
    const Description& profile = RealDescriptions()[i];
    for (const auto* abilities : {&profile.given, &profile.derived}) {
      for (const Ability& ability : *abilities) {
        values.emplace(KeyOf(profile.key, ability.code), &ability.value);
      }
    }
  }
  return values;
}

}  // namespace

LmdbReference::LmdbReference(std::size_t profiles) {
  Require(mdb_env_create(&_environment));
  Require(mdb_env_set_mapsize(_environment, kMapBytes));
  const std::string directory = MakeDirectory();
  Require(
      mdb_env_open(_environment, directory.c_str(), MDB_NOSYNC | MDB_NOTLS | MDB_NORDAHEAD, 0600));
  // The open files are all that is needed, and a killed benchmark leaves nothing behind.
  std::filesystem::remove_all(directory);
  Load(profiles);
  Require(mdb_txn_begin(_environment, nullptr, MDB_RDONLY, &_transaction));
  mdb_txn_reset(_transaction);
}

LmdbReference::~LmdbReference() {
  mdb_txn_abort(_transaction);
  mdb_env_close(_environment);
}

void LmdbReference::Load(std::size_t profiles) {
  MDB_txn* transaction = nullptr;
  Require(mdb_txn_begin(_environment, nullptr, 0, &transaction));
  Require(mdb_dbi_open(transaction, nullptr, MDB_INTEGERKEY, &_database));
  for (const auto& [key, value] : InOrder(profiles)) {
    std::size_t key_bytes = key;
    unsigned int number = value->ability_ushort_value;
    std::string text = value->ability_string_value;
    const bool is_number = value->ability_value_type == ONU_ABILITY_VALUE_TYPE_USHORT;
    MDB_val key_value = {sizeof key_bytes, &key_bytes};
    MDB_val data = is_number ? MDB_val{sizeof number, &number} : MDB_val{text.size(), text.data()};
    Require(mdb_put(transaction, _database, &key_value, &data, MDB_APPEND));
  }
  Require(mdb_txn_commit(transaction));
}

bool LmdbReference::Find(unsigned int key, unsigned short code, MDB_val& value) {
  std::size_t key_bytes = KeyOf(key, code);
  MDB_val key_value = {sizeof key_bytes, &key_bytes};
  return mdb_txn_renew(_transaction) == MDB_SUCCESS &&
         mdb_get(_transaction, _database, &key_value, &value) == MDB_SUCCESS;
}

unsigned int LmdbReference::Number(unsigned int key, unsigned short code) {
  MDB_val value = {};
  unsigned int number = 0;
  if (Find(key, code, value) && value.mv_size == sizeof number) {
    std::memcpy(&number, value.mv_data, sizeof number);
  }
  mdb_txn_reset(_transaction);
  return number;
}

unsigned int LmdbReference::Text(unsigned int key, unsigned short code, char* buffer,
                                 unsigned int size) {
  MDB_val value = {};
  const bool found = Find(key, code, value);
  if (found) {
    const unsigned int count = std::min(size - 1, static_cast<unsigned int>(value.mv_size));
    std::memcpy(buffer, value.mv_data, count);
    buffer[count] = '\0';
  }
  mdb_txn_reset(_transaction);
  return found ? 0 : 1;
}
