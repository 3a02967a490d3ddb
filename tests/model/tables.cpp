#include "tables.h"

namespace model {

namespace {

int NewMutex() {
  static int mutexes = 0;
  TheRecord().locks.push_back({LockCall::kConstruct, mutexes});
  return mutexes++;
}

// The index of the newest profile for which `fits` holds, -1 without one.
template <typename Test>
int FindNewest(const Profiles& profiles, Test fits) {
  for (int i = static_cast<int>(profiles.size()) - 1; i >= 0; --i) {
    if (fits(profiles[static_cast<size_t>(i)])) {
      return i;
    }
  }
  return -1;
}

}  // namespace

Table::Table() : key_code(Codes().key_code), mutex_(NewMutex()) {
  MODEL_LOG(10, "OnuAbilityTableBase start!");
}

Table::~Table() {
  MODEL_LOG(10, "release OnuAbilityTableBase!");
  TheRecord().locks.push_back({LockCall::kDestroy, mutex_});
}

void Table::Lock() const { TheRecord().locks.push_back({LockCall::kLock, mutex_}); }
void Table::Unlock() const { TheRecord().locks.push_back({LockCall::kUnlock, mutex_}); }

// --- Inert here

u32 Table::Add(Profile&) {
  MODEL_LOG(10, "OnuAbilityTableBase::Add!");
  return 0;
}

u32 Table::Del(const Profile&) {
  MODEL_LOG(10, "OnuAbilityTableBase::Del profile!");
  return 0;
}

u32 Table::DelByKey(int, u32) {
  MODEL_LOG(10, "OnuAbilityTableBase::Del profile!");
  return 0;
}

u32 Table::Recognise(Profile&) {
  MODEL_LOG(10, "OnuAbilityTableBase::operator==!");
  return 1;
}

u32 Table::LampTotalByKey(u32) {
  MODEL_LOG(10, "OnuAbilityTableBase::GetLampTotalNum start!");
  return 0;
}

u32 Table::LampTotalByRealType(u16) {
  MODEL_LOG(10, "OnuAbilityTableBase::GetLampTotalNum start!");
  return 0;
}

u32 Table::AddBindCount(u32) { return 0; }
u32 Table::MinusBindCount(u32) { return 0; }

// --- Tests and changes

u32 Table::IsExist(u16 code) {
  for (const Profile& profile : profiles) {
    if (profile.IsExist(code)) {
      u32 key_value = 0;
      profile.GetNumber(Codes().key_code, key_value);
      MODEL_LOG(6, "ability_code exist!key_ability_value:%d, ability_code:%d",
                static_cast<int>(key_value), code);
      return 1;
    }
  }
  return 0;
}

u32 Table::IsExistKey(int source, u32 key) {
  MODEL_LOG(10, "(OnuAbilityTableBase)function start!");
  Lock();
  const int found = FindNewest(profiles, [&](const Profile& profile) {
    return profile.IsEqualOfSource(source, key_code, key) != 0;
  });
  if (found >= 0) {
    MODEL_LOG(9, "find ok in GetOnuAllAbilityValue of OnuAbilityTableBase!");
  } else {
    MODEL_LOG(1, "find null in GetOnuAllAbilityValue of OnuAbilityTableBase!");
  }
  Unlock();
  return found >= 0 ? 1 : 0;
}

u32 Table::IsEqual(int source, u16 code, u32 value) {
  for (const Profile& profile : profiles) {
    if (profile.IsEqualOfSource(source, code, value) != 0) {
      return 1;
    }
  }
  MODEL_LOG(1,
            "ability value is not equal!profile_source:%d, ability_code:%d, ability_name:%s, "
            "ability_value:%d",
            source, code, MODEL_NAME(code), static_cast<int>(value));
  return 0;
}

u32 Table::AddNumber(int source, u32 key, u16 code, u32 value) {
  MODEL_LOG(10, "Add-1 profile start!");
  Lock();
  for (Profile& profile : profiles) {
    if (profile.source == source && profile.HasKey(key) != 0) {
      profile.AddNumber(code, value);
      Unlock();
      MODEL_LOG(10, "Add-1 profile end!");
      return 0;
    }
  }
  MODEL_LOG(1,
            "Add-1 failed!profile_source:%d, key_ability_value:%d, ability_code:%d, "
            "ability_name:%s, ability_value:%d",
            source, static_cast<int>(key), code, MODEL_NAME(code), static_cast<int>(value));
  Unlock();
  return kOperateFailed;
}

u32 Table::AddText(int source, u32 key, u16 code, const std::string& value) {
  MODEL_LOG(10, "Add-string profile start!");
  Lock();
  for (Profile& profile : profiles) {
    if (profile.source == source && profile.HasKey(key) != 0) {
      profile.AddText(code, value);
      Unlock();
      MODEL_LOG(10, "Add-string profile end!");
      return 0;
    }
  }
  MODEL_LOG(1,
            "Add-string failed!profile_source:%d, key_ability_value:%d, ability_code:%d, "
            "ability_name:%s, ability_value:%s",
            source, static_cast<int>(key), code, MODEL_NAME(code), value.c_str());
  Unlock();
  return kOperateFailed;
}

u32 Table::DelAll(int source) {
  MODEL_LOG(10, "OnuAbilityTableBase::Del All profile start!");
  Lock();
  for (auto profile = profiles.begin(); profile != profiles.end();) {
    if (profile->source == source) {
      profile = profiles.erase(profile);
    } else {
      ++profile;
    }
  }
  Unlock();
  MODEL_LOG(10, "OnuAbilityTableBase::Del All profile end!");
  return 0;
}

u32 Table::GetNewId(int source, u16& id) {
  Lock();
  id = 65535;
  for (u16 candidate = 30001; candidate <= 65533 && id == 65535; ++candidate) {
    bool taken = false;
    for (const Profile& profile : profiles) {
      taken = taken || (profile.source == source && profile.id == candidate);
    }
    if (!taken) {
      id = candidate;
    }
  }
  MODEL_LOG(4, "index:%d", id);
  Unlock();
  return 0;
}

// --- Lookups of profiles

u32 Table::GetAllByKey(int source, u32 key, Profiles& out) {
  MODEL_LOG(10,
            "(OnuAbilityTableBase)function start!profile_source:%d, key_ability_code:%d, "
            "ability_name:%s, ability_value:0x%x",
            source, key_code, MODEL_NAME(key_code), key);
  out.clear();
  Lock();
  for (auto profile = profiles.rbegin(); profile != profiles.rend(); ++profile) {
    if (profile->IsEqualOfSource(source, key_code, key) != 0) {
      out.push_back(*profile);
    }
  }
  if (out.empty()) {
    MODEL_LOG(1, "find null in GetOnuAllAbilityValue of OnuAbilityTableBase!");
  } else {
    MODEL_LOG(9, "find ok in GetOnuAllAbilityValue of OnuAbilityTableBase, match num:%d.",
              static_cast<int>(out.size()));
  }
  Unlock();
  MODEL_LOG(10, "(OnuAbilityTableBase)function end!");
  return out.empty() ? kNotFound : 0;
}

u32 Table::GetAllByRealType(int source, u16 real_type, Profiles& out) {
  MODEL_LOG(10, "(OnuAbilityTableBase)function start!profile_source:%d, onu_real_type:%d", source,
            real_type);
  out.clear();
  Lock();
  for (auto profile = profiles.rbegin(); profile != profiles.rend(); ++profile) {
    if (profile->IsEqualOfSource(source, 1081, real_type) != 0) {
      out.push_back(*profile);
    }
  }
  if (out.empty()) {
    MODEL_LOG(1, "find null in GetOnuAllAbilityValue of OnuAbilityTableBase!");
  } else {
    MODEL_LOG(9, "find ok in GetOnuAllAbilityValue of OnuAbilityTableBase, match num:%d.",
              static_cast<int>(out.size()));
  }
  Unlock();
  MODEL_LOG(10, "(OnuAbilityTableBase)function end!");
  return out.empty() ? kNotFound : 0;
}

u32 Table::GetByKey(int source, u32 key, Profile& out) {
  Lock();
  const int found = FindNewest(profiles, [&](const Profile& profile) {
    return profile.IsEqualOfSource(source, key_code, key) != 0;
  });
  if (found >= 0) {
    out = profiles[static_cast<size_t>(found)];
    MODEL_LOG(9, "find ok in GetOnuAllAbilityValue of OnuAbilityTableBase!");
  } else {
    MODEL_LOG(1, "find null in GetOnuAllAbilityValue of OnuAbilityTableBase!");
  }
  Unlock();
  return found >= 0 ? 0 : kNotFound;
}

u32 Table::GetByRealType(int, u16 real_type, Profile& out) {
  Lock();
  const int found = FindNewest(
      profiles, [&](const Profile& profile) { return profile.HasRealType(real_type) != 0; });
  if (found >= 0) {
    out = profiles[static_cast<size_t>(found)];
    MODEL_LOG(9, "find ok in GetOnuAllAbilityValue of OnuAbilityTableBase!");
  } else {
    MODEL_LOG(1, "find null in GetOnuAllAbilityValue of OnuAbilityTableBase!");
  }
  Unlock();
  return found >= 0 ? 0 : kNotFound;
}

// --- Lookups of values

u32 Table::GetNumberByKey(u32 key, u16 code, u32& value) {
  MODEL_LOG(10,
            "(OnuAbilityTableBase)function start!key_ability_code:%d, key_ability_value:%d, "
            "ability_code:%d, ability_name:%s",
            key_code, static_cast<int>(key), code, MODEL_NAME(code));
  Lock();
  const int found = FindNewest(
      profiles, [&](const Profile& profile) { return profile.IsEqualNumber(key_code, key) != 0; });
  u32 ret = 0;
  if (found < 0) {
    MODEL_LOG(1,
              "find null!key_ability_code:%d, key_ability_value:%d, abilitycode %d, "
              "ability_name:%s",
              key_code, static_cast<int>(key), code, MODEL_NAME(code));
    value = 0;
    ret = kNotFound;
  } else if ((ret = profiles[static_cast<size_t>(found)].GetNumber(code, value)) != 0) {
    MODEL_LOG(1,
              "Get ability value failed!ret:0x%x, key_ability_code:%d, key_ability_value:%d, "
              "ability_code:%d, ability_name:%s",
              ret, key_code, static_cast<int>(key), code, MODEL_NAME(code));
    value = 0;
    ret = kOperateFailed;
  } else {
    MODEL_LOG(9,
              "find ok!key_ability_code:%d, key_ability_value:%d, abilitycode %d, "
              "ability_name:%s, ability_value:%d",
              key_code, static_cast<int>(key), code, MODEL_NAME(code), static_cast<int>(value));
  }
  Unlock();
  return ret;
}

u32 Table::GetTextByKey(u32 key, u16 code, std::string& value) {
  MODEL_LOG(10,
            "(OnuAbilityTableBase)function start!key_ability_code:%d, key_ability_value:%d, "
            "ability_code:%d, ability_name:%s",
            key_code, static_cast<int>(key), code, MODEL_NAME(code));
  Lock();
  const int found = FindNewest(
      profiles, [&](const Profile& profile) { return profile.IsEqualNumber(key_code, key) != 0; });
  u32 ret = 0;
  if (found < 0) {
    MODEL_LOG(1,
              "find null!key_ability_code:%d, key_ability_value:%d, ability_code:%d, "
              "ability_name:%s",
              key_code, static_cast<int>(key), code, MODEL_NAME(code));
    value = "NULL";
    ret = kNotFound;
  } else if ((ret = profiles[static_cast<size_t>(found)].GetText(code, value)) != 0) {
    MODEL_LOG(4,
              "Get ability value failed!ret:0x%x, key_ability_code:%d, key_ability_value:%d, "
              "ability_code:%d, ability_name:%s",
              ret, key_code, static_cast<int>(key), code, MODEL_NAME(code));
    value = "NULL";
    ret = kOperateFailed;
  } else {
    MODEL_LOG(9,
              "find ok!key_ability_code:%d, key_ability_value:%d, ability_code:%d, "
              "ability_name:%s, ability_value:%s",
              key_code, static_cast<int>(key), code, MODEL_NAME(code), value.c_str());
  }
  Unlock();
  return ret;
}

u32 Table::GetNumberByRealType(u16 real_type, u16 code, u32& value) {
  MODEL_LOG(10,
            "(OnuAbilityTableBase)function start!key_ability_code:%d, onu_real_type:%d, "
            "ability_code:%d, ability_name:%s",
            key_code, real_type, code, MODEL_NAME(code));
  Lock();
  const int found = FindNewest(profiles, [&](const Profile& profile) {
    return profile.IsEqualNumber(1081, real_type) != 0;
  });
  u32 ret = 0;
  if (found < 0) {
    MODEL_LOG(1,
              "find null!key_ability_code:%d, onu_real_type:%d, abilitycode %d, "
              "ability_name:%s",
              key_code, real_type, code, MODEL_NAME(code));
    value = 0;
    ret = kNotFound;
  } else if ((ret = profiles[static_cast<size_t>(found)].GetNumber(code, value)) != 0) {
    MODEL_LOG(1,
              "Get ability value failed!ret:0x%x, key_ability_code:%d, onu_real_type:%d, "
              "ability_code:%d, ability_name:%s",
              ret, key_code, real_type, code, MODEL_NAME(code));
    value = 0;
    ret = kOperateFailed;
  } else {
    MODEL_LOG(9,
              "find ok!key_ability_code:%d, onu_real_type:%d, abilitycode %d, ability_name:%s, "
              "ability_value:%d",
              key_code, real_type, code, MODEL_NAME(code), static_cast<int>(value));
  }
  Unlock();
  return ret;
}

u32 Table::GetTextByRealType(u16 real_type, u16 code, std::string& value) {
  Lock();
  const int found = FindNewest(
      profiles, [&](const Profile& profile) { return profile.HasRealType(real_type) != 0; });
  u32 ret = 0;
  if (found < 0) {
    MODEL_LOG(1, "find null!onu_real_type:%d, ability_code:%d, ability_name:%s", real_type, code,
              MODEL_NAME(code));
    value = "NULL";
    ret = kNotFound;
  } else if ((ret = profiles[static_cast<size_t>(found)].GetText(code, value)) != 0) {
    MODEL_LOG(4,
              "Get ability value failed!ret:0x%x, onu_real_type:%d, ability_code:%d, "
              "ability_name:%s",
              ret, real_type, code, MODEL_NAME(code));
    value = "NULL";
    ret = kOperateFailed;
  } else {
    MODEL_LOG(9, "find ok!onu_real_type:%d, ability_code:%d, ability_name:%s, ability_value:%s",
              real_type, code, MODEL_NAME(code), value.c_str());
  }
  Unlock();
  return ret;
}

}  // namespace model
