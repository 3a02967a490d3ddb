#include "sqlite_reference.h"

#include <sqlite3.h>

#include <algorithm>
#include <cstring>
#include <stdexcept>

#include "host_lock.h"

namespace {

void Require(bool holds, sqlite3* database) {
  if (!holds) throw std::runtime_error(std::string("SQLite: ") + sqlite3_errmsg(database));
}

void BindText(sqlite3_stmt* statement, int place, const std::string& text) {
  sqlite3_bind_text(statement, place, text.data(), static_cast<int>(text.size()), SQLITE_STATIC);
}

// Ends the statement's own transaction when the row has been read.
class Reset {
 public:
  explicit Reset(sqlite3_stmt* statement) : _statement(statement) {}
  ~Reset() { sqlite3_reset(_statement); }
  Reset(const Reset&) = delete;
  Reset& operator=(const Reset&) = delete;

 private:
  sqlite3_stmt* _statement;
};

void Ask(sqlite3_stmt* statement, unsigned int key, unsigned short code) {
  sqlite3_bind_int64(statement, 1, key);
  sqlite3_bind_int(statement, 2, code);
}

}  // namespace

void SqliteReference::Close::operator()(sqlite3* database) const { sqlite3_close(database); }

void SqliteReference::Finalize::operator()(sqlite3_stmt* statement) const {
  sqlite3_finalize(statement);
}

SqliteReference::SqliteReference(std::size_t profiles) {
  sqlite3* database = nullptr;
  const int opened =
      sqlite3_open_v2(":memory:", &database,
                      SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE | SQLITE_OPEN_NOMUTEX, nullptr);
  _database.reset(database);
  Require(opened == SQLITE_OK, database);
  Execute("BEGIN");
  LoadAbilities(profiles);
  LoadPatterns(profiles);
  Execute("COMMIT; ANALYZE");
  _number = Prepare("SELECT number FROM ability WHERE key = ?1 AND code = ?2");
  _text = Prepare("SELECT text FROM ability WHERE key = ?1 AND code = ?2");
  std::string fits;
  for (std::size_t place = 1; place <= kComparedCodes; ++place) {
    const std::string number = std::to_string(place);
    fits += fits.empty() ? "" : " AND ";
    fits.append("(c").append(number).append(" IS NULL OR c").append(number);
    fits.append(" = ?").append(number).append(")");
  }
  _recognise = Prepare("SELECT id FROM pattern WHERE " + fits + " ORDER BY id DESC LIMIT 1");
}

void SqliteReference::Execute(const std::string& sql) {
  Require(sqlite3_exec(_database.get(), sql.c_str(), nullptr, nullptr, nullptr) == SQLITE_OK,
          _database.get());
}

SqliteReference::Statement SqliteReference::Prepare(const std::string& sql) {
  sqlite3_stmt* statement = nullptr;
  const int prepared = sqlite3_prepare_v3(_database.get(), sql.c_str(), -1,
                                          SQLITE_PREPARE_PERSISTENT, &statement, nullptr);
  Require(prepared == SQLITE_OK, _database.get());
  return Statement(statement);
}

void SqliteReference::LoadAbilities(std::size_t profiles) {
  Execute(
      "CREATE TABLE ability (key INTEGER NOT NULL, code INTEGER NOT NULL, number INTEGER, "
      "text TEXT, PRIMARY KEY (key, code)) WITHOUT ROWID");
  const Statement insert = Prepare("INSERT INTO ability VALUES (?1, ?2, ?3, ?4)");
  for (std::size_t i = 0; i < profiles; ++i) {
    const Description& profile = RealDescriptions()[i];
    for (const auto* abilities : {&profile.given, &profile.derived}) {
      for (const auto& [code, value] : *abilities) {
        sqlite3_reset(insert.get());
        sqlite3_clear_bindings(insert.get());
        Ask(insert.get(), profile.key, code);
        if (value.ability_value_type == ONU_ABILITY_VALUE_TYPE_USHORT) {
          sqlite3_bind_int64(insert.get(), 3, value.ability_ushort_value);
        } else {
          BindText(insert.get(), 4, value.ability_string_value);
        }
        Require(sqlite3_step(insert.get()) == SQLITE_DONE, _database.get());
      }
    }
  }
}

void SqliteReference::LoadPatterns(std::size_t patterns) {
  std::string columns = "id INTEGER PRIMARY KEY";
  std::string values = "?1";
  for (std::size_t place = 1; place <= kComparedCodes; ++place) {
    columns += ", c" + std::to_string(place);
    columns += place == kVendorPlace + 1 ? " TEXT" : " INTEGER";
    values += ", ?" + std::to_string(place + 1);
  }
  Execute("CREATE TABLE pattern (" + columns + ")");
  const Statement insert = Prepare("INSERT INTO pattern VALUES (" + values + ")");
  for (std::size_t i = 0; i < patterns; ++i) {
    const Compared& compared = MatchDescriptions()[i].compared;
    const std::string vendor = VendorName(compared[kVendorPlace]);
    sqlite3_reset(insert.get());
    sqlite3_clear_bindings(insert.get());
    sqlite3_bind_int64(insert.get(), 1, static_cast<sqlite3_int64>(i));
    for (std::size_t place = 0; place < kComparedCodes; ++place) {
      if (compared[place] == ONU_ABILITY_WILDCARD) continue;  // stays null
      if (place == kVendorPlace) {
        BindText(insert.get(), static_cast<int>(place) + 2, vendor);
      } else {
        sqlite3_bind_int64(insert.get(), static_cast<int>(place) + 2, compared[place]);
      }
    }
    Require(sqlite3_step(insert.get()) == SQLITE_DONE, _database.get());
  }
}

unsigned int SqliteReference::Number(unsigned int key, unsigned short code) {
  const HostLock lock(_mutex);
  const Reset reset(_number.get());
  Ask(_number.get(), key, code);
  if (sqlite3_step(_number.get()) != SQLITE_ROW) return 0;
  return static_cast<unsigned int>(sqlite3_column_int64(_number.get(), 0));
}

unsigned int SqliteReference::Text(unsigned int key, unsigned short code, char* buffer,
                                   unsigned int size) {
  const HostLock lock(_mutex);
  const Reset reset(_text.get());
  Ask(_text.get(), key, code);
  if (sqlite3_step(_text.get()) != SQLITE_ROW) return 1;
  const auto* text = sqlite3_column_text(_text.get(), 0);
  if (text == nullptr) return 1;
  const auto length = static_cast<unsigned int>(sqlite3_column_bytes(_text.get(), 0));
  const unsigned int count = std::min(size - 1, length);
  std::memcpy(buffer, text, count);
  buffer[count] = '\0';
  return 0;
}

int SqliteReference::Recognise(const Report& report) {
  const HostLock lock(_mutex);
  sqlite3_stmt* statement = _recognise.get();
  const Reset reset(statement);
  for (std::size_t place = 0; place < kComparedCodes; ++place) {
    if (place == kVendorPlace) {
      BindText(statement, static_cast<int>(place) + 1, report.vendor);
    } else {
      sqlite3_bind_int64(statement, static_cast<int>(place) + 1, report.compared[place]);
    }
  }
  return sqlite3_step(statement) == SQLITE_ROW ? sqlite3_column_int(statement, 0) : -1;
}
