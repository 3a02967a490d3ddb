// The program's command line: which job to do, on which files, how to show it.
#ifndef OLT_HOST_COMMAND_LINE_H
#define OLT_HOST_COMMAND_LINE_H

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "catalogue/catalogue_files.h"
#include "confirmation/result_writer.h"
#include "network/shard.h"
#include "platform/log_sink.h"
#include "session/session_server.h"
#include "vty/session_settings.h"

namespace olt_host {

enum class Job {
  kConfirm,
  kConsole,
  kServe,
  kRun,
  kAttach,
  kPassword,
  kExplain,
  kUnknown,
  kCapture,
  kReplay,
  kTypes,
  kCompare,
  kLint,
  kDiff,
  kGenerate,
  kMerge
};

// What `console` and `serve` let operators in by.
struct ServingOptions {
  std::string socket;     // path; empty for none
  std::string listen;     // [HOST:]PORT; empty for none
  std::string passwords;  // file; empty for none
  std::string metrics;    // path; empty for none
  SessionLimits limits;
};

// What `types` and `compare` ask.
struct TypesOptions {
  std::string where;  // empty: all types
  std::string a;      // of compare
  std::string b;
  bool json = false;
};

// What `explain` explains.
struct ExplainOptions {
  std::uint16_t place = 0;
  std::uint8_t onu = 0;
  bool all = false;  // every profile
  bool json = false;
};

// How `unknown` shows what it finds.
struct UnknownOptions {
  bool all = false;      // every group
  bool entries = false;  // nothing but the entries
  bool json = false;
};

// What `capture` takes down, and where.
struct CaptureOptions {
  bool one_onu = false;  // else all
  std::uint16_t place = 0;
  std::uint8_t onu = 0;
  std::string file;
  bool replace = false;
};

// What `replay` confirms.
struct ReplayOptions {
  std::vector<std::string> reports;
  bool json = false;
};

// How `lint` shows what it finds.
struct LintOptions {
  bool all = false;  // notes one by one
  bool json = false;
};

// What `diff` compares.
struct DiffOptions {
  std::string older;  // catalogues: files or folders
  std::string newer;
  std::vector<std::string> reports;
  bool json = false;
};

struct GenerateOptions {
  std::vector<std::string> models;  // as types are called; empty: all
  std::uint64_t onus = 0;
  std::uint32_t olts = 0;  // 0: none, unless the output is of JSON lines
  std::uint64_t seed = 1;
  std::string faults;  // KIND=PERCENT,...
  bool again = false;
  std::string output;  // file; empty: standard output, also when "-" is given
};

// How whole networks are gone through.
struct NetworkOptions {
  Shard shard;
  unsigned int workers = 0;            // 0: one a core
  std::string checkpoint;              // path; empty for none
  std::vector<std::string> summaries;  // of merge
  bool json = false;                   // of merge
};

struct CommandLine {
  Job job = Job::kConfirm;

  // Of every job that loads a catalogue.
  CatalogueRequest catalogue;
  std::string reports;     // may be empty but for confirm
  std::string olt;         // whose reports, of JSON lines
  std::string state_file;  // empty: nothing is kept
  LogSettings log;

  // Of confirm.
  OutputFormat format = OutputFormat::kTable;
  bool summary_only = false;

  // Of run.
  std::vector<std::string> commands;
  std::vector<std::string> command_files;  // "-" is standard input
  bool check_only = false;

  ServingOptions serving;     // of console and serve
  std::string attach_socket;  // of attach

  GenerateOptions generate;
  TypesOptions types;  // of types and compare

  ExplainOptions explain;

  UnknownOptions unknown;

  CaptureOptions capture;
  ReplayOptions replay;

  LintOptions lint;

  DiffOptions diff;  // of diff

  NetworkOptions network;  // of confirm, diff, generate and merge

  // Of password.
  std::string user;
  Access access = Access::kFull;
};

// What the arguments ask for, or the status with which to exit at once, the help,
// version or usage message having been written.
struct ParsedCommandLine {
  std::optional<CommandLine> command_line;
  int exit_status = 0;
};

ParsedCommandLine ParseCommandLine(int argc, const char* const* argv);

}  // namespace olt_host

#endif  // OLT_HOST_COMMAND_LINE_H
