// One thread's part in the storm: it repeats a step until the time is up, then checks
// what it knows of the end.
#ifndef TESTS_THREADS_ROLE_H
#define TESTS_THREADS_ROLE_H

#include <memory>
#include <mutex>
#include <random>
#include <string>
#include <vector>

class Violations {
 public:
  void Add(const std::string& what);
  std::vector<std::string> Take();

 private:
  std::mutex _mutex;
  std::vector<std::string> _first;
};

class Role {
 public:
  Role(std::string name, unsigned int seed, Violations& violations)
      : _name(std::move(name)), _random(seed), _violations(violations) {}
  virtual ~Role() = default;
  Role(const Role&) = delete;
  Role& operator=(const Role&) = delete;

  virtual void Step() = 0;
  // After all threads have ended.
  virtual void CheckEnd() {}

  const std::string& name() const { return _name; }
  unsigned long steps = 0;

 protected:
  // Below `count`.
  unsigned int Choose(unsigned int count) { return static_cast<unsigned int>(_random() % count); }
  void Expect(bool holds, const std::string& what) {
    if (!holds) {
      _violations.Add(_name + ": " + what);
    }
  }

 private:
  const std::string _name;
  std::mt19937 _random;
  Violations& _violations;
};

// The roles. `number` tells those of one kind apart.
std::unique_ptr<Role> MakeConfirmations(unsigned int number, Violations& violations);
std::unique_ptr<Role> MakeQuestions(unsigned int number, Violations& violations);
std::unique_ptr<Role> MakeLocklessQuestions(Violations& violations);
std::unique_ptr<Role> MakeProfileKeeper(unsigned int number, Violations& violations);
std::unique_ptr<Role> MakePatternKeeper(unsigned int number, Violations& violations);
std::unique_ptr<Role> MakeRegistryReader(unsigned int number, Violations& violations);
std::unique_ptr<Role> MakeOperator(Violations& violations);
std::unique_ptr<Role> MakeRegistryWriter(Violations& violations);
std::unique_ptr<Role> MakeSettingsChanger(Violations& violations);

#endif  // TESTS_THREADS_ROLE_H
