// Reachability and overlaps against the library itself: for every list of match profiles
// over small alphabets, all reports that there can be are run through it.
#include "recognition/reachability.h"

#include <gtest/gtest.h>

#include <functional>
#include <random>
#include <set>

#include "match_table.h"
#include "recognition/overlaps.h"

namespace olt_host_test {
namespace {

using olt_host::OnuReport;
using olt_host::Reach;

// What an ONU may answer, a code each; nothing for no answer.
struct Answers {
  std::vector<std::optional<std::string>> vendors = {std::nullopt};
  std::vector<std::optional<std::string>> names = {std::nullopt};
  std::vector<std::optional<std::uint8_t>> capabilities = {std::nullopt};
  std::vector<std::uint32_t> types = {olt_host::kUnknownReportedType};
  std::map<std::uint16_t, std::vector<std::optional<std::uint32_t>>> numbers;
};

std::vector<OnuReport> AllReports(const Answers& answers) {
  std::vector<OnuReport> reports;
  for (const auto& vendor : answers.vendors) {
    for (const auto& name : answers.names) {
      for (const auto& capability : answers.capabilities) {
        for (const std::uint32_t type : answers.types) {
          OnuReport report;
          report.vendor_id = vendor;
          report.device_name = name;
          report.private_capability = capability;
          report.reported_type = type;
          reports.push_back(report);
        }
      }
    }
  }
  for (const auto& [code, numbers] : answers.numbers) {
    std::vector<OnuReport> more;
    for (const OnuReport& report : reports) {
      for (const auto& number : numbers) {
        more.push_back(report);
        if (number) more.back().abilities[code] = *number;
      }
    }
    reports = more;
  }
  return reports;
}

// A report and whether it leaves nothing out.
struct Tried {
  ConfirmOnuType gathered;
  bool complete = false;
};

struct Alphabet {
  std::map<std::uint16_t, MatchTable::Code> codes;
  std::map<std::uint16_t, std::vector<Cell>> cells;
  Answers answers;
  std::size_t patterns = 3;       // of a list, at most
  bool may_be_undecided = false;  // where totals are compared
};

class EveryList {
 public:
  explicit EveryList(Alphabet alphabet) : _alphabet(std::move(alphabet)), _table(_alphabet.codes) {
    _table.Fill({});
    std::map<std::string, bool> seen;
    for (const OnuReport& report : AllReports(_alphabet.answers)) {
      Tried tried{MatchTable::Gather(report), IsComplete(report)};
      // What the library makes of two reports is the same when it has gathered the same.
      if (seen.emplace(TextOf(tried), true).second) _reports.push_back(tried);
    }
    Cells cells;
    AddPatterns(_alphabet.cells.begin(), cells);
  }

  void Check() {
    for (std::size_t patterns = 1; patterns <= _alphabet.patterns; ++patterns) {
      std::vector<std::size_t> list(patterns, 0);
      do {
        CheckList(list);
        if (testing::Test::HasFailure()) return;
      } while (Next(list));
    }
  }

  // Longer lists, chosen by chance.
  void CheckSome(std::size_t patterns, unsigned int lists, unsigned int seed) {
    std::mt19937 random(seed);
    for (unsigned int i = 0; i < lists && !testing::Test::HasFailure(); ++i) {
      std::vector<std::size_t> list(1 + random() % patterns);
      for (std::size_t& pattern : list) pattern = random() % _patterns.size();
      CheckList(list);
    }
  }

  std::size_t checked() const { return _checked; }
  std::size_t unreachable() const { return _unreachable; }
  std::size_t undecided() const { return _undecided; }
  std::size_t shared_takes() const { return _shared_takes; }
  std::size_t overlapping() const { return _overlapping; }

 private:
  using CellsOfCode = std::map<std::uint16_t, std::vector<Cell>>::const_iterator;

  void AddPatterns(CellsOfCode code, Cells& cells) {
    if (code == _alphabet.cells.end()) {
      _patterns.push_back(cells);
      return;
    }
    for (const Cell& cell : code->second) {
      cells[code->first] = cell;
      AddPatterns(std::next(code), cells);
    }
  }

  bool Next(std::vector<std::size_t>& list) const {
    for (std::size_t& pattern : list) {
      if (++pattern < _patterns.size()) return true;
      pattern = 0;
    }
    return false;
  }

