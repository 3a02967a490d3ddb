// Conditions on what a type can do: how they are read, what they mean, what is wrong
// with those that cannot be read.
#include "recognition/type_expression.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

#include "recognition/loaded_catalogue.h"

namespace olt_host_test {
namespace {

constexpr unsigned short kFe = 24;
constexpr unsigned short kPots = 32;
constexpr unsigned short kGe = 47;
constexpr unsigned short kCapa = 1002;
constexpr unsigned short kVendor = 1082;
constexpr unsigned short kTypeName = 1083;

OnuAbilityProfile RealProfile() {
  OnuAbilityProfile profile;
  profile.Init(ONU_ABILITY_PROFILE_TYPE_REAL, ONU_ABILITY_PROFILE_SOURCE_DEFAULT,
               ONU_ABILITY_MATCH_TYPE_EXACT);
  return profile;
}

class TypeExpression : public testing::Test {
 protected:
  bool Holds(const std::string& expression, const OnuAbilityProfile& profile) const {
    return olt_host::TypeExpression(expression, names_).Holds(profile);
  }

  std::string ErrorOf(const std::string& expression) const {
    try {
      const olt_host::TypeExpression read(expression, names_);
    } catch (const olt_host::ExpressionError& error) {
      return error.what();
    }
    return "no error";
  }

