#include "onu_ability_common_global.h"
#include "support/recording_host.h"

namespace {

class ValueWideningTest : public LibraryTest {};

TEST_F(ValueWideningTest, OneByteToTwoCarriesTheAllOnesMarkerOver) {
  unsigned short out = 1;
  EXPECT_EQ(0U, all_1_onetype_to_twotype(255, &out));
  EXPECT_EQ(0xFFFF, out);
  EXPECT_EQ(0U, all_1_onetype_to_twotype(254, &out));
  EXPECT_EQ(254, out);
  EXPECT_EQ(0U, all_1_onetype_to_twotype(0, &out));
  EXPECT_EQ(0, out);
}

TEST_F(ValueWideningTest, OneByteToTwoRefusesANullOutput) {
  EXPECT_EQ(0x80000001U, all_1_onetype_to_twotype(255, nullptr));
  EXPECT_EQ(std::vector<LogLine>({Log(13, "there is null pointer!")}), host.TakeLogWithoutTraces());
}

TEST_F(ValueWideningTest, OneByteToFourCarriesTheAllOnesMarkerOver) {
  EXPECT_EQ(0xFFFFFFFFU, trans_1_type_to_4_type(255));
  EXPECT_EQ(254U, trans_1_type_to_4_type(254));
  EXPECT_EQ(0U, trans_1_type_to_4_type(0));
}

}  // namespace
