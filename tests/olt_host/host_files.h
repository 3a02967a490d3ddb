// What the tests of the host's input share: a directory of their own for files,
// the message that reading a file ends with, and a clean library.
#ifndef TESTS_OLT_HOST_HOST_FILES_H
#define TESTS_OLT_HOST_HOST_FILES_H

#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

#include "onu_ability_common_table.h"

namespace olt_host_test {

// A directory that goes away with its files.
class TemporaryDirectory {
 public:
  TemporaryDirectory() {
    std::string pattern = (std::filesystem::temp_directory_path() / "olt_host_XXXXXX").string();
    if (mkdtemp(pattern.data()) == nullptr) {
      throw std::runtime_error("no temporary directory");
    }
    _path = pattern;
  }
  ~TemporaryDirectory() { std::filesystem::remove_all(_path); }
  TemporaryDirectory(const TemporaryDirectory&) = delete;
  TemporaryDirectory& operator=(const TemporaryDirectory&) = delete;

  std::string Path(const std::string& name) const { return (_path / name).string(); }

  // Writes the file and returns its path.
  std::string Write(const std::string& name, const std::string& text) const {
    std::ofstream(Path(name), std::ios::binary) << text;
    return Path(name);
  }

 private:
  std::filesystem::path _path;
};

inline std::string ReadFile(const std::string& file) {
  std::ifstream stream(file, std::ios::binary);
  std::ostringstream text;
  text << stream.rdbuf();
  return text.str();
}

inline std::string Fixture(const std::string& name) {
  return std::string(OLT_HOST_FIXTURES) + "/" + name;
}

// What `action` throws, with the directory of its file left out; "no error" when
// it does not.
template <typename Action>
std::string ErrorOf(const Action& action, const TemporaryDirectory& directory) {
  try {
    action();
  } catch (const std::exception& error) {
    std::string message = error.what();
    const std::string prefix = directory.Path("");
    for (std::size_t at = message.find(prefix); at != std::string::npos;
         at = message.find(prefix)) {
      message.erase(at, prefix.size());
    }
    return message;
  }
  return "no error";
}

// Replaces the one place of `text` that reads `from`.
inline std::string With(std::string text, const std::string& from, const std::string& to) {
  const std::size_t at = text.find(from);
  if (at == std::string::npos || text.find(from, at + 1) != std::string::npos) {
    throw std::logic_error("not exactly once: " + from);
  }
  return text.replace(at, from.size(), to);
}

// The library as a process starts with it, with new tables, whatever the tests
// before in the same process left behind; emptied again at the end.
class CleanLibrary {
 public:
  CleanLibrary() {
    Empty();
    OnuAbilityTableManager::GetInstance()->Init();
  }
  ~CleanLibrary() { Empty(); }
  CleanLibrary(const CleanLibrary&) = delete;
  CleanLibrary& operator=(const CleanLibrary&) = delete;

 private:
  static void Empty() {
    OnuAbilityTableManager* manager = OnuAbilityTableManager::GetInstance();
    manager->DelOnuAbilityTable(ONU_ABILITY_PROFILE_TYPE_MATCH);
    manager->DelOnuAbilityTable(ONU_ABILITY_PROFILE_TYPE_REAL);
    OnuAbilityCodeInfo::GetInstance()->Restore({});
    OnuAbilityCodeInfo::GetInstance()->SetKeyAbilityCode(ONU_ABILITY_CODE_DEFAULT_KEY);
    constexpr int kHighestIdInTests = 100;
    for (int id = 1; id <= kHighestIdInTests; ++id) {
      OnuAbilityAttrInfo::GetInstance()->Del(static_cast<ONU_ABILITY_ENUM_ABILITY_ATTR_ID>(id));
    }
  }
};

}  // namespace olt_host_test

#endif  // TESTS_OLT_HOST_HOST_FILES_H
