#include "catalogue/catalogue_files.h"

#include <algorithm>
#include <filesystem>
#include <map>
#include <system_error>

#include "catalogue/catalogue_assembler.h"
#include "catalogue/hash.h"

namespace olt_host {

namespace {

namespace fs = std::filesystem;

[[noreturn]] void FailPath(const std::string& path, const std::string& reason) {
  throw InputError({path, 0}, "cannot be read: " + reason, "a YAML file or a folder of them");
}

// A link to nothing counts, for its file is missing; a pipe does not, for reading it
// might never end.
bool IsCatalogueFile(const fs::directory_entry& entry) {
  const std::string name = entry.path().filename().string();
  return name.front() != '.' && entry.path().extension() == ".yaml" &&
         (entry.is_regular_file() || !entry.exists());
}

// The file itself, or the *.yaml files of the folder in the order of their names.
std::vector<std::string> FilesOf(const std::string& path) {
  std::error_code error;
  const fs::file_status status = fs::status(path, error);
  if (status.type() == fs::file_type::not_found) {
    FailPath(path, "No such file or directory");
  }
  if (error) {
    FailPath(path, error.message());
  }
  if (!fs::is_directory(status)) {
    return {path};
  }
  std::vector<std::string> files;
  try {
    for (const fs::directory_entry& entry : fs::directory_iterator(path)) {
      if (IsCatalogueFile(entry)) {
        files.push_back(entry.path().string());
      }
    }
  } catch (const fs::filesystem_error& failure) {
    FailPath(path, failure.code().message());
  }
  std::sort(files.begin(), files.end());
  return files;
}

void TakeAll(CatalogueAssembler& assembler, const std::vector<std::string>& paths) {
  for (const std::string& path : paths) {
    std::vector<std::string> files;
    try {
      files = FilesOf(path);
    } catch (const InputError& error) {
      assembler.RefuseFile(error);
    }
    for (const std::string& file : files) {
      assembler.Take(file);
    }
  }
}

// Counts for each file how many of `entries` came from it.
template <typename Entry>
void CountEntries(const std::vector<Entry>& entries, std::vector<CatalogueFile>& files,
                  std::size_t CatalogueFile::*count) {
  std::map<std::string, CatalogueFile*> by_name;
  for (CatalogueFile& file : files) {
    by_name[file.file] = &file;
  }
  for (const Entry& entry : entries) {
    ++(by_name.at(entry.position.file)->*count);
  }
}

}  // namespace

LoadedCatalogue ReadCatalogueFiles(const CatalogueRequest& request) {
  CatalogueAssembler assembler(request.keep_going);
  TakeAll(assembler, request.shipped);
  TakeAll(assembler, request.local);
  assembler.Finish();
  LoadedCatalogue loaded;
  loaded.read_at = std::chrono::system_clock::now();
  loaded.catalogue = assembler.Merged();
  std::string hashes;
  for (const CatalogueLayer& layer : assembler.Layers()) {
    CatalogueFile file;
    file.file = layer.file;
    file.name = layer.name;
    file.version = layer.version;
    file.sha256 = layer.sha256;
    loaded.files.push_back(file);
    hashes += layer.sha256;
  }
  loaded.sha256 = Sha256(hashes);
  CountEntries(loaded.catalogue.attributes, loaded.files, &CatalogueFile::attributes);
  CountEntries(loaded.catalogue.codes, loaded.files, &CatalogueFile::codes);
  CountEntries(loaded.catalogue.real_profiles, loaded.files, &CatalogueFile::real_profiles);
  CountEntries(loaded.catalogue.match_profiles, loaded.files, &CatalogueFile::match_profiles);
  loaded.refused = assembler.Refused().Messages();
  loaded.refused_entries = assembler.Refused().Count();
  loaded.refused_files = assembler.RefusedFiles();
  loaded.refused_definitions = assembler.HasRefusedDefinitions();
  return loaded;
}

}  // namespace olt_host
