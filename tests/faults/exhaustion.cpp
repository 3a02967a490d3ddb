#include "exhaustion.h"

#include <gtest/gtest.h>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <cstring>
#include <new>
#include <sstream>
#include <utility>

#include "failing_memory.h"
#include "observed_state.h"
#include "short_ways/texts.h"
#include "support/recording_host.h"

namespace {

using failing_memory::From;

// What can be seen once an operation is over.
struct Observation {
  std::vector<StatePart> parts;  // the library's and the object
  std::string outputs;           // and the result
};

Observation Observe(const Call& call, unsigned long long result) {
  Observation seen;
  seen.parts = ObserveState();
  seen.parts.push_back({"its object", call.object ? call.object() : ""});
  seen.outputs = Words("result ", result, " ", call.outputs ? call.outputs() : "");
  return seen;
}

// --- A child process, and the text that it leaves

constexpr size_t kRoom = 1U << 20U;

std::string InChild(const std::function<std::string()>& work) {
  void* shared = mmap(nullptr, kRoom, PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
  if (shared == MAP_FAILED) {
    return "no memory to share";
  }
  auto* text = static_cast<char*>(shared);
  std::fflush(nullptr);
  const pid_t child = fork();
  if (child == 0) {
    alarm(60);  // whatever hangs has lost a lock
    const std::string said = work();
    text[said.copy(text, kRoom - 1)] = '\0';
    _exit(0);
  }
  int status = 0;
  waitpid(child, &status, 0);
  const std::string said = text;
  munmap(shared, kRoom);
  if (WIFSIGNALED(status)) {
    return Words("killed by ", strsignal(WTERMSIG(status)));
  }
  return WEXITSTATUS(status) == 0 ? said : Words("exit status ", WEXITSTATUS(status));
}

// Parts and outputs through a child's text: no text of them has a zero byte, so 1 ends
// each.
std::string Packed(const Observation& seen) {
  std::string text = seen.outputs + '\1';
  for (const StatePart& part : seen.parts) {
    text += part.name + '\1' + part.text + '\1';
  }
  return text;
}

std::string NextText(const std::string& text, size_t& at) {
  const size_t end = text.find('\1', at);
  std::string next = text.substr(at, end - at);
  at = end == std::string::npos ? text.size() : end + 1;
  return next;
}

Observation Unpacked(const std::string& text) {
  Observation seen;
  size_t at = 0;
  seen.outputs = NextText(text, at);
  while (at < text.size()) {
    StatePart part;
    part.name = NextText(text, at);
    part.text = NextText(text, at);
    seen.parts.push_back(part);
  }
  return seen;
}

// --- Differences

std::string Cut(const std::string& text) {
  return text.size() <= 700 ? text : text.substr(0, 700) + "...";
}

// The first line of `now` that is not that of `other`.
std::string Difference(const std::string& now, const std::string& other) {
  std::istringstream lines(now);
  std::istringstream others(other);
  std::string line;
  std::string other_line;
  while (std::getline(lines, line)) {
    if (!std::getline(others, other_line) || line != other_line) {
      return Cut(Words("\"", line, "\", not \"", other_line, "\""));
    }
    other_line.clear();
  }
  return "a line is missing";
}

// --- One failing request

class Trial {
 public:
  Trial(const Operation& operation, const Call& call, const Observation& before,
        const Observation& after)
      : operation_(operation), call_(call), before_(before), after_(after) {}

  // "over" when the operation makes fewer than k requests, "" when all is well, or what
  // is not.
  std::string Run(unsigned int k, From from);

 private:
  bool Attempt(unsigned int k, From from);
  void Rewind();
  void CheckHost();
  void CheckState();
  bool IsAsBefore() const;
  void CheckOutputs();
  void CheckAnswers();
  void CheckAgain();
  void CheckBlocks(unsigned int k, From from);

  const Operation& operation_;
  const Call& call_;
  const Observation& before_;
  const Observation& after_;
  bool thrown_ = false;
  unsigned long long result_ = 0;
  std::string faults_;
};

void Trial::Rewind() {
  if (call_.rewind) {
    call_.rewind();
  }
}

// True when a request failed.
bool Trial::Attempt(unsigned int k, From from) {
  thrown_ = false;
  failing_memory::Fail(k, from);
  try {
    result_ = call_.run();
  } catch (const std::bad_alloc&) {
    thrown_ = true;
  }
  return failing_memory::Recover();
}

void Trial::CheckHost() {
  const RecordingHost& host = RecordingHost::Instance();
  if (host.locks_held() != 0) {
    faults_ += "a lock is held; ";
  }
  if (host.blocks_in_use() != 0) {
    faults_ += "a block of the host is not released; ";
  }
  if (testing::Test::HasFailure()) {
    faults_ += "the host found a fault; ";
  }
}

void Trial::CheckState() {
  const Observation now = Observe(call_, result_);
  bool all_before = true;
  bool all_after = true;
  for (size_t i = 0; i < now.parts.size(); ++i) {
    const bool before = now.parts[i].text == before_.parts[i].text;
    const bool after = now.parts[i].text == after_.parts[i].text;
    all_before = all_before && before;
    all_after = all_after && after;
    if (!before && !after && !(operation_.in_steps && now.parts[i].name == kPending)) {
      faults_ += Words(
          now.parts[i].name, " is between.\n  It is not as before: ",
          Difference(now.parts[i].text, before_.parts[i].text),
          "\n  It is not as after: ", Difference(now.parts[i].text, after_.parts[i].text), "\n");
    }
  }
  if (!thrown_ && !all_after) {
    faults_ += "completed, but the state is not the one after; ";
  }
  if (!all_before && !all_after && !operation_.in_steps && faults_.empty()) {
    faults_ += "one part is as before, another as after; ";
  }
}

bool Trial::IsAsBefore() const {
  const Observation now = Observe(call_, result_);
  for (size_t i = 0; i < now.parts.size(); ++i) {
    if (now.parts[i].text != before_.parts[i].text) {
      return false;
    }
  }
  return true;
}

void Trial::CheckOutputs() {
  const Observation now = Observe(call_, result_);
  if (!thrown_ && now.outputs != after_.outputs) {
    faults_ +=
        Words("completed with other outputs: ", Difference(now.outputs, after_.outputs), "\n");
  }
}

void Trial::CheckAnswers() {
  const Answers answers = AskEverything();
  if (answers.short_ways != answers.walks) {
    faults_ += Words("short ways and walks answer differently: ",
                     Difference(answers.short_ways, answers.walks), "\n");
  }
}

// Without a shortage the operation does what it does.
void Trial::CheckAgain() {
  Rewind();
  const bool undone = IsAsBefore();
  thrown_ = false;
  result_ = call_.run();
  if (undone) {
    CheckState();
    CheckOutputs();
  }
}

// Attempts that change nothing must not use up memory. What the first ones keep for the
// next, such as room, comes to an end.
void Trial::CheckBlocks(unsigned int k, From from) {
  constexpr unsigned int kAttempts = 200;
  long blocks = 0;
  for (unsigned int i = 0; i < kAttempts; ++i) {
    if (!thrown_ || !IsAsBefore()) {
      return;
    }
    Rewind();
    Attempt(k, from);
    RecordingHost::Instance().ForgetLog();
    const long before = std::exchange(blocks, failing_memory::Blocks());
    if (i > 1 && blocks <= before) {
      return;
    }
  }
  faults_ += "attempt after attempt leaves more blocks behind; ";
}

std::string Trial::Run(unsigned int k, From from) {
  if (!Attempt(k, from)) {
    return "over";
  }
  const std::string what = thrown_ ? "threw: " : "completed: ";
  CheckHost();
  CheckState();
  CheckOutputs();
  CheckBlocks(k, from);
  CheckHost();
  CheckAgain();
  CheckAnswers();
  CheckHost();
  return faults_.empty() ? "" : what + faults_;
}

Observation CompletedRun(const Call& call) {
  return Unpacked(InChild([&call] {
    const unsigned long long result = call.run();
    return Packed(Observe(call, result));
  }));
}

}  // namespace

Exhaustion RunOutOfMemory(const Operation& operation) {
  const Call call = operation.prepare();
  const Observation before = Observe(call, 0);
  const Observation after = CompletedRun(call);
  Exhaustion outcome;
  if (after.parts.size() != before.parts.size()) {
    outcome.faults.push_back("with all its memory: " + after.outputs);
    return outcome;
  }
  for (unsigned int k = 1;; ++k) {
    bool over = true;
    for (const From from : {From::kOnce, From::kThenOnAll}) {
      const std::string said =
          InChild([&] { return Trial(operation, call, before, after).Run(k, from); });
      over = over && said == "over";
      if (!said.empty() && said != "over") {
        outcome.faults.push_back(
            Words("request ", k, from == From::kOnce ? "" : " and all after it", " fails; ", said));
      }
    }
    if (over) {
      return outcome;
    }
    outcome.requests = k;
  }
}