  static std::string TextOf(const Tried& tried) {
    std::string text = tried.complete ? "complete" : "";
    for (const auto& [code, value] : tried.gathered._common_ability) {
      text += std::to_string(code) + "=" + std::to_string(value.ability_value_type) + ":" +
              std::to_string(value.ability_ushort_value) + value.ability_string_value + ";";
    }
    return text + std::to_string(tried.gathered._private_capability) + "," +
           std::to_string(tried.gathered._type_from_onu_report);
  }

  // Answers everything; a private capability may be missing where the capability is not
  // asked, or is answered.
  bool IsComplete(const OnuReport& report) const {
    bool capability_known = report.private_capability.value_or(0xFF) != 0xFF;
    bool capability_asked = false;
    for (const auto& [code, facts] : _alphabet.codes) {
      if (code == 1082 && report.vendor_id.value_or("").empty()) return false;
      if (code == 1083 && report.device_name.value_or("").empty()) return false;
      if (facts.text || (facts.confirm_type & 2) == 0) continue;
      const auto answer = report.abilities.find(code);
      if (code == 1002) {
        capability_asked = true;
        // A private capability takes the answer's place, an unknown one, too.
        capability_known =
            capability_known || (!report.private_capability && answer != report.abilities.end() &&
                                 (answer->second & 0xFF) != 0xFF);
      } else if (answer == report.abilities.end() || answer->second == 0xFFFFFFFFU) {
        return false;
      }
    }
    return capability_known || !capability_asked;
  }

  void CheckList(const std::vector<std::size_t>& list) {
    std::vector<Cells> patterns;
    std::string trace = "patterns";
    for (const std::size_t pattern : list) {
      patterns.push_back(_patterns[pattern]);
      trace += " {";
      for (const auto& [code, cell] : patterns.back()) {
        trace += std::to_string(code) + ":" + std::to_string(cell.kind) + "/" +
                 std::to_string(cell.number) + cell.text + " ";
      }
      trace += "}";
    }
    SCOPED_TRACE(trace);
    const std::vector<OnuAbilityProfile>& profiles = _table.Fill(patterns);
    const olt_host::ReportSpace space(profiles);
    const olt_host::PatternBoxes boxes(profiles, space);
    const olt_host::LibraryTrial trial(boxes);
    RunReports(list.size());
    CheckReach(olt_host::FindReach(boxes, space, trial));
    CheckOverlaps(olt_host::FindOverlaps(boxes, space, trial, 10));
    ++_checked;
  }

  // What the library says to all of them.
  void RunReports(std::size_t patterns) {
    _fits.assign(patterns, std::vector<bool>(_reports.size()));
    _reached.assign(patterns, false);
    for (std::size_t report = 0; report < _reports.size(); ++report) {
      const ConfirmOnuType& gathered = _reports[report].gathered;
      if (MatchTable::IsKnownByType(gathered)) continue;
      const std::size_t winner = MatchTable::Winner(gathered);
      if (winner != MatchTable::kNobody) _reached[winner] = true;
      for (std::size_t i = 0; i < patterns; ++i) {
        _fits[i][report] = _table.Fits(i, gathered);
      }
    }
  }

  void CheckReach(const std::vector<olt_host::PatternReach>& reach) {
    ASSERT_EQ(reach.size(), _reached.size());
    for (std::size_t i = 0; i < reach.size(); ++i) {
      SCOPED_TRACE("profile " + std::to_string(i));
      if (reach[i].reach == Reach::kUndecided) {
        ++_undecided;
        EXPECT_TRUE(_alphabet.may_be_undecided);
      } else if (reach[i].reach == Reach::kReached) {
        EXPECT_TRUE(_reached[i] || _alphabet.may_be_undecided);
        ASSERT_TRUE(reach[i].witness.has_value());
        EXPECT_EQ(MatchTable::Winner(MatchTable::Gather(*reach[i].witness)), i);
      } else {
        ++_unreachable;
        _shared_takes += reach[i].takers.size() > 1 ? 1 : 0;
        EXPECT_FALSE(_reached[i]);
        CheckTakers(i, reach[i].takers);
      }
    }
  }

