// How the private capability enters the report before it is compared.
#include "confirm_onu_type_fixture.h"

namespace {

class ConfirmOnuTypeCapabilityTest : public ConfirmOnuTypeTest {};

TEST_F(ConfirmOnuTypeCapabilityTest, UnknownPrivateCapabilityMakesCode1002AWildcard) {
  ConfirmOnuType onu(kPlace, kOnu);
  onu.Add(1002, 1U);
  onu.Add(48, 5U);
  EXPECT_EQ(onu.UpdateOnucapaFromSpecialMe(), ONU_ABILITY_RET_OK);
  EXPECT_EQ(Number(onu, 1002), 0xFFFFFFFFU);
  EXPECT_EQ(Number(onu, 48), 5U);
  EXPECT_TRUE(host.ClaimLog(4, "onu_match_ability.onu_ability_main_part.onu_capa:65535"));
}

TEST_F(ConfirmOnuTypeCapabilityTest, KnownPrivateCapabilityFillsCode1002AndFreesCode48) {
  ConfirmOnuType onu(kPlace, kOnu);
  onu._private_capability = 1;
  onu.Add(48, 5U);
  EXPECT_EQ(onu.UpdateOnucapaFromSpecialMe(), ONU_ABILITY_RET_OK);
  EXPECT_EQ(Number(onu, 1002), 1U);
  EXPECT_EQ(Number(onu, 48), 0xFFFFFFFFU);
  EXPECT_TRUE(host.ClaimLog(4, "onu_match_ability.onu_ability_main_part.onu_capa:1"));
}

TEST_F(ConfirmOnuTypeCapabilityTest, SfuIsAKnownPrivateCapability) {
  ConfirmOnuType onu(kPlace, kOnu);
  onu._private_capability = 0;
  EXPECT_EQ(onu.UpdateOnucapaFromSpecialMe(), ONU_ABILITY_RET_OK);
  EXPECT_EQ(Number(onu, 1002), 0U);
  EXPECT_TRUE(Holds(onu, 1002));
  EXPECT_EQ(Number(onu, 48), 0xFFFFFFFFU);
  EXPECT_TRUE(host.ClaimLog(4, "onu_match_ability.onu_ability_main_part.onu_capa:0"));
}

// The wildcard lets a pattern of either capability recognise the ONU.
TEST_F(ConfirmOnuTypeCapabilityTest, UnknownPrivateCapabilityFitsAPatternOfAnyCapability) {
  OnuAbilityProfile hgu = Pattern(700, 601);
  hgu.Add(1002, 1U);
  AddToTable(hgu);
  Hooks().onu.reported_type = 5555;
  ConfirmOnuType onu(kPlace, kOnu);
  onu.Perform();
  EXPECT_EQ(LastArgument(4), 601U);
}

// Recognition by type does not look at the capability at all.
TEST_F(ConfirmOnuTypeCapabilityTest, RecognitionByTypeLeavesTheCapabilityStepOut) {
  AddToTable(Pattern(700, 601));
  Hooks().onu.reported_type = 700;
  ConfirmOnuType onu(kPlace, kOnu);
  onu.Perform();
  for (const LogLine& line : host.TakeLog({4})) {
    EXPECT_EQ(line.text.find("onu_match_ability."), std::string::npos) << line;
  }
}

}  // namespace
