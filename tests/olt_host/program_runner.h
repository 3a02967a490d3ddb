// Runs the built olt_host as a process of its own, without a shell between.
#ifndef TESTS_OLT_HOST_PROGRAM_RUNNER_H
#define TESTS_OLT_HOST_PROGRAM_RUNNER_H

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <stdexcept>
#include <string>
#include <vector>

#include "host_files.h"

namespace olt_host_test {

struct ProgramResult {
  int status = -1;  // the exit status, -1 when a signal ended the program
  std::string out;
  std::string err;
};

// Runs olt_host with its streams on these files and returns its exit status.
inline int SpawnProgram(const std::vector<std::string>& arguments, const std::string& in,
                        const std::string& out, const std::string& err) {
  std::vector<std::string> words = arguments;
  words.insert(words.begin(), OLT_HOST_PROGRAM);
  std::vector<char*> argv;
  argv.reserve(words.size() + 1);
  for (std::string& word : words) {
    argv.push_back(word.data());
  }
  argv.push_back(nullptr);
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, in.c_str(), O_RDONLY, 0);
  constexpr int kWrite = O_WRONLY | O_CREAT | O_TRUNC;
  posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, out.c_str(), kWrite, 0600);
  posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, err.c_str(), kWrite, 0600);
  pid_t process = 0;
  const int spawned = posix_spawn(&process, argv.front(), &actions, nullptr, argv.data(), environ);
  posix_spawn_file_actions_destroy(&actions);
  int status = 0;
  if (spawned != 0 || waitpid(process, &status, 0) != process) {
    throw std::runtime_error("olt_host cannot be run");
  }
  return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

// Runs olt_host with `input` on its standard input and waits for its end.
inline ProgramResult RunProgram(const std::vector<std::string>& arguments,
                                const std::string& input = "") {
  const TemporaryDirectory directory;
  const std::string in = directory.Write("in", input);
  ProgramResult result;
  result.status = SpawnProgram(arguments, in, directory.Path("out"), directory.Path("err"));
  result.out = ReadFile(directory.Path("out"));
  result.err = ReadFile(directory.Path("err"));
  return result;
}

}  // namespace olt_host_test

#endif  // TESTS_OLT_HOST_PROGRAM_RUNNER_H
