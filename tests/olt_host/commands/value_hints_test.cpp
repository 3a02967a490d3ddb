// The values that completion offers for the places of commands.
#include "vty/value_hints.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "commands/command_session.h"
#include "commands/host_commands.h"
#include "vty/completion.h"

namespace olt_host_test {
namespace {

class OfferedValues : public testing::Test {
 protected:
  OfferedValues() { olt_host::OfferValues(); }

  static std::vector<std::string> Candidates(const std::string& line) {
    return olt_host::Complete(olt_host::kCommandNode, line).candidates;
  }

  using Texts = std::vector<std::string>;
  CommandSession session_{{olt_host::InstallOnuCommands}};
};

TEST_F(OfferedValues, CodesWhereACodeStands) {
  const Texts codes = {"1001", "1002", "1012", "1023", "1080", "1081", "1082", "1083", "1085"};
  EXPECT_EQ(Candidates("del ability code 1"), codes);
  EXPECT_EQ(Candidates("set key_ability_code 1"), codes);
  EXPECT_EQ(Candidates("set ability_code 1"), codes);
  EXPECT_EQ(Candidates("set onu_ability_profile key 5 1"), codes);
  EXPECT_EQ(Candidates("update onu_ability_profile key 5 profile_type 1 profile_source 1 "
                       "ability_code 1"),
            codes);
  EXPECT_EQ(Candidates("update onu_ability_profile id 5 profile_type 1 profile_source 1 "
                       "ability_code 1"),
            codes);
}

TEST_F(OfferedValues, NamesOfCodesToo) {
  EXPECT_EQ(Candidates("show ability code GE"), Texts{"GE_PORTS"});
  EXPECT_EQ(Candidates("show ability code 4"), Texts{"47"});
  EXPECT_EQ(Candidates("del ability code GE"), Texts());
}

TEST_F(OfferedValues, CodesThatAnOperatorJustMade) {
  session_.Type("set ability_code 4711 name COLOGNE");
  EXPECT_EQ(Candidates("del ability code 47"), (Texts{"47", "4711"}));
  EXPECT_EQ(Candidates("show ability code COL"), Texts{"COLOGNE"});
}

TEST_F(OfferedValues, KeysWhereAKeyStands) {
  const Texts keys = {"1001", "1002", "1003"};
  EXPECT_EQ(Candidates("del onu_ability_profile key 1"), keys);
  EXPECT_EQ(Candidates("apply onu_ability_profile key 1"), keys);
  EXPECT_EQ(Candidates("add onu_ability_profile key 1"), keys);
  EXPECT_EQ(Candidates("set onu_ability_profile key 1"), keys);
  EXPECT_EQ(Candidates("update onu_ability_profile key 1"), keys);
  EXPECT_EQ(Candidates("update onu_ability_profile id 1"), keys);
}

TEST_F(OfferedValues, TypesWhereATypeStands) {
  const Texts types = {"1001", "1002", "1003"};
  EXPECT_EQ(Candidates("add onu_ability_profile key 5 profile_type 1 reporttype 1"), types);
  EXPECT_EQ(Candidates("add onu_ability_profile key 5 profile_type 1 reporttype 7 realtype 1"),
            types);
  EXPECT_EQ(Candidates("set onu_common_type sfu 1"), types);
  EXPECT_EQ(Candidates("show onucapa_table real 2 flag 0 real_type 1"), types);
}

TEST_F(OfferedValues, AttributeIdsButNothingForTheirValues) {
  EXPECT_EQ(Candidates("set ability_code 7 name X 1"), Texts{"1"});
  EXPECT_EQ(olt_host::ValueHints::Instance()
                .For({olt_host::TokenKind::kNumber, "<value>", true, 0, 0, false,
                      "ability attribute value"})
                .size(),
            0U);
  EXPECT_EQ(olt_host::ValueHints::Instance()
                .For({olt_host::TokenKind::kNumber, "<value>", true, 0, 0, false,
                      "unsigned short ability value"})
                .size(),
            0U);
}

TEST_F(OfferedValues, PlacesAndNumbersOfOnus) {
  EXPECT_EQ(Candidates("confirm onu "), (Texts{"1", "2", "3"}));
  EXPECT_EQ(Candidates("show onu 1 "), (Texts{"json", "1", "2", "3", "4"}));
  EXPECT_EQ(Candidates("bind onu 1 4"), Texts{"4"});
}

TEST_F(OfferedValues, NoneWithoutOnus) {
  olt_host::Host().population = nullptr;
  EXPECT_EQ(Candidates("confirm onu "), Texts{"<0-65535>"});
}

TEST_F(OfferedValues, HelpSaysWhatTheValuesMean) {
  const auto hints = [](const std::string& token, const std::string& help) {
    return olt_host::ValueHints::Instance().For(
        {olt_host::TokenKind::kNumber, token, true, 0, 0, false, help});
  };
  const auto help_of = [](const std::vector<olt_host::ValueHint>& all, const std::string& value) {
    const auto found = std::find_if(all.begin(), all.end(),
                                    [&value](const auto& hint) { return hint.value == value; });
    return found == all.end() ? "not offered" : found->help;
  };
  EXPECT_EQ(help_of(hints("<value>", "ability code"), "47"), "GE_PORTS");
  EXPECT_EQ(help_of(hints("<value>", "ability code value or name"), "GE_PORTS"), "code 47");
  EXPECT_EQ(help_of(hints("<value>", "key ability value"), "1002"), "HGU-4GE-1POTS");
  EXPECT_EQ(help_of(hints("<onutype_code>", "ONU type"), "1003"), "SFU-4FE");
  EXPECT_EQ(help_of(hints("<value>", "ability attribute id"), "3"), "LAMP");
  EXPECT_EQ(help_of(hints("<0-65535>", "place of the ONU"), "1"), "4 ONUs");
  EXPECT_EQ(help_of(hints("<0-65535>", "place of the ONU"), "2"), "1 ONU");
}

}  // namespace
}  // namespace olt_host_test
