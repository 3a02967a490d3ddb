// By which names operators call abilities.
#include "recognition/ability_names.h"

#include <gtest/gtest.h>

#include <string>

#include "recognition/loaded_catalogue.h"

namespace olt_host_test {
namespace {

class AbilityNames : public testing::Test {
 protected:
  // The name of the ability that is called so, or what is wrong.
  std::string Called(const std::string& text) const {
    std::string problem;
    std::string expectation;
    const olt_host::NamedAbility* ability = names_.Find(text, problem, expectation);
    return ability != nullptr ? ability->name : problem + "; expected " + expectation;
  }

  LoadedCatalogue catalogue_{std::string(OLT_HOST_SHIPPED_DATA) + "/catalogue.yaml"};
  olt_host::AbilityNames names_;
};

TEST_F(AbilityNames, NumbersAndNamesInCapitalsOrNot) {
  EXPECT_EQ(Called("47"), "GE_PORTS");
  EXPECT_EQ(Called("GE_PORTS"), "GE_PORTS");
  EXPECT_EQ(Called("ge_Ports"), "GE_PORTS");
}

TEST_F(AbilityNames, ShortWordsStandForWhatTheLibraryKnows) {
  EXPECT_EQ(Called("lan"), "ALL_LAN");
  EXPECT_EQ(Called("uni"), "DATA_UNI_TOTAL");
  EXPECT_EQ(Called("capa"), "ONU_CAPA");
  EXPECT_EQ(Called("CAPA"), "ONU_CAPA");
  EXPECT_EQ(Called("vendor"), "VENDOR_ID");
  EXPECT_EQ(Called("name"), "TYPE_NAME");
  EXPECT_EQ(Called("real"), "REAL_TYPE");
  EXPECT_EQ(Called("report"), "REPORT_TYPE");
}

TEST_F(AbilityNames, WholeFirstWordsGoBeforeBeginnings) {
  EXPECT_EQ(Called("ge"), "GE_PORTS");  // not GE10_PORTS, GE2_5_PORTS
  EXPECT_EQ(Called("pots"), "POTS_PORTS");
  EXPECT_EQ(Called("ge2"), "GE2_5_PORTS");
  EXPECT_EQ(Called("lamps"), "LAMPS");
  EXPECT_EQ(Called("wifi_5"), "WIFI_5G_SSIDS");
}

TEST_F(AbilityNames, SeveralAreTold) {
  EXPECT_EQ(Called("wifi"),
            "\"wifi\" may be WIFI_2G4_SSIDS, WIFI_5G_SSIDS; expected more of "
            "the name");
}

TEST_F(AbilityNames, UnknownOnesAreToldWithTheNearest) {
  EXPECT_EQ(Called("ptos"),
            "\"ptos\" is no ability; expected a name that \"show ability code\" "
            "lists");
  EXPECT_EQ(Called("GE_PROTS"), "\"GE_PROTS\" is no ability; expected \"GE_PORTS\"");
  EXPECT_EQ(Called("9"),
            "there is no ability code 9; expected a code that \"show ability code\" "
            "lists");
  EXPECT_EQ(Called("70000").substr(0, 21), "\"70000\" is no ability");
  EXPECT_EQ(Called("").substr(0, 16), "\"\" is no ability");
}

TEST_F(AbilityNames, KnowsWhichHoldTexts) {
  EXPECT_TRUE(names_.Find(1082)->holds_text);
  EXPECT_FALSE(names_.Find(47)->holds_text);
  EXPECT_EQ(names_.Find(9), nullptr);
}

}  // namespace
}  // namespace olt_host_test