  LoadedCatalogue catalogue_;
  olt_host::AbilityNames names_;
};

TEST_F(TypeExpression, ComparesNumbers) {
  OnuAbilityProfile profile = RealProfile();
  profile.Add(kGe, 4U);
  for (const char* held : {"ge=4", "ge!=3", "ge<5", "ge<=4", "ge>3", "ge>=4", "ge = 0x4",
                           " 47 >= 4 ", "GE_PORTS>=4", "ge='4'"}) {
    EXPECT_TRUE(Holds(held, profile)) << held;
  }
  for (const char* missed : {"ge=3", "ge!=4", "ge<4", "ge<=3", "ge>4", "ge>=5", "ge>4294967295"}) {
    EXPECT_FALSE(Holds(missed, profile)) << missed;
  }
}

TEST_F(TypeExpression, AbsentNumbersReadAsZeroAndAbsentTextsAsEmpty) {
  const OnuAbilityProfile profile = RealProfile();
  EXPECT_TRUE(Holds("pots=0 and pots<1 and capa=sfu and vendor='' and name~\"\"", profile));
  EXPECT_FALSE(Holds("pots>0 or vendor=ZKWM or name~a", profile));
}

TEST_F(TypeExpression, CapabilitiesHaveWords) {
  OnuAbilityProfile profile = RealProfile();
  profile.Add(kCapa, 1U);
  EXPECT_TRUE(Holds("capa=hgu", profile));
  EXPECT_TRUE(Holds("capa=HGU and ONU_CAPA=1 and capa!=sfu", profile));
  EXPECT_FALSE(Holds("capa=sfu", profile));
}

TEST_F(TypeExpression, ComparesTexts) {
  OnuAbilityProfile profile = RealProfile();
  profile.Add(kTypeName, std::string("FRITZ!Box \"9\""));
  profile.Add(kVendor, std::string("ZKWM"));
  EXPECT_TRUE(Holds("vendor=ZKWM and vendor != zkwm and vendor~kw", profile));
  EXPECT_TRUE(Holds("name~FRITZ!Box and name ~ 'box \"' and name~\"\\\"9\"", profile));
  EXPECT_TRUE(Holds("name = 'FRITZ!Box \"9\"'", profile));
  EXPECT_FALSE(Holds("vendor=zkwm or name=FRITZ!Box or name~boxes", profile));
}

TEST_F(TypeExpression, NotBindsCloserThanAndCloserThanOr) {
  OnuAbilityProfile profile = RealProfile();
  profile.Add(kGe, 4U);
  EXPECT_TRUE(Holds("ge=4 or ge=4 and ge=3", profile));
  EXPECT_FALSE(Holds("(ge=4 or ge=4) and ge=3", profile));
  EXPECT_TRUE(Holds("not ge=3 and ge=4", profile));
  EXPECT_TRUE(Holds("not ge=4 and ge=3 or ge=4", profile));
  EXPECT_FALSE(Holds("not (ge=3 or ge=4)", profile));
  EXPECT_TRUE(Holds("NOT not ge=4 AND (((ge=4)))", profile));
}

TEST_F(TypeExpression, TellsWhichAbilitiesItAsksAbout) {
  const olt_host::TypeExpression expression("pots>1 or lan>2 and (32=0 or not vendor=A)", names_);
  std::vector<std::string> asked;
  for (const auto& ability : expression.abilities()) asked.push_back(ability.name);
  EXPECT_EQ(asked, (std::vector<std::string>{"POTS_PORTS", "ALL_LAN", "VENDOR_ID"}));
}

TEST_F(TypeExpression, ErrorsSayWhereAndWhatWasExpected) {
  const std::pair<const char*, const char*> cases[] = {
      {"", "character 1: the expression is empty; expected a comparison such as lan>=4"},
      {"  ", "character 3: the expression is empty; expected a comparison such as lan>=4"},
      {"latn=4", "character 1: \"latn\" is no ability; expected \"lan\""},
      {"ge=1 and ALL_LAM=2", "character 10: \"ALL_LAM\" is no ability; expected \"ALL_LAN\""},
      {"t=1", "character 1: \"t\" may be TRANS_TYPE, TYPE_NAME; expected more of the name"},
      {"ge", "character 3: the expression ends behind GE_PORTS; expected =, !=, <, <=, > or >="},
      {"vendor 4", "character 8: \"4\" stands behind VENDOR_ID; expected =, != or ~"},
      {"ge~4",
       "character 3: GE_PORTS holds a number, which has no ~; expected =, !=, <, <=, > or >="},
      {"name<4", "character 5: TYPE_NAME holds a text, which has no <; expected =, != or ~"},
      {"ge=four",
       "character 4: GE_PORTS is compared with \"four\"; expected a number from 0 to "
       "4294967295"},
      {"ge=4294967296",
       "character 4: GE_PORTS is compared with \"4294967296\"; expected a number "
       "from 0 to 4294967295"},
      {"capa=bridge",
       "character 6: ONU_CAPA is compared with \"bridge\"; expected sfu, hgu or a number"},
      {"ge=",
       "character 4: the expression ends where a value of GE_PORTS must stand; expected a "
       "number from 0 to 4294967295"},
      {"ge=)",
       "character 4: \")\" stands where a value of GE_PORTS must stand; expected a number "
       "from 0 to 4294967295"},
      {"ge==4",
       "character 4: \"=\" stands where a value of GE_PORTS must stand; expected a "
       "number from 0 to 4294967295"},
      {"ge=4 adn pots=1", "character 6: \"adn\" stands behind a comparison; expected \"and\""},
      {"ge=4 pots=1",
       "character 6: \"pots\" stands behind a comparison; expected and, or, or the end"},
      {"name=FRITZ Box",
       "character 12: \"Box\" stands behind a comparison; expected and, or, or "
       "the end (a text with blanks stands in quotes)"},
      {"name='Größe' x",
       "character 14: \"x\" stands behind a comparison; expected and, or, or "
       "the end (a text with blanks stands in quotes)"},
      {"and ge=4",
       "character 1: \"and\" stands where a comparison must stand; expected the name "
       "of an ability"},
      {"ge=4 and",
       "character 9: the expression ends where a comparison must stand; expected the "
       "name of an ability"},
      {"not",
       "character 4: the expression ends where a comparison must stand; expected the name "
       "of an ability"},
      {"\"ge\"=4",
       "character 1: \"ge\" stands where a comparison must stand; expected the name "
       "of an ability"},
      {"(ge=4", "character 1: the parenthesis is not closed; expected a )"},
      {"(ge=4 pots=1)",
       "character 7: \"pots\" stands behind a comparison; expected and, or, or the end"},
      {"ge=4)", "character 5: this parenthesis closes nothing; expected one that is opened before"},
      {"name='a", "character 6: the quote is not closed; expected a second '"},
  };
  for (const auto& [expression, message] : cases) {
    EXPECT_EQ(ErrorOf(expression), message) << expression;
  }
}

TEST_F(TypeExpression, DeepAndLongOnesAreRefusedInGoodTime) {
  const std::string deep(100000, '(');
  EXPECT_NE(ErrorOf(deep).find("too long"), std::string::npos);
  EXPECT_NE(ErrorOf(std::string(1000, '(')).find("too deep"), std::string::npos);
  EXPECT_EQ(ErrorOf(std::string(99, '(') + "ge=1" + std::string(99, ')')), "no error");
  std::string chain = "ge=1";
  for (int i = 0; i < 490; ++i) chain += " or ge=1";
  EXPECT_EQ(ErrorOf(chain), "no error");
}

// A second reading of conditions: made as a tree, which is at once written down and asked.
class RandomCondition {
 public:
  RandomCondition(std::mt19937& random, const OnuAbilityProfile& profile)
      : _random(random), _profile(profile) {}

