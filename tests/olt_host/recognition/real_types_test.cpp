// The types that the library knows, how operators name one, and how two differ.
#include "recognition/real_types.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "recognition/loaded_catalogue.h"
#include "recognition/type_comparison.h"

namespace olt_host_test {
namespace {

class RealTypes : public testing::Test {
 protected:
  static void Add(unsigned int key, unsigned int real_type, const std::string& name,
                  unsigned int ge_ports = 0) {
    OnuAbilityProfile profile;
    profile.Init(ONU_ABILITY_PROFILE_TYPE_REAL, ONU_ABILITY_PROFILE_SOURCE_EXTERNAL,
                 ONU_ABILITY_MATCH_TYPE_EXACT);
    profile.Add(key);
    profile.Add(1081, real_type);
    profile.Add(1083, name);
    profile.Add(47, ge_ports);
    ASSERT_EQ(OnuAbilityTableManager::GetInstance()->Add(profile), 0U);
  }

  // "KEY SOURCE" of the type that is called so, or what is wrong.
  static std::string Called(const std::string& call) {
    const std::vector<olt_host::RealType> types = olt_host::RealTypes();
    try {
      const olt_host::RealType& type = olt_host::FindType(types, call);
      return std::to_string(type.Key()) + " " + type.Source();
    } catch (const olt_host::TypeNameError& error) {
      return error.what();
    }
  }

  LoadedCatalogue catalogue_;
};

TEST_F(RealTypes, StandNewestFirstAndTellWhichAreHidden) {
  Add(1001, 77, "NEWER");
  std::string listed;
  for (const olt_host::RealType& type : olt_host::RealTypes()) {
    listed += std::to_string(type.Key()) + " " + std::to_string(type.Real()) + " " + type.Name() +
              " " + type.Source() + (type.hidden ? " hidden\n" : "\n");
  }
  EXPECT_EQ(listed,
            "1001 77 NEWER operator\n"
            "1003 1003 SFU-4FE shipped\n"
            "1002 1002 HGU-4GE-1POTS shipped\n"
            "1001 1001 SFU-1GE shipped hidden\n");
}

TEST_F(RealTypes, AreCalledByKeyRealTypeOrName) {
  Add(5, 6000, "Big One");
  EXPECT_EQ(Called("5"), "5 operator");
  EXPECT_EQ(Called("6000"), "5 operator");
  EXPECT_EQ(Called("Big One"), "5 operator");
  EXPECT_EQ(Called("big one"), "5 operator");
  EXPECT_EQ(Called("big"), "5 operator");
  EXPECT_EQ(Called("hgu"), "1002 shipped");
  EXPECT_EQ(Called("key=5"), "5 operator");
  EXPECT_EQ(Called("real=6000"), "5 operator");
  EXPECT_EQ(Called("name=big one"), "5 operator");
}

TEST_F(RealTypes, OfOneKeyTheNewestIsMeantAsInQueries) {
  Add(1001, 77, "NEWER");
  EXPECT_EQ(Called("1001"), "1001 operator");
  EXPECT_EQ(Called("shipped=1001"), "1001 shipped");
  EXPECT_EQ(Called("operator=1001"), "1001 operator");
  EXPECT_EQ(Called("SFU-1GE"), "1001 shipped");
}

TEST_F(RealTypes, SeveralAreTold) {
  Add(5, 1001, "SAME");
  Add(6, 1002, "SAME");
  EXPECT_EQ(Called("1001"),
            "\"1001\" may be key=5 (\"SAME\"), key=1001 (\"SFU-1GE\"); expected one of them");
  EXPECT_EQ(Called("same"),
            "\"same\" may be key=6 (\"SAME\"), key=5 (\"SAME\"); expected one of "
            "them");
  EXPECT_EQ(Called("sfu"),
            "\"sfu\" may be key=1003 (\"SFU-4FE\"), key=1001 (\"SFU-1GE\"); "
            "expected one of them");
  EXPECT_EQ(Called("key=1001"), "1001 shipped");
  EXPECT_EQ(Called("real=1003"), "1003 shipped");
}

TEST_F(RealTypes, ANameOfDigitsIsAnswered) {
  Add(5, 6000, "5530");
  EXPECT_EQ(Called("5530"), "5 operator");
}

TEST_F(RealTypes, UnknownOnesAreToldWithTheNearestName) {
  EXPECT_EQ(Called("SFU-1EG"), "No type is called \"SFU-1EG\"; expected \"SFU-1GE\"");
  const std::string expected =
      "expected a key, a real type or a type name that \"show type\" lists";
  EXPECT_EQ(Called("77"), "No type is called \"77\"; " + expected);
  EXPECT_EQ(Called("99999999999"), "No type is called \"99999999999\"; " + expected);
  EXPECT_EQ(Called("key=x1"), "No type is called \"key=x1\"; " + expected);
  EXPECT_EQ(Called(""), "No type is called \"\"; " + expected);
}

TEST_F(RealTypes, DifferAbilityByAbility) {
  Add(5, 1002, "BARE", 4);
  const std::vector<olt_host::RealType> types = olt_host::RealTypes();
  const olt_host::RealType& a = olt_host::FindType(types, "key=1002");
  const olt_host::RealType& b = olt_host::FindType(types, "key=5");
  std::string told;
  for (const auto& each : olt_host::CompareTypes(a, b, olt_host::AbilityNames())) {
    told += each.ability.name + (each.same ? " same" : " differs") +
            (each.a == nullptr ? " not in a" : "") + (each.b == nullptr ? " not in b\n" : "\n");
  }
  EXPECT_EQ(told,
            "POTS_PORTS differs not in b\n"
            "GE_PORTS same\n"
            "ALL_LAN same\n"
            "ONU_CAPA differs not in b\n"
            "TRANS_TYPE differs not in b\n"
            "REAL_TYPE same\n"
            "TYPE_NAME differs\n"
            "KEY differs\n"
            "DATA_UNI same\n");
}

TEST_F(RealTypes, AnAbsentNumberIsLikeZeroAndAnAbsentTextUnlikeAnEmptyOne) {
  olt_host::RealType a;
  olt_host::RealType b;
  for (olt_host::RealType* type : {&a, &b}) {
    type->profile.Init(ONU_ABILITY_PROFILE_TYPE_REAL, ONU_ABILITY_PROFILE_SOURCE_DEFAULT,
                       ONU_ABILITY_MATCH_TYPE_EXACT);
  }
  a.profile.UpdateInit(47, 0U);
  a.profile.UpdateInit(1083, std::string());
  a.profile.UpdateInit(60000, 7U);
  const auto compared = olt_host::CompareTypes(a, b, olt_host::AbilityNames());
  ASSERT_EQ(compared.size(), 3U);
  EXPECT_TRUE(compared[0].same);
  EXPECT_FALSE(compared[1].same);
  EXPECT_EQ(compared[2].ability.name, "60000");
  EXPECT_FALSE(compared[2].same);
}

}  // namespace
}  // namespace olt_host_test
