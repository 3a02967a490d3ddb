// Makes one catalogue of several files, a file after the other. The names in a
// file mean what they mean up to there: in the files before it and in itself.
//
// By itself it ends at the first thing that is wrong. Keeping going, it leaves out
// every entry that is refused, and a file that is wrong as a whole, and goes on.
#ifndef OLT_HOST_CATALOGUE_CATALOGUE_ASSEMBLER_H
#define OLT_HOST_CATALOGUE_CATALOGUE_ASSEMBLER_H

#include <string>
#include <vector>

#include "catalogue/ability_reader.h"
#include "catalogue/catalogue.h"
#include "catalogue/catalogue_checks.h"
#include "catalogue/catalogue_layer.h"
#include "catalogue/refusals.h"

namespace olt_host {

class CatalogueAssembler {
 public:
  explicit CatalogueAssembler(bool keep_going) : _keep_going(keep_going) {}

  // Lays the file over those before. Throws InputError, unless keeping going.
  void Take(const std::string& file);
  // Leaves out a file or folder. Throws the error, unless keeping going.
  void RefuseFile(const InputError& error);
  // Checks the profiles of all files. Throws InputError, unless keeping going.
  // Called once, at the end.
  void Finish();

  // After Finish.
  const Catalogue& Merged() const { return _merged; }
  const std::vector<CatalogueLayer>& Layers() const { return _layers; }
  const Refusals& Refused() const { return _refusals; }
  // The messages among them that are about a whole file.
  const std::vector<std::string>& RefusedFiles() const { return _refused_files; }
  // Whether an attribute or a code is among what was left out.
  bool HasRefusedDefinitions() const {
    return _has_unread_definitions || !_refused_attributes.empty() || !_refused_codes.empty();
  }

 private:
  using Check = void (*)(const Catalogue&, const RuleBreach&);
  using Merge = Catalogue (*)(const std::vector<CatalogueLayer>&);

  void Refuse(const InputError& error);
  void TakeLayer(const std::string& file);
  template <typename Entry, typename Read>
  void ReadEntries(const std::vector<YamlView>& items, std::vector<Entry> CatalogueLayer::*entries,
                   RefusedNames* refused_names, Read read);
  void Settle(Merge merge, Check check);
  void DropEntries(const std::vector<unsigned int>& orders);

  bool _keep_going;
  bool _is_first = true;
  unsigned int _order = 0;        // of the entry read last
  unsigned int _first_order = 1;  // of the entries that may be left out now
  std::vector<CatalogueLayer> _layers;
  Catalogue _merged = MergeDefinitions({});
  Refusals _refusals;
  std::vector<std::string> _refused_files;
  bool _has_unread_definitions = false;
  RefusedNames _refused_attributes;
  RefusedNames _refused_codes;
};

}  // namespace olt_host

#endif  // OLT_HOST_CATALOGUE_CATALOGUE_ASSEMBLER_H
