#include "session/users.h"

#include <crypt.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <memory>
#include <stdexcept>
#include <system_error>

#include "platform/file_descriptor.h"

namespace olt_host {
namespace {

constexpr std::size_t kLongestName = 32;
constexpr std::size_t kLargestFile = 1U << 20U;
constexpr const char* kForm = "; expected name:hash:full or name:hash:read-only";

[[noreturn]] void FailToRead(const std::string& file, int error) {
  throw std::runtime_error(file + ": cannot be read: " + std::generic_category().message(error) +
                           "; expected a password file");
}

// The content, once it is known that nobody else may read or write it.
std::string ReadPrivateFile(const std::string& file) {
  const FileDescriptor opened(open(file.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
  struct stat status = {};
  if (!opened.is_open() || fstat(opened.get(), &status) != 0) FailToRead(file, errno);
  if (!S_ISREG(status.st_mode)) {
    throw std::runtime_error(file + ": is no regular file; expected a password file");
  }
  if ((status.st_mode & (S_IRWXG | S_IRWXO)) != 0) {
    throw std::runtime_error(file + ": is open to group or others; expected mode 0600");
  }
  std::string content;
  char part[4096];
  while (content.size() <= kLargestFile) {
    const ssize_t length = read(opened.get(), part, sizeof part);
    if (length < 0) FailToRead(file, errno);
    if (length == 0) return content;
    content.append(part, static_cast<std::size_t>(length));
  }
  throw std::runtime_error(file + ": is larger than 1 MiB; expected a password file");
}

bool IsName(const std::string& name) {
  return !name.empty() && name.size() <= kLongestName &&
         std::all_of(name.begin(), name.end(), [](char c) {
           return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') ||
                  c == '-' || c == '_' || c == '.';
         });
}

// Whether crypt(3) of this system can check a password against it.
bool IsHash(const std::string& hash) {
  if (hash.empty() || hash.front() != '$') return false;
  const int verdict = crypt_checksalt(hash.c_str());
  return verdict == CRYPT_SALT_OK || verdict == CRYPT_SALT_METHOD_LEGACY ||
         verdict == CRYPT_SALT_TOO_CHEAP;
}

// The hash of `password` with the salt and method of `hash`; empty when that fails.
std::string Crypt(const std::string& password, const std::string& hash) {
  const auto data = std::make_unique<struct crypt_data>();  // too large for a stack
  const char* const result = crypt_r(password.c_str(), hash.c_str(), data.get());
  return result == nullptr || result[0] == '*' ? "" : result;
}

// Looks at all of both, so that the time says nothing about where they differ.
bool IsSame(const std::string& a, const std::string& b) {
  unsigned int different = a.size() == b.size() ? 0 : 1;
  for (std::size_t i = 0; i < std::min(a.size(), b.size()); ++i) {
    different |= static_cast<unsigned int>(a[i] ^ b[i]);
  }
  return different == 0;
}

std::string NewSalt() {
  // The best method of the system; where it is an old one, SHA-512.
  for (const char* const method : {"$y$", "$6$"}) {
    char* const salt = crypt_gensalt_ra(method, 0, nullptr, 0);
    if (salt == nullptr) continue;
    const std::unique_ptr<char, decltype(&std::free)> owner(salt, std::free);
    if (IsHash(salt)) return salt;
  }
  throw std::runtime_error("crypt(3) of this system makes no salts");
}

// For names that nobody has.
const std::string& HashOfNobody() {
  static const std::string hash = Crypt("nobody", NewSalt());
  return hash;
}

}  // namespace

Users Users::Read(const std::string& file) {
  const std::string content = ReadPrivateFile(file);
  Users users;
  std::size_t begin = 0;
  for (unsigned long number = 1; begin < content.size(); ++number) {
    const std::size_t end = std::min(content.find('\n', begin), content.size());
    std::string line = content.substr(begin, end - begin);
    begin = end + 1;
    if (!line.empty() && line.back() == '\r') line.pop_back();
    if (line.find_first_not_of(" \t") == std::string::npos || line.front() == '#') continue;
    const std::string problem = users.Add(line);
    if (problem.empty()) continue;
    std::string message = file;
    message.append(":").append(std::to_string(number)).append(": ").append(problem);
    throw std::runtime_error(message);
  }
  if (users._users.empty()) throw std::runtime_error(file + ": has no user" + kForm);
  HashOfNobody();
  return users;
}

std::string Users::Add(const std::string& line) {
  const std::size_t first = line.find(':');
  const std::size_t second = first == std::string::npos ? first : line.find(':', first + 1);
  if (second == std::string::npos) return std::string("is no user") + kForm;
  const std::string name = line.substr(0, first);
  const std::string access = line.substr(second + 1);
  User user;
  user.hash = line.substr(first + 1, second - first - 1);
  user.access = access == "full" ? Access::kFull : Access::kReadOnly;
  if (!IsName(name)) return std::string("the name cannot be one") + kForm;
  if (!IsHash(user.hash)) return "the hash of " + name + " cannot be checked" + kForm;
  if (access != "full" && access != "read-only") {
    return "the access of " + name + " is unknown" + kForm;
  }
  if (!_users.emplace(name, user).second) {
    return name + " stands there twice; expected every name once";
  }
  return "";
}

std::optional<Access> Users::LogIn(const std::string& name, const std::string& password) const {
  const auto found = _users.find(name);
  const bool known = found != _users.end();
  const std::string& hash = known ? found->second.hash : HashOfNobody();
  const bool right = IsSame(Crypt(password, hash), hash);
  if (!known || !right || password.find('\0') != std::string::npos) return std::nullopt;
  return found->second.access;
}

std::string PasswordLine(const std::string& name, const std::string& password, Access access) {
  if (!IsName(name)) {
    throw std::runtime_error("\"" + name + "\" cannot be a name; expected 1 to " +
                             std::to_string(kLongestName) + " letters, digits, '-', '_' or '.'");
  }
  if (password.empty()) throw std::runtime_error("the password is empty; expected one");
  if (password.find_first_of(std::string("\0\r\n", 3)) != std::string::npos) {
    throw std::runtime_error("the password has a line break; expected a line of text");
  }
  const std::string hash = Crypt(password, NewSalt());
  if (hash.empty()) {
    throw std::runtime_error("the password cannot be hashed; expected at most " +
                             std::to_string(CRYPT_MAX_PASSPHRASE_SIZE - 1) + " bytes");
  }
  return name + ":" + hash + ":" + (access == Access::kFull ? "full" : "read-only");
}

}  // namespace olt_host
