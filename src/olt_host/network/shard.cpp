#include "network/shard.h"

#include <charconv>

namespace olt_host {

namespace {

// FNV-1a: the same on every machine and in every version, which std::hash is not.
std::uint64_t StableHash(std::string_view text) {
  std::uint64_t hash = 0xCBF29CE484222325U;
  for (const char c : text) {
    hash = (hash ^ static_cast<unsigned char>(c)) * 0x100000001B3U;
  }
  // Names that count up differ in their last bytes only.
  hash ^= hash >> 32U;
  return hash;
}

std::optional<std::uint32_t> NumberOf(std::string_view digits) {
  std::uint32_t number = 0;
  const char* const end = digits.data() + digits.size();
  const auto [stop, error] = std::from_chars(digits.data(), end, number);
  if (error != std::errc() || stop != end || number == 0) return std::nullopt;
  return number;
}

}  // namespace

bool Shard::HasOlt(std::string_view olt) const { return StableHash(olt) % count == number - 1; }

std::optional<Shard> ParseShard(const std::string& text) {
  const std::size_t slash = text.find('/');
  if (slash == std::string::npos) return std::nullopt;
  const auto number = NumberOf(std::string_view(text).substr(0, slash));
  const auto count = NumberOf(std::string_view(text).substr(slash + 1));
  if (!number || !count || *number > *count || *count > kMostShards) return std::nullopt;
  return Shard{*number, *count};
}

std::string ToText(const Shard& shard) {
  return std::to_string(shard.number) + "/" + std::to_string(shard.count);
}

}  // namespace olt_host
