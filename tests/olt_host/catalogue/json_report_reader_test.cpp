// Reports as lines of JSON: what they say, and what they end with when they cannot be used.
#include "catalogue/json_report_reader.h"

#include <gtest/gtest.h>

#include "catalogue/catalogue_reader.h"
#include "host_files.h"

namespace olt_host_test {
namespace {

using olt_host::NetworkReport;

class JsonReportReader : public testing::Test {
 protected:
  JsonReportReader()
      : _catalogue(olt_host::ReadCatalogue(Fixture("small_catalogue.yaml"))), _reader(_catalogue) {}

  NetworkReport Read(const std::string& line) { return _reader.Read(line, {"r.jsonl", 7}); }

  // An ONU with these further entries.
  static std::string Onu(const std::string& entries) {
    return R"({"olt":"a","place":1,"onu":2,"reported_type":3)" +
           std::string(entries.empty() ? "" : ",") + entries + "}";
  }
  NetworkReport ReadOnu(const std::string& entries) { return Read(Onu(entries)); }

  // The message without its place.
  std::string Error(const std::string& line) {
    const std::string message = ErrorOf([&] { Read(line); }, _directory);
    const std::string place = "r.jsonl:7: ";
    return message.substr(0, place.size()) == place ? message.substr(place.size()) : message;
  }
  std::string ErrorOfOnu(const std::string& entries) { return Error(Onu(entries)); }

