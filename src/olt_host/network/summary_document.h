// The document that the work on a network, or on a shard of one, comes to: what was done
// with what, and the counts. Documents of all shards merge into the one that a single run
// comes to, byte for byte.
#ifndef OLT_HOST_NETWORK_SUMMARY_DOCUMENT_H
#define OLT_HOST_NETWORK_SUMMARY_DOCUMENT_H

#include <cstdint>
#include <exception>
#include <nlohmann/json.hpp>
#include <set>
#include <string>

#include "network/shard.h"

namespace olt_host {

// Which shards a document has the counts of.
struct ShardSet {
  std::uint32_t count = 1;
  std::set<std::uint32_t> numbers = {1};

  static ShardSet Of(const Shard& shard) { return {shard.count, {shard.number}}; }
  bool IsWhole() const { return numbers.size() == count; }
  // Whether others are missed: of one shard nobody expects them.
  bool LacksSome() const { return !IsWhole() && numbers.size() > 1; }
};

// "2, 5 to 9 and 11", none missing: "".
std::string MissingText(const ShardSet& shards);
// "Shards: 2 of 3; missing: 1" behind `title`, which says "Shards: "; "" for all of them. For
// a screen of 80 columns; lines end in "\n".
std::string ShardsText(const std::string& title, const ShardSet& shards);

struct DocumentHead {
  std::string kind;                   // "confirm" or "diff"
  nlohmann::ordered_json catalogues;  // with what it was done; the same in all shards
  ShardSet shards;
};

// The head's members and then those of `counts`.
nlohmann::ordered_json MakeDocument(const DocumentHead& head, const nlohmann::ordered_json& counts);

// Throws the std::runtime_error for a file that is no such document.
[[noreturn]] void ThrowNoSummary(const std::string& file, const std::exception& error);

// Reads a file and the head in it; `document` is all of it. Throws std::runtime_error,
// naming the file.
DocumentHead ReadDocument(const std::string& file, nlohmann::ordered_json& document);

// What `parse` makes of a document; what it throws names the file.
template <typename Counts>
Counts ReadCounts(const std::string& file, const nlohmann::ordered_json& document,
                  Counts (*parse)(const nlohmann::ordered_json&)) {
  try {
    return parse(document);
  } catch (const std::exception& error) {
    ThrowNoSummary(file, error);
  }
}

// Adds the shards of the document in `file`. Throws std::runtime_error, naming the file,
// when it is of other work or has a shard that is there already. Two whole runs are taken
// for those of different networks.
void AddShards(DocumentHead& head, const DocumentHead& other, const std::string& file);

// For people: the catalogues, and which shards there are, unless all. Lines end in "\n".
std::string HeadText(const DocumentHead& head);

// As it is printed and read again, with a line break.
std::string DocumentText(const nlohmann::ordered_json& document);

}  // namespace olt_host

#endif  // OLT_HOST_NETWORK_SUMMARY_DOCUMENT_H
