// Errors of lines that asked for JSON: one document and nothing else.
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "vty/json_output.h"
#include "vty/screen.h"

namespace olt_host {
namespace {

using nlohmann::json;
constexpr unsigned int kNode = 14;

int Version(cmd_element*, struct vty* terminal, int argc, char** argv) {
  if (WantsJson(argc, argv)) {
    WriteJson(*terminal, {{"version", 3}});
  } else {
    vty_out(terminal, "version 3\r\n");
  }
  return 0;
}

int NoSuch(cmd_element*, struct vty* terminal, int, char**) {
  return terminal->Refuse("No such \"ONU\"");
}

int Fail(cmd_element*, struct vty*, int, char**) { return 5; }

cmd_element commands[] = {
    {"show version {[json]}*1", Version, ""},
    {"show onu <0-9> {[json]}*1", NoSuch, ""},
    {"show fault {[json]}*1", Fail, ""},
    {"show code <value>", NoSuch, "show\ncode\ncode or name\n"},
    {"set version <1-2>", Fail, ""},
};

class VtyJsonError : public ::testing::Test {
 protected:
  void SetUp() override {
    for (cmd_element& element : commands) install_element(kNode, &element);
  }

  void Expect(const std::string& line, const json& error) {
    for (const bool on_screen : {true, false}) {
      ExecuteLine(screen.terminal(), kNode, line, {on_screen, "line 3: "});
      const std::string text = screen.Take();
      const json document = json::parse(text, nullptr, false);
      ASSERT_FALSE(document.is_discarded()) << line << ": " << text;
      EXPECT_EQ((json{{"error", error}}), document) << line;
    }
  }

  void ExpectText(const std::string& line, const std::string& message) {
    const std::string text = screen.Type(line);
    EXPECT_NE(std::string::npos, text.find("% " + message + "\r\n")) << line << ": " << text;
  }

  Screen screen{kNode};
};

TEST_F(VtyJsonError, CountsTheColumnFromOne) {
  Expect("show frob json",
         {{"message", "Unknown command: expected version, onu, fault, code"}, {"column", 6}});
  Expect("show onu 12 json",
         {{"message", "Number out of range: 12 is not in <0-9>"}, {"column", 10}});
  Expect("show m\xc3\xbc json extra json",
         {{"message", "Unknown command: expected version, onu, fault, code"}, {"column", 6}});
  Expect("show version \xc3\xbc json",
         {{"message", "Unknown command: expected json"}, {"column", 14}});
  Expect("show onu \xc3\xbc \"\xc3\xbc\" json",
         {{"message", "Not a number: \"\xc3\xbc\", expected <0-9>"}, {"column", 10}});
}

TEST_F(VtyJsonError, AHandlersRefusalHasNoColumn) {
  Expect("show onu 3 json", {{"message", "No such \"ONU\""}});
  Expect("sh o 3 j", {{"message", "No such \"ONU\""}});
  Expect("show fault json", {{"message", "Command failed: 0x00000005"}});
}

TEST_F(VtyJsonError, FiltersAreNotPartOfTheQuestion) {
  Expect("show version json | frob",
         {{"message", "Unknown filter: expected include, exclude, begin, section, count, save"},
          {"column", 21}});
  Expect("show frob json | include x",
         {{"message", "Unknown command: expected version, onu, fault, code"}, {"column", 6}});
  Expect("show version json | include \"x", {{"message", "Missing closing quote"}, {"column", 29}});
  Expect("show onu 3 json | include x", {{"message", "No such \"ONU\""}});
  ExpectText("show version | frob json",
             "Unknown filter: expected include, exclude, begin, section, count, save");
}

TEST_F(VtyJsonError, ReadOnlyOperatorsAreToldInJsonToo) {
  screen.terminal().settings().access = Access::kReadOnly;
  Expect("show version json | save x",
         {{"message", "Read-only session: save writes a file"}, {"column", 21}});
}

TEST_F(VtyJsonError, OnlyShowCommandsAreAskedForJson) {
  ExpectText("set version json", "Not a number: \"json\", expected <1-2>");
  ExpectText("json", "Unknown command");
  ExpectText("show frob \"json\"", "Unknown command: expected version, onu, fault, code");
  ExpectText("show frob js", "Unknown command: expected version, onu, fault, code");
}

TEST_F(VtyJsonError, AValueOfThatNameIsNoQuestion) {
  ExpectText("show code json", "No such \"ONU\"");
}

TEST_F(VtyJsonError, BytesThatAreNoTextAreReplaced) {
  Expect("show \xff json",
         {{"message", "Unknown command: expected version, onu, fault, code"}, {"column", 6}});
}

TEST_F(VtyJsonError, TheAnswerIsTheOnlyDocument) {
  EXPECT_EQ(json({{"version", 3}}), json::parse(screen.Type("show version json")));
  EXPECT_EQ("  \"version\": 3\r\n", screen.Type("show version json | include version"));
}

}  // namespace
}  // namespace olt_host
