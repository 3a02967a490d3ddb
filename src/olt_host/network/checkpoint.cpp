#include "network/checkpoint.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <stdexcept>
#include <string_view>

#include "catalogue/whole_file.h"
#include "platform/file_descriptor.h"
#include "recognition/json_number.h"

namespace olt_host {

namespace {

using Json = nlohmann::ordered_json;

constexpr auto kBetween = std::chrono::seconds(1);
constexpr mode_t kMode = 0640;
constexpr const char* kExpected = "a checkpoint that can be read";
// What every checkpoint begins with, the version included.
constexpr std::string_view kMagic = R"({"olt_host_checkpoint":1,)";

std::string TextOf(const Json& json) {
  return json.dump(-1, ' ', false, Json::error_handler_t::replace);
}

[[noreturn]] void Fail(const std::string& what) {
  throw std::runtime_error(what + ": " + std::strerror(errno));
}

std::string StartAnew(const std::string& path) { return "; remove " + path + " to start anew"; }

// The first field, by its path in the two objects, that is not the same; "" for none.
std::string Difference(const std::string& field, const Json& kept, const Json& own) {
  if (kept == own) return "";
  if (!kept.is_object() || !own.is_object()) {
    return field + " was " + TextOf(kept) + " and is " + TextOf(own);
  }
  const std::string prefix = field.empty() ? "" : field + ".";
  for (const auto& [name, value] : own.items()) {
    if (!kept.contains(name)) return prefix + name + " was not stated and is " + TextOf(value);
    std::string difference = Difference(prefix + name, kept[name], value);
    if (!difference.empty()) return difference;
  }
  for (const auto& [name, value] : kept.items()) {
    if (!own.contains(name)) return prefix + name + " was " + TextOf(value) + " and is not stated";
  }
  return "";  // another order only
}

bool Begins(std::string_view text, std::string_view beginning) {
  return text.substr(0, beginning.size()) == beginning;
}

void WriteAll(const FileDescriptor& file, const std::string& path, std::string_view text) {
  while (!text.empty()) {
    const ssize_t count = write(file.get(), text.data(), text.size());
    if (count < 0 && errno != EINTR) Fail("cannot write " + path);
    if (count > 0) text.remove_prefix(static_cast<std::size_t>(count));
  }
  if (fsync(file.get()) != 0) Fail("cannot flush " + path + " to disk");
}

Progress ProgressOf(const Json& whole) {
  Progress progress;
  progress.offset = NumberAt<std::uint64_t>(whole, "offset");
  progress.line = NumberAt<std::uint64_t>(whole, "line");
  progress.written = NumberAt<std::uint64_t>(whole, "written");
  progress.summary = whole.at("summary");
  return progress;
}

// A file that a killed run left beside the checkpoint may go, nothing else.
void RemoveLeftover(const std::string& path) {
  struct stat status {};
  if (lstat(path.c_str(), &status) != 0) {
    if (errno == ENOENT) return;
    Fail("cannot replace " + path);
  }
  const std::string text = S_ISREG(status.st_mode) ? ReadWholeFile(path, kExpected) : "-";
  if (!Begins(text, kMagic.substr(0, text.size()))) {
    throw std::runtime_error(path + " is in the way; expected a checkpoint, or nothing");
  }
  if (unlink(path.c_str()) != 0 && errno != ENOENT) Fail("cannot remove the old " + path);
}

FileDescriptor Create(const std::string& path) {
  constexpr int kFlags = O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC | O_NOFOLLOW;
  FileDescriptor created(open(path.c_str(), kFlags, kMode));
  if (created.is_open()) return created;
  if (errno != EEXIST) Fail("cannot create " + path);
  RemoveLeftover(path);
  FileDescriptor again(open(path.c_str(), kFlags, kMode));
  if (!again.is_open()) Fail("cannot create " + path);
  return again;
}

// A name is on disk only when its folder is.
void FlushFolder(const std::string& path) {
  const std::filesystem::path folder = std::filesystem::path(path).parent_path();
  const FileDescriptor descriptor(
      open(folder.empty() ? "." : folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  if (!descriptor.is_open() || fsync(descriptor.get()) != 0) {
    Fail("cannot flush the folder of " + path + " to disk");
  }
}

}  // namespace

// Text and back: what a file gives back is compared with what it would have kept.
Checkpoint::Checkpoint(std::string path, const Json& run)
    : _path(std::move(path)), _run(Json::parse(TextOf(run))) {
  _run["olt_host"] = OLT_HOST_VERSION;
}

std::optional<Progress> Checkpoint::Read() const {
  struct stat status {};
  if (_path.empty()) return std::nullopt;
  if (stat(_path.c_str(), &status) != 0) {
    if (errno == ENOENT) return std::nullopt;
    Fail(_path);
  }
  if (!S_ISREG(status.st_mode)) throw std::runtime_error(_path + ": is no file");
  const std::string text = ReadWholeFile(_path, kExpected);
  if (!Begins(text, kMagic)) {
    throw std::runtime_error(_path + ": is no checkpoint; expected one, or a new name");
  }
  std::string difference;
  try {
    const Json whole = Json::parse(text);
    difference = Difference("", whole.at("run"), _run);
    if (difference.empty()) return ProgressOf(whole);
  } catch (const std::exception& error) {
    ThrowDamaged(error);
  }
  throw std::runtime_error(_path + ": is the checkpoint of another run: " + difference +
                           StartAnew(_path));
}

void Checkpoint::ThrowDamaged(const std::exception& error) const {
  throw std::runtime_error(_path + ": the checkpoint is damaged: " + error.what() +
                           StartAnew(_path));
}

bool Checkpoint::IsDue() const {
  return !_path.empty() && (!_kept || std::chrono::steady_clock::now() - *_kept >= kBetween);
}

void Checkpoint::Keep(const Progress& progress) {
  if (_path.empty()) return;
  const std::string aside = _path + ".new";
  try {
    {
      const FileDescriptor file = Create(aside);
      WriteAll(file, aside, TextFor(progress));
    }
    if (rename(aside.c_str(), _path.c_str()) != 0) Fail("cannot replace it");
    FlushFolder(_path);
  } catch (const std::runtime_error& error) {
    throw std::runtime_error(_path + ": the checkpoint cannot be kept: " + error.what());
  }
  _kept = std::chrono::steady_clock::now();
}

void Checkpoint::Remove() {
  if (_path.empty()) return;
  if (unlink(_path.c_str()) != 0 && errno != ENOENT) Fail(_path + ": cannot be removed");
}

std::string Checkpoint::TextFor(const Progress& progress) const {
  Json rest;
  rest["run"] = _run;
  rest["offset"] = progress.offset;
  rest["line"] = progress.line;
  rest["written"] = progress.written;
  rest["summary"] = progress.summary;
  return std::string(kMagic) + TextOf(rest).substr(1) + "\n";
}

}  // namespace olt_host
