// The host's serialisation buffer: the items, the refusals, and profiles that go
// through it.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "onu_ability_common_table.h"
#include "platform/variant_bytes.h"

namespace olt_host {
namespace {

using Bytes = std::vector<unsigned char>;
constexpr unsigned int kNext = 0xFFFF;

std::string text = "ZKWM";

TEST(PlatformVariant, ReadsItemsInTheOrderOfWriting) {
  Variant variant;
  EXPECT_EQ(0U, variant.Append(static_cast<unsigned short>(0xBEEF), kNext));
  EXPECT_EQ(0U, variant.Append(0xDEADBEEFU, kNext));
  EXPECT_EQ(0U, variant.Append(text.data(), 4, kNext));
  EXPECT_EQ(0U, variant.Append(nullptr, 0, kNext));
  unsigned short small = 0;
  unsigned int number = 0;
  char bytes[4] = {};
  EXPECT_EQ(0U, variant.Fetch(small, kNext));
  EXPECT_EQ(0U, variant.Fetch(number, kNext));
  EXPECT_FALSE(IsReadToEnd(variant));
  EXPECT_EQ(0U, variant.Fetch(bytes, 4, kNext));
  EXPECT_EQ(0U, variant.Fetch(nullptr, 0, kNext));
  EXPECT_EQ(0xBEEF, small);
  EXPECT_EQ(0xDEADBEEFU, number);
  EXPECT_EQ("ZKWM", std::string(bytes, 4));
  EXPECT_TRUE(IsReadToEnd(variant));
}

TEST(PlatformVariant, FramesItemsTheSameOnEveryMachine) {
  Variant variant;
  variant.Append(static_cast<unsigned short>(0x0102), kNext);
  variant.Append(0x03040506U, kNext);
  variant.Append(text.data(), 2, kNext);
  EXPECT_EQ((Bytes{0x02, 2, 1, 0x04, 6, 5, 4, 3, 0x53, 2, 0, 0, 0, 'Z', 'K'}),
            VariantBytes(variant));
}

TEST(PlatformVariant, RefusesToReadPastTheEnd) {
  Variant variant;
  unsigned short small = 7;
  unsigned int number = 8;
  char bytes[1] = {'x'};
  EXPECT_NE(0U, variant.Fetch(small, kNext));
  EXPECT_NE(0U, variant.Fetch(number, kNext));
  EXPECT_NE(0U, variant.Fetch(bytes, 1, kNext));
  EXPECT_NE(0U, variant.Fetch(bytes, 0, kNext));
  EXPECT_EQ(7, small);
  EXPECT_EQ(8U, number);
  EXPECT_EQ('x', bytes[0]);
}

TEST(PlatformVariant, RefusesAnotherTypeOrLengthAndStaysThere) {
  Variant variant;
  variant.Append(1U, kNext);
  variant.Append(text.data(), 4, kNext);
  unsigned short small = 7;
  unsigned int number = 8;
  char bytes[8] = "xxxxxxx";
  EXPECT_NE(0U, variant.Fetch(small, kNext));
  EXPECT_NE(0U, variant.Fetch(bytes, 4, kNext));
  EXPECT_EQ(0U, variant.Fetch(number, kNext));
  EXPECT_NE(0U, variant.Fetch(number, kNext));
  EXPECT_NE(0U, variant.Fetch(bytes, 3, kNext));
  EXPECT_NE(0U, variant.Fetch(bytes, 5, kNext));
  EXPECT_STREQ("xxxxxxx", bytes);
  EXPECT_EQ(0U, variant.Fetch(bytes, 4, kNext));
}

TEST(PlatformVariant, OffersTheNextItemOnly) {
  Variant variant;
  unsigned int number = 8;
  EXPECT_NE(0U, variant.Append(1U, 0));
  EXPECT_NE(0U, variant.Append(static_cast<unsigned short>(1), 0));
  EXPECT_NE(0U, variant.Append(text.data(), 4, 0));
  EXPECT_TRUE(VariantBytes(variant).empty());
  variant.Append(1U, kNext);
  EXPECT_NE(0U, variant.Fetch(number, 0));
  EXPECT_EQ(8U, number);
}

TEST(PlatformVariant, RefusesNullBytes) {
  Variant variant;
  EXPECT_NE(0U, variant.Append(nullptr, 4, kNext));
  variant.Append(text.data(), 4, kNext);
  EXPECT_NE(0U, variant.Fetch(nullptr, 4, kNext));
}

TEST(PlatformVariant, RefusesBytesCutAtAnyPlace) {
  Variant whole;
  whole.Append(static_cast<unsigned short>(5), kNext);
  whole.Append(6U, kNext);
  whole.Append(text.data(), 4, kNext);
  const Bytes bytes = VariantBytes(whole);
  for (std::size_t length = 0; length < bytes.size(); ++length) {
    Variant cut;
    SetVariantBytes(cut, Bytes(bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(length)));
    unsigned short small = 0;
    unsigned int number = 0;
    char read[4];
    EXPECT_FALSE(cut.Fetch(small, kNext) == 0 && cut.Fetch(number, kNext) == 0 &&
                 cut.Fetch(read, 4, kNext) == 0)
        << length;
  }
}

TEST(PlatformVariant, RefusesALengthBeyondTheBuffer) {
  Variant variant;
  SetVariantBytes(variant, Bytes{0x53, 0xFF, 0xFF, 0xFF, 0xFF, 'a'});
  char bytes[1] = {'x'};
  EXPECT_NE(0U, variant.Fetch(bytes, 0xFFFFFFFFU, kNext));
  EXPECT_EQ('x', bytes[0]);
}

TEST(PlatformVariant, GrowsAsNeeded) {
  Variant variant;
  std::string large(3 << 20, 'L');
  for (unsigned int i = 0; i < 100000; ++i) ASSERT_EQ(0U, variant.Append(i, kNext));
  ASSERT_EQ(0U, variant.Append(large.data(), static_cast<unsigned int>(large.size()), kNext));
  unsigned int number = 0;
  for (unsigned int i = 0; i < 100000; ++i) {
    ASSERT_EQ(0U, variant.Fetch(number, kNext));
    ASSERT_EQ(i, number);
  }
  std::string read(large.size(), '.');
  EXPECT_EQ(0U, variant.Fetch(read.data(), static_cast<unsigned int>(read.size()), kNext));
  EXPECT_EQ(large, read);
}

class PlatformVariantProfile : public ::testing::Test {
 protected:
  void SetUp() override {
    OnuAbilityAttrInfo::GetInstance()->Add(ONU_ABILITY_ATTR_PORT_TYPE, "PORT_TYPE");
    OnuAbilityAttrInfo::GetInstance()->Add(ONU_ABILITY_ATTR_VALUE_TYPE, "VALUE_TYPE");
    for (const auto& [code, name] : std::vector<std::pair<unsigned short, std::string>>{
             {1020, "POTS_PORTS"}, {1082, "VENDOR_ID"}, {1085, "KEY_VALUE"}}) {
      ONU_ABILITY_CODE_ATTR_INFO info;
      info.ability_code = code;
      info.ability_name = name;
      OnuAbilityCodeInfo::GetInstance()->Update(info);
    }
    profile_.Init(ONU_ABILITY_PROFILE_TYPE_REAL, ONU_ABILITY_PROFILE_SOURCE_EXTERNAL,
                  ONU_ABILITY_MATCH_TYPE_EXACT);
    profile_.Add(4000000000U);
    profile_.Add(static_cast<unsigned short>(1020), 2U);
    profile_.Add(static_cast<unsigned short>(1082), std::string("ZKWM"));
    profile_._id = 30001;
    profile_._bind_count = 3;
  }

