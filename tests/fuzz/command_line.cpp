// The operator's command line over arbitrary lines: completion, help, checking and, but
// for commands that reach for files, running, on the small catalogue and population. What
// is held of every line:
// - what checking refuses is refused by running it, in the same words, which no terminal
//   is steered by;
// - a command that may not change the library does not, and a read-only operator's never;
// - what asks for JSON gets one document;
// - no handler ends in an exception;
// - what operators made can be written as a state file and comes back from it.
#include <algorithm>
#include <chrono>
#include <memory>
#include <nlohmann/json.hpp>
#include <string>
#include <utility>
#include <vector>

#include "catalogue/report_reader.h"
#include "commands/host_commands.h"
#include "commands/host_context.h"
#include "commands/operator_changes.h"
#include "commands/tried_change.h"
#include "fuzz_target.h"
#include "input_bytes.h"
#include "loaded_host.h"
#include "onu_ability_common_reg_extern_func.h"
#include "onu_ability_common_service_cli.h"
#include "platform/log_sink.h"
#include "state/state_file.h"
#include "state/state_merge.h"
#include "state/stored_state.h"
#include "vty/builtin_commands.h"
#include "vty/command_table.h"
#include "vty/completion.h"
#include "vty/execute.h"
#include "vty/line_help.h"
#include "vty/parsed_line.h"

namespace {

using olt_host::CommandResult;
using olt_host::HostContext;
using olt_host::kCommandNode;
using olt_host::LibraryState;
using olt_host::ParsedLine;

constexpr std::size_t kMostLines = 24;

// Commands that read or write files.
constexpr const char* kFileCommands[] = {"save", "restore", "reload", "capture", "replay"};

void InstallCommands() {
  onu_ability_service_cbb_cli_init();
  for (const auto install : {olt_host::InstallSystemCommands, olt_host::InstallOnuCommands,
                             olt_host::InstallExplainCommands, olt_host::InstallUnknownCommands,
                             olt_host::InstallCaptureCommands, olt_host::InstallCatalogueCommands,
                             olt_host::InstallLintCommands, olt_host::InstallAttributeCommands,
                             olt_host::InstallTypeCommands, olt_host::InstallStatisticsCommands,
                             olt_host::InstallStateCommands, olt_host::InstallLogCommands,
                             olt_host::InstallTryCommands, olt_host::OfferValues}) {
    install();
  }
  olt_host::InstallBuiltinCommands(kCommandNode);
  olt_host::KeepOperatorChanges();
  Hold(olt_host::CommandTable::Instance().refusals().empty(), "every command is installed");
}

// What every input begins with.
struct Beginning {
  Beginning() {
    LoadSmallCatalogue();
    olt_host::RegisterHooks();
    OnuAbilityRegExternFunc* settings = OnuAbilityRegExternFunc::GetInstance();
    settings->SetModuleId(olt_host::kModuleId);
    settings->SetCmdNode(kCommandNode);
    settings->SetSfuCommonType(SmallCatalogue().sfu_common_type);
    settings->SetHguCommonType(SmallCatalogue().hgu_common_type);
    request.shipped = {FixtureFile("small_catalogue.yaml")};
    catalogue = olt_host::ReadCatalogueFiles(request);
    population = std::make_shared<const olt_host::Population>(
        olt_host::ReadReports(FixtureFile("small_reports.yaml"), catalogue.catalogue));
    state = olt_host::CaptureLibrary();
    InstallCommands();
  }

  olt_host::CatalogueRequest request;
  olt_host::LoadedCatalogue catalogue;
  std::shared_ptr<const olt_host::Population> population;
  LibraryState state;
};

// The host as after its start, with a clock on which every line takes half a minute.
void StartOver(const Beginning& beginning) {
  olt_host::InstallLibrary(beginning.state);
  olt_host::SetLogMask(olt_host::kDefaultLogMask);
  olt_host::Host() = HostContext();
  HostContext& host = olt_host::Host();
  host.catalogue_request = beginning.request;
  host.catalogue = beginning.catalogue;
  host.population = beginning.population;
  host.clock = [now = olt_host::UnconfirmedChange::Time()]() mutable {
    return now += std::chrono::seconds(30);
  };
}

bool ReachesForFiles(const ParsedLine& line) {
  const bool saves = std::any_of(line.filters.begin(), line.filters.end(), [](const auto& filter) {
    return filter.kind == olt_host::FilterKind::kSave;
  });
  if (saves || line.match.command == nullptr) return saves;
  const std::string syntax = line.match.command->element->string;
  const std::string first = syntax.substr(0, syntax.find(' '));
  return std::find(std::begin(kFileCommands), std::end(kFileCommands), first) !=
         std::end(kFileCommands);
}

// As a terminal takes it: line breaks, and nothing else that steers it.
void HoldPrintable(const std::string& text, const std::string& line) {
  const auto steers = [](char c) {
    return (static_cast<unsigned char>(c) < ' ' && c != '\r' && c != '\n') || c == '\x7f';
  };
  Hold(std::none_of(text.begin(), text.end(), steers), "a message steers the terminal: " + line);
}

void HoldJson(const std::string& text, const std::string& line) {
  Hold(nlohmann::json::accept(text), "no JSON document after " + line + "\n" + text);
}

// Whether its last message is what an exception said; what a handler returned is a number.
bool TellsOfException(const std::string& output) {
  const std::string message = output.substr(std::min(output.rfind("% "), output.size()));
  return message.rfind("% Command failed: ", 0) == 0 &&
         message.rfind("% Command failed: 0x", 0) != 0;
}

// One operator's session.
class Operator {
 public:
  explicit Operator(olt_host::Access access)
      : _terminal(kCommandNode, [this](const char* bytes, std::size_t length) {
          _output.append(bytes, length);
          return true;
        }) {
    _terminal.settings().access = access;
  }