  TemporaryDirectory _directory;
  olt_host::Catalogue _catalogue;
  olt_host::JsonReportReader _reader;
};

TEST_F(JsonReportReader, EveryEntryOfAnOnu) {
  const NetworkReport read = Read(
      R"({"truth":{"real_type":9,"faults":["case","ones"]},"olt":"olt-0017","place":65535,)"
      R"("onu":255,"serial_number":"S1","vendor_id":"ACME","reported_type":4294967294,)"
      R"("read_abilities":false,"private_capability":"hgu","device_name":"A name of 20 bytes..",)"
      R"("abilities":{"GE_PORTS":16,"24":"any","0x20":0,"60000":4294967295},)"
      R"("identify":{"sfu_mode":1,"setting_1":2,"hgu_mode":3,"setting_3":65535},)"
      R"("expect":{"real_type":12,"how":"abilities","report_type":13,"ambiguous":[5,6]}})");
  EXPECT_EQ(read.olt, "olt-0017");
  EXPECT_EQ(read.settings.sfu_mode, 1);
  EXPECT_EQ(read.settings.setting_1, 2);
  EXPECT_EQ(read.settings.hgu_mode, 3);
  EXPECT_EQ(read.settings.setting_3, 65535);
  const olt_host::OnuReport& onu = read.report;
  EXPECT_EQ(onu.place, 65535);
  EXPECT_EQ(onu.onu, 255);
  EXPECT_EQ(onu.serial_number, "S1");
  EXPECT_EQ(onu.vendor_id, "ACME");
  EXPECT_EQ(onu.reported_type, 4294967294U);
  EXPECT_FALSE(onu.read_abilities);
  EXPECT_EQ(onu.private_capability, 1);
  EXPECT_EQ(onu.device_name, "A name of 20 bytes..");
  EXPECT_EQ(onu.abilities,
            (std::map<std::uint16_t, std::uint32_t>{{32, 0}, {47, 16}, {60000, 0xFFFFFFFF}}));
  EXPECT_EQ(onu.expect->real_type, 12);
  EXPECT_EQ(onu.expect->how, olt_host::Recognition::kAbilities);
  EXPECT_EQ(onu.expect->report_type, 13);
  EXPECT_EQ(onu.expect->ambiguous, (std::vector<std::uint32_t>{5, 6}));
  EXPECT_EQ(onu.truth->real_type, 9);
  EXPECT_EQ(onu.truth->faults, (std::vector<std::string>{"case", "ones"}));
  EXPECT_EQ(olt_host::ToText(onu.position), "r.jsonl:7");
}

TEST_F(JsonReportReader, WhatAnOnuNeedNotState) {
  for (const char* const type : {"\"unknown\"", "null", "4294967295"}) {
    const NetworkReport read =
        Read(R"( {"olt":"a", "place":0, "onu":0, "reported_type": )" + std::string(type) + "}\r");
    EXPECT_EQ(read.settings.sfu_mode, 0);
    EXPECT_EQ(read.settings.setting_1, 0);
    EXPECT_EQ(read.settings.hgu_mode, 0);
    EXPECT_EQ(read.settings.setting_3, 0);
    EXPECT_EQ(read.report.serial_number, "");
    EXPECT_EQ(read.report.vendor_id, std::nullopt);
    EXPECT_EQ(read.report.reported_type, 0xFFFFFFFFU);
    EXPECT_TRUE(read.report.read_abilities);
    EXPECT_EQ(read.report.private_capability, std::nullopt);
    EXPECT_EQ(read.report.device_name, std::nullopt);
    EXPECT_TRUE(read.report.abilities.empty());
    EXPECT_FALSE(read.report.expect);
    EXPECT_FALSE(read.report.truth);
  }
}

TEST_F(JsonReportReader, ALineHasNothingOfTheOneBefore) {
  Read(Onu(R"("vendor_id":"ACME","abilities":{"47":1,"24":"any"},"identify":{"hgu_mode":2})"));
  const NetworkReport read = ReadOnu(R"("abilities":{"24":5})");
  EXPECT_EQ(read.report.vendor_id, std::nullopt);
  EXPECT_EQ(read.settings.hgu_mode, 0);
  EXPECT_EQ(read.report.abilities, (std::map<std::uint16_t, std::uint32_t>{{24, 5}}));
  EXPECT_NE(ErrorOfOnu("\"place\":[[[[[[[[[[1]]"), "no error");
  EXPECT_EQ(ReadOnu("").report.place, 1);
}

TEST_F(JsonReportReader, PrivateCapabilityByWordOrNumber) {
  const auto capability = [this](const std::string& text) {
    return ReadOnu("\"private_capability\":" + text).report.private_capability;
  };
  EXPECT_EQ(capability("\"sfu\""), 0);
  EXPECT_EQ(capability("\"hgu\""), 1);
  EXPECT_EQ(capability("\"unknown\""), 255);
  EXPECT_EQ(capability("7"), 7);
  EXPECT_EQ(ErrorOfOnu("\"private_capability\":256"),
            "private_capability is 256; expected a number from 0 to 255, or sfu, hgu or unknown");
}

TEST_F(JsonReportReader, TextsAreBytes) {
  EXPECT_EQ(ReadOnu("\"vendor_id\":\"\"").report.vendor_id, "");
  EXPECT_EQ(ReadOnu("\"vendor_id\":\"\xFF\x80\xC0\"").report.vendor_id, "\xFF\x80\xC0");
  EXPECT_EQ(ReadOnu(R"("device_name":"\"\\\/\u00e4\uD83D\uDE00")").report.device_name,
            "\"\\/\xC3\xA4\xF0\x9F\x98\x80");
  // What an escape of another character than a half looks like behind a backslash of a text.
  EXPECT_EQ(ReadOnu(R"("device_name":"\\uDC00")").report.device_name, "\\uDC00");
}

TEST_F(JsonReportReader, BytesBehindTheTerminatorOfAText) {
  const olt_host::OnuReport onu =
      ReadOnu(R"("vendor_id":"ZK\u0000\u0001","device_name":"NAME\u0000\u0000\u007f\n")").report;
  EXPECT_EQ(onu.vendor_id, "ZK");
  EXPECT_EQ(onu.behind_vendor_id, "\x01");
  EXPECT_EQ(onu.device_name, "NAME");
  EXPECT_EQ(onu.behind_device_name, std::string("\0\x7F\n", 3));
  EXPECT_EQ(ErrorOfOnu(R"("vendor_id":"ZKWM\u0000")"),
            "vendor_id is \"ZKWM\\x00\"; expected a text of at most 4 bytes without control "
            "characters");
  EXPECT_EQ(ErrorOfOnu(R"("device_name":"A\u0001B\u0000C")"),
            "device_name is \"A\\x01B\\x00C\"; expected a text without control characters, and "
            "bytes behind \"\\u0000\" only");
}

TEST_F(JsonReportReader, TextsTooLongOrWithControlCharacters) {
  EXPECT_EQ(ErrorOfOnu(R"("vendor_id":"ACMEE")"),
            "vendor_id \"ACMEE\" has 5 bytes; expected a text of at most 4 bytes");
  EXPECT_EQ(ErrorOfOnu(R"("device_name":"A name of 21 bytes...")"),
            "device_name \"A name of 21 bytes...\" has 21 bytes; expected a text of at most 20 "
            "bytes");
  EXPECT_EQ(ErrorOfOnu(R"("device_name":"A\tB")"),
            "device_name is \"A\\x09B\"; expected a text of at most 20 bytes without control "
            "characters");
  EXPECT_EQ(ErrorOfOnu("\"serial_number\":\"" + std::string(33, 'x') + "\"").substr(0, 13),
            "serial_number");
  EXPECT_EQ(ErrorOfOnu(R"("vendor_id":4)"), "vendor_id is 4; expected a text of at most 4 bytes");
  EXPECT_EQ(ErrorOfOnu(R"("vendor_id":null)"),
            "vendor_id is empty; expected a text of at most 4 bytes");
  EXPECT_EQ(ErrorOfOnu(R"("truth":{"real_type":1,"faults":["a\n"]})"),
            "a fault is \"a\\x0a\"; expected a text without control characters");
}

TEST_F(JsonReportReader, TheOltHasAName) {
  const std::string rest = R"(,"place":1,"onu":2,"reported_type":3})";
  EXPECT_EQ(Error(R"({"place":1,"onu":2,"reported_type":3})"),
            "an ONU has no \"olt\"; expected a text of 1 to 64 bytes");
  EXPECT_EQ(Error(R"({"olt":"")" + rest), "olt is \"\"; expected a text of 1 to 64 bytes");
  EXPECT_EQ(Error(R"({"olt":7)" + rest), "olt is 7; expected a text of at most 64 bytes");
  const std::string longest(64, 'o');
  EXPECT_EQ(Read("{\"olt\":\"" + longest + "\"" + rest).olt, longest);
  EXPECT_NE(Error("{\"olt\":\"" + longest + "o\"" + rest), "no error");
}

TEST_F(JsonReportReader, KeysThatAreMissingUnknownOrThereTwice) {
  EXPECT_EQ(Error(R"({"olt":"a","onu":2,"reported_type":3})"),
            "an ONU has no \"place\"; expected a number from 0 to 65535");
  EXPECT_EQ(Error(R"({"olt":"a","place":2,"reported_type":3})"),
            "an ONU has no \"onu\"; expected a number from 0 to 255");
  EXPECT_EQ(Error(R"({"olt":"a","place":2,"onu":3})"),
            "an ONU has no \"reported_type\"; expected a number from 0 to 4294967295, or unknown");
  EXPECT_EQ(ErrorOfOnu("\"vendor_ids\":1"),
            "\"vendor_ids\" is not a key of an ONU; expected \"vendor_id\"");
  EXPECT_EQ(ErrorOfOnu("\"colour\":1"),
            "\"colour\" is not a key of an ONU; expected one of olt, place, onu, serial_number, "
            "vendor_id, reported_type, read_abilities, private_capability, device_name, abilities, "
            "identify, expect, truth");
  EXPECT_EQ(ErrorOfOnu("\"onu\":2"), "\"onu\" stands twice in an ONU; expected every key once");
  EXPECT_EQ(ErrorOfOnu(R"("identify":{"sfu_mod":1})"),
            "\"sfu_mod\" is not a key of identify; expected \"sfu_mode\"");
  EXPECT_EQ(ErrorOfOnu(R"("expect":{"how":"type"})"),
            "expect has no \"real_type\"; expected a number from 0 to 65535, or none");
  EXPECT_EQ(ErrorOfOnu(R"("truth":{})"),
            "truth has no \"real_type\"; expected a number from 0 to 65535");
}

TEST_F(JsonReportReader, NumbersOutOfRangeOrNotInPlainDigits) {
  const auto error_of_place = [this](const std::string& number) {
    return Error(R"({"olt":"a","onu":2,"reported_type":3,"place":)" + number + "}");
  };
  for (const char* const number :
       {"65536", "-1", "1.0", "1e3", "4294967296", "18446744073709551616", "true", "1e-999"}) {
    EXPECT_EQ(error_of_place(number),
              "place is " + std::string(number) + "; expected a number from 0 to 65535");
  }
  EXPECT_EQ(error_of_place("\"1\""), "place is \"1\"; expected a number from 0 to 65535");
  EXPECT_EQ(error_of_place("null"), "place is empty; expected a number from 0 to 65535");
  EXPECT_EQ(error_of_place("[1]"), "place is a list; expected a number from 0 to 65535");
  EXPECT_EQ(error_of_place(std::string(100, '9')),
            "place is " + std::string(40, '9') + "...; expected a number from 0 to 65535");
  for (const char* const number :
       {"1e999", "NaN", "Infinity", "-", "01", "+1", "0x10", ".5", "1."}) {
    EXPECT_EQ(error_of_place(number).substr(0, 16), "is broken JSON: ") << number;
  }
  EXPECT_EQ(ErrorOfOnu(R"("expect":{"real_type":65536})"),
            "real_type is 65536; expected a number from 0 to 65535, or none");
  EXPECT_EQ(ErrorOfOnu(R"("identify":{"sfu_mode":65536})"),
            "sfu_mode is 65536; expected a number from 0 to 65535");
}

TEST_F(JsonReportReader, WordsThatAreNoneOfThose) {
  EXPECT_EQ(ErrorOfOnu(R"("read_abilities":"true")"),
            "read_abilities is \"true\"; expected true or false");
  EXPECT_EQ(ErrorOfOnu(R"("expect":{"real_type":1,"how":"luck"})"),
            "how is \"luck\"; expected type, abilities or none");
  EXPECT_EQ(ErrorOfOnu(R"("abilities":{"GE_PORTS":"many"})"),
            "GE_PORTS is \"many\"; expected a number from 0 to 4294967295, or any");
  EXPECT_EQ(ErrorOfOnu(R"("abilities":{"GE_PORTS":null})"),
            "GE_PORTS is empty; expected a number, any (told as unknown) or no entry (not told)");
}

TEST_F(JsonReportReader, ExpectationsThatContradictThemselves) {
  const std::string expected = "; expected none for both or for neither";
  EXPECT_EQ(ErrorOfOnu(R"("expect":{"real_type":"none","how":"type"})"),
            "real_type \"none\" and how \"type\" exclude each other" + expected);
  EXPECT_EQ(ErrorOfOnu(R"("expect":{"real_type":5,"how":"none"})"),
            "real_type 5 and how \"none\" exclude each other" + expected);
  EXPECT_EQ(ErrorOfOnu(R"("expect":{"real_type":5,"ambiguous":[1]})").substr(0, 23),
            "ambiguous names one key");
  EXPECT_EQ(ErrorOfOnu(R"("expect":{"real_type":5,"ambiguous":{}})"),
            "ambiguous is a map; expected a list");
}

TEST_F(JsonReportReader, CodesThatAreUndefinedTextsOrThereTwice) {
  EXPECT_EQ(ErrorOfOnu(R"("abilities":{"GE_PORT":1})"),
            "code GE_PORT is not defined; expected \"GE_PORTS\"");
  EXPECT_EQ(ErrorOfOnu(R"("abilities":{"a\u0000\n":1})"),
            "code \"a\\x00\\x0a\" is not defined; expected a code that is defined under codes");
  EXPECT_EQ(ErrorOfOnu(R"("abilities":{"VENDOR_ID":"ACME"})"),
            "VENDOR_ID holds a text; expected a code that holds a number");
  EXPECT_EQ(ErrorOfOnu(R"("abilities":{"1083":1})"),
            "1083 holds a text; expected a code that holds a number");
  EXPECT_EQ(ErrorOfOnu(R"("abilities":{"65535":1})"),
            "a key of abilities is 65535; expected a number from 0 to 65534");
  EXPECT_EQ(ErrorOfOnu(R"("abilities":{"47":"any","32":1,"GE_PORTS":2})"),
            "code 47 (GE_PORTS) stands twice; expected every code once");
  EXPECT_EQ(ErrorOfOnu(R"("abilities":{"60000":1,"60000":2})"),
            "code 60000 (not defined) stands twice; expected every code once");
  EXPECT_EQ(ErrorOfOnu(R"("abilities":[1])"),
            "abilities is a list; expected a map of codes and values");
}

TEST_F(JsonReportReader, LinesThatAreNoJson) {
  const std::string expected = "; expected one JSON object a line";
  for (const char* const line : {"", " ", "\r"}) EXPECT_EQ(Error(line), "is empty" + expected);
  EXPECT_EQ(Error("\xEF\xBB\xBF" + Onu("")), "begins with a byte order mark" + expected);
  EXPECT_EQ(Error(Onu("") + " {}"),
            "is broken JSON: The document root must not be followed by other values at byte 49" +
                expected);
  EXPECT_EQ(Error(Onu("").substr(0, 40)).substr(0, 16), "is broken JSON: ");
  EXPECT_EQ(Error(R"({"olt":"a)" + std::string("\x01\"}")),
            "is broken JSON: Control character in a text at byte 10" + expected);
  EXPECT_EQ(Error("{\"olt\":\"a" + std::string(1, '\0') + "\"}"),
            "has a zero byte at byte 10; expected \\u0000 in its place");
  EXPECT_EQ(Error(Onu("") + std::string(1, '\0')).substr(0, 15), "has a zero byte");
  EXPECT_EQ(Error("[]"), "an ONU is a list; expected a map");
  EXPECT_EQ(Error("7"), "an ONU is 7; expected a map");
}

