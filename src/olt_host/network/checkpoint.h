// How far a long run came, kept in a file so that the next one goes on from there.
#ifndef OLT_HOST_NETWORK_CHECKPOINT_H
#define OLT_HOST_NETWORK_CHECKPOINT_H

#include <chrono>
#include <cstdint>
#include <exception>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>

namespace olt_host {

// Moving JSON does not throw, though the linter thinks so.
// NOLINTNEXTLINE(bugprone-exception-escape)
struct Progress {
  std::uint64_t offset = 0;        // of the input, or of what is counted instead: that much is done
  std::uint64_t line = 1;          // of the input, that begins there
  std::uint64_t written = 0;       // bytes of the output that belong to what is done
  nlohmann::ordered_json summary;  // of what is done
};

class Checkpoint {
 public:
  // `path`: empty for none, then nothing is read or written. `run`: an object that names
  // everything on which the result depends: job, catalogues, input, options. The version of
  // this program is added to it.
  Checkpoint(std::string path, const nlohmann::ordered_json& run);

  // What an earlier run of the same came to; nothing when there is no file. Throws
  // std::runtime_error when the file cannot be read or is of another run, naming what
  // differs and how to start anew.
  std::optional<Progress> Read() const;

  // Throws the std::runtime_error for one that cannot be gone on from.
  [[noreturn]] void ThrowDamaged(const std::exception& error) const;

  // Whether it is time to keep one: there is a file, and the last was kept a second ago or
  // longer.
  bool IsDue() const;
  // Keeps `progress`, if there is a file; a crash leaves the earlier one or this one. Throws
  // std::runtime_error.
  void Keep(const Progress& progress);

  // The run is done: nothing to go on from.
  void Remove();

 private:
  std::string TextFor(const Progress& progress) const;

  std::string _path;
  nlohmann::ordered_json _run;
  std::optional<std::chrono::steady_clock::time_point> _kept;  // the last time
};

}  // namespace olt_host

#endif  // OLT_HOST_NETWORK_CHECKPOINT_H
