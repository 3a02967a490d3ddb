#include "observed_call.h"

#include <gtest/gtest.h>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <cstring>
#include <sstream>

#include "short_ways/texts.h"
#include "support/end_of_child.h"
#include "support/recording_host.h"

Observation Observe(const Call& call, unsigned long long result) {
  Observation seen;
  seen.parts = ObserveState();
  seen.parts.push_back({"its object", call.object ? call.object() : ""});
  seen.outputs = Words("result ", result, " ", call.outputs ? call.outputs() : "");
  return seen;
}

// --- A child process, and the text that it leaves

namespace {

constexpr size_t kRoom = 1U << 20U;
constexpr int kHostFoundFault = 3;  // exit status

}  // namespace

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
    EndChild(testing::Test::HasFailure() ? kHostFoundFault : 0);
  }
  int status = 0;
  waitpid(child, &status, 0);
  const std::string said = text;
  munmap(shared, kRoom);
  if (WIFSIGNALED(status)) {
    return Words("killed by ", strsignal(WTERMSIG(status)));
  }
  if (WEXITSTATUS(status) == kHostFoundFault) {
    return Words("the host found a fault; ", said);
  }
  return WEXITSTATUS(status) == 0 ? said : Words("exit status ", WEXITSTATUS(status));
}

namespace {

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

}  // namespace

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

std::string Differences(const Observation& now, const Observation& expected) {
  if (now.parts.empty() || now.parts.size() != expected.parts.size()) {
    return Words("with all well: ", expected.outputs, "\nnow: ", now.outputs);
  }
  std::string text;
  for (size_t i = 0; i < now.parts.size(); ++i) {
    if (now.parts[i].text != expected.parts[i].text) {
      text += Words(now.parts[i].name, ": ", Difference(now.parts[i].text, expected.parts[i].text),
                    "\n");
    }
  }
  if (now.outputs != expected.outputs) {
    text += Words("outputs: ", Difference(now.outputs, expected.outputs), "\n");
  }
  return text;
}

Observation ObserveInChild(const Call& call, const std::function<void()>& begin) {
  return Unpacked(InChild([&] {
    if (begin) {
      begin();
    }
    const unsigned long long result = call.run();
    EXPECT_EQ(0U, RecordingHost::Instance().locks_held());
    EXPECT_EQ(0U, RecordingHost::Instance().blocks_in_use());
    return Packed(Observe(call, result));
  }));
}
