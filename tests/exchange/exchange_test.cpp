// A serialised profile and a state file that a little-endian machine of 64 bits wrote:
// this machine, whatever it is, writes the same bytes and reads the same values from
// them. So each of two machines reads what the other wrote.
#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <vector>

#include "exchanged_content.h"
#include "platform/variant_bytes.h"
#include "state/library_state.h"
#include "state/state_file.h"

namespace {

std::string Kept(const std::string& name) { return std::string(EXCHANGE_FIXTURES "/") + name; }

std::string Content(const std::string& file) {
  std::ifstream in(file, std::ios::binary);
  EXPECT_TRUE(in.is_open()) << file;
  return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

TEST(Exchange, WritesAProfileAsEveryMachineDoes) {
  exchange::FillRegistries();
  EXPECT_EQ(exchange::ProfileBytes(), Content(Kept("profile.bin")));
}

TEST(Exchange, ReadsAProfileOfAnotherMachine) {
  exchange::FillRegistries();
  const std::string bytes = Content(Kept("profile.bin"));
  Variant variant;
  olt_host::SetVariantBytes(variant, std::vector<unsigned char>(bytes.begin(), bytes.end()));
  OnuAbilityProfile profile;
  profile.UnSerialize(variant);
  EXPECT_TRUE(olt_host::IsReadToEnd(variant));
  EXPECT_TRUE(olt_host::SameProfile(profile, exchange::SerialisedProfile()));
  EXPECT_EQ(profile._id, 0x7A3B);
  EXPECT_EQ(profile._bind_count, 0x01020304U);
  unsigned int number = 0;
  EXPECT_EQ(profile.Get(0x0102, number), 0U);
  EXPECT_EQ(number, 0xA1B2C3D4U);
  std::string text;
  EXPECT_EQ(profile.Get(1083, text), 0U);
  EXPECT_EQ(text, "SDX-611");
}

TEST(Exchange, WritesAStateFileAsEveryMachineDoes) {
  exchange::FillRegistries();
  exchange::FillTables();
  EXPECT_EQ(exchange::StateBytes(), Content(Kept("board.state")));
}

TEST(Exchange, ReadsAStateFileOfAnotherMachine) {
  exchange::FillRegistries();
  exchange::FillTables();
  const olt_host::LibraryState wanted = olt_host::CaptureLibrary();
  std::vector<std::string> remarks;
  const olt_host::LibraryState state = olt_host::ReadStateFile(
      Kept("board.state"), exchange::CatalogueOfTheBoard(), olt_host::LibraryState(), &remarks);
  EXPECT_TRUE(olt_host::SameState(state, wanted));
  EXPECT_EQ(remarks, std::vector<std::string>());
  ASSERT_EQ(state.real_profiles.size(), 3U);
  EXPECT_EQ(state.real_profiles.back() == 0x80000001U, 1U);
}

}  // namespace
