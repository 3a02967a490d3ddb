#include <algorithm>
#include <initializer_list>
#include <string>
#include <vector>

#include "onu_ability_common_global.h"
#include "support/recording_host.h"

namespace {

using Bytes = std::vector<unsigned char>;

class PhysicalSnTest : public LibraryTest {
 protected:
  static ONU_ABILITY_PHYSICAL_SN Sn(const std::string& vendor,
                                    std::initializer_list<unsigned char> serial) {
    ONU_ABILITY_PHYSICAL_SN sn;
    sn.vendor_id = vendor;
    std::copy(serial.begin(), serial.end(), sn.serial);
    return sn;
  }

  static Bytes SerialOf(const ONU_ABILITY_PHYSICAL_SN& sn) {
    return Bytes(sn.serial, sn.serial + sizeof sn.serial);
  }

  static bool Less(const ONU_ABILITY_PHYSICAL_SN& a, const ONU_ABILITY_PHYSICAL_SN& b) {
    return a < b;
  }

  static constexpr _OMCI_PHYSICAL_SN_ kReported = {{'A', 'B', 'C', 'D'}, {1, 2, 3, 4}};
};

TEST_F(PhysicalSnTest, NewOneIsNotSet) {
  const ONU_ABILITY_PHYSICAL_SN sn;
  EXPECT_EQ(65535, sn.pon_no);
  EXPECT_EQ(255, sn.onu_id);
  EXPECT_EQ("", sn.vendor_id);
  EXPECT_EQ(Bytes(6, 0), SerialOf(sn));
}

// The reversal is meant.
TEST_F(PhysicalSnTest, AssignmentFromTheProtocolReversesTheSerialBytes) {
  ONU_ABILITY_PHYSICAL_SN sn;
  sn = kReported;
  EXPECT_EQ("ABCD", sn.vendor_id);
  EXPECT_EQ(Bytes({4, 3, 2, 1, 0, 0}), SerialOf(sn));
}

TEST_F(PhysicalSnTest, AssignmentFromTheProtocolLeavesTheOtherFields) {
  ONU_ABILITY_PHYSICAL_SN sn = Sn("ZZZZ", {9, 9, 9, 9, 8, 7});
  sn.pon_no = 12;
  sn.onu_id = 34;
  EXPECT_EQ(&sn, &(sn = kReported));
  EXPECT_EQ(Bytes({4, 3, 2, 1, 8, 7}), SerialOf(sn));
  EXPECT_EQ(12, sn.pon_no);
  EXPECT_EQ(34, sn.onu_id);
}

TEST_F(PhysicalSnTest, VendorEndsAtAZeroByte) {
  ONU_ABILITY_PHYSICAL_SN sn = Sn("ZZZZ", {});
  sn = _OMCI_PHYSICAL_SN_{{'A', 'B', 0, 'D'}, {1, 2, 3, 4}};
  EXPECT_EQ("AB", sn.vendor_id);
  sn = _OMCI_PHYSICAL_SN_{{0, 'B', 'C', 'D'}, {1, 2, 3, 4}};
  EXPECT_EQ("", sn.vendor_id);
}

TEST_F(PhysicalSnTest, CopyAssignmentCopiesEveryField) {
  ONU_ABILITY_PHYSICAL_SN sn = Sn("ABCD", {1, 2, 3, 4, 5, 6});
  sn.pon_no = 12;
  sn.onu_id = 34;
  ONU_ABILITY_PHYSICAL_SN copy;
  EXPECT_EQ(&copy, &(copy = sn));
  EXPECT_EQ(12, copy.pon_no);
  EXPECT_EQ(34, copy.onu_id);
  EXPECT_EQ("ABCD", copy.vendor_id);
  EXPECT_EQ(Bytes({1, 2, 3, 4, 5, 6}), SerialOf(copy));
}

// The comparison is meant not to be an order.
TEST_F(PhysicalSnTest, TwoNumbersCanEachBeLessThanTheOther) {
  const ONU_ABILITY_PHYSICAL_SN a = Sn("ABCD", {0x02, 0x00});
  const ONU_ABILITY_PHYSICAL_SN b = Sn("ABCD", {0x01, 0x05});
  EXPECT_TRUE(Less(a, b));
  EXPECT_TRUE(Less(b, a));
}

TEST_F(PhysicalSnTest, LargerVendorWithSmallerSerialIsLess) {
  const ONU_ABILITY_PHYSICAL_SN a = Sn("AAAA", {0x01});
  const ONU_ABILITY_PHYSICAL_SN b = Sn("BAAA", {0x00});
  EXPECT_TRUE(Less(b, a));
  EXPECT_TRUE(Less(a, b));
}

TEST_F(PhysicalSnTest, EachOfTheTenPositionsDecides) {
  const ONU_ABILITY_PHYSICAL_SN smaller = Sn("BBBB", {5, 5, 5, 5, 5, 5});
  for (size_t position = 0; position < 10; ++position) {
    ONU_ABILITY_PHYSICAL_SN larger = smaller;
    if (position < 4) {
      larger.vendor_id[position] = 'C';
    } else {
      larger.serial[position - 4] = 6;
    }
    EXPECT_TRUE(Less(smaller, larger)) << position;
    EXPECT_FALSE(Less(larger, smaller)) << position;
  }
}

TEST_F(PhysicalSnTest, EqualNumbersAreNotLess) {
  const ONU_ABILITY_PHYSICAL_SN sn = Sn("ABCD", {1, 2, 3, 4, 5, 6});
  EXPECT_FALSE(Less(sn, sn));
  EXPECT_FALSE(Less(ONU_ABILITY_PHYSICAL_SN(), ONU_ABILITY_PHYSICAL_SN()));
}

TEST_F(PhysicalSnTest, BytesCompareUnsigned) {
  EXPECT_TRUE(Less(Sn("ABCD", {0x7F}), Sn("ABCD", {0x80})));
  EXPECT_FALSE(Less(Sn("ABCD", {0x80}), Sn("ABCD", {0x7F})));
  EXPECT_TRUE(Less(Sn("ABC\x7F", {}), Sn("ABC\x80", {})));
  EXPECT_FALSE(Less(Sn("ABC\x80", {}), Sn("ABC\x7F", {})));
}

TEST_F(PhysicalSnTest, ShorterVendorComparesWithItsTerminator) {
  EXPECT_TRUE(Less(Sn("AB", {}), Sn("ABC", {})));
  EXPECT_FALSE(Less(Sn("ABC", {}), Sn("AB", {})));
}

TEST_F(PhysicalSnTest, OnlyTheFirstFourVendorBytesCompare) {
  EXPECT_FALSE(Less(Sn("ABCD1", {}), Sn("ABCD2", {})));
}

TEST_F(PhysicalSnTest, PlaceTakesNoPartInTheComparison) {
  ONU_ABILITY_PHYSICAL_SN a = Sn("ABCD", {1});
  ONU_ABILITY_PHYSICAL_SN b = a;
  a.pon_no = 1;
  a.onu_id = 1;
  EXPECT_FALSE(Less(a, b));
  EXPECT_FALSE(Less(b, a));
}

}  // namespace