  // Whatever fits the profile fits one of the takers, which are newer.
  void CheckTakers(std::size_t profile, const std::vector<std::size_t>& takers) {
    for (const std::size_t taker : takers) EXPECT_GT(taker, profile);
    for (std::size_t report = 0; report < _reports.size(); ++report) {
      if (!_fits[profile][report]) continue;
      bool taken = false;
      for (const std::size_t taker : takers) taken = taken || _fits[taker][report];
      EXPECT_TRUE(taken) << "report " << report;
    }
  }

  bool ShareComplete(std::size_t a, std::size_t b) const {
    for (std::size_t report = 0; report < _reports.size(); ++report) {
      if (_reports[report].complete && _fits[a][report] && _fits[b][report]) return true;
    }
    return false;
  }
  bool Hides(std::size_t newer, std::size_t older) const {
    for (std::size_t report = 0; report < _reports.size(); ++report) {
      if (_fits[older][report] && !_fits[newer][report]) return false;
    }
    return true;
  }

  void CheckOverlaps(const std::vector<olt_host::PatternOverlaps>& overlaps) {
    for (std::size_t older = 0; older < overlaps.size(); ++older) {
      SCOPED_TRACE("profile " + std::to_string(older));
      for (const olt_host::Overlap& overlap : overlaps[older].examples) {
        const ConfirmOnuType gathered = MatchTable::Gather(overlap.witness);
        EXPECT_TRUE(_table.Fits(older, gathered));
        EXPECT_TRUE(_table.Fits(overlap.newer, gathered));
        EXPECT_EQ(MatchTable::Winner(gathered), overlap.winner);
        EXPECT_GE(overlap.winner, overlap.newer);
      }
      if (_alphabet.may_be_undecided) continue;
      std::size_t expected = 0;
      for (std::size_t newer = older + 1; newer < overlaps.size(); ++newer) {
        if (ShareComplete(older, newer) && !Hides(newer, older)) ++expected;
      }
      EXPECT_EQ(overlaps[older].crossing + overlaps[older].behind, expected);
      EXPECT_EQ(overlaps[older].examples.size(), overlaps[older].crossing);
      _overlapping += overlaps[older].crossing;
    }
  }

