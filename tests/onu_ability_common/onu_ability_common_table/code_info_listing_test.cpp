// The listings of ability codes, byte for byte.
#include "support/catalogue_builder.h"
#include "support/recording_host.h"

namespace {

using Lines = std::vector<LogLine>;

class CodeInfoListingTest : public LibraryTest {
 protected:
  void SetUp() override {
    OnuAbilityAttrInfo::GetInstance()->Add(ONU_ABILITY_ATTR_VALUE_TYPE, "VALUE_TYPE");
    OnuAbilityAttrInfo::GetInstance()->Add(ONU_ABILITY_ATTR_LAMP, "LAMP");
    host.ForgetLog();
  }

  void DefineTwo() {
    DefineCode(1031, "LAN_LAMP", {{3, 1}});
    DefineCode(1083, "TYPE_NAME", {{5, 3}});
    host.ForgetLog();
  }

  std::string ListingOf(const std::string& text) {
    vty terminal;
    registry_->Show(&terminal, text);
    return terminal.text;
  }

  // The block of a code that has the attributes of a new record.
  static std::string PlainBlock(const std::string& name, int code) {
    return "\r\n****************************************\r\nability_name:" + name +
           "\r\nability_code:" + std::to_string(code) +
           "\r\nability_attr_id:3\r\nability_attr_name:LAMP\r\nability_attr_value:0\r\n"
           "ability_attr_id:5\r\nability_attr_name:VALUE_TYPE\r\nability_attr_value:2\r\n"
           "\r\n****************************************\r\n\r\n";
  }

