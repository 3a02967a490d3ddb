// A catalogue of which entries were left out: without profiles a state is still right,
// without codes it is not.
#include "state/catalogue_wholeness.h"

#include <gtest/gtest.h>

#include "host_files.h"
#include "state/state_file.h"

namespace olt_host_test {
namespace {

using olt_host::LoadedCatalogue;
using olt_host::ReadCatalogueFiles;
using olt_host::RequireWholeCatalogue;

class CatalogueWholeness : public testing::Test {
 protected:
  // The catalogue of the fixture with a local file, what is refused left out.
  LoadedCatalogue With(const std::string& local) const {
    return ReadCatalogueFiles(
        {{Fixture("small_catalogue.yaml")}, {_directory.Write("local.yaml", local)}, true});
  }

  std::string Problem(const LoadedCatalogue& loaded) const {
    return ErrorOf([&] { RequireWholeCatalogue(loaded); }, _directory);
  }

  const TemporaryDirectory _directory;
};

constexpr const char* kDefinitionsMissing =
    "the catalogue was taken without some of its attributes or codes; expected a catalogue that "
    "is taken whole";

TEST_F(CatalogueWholeness, IsThereWithoutAnythingRefused) {
  EXPECT_EQ(Problem(With("codes:\n  - {code: 2000, name: FANS}\n")), "no error");
  EXPECT_EQ(Problem(LoadedCatalogue()), "no error");
}

TEST_F(CatalogueWholeness, DoesNotNeedEveryProfile) {
  const LoadedCatalogue loaded = With(
      "codes:\n  - {code: 2000, name: FANS}\n"
      "real_profiles:\n  - {key: 77, abilities: {NO_SUCH_CODE: 1}}\n"
      "match_profiles:\n  - {abilities: {NO_SUCH_CODE: 1}}\n");
  EXPECT_GE(loaded.refused_entries, 2U);
  EXPECT_EQ(Problem(loaded), "no error");
}

TEST_F(CatalogueWholeness, NeedsEveryAttributeAndCode) {
  for (const char* local :
       {"codes:\n  - {code: 2000}\n", "codes:\n  - {code: 2000, name: GE_PORTS}\n",
        "codes:\n  - {code: 2000, name: FANS, attributes: {NO_SUCH: 1}}\n",
        "attributes:\n  - {id: 9}\n", "attributes:\n  - {id: 9, name: LAMP}\n"}) {
    const LoadedCatalogue loaded = With(local);
    EXPECT_EQ(loaded.refused_entries, 1U) << local;
    EXPECT_TRUE(loaded.refused_files.empty()) << local;
    EXPECT_EQ(Problem(loaded), kDefinitionsMissing) << local;
  }
}

TEST_F(CatalogueWholeness, IsJudgedByTheFilesAsTheyWereRead) {
  const std::string refused_code = "codes:\n  - {code: 2000}\n";
  const LoadedCatalogue loaded = With(refused_code);
  _directory.Write("local.yaml", "codes:\n  - {code: 2000, name: FANS}\n");
  EXPECT_EQ(Problem(loaded), kDefinitionsMissing);
  const LoadedCatalogue whole =
      With("real_profiles:\n  - {key: 77, abilities: {NO_SUCH_CODE: 1}}\n");
  EXPECT_EQ(Problem(whole), "no error");
  _directory.Write("local.yaml", refused_code);
  EXPECT_EQ(Problem(whole), "no error");
}

TEST_F(CatalogueWholeness, NeedsEveryFile) {
  const LoadedCatalogue loaded = With("codes: nonsense\n");
  EXPECT_EQ(loaded.refused_files.size(), 1U);
  EXPECT_EQ(Problem(loaded),
            "the catalogue was taken without some of its files; expected a catalogue that is "
            "taken whole");
}

}  // namespace
}  // namespace olt_host_test
