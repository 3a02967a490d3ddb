#include "network_run.h"

namespace olt_host {

nlohmann::ordered_json CatalogueJson(const LoadedCatalogue& loaded) {
  return {{"name", loaded.catalogue.name},
          {"version", loaded.catalogue.version},
          {"sha256", loaded.sha256}};
}

BlockRun RunOf(const NetworkOptions& options, const DocumentHead& head, const std::string& input) {
  BlockRun run;
  run.input = input;
  run.workers = options.workers == 0 ? AllCores() : options.workers;
  run.checkpoint = options.checkpoint;
  run.depends_on = {
      {"job", head.kind}, {"catalogues", head.catalogues}, {"shard", ToText(options.shard)}};
  return run;
}

}  // namespace olt_host
