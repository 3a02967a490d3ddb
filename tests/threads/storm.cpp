#include "storm.h"

#include <algorithm>
#include <atomic>
#include <memory>
#include <thread>

#include "role.h"

void Violations::Add(const std::string& what) {
  constexpr std::size_t kKept = 20;
  const std::lock_guard<std::mutex> lock(_mutex);
  if (_first.size() < kKept && std::find(_first.begin(), _first.end(), what) == _first.end()) {
    _first.push_back(what);
  }
}

std::vector<std::string> Violations::Take() {
  const std::lock_guard<std::mutex> lock(_mutex);
  return std::move(_first);
}

StormReport RunStorm(std::chrono::milliseconds time) {
  Violations violations;
  std::vector<std::unique_ptr<Role>> roles;
  for (unsigned int number = 0; number < 2; ++number) {
    roles.push_back(MakeConfirmations(number, violations));
    roles.push_back(MakeQuestions(number, violations));
    roles.push_back(MakeProfileKeeper(number, violations));
    roles.push_back(MakePatternKeeper(number, violations));
  }
  roles.push_back(MakeLocklessQuestions(violations));
  roles.push_back(MakeRegistryReader(0, violations));
  roles.push_back(MakeOperator(violations));
  roles.push_back(MakeRegistryWriter(violations));
  roles.push_back(MakeSettingsChanger(violations));

  std::atomic<bool> is_over{false};
  std::vector<std::thread> threads;
  threads.reserve(roles.size());
  for (const auto& role : roles) {
    threads.emplace_back([&role = *role, &is_over] {
      do {
        role.Step();
        ++role.steps;
      } while (!is_over.load(std::memory_order_relaxed));
    });
  }
  std::this_thread::sleep_for(time);
  is_over = true;
  for (auto& thread : threads) {
    thread.join();
  }

  StormReport report;
  for (const auto& role : roles) {
    role->CheckEnd();
    report.steps += role->steps;
    report.summary += role->name() + " " + std::to_string(role->steps) + "\n";
  }
  report.violations = violations.Take();
  return report;
}
