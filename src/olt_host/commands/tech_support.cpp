#include "commands/tech_support.h"

#include <chrono>
#include <exception>
#include <filesystem>
#include <fstream>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "catalogue/registries.h"
#include "commands/host_context.h"
#include "commands/text_table.h"
#include "commands/time_text.h"
#include "onu_ability_common_table.h"
#include "vty/command_table.h"
#include "vty/json_output.h"
#include "vty/lexer.h"
#include "vty/terminal.h"

namespace olt_host {

namespace {

using Json = nlohmann::ordered_json;

// A part that another command answers, by a line without the word json.
struct Part {
  const char* member;  // of the document
  const char* line;
};

constexpr Part kFirstParts[] = {
    {"version", "show version"},
    {"sessions", "who"},
    {"catalogue", "show catalogue"},
};
constexpr Part kLastParts[] = {
    {"onus", "show onu summary"},
    {"attributes", "show attribute"},
    {"log_mask", "show log mask"},
    {"log", "show log 200"},
    {"running_config", "show running-config"},
};

struct Answer {
  std::string output;
  std::string error;  // why there is no more of it; empty when there is none
};

// What the command of this line writes. Its handler is called as it is: to those who
// observe commands, showing this is one command. A part that fails leaves the others
// whole.
Answer AnswerOf(const std::string& line) {
  Answer answer;
  struct vty terminal(kCommandNode, [&answer](const char* bytes, std::size_t length) {
    answer.output.append(bytes, length);
    return true;
  });
  Match match = MatchWords(CommandTable::Instance().Commands(kCommandNode), LexLine(line).words);
  if (match.outcome != MatchOutcome::kMatched) {
    answer.error = "No such command";
    return answer;
  }
  std::vector<char*> argv;
  for (std::string& argument : match.arguments) {
    argv.push_back(argument.data());
  }
  argv.push_back(nullptr);
  try {
    match.command->element->func(match.command->element, &terminal,
                                 static_cast<int>(match.arguments.size()), argv.data());
    answer.error = terminal.TakeRefusal();
  } catch (const std::exception& failure) {
    answer.error = std::string("Command failed: ") + failure.what();
  }
  return answer;
}

// A line of /proc/self/status, such as "VmRSS:     12345 kB", without its name.
std::string StatusOfProcess(const std::string& name) {
  std::ifstream status("/proc/self/status");
  for (std::string line; std::getline(status, line);) {
    if (line.compare(0, name.size() + 1, name + ":") == 0) {
      const std::size_t value = line.find_first_not_of(" \t", name.size() + 1);
      return value == std::string::npos ? "" : line.substr(value);
    }
  }
  return "unknown";
}

struct TableSize {
  std::size_t shipped = 0;
  std::size_t of_operators = 0;
};

TableSize SizeOf(ONU_ABILITY_ENUM_PROFILE_TYPE type) {
  const auto count = [type](ONU_ABILITY_ENUM_PROFILE_SOURCE source) {
    std::vector<OnuAbilityProfile> profiles;
    OnuAbilityTableManager::GetInstance()->GetAll(type, source, profiles);
    return profiles.size();
  };
  return {count(ONU_ABILITY_PROFILE_SOURCE_DEFAULT), count(ONU_ABILITY_PROFILE_SOURCE_EXTERNAL)};
}

// When the state file was last written; nothing when there is none.
std::optional<std::chrono::system_clock::time_point> LastSave() {
  std::error_code error;
  const auto written = std::filesystem::last_write_time(Host().state_file, error);
  if (error) {
    return std::nullopt;
  }
  // The clocks of files and of the system have different beginnings.
  const auto age = std::filesystem::file_time_type::clock::now() - written;
  return std::chrono::system_clock::now() -
         std::chrono::duration_cast<std::chrono::system_clock::duration>(age);
}

std::string StateText() {
  if (Host().state_file.empty()) {
    return "none";
  }
  const auto saved = LastSave();
  return Host().state_file + (saved ? ", saved " + LocalTimeText(*saved) : ", never saved");
}

std::string SizeText(const TableSize& size) {
  return std::to_string(size.shipped) + " shipped, " + std::to_string(size.of_operators) +
         " of operators";
}

void WriteFacts(struct vty& terminal) {
  const OnuAbilityGlobalVar* types = OnuAbilityGlobalVar::GetInstance();
  OnuAbilityCodeInfo* codes = OnuAbilityCodeInfo::GetInstance();
  WritePairs(terminal, {{"Memory in use", StatusOfProcess("VmRSS")},
                        {"Most memory in use", StatusOfProcess("VmHWM")},
                        {"Threads", StatusOfProcess("Threads")},
                        {"State file", StateText()},
                        {"Attributes", std::to_string(RegisteredAttributes().size())},
                        {"Ability codes", std::to_string(RegisteredCodes().size())},
                        {"Key ability code", std::to_string(codes->GetKeyAbilityCode())},
                        {"Common SFU type", std::to_string(types->_sfu_common_type)},
                        {"Common HGU type", std::to_string(types->_hgu_common_type)},
                        {"Real profiles", SizeText(SizeOf(ONU_ABILITY_PROFILE_TYPE_REAL))},
                        {"Match profiles", SizeText(SizeOf(ONU_ABILITY_PROFILE_TYPE_MATCH))}});
}

Json SizeJson(const TableSize& size) {
  return {{"shipped", size.shipped}, {"operators", size.of_operators}};
}

Json StateJson() {
  if (Host().state_file.empty()) {
    return nullptr;
  }
  const auto saved = LastSave();
  return {{"file", Host().state_file},
          {"saved_at", saved ? Json(UtcTimeText(*saved)) : Json(nullptr)}};
}

void AddFacts(Json& document) {
  const OnuAbilityGlobalVar* types = OnuAbilityGlobalVar::GetInstance();
  OnuAbilityCodeInfo* codes = OnuAbilityCodeInfo::GetInstance();
  document["memory"] = {{"resident", StatusOfProcess("VmRSS")},
                        {"most_resident", StatusOfProcess("VmHWM")},
                        {"threads", StatusOfProcess("Threads")}};
  document["state"] = StateJson();
  document["registries"] = {{"attributes", RegisteredAttributes().size()},
                            {"codes", RegisteredCodes().size()}};
  document["key_ability_code"] = codes->GetKeyAbilityCode();
  document["common_types"] = {{"sfu", types->_sfu_common_type}, {"hgu", types->_hgu_common_type}};
  document["tables"] = {{"real", SizeJson(SizeOf(ONU_ABILITY_PROFILE_TYPE_REAL))},
                        {"match", SizeJson(SizeOf(ONU_ABILITY_PROFILE_TYPE_MATCH))}};
}

// The document of a part. Some wrap a list or more in a member of the same name,
// which need not stand there twice.
Json DocumentOf(const Part& part) {
  const Answer answer = AnswerOf(std::string(part.line) + " json");
  const Json document = Json::parse(answer.output, nullptr, false);
  if (!answer.error.empty() || document.is_discarded()) {
    return {{"error", {{"message", answer.error}}}};
  }
  const bool wraps = document.is_object() && document.size() == 1 && document.contains(part.member);
  return wraps ? document[part.member] : document;
}

void WriteHeading(struct vty& terminal, const std::string& text) {
  const std::string rule = "------ " + text + " ";
  WriteLines(terminal,
             "\n" + rule + std::string(rule.size() < 60 ? 60 - rule.size() : 0, '-') + "\n");
}

template <std::size_t kCount>
void WriteParts(struct vty& terminal, const Part (&parts)[kCount]) {
  for (const Part& part : parts) {
    const Answer answer = AnswerOf(part.line);
    WriteHeading(terminal, part.line);
    terminal.Write(answer.output.data(), answer.output.size());
    if (!answer.error.empty()) {
      WriteLines(terminal, "% " + answer.error + "\n");
    }
  }
}

}  // namespace

int ShowTechSupport(cmd_element* /*element*/, struct vty* vty, int argc, char** argv) {
  if (!WantsJson(argc, argv)) {
    vty_out(vty, "olt_host " OLT_HOST_VERSION ", %s\r\n",
            LocalTimeText(std::chrono::system_clock::now()).c_str());
    WriteParts(*vty, kFirstParts);
    WriteHeading(*vty, "process and library");
    WriteFacts(*vty);
    WriteParts(*vty, kLastParts);
    return 0;
  }
  Json document = {{"time", UtcTimeText(std::chrono::system_clock::now())}};
  for (const Part& part : kFirstParts) {
    document[part.member] = DocumentOf(part);
  }
  AddFacts(document);
  for (const Part& part : kLastParts) {
    document[part.member] = DocumentOf(part);
  }
  WriteJson(*vty, document);
  return 0;
}

}  // namespace olt_host
