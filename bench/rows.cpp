#include "rows.h"

#include <utility>

namespace {

class Row : public benchmark::internal::Benchmark {
 public:
  Row(const std::string& name, RowBody body) : Benchmark(name.c_str()), _body(std::move(body)) {}

  void Run(benchmark::State& state) override { _body(state); }

 private:
  RowBody _body;
};

}  // namespace

benchmark::internal::Benchmark& AddRow(const std::string& work, const std::string& contender,
                                       std::size_t size, RowBody body) {
  const std::string name = work + "/" + contender + "/" + std::to_string(size);
  // The registry of Google Benchmark owns it from here.
  // NOLINTNEXTLINE(clang-analyzer-cplusplus.NewDeleteLeaks)
  return *benchmark::internal::RegisterBenchmarkInternal(new Row(name, std::move(body)));
}
