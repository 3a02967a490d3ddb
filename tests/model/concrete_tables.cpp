#include "tables.h"

namespace model {

namespace {

bool IsValidId(u16 id) { return id != 0 && id != 65535; }

// Later profiles move down by assignment, so each place keeps its key code.
void Erase(Profiles& profiles, size_t index) {
  profiles.erase(profiles.begin() + static_cast<std::ptrdiff_t>(index));
}

}  // namespace

// --- Match table

MatchTable::MatchTable() { MODEL_LOG(10, "OnuMatchAbilityTable start!"); }
MatchTable::~MatchTable() { MODEL_LOG(10, "release OnuMatchAbilityTable!"); }

u32 MatchTable::Add(Profile& profile) {
  MODEL_LOG(10, "OnuMatchAbilityTable::Add start!");
  Lock();
  profile.match_type = 2;
  MODEL_LOG(1, "find null!onu ability profile will be added");
  profiles.push_back(profile);
  Unlock();
  MODEL_LOG(10, "OnuMatchAbilityTable::Add profile end!");
  return 0;
}

u32 MatchTable::Del(const Profile& profile) {
  MODEL_LOG(10, "OnuMatchAbilityTable::DeleteItem start!");
  Lock();
  u32 ret = kNotFound;
  for (size_t i = profiles.size(); i-- > 0 && ret != 0;) {
    if (profiles[i].source != profile.source) {
      continue;
    }
    const bool chosen =
        IsValidId(profile.id) ? profiles[i].id == profile.id : profiles[i].Matches(profile) != 0;
    if (chosen) {
      Erase(profiles, i);
      ret = 0;
    }
  }
  if (ret == 0) {
    MODEL_LOG(9, "(Del)find ok!id:%hu", profile.id);
  } else {
    MODEL_LOG(1, "(Del)find null!id:%hu", profile.id);
  }
  Unlock();
  MODEL_LOG(10, "OnuMatchAbilityTable::DeleteItem end!");
  return ret;
}

u32 MatchTable::Recognise(Profile& profile) {
  MODEL_LOG(10, "OnuMatchAbilityTable::operator== start!");
  MODEL_LOG(6, "operator== start!flag_match_type:%d", profile.match_type);
  Lock();
  profile.match_type = 1;
  u32 answer = 0;
  for (size_t i = profiles.size(); i-- > 0 && answer == 0;) {
    if (profiles[i].Matches(profile) != 0) {
      profile = profiles[i];
      answer = 1;
    }
  }
  Unlock();
  MODEL_LOG(10, "OnuMatchAbilityTable::operator== end!");
  return answer;
}

// --- Real table

RealTable::RealTable() { MODEL_LOG(10, "OnuRealAbilityTable start!"); }
RealTable::~RealTable() { MODEL_LOG(10, "release OnuRealAbilityTable!"); }

u32 RealTable::Add(Profile& profile) {
  MODEL_LOG(10, "OnuRealAbilityTable::Add start!");
  Lock();
  profile.match_type = 2;
  if (profile.source == 0) {
    profiles.push_back(profile);
    Unlock();
    MODEL_LOG(10, "OnuRealAbilityTable::Add end!");
    return 0;
  }
  bool same_key = false;
  Value key_value;
  profile.GetValue(key_code, key_value);
  for (const Profile& stored : profiles) {
    if (stored.source == profile.source && stored.IsEqualValue(key_code, key_value) != 0) {
      same_key = true;
      break;
    }
  }
  bool same_id = false;
  if (IsValidId(profile.id)) {
    MODEL_LOG(4, "id:%hu", profile.id);
    for (const Profile& stored : profiles) {
      same_id = same_id || (stored.source == profile.source && stored.id == profile.id);
    }
  }
  if (same_id || same_key) {
    MODEL_LOG(9, "find ok!flag_same_id:%hhu,flag_same_realtype:%hhu", static_cast<u8>(same_id),
              static_cast<u8>(same_key));
    MODEL_LOG(10, "Add profile of OnuRealAbilityTable failed!");
    Unlock();
    MODEL_LOG(10, "OnuRealAbilityTable::Add end!");
    return kOperateFailed;
  }
  MODEL_LOG(1, "find null!flag_same_id:%hhu,flag_same_realtype:%hhu", static_cast<u8>(same_id),
            static_cast<u8>(same_key));
  profiles.push_back(profile);
  Unlock();
  MODEL_LOG(10, "OnuRealAbilityTable::Add end!");
  return 0;
}

u32 RealTable::DelByKey(int source, u32 key) {
  MODEL_LOG(10, "OnuRealAbilityTable::DelRealTableItem start!");
  Lock();
  u32 ret = kNotFound;
  for (size_t i = profiles.size(); i-- > 0 && ret != 0;) {
    if (profiles[i].source == source && profiles[i].bind_count == 0 &&
        profiles[i].IsEqualNumber(key_code, key) != 0) {
      MODEL_LOG(9, "find ok in SearchOnuAbilityTableForDel of OnuRealAbilityTable!");
      Erase(profiles, i);
      ret = 0;
    }
  }
  if (ret != 0) {
    MODEL_LOG(1, "DeleteItem of OnuRealAbilityTable failed!");
  }
  Unlock();
  MODEL_LOG(10, "OnuRealAbilityTable::DelRealTableItem end!");
  return ret;
}

u32 RealTable::Del(const Profile& profile) {
  MODEL_LOG(10, "OnuRealAbilityTable::DelItem start!");
  Lock();
  u32 key_value = 0;
  if (!IsValidId(profile.id)) {
    profile.GetNumber(key_code, key_value);
  }
  u32 ret = kNotFound;
  for (size_t i = profiles.size(); i-- > 0 && ret != 0;) {
    if (profiles[i].source != profile.source || profiles[i].bind_count != 0) {
      continue;
    }
    const u32 chosen = IsValidId(profile.id) ? profiles[i].HasRealType(profile.id)
                                             : profiles[i].IsEqualNumber(key_code, key_value);
    if (chosen != 0) {
      MODEL_LOG(9, "find(2) ok in SearchOnuAbilityTableForDel of OnuRealAbilityTable!");
      Erase(profiles, i);
      ret = 0;
    }
  }
  if (ret != 0) {
    MODEL_LOG(1, "DeleteItem of OnuRealAbilityTable failed!");
  }
  Unlock();
  MODEL_LOG(10, "OnuRealAbilityTable::DelItem end!");
  return ret;
}

Profile* RealTable::FindBindable(u32 key) {
  for (Profile& profile : profiles) {
    u32 key_value = 0;
    profile.GetNumber(key_code, key_value);
    if (key_value == key && profile.source == 1) {
      return &profile;
    }
  }
  MODEL_LOG(1, "find null in OnuRealAbilityTable!key_ability_value:%d", static_cast<int>(key));
  return nullptr;
}

u32 RealTable::AddBindCount(u32 key) {
  Lock();
  Profile* profile = FindBindable(key);
  if (profile != nullptr) {
    ++profile->bind_count;
  }
  Unlock();
  return profile != nullptr ? 0 : kOperateFailed;
}

u32 RealTable::MinusBindCount(u32 key) {
  Lock();
  Profile* profile = FindBindable(key);
  if (profile != nullptr && profile->bind_count > 0) {
    --profile->bind_count;
  }
  Unlock();
  return profile != nullptr ? 0 : kOperateFailed;
}

u32 RealTable::LampTotalByKey(u32 key) {
  Lock();
  u32 total = 0;
  for (auto profile = profiles.rbegin(); profile != profiles.rend(); ++profile) {
    if (profile->IsEqualNumber(key_code, key) != 0) {
      total = profile->GetTotalNum(3);
      break;
    }
  }
  MODEL_LOG(4, "key_ability_value:%d, totalnum:%d", static_cast<int>(key), static_cast<int>(total));
  Unlock();
  return total;
}

u32 RealTable::LampTotalByRealType(u16 real_type) {
  Lock();
  u32 total = 0;
  for (auto profile = profiles.rbegin(); profile != profiles.rend(); ++profile) {
    if (profile->IsEqualNumber(1081, real_type) != 0) {
      total = profile->GetTotalNum(3);
      break;
    }
  }
  MODEL_LOG(4, "onu_type:%d, totalnum:%d", real_type, static_cast<int>(total));
  Unlock();
  return total;
}

}  // namespace model
