// Writing a profile into the host's buffer.
#include "profile_expectations.h"
#include "profile_serialisation_items.h"

namespace {

class ProfileSerialisationWritingTest : public LibraryTest {
 protected:
  ProfileSerialisationWritingTest() {
    DefineUsualCodes();
    profile._id = 21;
    profile._bind_count = 3;
    profile._flag_match_type = MatchType(2);
    host.ForgetLog();
  }

  Items Written() {
    Variant buffer;
    profile.Serialize(buffer);
    return ItemsOf(buffer);
  }

  OnuAbilityProfile profile = MakeProfile(kReal, 1);
};

TEST_F(ProfileSerialisationWritingTest, EmptyProfileIsTheSevenHeaderItems) {
  EXPECT_EQ(Written(), (Items{ShortItem(21), IntItem(3), IntItem(2), IntItem(1), IntItem(1),
                              IntItem(0), IntItem(0)}));
  EXPECT_EQ(profile.GetSize(), 30U);
}

TEST_F(ProfileSerialisationWritingTest, MatchProfileWritesItsDefaultAndId) {
  profile = MakeProfile(kMatch, 0);
  profile._flag_match_type = MatchType(-1);

  EXPECT_EQ(Written(), (Items{ShortItem(0xFFFF), IntItem(0), IntItem(0xFFFFFFFFU), IntItem(2),
                              IntItem(0), IntItem(0xFFFFFFFFU), IntItem(0)}));
}

TEST_F(ProfileSerialisationWritingTest, AbilitiesFollowInCodeOrder) {
  profile.Add(kTypeName, std::string("SFU-4"));
  profile.Add(kPotsPorts, 2);
  profile._common_ability[kVendorId] = Value(3, 17, "ABCD");

  EXPECT_EQ(Written(), HeaderItems({21, 3, 2, 1, 1, 0, 2}) + RecordItems(1020, 2, 2) +
                           RecordItems(1082, 3, 17, "ABCD") + RecordItems(1083, 3, 0, "SFU-4"));
}

TEST_F(ProfileSerialisationWritingTest, EmptyStringWritesFourItemsAndNoStringItem) {
  profile.UpdateInit(kTypeName, std::string());

  EXPECT_EQ(Written(),
            HeaderItems({}) + Items({IntItem(1083), IntItem(3), IntItem(0), IntItem(0)}));
}

TEST_F(ProfileSerialisationWritingTest, NumberWithAStringBesideItWritesTheString) {
  profile._common_ability[kPotsPorts] = Value(2, 5, "note");

  EXPECT_EQ(Written(), HeaderItems({}) + RecordItems(1020, 2, 5, "note"));
}

TEST_F(ProfileSerialisationWritingTest, UnsetValueIsWrittenAsItIs) {
  profile._common_ability[kPotsPorts];

  EXPECT_EQ(Written(), HeaderItems({}) + RecordItems(1020, 0, 0xFFFFFFFFU));
}

TEST_F(ProfileSerialisationWritingTest, HighCodesAreWidened) {
  profile.UpdateInit(kDataUnis, 6);

  EXPECT_EQ(Written(), HeaderItems({}) + RecordItems(65533, 2, 6));
}

TEST_F(ProfileSerialisationWritingTest, StringEndsAtItsFirstNul) {
  profile.UpdateInit(kTypeName, std::string("AB\0CD", 5));
  profile.UpdateInit(kProfileName, std::string("\0CD", 3));

  EXPECT_EQ(Written(), HeaderItems({}) + RecordItems(1083, 3, 0, "AB") + RecordItems(1093, 3, 0));
}

TEST_F(ProfileSerialisationWritingTest, LongStringIsWrittenWhole) {
  const std::string text(70000, 'x');
  profile.UpdateInit(kTypeName, text);

  EXPECT_EQ(Written(), HeaderItems({}) + RecordItems(1083, 3, 0, text));
}

TEST_F(ProfileSerialisationWritingTest, CachedCountIsWrittenAndNotTheSizeOfTheContent) {
  profile.UpdateInit(kPotsPorts, 2);
  profile._common_ability_num = 40;

  EXPECT_EQ(Written(), HeaderItems({21, 3, 2, 1, 1, 0, 40}) + RecordItems(1020, 2, 2));
}

TEST_F(ProfileSerialisationWritingTest, StaleCountAfterADeletionIsWritten) {
  profile.Add(kPotsPorts, 2);
  profile.Add(kPowerLamp, 1);
  profile.Del(kPotsPorts);

  EXPECT_EQ(Written(), HeaderItems({21, 3, 2, 1, 1, 0, 2}) + RecordItems(1030, 2, 1));
}

TEST_F(ProfileSerialisationWritingTest, KeyCodeAgeAndReservedBytesAreNotWritten) {
  profile._age_count = 9;
  profile._reserved[0] = 9;
  profile._key_ability_code = 9;

  EXPECT_EQ(Written(), HeaderItems({}));
}

TEST_F(ProfileSerialisationWritingTest, AppendsBehindWhatTheBufferHolds) {
  Variant buffer;
  PutItems(buffer, {IntItem(99)});

  profile.Serialize(buffer);

  EXPECT_EQ(ItemsOf(buffer), Items({IntItem(99)}) + HeaderItems({}));
}

TEST_F(ProfileSerialisationWritingTest, WritingIsNotTraced) {
  profile.UpdateInit(kPotsPorts, 2);
  host.ForgetLog();

  Written();

  EXPECT_TRUE(host.TakeLog().empty());
}

TEST_F(ProfileSerialisationWritingTest, EveryFailingItemIsLoggedAndEndsTheWriting) {
  profile.Add(kPotsPorts, 2);
  profile.Add(kTypeName, std::string("SFU-4"));
  const Items whole = HeaderItems({21, 3, 2, 1, 1, 0, 2}) + RecordItems(1020, 2, 2) +
                      RecordItems(1083, 3, 0, "SFU-4");
  ASSERT_EQ(Written(), whole);
  ASSERT_EQ(FieldsOfNumberAndString().size(), whole.size());

  for (unsigned int k = 1; k <= whole.size(); ++k) {
    host.ForgetLog();
    host.FailAppend(k);

    EXPECT_EQ(Written(), Items(whole.begin(), whole.begin() + (k - 1))) << "item " << k;

    const std::vector<LogLine> lines = host.TakeLog();
    const std::string text = "pack " + FieldsOfNumberAndString()[k - 1] + " failed\r\n";
    EXPECT_EQ(lines, std::vector<LogLine>{Log(13, text)});
    EXPECT_EQ(lines.at(0).function, "Serialize");
    EXPECT_EQ(lines.at(0).format, text + " func:%s,line:%d\r\n\r\n");
  }
}

TEST_F(ProfileSerialisationWritingTest, FailingItemEndsTheWritingHeardOrNot) {
  profile.Add(kTypeName, std::string("SFU-4"));
  const Items whole = Written();
  onu_ability_set_log_level_mask(0);
  for (unsigned int k = 1; k <= whole.size(); ++k) {
    host.FailAppend(k);
    EXPECT_EQ(Written(), Items(whole.begin(), whole.begin() + (k - 1))) << "item " << k;
  }
  onu_ability_set_log_level_mask(0xFFFFFFFFU);
  EXPECT_TRUE(host.TakeLog({13}).empty());
}

TEST_F(ProfileSerialisationWritingTest, WritingChangesNothing) {
  profile.Add(kPotsPorts, 2);
  const auto members = MembersOf(profile);
  const Content content = ContentOf(profile);
  host.FailAppend(5);

  Written();
  Written();

  EXPECT_EQ(MembersOf(profile), members);
  EXPECT_EQ(ContentOf(profile), content);
  EXPECT_TRUE(host.ClaimLog(13, "pack _profile_source failed\r\n"));
}

}  // namespace
