#include "exchanged_content.h"

#include <stdexcept>
#include <vector>

#include "platform/variant_bytes.h"
#include "state/library_state.h"
#include "state/state_file.h"

namespace exchange {

namespace {

constexpr unsigned short kPorts = 0x0102;
constexpr unsigned short kVendor = 1082;
constexpr unsigned short kName = 1083;
constexpr unsigned short kKey = 1085;

void DefineCode(unsigned short code, const char* name, unsigned short value_type) {
  ONU_ABILITY_CODE_ATTR_INFO info;
  info.ability_code = code;
  info.ability_name = name;
  info.ability_attr[ONU_ABILITY_ATTR_CONFIRM_TYPE] = 3;
  info.ability_attr[ONU_ABILITY_ATTR_PORT_TYPE] = 0x0304;
  info.ability_attr[ONU_ABILITY_ATTR_VALUE_TYPE] = value_type;
  OnuAbilityCodeInfo::GetInstance()->Update(info);
}

void AddProfile(ONU_ABILITY_ENUM_PROFILE_TYPE type, unsigned int key) {
  OnuAbilityProfile profile;
  profile.Init(type, ONU_ABILITY_PROFILE_SOURCE_EXTERNAL, ONU_ABILITY_MATCH_TYPE_EXACT);
  profile.Add(key);
  profile.Add(kPorts, 0xA1B2C3D4U);
  profile.Add(kVendor, std::string("ABCD"));
  profile.Add(kName, "TYPE-" + std::to_string(key));
  if (OnuAbilityTableManager::GetInstance()->Add(profile) != ONU_ABILITY_RET_OK) {
    throw std::runtime_error("the library refuses a profile");
  }
}

}  // namespace

void FillRegistries() {
  OnuAbilityAttrInfo* attributes = OnuAbilityAttrInfo::GetInstance();
  attributes->Add(ONU_ABILITY_ATTR_CONFIRM_TYPE, "CONFIRM_TYPE");
  attributes->Add(ONU_ABILITY_ATTR_PORT_TYPE, "PORT_TYPE");
  attributes->Add(ONU_ABILITY_ATTR_VALUE_TYPE, "VALUE_TYPE");
  attributes->Add(static_cast<ONU_ABILITY_ENUM_ABILITY_ATTR_ID>(0x0506), "COLOUR");
  DefineCode(kPorts, "PORTS", ONU_ABILITY_VALUE_TYPE_USHORT);
  DefineCode(kVendor, "VENDOR_ID", ONU_ABILITY_VALUE_TYPE_STRING);
  DefineCode(kName, "TYPE_NAME", ONU_ABILITY_VALUE_TYPE_STRING);
  DefineCode(kKey, "KEY_VALUE", ONU_ABILITY_VALUE_TYPE_USHORT);
}

void FillTables() {
  OnuAbilityTableManager::GetInstance()->Init();
  for (unsigned int key : {0x01020304U, 5001U, 0x80000001U}) {
    AddProfile(ONU_ABILITY_PROFILE_TYPE_MATCH, key);
    AddProfile(ONU_ABILITY_PROFILE_TYPE_REAL, key);
  }
}

olt_host::Catalogue CatalogueOfTheBoard() {
  olt_host::Catalogue catalogue;
  catalogue.key_ability_code = kKey;
  catalogue.sfu_common_type = 0x0708;
  olt_host::AttributeEntry attribute;
  attribute.id = ONU_ABILITY_ATTR_VALUE_TYPE;
  attribute.name = "VALUE_TYPE";
  catalogue.attributes.push_back(attribute);
  olt_host::CodeEntry code;
  code.code = 0x090A;
  code.name = "DELETED_BY_AN_OPERATOR";
  code.attributes[ONU_ABILITY_ATTR_VALUE_TYPE] = ONU_ABILITY_VALUE_TYPE_USHORT;
  catalogue.codes.push_back(code);
  return catalogue;
}

OnuAbilityProfile SerialisedProfile() {
  OnuAbilityProfile profile;
  profile.Init(ONU_ABILITY_PROFILE_TYPE_REAL, ONU_ABILITY_PROFILE_SOURCE_EXTERNAL,
               ONU_ABILITY_MATCH_TYPE_EXACT);
  profile._id = 0x7A3B;
  profile._bind_count = 0x01020304;
  profile.Add(0x80000001U);
  profile.Add(kPorts, 0xA1B2C3D4U);
  profile.Add(kName, std::string("SDX-611"));
  return profile;
}

std::string ProfileBytes() {
  OnuAbilityProfile profile = SerialisedProfile();
  Variant variant;
  profile.Serialize(variant);
  const std::vector<unsigned char>& bytes = olt_host::VariantBytes(variant);
  return std::string(bytes.begin(), bytes.end());
}

std::string StateBytes() {
  return olt_host::EncodeState(olt_host::CaptureLibrary(), CatalogueOfTheBoard());
}

}  // namespace exchange
