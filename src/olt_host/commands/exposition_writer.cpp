#include "commands/exposition_writer.h"

#include <array>
#include <charconv>
#include <nlohmann/json.hpp>

namespace olt_host {

namespace {

// By way of JSON, whose writer knows how to replace what is no UTF-8.
std::string ValidText(const std::string& text) {
  using Json = nlohmann::json;
  const std::string quoted = Json(text).dump(-1, ' ', false, Json::error_handler_t::replace);
  return Json::parse(quoted).get<std::string>();
}

std::string Escaped(const std::string& text, bool quotes_too) {
  std::string escaped;
  for (const char c : ValidText(text)) {
    if (c == '\\') {
      escaped += "\\\\";
    } else if (c == '\n') {
      escaped += "\\n";
    } else if (c == '"' && quotes_too) {
      escaped += "\\\"";
    } else {
      escaped += c;
    }
  }
  return escaped;
}

}  // namespace

std::string ExpositionNumber(double value) {
  std::array<char, 32> text{};
  const std::to_chars_result end = std::to_chars(text.data(), text.data() + text.size(), value);
  return {text.data(), end.ptr};
}

void ExpositionWriter::Begin(const std::string& name, const std::string& type,
                             const std::string& help) {
  _name = name;
  _text += "# HELP " + name + " " + Escaped(help, false) + "\n";
  _text += "# TYPE " + name + " " + type + "\n";
}

void ExpositionWriter::Add(const Labels& labels, std::uint64_t value, const std::string& part) {
  AddSample(labels, std::to_string(value), part);
}

void ExpositionWriter::AddNumber(const Labels& labels, double value, const std::string& part) {
  AddSample(labels, ExpositionNumber(value), part);
}

void ExpositionWriter::AddSample(const Labels& labels, const std::string& value,
                                 const std::string& part) {
  _text += _name + part;
  const char* before = "{";
  for (const auto& [label, text] : labels) {
    _text += before + label + "=\"" + Escaped(text, true) + "\"";
    before = ",";
  }
  if (!labels.empty()) _text += "}";
  _text += " " + value + "\n";
}

}  // namespace olt_host
