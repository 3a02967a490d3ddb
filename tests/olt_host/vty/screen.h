// A terminal whose screen a test reads, and commands whose arguments it sees.
#ifndef TESTS_OLT_HOST_VTY_SCREEN_H
#define TESTS_OLT_HOST_VTY_SCREEN_H

#include <deque>
#include <string>
#include <utility>
#include <vector>

#include "vty/execute.h"
#include "vty/matcher.h"
#include "vty/terminal.h"

// A vty that keeps the bytes written to it.
class Screen {
 public:
  explicit Screen(unsigned int node = 26)
      : terminal_(node, [this](const char* bytes, std::size_t length) {
          text_.append(bytes, length);
          return true;
        }) {}

  struct vty& terminal() {
    return terminal_;
  }

  // The bytes since the last Take.
  std::string Take() { return std::exchange(text_, std::string()); }

  // Runs a line as an operator types it behind a prompt; the bytes that answer.
  std::string Type(const std::string& line) {
    last_ = olt_host::ExecuteLine(terminal_, terminal_.node(), line, {true, "olt> "});
    return Take();
  }
  const olt_host::CommandResult& last() const { return last_; }

 private:
  std::string text_;
  struct vty terminal_;
  olt_host::CommandResult last_;
};

// Commands of the test's own, made of their syntax, for matching without a
// handler.
class CommandSet {
 public:
  explicit CommandSet(const std::vector<std::string>& syntaxes) {
    for (const std::string& syntax : syntaxes) {
      texts_.push_back(syntax);
      elements_.push_back(cmd_element{texts_.back().c_str(), nullptr, ""});
      commands_.push_back(olt_host::Command{
          &elements_.back(), olt_host::BuildGrammar(olt_host::ParseSyntax(syntax, ""))});
    }
  }

  olt_host::Match Match(const std::string& line) const {
    return olt_host::MatchWords(commands_, olt_host::LexLine(line).words);
  }

 private:
  std::deque<std::string> texts_;
  std::deque<cmd_element> elements_;
  std::vector<olt_host::Command> commands_;
};

#endif  // TESTS_OLT_HOST_VTY_SCREEN_H
