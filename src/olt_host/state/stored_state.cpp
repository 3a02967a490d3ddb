#include "state/stored_state.h"

#include <set>

#include "state/state_file.h"
#include "state/state_frame.h"
#include "state/stored_profile.h"

namespace olt_host {

namespace {

// The sections, in the order in which they stand.
constexpr const char* kSettings = "SETT";
constexpr const char* kAttributes = "ATTR";
constexpr const char* kCodes = "CODE";
constexpr const char* kDeletedCodes = "GONE";
constexpr const char* kMatchProfiles = "MTCH";
constexpr const char* kRealProfiles = "REAL";

std::uint32_t Count(std::size_t size) { return static_cast<std::uint32_t>(size); }

void WriteSetting(ByteWriter& writer, const Stored<unsigned short>& setting) {
  writer.Number16(setting.value);
  writer.Number8(setting.changed ? 1 : 0);
}

std::string WriteSettings(const StoredState& stored) {
  ByteWriter writer;
  WriteSetting(writer, stored.key_ability_code);
  WriteSetting(writer, stored.sfu_common_type);
  WriteSetting(writer, stored.hgu_common_type);
  return writer.bytes();
}

std::string WriteAttributes(const StoredState& stored) {
  ByteWriter writer;
  writer.Number32(Count(stored.attributes.size()));
  for (const auto& [attribute, changed] : stored.attributes) {
    writer.Number16(attribute.id);
    writer.Number8(changed ? 1 : 0);
    writer.Text(attribute.name);
  }
  return writer.bytes();
}

std::string WriteCodes(const StoredState& stored) {
  ByteWriter writer;
  writer.Number32(Count(stored.codes.size()));
  for (const auto& [code, changed] : stored.codes) {
    writer.Number16(code.ability_code);
    writer.Number8(changed ? 1 : 0);
    writer.Text(code.ability_name);
    writer.Number32(Count(code.ability_attr.size()));
    for (const auto& [id, value] : code.ability_attr) {
      writer.Number16(static_cast<std::uint16_t>(id));
      writer.Number16(value);
    }
  }
  return writer.bytes();
}

std::string WriteDeletedCodes(const StoredState& stored) {
  ByteWriter writer;
  writer.Number32(Count(stored.deleted_codes.size()));
  for (const unsigned short code : stored.deleted_codes) writer.Number16(code);
  return writer.bytes();
}

std::string WriteProfiles(const std::vector<OnuAbilityProfile>& profiles) {
  ByteWriter writer;
  writer.Number32(Count(profiles.size()));
  for (const OnuAbilityProfile& profile : profiles) WriteProfile(writer, profile);
  return writer.bytes();
}

Stored<unsigned short> ReadSetting(ByteReader& reader) {
  Stored<unsigned short> setting;
  setting.value = reader.Number16();
  setting.changed = reader.Flag();
  return setting;
}

void ReadSettings(ByteReader& reader, StoredState& stored) {
  stored.key_ability_code = ReadSetting(reader);
  stored.sfu_common_type = ReadSetting(reader);
  stored.hgu_common_type = ReadSetting(reader);
}

// Names end up on terminals and in the library as terminated text.
std::string ReadName(ByteReader& reader) {
  std::string name = reader.Text();
  if (name.find('\0') != std::string::npos) reader.Fail("holds a name with a NUL byte");
  return name;
}

void ReadAttributes(ByteReader& reader, StoredState& stored) {
  const std::uint32_t count = reader.Number32();
  std::set<std::string> names;
  for (std::uint32_t i = 0; i < count; ++i) {
    Stored<StoredAttribute> entry;
    entry.value.id = reader.Number16();
    entry.changed = reader.Flag();
    entry.value.name = ReadName(reader);
    const auto& last = stored.attributes;
    if (entry.value.id <= (last.empty() ? 0 : last.back().value.id)) {
      reader.Fail("has id " + std::to_string(entry.value.id) +
                  " out of order; expected ascending ids from 1");
    }
    if (!names.insert(entry.value.name).second) {
      reader.Fail("has two attributes of one name; expected a name of its own for each");
    }
    stored.attributes.push_back(std::move(entry));
  }
}

Stored<ONU_ABILITY_CODE_ATTR_INFO> ReadCode(ByteReader& reader,
                                            const std::set<unsigned short>& attributes) {
  Stored<ONU_ABILITY_CODE_ATTR_INFO> entry;
  ONU_ABILITY_CODE_ATTR_INFO& code = entry.value;
  code.ability_code = reader.Number16();
  entry.changed = reader.Flag();
  code.ability_name = ReadName(reader);
  code.ability_attr.clear();
  const std::uint32_t count = reader.Number32();
  for (std::uint32_t i = 0; i < count; ++i) {
    const std::uint16_t id = reader.Number16();
    const std::uint16_t value = reader.Number16();
    // The value type belongs to every code, registered or not; and asking what a code
    // confirms leaves a 0 behind.
    if (id != ONU_ABILITY_ATTR_VALUE_TYPE && value != 0 && attributes.count(id) == 0) {
      reader.Fail("uses attribute " + std::to_string(id) + " in code " +
                  std::to_string(code.ability_code) + "; expected one that is registered");
    }
    const auto attribute = static_cast<ONU_ABILITY_ENUM_ABILITY_ATTR_ID>(id);
    if (!code.ability_attr.emplace(attribute, value).second) {
      reader.Fail("states attribute " + std::to_string(id) + " of code " +
                  std::to_string(code.ability_code) + " twice; expected every attribute once");
    }
  }
  return entry;
}

void ReadCodes(ByteReader& reader, StoredState& stored) {
  std::set<unsigned short> attributes;
  for (const auto& entry : stored.attributes) attributes.insert(entry.value.id);
  const std::uint32_t count = reader.Number32();
  std::set<unsigned short> codes;
  std::set<std::string> names;
  for (std::uint32_t i = 0; i < count; ++i) {
    auto entry = ReadCode(reader, attributes);
    if (!codes.insert(entry.value.ability_code).second ||
        !names.insert(entry.value.ability_name).second) {
      reader.Fail("has a second code " + std::to_string(entry.value.ability_code) +
                  ", or a second one of its name; expected every code and name once");
    }
    stored.codes.push_back(std::move(entry));
  }
}

void ReadDeletedCodes(ByteReader& reader, StoredState& stored) {
  const std::uint32_t count = reader.Number32();
  for (std::uint32_t i = 0; i < count; ++i) stored.deleted_codes.push_back(reader.Number16());
}

std::vector<OnuAbilityProfile> ReadProfiles(ByteReader& reader,
                                            ONU_ABILITY_ENUM_PROFILE_TYPE type) {
  const std::uint32_t count = reader.Number32();
  std::vector<OnuAbilityProfile> profiles;
  std::set<unsigned short> ids;
  for (std::uint32_t i = 0; i < count; ++i) {
    profiles.push_back(ReadProfile(reader, type));
    const OnuAbilityProfile& profile = profiles.back();
    // The table of real profiles refuses a second one of an id; the other takes it.
    if (type == ONU_ABILITY_PROFILE_TYPE_REAL && profile.HasId() &&
        !ids.insert(profile._id).second) {
      reader.Fail("has two profiles with id " + std::to_string(profile._id) +
                  "; expected an id of its own for each");
    }
  }
  return profiles;
}

}  // namespace

std::string EncodeStored(const StoredState& stored) {
  return FrameSections({{kSettings, WriteSettings(stored)},
                        {kAttributes, WriteAttributes(stored)},
                        {kCodes, WriteCodes(stored)},
                        {kDeletedCodes, WriteDeletedCodes(stored)},
                        {kMatchProfiles, WriteProfiles(stored.match_profiles)},
                        {kRealProfiles, WriteProfiles(stored.real_profiles)}});
}

StoredState DecodeStored(std::string_view content) {
  const std::vector<StateSection> sections = UnframeSections(content);
  StoredState stored;
  std::size_t next = 0;
  const auto read = [&sections, &next](const char* name, auto read_content) {
    if (next == sections.size() || sections[next].name != name) {
      throw StateError("lacks the section " + std::string(name));
    }
    ByteReader reader(sections[next].bytes, "section " + std::string(name));
    read_content(reader);
    reader.RequireEnd();
    ++next;
  };
  read(kSettings, [&stored](ByteReader& reader) { ReadSettings(reader, stored); });
  read(kAttributes, [&stored](ByteReader& reader) { ReadAttributes(reader, stored); });
  read(kCodes, [&stored](ByteReader& reader) { ReadCodes(reader, stored); });
  read(kDeletedCodes, [&stored](ByteReader& reader) { ReadDeletedCodes(reader, stored); });
  read(kMatchProfiles, [&stored](ByteReader& reader) {
    stored.match_profiles = ReadProfiles(reader, ONU_ABILITY_PROFILE_TYPE_MATCH);
  });
  read(kRealProfiles, [&stored](ByteReader& reader) {
    stored.real_profiles = ReadProfiles(reader, ONU_ABILITY_PROFILE_TYPE_REAL);
  });
  if (next != sections.size()) throw StateError("has a section too many; expected 6");
  return stored;
}

}  // namespace olt_host
