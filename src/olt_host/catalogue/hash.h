// SHA-256, by which one tells whether two files are the same.
#ifndef OLT_HOST_CATALOGUE_HASH_H
#define OLT_HOST_CATALOGUE_HASH_H

#include <string>

namespace olt_host {

// Of the bytes, in lower-case hex.
std::string Sha256(const std::string& bytes);

}  // namespace olt_host

#endif  // OLT_HOST_CATALOGUE_HASH_H
