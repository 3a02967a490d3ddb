// `olt_host types` and `olt_host compare`, run as a user runs them.
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "program_runner.h"

namespace olt_host_test {
namespace {

class TypesProgram : public testing::Test {
 protected:
  std::string _catalogue = Fixture("small_catalogue.yaml");
};

TEST_F(TypesProgram, TellsWhichTypesCanDoIt) {
  const ProgramResult result = RunProgram({"types", _catalogue, "--where", "lan>=4 and capa=hgu"});
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.err, "");
  EXPECT_EQ(result.out,
            " Key  Real  Type name      From     ALL_LAN  ONU_CAPA\n"
            "1002  1002  HGU-4GE-1POTS  shipped        4       hgu\n"
            "\n"
            "1 of 3 types\n");
  EXPECT_NE(RunProgram({"types", _catalogue}).out.find("\n3 of 3 types\n"), std::string::npos);
}

TEST_F(TypesProgram, ComparesTwo) {
  const ProgramResult result = RunProgram({"compare", _catalogue, "SFU-1GE", "1003"});
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.err, "");
  EXPECT_EQ(result.out.find("  A  key 1001, real type 1001, \"SFU-1GE\", shipped\n"), 0U);
  EXPECT_NE(result.out.find("\n   47  GE_PORTS    1          0\n"), std::string::npos)
      << result.out;
}

TEST_F(TypesProgram, PrintsJson) {
  const auto types = nlohmann::json::parse(
      RunProgram({"types", _catalogue, "--where", "ge>0", "--json"}).out, nullptr, false);
  ASSERT_FALSE(types.is_discarded());
  EXPECT_EQ(types["count"], 2);
  const auto compared = nlohmann::json::parse(
      RunProgram({"compare", _catalogue, "1001", "1002", "--json"}).out, nullptr, false);
  ASSERT_FALSE(compared.is_discarded());
  EXPECT_EQ(compared["a"]["type_name"], "SFU-1GE");
}

TEST_F(TypesProgram, EndsWithTwoAndOneMessageForWhatItDoesNotUnderstand) {
  const std::pair<std::vector<std::string>, std::string> cases[] = {
      {{"types", _catalogue, "--where", "lan>=4 adn pots=1"},
       "olt_host: --where, character 8: \"adn\" stands behind a comparison; expected \"and\"\n"},
      {{"types", _catalogue, "--where", " "},
       "olt_host: --where: the expression is empty; expected one such as \"lan>=4\" (see olt_host "
       "--help)\n"},
      {{"compare", _catalogue, "SFU-1EG", "1002"},
       "olt_host: No type is called \"SFU-1EG\"; expected \"SFU-1GE\"\n"},
      {{"compare", _catalogue, "1002"}, "olt_host: B is required (see olt_host --help)\n"},
  };
  for (const auto& [arguments, message] : cases) {
    const ProgramResult result = RunProgram(arguments);
    EXPECT_EQ(result.status, 2);
    EXPECT_EQ(result.out, "");
    EXPECT_EQ(result.err, message);
  }
}

}  // namespace
}  // namespace olt_host_test
