// The reference host around the library, with the small catalogue of the tests loaded:
// what the targets of the host stand on. Made once a process.
#ifndef TESTS_FUZZ_LOADED_HOST_H
#define TESTS_FUZZ_LOADED_HOST_H

#include <string>
#include <string_view>

#include "catalogue/catalogue.h"

// Of the test's fixtures.
std::string FixtureFile(const std::string& name);

// The small catalogue as it was read.
const olt_host::Catalogue& SmallCatalogue();

// Puts the small catalogue into a library without anything in it, and lets the host's log
// be quiet, the first time.
void LoadSmallCatalogue();

// Brings the library into the state of a fresh process, with empty tables.
// `loaded`: the catalogue that it may hold.
void EmptyLibrary(const olt_host::Catalogue& loaded);

// An input as a file, which no file system has; a reader opens it by its name.
class InputFile {
 public:
  explicit InputFile(std::string_view content);
  ~InputFile();
  InputFile(const InputFile&) = delete;
  InputFile& operator=(const InputFile&) = delete;

  const std::string& name() const { return _name; }

 private:
  int _descriptor;
  std::string _name;
};

// Holds that it is one line that a terminal can show, and that it begins with `file`.
void HoldMessage(const std::string& message, const std::string& file);

#endif  // TESTS_FUZZ_LOADED_HOST_H
