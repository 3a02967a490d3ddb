// The ONUs of one OLT out of a network.
#include "network/olt_reports.h"

#include <gtest/gtest.h>

#include "catalogue/input_error.h"
#include "host_files.h"
#include "recognition/loaded_catalogue.h"

namespace olt_host_test {
namespace {

class OltReportsTest : public testing::Test {
 protected:
  olt_host::Reports Read(const std::string& olt) const {
    return olt_host::ReadReportsOfOlt(Fixture("network.jsonl"), olt, _library.catalogue());
  }
  // What reading OLT "a" out of a file of these lines ends with.
  std::string ErrorOfLines(const std::string& lines) const {
    const std::string file = _directory.Write("n.jsonl", lines);
    return ErrorOf([&] { olt_host::ReadReportsOfOlt(file, "a", _library.catalogue()); },
                   _directory);
  }

  LoadedCatalogue _library;
  TemporaryDirectory _directory;
};

TEST_F(OltReportsTest, AreThoseOfTheOltInTheirOrder) {
  const olt_host::Reports reports = Read("olt-west");
  EXPECT_EQ(reports.name, "olt-west");
  ASSERT_EQ(reports.onus.size(), 5U);
  EXPECT_EQ(reports.onus.front().place, 1U);
  EXPECT_EQ(reports.onus.back().place, 2U);
  EXPECT_EQ(reports.onus.back().position.line, 12U);
}

TEST_F(OltReportsTest, KeepWhatTheirPlacesAreSetTo) {
  EXPECT_EQ(Read("olt-east").settings.at(1).sfu_mode, 1U);
  EXPECT_EQ(Read("olt-north").settings.at(1).hgu_mode, 2U);
}

TEST_F(OltReportsTest, SayThatThereIsNoSuchOlt) {
  EXPECT_EQ(ErrorOfLines("{\"olt\":\"b\",\"place\":1,\"onu\":1,\"reported_type\":1}\n"),
            "n.jsonl: no ONU of an OLT \"a\"; expected --olt with the name of one that reports "
            "there");
}

TEST_F(OltReportsTest, MindNoBrokenLinesOfOthers) {
  const std::string file = _directory.Write(
      "n.jsonl", "{]\n\n{\"olt\":\"a-1\",\"place\":1,\"onu\":1,\"reported_type\":1}\n");
  EXPECT_EQ(olt_host::ReadReportsOfOlt(file, "a-1", _library.catalogue()).onus.size(), 1U);
}

TEST_F(OltReportsTest, FindANameThatIsWrittenOtherwise) {
  const std::string file = _directory.Write(
      "n.jsonl", "{\"olt\":\"a\\u00e9\",\"place\":1,\"onu\":1,\"reported_type\":1}\n");
  EXPECT_EQ(olt_host::ReadReportsOfOlt(file, "a\xC3\xA9", _library.catalogue()).onus.size(), 1U);
  const std::string plain = _directory.Write(
      "p.jsonl", "{\"olt\":\"\\u006flt-1\",\"place\":1,\"onu\":1,\"reported_type\":1}\n");
  EXPECT_EQ(olt_host::ReadReportsOfOlt(plain, "olt-1", _library.catalogue()).onus.size(), 1U);
}

TEST_F(OltReportsTest, RefuseAnOnuThatStandsThereTwice) {
  const std::string line = "{\"olt\":\"a\",\"place\":1,\"onu\":1,\"reported_type\":1}\n";
  EXPECT_EQ(ErrorOfLines(line + line),
            "n.jsonl:2: ONU 1/1 of a already stands in line 1; expected every place and onu of an "
            "OLT once");
}

TEST_F(OltReportsTest, RefuseAPlaceThatIsSetToDifferentModes) {
  EXPECT_EQ(ErrorOfLines("{\"olt\":\"a\",\"place\":1,\"onu\":1,\"reported_type\":1}\n"
                         "{\"olt\":\"a\",\"place\":1,\"onu\":2,\"reported_type\":1,"
                         "\"identify\":{\"sfu_mode\":1}}\n"),
            "n.jsonl:2: place 1 of a is set to other modes than above; expected one identify for a "
            "place");
}

}  // namespace
}  // namespace olt_host_test
