// The commands about the program itself and its operators.
#include <dlfcn.h>
#include <unistd.h>

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <string>

#include "commands/host_commands.h"
#include "commands/host_context.h"
#include "commands/tech_support.h"
#include "commands/text_table.h"
#include "commands/time_text.h"
#include "onu_ability_common_service_cinterface.h"
#include "vty/command_table.h"
#include "vty/json_output.h"
#include "vty/terminal.h"

namespace olt_host {

namespace {

using Json = nlohmann::ordered_json;
using Clock = std::chrono::system_clock;

std::string Compiler() {
#if defined(__clang__)
  return "clang " __clang_version__;
#else
  return "gcc " __VERSION__;
#endif
}

std::string Build() {
#if defined(__OPTIMIZE__)
  std::string text = "optimised";
#else
  std::string text = "not optimised";
#endif
#if defined(NDEBUG)
  return text + ", without assertions";
#else
  return text + ", with assertions";
#endif
}

// The file that the library was loaded from, without symbolic links.
std::string LibraryFile() {
  Dl_info info = {};
  const auto symbol = reinterpret_cast<void*>(onu_ability_get_module_id);
  if (dladdr(symbol, &info) == 0 || info.dli_fname == nullptr) {
    return "unknown";
  }
  std::error_code error;
  const std::filesystem::path file = std::filesystem::canonical(info.dli_fname, error);
  return error ? info.dli_fname : file.string();
}

std::chrono::seconds Uptime() {
  return std::chrono::duration_cast<std::chrono::seconds>(Clock::now() - Host().started);
}

std::vector<SessionInfo> Sessions() {
  return Host().sessions == nullptr ? std::vector<SessionInfo>() : Host().sessions->Sessions();
}

Json VersionJson() {
  const Catalogue& catalogue = Host().catalogue.catalogue;
  return {{"program", "olt_host"},
          {"version", OLT_HOST_VERSION},
          {"library", LibraryFile()},
          {"compiler", Compiler()},
          {"build", Build()},
          {"started_at", UtcTimeText(Host().started)},
          {"uptime_seconds", Uptime().count()},
          {"process", getpid()},
          {"catalogue", {{"name", catalogue.name}, {"version", catalogue.version}}},
          {"state_file", Host().state_file.empty() ? Json(nullptr) : Json(Host().state_file)},
          {"sessions", Sessions().size()}};
}

int ShowVersion(cmd_element* /*element*/, struct vty* vty, int argc, char** argv) {
  if (WantsJson(argc, argv)) {
    WriteJson(*vty, VersionJson());
    return 0;
  }
  const Catalogue& catalogue = Host().catalogue.catalogue;
  WritePairs(*vty,
             {{"Program", "olt_host " OLT_HOST_VERSION},
              {"Library", LibraryFile()},
              {"Compiler", Compiler()},
              {"Build", Build()},
              {"Process", std::to_string(getpid())},
              {"Started", LocalTimeText(Host().started)},
              {"Up for", DurationText(Uptime())},
              {"Catalogue",
               catalogue.name.empty() ? "none" : NameAndVersion(catalogue.name, catalogue.version)},
              {"State file", Host().state_file.empty() ? "none" : Host().state_file},
              {"Sessions", std::to_string(Sessions().size())}});
  return 0;
}

// Empty before the login.
std::string AccessText(const SessionInfo& session) {
  if (!session.logged_in) return "";
  return session.access == Access::kFull ? "full" : "read-only";
}

std::string OrDash(const std::string& text) { return text.empty() ? "-" : text; }

Json OrNull(const std::string& text) { return text.empty() ? Json(nullptr) : Json(text); }

Json SessionJson(const SessionInfo& session) {
  return {{"session", session.number},
          {"user", OrNull(session.user)},
          {"from", session.origin},
          {"access", OrNull(AccessText(session))},
          {"since", UtcTimeText(session.since)},
          {"idle_seconds", session.idle.count()}};
}

int ShowSessions(cmd_element* /*element*/, struct vty* vty, int argc, char** argv) {
  const std::vector<SessionInfo> sessions = Sessions();
  if (WantsJson(argc, argv)) {
    Json list = Json::array();
    for (const SessionInfo& session : sessions) {
      list.push_back(SessionJson(session));
    }
    WriteJson(*vty, {{"sessions", list}});
    return 0;
  }
  if (sessions.empty()) {
    vty_out(vty, "No sessions\r\n");
    return 0;
  }
  TextTable table({{"Session", Align::kRight},
                   {"User", Align::kLeft},
                   {"From", Align::kLeft},
                   {"Access", Align::kLeft},
                   {"Since", Align::kLeft},
                   {"Idle", Align::kRight}});
  for (const SessionInfo& session : sessions) {
    table.Add({std::to_string(session.number), OrDash(session.user), session.origin,
               OrDash(AccessText(session)), LocalTimeText(session.since),
               DurationText(session.idle)});
  }
  table.Write(*vty);
  return 0;
}

cmd_element version_cmd = {"show version {[json]}*1", ShowVersion,
                           "show what the host holds\r\n"
                           "the program, how long it runs, what it runs on\r\n"
                           "as a JSON document\r\n"};

cmd_element tech_support_cmd = {"show tech-support {[json]}*1", ShowTechSupport,
                                "show what the host holds\r\n"
                                "everything that a report of a fault needs\r\n"
                                "as a JSON document\r\n"};

cmd_element who_cmd = {"who {[json]}*1", ShowSessions,
                       "the operators' sessions\r\n"
                       "as a JSON document\r\n"};

}  // namespace

void InstallSystemCommands() {
  for (cmd_element* command : {&version_cmd, &tech_support_cmd, &who_cmd}) {
    install_element(kCommandNode, command);
  }
  CommandTable::Instance().AllowReadOnly(&who_cmd);
}

}  // namespace olt_host
