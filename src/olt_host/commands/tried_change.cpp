#include "commands/tried_change.h"

#include <exception>
#include <iterator>
#include <utility>

#include "platform/log_sink.h"
#include "recognition/undisturbed_library.h"

namespace olt_host {

namespace {

using Pending = std::shared_ptr<const OnuAbilityProfile>;
using State = std::shared_ptr<const LibraryState>;

OnuAbilityProfile*& PendingInLibrary() {
  return OnuAbilityGlobalVar::GetInstance()->_onu_ability_profile;
}

Pending CopyOfPending() {
  const OnuAbilityProfile* const pending = PendingInLibrary();
  return pending == nullptr ? nullptr : std::make_shared<const OnuAbilityProfile>(*pending);
}

bool SamePending(const Pending& a, const Pending& b) {
  if (a == nullptr || b == nullptr) return a == b;
  return SameProfile(*a, *b);
}

void DropUnset(std::vector<OnuAbilityProfile>& profiles) {
  for (OnuAbilityProfile& profile : profiles) {
    AbilityMap& abilities = profile._common_ability;
    for (auto ability = abilities.begin(); ability != abilities.end();) {
      const bool is_unset = ability->second.ability_value_type == ONU_ABILITY_VALUE_TYPE_NONE;
      ability = is_unset ? abilities.erase(ability) : std::next(ability);
    }
  }
}

LibraryState WithoutTraces(const LibraryState& state) {
  LibraryState plain = state;
  DropUnset(plain.match_profiles);
  DropUnset(plain.real_profiles);
  for (ONU_ABILITY_CODE_ATTR_INFO& code : plain.codes) {
    for (auto entry = code.ability_attr.begin(); entry != code.ability_attr.end();) {
      entry = entry->second == 0 ? code.ability_attr.erase(entry) : std::next(entry);
    }
  }
  return plain;
}

// The library and the pending profile as they are now, put back at the end.
class PutBack {
 public:
  PutBack()
      : _state(std::make_shared<const LibraryState>(CaptureLibrary())),
        _pending(PendingInLibrary()),
        _copy(CopyOfPending()) {
    PendingInLibrary() = nullptr;
    Lend(_copy);
  }
  ~PutBack() {
    Lend(nullptr);
    PendingInLibrary() = _pending;
    try {
      InstallLibrary(*_state);
    } catch (const std::exception& failure) {
      LogHostLine(0, std::string("what was tried is not taken back: ") + failure.what());
    }
  }
  PutBack(const PutBack&) = delete;
  PutBack& operator=(const PutBack&) = delete;

  const State& state() const { return _state; }
  const Pending& pending() const { return _copy; }

  // Gives the library a copy of its own in place of the one that it was given before.
  static void Lend(const Pending& pending) {
    auto copy = pending == nullptr ? nullptr : std::make_unique<OnuAbilityProfile>(*pending);
    const std::unique_ptr<OnuAbilityProfile> previous(PendingInLibrary());
    PendingInLibrary() = copy.release();
  }

 private:
  State _state;
  OnuAbilityProfile* _pending;  // the session's, which nothing touches meanwhile
  Pending _copy;
};

}  // namespace

bool SameForOperators(const LibraryState& a, const LibraryState& b) {
  return SameState(WithoutTraces(a), WithoutTraces(b));
}

bool TriedChange::StillFits() const {
  return SamePending(CopyOfPending(), base_pending) && SameForOperators(CaptureLibrary(), *base);
}

std::shared_ptr<TriedChange> Try(const TriedChange* earlier, const Populations& populations,
                                 const std::function<bool()>& change) {
  const UndisturbedLibrary silent;
  auto tried = std::make_shared<TriedChange>();
  PutBack library;
  tried->base = earlier == nullptr ? library.state() : earlier->base;
  tried->base_pending = earlier == nullptr ? library.pending() : earlier->base_pending;
  tried->lines = (earlier == nullptr ? 0 : earlier->lines) + 1;
  const PopulationOutcome before = OutcomeOf(populations);
  InstallLibrary(earlier == nullptr ? *library.state() : *earlier->wanted);
  if (earlier != nullptr) PutBack::Lend(earlier->wanted_pending);
  if (!change()) return nullptr;
  tried->wanted = std::make_shared<const LibraryState>(CaptureLibrary());
  tried->wanted_pending = CopyOfPending();
  const PopulationOutcome after = OutcomeOf(populations);
  tried->difference = Compare(before, after);
  AskAfter(tried->difference, ExamplesOf(populations));
  InstallLibrary(*library.state());
  AskBefore(tried->difference, ExamplesOf(populations));
  return tried;
}

void Make(const TriedChange& tried) {
  InstallLibrary(*tried.wanted);
  if (tried.wanted_pending == nullptr) return;
  // The session takes it when the command ends, and gives up its own.
  PendingInLibrary() = std::make_unique<OnuAbilityProfile>(*tried.wanted_pending).release();
}

}  // namespace olt_host