  Alphabet _alphabet;
  MatchTable _table;
  std::vector<Tried> _reports;
  std::vector<Cells> _patterns;
  std::vector<std::vector<bool>> _fits;  // by profile and report
  std::vector<bool> _reached;
  std::size_t _checked = 0;
  std::size_t _unreachable = 0;
  std::size_t _undecided = 0;
  std::size_t _shared_takes = 0;
  std::size_t _overlapping = 0;
};

const Cell kAbsentCell;
const Cell kAnyCell{Cell::kAny, 0, ""};
const Cell kUnsetCell{Cell::kUnset, 0, ""};
constexpr std::optional<std::uint32_t> kNoAnswer;

TEST(Reachability, AgreesWithTheLibraryOnNumberAndVendor) {
  Alphabet alphabet;
  alphabet.codes = {{47, {}}, {1082, {1, true, 0}}};
  // A number under a text code and a text under a number code ask for nothing.
  alphabet.cells = {{47, {kAbsentCell, kAnyCell, Number(0), Number(4), Text("4")}},
                    {1082, {kAbsentCell, Text("ZKWM"), Text("ZKWMX"), Number(7)}}};
  alphabet.answers.vendors = {std::nullopt, "", "ZKWM", "ACME"};
  alphabet.answers.numbers = {{47, {kNoAnswer, 0, 4, 5, 0xFFFFFFFFU}}};
  EveryList lists(alphabet);
  lists.Check();
  EXPECT_EQ(lists.checked(), 20U + 400U + 8000U);
  EXPECT_GT(lists.unreachable(), 100U);
  EXPECT_GT(lists.overlapping(), 100U);
  EXPECT_EQ(lists.shared_takes(), 0U);
}

TEST(Reachability, AgreesWithTheLibraryOnFourProfiles) {
  Alphabet alphabet;
  alphabet.codes = {{32, {}}, {1083, {1, true, 0}}};
  alphabet.cells = {{32, {kAbsentCell, Number(1), Number(2)}},
                    {1083, {kAbsentCell, Text("A"), Text("B")}}};
  alphabet.answers.names = {std::nullopt, "A", "B", "C"};
  alphabet.answers.numbers = {{32, {kNoAnswer, 1, 2, 3}}};
  alphabet.patterns = 4;
  EveryList lists(alphabet);
  lists.Check();
  EXPECT_EQ(lists.checked(), 9U + 81U + 729U + 6561U);
  EXPECT_GT(lists.unreachable(), 100U);
}

TEST(Reachability, AgreesWithTheLibraryOnThreeCodes) {
  Alphabet alphabet;
  alphabet.codes = {{32, {}}, {47, {}}, {1082, {1, true, 0}}};
  alphabet.cells = {{32, {kAbsentCell, Number(1), Number(2)}},
                    {47, {kAbsentCell, Number(1)}},
                    {1082, {kAbsentCell, Text("A")}}};
  alphabet.answers.vendors = {std::nullopt, "A", "B"};
  alphabet.answers.numbers = {{32, {kNoAnswer, 1, 2, 3}}, {47, {kNoAnswer, 1, 2}}};
  EveryList lists(alphabet);
  lists.Check();
  lists.CheckSome(6, 2000, 1);
  EXPECT_GT(lists.unreachable(), 100U);
}

Alphabet CapabilityAlphabet(std::uint16_t confirm_type) {
  Alphabet alphabet;
  alphabet.codes = {{48, {}}, {1002, {confirm_type, false, 0}}};
  alphabet.cells = {{48, {kAbsentCell, Number(0), Number(1), kUnsetCell}},
                    {1002, {kAbsentCell, Number(0), Number(1), Number(300), kUnsetCell}}};
  alphabet.answers.capabilities = {std::nullopt, std::uint8_t{0}, std::uint8_t{1}, std::uint8_t{7},
                                   std::uint8_t{255}};
  alphabet.answers.numbers = {{48, {kNoAnswer, 0, 1, 2, 0xFFFFFFFFU}},
                              {1002, {kNoAnswer, 0, 1, 9, 255, 256, 0xFFFFFFFFU}}};
  return alphabet;
}

TEST(Reachability, AgreesWithTheLibraryOnCapabilityAndWhatItSetsAside) {
  EveryList lists(CapabilityAlphabet(3));
  lists.Check();
  lists.CheckSome(6, 2000, 2);
  EXPECT_GT(lists.shared_takes(), 10U);  // by one newer with the capability, one with code 48
}

TEST(Reachability, AgreesWithTheLibraryOnCapabilityThatIsNotAsked) {
  EveryList lists(CapabilityAlphabet(1));
  lists.Check();
  EXPECT_GT(lists.unreachable(), 100U);
}

TEST(Reachability, AgreesWithTheLibraryOnReportedTypes) {
  for (const std::uint16_t key_confirm_type : std::vector<std::uint16_t>{0, 1, 3}) {
    Alphabet alphabet;
    alphabet.codes = {{47, {}}, {1080, {1, false, 0}}, {1085, {key_confirm_type, false, 0}}};
    // Keys are 1, 2 and 3.
    alphabet.cells = {{47, {kAbsentCell, Number(1)}},
                      {1080, {kAbsentCell, Number(2), Number(7), Number(8), kUnsetCell}}};
    alphabet.answers.types = {olt_host::kUnknownReportedType, 0, 1, 2, 3, 4, 7, 8};
    alphabet.answers.numbers = {{47, {kNoAnswer, 1, 2}}, {1085, {kNoAnswer, 1, 2, 3, 5}}};
    EveryList lists(alphabet);
    lists.Check();
    // Where the key is asked and compared, no two profiles ask for the same.
    EXPECT_EQ(lists.unreachable() == 0, key_confirm_type == 3) << key_confirm_type;
  }
}

TEST(Reachability, AgreesWithTheLibraryOnCodesThatNoReportHolds) {
  Alphabet alphabet;
  // 1040 is compared but not asked, 1041 asked but not compared.
  alphabet.codes = {{47, {}}, {1040, {1, false, 0}}, {1041, {2, false, 0}}};
  alphabet.cells = {{47, {kAbsentCell, Number(1)}},
                    {1040, {kAbsentCell, Number(1), Number(2), kUnsetCell}},
                    {1041, {kAbsentCell, Number(1)}}};
  alphabet.answers.numbers = {
      {47, {kNoAnswer, 1, 2}}, {1040, {kNoAnswer, 1}}, {1041, {kNoAnswer, 1, 2}}};
  EveryList lists(alphabet);
  lists.Check();
  EXPECT_GT(lists.unreachable(), 100U);
}

// A total that is not defined is derived and compared all the same.
TEST(Reachability, IsNeverWrongAboutTotalsThatAreNotDefined) {
  Alphabet alphabet;
  alphabet.codes = {{24, {3, false, 3}}, {47, {3, false, 7}}};
  alphabet.cells = {{24, {kAbsentCell, Number(1), Number(2)}},
                    {47, {kAbsentCell, Number(1), Number(2)}}};
  alphabet.answers.numbers = {{24, {kNoAnswer, 0, 1, 2, 3, 4}}, {47, {kNoAnswer, 0, 1, 2, 3}}};
  alphabet.may_be_undecided = true;
  EveryList lists(alphabet);
  lists.Check();
  EXPECT_GT(lists.unreachable(), 100U);
  EXPECT_LT(lists.undecided(), lists.checked() / 10);
}

TEST(Reachability, IsNeverWrongAboutTotalsOfPorts) {
  Alphabet alphabet;
  alphabet.codes = {{24, {3, false, 3}}, {47, {3, false, 3}}, {1001, {3, false, 0}}};
  alphabet.cells = {{24, {kAbsentCell, Number(1)}},
                    {47, {kAbsentCell, Number(2)}},
                    {1001, {kAbsentCell, Number(3), Number(4)}}};
  alphabet.answers.numbers = {{24, {kNoAnswer, 0, 1, 2, 3, 4}},
                              {47, {kNoAnswer, 0, 1, 2, 3}},
                              {1001, {kNoAnswer, 3, 4, 5}}};
  alphabet.may_be_undecided = true;
  EveryList lists(alphabet);
  lists.Check();
  EXPECT_GT(lists.unreachable(), 100U);
  EXPECT_LT(lists.undecided(), lists.checked() / 10);
}

// All 255 capabilities that a report can hold, a profile each, over one that asks for none.
TEST(Reachability, ManyProfilesTogetherTakeAllCapabilities) {
  MatchTable table({{47, {}}, {1002, {}}});
  std::vector<Cells> patterns = {{{47, Number(4)}}};
  for (std::uint32_t capability = 0; capability <= 254; ++capability) {
    patterns.push_back({{1002, Number(capability)}});
  }
  for (const bool all : {true, false}) {
    if (!all) patterns.erase(patterns.begin() + 100);
    const std::vector<OnuAbilityProfile>& profiles = table.Fill(patterns);
    const olt_host::ReportSpace space(profiles);
    const olt_host::PatternBoxes boxes(profiles, space);
    const olt_host::LibraryTrial trial(boxes);
    const auto reach = olt_host::FindReach(boxes, space, trial);
    ASSERT_EQ(reach[0].reach, all ? Reach::kNever : Reach::kReached);
    if (all) {
      EXPECT_EQ(reach[0].takers.size(), 255U);
    } else {
      ASSERT_TRUE(reach[0].witness.has_value());
      EXPECT_EQ(reach[0].witness->private_capability, std::uint8_t{99});
      EXPECT_EQ(MatchTable::Winner(MatchTable::Gather(*reach[0].witness)), 0U);
    }
  }
}

// A profile without a key takes every ONU that reports no type.
TEST(Reachability, KnowsThatAProfileWithoutKeyTakesUnknownTypes) {
  Alphabet alphabet;
  alphabet.codes = {{47, {}}, {1080, {1, false, 0}}};
  // An unset key reads as 0, an any one as unknown.
  alphabet.cells = {{47, {kAbsentCell, Number(1)}},
                    {1080, {kAbsentCell, Number(7), kUnsetCell}},
                    {1085, {kAbsentCell, kAnyCell}}};
  alphabet.answers.types = {olt_host::kUnknownReportedType, 0, 1, 2, 3, 7, 8};
  alphabet.answers.numbers = {{47, {kNoAnswer, 1, 2}}};
  EveryList lists(alphabet);
  lists.Check();
  EXPECT_GT(lists.unreachable(), 100U);
}

}  // namespace
}  // namespace olt_host_test
