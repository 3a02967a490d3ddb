#include "commands/operator_changes.h"

#include <chrono>
#include <filesystem>
#include <memory>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "commands/host_context.h"
#include "commands/trial_output.h"
#include "platform/log_sink.h"
#include "state/catalogue_wholeness.h"
#include "state/state_file.h"
#include "state/state_lock.h"
#include "text/wrapping.h"
#include "vty/execute.h"

namespace olt_host {

namespace {

std::string EncodeNow() { return EncodeState(CaptureLibrary(), Host().catalogue.catalogue); }

// The library keeps one pending profile for the process, made with new when the first
// is started and never freed; here every session owns its own.
void LendPendingProfile(struct vty& terminal) {
  OnuAbilityGlobalVar::GetInstance()->_onu_ability_profile =
      terminal.settings().pending_profile.get();
}

void TakePendingProfile(struct vty& terminal) {
  OnuAbilityProfile*& pending = OnuAbilityGlobalVar::GetInstance()->_onu_ability_profile;
  std::shared_ptr<OnuAbilityProfile>& own = terminal.settings().pending_profile;
  if (pending != own.get()) own.reset(pending);
  pending = nullptr;
}

// What the state file holds, or would hold if nothing changed since the start.
std::string& KeptContent() {
  static std::string content;
  return content;
}

// Whether the command that runs told of a state file that cannot be written.
bool& IsTold() {
  static bool is_told = false;
  return is_told;
}

void Write(std::string content) {
  HoldStateFile(Host().state_file);
  WriteStateFile(Host().state_file, content);
  KeptContent() = std::move(content);
}

// The change itself stays when it cannot be written; the next one tries again.
void KeepChange(struct vty& terminal) {
  // What may go back is not kept: the file stays as it was before it.
  if (Host().state_file.empty() || IsTold() || Host().unconfirmed.Waits()) return;
  try {
    std::string content = EncodeNow();
    if (content == KeptContent()) return;
    RequireWholeCatalogue(Host().catalogue);
    Write(std::move(content));
  } catch (const StateError& error) {
    const std::string message = std::string("The change is not saved: ") + error.what();
    LogHostLine(0, message);
    terminal.Refuse(message);
  }
}

void WarnOfGoingBack(struct vty& terminal) {
  if (!Host().unconfirmed.NoticesChange()) return;
  const std::string note =
      Wrap("", "Note: " + WaitingText() + "; if it goes back, so does this change", 2);
  terminal.Write(note.data(), note.size());
}

void NoteChange(const struct vty& terminal) {
  OperatorNote note;
  note.user = terminal.settings().user;
  note.session = terminal.settings().number;
  note.when = std::chrono::system_clock::now();
  Host().operator_register.Look(note);
}

void NoteRestored() {
  OperatorNote note;
  note.restored = true;
  note.when = std::chrono::system_clock::now();
  Host().operator_register.Look(note);
}

// Throws std::runtime_error, the library as it was.
void Restore(const std::string& file) {
  std::vector<std::string> remarks;
  InstallLibrary(ReadStateFile(file, Host().catalogue.catalogue, CaptureLibrary(), &remarks));
  const std::string before = file + ": ";
  for (const std::string& remark : remarks) LogHostLine(0, before + remark);
  KeptContent() = EncodeNow();
  NoteRestored();
}

// Throws StateError unless the state may be restored from the file, and saved to it.
void TakeStateFile(const std::string& file) {
  HoldStateFile(file);
  try {
    RequireWholeCatalogue(Host().catalogue);
  } catch (const StateError& error) {
    throw StateError(file + ": " + error.what());
  }
}

}  // namespace

void RestoreAtStart() {
  const std::string& file = Host().state_file;
  if (file.empty()) return;
  TakeStateFile(file);
  const std::string backup = BackupOf(file);
  std::error_code ignored;
  const bool has_backup = std::filesystem::exists(backup, ignored);
  if (std::filesystem::symlink_status(file, ignored).type() ==
      std::filesystem::file_type::not_found) {
    if (has_backup) LogHostLine(0, file + ": is missing; what it held before is in " + backup);
    return;
  }
  try {
    Restore(file);
  } catch (const std::runtime_error& error) {
    const std::string hint = has_backup ? "; what it held before is in " + backup : "";
    throw StateError(error.what() + hint);
  }
}

void KeepOperatorChanges() {
  if (!Host().state_file.empty()) KeptContent() = EncodeNow();
  ObserveCommands({[](struct vty& terminal) {
                     IsTold() = false;
                     GoBackWhenDue();
                     LendPendingProfile(terminal);
                   },
                   [](struct vty& terminal, bool may_change) {
                     TakePendingProfile(terminal);
                     Host().statistics.CountCommand(may_change);
                     if (!may_change) return;
                     NoteChange(terminal);
                     WarnOfGoingBack(terminal);
                     KeepChange(terminal);
                   }});
}

std::string EncodeOperatorChanges() {
  if (Host().unconfirmed.Waits()) {
    throw StateError("a change waits to be confirmed; expected \"try commit\" or \"try drop\"");
  }
  RequireWholeCatalogue(Host().catalogue);
  return EncodeNow();
}

void KeepNow(std::string content) {
  IsTold() = true;
  Write(std::move(content));
  IsTold() = false;
}

}  // namespace olt_host
