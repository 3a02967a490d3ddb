#include "catalogue/catalogue_reader.h"

#include "catalogue/catalogue_assembler.h"

namespace olt_host {

Catalogue ReadCatalogue(const std::string& file) {
  CatalogueAssembler assembler(false);
  assembler.Take(file);
  assembler.Finish();
  return assembler.Merged();
}

}  // namespace olt_host
