// A part of a network's work: the OLTs of one shard of several. Which OLT belongs to which
// is told by its name alone, so shards need nothing of each other, and no machine changes it.
#ifndef OLT_HOST_NETWORK_SHARD_H
#define OLT_HOST_NETWORK_SHARD_H

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace olt_host {

constexpr std::uint32_t kMostShards = 10000;

struct Shard {
  std::uint32_t number = 1;  // 1..count
  std::uint32_t count = 1;

  bool IsWhole() const { return count == 1; }
  bool HasOlt(std::string_view olt) const;
  // Of lines that do not tell their OLT: by their number in the input, from 1.
  bool HasLine(std::uint64_t line) const { return line % count == number - 1; }
};

// "3/10", for 1 <= 3 <= 10 <= kMostShards; nothing for anything else.
std::optional<Shard> ParseShard(const std::string& text);
// "3/10".
std::string ToText(const Shard& shard);

}  // namespace olt_host

#endif  // OLT_HOST_NETWORK_SHARD_H
