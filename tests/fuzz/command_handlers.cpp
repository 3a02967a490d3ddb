// The sixteen command handlers over arbitrary argument vectors: fewer and more arguments
// than the syntax promises, null ones, texts of any bytes. Every run of commands is made
// twice, with the library's short ways open and with walks only, and must leave the same
// behind, log lines, locks and memory calls included.
#include <algorithm>
#include <cstring>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "fuzz_target.h"
#include "input_bytes.h"
#include "onu_ability_common_global/short_ways.h"
#include "onu_ability_common_service_cli.h"
#include "short_ways/stage.h"
#include "short_ways/texts.h"
#include "support/catalogue_builder.h"
#include "support/recording_host.h"

namespace {

// An argument of this text alone stands for a null pointer.
constexpr char kNullArgument[] = "\x01";

const std::vector<cmd_element*>& Commands() {
  static const std::vector<cmd_element*> commands = [] {
    RecordingHost& host = RecordingHost::Instance();
    host.elements_.clear();
    onu_ability_service_cbb_cli_init();
    for (const auto& module : host.modules()) module.install();
    std::vector<cmd_element*> installed;
    for (const auto& element : host.elements()) {
      if (std::find(installed.begin(), installed.end(), element.element) == installed.end()) {
        installed.push_back(element.element);
      }
    }
    Hold(installed.size() == 16, "sixteen commands");
    return installed;
  }();
  return commands;
}

// Arguments as a host's framework hands them: each a block of its own, and no more
// pointers than there are arguments.
class ArgumentVector {
 public:
  explicit ArgumentVector(const std::vector<std::string>& arguments)
      : _count(arguments.size()), _pointers(new char*[arguments.size()]) {
    for (std::size_t i = 0; i < _count; ++i) {
      _pointers[i] = arguments[i] == kNullArgument ? nullptr : Copied(arguments[i]);
    }
  }

  int count() const { return static_cast<int>(_count); }
  char** pointers() { return _pointers.get(); }

 private:
  char* Copied(const std::string& argument) {
    _blocks.emplace_back(new char[argument.size() + 1]);
    std::memcpy(_blocks.back().get(), argument.c_str(), argument.size() + 1);
    return _blocks.back().get();
  }

  std::size_t _count;
  std::unique_ptr<char*[]> _pointers;
  std::vector<std::unique_ptr<char[]>> _blocks;
};

struct CommandCall {
  cmd_element* command;
  std::vector<std::string> arguments;
};

// A line a call: a letter for the command, and the arguments behind blanks.
std::vector<CommandCall> TakeCalls(InputBytes& input) {
  std::vector<CommandCall> calls;
  for (const std::string& line : SplitText(input.Rest(), '\n')) {
    if (line.empty()) continue;
    std::vector<std::string> words = SplitText(line.c_str(), ' ');
    const auto letter = static_cast<unsigned char>(line.front());
    words.erase(words.begin());
    calls.push_back({Commands()[letter % Commands().size()], std::move(words)});
  }
  return calls;
}

void HoldResult(const CommandCall& call, unsigned int result) {
  const bool may_refuse = call.command == &cl_apply_add_onutype_capa_table_cmd;
  Hold(result == 0 || (may_refuse && (result == ONU_ABILITY_RET_INVALID_PARAM ||
                                      result == ONU_ABILITY_RET_OPERATE_FAILED)),
       "result " + std::to_string(result) + " of " + call.command->string);
}

void LoadSmallCatalogue() {
  onu_ability_set_log_level_mask(0);
  DefineUsualCodes();
  InitTables();
  AddToTable(MakeRealProfile(5, 857));
  AddToTable(MakeRealProfile(6, 762));
  AddToTable(MakeMatchProfile(5, 857));
}

std::string Run(const std::vector<CommandCall>& calls, unsigned int mask, bool walks_only) {
  Stage stage(walks_only, false);
  LoadSmallCatalogue();
  stage.TakeTrace();
  onu_ability_set_log_level_mask(mask);
  for (const CommandCall& call : calls) {
    stage.Say(call.command->string);
    ArgumentVector arguments(call.arguments);
    const auto result = static_cast<unsigned int>(
        call.command->func(call.command, &stage.terminal, arguments.count(), arguments.pointers()));
    HoldResult(call, result);
    stage.Note("result", result);
  }
  stage.NoteState();
  Hold(RecordingHost::Instance().locks_held() == 0, "a lock is held");
  Hold(RecordingHost::Instance().blocks_in_use() == 0, "a block of the host is still in use");
  return stage.TakeTrace();
}

}  // namespace

// The log mask, then lines.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  InputBytes input(data, size);
  const unsigned int mask = input.Number32();
  const std::vector<CommandCall> calls = TakeCalls(input);
  HoldSame("short ways and walks", Run(calls, mask, true), Run(calls, mask, false));
  Hold(!::testing::Test::HasFailure(), "the host found a fault");
  return 0;
}