  bool is_there() const { return _terminal.alive(); }

  void Type(const std::string& line) {
    Ask(line);
    const ParsedLine parsed = olt_host::ParseLine(kCommandNode, line);
    const CommandResult checked = olt_host::CheckLine(_terminal, kCommandNode, line);
    const std::string said = std::exchange(_output, "");
    HoldPrintable(said, line);
    Hold(checked.ok() == said.empty(), "what is refused is told: " + line);
    if (parsed.wants_json && !checked.ok()) HoldJson(said, line);
    if (checked.kind != CommandResult::kDone) {
      BeRefused(line, checked, said);
    } else if (!ReachesForFiles(parsed)) {
      Run(line, parsed);
    }
  }

 private:
  void Ask(const std::string& line) {
    olt_host::Complete(kCommandNode, line);
    std::string error;
    olt_host::RenderHelp(olt_host::HelpFor(kCommandNode, line, &error), 80);
    olt_host::RenderHelp(olt_host::HelpFor(kCommandNode, line, nullptr), 1);
  }

  std::string Execute(const std::string& line, CommandResult& result) {
    result = olt_host::ExecuteLine(_terminal, kCommandNode, line);
    return std::exchange(_output, "");
  }

  void BeRefused(const std::string& line, const CommandResult& checked, const std::string& said) {
    CommandResult result;
    HoldSame("refused in the same words", said, Execute(line, result));
    Hold(result.kind == checked.kind, "checked and run alike: " + line);
  }

  // REQUIRES: checking the line found nothing wrong.
  void Run(const std::string& line, const ParsedLine& parsed) {
    const LibraryState before = olt_host::CaptureLibrary();
    CommandResult result;
    const std::string output = Execute(line, result);
    Hold(result.kind != CommandResult::kFailed || !TellsOfException(output),
         "a handler threw, after " + line + "\n" + output);
    if (parsed.wants_json && parsed.filters.empty()) HoldJson(output, line);
    const bool may_change = olt_host::CommandTable::Instance().MayChange(*parsed.match.command);
    const bool stays = !may_change && !olt_host::Host().unconfirmed.Waits() && !_waited;
    Hold(!stays || olt_host::SameForOperators(before, olt_host::CaptureLibrary()),
         "a command that only looks changed the library: " + line);
    _waited = olt_host::Host().unconfirmed.Waits();
  }

  std::string _output;
  struct vty _terminal;
  bool _waited = false;  // for a change to be confirmed, which goes back by itself
};

void HoldStateFile() {
  const LibraryState state = olt_host::CaptureLibrary();
  const std::string content = olt_host::EncodeState(state, SmallCatalogue());
  std::vector<std::string> remarks;
  const LibraryState read = olt_host::MergeWithCatalogue(olt_host::DecodeStored(content),
                                                         SmallCatalogue(), state, remarks);
  Hold(olt_host::SameForOperators(state, read), "a state file brings back another state");
}

}  // namespace

// A byte for who the operator is, then lines.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const Beginning beginning;
  StartOver(beginning);
  InputBytes input(data, size);
  Operator someone(input.Byte() == 'r' ? olt_host::Access::kReadOnly : olt_host::Access::kFull);
  std::vector<std::string> lines = SplitText(input.Rest(), '\n');
  lines.resize(std::min(lines.size(), kMostLines));
  for (const std::string& line : lines) {
    if (someone.is_there()) someone.Type(line);
  }
  HoldStateFile();
  return 0;
}
