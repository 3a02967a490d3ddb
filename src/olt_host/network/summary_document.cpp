#include "network/summary_document.h"

#include <stdexcept>

#include "catalogue/catalogue.h"
#include "catalogue/whole_file.h"
#include "recognition/json_number.h"
#include "text/wrapping.h"

namespace olt_host {

namespace {

using Json = nlohmann::ordered_json;

ShardSet ParseShards(const Json& json) {
  ShardSet shards;
  shards.count = NumberAt<std::uint32_t>(json, "of");
  shards.numbers.clear();
  for (const Json& number : json.at("numbers")) {
    shards.numbers.insert(NumberOf<std::uint32_t>(number, "the number of a shard"));
  }
  const bool fits = shards.count >= 1 && shards.count <= kMostShards && !shards.numbers.empty() &&
                    *shards.numbers.begin() >= 1 && *shards.numbers.rbegin() <= shards.count;
  if (!fits) throw std::runtime_error("shards that cannot be");
  return shards;
}

std::string CatalogueText(const Json& catalogue) {
  const std::string name = catalogue.at("name");
  const std::string version = catalogue.at("version");
  return "Catalogue: " + NameAndVersion(name, version) + "\n";
}

}  // namespace

std::string MissingText(const ShardSet& shards) {
  const auto is_missing = [&shards](std::uint32_t number) {
    return number <= shards.count && shards.numbers.count(number) == 0;
  };
  std::string text;
  std::string last;
  for (std::uint32_t number = 1; number <= shards.count; ++number) {
    if (!is_missing(number)) continue;
    if (!last.empty()) text += (text.empty() ? "" : ", ") + last;
    last = std::to_string(number);
    // Two stand for themselves.
    if (!is_missing(number + 1) || !is_missing(number + 2)) continue;
    while (is_missing(number + 1)) ++number;
    last += " to " + std::to_string(number);
  }
  return text.empty() ? last : text + " and " + last;
}

std::string ShardsText(const std::string& title, const ShardSet& shards) {
  if (shards.IsWhole()) return "";
  const std::string counts =
      std::to_string(shards.numbers.size()) + " of " + std::to_string(shards.count);
  return WrapWords(title, shards.LacksSome()
                              ? counts + "; missing: " + MissingText(shards)
                              : counts + ", number " + std::to_string(*shards.numbers.begin()));
}

Json MakeDocument(const DocumentHead& head, const Json& counts) {
  Json document = {{"kind", head.kind}, {"catalogues", head.catalogues}};
  if (!head.shards.IsWhole()) {
    document["shards"] = {{"of", head.shards.count}, {"numbers", head.shards.numbers}};
  }
  document.update(counts);
  return document;
}

DocumentHead ReadDocument(const std::string& file, Json& document) {
  const std::string text = ReadWholeFile(file, "a summary of a network");
  try {
    document = Json::parse(text);
    DocumentHead head;
    head.kind = document.at("kind");
    head.catalogues = document.at("catalogues");
    for (const Json& catalogue : head.catalogues) CatalogueText(catalogue);
    if (document.contains("shards")) head.shards = ParseShards(document.at("shards"));
    return head;
  } catch (const std::exception& error) {
    ThrowNoSummary(file, error);
  }
}

void ThrowNoSummary(const std::string& file, const std::exception& error) {
  throw std::runtime_error(file + ": this is no summary of a network (" + error.what() +
                           "); expected what confirm or diff print with --json for JSON lines");
}

void AddShards(DocumentHead& head, const DocumentHead& other, const std::string& file) {
  if (other.kind != head.kind) {
    throw std::runtime_error(file + ": a summary of " + other.kind + "; expected one of " +
                             head.kind + " like the first");
  }
  if (other.catalogues != head.catalogues) {
    throw std::runtime_error(file + ": made with another catalogue; expected that of the first, " +
                             head.catalogues.dump());
  }
  if (other.shards.count != head.shards.count) {
    throw std::runtime_error(file + ": one of " + std::to_string(other.shards.count) +
                             " shards; expected one of " + std::to_string(head.shards.count) +
                             " like the first");
  }
  // Whole runs, of different networks.
  if (head.shards.count == 1) return;
  for (const std::uint32_t number : other.shards.numbers) {
    if (head.shards.numbers.insert(number).second) continue;
    throw std::runtime_error(file + ": shard " + std::to_string(number) + " of " +
                             std::to_string(head.shards.count) +
                             " is there already; expected every shard once");
  }
}

std::string HeadText(const DocumentHead& head) {
  std::string text;
  for (const Json& catalogue : head.catalogues) text += CatalogueText(catalogue);
  return text + ShardsText("Shards:    ", head.shards);
}

std::string DocumentText(const Json& document) {
  return document.dump(1, ' ', false, Json::error_handler_t::replace) + "\n";
}

}  // namespace olt_host