  OnuAbilityProfile profile_;
};

TEST_F(PlatformVariantProfile, ComesBackWhole) {
  Variant variant;
  profile_.Serialize(variant);
  OnuAbilityProfile read;
  read.UnSerialize(variant);
  EXPECT_TRUE(IsReadToEnd(variant));
  EXPECT_EQ(30001, read._id);
  EXPECT_EQ(3U, read._bind_count);
  EXPECT_EQ(ONU_ABILITY_PROFILE_TYPE_REAL, read._profile_type);
  EXPECT_EQ(ONU_ABILITY_PROFILE_SOURCE_EXTERNAL, read._profile_source);
  EXPECT_EQ(ONU_ABILITY_MATCH_TYPE_EXACT, read._flag_match_type);
  EXPECT_EQ(3U, read._common_ability_num);
  ASSERT_EQ(3U, read._common_ability.size());
  EXPECT_EQ(2U, read._common_ability[1020].ability_ushort_value);
  EXPECT_EQ("ZKWM", read._common_ability[1082].ability_string_value);
  EXPECT_EQ(4000000000U, read._common_ability[1085].ability_ushort_value);
}

TEST_F(PlatformVariantProfile, TakesTheBytesOfItsItemsAndFrames) {
  Variant variant;
  profile_.Serialize(variant);
  // 26 bytes of header and 16 a record, the string's 4, and the frames: one byte
  // a number (7 + 3 * 4), five for the string.
  EXPECT_EQ(26U + 3 * 16 + 4 + 19 + 5, VariantBytes(variant).size());
}

TEST_F(PlatformVariantProfile, CutAtAnyByteIsNeverReadToTheLastAbility) {
  Variant variant;
  profile_.Serialize(variant);
  const Bytes bytes = VariantBytes(variant);
  for (std::size_t length = 0; length < bytes.size(); ++length) {
    Variant cut;
    SetVariantBytes(cut, Bytes(bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(length)));
    OnuAbilityProfile read;
    read.UnSerialize(cut);
    EXPECT_FALSE(read.IsExist(1085)) << length;
  }
}

}  // namespace
}  // namespace olt_host
