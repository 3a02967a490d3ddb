// How a table's profiles change: each change is one step under the guard below the
// table's lock, for whoever reads without the lock, and leaves the table as it was when
// the memory does not suffice. What there is to say is said outside the guard.
#include <algorithm>
#include <iterator>
#include <new>
#include <utility>

#include "onu_ability_common_table/onu_ability_table_base.h"
#include "onu_ability_common_table/profile_index.h"
#include "onu_ability_common_table/table_lock.h"

// The index can be made anew from the profiles at any time. Where the memory does not
// suffice for it, the table walks until its next change.
template <typename Change>
void OnuAbilityTableBase::ChangeIndex(Change change) {
  if (_index == nullptr) {
    return;
  }
  try {
    if (_is_index_whole) {
      change(*_index);
    } else {
      _index->Rebuild(_vec_profile);
    }
    _is_index_whole = true;
  } catch (const std::bad_alloc&) {
    _is_index_whole = false;
  }
}

void OnuAbilityTableBase::RebuildIndex() {
  ChangeIndex([this](ProfileIndex& index)
                  ONU_ABILITY_REQUIRES(_mutex) { index.Rebuild(_vec_profile); });
}

void OnuAbilityTableBase::Append(const OnuAbilityProfile& profile) {
  // Grown by hand: the places that were outgrown say that they are released.
  std::vector<OnuAbilityProfile> outgrown;
  if (_vec_profile.size() == _vec_profile.capacity()) {
    outgrown.reserve(std::max<std::size_t>(1, 2 * _vec_profile.size()));
  }
  const WriteScope scope(_contents);
  if (outgrown.capacity() != 0) {
    for (auto& stored : _vec_profile) {
      outgrown.push_back(std::move(stored));
    }
    _vec_profile.swap(outgrown);
  }
  _vec_profile.push_back(profile);
  ChangeIndex([this](ProfileIndex& index)
                  ONU_ABILITY_REQUIRES(_mutex) { index.Append(_vec_profile.back()); });
}

void OnuAbilityTableBase::Erase(std::vector<OnuAbilityProfile>::reverse_iterator profile) {
  {
    const WriteScope scope(_contents);
    const auto place = std::next(profile).base();
    std::move(std::next(place), _vec_profile.end(), place);
    _vec_profile.back()._handling.says_its_end = false;
    _vec_profile.pop_back();
    RebuildIndex();
  }
  OnuAbilityProfile::SayReleased();
}

void OnuAbilityTableBase::EraseFrom(ONU_ABILITY_ENUM_PROFILE_SOURCE source) {
  std::size_t removed = 0;
  {
    const WriteScope scope(_contents);
    // What moves up keeps the place's own key ability code, as with each erased alone.
    const auto kept =
        std::remove_if(_vec_profile.begin(), _vec_profile.end(),
                       [source](const auto& profile) { return profile._profile_source == source; });
    removed = static_cast<std::size_t>(_vec_profile.end() - kept);
    for (auto profile = kept; profile != _vec_profile.end(); ++profile) {
      profile->_handling.says_its_end = false;
    }
    _vec_profile.erase(kept, _vec_profile.end());
    RebuildIndex();
  }
  for (; removed != 0; --removed) {
    OnuAbilityProfile::SayReleased();
  }
}

void OnuAbilityTableBase::TakeOver(OnuAbilityProfile& stored, OnuAbilityProfile& draft,
                                   unsigned short code) {
  const WriteScope scope(_contents);
  stored._common_ability.swap(draft._common_ability);
  stored._common_ability_num = draft._common_ability_num;
  ChangeIndex([&](ProfileIndex& index) ONU_ABILITY_REQUIRES(_mutex) {
    index.NoteValue(_vec_profile, PositionOf(stored), code);
  });
}

void OnuAbilityTableBase::Restore(std::vector<OnuAbilityProfile> profiles) {
  const TableLock lock(_mutex);
  const WriteScope scope(_contents);
  _vec_profile.swap(profiles);
  RebuildIndex();
}
