// What operators see of the program, its sessions, and all of it for a report.
#include <gtest/gtest.h>
#include <unistd.h>

#include <chrono>
#include <memory>
#include <regex>
#include <stdexcept>
#include <string>

#include "commands/command_session.h"
#include "commands/host_commands.h"
#include "platform/log_sink.h"
#include "session/command_thread.h"
#include "session/session_server.h"
#include "session/users.h"

namespace olt_host_test {
namespace {

class SystemCommands : public testing::Test {
 protected:
  CommandSession session_{{olt_host::InstallSystemCommands, olt_host::InstallOnuCommands,
                           olt_host::InstallLogCommands, olt_host::InstallAttributeCommands}};
};

TEST_F(SystemCommands, VersionTellsWhatRunsAndOnWhat) {
  olt_host::Host().state_file = "/var/lib/olt_host/state";
  const std::string text = session_.Type("show version");
  ExpectFitsScreen(text);
  EXPECT_TRUE(std::regex_match(text.substr(0, text.find("  Library")),
                               std::regex("  Program     olt_host \\d+\\.\\d+\\.\\d+\r\n")))
      << text;
  // The library's path may be of any length, and is broken where it does not fit.
  const std::string unbroken = std::regex_replace(text, std::regex("\r\n +"), "");
  EXPECT_NE(unbroken.find("libonu_ability_common.so"), std::string::npos) << text;
  EXPECT_NE(text.find("  Process     " + std::to_string(getpid()) + "\r\n"), std::string::npos);
  EXPECT_NE(text.find("  Catalogue   Small test models, version 1\r\n"), std::string::npos);
  EXPECT_NE(text.find("  State file  /var/lib/olt_host/state\r\n"), std::string::npos);
  EXPECT_NE(text.find("  Sessions    0\r\n"), std::string::npos);
}

TEST_F(SystemCommands, VersionTellsHowLongTheHostRuns) {
  using namespace std::chrono_literals;
  const auto up_for = [this](std::chrono::seconds uptime) {
    olt_host::Host().started = std::chrono::system_clock::now() - uptime;
    const std::string text = session_.Type("show version");
    const std::size_t begin = text.find("Up for      ") + 12;
    return text.substr(begin, text.find('\r', begin) - begin);
  };
  // With seconds in them, a slow machine could see the next one.
  EXPECT_EQ(up_for(0s).back(), 's');
  EXPECT_EQ(up_for(61s).substr(0, 4), "1m 0");
  EXPECT_EQ(up_for(5h + 2min + 30s), "5h 02m");
  EXPECT_EQ(up_for(24h * 12 + 3h + 30min), "12d 03h");
  EXPECT_GE(session_.TypeJson("show version json")["uptime_seconds"], (24 * 12 + 3) * 3600);
}

TEST_F(SystemCommands, VersionAsJson) {
  const auto json = session_.TypeJson("show version json");
  EXPECT_EQ(json["program"], "olt_host");
  EXPECT_TRUE(
      std::regex_match(json["version"].get<std::string>(), std::regex("\\d+\\.\\d+\\.\\d+")));
  EXPECT_NE(json["library"].get<std::string>().find("libonu_ability_common.so"), std::string::npos);
  EXPECT_EQ(json["process"], getpid());
  EXPECT_EQ(json["catalogue"].dump(), R"({"name":"Small test models","version":"1"})");
  EXPECT_EQ(json["state_file"], nullptr);
  EXPECT_EQ(json["sessions"], 0);
}

TEST_F(SystemCommands, WhoWithoutSessionsSaysSo) {
  EXPECT_EQ(session_.Type("who"), "No sessions\r\n");
  EXPECT_EQ(session_.TypeJson("who json").dump(), R"({"sessions":[]})");
}

TEST_F(SystemCommands, WhoListsTheSessions) {
  olt_host::CommandThread commands;
  olt_host::SessionServer server(olt_host::kCommandNode, commands, nullptr,
                                 olt_host::SessionLimits());
  auto channel = std::make_shared<olt_host::Channel>();
  ASSERT_TRUE(server.Start(channel, {"anna", "unix", false}));
  olt_host::Host().sessions = &server;
  const std::string text = session_.Type("who");
  const auto json = session_.TypeJson("who json")["sessions"];
  const auto version = session_.TypeJson("show version json");
  olt_host::Host().sessions = nullptr;
  commands.Stop();
  ExpectFitsScreen(text);
  EXPECT_EQ(text.substr(0, text.find("\r\n")),
            "Session  User  From  Access  Since                Idle");
  EXPECT_NE(text.find("\r\n      1  anna  unix  full    20"), std::string::npos) << text;
  ASSERT_EQ(json.size(), 1U);
  EXPECT_EQ(json[0]["session"], 1);
  EXPECT_EQ(json[0]["user"], "anna");
  EXPECT_EQ(json[0]["from"], "unix");
  EXPECT_EQ(json[0]["access"], "full");
  EXPECT_EQ(version["sessions"], 1);
}

TEST_F(SystemCommands, WhoShowsNeitherUserNorAccessBeforeTheLogin) {
  olt_host::CommandThread commands;
  const olt_host::Users users;
  olt_host::SessionServer server(olt_host::kCommandNode, commands, &users,
                                 olt_host::SessionLimits());
  ASSERT_TRUE(server.Start(std::make_shared<olt_host::Channel>(), {"", "127.0.0.1:9", true}));
  olt_host::Host().sessions = &server;
  const std::string text = session_.Type("who");
  const auto json = session_.TypeJson("who json")["sessions"];
  olt_host::Host().sessions = nullptr;
  commands.Stop();
  EXPECT_NE(text.find("\r\n      1  -     127.0.0.1:9  -       20"), std::string::npos) << text;
  ASSERT_EQ(json.size(), 1U);
  EXPECT_EQ(json[0]["user"], nullptr);
  EXPECT_EQ(json[0]["access"], nullptr);
}

TEST_F(SystemCommands, TechSupportHasEveryPartUnderAHeading) {
  session_.Type("confirm all");
  const std::string text = session_.Type("show tech-support");
  for (const char* part :
       {"\r\n------ show version ------", "\r\n------ who ------", "\r\n------ show catalogue ---",
        "\r\n------ process and library ------", "\r\n------ show onu summary ------",
        "\r\n------ show attribute ------", "\r\n------ show log mask ------",
        "\r\n------ show log 200 ------", "\r\n------ show running-config ------"}) {
    EXPECT_NE(text.find(part), std::string::npos) << part << "\n" << text;
  }
  for (const char* line :
       {"  Catalogue   Small test models, version 1\r\n", "No sessions\r\n",
        "  Ability codes       13\r\n", "  Key ability code    1085\r\n",
        "  Common SFU type     800\r\n", "  Common HGU type     700\r\n",
        "  Real profiles       3 shipped, 0 of operators\r\n",
        "  Match profiles      3 shipped, 0 of operators\r\n", "  State file          none\r\n",
        "  ONUs confirmed                           7\r\n"}) {
    EXPECT_NE(text.find(line), std::string::npos) << line << "\n" << text;
  }
}

TEST_F(SystemCommands, TechSupportAsOneDocument) {
  session_.Type("confirm all");
  olt_host::LogHostLine(0, "something worth telling");
  const auto json = session_.TypeJson("show tech-support json");
  EXPECT_EQ(json["version"]["program"], "olt_host");
  EXPECT_EQ(json["sessions"].dump(), "[]");
  EXPECT_NE(json["memory"]["resident"].get<std::string>().find(" kB"), std::string::npos);
  EXPECT_EQ(json["registries"].dump(), R"({"attributes":4,"codes":13})");
  EXPECT_EQ(json["key_ability_code"], 1085);
  EXPECT_EQ(json["common_types"].dump(), R"({"sfu":800,"hgu":700})");
  EXPECT_EQ(json["tables"].dump(),
            R"({"real":{"shipped":3,"operators":0},"match":{"shipped":3,"operators":0}})");
  EXPECT_EQ(json["state"], nullptr);
  EXPECT_EQ(json["onus"]["onus"], 7);
  EXPECT_EQ(json["attributes"].size(), 4U);
  EXPECT_EQ(json["log_mask"]["recent"], "0,13");
  EXPECT_EQ(json["log"].back()["text"], "something worth telling");
}

TEST_F(SystemCommands, TechSupportTellsWhenTheStateWasSaved) {
  const TemporaryDirectory directory;
  olt_host::Host().state_file = directory.Path("state");
  EXPECT_NE(session_.Type("show tech-support").find("state, never saved\r\n"), std::string::npos);
  EXPECT_EQ(session_.TypeJson("show tech-support json")["state"]["saved_at"], nullptr);
  directory.Write("state", "anything");
  EXPECT_NE(session_.Type("show tech-support").find("state, saved 20"), std::string::npos);
  EXPECT_EQ(
      session_.TypeJson("show tech-support json")["state"]["saved_at"].get<std::string>().substr(0,
                                                                                                 2),
      "20");
}

TEST_F(SystemCommands, TechSupportLivesWithAPartThatFails) {
  static cmd_element broken_cmd = {"show running-config {[json]}*1",
                                   [](cmd_element*, struct vty* vty, int, char**) -> int {
                                     vty_out(vty, "the beginning\r\n");
                                     throw std::runtime_error("the end");
                                   },
                                   "\r\n"};
  ASSERT_EQ(install_element(olt_host::kCommandNode, &broken_cmd), 0);
  const std::string text = session_.Type("show tech-support");
  EXPECT_TRUE(session_.last().ok());
  EXPECT_NE(text.find("the beginning\r\n% Command failed: the end\r\n"), std::string::npos) << text;
  const auto json = session_.TypeJson("show tech-support json");
  EXPECT_EQ(json["running_config"].dump(), R"({"error":{"message":"Command failed: the end"}})");
  EXPECT_EQ(json["version"]["program"], "olt_host");
}

TEST_F(SystemCommands, TechSupportLeavesTheOperatorsPendingProfileAlone) {
  session_.Type(
      "add onu_ability_profile key 5 profile_type 1 reporttype 1 realtype 1 vendorid "
      "null onu_type_name null");
  session_.Type("show tech-support");
  EXPECT_NE(session_.Type("apply onu_ability_profile key 5").find("successfully"),
            std::string::npos);
}

TEST_F(SystemCommands, ReadOnlyOperatorsMayLookAtAllOfIt) {
  session_.terminal().settings().access = olt_host::Access::kReadOnly;
  for (const char* line : {"show version", "who", "who json", "show tech-support"}) {
    session_.Type(line);
    EXPECT_TRUE(session_.last().ok()) << line;
  }
}

TEST_F(SystemCommands, MayBeAbbreviated) {
  EXPECT_EQ(session_.Type("wh"), "No sessions\r\n");
  EXPECT_EQ(session_.TypeJson("sh ver j")["program"], "olt_host");
  EXPECT_EQ(session_.TypeJson("sh tech js")["version"]["program"], "olt_host");
}

}  // namespace
}  // namespace olt_host_test
