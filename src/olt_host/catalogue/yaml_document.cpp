#include "catalogue/yaml_document.h"

#include <cerrno>
#include <cstring>
#include <fstream>
#include <sstream>

namespace olt_host {

namespace {

const char* const kExpectedFile = "a YAML file that can be read";

std::vector<YAML::Node> ParseDocuments(const std::string& file, const std::string& text) {
  if (text.find('\0') != std::string::npos) {
    throw InputError({file, 0}, "holds binary data", "YAML");
  }
  try {
    return YAML::LoadAll(text);
  } catch (const YAML::Exception& error) {
    const unsigned int line =
        error.mark.is_null() ? 0 : static_cast<unsigned int>(error.mark.line) + 1;
    throw InputError({file, line}, "is broken YAML: " + error.msg, "YAML");
  }
}

}  // namespace

std::string ReadWholeFile(const std::string& file) {
  errno = 0;
  std::ifstream stream(file, std::ios::binary);
  std::ostringstream text;
  // Reading sets errno for a directory, which opens like a file.
  if (!stream ||
      (stream.peek() != std::ifstream::traits_type::eof() && !(text << stream.rdbuf())) ||
      stream.bad() || errno == EISDIR) {
    const std::string reason = errno != 0 ? std::strerror(errno) : "reading failed";
    throw InputError({file, 0}, "cannot be read: " + reason, kExpectedFile);
  }
  return text.str();
}

YamlView OpenYaml(const std::string& file, const std::string& name) {
  return ParseYaml(file, ReadWholeFile(file), name);
}

YamlView ParseYaml(const std::string& file, const std::string& text, const std::string& name) {
  const std::vector<YAML::Node> documents = ParseDocuments(file, text);
  if (documents.empty()) {
    throw InputError({file, 0}, "is empty", name);
  }
  if (documents.size() > 1) {
    const YAML::Mark mark = documents[1].Mark();
    const unsigned int line = mark.is_null() ? 0 : static_cast<unsigned int>(mark.line) + 1;
    throw InputError({file, line}, "a second document begins", "one document a file");
  }
  return YamlView(documents.front(), name, std::make_shared<const std::string>(file), 1);
}

}  // namespace olt_host
