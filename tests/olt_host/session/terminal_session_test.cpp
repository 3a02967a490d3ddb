// The console on a terminal, typed through a pseudo-terminal: editing, history,
// completion, Ctrl-C and Ctrl-D; and on a pipe.
#include <gtest/gtest.h>
#include <poll.h>
#include <pty.h>
#include <sys/wait.h>
#include <termios.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstring>
#include <stdexcept>
#include <string>
#include <thread>

#include "session/console.h"
#include "vty.h"

namespace olt_host {
namespace {

constexpr unsigned int kNode = 41;

int Say(cmd_element*, struct vty* terminal, int, char** argv) {
  return vty_out(terminal, "<%s>\r\n", argv[0]) < 0;
}

cmd_element say_cmd = {"say <string>", Say, ""};
cmd_element select_cmd = {"select [first|final]", Say, ""};

// A console in a process of its own, its terminal in the hands of the test.
class TerminalSession {
 public:
  TerminalSession() {
    winsize size{24, 80, 0, 0};
    child_ = forkpty(&master_, nullptr, nullptr, &size);
    if (child_ < 0) {
      throw std::runtime_error(std::string("no pseudo-terminal: ") + std::strerror(errno));
    }
    if (child_ == 0) {
      setenv("TERM", "xterm", 1);
      install_element(kNode, &say_cmd);
      install_element(kNode, &select_cmd);
      _exit(RunConsole(kNode));
    }
  }

  ~TerminalSession() {
    if (child_ > 0) {
      kill(child_, SIGKILL);
      waitpid(child_, nullptr, 0);
    }
    close(master_);
  }

  void Type(const std::string& keys) {
    ASSERT_EQ(static_cast<ssize_t>(keys.size()), write(master_, keys.data(), keys.size()));
  }

  // What the screen got until `text` came, that included; a failure without it.
  std::string Until(const std::string& text) {
    const auto limit = std::chrono::steady_clock::now() + std::chrono::seconds(20);
    for (;;) {
      const std::size_t found = unread_.find(text);
      if (found != std::string::npos) {
        std::string seen = unread_.substr(0, found + text.size());
        unread_.erase(0, seen.size());
        return seen;
      }
      if (std::chrono::steady_clock::now() > limit || !ReadMore()) break;
    }
    ADD_FAILURE() << "no \"" << text << "\" in \"" << unread_ << "\"";
    return unread_;
  }

  // Waits for the prompt, and until the editor, which shows it first, takes over
  // the keys: what is typed in between belongs to the terminal's own line mode.
  void UntilPrompt() {
    Until("olt> ");
    termios mode{};
    for (int i = 0; i < 2000; ++i) {
      if (tcgetattr(master_, &mode) == 0 && (mode.c_lflag & ICANON) == 0) return;
      std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    ADD_FAILURE() << "no line editor";
  }

  // The exit status, once the console has ended by itself; -1 when it does not.
  int Wait() {
    const auto limit = std::chrono::steady_clock::now() + std::chrono::seconds(20);
    while (ReadMore() && std::chrono::steady_clock::now() < limit) {
    }
    if (std::chrono::steady_clock::now() > limit) return -1;
    int status = 0;
    waitpid(child_, &status, 0);
    child_ = -1;
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  }

  const std::string& unread() const { return unread_; }

 private:
  bool ReadMore() {
    pollfd ready{master_, POLLIN, 0};
    if (poll(&ready, 1, 20000) != 1) return false;
    char bytes[512];
    const ssize_t length = read(master_, bytes, sizeof bytes);
    if (length <= 0) return false;
    unread_.append(bytes, static_cast<std::size_t>(length));
    return true;
  }

  int master_ = -1;
  pid_t child_ = -1;
  std::string unread_;
};

class ConsoleTerminal : public ::testing::Test {
 protected:
  void SetUp() override {
    EXPECT_NE(std::string::npos, session.Until("to leave.").find("ONU ability console"));
    session.UntilPrompt();
  }

  TerminalSession session;
};

TEST_F(ConsoleTerminal, RunsALineAndPromptsAgain) {
  session.Type("say hello\n");
  session.Until("<hello>");
  session.UntilPrompt();
  session.Type("exit\n");
  EXPECT_EQ(0, session.Wait());
}

TEST_F(ConsoleTerminal, MarksAnErrorUnderTheTypedLine) {
  session.Type("say a b\n");
  const std::string text = session.Until("% Too many arguments");
  EXPECT_NE(std::string::npos, text.find("\n" + std::string(11, ' ') + "^\r")) << text;
}

TEST_F(ConsoleTerminal, EndsAtCtrlD) {
  session.Type("\x04");
  EXPECT_EQ(0, session.Wait());
}

TEST_F(ConsoleTerminal, AnErrorIsNoFailureOfTheSession) {
  session.Type("nonsense\nexit\n");
  EXPECT_EQ(0, session.Wait());
}

TEST_F(ConsoleTerminal, CtrlCDropsTheLine) {
  session.Type("say never");
  session.Until("never");
  session.Type("\x03");
  session.Until("^C");
  session.UntilPrompt();
  session.Type("say after\n");
  session.Until("<after>");
  session.Type("exit\n");
  EXPECT_EQ(0, session.Wait());
}

TEST_F(ConsoleTerminal, TabCompletesAKeyword) {
  session.Type("sa\thello\n");
  session.Until("<hello>");
}

TEST_F(ConsoleTerminal, TabListsWhatIsPossible) {
  session.Type("sel\tf\t\t");  // the second one completes to "fi", the third lists
  session.Until("  first\r\n  final\r\n");
  session.Until("select fi");
  session.Type("n\t\n");
  session.Until("<final>");
}

TEST_F(ConsoleTerminal, ArrowUpRecallsTheLastLine) {
  session.Type("say one\n");
  session.Until("<one>");
  session.UntilPrompt();
  session.Type("\x1b[A\n");
  session.Until("<one>");
}

TEST_F(ConsoleTerminal, EmacsKeysEditTheLine) {
  session.Type("ay hello\x01s\n");
  session.Until("<hello>");
}

TEST(ConsolePipe, RunsLinesWithoutPromptOrBanner) {
  int in[2];
  int out[2];
  ASSERT_EQ(0, pipe(in));
  ASSERT_EQ(0, pipe(out));
  const pid_t child = fork();
  if (child == 0) {
    dup2(in[0], STDIN_FILENO);
    dup2(out[1], STDOUT_FILENO);
    for (const int descriptor : {in[0], in[1], out[0], out[1]}) close(descriptor);
    install_element(kNode, &say_cmd);
    _exit(RunConsole(kNode));
  }
  close(in[0]);
  close(out[1]);
  const std::string lines = "say one\n! remark\nsay\nsay two\n";
  ASSERT_EQ(static_cast<ssize_t>(lines.size()), write(in[1], lines.data(), lines.size()));
  close(in[1]);
  std::string text;
  char bytes[512];
  for (ssize_t length; (length = read(out[0], bytes, sizeof bytes)) > 0;) {
    text.append(bytes, static_cast<std::size_t>(length));
  }
  close(out[0]);
  int status = 0;
  waitpid(child, &status, 0);
  EXPECT_EQ(
      "<one>\r\n"
      "line 3: say\r\n"
      "            ^\r\n"
      "% Command incomplete: expected <string>\r\n"
      "<two>\r\n",
      text);
  EXPECT_TRUE(WIFEXITED(status));
  EXPECT_EQ(1, WEXITSTATUS(status));
}

}  // namespace
}  // namespace olt_host