  // The truth of what is added to `text`, bound at least as closely as `level`: 0 or, 1
  // and, 2 not.
  bool Write(std::string& text, int level, int depth) {
    const unsigned int choice = depth == 0 ? 3 : Below(5);
    if (choice == 0 || choice == 1) return WriteJoined(text, level, depth, choice == 0);
    if (choice == 2) {
      text += "not" + (Below(2) == 0 ? std::string(" ") : "  ");
      return !Write(text, 2, depth - 1);
    }
    return choice == 3 ? WriteComparison(text) : WriteText(text);
  }

 private:
  unsigned int Below(unsigned int bound) { return static_cast<unsigned int>(_random()) % bound; }
  std::string Blanks() { return std::string(Below(3), ' '); }

  bool WriteJoined(std::string& text, int level, int depth, bool is_or) {
    const int own = is_or ? 0 : 1;
    const bool in_parentheses = own < level || Below(3) == 0;
    text += in_parentheses ? "(" + Blanks() : "";
    const bool left = Write(text, own, depth - 1);
    text += is_or ? " or " : " and ";
    const bool right = Write(text, own + 1, depth - 1);
    text += in_parentheses ? Blanks() + ")" : "";
    return is_or ? left || right : left && right;
  }

  bool WriteComparison(std::string& text) {
    static constexpr unsigned short kCodes[] = {kFe, kPots, kGe, kCapa};
    static const char* const kNames[][4] = {{"fe", "24", "FE_PORTS", "Fe_p"},
                                            {"pots", "32", "POTS_PORTS", "po"},
                                            {"ge", "47", "GE_PORTS", "g"},
                                            {"capa", "1002", "ONU_CAPA", "onu"}};
    const unsigned int which = Below(4);
    unsigned int held = 0;
    _profile.Get(kCodes[which], held);
    const unsigned int number = Below(3);
    static const char* const kRelations[] = {"=", "!=", "<", "<=", ">", ">="};
    const unsigned int relation = Below(6);
    text += kNames[which][Below(4)] + Blanks() + kRelations[relation] + Blanks() +
            std::to_string(number);
    const bool truths[] = {held == number, held != number,
                           held<number, held <= number, held> number, held >= number};
    return truths[relation];
  }

  bool WriteText(std::string& text) {
    static const char* const kTexts[] = {"ZKWM", "ACME", "KW", ""};
    std::string held;
    _profile.Get(kVendor, held);
    const std::string wanted = kTexts[Below(4)];
    static const char* const kRelations[] = {"=", "!=", "~"};
    const unsigned int relation = Below(3);
    text += "vendor" + Blanks() + kRelations[relation] + Blanks() + "\"" + wanted + "\"";
    const bool truths[] = {held == wanted, held != wanted, held.find(wanted) != std::string::npos};
    return truths[relation];
  }

  std::mt19937& _random;
  const OnuAbilityProfile& _profile;
};

TEST_F(TypeExpression, AgreesWithABruteReadingOfRandomConditionsAndProfiles) {
  constexpr unsigned int kSeed = 20261122;
  // NOLINTNEXTLINE(cert-msc32-c,cert-msc51-cpp): the same each time
  std::mt19937 random(kSeed);
  int held = 0;
  constexpr int kRounds = 5000;
  for (int round = 0; round < kRounds; ++round) {
    OnuAbilityProfile profile = RealProfile();
    for (const unsigned short code : {kFe, kPots, kGe, kCapa}) {
      if (random() % 2 == 0) profile.Add(code, static_cast<unsigned int>(random() % 3));
    }
    if (random() % 2 == 0) profile.Add(kVendor, std::string(random() % 2 == 0 ? "ZKWM" : "ACME"));
    if (random() % 9 == 0) profile.UpdateInit(kGe, std::string("a text by mistake"));
    std::string text;
    const bool truth = RandomCondition(random, profile).Write(text, 0, 5);
    ASSERT_EQ(Holds(text, profile), truth)
        << "seed " << kSeed << ", round " << round << ": " << text;
    held += truth ? 1 : 0;
  }
  EXPECT_GT(held, kRounds / 5);
  EXPECT_LT(held, kRounds * 4 / 5);
}

}  // namespace
}  // namespace olt_host_test
