// Text that a monitoring system scrapes, in the exposition format 0.0.4: each metric is
// announced with its help and its type, and then has samples, told apart by their labels.
#ifndef OLT_HOST_COMMANDS_EXPOSITION_WRITER_H
#define OLT_HOST_COMMANDS_EXPOSITION_WRITER_H

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace olt_host {

class ExpositionWriter {
 public:
  // Name and value. Values may hold any bytes: what the format gives a meaning is escaped,
  // what is no UTF-8 becomes replacement characters.
  using Labels = std::vector<std::pair<std::string, std::string>>;

  // Begins a metric, whose samples follow. `type`: "counter", "gauge" or "histogram".
  void Begin(const std::string& name, const std::string& type, const std::string& help);

  // A sample of the metric, or of a part of it ("_bucket"). The labels of samples of one
  // name must differ.
  void Add(const Labels& labels, std::uint64_t value, const std::string& part = "");
  void AddNumber(const Labels& labels, double value, const std::string& part = "");

  const std::string& text() const { return _text; }

 private:
  void AddSample(const Labels& labels, const std::string& value, const std::string& part);

  std::string _name;
  std::string _text;
};

// With as many digits as it takes to read the same number again.
std::string ExpositionNumber(double value);

}  // namespace olt_host

#endif  // OLT_HOST_COMMANDS_EXPOSITION_WRITER_H
