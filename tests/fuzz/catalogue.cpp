// The reader of YAML catalogues over any text: what it takes can be loaded, what it
// refuses has one message, and keeping going it takes the rest.
#include <exception>
#include <string>
#include <vector>

#include "catalogue/catalogue_files.h"
#include "catalogue/catalogue_loader.h"
#include "catalogue/catalogue_profile.h"
#include "catalogue/catalogue_reader.h"
#include "fuzz_target.h"
#include "input_bytes.h"
#include "loaded_host.h"
#include "onu_ability_common_table.h"
#include "short_ways/texts.h"

namespace {

using olt_host::Catalogue;

std::string Shown(const std::vector<OnuAbilityProfile>& profiles) {
  std::string text;
  for (const OnuAbilityProfile& profile : profiles) text += "\n  " + Shown(profile);
  return text;
}

// What is worked out beside the library is what loading makes.
void HoldTable(const Catalogue& catalogue, ONU_ABILITY_ENUM_PROFILE_TYPE type) {
  std::vector<OnuAbilityProfile> loaded;
  OnuAbilityTableManager::GetInstance()->GetAll(type, ONU_ABILITY_PROFILE_SOURCE_ALL, loaded);
  HoldSame("the loaded table", Shown(olt_host::MakeTable(catalogue, type)), Shown(loaded));
}

void HoldLoads(const Catalogue& catalogue) {
  EmptyLibrary(SmallCatalogue());  // which the first input finds
  std::string failure;
  try {
    olt_host::LoadCatalogue(catalogue);
  } catch (const std::exception& error) {
    failure = error.what();
  }
  HoldSame("a catalogue that was taken can be loaded", "", failure);
  HoldTable(catalogue, ONU_ABILITY_PROFILE_TYPE_REAL);
  HoldTable(catalogue, ONU_ABILITY_PROFILE_TYPE_MATCH);
  EmptyLibrary(catalogue);
}

// Whether the reader takes the file whole.
bool Take(const InputFile& file) {
  try {
    HoldLoads(olt_host::ReadCatalogue(file.name()));
  } catch (const olt_host::InputError& error) {
    HoldMessage(error.what(), file.name());
    return false;
  }
  return true;
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  LoadSmallCatalogue();
  const InputFile file(InputBytes(data, size).Rest());
  const bool is_whole = Take(file);
  olt_host::CatalogueRequest request;
  request.shipped = {file.name()};
  request.keep_going = true;
  const olt_host::LoadedCatalogue rest = olt_host::ReadCatalogueFiles(request);
  Hold(is_whole == rest.refused.empty(), "something is refused unless the file is taken whole");
  for (const std::string& message : rest.refused) HoldMessage(message, file.name());
  HoldLoads(rest.catalogue);
  return 0;
}
