// A catalogue, from a file or written in the test, loaded into a clean library.
#ifndef TESTS_OLT_HOST_RECOGNITION_LOADED_CATALOGUE_H
#define TESTS_OLT_HOST_RECOGNITION_LOADED_CATALOGUE_H

#include <string>

#include "catalogue/catalogue_files.h"
#include "catalogue/catalogue_loader.h"
#include "confirmation/hooks.h"
#include "host_files.h"

namespace olt_host_test {

class LoadedCatalogue {
 public:
  explicit LoadedCatalogue(const std::string& file = Fixture("small_catalogue.yaml")) {
    olt_host::RegisterHooks();
    olt_host::CatalogueRequest request;
    request.shipped = {file};
    _catalogue = olt_host::ReadCatalogueFiles(request).catalogue;
    olt_host::LoadCatalogue(_catalogue);
  }

  const olt_host::Catalogue& catalogue() const { return _catalogue; }

 private:
  CleanLibrary _library;
  olt_host::Catalogue _catalogue;
};

}  // namespace olt_host_test

#endif  // TESTS_OLT_HOST_RECOGNITION_LOADED_CATALOGUE_H
