// A host inside the test: the small fixture loaded into a clean library, commands
// installed, and an operator who types lines and reads what they answer.
#ifndef TESTS_OLT_HOST_COMMANDS_COMMAND_SESSION_H
#define TESTS_OLT_HOST_COMMANDS_COMMAND_SESSION_H

#include <gtest/gtest.h>

#include <memory>
#include <nlohmann/json.hpp>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "catalogue/catalogue_files.h"
#include "catalogue/catalogue_loader.h"
#include "catalogue/report_reader.h"
#include "commands/host_context.h"
#include "confirmation/hooks.h"
#include "host_files.h"
#include "onu_ability_common_reg_extern_func.h"
#include "onu_ability_common_service_cli.h"
#include "text/columns.h"
#include "vty/command_table.h"
#include "vty/execute.h"
#include "vty/terminal.h"

namespace olt_host_test {

class CommandSession {
 public:
  using Json = nlohmann::ordered_json;
  using Install = void (*)();

  // The library's sixteen commands are always there; `installs` are functions such
  // as InstallOnuCommands. Host() is filled as at the program's start, and empty
  // again afterwards.
  explicit CommandSession(const std::vector<Install>& installs,
                          const std::string& catalogue = Fixture("small_catalogue.yaml"),
                          const std::string& reports = Fixture("small_reports.yaml"))
      : _terminal(olt_host::kCommandNode, [this](const char* bytes, std::size_t length) {
          _output.append(bytes, length);
          return true;
        }) {
    olt_host::HostContext& host = olt_host::Host();
    host = olt_host::HostContext();
    host.catalogue_request.shipped = {catalogue};
    host.catalogue = olt_host::ReadCatalogueFiles(host.catalogue_request);
    if (!reports.empty()) {
      host.population = std::make_shared<const olt_host::Population>(
          olt_host::ReadReports(reports, host.catalogue.catalogue));
    }
    StartLibrary();
    InstallOnce(InstallLibraryCommands);
    for (const Install install : installs) InstallOnce(install);
  }
  ~CommandSession() { olt_host::Host() = olt_host::HostContext(); }
  CommandSession(const CommandSession&) = delete;
  CommandSession& operator=(const CommandSession&) = delete;

  struct vty& terminal() {
    return _terminal;
  }

  // Runs a line and returns everything that it wrote.
  std::string Type(const std::string& line) {
    _output.clear();
    _last = olt_host::ExecuteLine(_terminal, olt_host::kCommandNode, line);
    return std::exchange(_output, std::string());
  }

  // The same for a line whose answer is one JSON document.
  Json TypeJson(const std::string& line) {
    const std::string text = Type(line);
    Json document = Json::parse(text, nullptr, false);
    EXPECT_FALSE(document.is_discarded()) << text;
    return document;
  }

  // The message of a line that is refused or fails, without "% ".
  std::string Refusal(const std::string& line) {
    const std::string text = Type(line);
    EXPECT_FALSE(_last.ok()) << text;
    const std::size_t message = text.rfind("% ");
    if (message == std::string::npos) return "no message: " + text;
    return text.substr(message + 2, text.find('\r', message) - message - 2);
  }

  // Of the last line.
  const olt_host::CommandResult& last() const { return _last; }

 private:
  static void StartLibrary() {
    const olt_host::Catalogue& catalogue = olt_host::Host().catalogue.catalogue;
    olt_host::RegisterHooks();
    OnuAbilityRegExternFunc* settings = OnuAbilityRegExternFunc::GetInstance();
    settings->SetModuleId(olt_host::kModuleId);
    settings->SetCmdNode(olt_host::kCommandNode);
    settings->SetSfuCommonType(catalogue.sfu_common_type);
    settings->SetHguCommonType(catalogue.hgu_common_type);
    olt_host::LoadCatalogue(catalogue);
  }

  static void InstallLibraryCommands() { onu_ability_service_cbb_cli_init(); }

  // The table of commands is the process's, so several tests in one share it.
  static void InstallOnce(Install install) {
    static std::set<Install> installed;
    if (!installed.insert(install).second) return;
    install();
    EXPECT_EQ(olt_host::CommandTable::Instance().refusals(), std::vector<std::string>());
  }

  CleanLibrary _library;
  std::string _output;
  struct vty _terminal;
  olt_host::CommandResult _last;
};

// Each line ends in "\r\n" and fits a terminal of 80 columns.
inline void ExpectFitsScreen(const std::string& text) {
  std::size_t start = 0;
  while (start < text.size()) {
    const std::size_t end = text.find("\r\n", start);
    ASSERT_NE(end, std::string::npos) << text.substr(start);
    EXPECT_LE(olt_host::DisplayWidth(text.substr(start, end - start)), 80U)
        << text.substr(start, end - start);
    EXPECT_EQ(text.substr(start, end - start).find_first_of("\r\n"), std::string::npos);
    start = end + 2;
  }
}

}  // namespace olt_host_test

#endif  // TESTS_OLT_HOST_COMMANDS_COMMAND_SESSION_H
