// The ONU types of which populations are generated: what an ONU of each reports while
// nothing is wrong, and whether that is enough to tell it.
//
// By the library's tables and registry as they are now; on the thread that works with the
// library, whose hooks are registered.
#ifndef OLT_HOST_GENERATION_MODELS_H
#define OLT_HOST_GENERATION_MODELS_H

#include <cstdint>
#include <string>
#include <vector>

#include "catalogue/reports.h"
#include "recognition/real_types.h"

namespace olt_host {

struct Model {
  std::uint32_t key = 0;
  std::uint16_t real_type = 0;
  std::string name;  // may be empty
  // With the type that it reports; that of an ONU that does not tell it is the same
  // but for that.
  OnuReport report;
  // Whether the library confirms its real type, by the reported type and without it.
  bool told_by_type = false;
  bool told_by_abilities = false;
};

// Those called as FindType takes them; all that no newer one hides when `calls` is empty.
// Throws TypeNameError for a call, std::runtime_error when there is no type at all.
std::vector<Model> ReadModels(const std::vector<std::string>& calls);

}  // namespace olt_host

#endif  // OLT_HOST_GENERATION_MODELS_H
