#include "catalogue/yaml_document.h"

#include <sstream>
#include <vector>

#include <yaml-cpp/eventhandler.h>

#include "catalogue/whole_file.h"

namespace olt_host {

namespace {

// Hears where the documents of a file begin, and nothing else.
class Beginnings : public YAML::EventHandler {
 public:
  const std::vector<YAML::Mark>& marks() const { return _marks; }

  void OnDocumentStart(const YAML::Mark& /*mark*/) override { _is_begun = false; }
  void OnDocumentEnd() override {}
  void OnNull(const YAML::Mark& mark, YAML::anchor_t /*anchor*/) override { Begin(mark); }
  void OnAlias(const YAML::Mark& mark, YAML::anchor_t /*anchor*/) override { Begin(mark); }
  void OnScalar(const YAML::Mark& mark, const std::string& /*tag*/, YAML::anchor_t /*anchor*/,
                const std::string& /*value*/) override {
    Begin(mark);
  }
  void OnSequenceStart(const YAML::Mark& mark, const std::string& /*tag*/,
                       YAML::anchor_t /*anchor*/, YAML::EmitterStyle::value /*style*/) override {
    Begin(mark);
  }
  void OnSequenceEnd() override {}
  void OnMapStart(const YAML::Mark& mark, const std::string& /*tag*/, YAML::anchor_t /*anchor*/,
                  YAML::EmitterStyle::value /*style*/) override {
    Begin(mark);
  }
  void OnMapEnd() override {}

 private:
  void Begin(const YAML::Mark& mark) {
    if (!_is_begun) _marks.push_back(mark);
    _is_begun = true;
  }

  std::vector<YAML::Mark> _marks;
  bool _is_begun = false;
};

unsigned int LineOf(const YAML::Mark& mark) {
  return mark.is_null() ? 0 : static_cast<unsigned int>(mark.line) + 1;
}

// Where the first two documents of the file begin. No more are asked for: a stray "," or
// "]" outside all lists is never passed by, and would be an empty document again and again.
std::vector<YAML::Mark> FindDocuments(const std::string& text) {
  std::istringstream stream(text);
  YAML::Parser parser(stream);
  Beginnings beginnings;
  while (beginnings.marks().size() < 2 && parser.HandleNextDocument(beginnings)) {
  }
  return beginnings.marks();
}

YAML::Node ParseDocument(const std::string& file, const std::string& text,
                         const std::string& name) {
  if (text.find('\0') != std::string::npos) {
    throw InputError({file, 0}, "holds binary data", "YAML");
  }
  try {
    const std::vector<YAML::Mark> documents = FindDocuments(text);
    if (documents.empty()) {
      throw InputError({file, 0}, "is empty", name);
    }
    if (documents.size() > 1) {
      throw InputError({file, LineOf(documents[1])}, "a second document begins",
                       "one document a file");
    }
    return YAML::Load(text);
  } catch (const YAML::Exception& error) {
    throw InputError({file, LineOf(error.mark)}, "is broken YAML: " + Escaped(error.msg), "YAML");
  }
}

}  // namespace

std::string ReadYaml(const std::string& file) {
  return ReadWholeFile(file, "a YAML file that can be read");
}

YamlView OpenYaml(const std::string& file, const std::string& name) {
  return ParseYaml(file, ReadYaml(file), name);
}

YamlView ParseYaml(const std::string& file, const std::string& text, const std::string& name) {
  return YamlView(ParseDocument(file, text, name), name, std::make_shared<const std::string>(file),
                  1);
}

}  // namespace olt_host
