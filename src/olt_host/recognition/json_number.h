// Numbers of JSON documents that are read again. The JSON library would turn one that does
// not fit, or is below zero, into another one without a word.
#ifndef OLT_HOST_RECOGNITION_JSON_NUMBER_H
#define OLT_HOST_RECOGNITION_JSON_NUMBER_H

#include <cstdint>
#include <limits>
#include <nlohmann/json.hpp>
#include <stdexcept>
#include <string>

namespace olt_host {

// `name`: as messages call it. Throws std::runtime_error when `json` is no whole number from
// 0 to the largest of the type.
template <typename Number>
Number NumberOf(const nlohmann::ordered_json& json, const char* name) {
  constexpr std::uint64_t kMost = std::numeric_limits<Number>::max();
  if (!json.is_number_unsigned() || json.get<std::uint64_t>() > kMost) {
    throw std::runtime_error(std::string(name) + " is " +
                             (json.is_number() ? json.dump() : json.type_name()) +
                             ", not a number from 0 to " + std::to_string(kMost));
  }
  return json.get<Number>();
}

// Of a member. Throws nlohmann::json::exception as well, when there is none.
template <typename Number>
Number NumberAt(const nlohmann::ordered_json& json, const char* name) {
  return NumberOf<Number>(json.at(name), name);
}

}  // namespace olt_host

#endif  // OLT_HOST_RECOGNITION_JSON_NUMBER_H
