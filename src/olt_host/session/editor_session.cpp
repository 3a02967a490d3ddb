#include "session/editor_session.h"

#include <histedit.h>

#include <cerrno>
#include <clocale>
#include <csignal>
#include <cstdio>
#include <memory>
#include <string>

#include "session/line_session.h"
#include "vty/completion.h"
#include "vty/execute.h"

namespace olt_host {
namespace {

char prompt_text[] = "olt> ";
constexpr int kLinesRemembered = 500;

char* Prompt(EditLine*) { return prompt_text; }

// Lets Ctrl-C interrupt the reading of a line instead of ending the process.
class InterruptGuard {
 public:
  InterruptGuard() {
    struct sigaction action = {};
    action.sa_handler = [](int) { _interrupted = 1; };
    sigemptyset(&action.sa_mask);
    sigaction(SIGINT, &action, &_before);
  }
  ~InterruptGuard() { sigaction(SIGINT, &_before, nullptr); }
  InterruptGuard(const InterruptGuard&) = delete;
  InterruptGuard& operator=(const InterruptGuard&) = delete;

  // Whether Ctrl-C was pressed since the last call.
  static bool Take() {
    const bool taken = _interrupted != 0;
    _interrupted = 0;
    return taken;
  }

 private:
  static inline volatile std::sig_atomic_t _interrupted = 0;
  struct sigaction _before = {};
};

// The editor's answer to TAB.
unsigned char CompleteWord(EditLine* editor, int) {
  const struct vty* terminal = nullptr;
  el_get(editor, EL_CLIENTDATA, &terminal);
  const LineInfo* const info = el_line(editor);
  const Completion completion = Complete(terminal->node(), std::string(info->buffer, info->cursor));
  if (!completion.insert.empty()) {
    return el_insertstr(editor, completion.insert.c_str()) == 0 ? CC_REFRESH : CC_REFRESH_BEEP;
  }
  if (completion.candidates.empty()) return CC_REFRESH_BEEP;
  std::fputs("\n", stdout);
  for (const std::string& candidate : completion.candidates) {
    std::fprintf(stdout, "  %s\n", candidate.c_str());
  }
  return CC_REDISPLAY;
}

class Editor {
 public:
  explicit Editor(struct vty& terminal)
      : _history(history_init(), history_end),
        _editor(el_init("olt_host", stdin, stdout, stderr), el_end) {
    if (_editor == nullptr || _history == nullptr) return;
    HistEvent event;
    history(_history.get(), &event, H_SETSIZE, kLinesRemembered);
    history(_history.get(), &event, H_SETUNIQUE, 1);
    el_set(_editor.get(), EL_CLIENTDATA, &terminal);
    el_set(_editor.get(), EL_PROMPT, Prompt);
    el_set(_editor.get(), EL_EDITOR, "emacs");
    el_set(_editor.get(), EL_HIST, history, _history.get());
    el_set(_editor.get(), EL_ADDFN, "complete-word", "complete the keyword", CompleteWord);
    el_set(_editor.get(), EL_BIND, "^I", "complete-word", nullptr);
    el_set(_editor.get(), EL_BIND, "^R", "em-inc-search-prev", nullptr);
  }

  enum class Answer { kLine, kInterrupted, kEnd };

  Answer Read(std::string& line) {
    if (_editor == nullptr || _history == nullptr) return Answer::kEnd;
    el_resize(_editor.get());  // the window may have changed during the last command
    int length = 0;
    errno = 0;
    const char* const text = el_gets(_editor.get(), &length);
    if (text == nullptr || length <= 0) {
      return InterruptGuard::Take() ? Answer::kInterrupted : Answer::kEnd;
    }
    line.assign(text, static_cast<std::size_t>(length));
    while (!line.empty() && (line.back() == '\n' || line.back() == '\r')) line.pop_back();
    return Answer::kLine;
  }

  void Remember(const std::string& line) {
    HistEvent event;
    history(_history.get(), &event, H_ENTER, line.c_str());
  }

 private:
  std::unique_ptr<History, decltype(&history_end)> _history;
  std::unique_ptr<EditLine, decltype(&el_end)> _editor;
};

}  // namespace

void RunEditor(struct vty& terminal) {
  std::setlocale(LC_CTYPE, "");  // the editor counts characters, not bytes
  const InterruptGuard guard;
  Editor editor(terminal);
  vty_out(&terminal, "ONU ability console: \"help\" for help, \"exit\" or Ctrl-D to leave.\r\n");
  std::string line;
  while (terminal.alive() && std::fflush(stdout) == 0) {
    const Editor::Answer answer = editor.Read(line);
    if (answer == Editor::Answer::kInterrupted) {
      vty_out(&terminal, "^C\r\n");
      continue;
    }
    if (answer == Editor::Answer::kEnd) {
      vty_out(&terminal, "\r\n");
      break;
    }
    if (IsRemark(line)) continue;
    editor.Remember(line);
    ExecuteLine(terminal, terminal.node(), line, LineEcho{true, prompt_text});
    InterruptGuard::Take();  // pressed while the command ran: too late for it
  }
}

}  // namespace olt_host
