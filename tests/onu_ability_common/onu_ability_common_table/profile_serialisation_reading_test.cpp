// Reading a profile from the host's buffer.
#include "profile_expectations.h"
#include "profile_serialisation_items.h"

namespace {

class ProfileSerialisationReadingTest : public LibraryTest {
 protected:
  ProfileSerialisationReadingTest() {
    DefineUsualCodes();
    host.ForgetLog();
  }

  // Reads the items and returns how many were left.
  unsigned int Read(const Items& items) {
    Variant buffer;
    PutItems(buffer, items);
    profile.UnSerialize(buffer);
    return ItemsLeft(buffer);
  }

  OnuAbilityProfile profile = MakeProfile(kReal);
};

TEST_F(ProfileSerialisationReadingTest, HeaderIsReadIntoTheProfile) {
  profile._key_ability_code = 1099;
  profile._age_count = 4;
  profile._reserved[0] = 9;

  EXPECT_EQ(Read(HeaderItems({22, 30, 0xFFFFFFFFU, 2, 1, 0xFFFFFFFFU, 0})), 0U);

  std::string reserved(16, '\0');
  reserved[0] = 9;
  EXPECT_EQ(MembersOf(profile), std::make_tuple(static_cast<unsigned short>(22), 30U, -1, 2, 1,
                                                0xFFFFFFFFU, 0U, 4U, reserved));
  EXPECT_EQ(profile._key_ability_code, 1099);
}

TEST_F(ProfileSerialisationReadingTest, RecordsAreReadWithTheirStrings) {
  EXPECT_EQ(Read(HeaderItems({21, 3, 2, 1, 1, 0, 3}) + RecordItems(1020, 2, 5, "note") +
                 RecordItems(1030, 2, 1) + RecordItems(1083, 3, 17, "SFU-4")),
            0U);

  EXPECT_EQ(ContentOf(profile), (Content{{kPotsPorts, {2, 5, "note"}},
                                         {kPowerLamp, NumberEntry(1)},
                                         {kTypeName, {3, 17, "SFU-4"}}}));
  EXPECT_EQ(profile._common_ability_num, 3U);
}

TEST_F(ProfileSerialisationReadingTest, NoStringIsFetchedForARecordWithoutOne) {
  EXPECT_EQ(Read(HeaderItems({21, 3, 2, 1, 1, 0, 1}) + RecordItems(1020, 2, 5) +
                 Items({BytesItem("next")})),
            1U);

  EXPECT_TRUE(host.memory_calls().empty());
  EXPECT_EQ(ContentOf(profile), (Content{{kPotsPorts, NumberEntry(5)}}));
}

TEST_F(ProfileSerialisationReadingTest, ReadingStopsAfterTheCountedRecords) {
  EXPECT_EQ(
      Read(HeaderItems({21, 3, 2, 1, 1, 0, 1}) + RecordItems(1020, 2, 5) + RecordItems(1030, 2, 1)),
      4U);

  EXPECT_EQ(ContentOf(profile), (Content{{kPotsPorts, NumberEntry(5)}}));
}

TEST_F(ProfileSerialisationReadingTest, CodeIsCutToSixteenBits) {
  Read(HeaderItems({21, 3, 2, 1, 1, 0, 1}) + RecordItems(0x70000 + 1020, 2, 5));

  EXPECT_EQ(ContentOf(profile), (Content{{kPotsPorts, NumberEntry(5)}}));
}

// --- What adding drops

TEST_F(ProfileSerialisationReadingTest, DefaultsAndUnregisteredCodesAreDroppedButCounted) {
  EXPECT_EQ(
      Read(HeaderItems({21, 3, 2, 1, 1, 0, 5}) + RecordItems(77, 2, 5) + RecordItems(1020, 2, 0) +
           RecordItems(1030, 2, 1) + RecordItems(1082, 3, 7) + RecordItems(1083, 1, 7)),
      0U);

  EXPECT_EQ(ContentOf(profile), (Content{{kPowerLamp, NumberEntry(1)}}));
  EXPECT_EQ(profile._common_ability_num, 5U);
  const std::vector<LogLine> log = host.TakeLog();
  EXPECT_TRUE(Contains(log, Log(1, "ability_code don't exist,ability_code:77")));
  EXPECT_TRUE(Contains(log, Log(4,
                                "ability value is equal to default value,profile type:1, value "
                                "type:2, ability_code:1020, ability name:POTS_PORTS, "
                                "ability_value:0, default value:0")));
  EXPECT_TRUE(Contains(log, Log(4,
                                "ability value is equal to default value,profile type:1, value "
                                "type:3, ability_code:1082, ability_value:")));
  EXPECT_TRUE(Contains(log, Log(4,
                                "ability value type is invalid,profile type:1, value type:1, "
                                "ability_code:1083")));
}

TEST_F(ProfileSerialisationReadingTest, DefaultIsTheOneThatWasJustRead) {
  Read(HeaderItems({21, 3, 2, 2, 1, kWildcard, 2}) + RecordItems(1020, 2, 0) +
       RecordItems(1030, 2, kWildcard));

  EXPECT_EQ(ContentOf(profile), (Content{{kPotsPorts, NumberEntry(0)}}));
  EXPECT_EQ(profile._common_ability_num, 2U);
}

TEST_F(ProfileSerialisationReadingTest, TotalsAreDerivedAndTheCountIsStillTheOneOfTheBuffer) {
  Read(HeaderItems({21, 3, 2, 1, 1, 0, 1}) + RecordItems(1010, 2, 4));

  EXPECT_EQ(ContentOf(profile), (Content{{kAllLan, NumberEntry(4)},
                                         {kFePorts, NumberEntry(4)},
                                         {kDataUnis, NumberEntry(4)}}));
  EXPECT_EQ(profile._common_ability_num, 1U);
}

// --- A profile that is not empty

TEST_F(ProfileSerialisationReadingTest, RecordsAreAddedToWhatTheProfileHolds) {
  profile.Add(kPowerLamp, 1);
  profile.Add(kPotsPorts, 2);

  Read(HeaderItems({21, 3, 2, 1, 1, 0, 2}) + RecordItems(1020, 2, 0) +
       RecordItems(1083, 3, 0, "SFU-4"));

  EXPECT_EQ(ContentOf(profile), (Content{{kPotsPorts, NumberEntry(0)},
                                         {kPowerLamp, NumberEntry(1)},
                                         {kTypeName, {3, 0, "SFU-4"}}}))
      << "a held code is updated, even to the default";
  EXPECT_EQ(profile._common_ability_num, 2U);
}

TEST_F(ProfileSerialisationReadingTest, CountZeroLeavesTheAbilitiesAndZeroesTheCount) {
  profile.Add(kPotsPorts, 2);
  host.ForgetLog();

  EXPECT_EQ(Read(HeaderItems({21, 3, 2, 1, 1, 0, 0}) + RecordItems(1030, 2, 1)), 4U);

  EXPECT_EQ(ContentOf(profile), (Content{{kPotsPorts, NumberEntry(2)}}));
  EXPECT_EQ(profile._common_ability_num, 0U);
  EXPECT_TRUE(host.TakeLogWithoutTraces().empty());
}

// --- Strings

TEST_F(ProfileSerialisationReadingTest, StringEndsAtItsFirstNul) {
  EXPECT_EQ(
      Read(HeaderItems({21, 3, 2, 1, 1, 0, 2}) + RecordItems(1083, 3, 0, std::string("AB\0CD", 5)) +
           RecordItems(1020, 2, 5, std::string("\0CD", 3))),
      0U);

  EXPECT_EQ(ContentOf(profile), (Content{{kPotsPorts, NumberEntry(5)}, {kTypeName, {3, 0, "AB"}}}));
}

TEST_F(ProfileSerialisationReadingTest, StringPassesThroughAZeroedBlockOfTheHost) {
  host.ForgetMemoryCalls();

  Read(HeaderItems({21, 3, 2, 1, 1, 0, 1}) + RecordItems(1083, 3, 0, "SFU-4"));

  ASSERT_EQ(host.memory_calls().size(), 2U);
  const MemoryCall& taken = host.memory_calls()[0];
  EXPECT_EQ(taken.name, "bep_callocEx");
  EXPECT_EQ(taken.count, 6U);
  EXPECT_EQ(taken.size, 1U);
  EXPECT_EQ(taken.file, "onu_ability_common/onu_ability_common_table");
  const MemoryCall& released = host.memory_calls()[1];
  EXPECT_EQ(released.name, "bep_freeEx");
  EXPECT_EQ(released.file, "onu_ability_common/onu_ability_common_table");
  EXPECT_EQ(host.blocks_in_use(), 0U);
}

TEST_F(ProfileSerialisationReadingTest, BlockIsReleasedWhenTheStringCannotBeFetched) {
  host.ForgetMemoryCalls();

  Read(HeaderItems({21, 3, 2, 1, 1, 0, 1}) +
       Items({IntItem(1083), IntItem(3), IntItem(0), IntItem(5)}));

  EXPECT_TRUE(host.ClaimLog(13, "unpack ability_string_value failed\r\n"));
  ASSERT_EQ(host.memory_calls().size(), 2U);
  EXPECT_EQ(host.memory_calls()[0].name, "bep_callocEx");
  EXPECT_EQ(host.memory_calls()[1].name, "bep_freeEx");
  EXPECT_EQ(host.memory_calls()[1].file, "onu_ability_common/onu_ability_common_table");
  EXPECT_EQ(host.blocks_in_use(), 0U);
  EXPECT_EQ(ContentOf(profile), Content{});
}

TEST_F(ProfileSerialisationReadingTest, FailedAllocationAddsTheRecordWithAnEmptyString) {
  host.ForgetMemoryCalls();
  host.FailAllocation(1);

  EXPECT_EQ(Read(HeaderItems({21, 3, 2, 1, 1, 0, 1}) + RecordItems(1020, 2, 5, "note")), 1U)
      << "the string bytes are not fetched";

  EXPECT_EQ(ContentOf(profile), (Content{{kPotsPorts, NumberEntry(5)}}));
  EXPECT_EQ(profile._common_ability_num, 1U);
  ASSERT_GE(host.memory_calls().size(), 1U);
  EXPECT_EQ(host.memory_calls()[0].name, "bep_callocEx");
}

TEST_F(ProfileSerialisationReadingTest, FailedAllocationDropsAStringAsTheDefault) {
  host.FailAllocation(1);

  Read(HeaderItems({21, 3, 2, 1, 1, 0, 1}) + RecordItems(1083, 3, 0, "SFU-4"));

  EXPECT_EQ(ContentOf(profile), Content{});
  EXPECT_EQ(profile._common_ability_num, 1U);
}

TEST_F(ProfileSerialisationReadingTest, ReadingGoesOnAfterAFailedAllocation) {
  host.FailAllocation(1);

  // The record of the lost string is followed by its bytes, which the next
  // fetch of a number cannot take.
  EXPECT_EQ(Read(HeaderItems({21, 3, 2, 1, 1, 0, 2}) + RecordItems(1020, 2, 5, "note") +
                 RecordItems(1030, 2, 1)),
            5U);

  EXPECT_EQ(ContentOf(profile), (Content{{kPotsPorts, NumberEntry(5)}}));
  EXPECT_EQ(host.TakeLog({13}), std::vector<LogLine>{Log(13, "unpack ability_code failed\r\n")});
}

TEST_F(ProfileSerialisationReadingTest, RecordsAfterAFailedAllocationAreRead) {
  host.FailAllocation(1);
  Items lost_string = RecordItems(1020, 2, 5, "note");
  lost_string.pop_back();

  EXPECT_EQ(
      Read(HeaderItems({21, 3, 2, 1, 1, 0, 2}) + lost_string + RecordItems(1083, 3, 0, "SFU-4")),
      0U);

  EXPECT_EQ(ContentOf(profile),
            (Content{{kPotsPorts, NumberEntry(5)}, {kTypeName, {3, 0, "SFU-4"}}}));
}

TEST_F(ProfileSerialisationReadingTest, LengthThatNoBlockHoldsEndsTheReading) {
  host.ForgetMemoryCalls();

  Read(HeaderItems({21, 3, 2, 1, 1, 0, 1}) +
       Items({IntItem(1083), IntItem(3), IntItem(0), IntItem(0xFFFFFFFFU)}));

  EXPECT_TRUE(host.ClaimLog(13, "unpack ability_string_value failed\r\n"));
  EXPECT_TRUE(host.memory_calls().empty()) << "one more byte for the end would be none at all";
  EXPECT_EQ(ContentOf(profile), Content{});
}

TEST_F(ProfileSerialisationReadingTest, AnyBlockThatIsNotGivenLosesItsOwnStringOnly) {
  const unsigned int codes[] = {1082, 1083, 1093};
  for (unsigned int k = 1; k <= 3; ++k) {
    profile = OnuAbilityProfile();
    Items items = HeaderItems({21, 3, 2, 1, 1, 0, 3});
    Content expected;
    for (unsigned int place = 1; place <= 3; ++place) {
      Items record = RecordItems(codes[place - 1], 3, 0, "text");
      if (place == k) {
        record.pop_back();  // which is not fetched then
      } else {
        expected[static_cast<unsigned short>(codes[place - 1])] = {3, 0, "text"};
      }
      items = items + record;
    }
    host.FailAllocation(k);

    EXPECT_EQ(Read(items), 0U) << k;

    EXPECT_EQ(ContentOf(profile), expected) << k;
    EXPECT_EQ(host.blocks_in_use(), 0U) << k;
  }
}

// --- Failing items

void ExpectOnlyFailureIn(const std::string& field, const std::vector<LogLine>& lines) {
  const std::string text = "unpack " + field + " failed\r\n";
  EXPECT_EQ(lines, std::vector<LogLine>{Log(13, text)});
  EXPECT_EQ(lines.at(0).function, "UnSerialize");
  EXPECT_EQ(lines.at(0).format, text + " func:%s,line:%d\r\n\r\n");
}

TEST_F(ProfileSerialisationReadingTest, FailingItemEndsTheReadingHeardOrNot) {
  const Items whole = HeaderItems({21, 3, 2, 1, 1, 0, 1}) + RecordItems(1083, 3, 0, "SFU-4");
  host.ForgetLog();
  for (unsigned int k = 1; k <= whole.size(); ++k) {
    profile = MakeProfile(kReal);
    host.ForgetLog();
    onu_ability_set_log_level_mask(0);
    host.FailFetch(k);
    EXPECT_EQ(Read(whole), whole.size() - k + 1) << "item " << k;
    onu_ability_set_log_level_mask(0xFFFFFFFFU);
    EXPECT_TRUE(host.TakeLog({13}).empty()) << "item " << k;
  }
}

TEST_F(ProfileSerialisationReadingTest, EveryFailingHeaderItemIsLoggedAndEndsTheReading) {
  for (unsigned int k = 1; k <= 7; ++k) {
    profile = MakeProfile(kReal);
    profile.UpdateInit(kPotsPorts, 2);
    profile._common_ability_num = 40;
    host.ForgetLog();
    host.FailFetch(k);

    EXPECT_EQ(Read(HeaderItems({22, 30, 1, 2, 1, kWildcard, 1}) + RecordItems(1030, 2, 1)), 12 - k);

    ExpectOnlyFailureIn(FieldsOfNumberAndString()[k - 1], host.TakeLog({0, 1, 4, 13}));
    EXPECT_EQ(profile._id, k > 1 ? 22 : 0) << "item " << k;
    EXPECT_EQ(profile._bind_count, k > 2 ? 30U : 0U) << "item " << k;
    EXPECT_EQ(profile._flag_match_type, k > 3 ? 1 : 0) << "item " << k;
    EXPECT_EQ(profile._profile_type, k > 4 ? 2 : 1) << "item " << k;
    EXPECT_EQ(profile._profile_source, k > 5 ? 1 : 0) << "item " << k;
    EXPECT_EQ(profile._ability_default_value, k > 6 ? kWildcard : 0U) << "item " << k;
    EXPECT_EQ(profile._common_ability_num, 40U) << "item " << k;
    EXPECT_EQ(ContentOf(profile), (Content{{kPotsPorts, NumberEntry(2)}})) << "item " << k;
  }
}

TEST_F(ProfileSerialisationReadingTest, EveryFailingRecordItemIsLoggedAndKeepsTheRecordsBefore) {
  const Items whole = HeaderItems({21, 3, 2, 1, 1, 0, 2}) + RecordItems(1020, 2, 2) +
                      RecordItems(1083, 3, 0, "SFU-4");
  ASSERT_EQ(FieldsOfNumberAndString().size(), whole.size());

  for (unsigned int k = 8; k <= whole.size(); ++k) {
    profile = MakeProfile(kReal);
    profile._common_ability_num = 40;
    host.ForgetLog();
    host.FailFetch(k);

    EXPECT_EQ(Read(whole), whole.size() - k + 1) << "item " << k;

    ExpectOnlyFailureIn(FieldsOfNumberAndString()[k - 1], host.TakeLog({0, 13}));
    const bool first_added = k > 11;
    EXPECT_EQ(ContentOf(profile), first_added ? (Content{{kPotsPorts, NumberEntry(2)}}) : Content{})
        << "item " << k;
    // The count is the one that adding made, not the one of the buffer.
    EXPECT_EQ(profile._common_ability_num, first_added ? 1U : 40U) << "item " << k;
    EXPECT_EQ(host.blocks_in_use(), 0U);
  }
}

TEST_F(ProfileSerialisationReadingTest, EmptyBufferFailsAtTheId) {
  Read({});

  EXPECT_EQ(host.TakeLogWithoutTraces(), std::vector<LogLine>{Log(13, "unpack _id failed\r\n")});
}

TEST_F(ProfileSerialisationReadingTest, ReadingHasNoTracesOfItsOwn) {
  Read(HeaderItems({}));

  EXPECT_TRUE(host.TakeLog().empty());
}

// --- Counts of 65536 and more. Meant: the counter of records has 16 bits.

TEST_F(ProfileSerialisationReadingTest, CountOf65535ReadsThatManyRecords) {
  Items items = HeaderItems({21, 3, 2, 1, 1, 0, 65535});
  const Items unregistered = RecordItems(77, 2, 5);
  for (unsigned int record = 0; record < 65534; ++record) {
    items.insert(items.end(), unregistered.begin(), unregistered.end());
  }
  onu_ability_set_log_level_mask(1U << 13);

  EXPECT_EQ(Read(items + RecordItems(1020, 2, 2) + RecordItems(1030, 2, 1)), 4U);

  EXPECT_EQ(ContentOf(profile), (Content{{kPotsPorts, NumberEntry(2)}}));
  EXPECT_EQ(profile._common_ability_num, 65535U);
}

TEST_F(ProfileSerialisationReadingTest, CountOf65536WrapsAndReadsUntilAFetchFails) {
  for (const unsigned int count : {65536U, 65537U, 0xFFFFFFFFU}) {
    profile = MakeProfile(kReal);
    Items items = HeaderItems({21, 3, 2, 1, 1, 0, count});
    const Items unregistered = RecordItems(77, 2, 5);
    for (unsigned int record = 0; record < 65540; ++record) {
      items.insert(items.end(), unregistered.begin(), unregistered.end());
    }
    onu_ability_set_log_level_mask(1U << 13);

    EXPECT_EQ(Read(items + RecordItems(1020, 2, 2)), 0U);

    EXPECT_EQ(host.TakeLog({13}), std::vector<LogLine>{Log(13, "unpack ability_code failed\r\n")});
    EXPECT_EQ(ContentOf(profile), (Content{{kPotsPorts, NumberEntry(2)}}));
    EXPECT_EQ(profile._common_ability_num, 1U);
  }
}

}  // namespace