TEST_F(JsonReportReader, HalvesOfCharactersAlone) {
  const std::string lone = "has the second half of a \\u pair alone; expected both halves";
  EXPECT_EQ(ErrorOfOnu(R"("vendor_id":"\uDC00")"), lone);
  EXPECT_EQ(ErrorOfOnu(R"("device_name":"\uD83D\uDE00\uDE00")"), lone);
  EXPECT_EQ(ErrorOfOnu(R"("vendor_id":"\udfff")"), lone);
  for (const char* const half : {R"(\uD83D)", R"(\uD83Dx)", R"(\uD83D\n)", R"(\uD83D\u0041)",
                                 R"(\uD83D\uD83D)", R"(\uDG00)", R"(\u12)"}) {
    EXPECT_EQ(ErrorOfOnu("\"device_name\":\"" + std::string(half) + "\"").substr(0, 16),
              "is broken JSON: ")
        << half;
  }
}

TEST_F(JsonReportReader, NestingOfAnyDepthIsRefused) {
  const std::string expected = "is nested more than 8 deep; expected one JSON object a line";
  EXPECT_EQ(Error(std::string(1000000, '[')), expected);
  std::string maps;
  for (int i = 0; i < 100000; ++i) maps += "{\"a\":";
  EXPECT_EQ(Error(maps), expected);
  EXPECT_EQ(ErrorOfOnu("\"place\":[[[[[[[[1]]]]]]]]"), expected);
  EXPECT_EQ(Error(R"({"olt":[[[[[[[1]]]]]]]})"),
            "olt is a list; expected a text of at most 64 bytes");
}

}  // namespace
}  // namespace olt_host_test
