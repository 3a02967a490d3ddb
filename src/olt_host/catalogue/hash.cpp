#include "catalogue/hash.h"

#include <sha2.h>

namespace olt_host {

std::string Sha256(const std::string& bytes) {
  char hex[SHA256_DIGEST_STRING_LENGTH];
  SHA256Data(reinterpret_cast<const unsigned char*>(bytes.data()), bytes.size(), hex);
  return hex;
}

}  // namespace olt_host
