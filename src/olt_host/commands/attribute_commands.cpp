// The commands about the attributes of ability codes.
#include <cstdlib>
#include <map>
#include <string>
#include <vector>

#include "catalogue/registries.h"
#include "commands/host_commands.h"
#include "commands/host_context.h"
#include "commands/text_table.h"
#include "onu_ability_common_table.h"
#include "text/number.h"
#include "vty/json_output.h"
#include "vty/terminal.h"

namespace olt_host {

namespace {

using Json = nlohmann::ordered_json;

const char* FixedMeaning(unsigned short id) {
  switch (id) {
    case ONU_ABILITY_ATTR_CONFIRM_TYPE:
      return "confirms types: 1 compared, 2 asked from the ONU";
    case ONU_ABILITY_ATTR_LAMP:
      return "not 0: counts lamps";
    case ONU_ABILITY_ATTR_PORT_TYPE:
      return "3 LAN port, 3 or 7 data UNI";
    case ONU_ABILITY_ATTR_VALUE_TYPE:
      return "2 number, 3 string";
    default:
      return "";
  }
}

// The codes whose value of the attribute is not 0.
std::size_t CountCodes(unsigned short id) {
  std::size_t codes = 0;
  for (const ONU_ABILITY_CODE_ATTR_INFO& record : RegisteredCodes()) {
    const auto value = record.ability_attr.find(static_cast<ONU_ABILITY_ENUM_ABILITY_ATTR_ID>(id));
    codes += value != record.ability_attr.end() && value->second != 0 ? 1 : 0;
  }
  return codes;
}

int ShowAttributes(cmd_element* /*element*/, struct vty* vty, int argc, char** argv) {
  const std::map<unsigned short, std::string> attributes = RegisteredAttributes();
  if (WantsJson(argc, argv)) {
    Json list = Json::array();
    for (const auto& [id, name] : attributes) {
      const std::string meaning = FixedMeaning(id);
      list.push_back({{"id", id},
                      {"name", name},
                      {"codes", CountCodes(id)},
                      {"meaning", meaning.empty() ? Json(nullptr) : Json(meaning)}});
    }
    WriteJson(*vty, {{"attributes", list}});
    return 0;
  }
  if (attributes.empty()) {
    vty_out(vty, "No attributes\r\n");
    return 0;
  }
  TextTable table({{"Id", Align::kRight},
                   {"Name", Align::kLeft},
                   {"Codes", Align::kRight},
                   {"Fixed meaning", Align::kLeft}});
  for (const auto& [id, name] : attributes) {
    const std::string meaning = FixedMeaning(id);
    table.Add({std::to_string(id), name, std::to_string(CountCodes(id)),
               meaning.empty() ? "-" : meaning});
  }
  table.Write(*vty);
  return 0;
}

// As catalogues have them, so that every attribute can stand in one.
bool IsAttributeName(const std::string& name) {
  for (const char c : name) {
    const auto byte = static_cast<unsigned char>(c);
    if (byte <= 0x20 || byte == 0x7F) {
      return false;
    }
  }
  return !name.empty() && !IsAllDigits(name);
}

int RegisterAttribute(cmd_element* /*element*/, struct vty* vty, int /*argc*/, char** argv) {
  const auto id = static_cast<unsigned short>(std::strtoul(argv[0], nullptr, 10));
  const std::string name = argv[1];
  if (!IsAttributeName(name)) {
    return vty->Refuse("\"" + name +
                       "\" is no name of an attribute, expected one word that is "
                       "no number");
  }
  const std::map<unsigned short, std::string> attributes = RegisteredAttributes();
  const auto taken = attributes.find(id);
  if (taken != attributes.end() && taken->second != name) {
    return vty->Refuse("Attribute " + std::to_string(id) + " is already " + taken->second);
  }
  for (const auto& [other, other_name] : attributes) {
    if (other_name == name && other != id) {
      return vty->Refuse(name + " is already the name of attribute " + std::to_string(other));
    }
  }
  // Saying again what is so already is no mistake: lines of "show running-config" do.
  if (taken == attributes.end()) {
    OnuAbilityAttrInfo::GetInstance()->Add(static_cast<ONU_ABILITY_ENUM_ABILITY_ATTR_ID>(id), name);
  }
  WriteLines(*vty, "Attribute " + std::to_string(id) + " is " + name + "\n");
  return 0;
}

cmd_element register_cmd = {"register attribute <1-65535> <string>", RegisterAttribute,
                            "add to a registry\r\n"
                            "an attribute that ability codes can have\r\n"
                            "its id, not taken yet\r\n"
                            "its name, one word that is no number\r\n"};

cmd_element show_cmd = {"show attribute {[json]}*1", ShowAttributes,
                        "show what the host holds\r\n"
                        "the attributes that ability codes can have\r\n"
                        "as a JSON document\r\n"};

}  // namespace

void InstallAttributeCommands() {
  for (cmd_element* command : {&register_cmd, &show_cmd}) {
    install_element(kCommandNode, command);
  }
}

}  // namespace olt_host
