// Unknown ONUs, and the entries that make them known.
#include "recognition/proposed_entry.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

#include "catalogue/report_reader.h"
#include "confirmation/confirmer.h"
#include "loaded_catalogue.h"
#include "recognition/population_outcome.h"
#include "thinned_catalogue.h"

namespace olt_host_test {
namespace {

using olt_host::ConfirmationResult;
using olt_host::NoEntry;
using olt_host::OnuReport;
using olt_host::Population;
using olt_host::ProposedEntry;
using olt_host::Recognition;
using olt_host::UnknownOnus;

std::string ShippedFile(const std::string& name) {
  return std::string(OLT_HOST_SHIPPED_DATA) + "/" + name;
}

// The catalogue with the entries as a local file, loaded.
class PastedCatalogue {
 public:
  PastedCatalogue(const std::string& catalogue, const std::string& local) {
    olt_host::RegisterHooks();
    olt_host::CatalogueRequest request;
    request.shipped = {catalogue};
    request.local = {local};
    olt_host::LoadCatalogue(olt_host::ReadCatalogueFiles(request).catalogue);
  }

 private:
  CleanLibrary _library;
};

class ProposedEntryTest : public testing::Test {
 protected:
  // Everything is asked of the library without the entries first.
  void Load(const std::string& catalogue, const std::string& reports) {
    _catalogue = catalogue;
    const LoadedCatalogue loaded(catalogue);
    _population =
        std::make_shared<const Population>(olt_host::ReadReports(reports, loaded.catalogue()));
    _before = olt_host::OutcomeOf({_population});
    Ask();
  }
  void LoadText(const std::string& reports) {
    Load(Fixture("small_catalogue.yaml"), _directory.Write("reports.yaml", reports));
  }
  void Ask() {
    _unknown = olt_host::FindUnknownOnus(*_population);
    _entries = olt_host::ProposeEntries(_unknown, *_population);
    _yaml.clear();
    for (const ProposedEntry& entry : _entries) _yaml.push_back(olt_host::EntriesYaml({entry}));
  }

  // With the entry pasted, its group is what it says, those change besides of which it says
  // so, and everybody else stays what it was.
  void ExpectTakesWhomItSays(std::size_t index) {
    const ProposedEntry& entry = _entries[index];
    const PastedCatalogue pasted(_catalogue, _directory.Write("local.yaml", _yaml[index]));
    std::set<const OnuReport*> group(_unknown.groups[index].onus.begin(),
                                     _unknown.groups[index].onus.end());
    std::set<const OnuReport*> safe;
    std::size_t by_luck = 0;
    std::size_t unrecognised = 0;
    for (std::size_t i = 0; i < _population->Onus().size(); ++i) {
      const OnuReport& report = _population->Onus()[i];
      const olt_host::OnuOutcome& before = _before.onus[i];
      const ConfirmationResult result = olt_host::ConfirmOnu(*_population, report);
      EXPECT_NE(before.real_type, entry.key);
      const bool is_taken = result.real_type == entry.key;
      EXPECT_LE(group.count(&report), is_taken ? 1U : 0U);
      if (!is_taken) {
        EXPECT_EQ(result.real_type, before.real_type);
        EXPECT_EQ(result.how, before.how);
        EXPECT_EQ(result.report_type, before.report_type);
      } else if (group.count(&report) == 0) {
        EXPECT_NE(before.how, Recognition::kType);
        if (before.fitting == 1) safe.insert(&report);
        by_luck += before.fitting > 1 ? 1 : 0;
        unrecognised += before.fitting == 0 ? 1 : 0;
      }
    }
    EXPECT_EQ(safe.size(), entry.takes_safe);
    EXPECT_EQ(std::min<std::size_t>(safe.size(), 100), entry.safe_onus.size());
    for (const OnuReport* onu : entry.safe_onus) EXPECT_EQ(safe.count(onu), 1U);
    EXPECT_EQ(by_luck, entry.takes_by_luck);
    EXPECT_EQ(unrecognised, entry.takes_unrecognised);
  }
  // Of at most so many entries, spread over all; returns how many there were.
  std::size_t ExpectEachTakesWhomItSays(std::size_t most) {
    std::size_t tried = 0;
    const std::size_t step = (_entries.size() + most - 1) / most;
    for (std::size_t i = 0; i < _entries.size() && !HasFailure(); i += step) {
      SCOPED_TRACE(_yaml[i]);
      if (!_entries[i].Exists()) continue;
      ++tried;
      ExpectTakesWhomItSays(i);
    }
    return tried;
  }