  OnuAbilityCodeInfo* registry_ = OnuAbilityCodeInfo::GetInstance();
  vty terminal_;
};

const char kLanLampBlock[] =
    "\r\n****************************************\r\n"
    "ability_name:LAN_LAMP\r\n"
    "ability_code:1031\r\n"
    "ability_attr_id:3\r\n"
    "ability_attr_name:LAMP\r\n"
    "ability_attr_value:1\r\n"
    "ability_attr_id:5\r\n"
    "ability_attr_name:VALUE_TYPE\r\n"
    "ability_attr_value:2\r\n"
    "\r\n****************************************\r\n\r\n";

const char kTypeNameBlock[] =
    "\r\n****************************************\r\n"
    "ability_name:TYPE_NAME\r\n"
    "ability_code:1083\r\n"
    "ability_attr_id:3\r\n"
    "ability_attr_name:LAMP\r\n"
    "ability_attr_value:0\r\n"
    "ability_attr_id:5\r\n"
    "ability_attr_name:VALUE_TYPE\r\n"
    "ability_attr_value:3\r\n"
    "\r\n****************************************\r\n\r\n";

TEST_F(CodeInfoListingTest, WholeRegistryWithHeaderCountAndTrailer) {
  DefineTwo();
  registry_->Show(&terminal_);
  EXPECT_EQ(
      "\r\n########################################\r\n"
      "_vec_ability_attr:2\r\n" +
          std::string(kLanLampBlock) + kTypeNameBlock +
          "########################################\r\n",
      terminal_.text);
}

TEST_F(CodeInfoListingTest, EmptyRegistryStillHasHeaderAndTrailer) {
  registry_->Show(&terminal_);
  EXPECT_EQ(
      "\r\n########################################\r\n"
      "_vec_ability_attr:0\r\n"
      "########################################\r\n",
      terminal_.text);
}

TEST_F(CodeInfoListingTest, OneCodeHasNeitherHeaderNorTrailer) {
  DefineTwo();
  registry_->Show(&terminal_, static_cast<unsigned short>(1083));
  EXPECT_EQ(kTypeNameBlock, terminal_.text);
}

TEST_F(CodeInfoListingTest, UnknownCodeWritesNothing) {
  DefineTwo();
  registry_->Show(&terminal_, static_cast<unsigned short>(1));
  EXPECT_EQ("", terminal_.text);
}

TEST_F(CodeInfoListingTest, OnlyTheFirstRecordOfACodeIsListed) {
  DefineTwo();
  registry_->Get().push_back(registry_->Get()[0]);
  registry_->Get().back().ability_name = "SECOND";
  registry_->Show(&terminal_, static_cast<unsigned short>(1031));
  EXPECT_EQ(kLanLampBlock, terminal_.text);
}

TEST_F(CodeInfoListingTest, AttributeNoLongerRegisteredIsNamedNull) {
  DefineTwo();
  registry_->Get()[0].ability_attr = {{static_cast<ONU_ABILITY_ENUM_ABILITY_ATTR_ID>(7), 65535}};
  registry_->Show(&terminal_, static_cast<unsigned short>(1031));
  EXPECT_EQ(
      "\r\n****************************************\r\n"
      "ability_name:LAN_LAMP\r\n"
      "ability_code:1031\r\n"
      "ability_attr_id:7\r\n"
      "ability_attr_name:NULL\r\n"
      "ability_attr_value:65535\r\n"
      "\r\n****************************************\r\n\r\n",
      terminal_.text);
}

TEST_F(CodeInfoListingTest, RecordWithoutAttributes) {
  DefineTwo();
  registry_->Get()[0].ability_attr.clear();
  registry_->Show(&terminal_, static_cast<unsigned short>(1031));
  EXPECT_EQ(
      "\r\n****************************************\r\n"
      "ability_name:LAN_LAMP\r\n"
      "ability_code:1031\r\n"
      "\r\n****************************************\r\n\r\n",
      terminal_.text);
}

TEST_F(CodeInfoListingTest, TextLanFindsALL_LAN) {
  DefineCode(1001, "ALL_LAN");
  EXPECT_EQ(PlainBlock("ALL_LAN", 1001), ListingOf("lan"));
  EXPECT_EQ(PlainBlock("ALL_LAN", 1001), ListingOf("LAN"));
  EXPECT_EQ(PlainBlock("ALL_LAN", 1001), ListingOf("l_l"));
}

// Names are expected in upper case, and the text is converted to it: meant.
TEST_F(CodeInfoListingTest, TextNeverFindsALowerCaseName) {
  DefineCode(1001, "all_lan");
  EXPECT_EQ("", ListingOf("lan"));
  EXPECT_EQ("", ListingOf("LAN"));
  EXPECT_EQ("", ListingOf("all_lan"));
}

TEST_F(CodeInfoListingTest, TextFindsEveryRecordInVectorOrder) {
  DefineCode(1031, "LAN_LAMP");
  DefineCode(1030, "POWER_LAMP");
  DefineCode(1001, "ALL_LAN");
  EXPECT_EQ(PlainBlock("LAN_LAMP", 1031) + PlainBlock("POWER_LAMP", 1030), ListingOf("lamp"));
  EXPECT_EQ(PlainBlock("LAN_LAMP", 1031) + PlainBlock("ALL_LAN", 1001), ListingOf("lan"));
}

TEST_F(CodeInfoListingTest, EmptyTextListsEveryRecord) {
  DefineTwo();
  EXPECT_EQ(std::string(kLanLampBlock) + kTypeNameBlock, ListingOf(""));
}

TEST_F(CodeInfoListingTest, TextThatNoNameContainsWritesNothing) {
  DefineTwo();
  EXPECT_EQ("", ListingOf("lan_lamps"));
}

TEST_F(CodeInfoListingTest, TextFetchesTheNameOfEveryRecord) {
  DefineTwo();
  ListingOf("type");
  const Lines lines = host.TakeLog({9});
  EXPECT_EQ(Lines({Log(9, "ability_code is equal!ability_code:1031, ability_name:LAN_LAMP"),
                   Log(9, "ability_code is equal!ability_code:1083, ability_name:TYPE_NAME")}),
            lines);
}

TEST_F(CodeInfoListingTest, CallersTextIsNotChanged) {
  const std::string text = "lan";
  ListingOf(text);
  EXPECT_EQ("lan", text);
}

TEST_F(CodeInfoListingTest, NullTerminalIsRefused) {
  DefineTwo();
  registry_->Show(nullptr);
  EXPECT_EQ(Lines({Log(13, "there is null pointer!")}), host.TakeLogWithoutTraces());
  registry_->Show(nullptr, static_cast<unsigned short>(1031));
  EXPECT_EQ(Lines({Log(13, "there is null pointer!")}), host.TakeLogWithoutTraces());
  registry_->Show(nullptr, std::string("lan"));
  EXPECT_EQ(Lines({Log(13, "there is null pointer!")}), host.TakeLogWithoutTraces());
}

}  // namespace
