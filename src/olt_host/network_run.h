// What the jobs that go through whole networks begin with.
#ifndef OLT_HOST_NETWORK_RUN_H
#define OLT_HOST_NETWORK_RUN_H

#include <string>

#include "catalogue/catalogue_files.h"
#include "command_line.h"
#include "network/block_run.h"
#include "network/summary_document.h"

namespace olt_host {

// Of the head of a document: which catalogue it was made with.
nlohmann::ordered_json CatalogueJson(const LoadedCatalogue& loaded);

// Going through `input`, which comes to a document with this head.
BlockRun RunOf(const NetworkOptions& options, const DocumentHead& head, const std::string& input);

}  // namespace olt_host

#endif  // OLT_HOST_NETWORK_RUN_H
