#include "loaded_host.h"

#include <sys/mman.h>
#include <unistd.h>

#include <algorithm>
#include <vector>

#include "catalogue/catalogue_loader.h"
#include "catalogue/catalogue_reader.h"
#include "fuzz_target.h"
#include "onu_ability_common_table.h"
#include "platform/log_sink.h"
#include "support/library_reset.h"

std::string FixtureFile(const std::string& name) {
  return std::string(OLT_HOST_FIXTURES) + "/" + name;
}

const olt_host::Catalogue& SmallCatalogue() {
  static const olt_host::Catalogue catalogue =
      olt_host::ReadCatalogue(FixtureFile("small_catalogue.yaml"));
  return catalogue;
}

void EmptyLibrary(const olt_host::Catalogue& loaded) {
  std::vector<ONU_ABILITY_ENUM_ABILITY_ATTR_ID> ids;
  for (const olt_host::AttributeEntry& attribute : loaded.attributes) {
    ids.push_back(static_cast<ONU_ABILITY_ENUM_ABILITY_ATTR_ID>(attribute.id));
  }
  ResetLibrary(ids);
  OnuAbilityTableManager::GetInstance()->Init();
}

void LoadSmallCatalogue() {
  static const bool loaded = [] {
    olt_host::OpenLog({"", 0, olt_host::kDefaultLogMask});
    EmptyLibrary({});
    olt_host::LoadCatalogue(SmallCatalogue());
    return true;
  }();
  (void)loaded;
}

InputFile::InputFile(std::string_view content)
    : _descriptor(memfd_create("input", MFD_CLOEXEC)),
      _name("/proc/self/fd/" + std::to_string(_descriptor)) {
  Hold(_descriptor >= 0, "the system has no file in memory");
  Hold(write(_descriptor, content.data(), content.size()) == static_cast<ssize_t>(content.size()),
       "the file in memory is written");
}

InputFile::~InputFile() { close(_descriptor); }

void HoldMessage(const std::string& message, const std::string& file) {
  Hold(message.rfind(file, 0) == 0, "a message that does not begin with its file: " + message);
  Hold(std::none_of(message.begin(), message.end(),
                    [](char c) { return static_cast<unsigned char>(c) < ' ' || c == '\x7f'; }),
       "a message with a control character: " + message);
  Hold(message.find("; expected ") != std::string::npos,
       "a message that expects nothing: " + message);
}
