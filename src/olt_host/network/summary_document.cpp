#include "network/summary_document.h"

#include <stdexcept>

#include "catalogue/whole_file.h"

namespace olt_host {

namespace {

using Json = nlohmann::ordered_json;

ShardSet ParseShards(const Json& json) {
  ShardSet shards;
  shards.count = json.at("of");
  shards.numbers = json.at("numbers").get<std::set<std::uint32_t>>();
  const bool fits = shards.count >= 1 && shards.count <= kMostShards && !shards.numbers.empty() &&
                    *shards.numbers.begin() >= 1 && *shards.numbers.rbegin() <= shards.count;
  if (!fits) throw std::runtime_error("shards that cannot be");
  return shards;
}

std::string CatalogueText(const Json& catalogue) {
  const std::string name = catalogue.at("name");
  const std::string version = catalogue.at("version");
  return "Catalogue: " + name + (version.empty() ? "" : ", version " + version) + "\n";
}

}  // namespace

std::string MissingText(const ShardSet& shards) {
  std::string text;
  std::string last;
  for (std::uint32_t number = 1; number <= shards.count; ++number) {
    if (shards.numbers.count(number) != 0) continue;
    if (!last.empty()) text += (text.empty() ? "" : ", ") + last;
    last = std::to_string(number);
  }
  return text.empty() ? last : text + " and " + last;
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
  if (head.shards.IsWhole()) return text;
  text += "Shards:    " + std::to_string(head.shards.numbers.size()) + " of " +
          std::to_string(head.shards.count);
  if (head.shards.numbers.size() == 1) {
    return text + ", number " + std::to_string(*head.shards.numbers.begin()) + "\n";
  }
  return text + "; missing: " + MissingText(head.shards) + "\n";
}

std::string DocumentText(const Json& document) {
  return document.dump(1, ' ', false, Json::error_handler_t::replace) + "\n";
}

}  // namespace olt_host