  TemporaryDirectory _directory;
  std::string _catalogue;
  std::shared_ptr<const Population> _population;
  olt_host::PopulationOutcome _before;
  UnknownOnus _unknown;
  std::vector<ProposedEntry> _entries;
  std::vector<std::string> _yaml;
};

TEST_F(ProposedEntryTest, MakesTheShippedUnknownKnown) {
  Load(ShippedFile("catalogue.yaml"), ShippedFile("reports.yaml"));
  EXPECT_GT(ExpectEachTakesWhomItSays(20), 5U);
}

TEST_F(ProposedEntryTest, MakesKnownWhatAnotherCatalogueKnew) {
  Load(_directory.Write("thinned.yaml", ThinnedCatalogue()), ShippedFile("reports.yaml"));
  EXPECT_GT(_unknown.unrecognised, 30U);
  EXPECT_GT(ExpectEachTakesWhomItSays(40), 20U);
}

TEST_F(ProposedEntryTest, AllTogetherMakeEveryUnrecognisedOnuKnown) {
  Load(_directory.Write("thinned.yaml", ThinnedCatalogue()), ShippedFile("reports.yaml"));
  std::vector<ProposedEntry> entries;
  std::set<const OnuReport*> may_change;
  for (std::size_t i = 0; i < _entries.size(); ++i) {
    if (_unknown.groups[i].IsRecognised()) {
      // Told too little: taken by order before, and now perhaps by another order.
      may_change.insert(_unknown.groups[i].onus.begin(), _unknown.groups[i].onus.end());
      continue;
    }
    ASSERT_EQ(_entries[i].takes_safe, _entries[i].safe_onus.size());
    may_change.insert(_entries[i].safe_onus.begin(), _entries[i].safe_onus.end());
    entries.push_back(_entries[i]);
  }
  std::string yaml;
  {
    const LoadedCatalogue loaded(_catalogue);
    yaml = olt_host::EntriesYaml(entries);
  }
  const PastedCatalogue pasted(_catalogue, _directory.Write("local.yaml", yaml));
  for (std::size_t i = 0; i < _population->Onus().size(); ++i) {
    const OnuReport& report = _population->Onus()[i];
    const ConfirmationResult result = olt_host::ConfirmOnu(*_population, report);
    EXPECT_NE(result.how, Recognition::kNone);
    if (_before.onus[i].real_type && may_change.count(&report) == 0) {
      EXPECT_EQ(result.real_type, _before.onus[i].real_type);
    }
  }
}

TEST_F(ProposedEntryTest, GroupsByWhatIsCompared) {
  LoadText(
      "onus:\n"
      "  - {place: 1, onu: 1, reported_type: 5, vendor_id: AB, abilities: {GE_PORTS: 9}}\n"
      "  - {place: 1, onu: 2, reported_type: 6, vendor_id: AC, abilities: {GE_PORTS: 9}}\n"
      // The device name is not compared here.
      "  - {place: 1, onu: 3, reported_type: 7, vendor_id: AC, device_name: X,\n"
      "     abilities: {GE_PORTS: 9}}\n");
  ASSERT_EQ(_unknown.groups.size(), 2U);
  EXPECT_EQ(_unknown.groups[0].onus.size(), 2U);
  EXPECT_EQ(_unknown.groups[0].onus[0]->onu, 2);
  EXPECT_EQ(_unknown.groups[1].onus[0]->onu, 1);
  EXPECT_EQ(ExpectEachTakesWhomItSays(2), 2U);
}

TEST_F(ProposedEntryTest, StatesWhatWasReported) {
  LoadText(
      "onus: [{place: 1, onu: 1, reported_type: 4711, vendor_id: \"A\\\"\", device_name: \"Né: "
      "1\",\n"
      "        private_capability: hgu, abilities: {GE_PORTS: 9, POTS_PORTS: 0}}]\n");
  ASSERT_EQ(_yaml.size(), 1U);
  EXPECT_EQ(_yaml[0],
            "real_profiles:\n"
            "  - key: 4711\n"
            "    source: \"reported by ONU 1/1\"\n"
            "    abilities:\n"
            "      GE_PORTS: 9\n"
            "      ONU_CAPA: 1\n"
            "      REAL_TYPE: 4711\n"
            "      TYPE_NAME: \"Né: 1\"\n"
            "match_profiles:\n"
            "  - key: 4711\n"
            "    source: \"reported by ONU 1/1\"\n"
            "    abilities:\n"
            "      POTS_PORTS: 0\n"
            "      GE_PORTS: 9\n"
            "      ONU_CAPA: 1\n"
            "      REPORT_TYPE: 4711\n"
            "      REAL_TYPE: 4711\n"
            "      VENDOR_ID: \"A\\\"\"\n");
  EXPECT_EQ(ExpectEachTakesWhomItSays(1), 1U);
}

TEST_F(ProposedEntryTest, KeyIsFreeWhereTheTypeIsOthersToo) {
  LoadText(
      "onus:\n"
      "  - {place: 1, onu: 1, reported_type: 4711, abilities: {GE_PORTS: 9}}\n"
      "  - {place: 1, onu: 2, reported_type: 4711, abilities: {GE_PORTS: 8}}\n"
      "  - {place: 1, onu: 3, reported_type: 50001, abilities: {GE_PORTS: 4, FE_PORTS: 0}}\n"
      "  - {place: 1, onu: 4, reported_type: unknown, abilities: {GE_PORTS: 7}}\n");
  ASSERT_EQ(_entries.size(), 3U);
  EXPECT_EQ(_entries[0].key, 50002U);
  EXPECT_EQ(_entries[1].key, 50003U);
  EXPECT_EQ(_entries[2].key, 50004U);
  EXPECT_EQ(ExpectEachTakesWhomItSays(3), 3U);
}

TEST_F(ProposedEntryTest, NamesAHundredOfManyThatItTakes) {
  std::string reports =
      "onus:\n  - {place: 1, onu: 0, reported_type: 5, abilities: {GE_PORTS: 9}}\n";
  for (int onu = 1; onu <= 120; ++onu) {
    reports += "  - {place: 1, onu: " + std::to_string(onu) +
               ", reported_type: 6, vendor_id: ACME, abilities: {FE_PORTS: 0}}\n";
  }
  LoadText(reports);
  ASSERT_EQ(_entries.size(), 1U);
  EXPECT_EQ(_entries[0].takes_safe, 120U);
  EXPECT_EQ(_entries[0].safe_onus.size(), 100U);
  EXPECT_EQ(_entries[0].safe_onus.front()->onu, 1);
  EXPECT_EQ(ExpectEachTakesWhomItSays(1), 1U);
}

TEST_F(ProposedEntryTest, NothingIsProposedForWhoToldNothing) {
  LoadText("onus: [{place: 1, onu: 1, reported_type: unknown}]\n");
  ASSERT_EQ(_entries.size(), 1U);
  EXPECT_TRUE(_unknown.groups[0].IsRecognised());
  EXPECT_EQ(_unknown.groups[0].fitting, 3U);
  EXPECT_EQ(_entries[0].why_none, NoEntry::kNothingToDemand);
  EXPECT_EQ(_yaml[0], "");
}

TEST_F(ProposedEntryTest, TellsWhomItWouldTakeBeside) {
  LoadText(
      "onus:\n"
      "  - {place: 1, onu: 1, reported_type: unknown, abilities: {POTS_PORTS: 7}}\n"
      "  - {place: 1, onu: 2, reported_type: unknown,\n"
      "     abilities: {POTS_PORTS: 7, GE_PORTS: 9, FE_PORTS: 0}}\n"
      // One profile alone fits these two, which told nothing of their fast ports.
      "  - {place: 1, onu: 3, reported_type: 77, vendor_id: ACME,\n"
      "     abilities: {POTS_PORTS: 7, FE_PORTS: 0}}\n"
      "  - {place: 1, onu: 4, reported_type: 78, vendor_id: ACME,\n"
      "     abilities: {POTS_PORTS: 7, FE_PORTS: 0}}\n"
      // Known by its type.
      "  - {place: 1, onu: 5, reported_type: 1001, abilities: {POTS_PORTS: 7, GE_PORTS: 9}}\n"
      "  - {place: 1, onu: 6, reported_type: unknown}\n"
      "  - {place: 1, onu: 7, reported_type: unknown, abilities: {GE_PORTS: 9}}\n");
  const std::vector<const OnuReport*> safe = {&_population->Onus()[2], &_population->Onus()[3]};
  ASSERT_EQ(_unknown.groups.size(), 4U);
  EXPECT_EQ(_unknown.groups[0].onus[0]->onu, 2);
  EXPECT_EQ(_entries[0].takes_safe, 2U);
  EXPECT_EQ(_entries[0].safe_onus, safe);
  EXPECT_EQ(_entries[0].takes_by_luck, 2U);
  EXPECT_EQ(_entries[0].takes_unrecognised, 1U);
  EXPECT_EQ(_unknown.groups[2].onus[0]->onu, 1);
  EXPECT_EQ(_entries[2].safe_onus, safe);
  EXPECT_EQ(_entries[2].takes_by_luck, 1U);
  EXPECT_EQ(_entries[2].takes_unrecognised, 2U);
  EXPECT_EQ(ExpectEachTakesWhomItSays(4), 3U);
}

// Operators' profiles are asked before all of the catalogue.
TEST_F(ProposedEntryTest, NothingIsProposedForWhomAnOperatorsProfileTakes) {
  const auto add_operators = [] {
    OnuAbilityProfile profile;
    profile.Init(ONU_ABILITY_PROFILE_TYPE_MATCH, ONU_ABILITY_PROFILE_SOURCE_EXTERNAL,
                 ONU_ABILITY_MATCH_TYPE_EXACT);
    profile.Add(7000U);
    profile.Add(1081, 7000);
    profile.Add(47, 4);
    ASSERT_EQ(OnuAbilityTableManager::GetInstance()->Add(profile), ONU_ABILITY_RET_OK);
  };
  const std::string reports = _directory.Write(
      "reports.yaml",
      "onus:\n"
      // The operator's profile and 1002 fit; the operator's alone; none.
      "  - {place: 1, onu: 1, reported_type: 5, vendor_id: ZKWM, abilities: {GE_PORTS: 4}}\n"
      "  - {place: 1, onu: 2, reported_type: 6, vendor_id: ACME, abilities: {FE_PORTS: 9}}\n"
      "  - {place: 1, onu: 3, reported_type: 7, abilities: {GE_PORTS: 9}}\n");
  {
    const LoadedCatalogue loaded;
    add_operators();
    _population =
        std::make_shared<const Population>(olt_host::ReadReports(reports, loaded.catalogue()));
    Ask();
  }
  ASSERT_EQ(_unknown.groups.size(), 2U);
  EXPECT_EQ(_entries[0].takes_safe, 0U);
  EXPECT_EQ(_unknown.groups[1].winner.key, 7000U);
  EXPECT_EQ(_entries[1].why_none, NoEntry::kOperatorIsFirst);
  EXPECT_EQ(_yaml[1], "");
  const PastedCatalogue pasted(Fixture("small_catalogue.yaml"),
                               _directory.Write("local.yaml", _yaml[0]));
  add_operators();
  const std::vector<OnuReport>& onus = _population->Onus();
  EXPECT_EQ(olt_host::ConfirmOnu(*_population, onus[0]).real_type, 7000);
  EXPECT_EQ(olt_host::ConfirmOnu(*_population, onus[1]).real_type, 7000);
  EXPECT_EQ(olt_host::ConfirmOnu(*_population, onus[2]).real_type, 7);
}

// Where the key itself is compared, it must be the type that the ONUs report.
TEST_F(ProposedEntryTest, NothingIsProposedWhereTheKeyCannotBeTheReportedType) {
  const std::string catalogue = _directory.Write(
      "catalogue.yaml", With(ReadFile(Fixture("small_catalogue.yaml")), "{code: 1085, name: KEY}",
                             "{code: 1085, name: KEY, attributes: {CONFIRM_TYPE: 1}}"));
  Load(catalogue, _directory.Write(
                      "reports.yaml",
                      "onus:\n"
                      "  - {place: 1, onu: 1, reported_type: 4711, abilities: {GE_PORTS: 9}}\n"
                      "  - {place: 1, onu: 2, reported_type: 99999, abilities: {GE_PORTS: 9}}\n"));
  ASSERT_EQ(_unknown.groups.size(), 2U);
  EXPECT_EQ(_entries[0].key, 4711U);
  EXPECT_EQ(_entries[1].why_none, NoEntry::kNoKey);
  EXPECT_EQ(ExpectEachTakesWhomItSays(2), 1U);
}

}  // namespace
}  // namespace olt_host_test
