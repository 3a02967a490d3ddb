// Reads a text of the exposition format 0.0.4 line by line, by the grammar of the format and
// not by what the writer does.
#ifndef TESTS_OLT_HOST_COMMANDS_EXPOSITION_LINES_H
#define TESTS_OLT_HOST_COMMANDS_EXPOSITION_LINES_H

#include <gtest/gtest.h>

#include <map>
#include <regex>
#include <set>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

namespace olt_host_test {

struct Exposition {
  using Labels = std::map<std::string, std::string>;

  std::map<std::string, std::string> types;
  std::map<std::pair<std::string, Labels>, double> samples;

  // Of the samples of a name, their sum.
  double Sum(const std::string& name) const {
    double sum = 0;
    for (const auto& [sample, value] : samples) {
      if (sample.first == name) sum += value;
    }
    return sum;
  }
  double Value(const std::string& name, const Labels& labels = {}) const {
    const auto sample = samples.find({name, labels});
    if (sample != samples.end()) return sample->second;
    ADD_FAILURE() << "no sample of " << name;
    return -1;
  }
};

// The labels between braces; `at` is behind the opening one, then behind the closing one.
inline Exposition::Labels ReadLabels(const std::string& line, std::size_t& at) {
  Exposition::Labels labels;
  while (at < line.size() && line[at] != '}') {
    const std::size_t equals = line.find("=\"", at);
    if (equals == std::string::npos) break;
    const std::string name = line.substr(at, equals - at);
    EXPECT_TRUE(std::regex_match(name, std::regex("[a-zA-Z_][a-zA-Z0-9_]*"))) << line;
    std::string value;
    for (at = equals + 2; at < line.size() && line[at] != '"'; ++at) {
      if (line[at] != '\\') {
        value += line[at];
        continue;
      }
      const char escaped = line.at(++at);
      EXPECT_NE(std::string("\\\"n").find(escaped), std::string::npos) << line;
      value += escaped == 'n' ? '\n' : escaped;
    }
    EXPECT_TRUE(labels.emplace(name, value).second) << "a label twice: " << line;
    ++at;
    if (at < line.size() && line[at] == ',') ++at;
  }
  ++at;
  return labels;
}

// The metric that a sample's name belongs to: histograms have samples of other names.
inline std::string MetricOf(const Exposition& read, const std::string& name) {
  for (const char* ending : {"_bucket", "_sum", "_count"}) {
    const std::string part = ending;
    if (name.size() <= part.size() || name.substr(name.size() - part.size()) != part) continue;
    std::string metric = name.substr(0, name.size() - part.size());
    const auto type = read.types.find(metric);
    if (type != read.types.end() && type->second == "histogram") return metric;
  }
  return name;
}

inline void ReadSample(const std::string& line, const std::string& current, Exposition& read) {
  std::size_t at = line.find_first_of("{ ");
  ASSERT_NE(at, std::string::npos) << line;
  const std::string name = line.substr(0, at);
  ASSERT_TRUE(std::regex_match(name, std::regex("[a-zA-Z_:][a-zA-Z0-9_:]*"))) << line;
  Exposition::Labels labels;
  if (line[at] == '{') labels = ReadLabels(line, ++at);
  ASSERT_LT(at, line.size()) << line;
  ASSERT_EQ(line[at], ' ') << line;
  std::size_t used = 0;
  const std::string number = line.substr(at + 1);
  const double value = std::stod(number, &used);
  EXPECT_EQ(used, number.size()) << line;
  EXPECT_EQ(MetricOf(read, name), current) << "samples of a metric stand together: " << line;
  if (read.types[current] == "counter") {
    EXPECT_EQ(name.substr(name.size() - 6), "_total") << line;
    EXPECT_GE(value, 0) << line;
  }
  EXPECT_TRUE(read.samples.emplace(std::make_pair(name, labels), value).second)
      << "twice: " << line;
}

inline Exposition ReadExposition(const std::string& text) {
  Exposition read;
  EXPECT_FALSE(text.empty());
  EXPECT_EQ(text.back(), '\n');
  std::istringstream lines(text);
  std::set<std::string> helps;
  std::string current;
  for (std::string line; std::getline(lines, line);) {
    std::istringstream words(line);
    std::string hash;
    std::string kind;
    std::string name;
    std::string type;
    if (line.rfind("# ", 0) != 0) {
      ReadSample(line, current, read);
      continue;
    }
    words >> hash >> kind >> name >> type;
    if (kind == "HELP") {
      EXPECT_TRUE(helps.insert(name).second) << "twice: " << line;
      current = name;
      continue;
    }
    EXPECT_EQ(kind, "TYPE") << line;
    EXPECT_EQ(name, current) << "help and type stand together: " << line;
    EXPECT_TRUE(type == "counter" || type == "gauge" || type == "histogram") << line;
    EXPECT_TRUE(read.types.emplace(name, type).second) << "twice: " << line;
  }
  return read;
}

}  // namespace olt_host_test

#endif  // TESTS_OLT_HOST_COMMANDS_EXPOSITION_LINES_H
