#include "twin_runs.h"

#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <iostream>

#include "support/end_of_child.h"
#include "texts.h"

namespace {

constexpr unsigned int kSecondsOfOneSequence = 240;  // an endless loop is a difference, too

// What the child tells: a kind, a text, and a zero byte. Texts have none, they quote.
enum Kind : char { kSaid = 'h', kStep = 's', kDifference = 'd', kSame = 'e' };

void Tell(int channel, Kind kind, const std::string& text) {
  std::string message = std::string(1, kind) + text;
  message += '\0';
  size_t sent = 0;
  while (sent < message.size()) {
    const ssize_t count = write(channel, message.data() + sent, message.size() - sent);
    if (count <= 0) {
      _exit(2);
    }
    sent += static_cast<size_t>(count);
  }
}

std::vector<std::string> Lines(const std::string& text) {
  std::vector<std::string> lines;
  std::istringstream in(text);
  for (std::string line; std::getline(in, line);) {
    lines.push_back(line);
  }
  return lines;
}

std::string Cut(const std::string& line) {
  return line.size() <= 1200 ? line : line.substr(0, 1200) + "...";
}

// The first line that differs, and the one before it.
std::string Difference(const std::string& short_ways, const std::string& walks) {
  const std::vector<std::string> ones = Lines(short_ways);
  const std::vector<std::string> others = Lines(walks);
  size_t line = 0;
  while (line < ones.size() && line < others.size() && ones[line] == others[line]) {
    ++line;
  }
  return (line == 0 ? "at once" : "after:      " + Cut(ones[line - 1])) +
         "\n    short ways: " + (line < ones.size() ? Cut(ones[line]) : "nothing") +
         "\n    walks:      " + (line < others.size() ? Cut(others[line]) : "nothing");
}

std::string RunStep(const Step& step, Stage& stage) {
  HostileInput random(step.seed, step.drawn);
  step.operation.run(stage, random);
  return stage.TakeTrace();
}

std::vector<std::string> RunOnShortWays(const std::vector<Step>& steps, bool records_handed_out,
                                        int channel) {
  Stage stage(false, records_handed_out);
  stage.listener = [channel](const std::string& text) { Tell(channel, kSaid, text); };
  std::vector<std::string> traces;
  for (const Step& step : steps) {
    Tell(channel, kStep, "");
    traces.push_back(RunStep(step, stage));
  }
  return traces;
}

void RunBoth(const std::vector<Step>& steps, bool records_handed_out, int channel) {
  const std::vector<std::string> traces = RunOnShortWays(steps, records_handed_out, channel);
  Stage stage(true, records_handed_out);
  for (size_t i = 0; i < steps.size(); ++i) {
    const std::string trace = RunStep(steps[i], stage);
    if (trace != traces[i]) {
      Tell(channel, kDifference, std::to_string(i) + " " + Difference(traces[i], trace));
      return;
    }
  }
  if (::testing::Test::HasFailure()) {
    Tell(channel, kDifference, std::to_string(steps.size() - 1) + " the host found a fault");
    return;
  }
  Tell(channel, kSame, "");
}

void Take(const std::string& message, Outcome& outcome) {
  const std::string text = message.substr(1);
  switch (message[0]) {
    case kStep:
      outcome.history.emplace_back();
      return;
    case kSaid:
      outcome.history.back() += (outcome.history.back().empty() ? "" : "\n    ") + Cut(text);
      return;
    case kSame:
      outcome.differs = false;
      return;
    default:
      outcome.step = std::stoul(text);
      outcome.difference = text.substr(text.find(' ') + 1);
      outcome.history.resize(outcome.step + 1);
  }
}

// A sequence that does not end well differs, whatever was told before.
Outcome Listen(int channel) {
  Outcome outcome;
  outcome.differs = true;
  std::string message;
  char bytes[4096];
  ssize_t count = 0;
  while ((count = read(channel, bytes, sizeof(bytes))) > 0) {
    for (ssize_t i = 0; i < count; ++i) {
      if (bytes[i] != '\0') {
        message += bytes[i];
      } else {
        Take(message, outcome);
        message.clear();
      }
    }
  }
  return outcome;
}

}  // namespace

Outcome RunTwice(const std::vector<Step>& steps, bool records_handed_out) {
  int channel[2] = {};
  std::cout.flush();
  std::fflush(nullptr);
  if (pipe(channel) != 0) {
    std::abort();
  }
  const pid_t child = fork();
  if (child == 0) {
    alarm(kSecondsOfOneSequence);
    close(channel[0]);
    RunBoth(steps, records_handed_out, channel[1]);
    std::fflush(nullptr);
    EndChild();
  }
  close(channel[1]);
  Outcome outcome = Listen(channel[0]);
  close(channel[0]);
  int status = 0;
  waitpid(child, &status, 0);
  if (outcome.differs && outcome.difference.empty()) {
    outcome.step = outcome.history.empty() ? 0 : outcome.history.size() - 1;
    outcome.difference = Words("the process ended with status ", status);
  }
  return outcome;
}

Outcome RunTwiceHere(const std::vector<Step>& steps) {
  Outcome outcome;
  std::vector<std::string> traces;
  {
    Stage stage(false, false);
    stage.listener = [&outcome](const std::string& text) { outcome.history.push_back(Cut(text)); };
    for (const Step& step : steps) {
      traces.push_back(RunStep(step, stage));
    }
  }
  Stage stage(true, false);
  for (size_t i = 0; i < steps.size() && !outcome.differs; ++i) {
    const std::string trace = RunStep(steps[i], stage);
    if (trace != traces[i]) {
      outcome.differs = true;
      outcome.step = i;
      outcome.difference = Difference(traces[i], trace);
    }
  }
  if (!outcome.differs && ::testing::Test::HasFailure()) {
    outcome.differs = true;
    outcome.step = steps.size() - 1;
    outcome.difference = "the host found a fault";
  }
  return outcome;
}
