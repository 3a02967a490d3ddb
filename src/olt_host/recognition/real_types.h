// The ONU types that the library knows, a real profile a type, and how an operator names
// one of them.
//
// By the real table as it is now; on the thread that works with the library.
#ifndef OLT_HOST_RECOGNITION_REAL_TYPES_H
#define OLT_HOST_RECOGNITION_REAL_TYPES_H

#include <cstdint>
#include <stdexcept>
#include <string>
#include <vector>

#include "onu_ability_common_table.h"

namespace olt_host {

struct RealType {
  OnuAbilityProfile profile;
  // A newer profile has the same key: queries by the key read that one.
  bool hidden = false;

  std::uint32_t Key() const;
  std::uint32_t Real() const;  // 0: none
  std::string Name() const;    // "": none
  // "shipped" or "operator".
  const char* Source() const;
};

// Of both sources, the newest first.
std::vector<RealType> RealTypes();

// No type is called so, or several are: what() says which.
class TypeNameError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// The type that `call` names: its key, its real type, its type name (in capitals or not,
// or the beginning that no other has). "key=", "real=" and "name=" before it say which is
// meant, "shipped=" and "operator=" say whose, by key. Of profiles with one key the newest is
// taken, as queries do. Throws TypeNameError.
const RealType& FindType(const std::vector<RealType>& types, const std::string& call);

}  // namespace olt_host

#endif  // OLT_HOST_RECOGNITION_REAL_TYPES_H
