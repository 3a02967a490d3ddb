#include "exhaustion.h"

#include <gtest/gtest.h>

#include <new>
#include <utility>

#include "failing_memory.h"
#include "observed_call.h"
#include "observed_state.h"
#include "short_ways/texts.h"
#include "support/recording_host.h"

namespace {

using failing_memory::From;

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

// Otherwise a child that always crashes would be tried for ever.
constexpr size_t kEnoughFaults = 20;

}  // namespace

Exhaustion RunOutOfMemory(const Operation& operation) {
  const Call call = operation.prepare();
  const Observation before = Observe(call, 0);
  const Observation after = ObserveInChild(call);
  Exhaustion outcome;
  if (after.parts.size() != before.parts.size()) {
    outcome.faults.push_back("with all its memory: " + after.outputs);
    return outcome;
  }
  for (unsigned int k = 1;; k += 1 + REQUESTS_BETWEEN_SHORTAGES) {
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
    if (over || outcome.faults.size() >= kEnoughFaults) {
      return outcome;
    }
    outcome.requests = k;
  }
}
