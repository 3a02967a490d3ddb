// Asking the attribute registry, and the traces of all its operations.
#include <functional>

#include "support/catalogue_builder.h"
#include "support/recording_host.h"
#include "support/traces.h"

namespace {

using Lines = std::vector<LogLine>;

constexpr auto kLamp = ONU_ABILITY_ATTR_LAMP;
constexpr auto kUnknown = static_cast<ONU_ABILITY_ENUM_ABILITY_ATTR_ID>(77);

class AttrInfoLookupTest : public LibraryTest {
 protected:
  void SetUp() override {
    RegisterAttributes();
    host.ForgetLog();
  }

  OnuAbilityAttrInfo* registry_ = OnuAbilityAttrInfo::GetInstance();
};

TEST_F(AttrInfoLookupTest, FreeNameIsValid) {
  EXPECT_EQ(1, registry_->IsValid("COLOUR"));
  EXPECT_EQ(1, registry_->IsValid("lamp"));
  EXPECT_EQ(1, registry_->IsValid("LAMPS"));
  EXPECT_EQ(1, registry_->IsValid(""));
  EXPECT_EQ(Lines(), host.TakeLogWithoutTraces());
}

TEST_F(AttrInfoLookupTest, TakenNameIsNotValid) {
  EXPECT_EQ(0, registry_->IsValid("LAMP"));
  EXPECT_EQ(Lines({Log(6, "ability attr name is equal!")}), host.TakeLogWithoutTraces());
}

TEST_F(AttrInfoLookupTest, RegisteredIdExists) {
  EXPECT_EQ(1U, registry_->IsExist(kLamp));
  EXPECT_EQ(Lines(), host.TakeLogWithoutTraces());
}

TEST_F(AttrInfoLookupTest, UnknownIdDoesNotExist) {
  EXPECT_EQ(0U, registry_->IsExist(kUnknown));
  EXPECT_EQ(Lines({Log(1, "ability_attr_code is invalid!ability_attr_code:77")}),
            host.TakeLogWithoutTraces());
}

TEST_F(AttrInfoLookupTest, GetByIdGivesTheName) {
  EXPECT_EQ("LAMP", registry_->Get(kLamp));
  EXPECT_EQ(Lines(), host.TakeLogWithoutTraces());
}

TEST_F(AttrInfoLookupTest, GetByUnknownIdGivesTheTextNull) {
  EXPECT_EQ("NULL", registry_->Get(kUnknown));
  EXPECT_EQ(Lines({Log(1, "find ability_attr_id null!ability_attr_id:77")}),
            host.TakeLogWithoutTraces());
}

TEST_F(AttrInfoLookupTest, GetByNameGivesTheId) {
  EXPECT_EQ(kLamp, registry_->Get("LAMP"));
  EXPECT_EQ(Lines({Log(6, "ability_attr_name is equal!ability_attr_name:LAMP")}),
            host.TakeLogWithoutTraces());
}

TEST_F(AttrInfoLookupTest, GetByUnknownNameGives0) {
  EXPECT_EQ(0, static_cast<int>(registry_->Get("lamp")));
  EXPECT_EQ(0, static_cast<int>(registry_->Get("")));
  EXPECT_EQ(Lines(), host.TakeLogWithoutTraces());
}

TEST_F(AttrInfoLookupTest, EveryOperationTracesStartAndEnd) {
  vty terminal;
  const std::vector<std::function<void()>> operations = {
      [this] { registry_->IsValid("LAMP"); },
      [this] { registry_->IsValid("FREE"); },
      [this] { registry_->IsExist(kLamp); },
      [this] { registry_->IsExist(kUnknown); },
      [this] { registry_->Get(kLamp); },
      [this] { registry_->Get(kUnknown); },
      [this] { registry_->Get("LAMP"); },
      [this] { registry_->Get("FREE"); },
      [this] { registry_->Add(static_cast<ONU_ABILITY_ENUM_ABILITY_ATTR_ID>(6), "SIX"); },
      [this] { registry_->Add(kLamp, "FREE"); },
      [this] { registry_->Update(kLamp, "LAMPS"); },
      [this] { registry_->Update(kUnknown, "FREE"); },
      [this] { registry_->Del(kUnknown); },
      [this] { registry_->Del(kLamp); },
      [this] { registry_->Del("FREE"); },
      [this] { registry_->Del("SIX"); },
      [this] { registry_->Show(nullptr); },
      [this, &terminal] { registry_->Show(&terminal); },
  };
  for (size_t i = 0; i < operations.size(); ++i) {
    host.ForgetLog();
    operations[i]();
    const Lines lines = host.TakeLog();
    ASSERT_GE(lines.size(), 2U) << "operation " << i;
    EXPECT_EQ(Log(10, "function start!"), lines.front()) << "operation " << i;
    EXPECT_EQ(Log(10, "function end!"), lines.back()) << "operation " << i;
    EXPECT_EQ(lines.front().function, lines.back().function) << "operation " << i;
    EXPECT_EQ("", UnevenTraces(lines)) << "operation " << i;
  }
}

}  // namespace
