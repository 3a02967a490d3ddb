// Texts and names as they stand in YAML, so that the readers take them for what they are.
#ifndef OLT_HOST_CATALOGUE_YAML_WORDS_H
#define OLT_HOST_CATALOGUE_YAML_WORDS_H

#include <cstdint>
#include <map>
#include <string>

namespace olt_host {

// In double quotes, where every byte below 0x80 can be told.
std::string QuotedYaml(const std::string& bytes);

// The names that the code registry has now, by code, as far as they are plain words; a code
// without one stands by its number.
std::map<std::uint16_t, std::string> PlainCodeNames();

}  // namespace olt_host

#endif  // OLT_HOST_CATALOGUE_YAML_WORDS_H
