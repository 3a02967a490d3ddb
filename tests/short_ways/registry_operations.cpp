// The registries of attributes and codes, by their operations and by direct change of
// the records that were handed out.
#include <utility>

#include "stage.h"
#include "texts.h"

namespace {

OnuAbilityAttrInfo& Attributes() { return *OnuAbilityAttrInfo::GetInstance(); }
OnuAbilityCodeInfo& Codes() { return *OnuAbilityCodeInfo::GetInstance(); }

void AddAttribute(Stage& stage, HostileInput& random) {
  const auto id = random.AttributeId();
  const std::string name = random.AttributeName();
  stage.Say(Words("AttrInfo.Add(", id, ", ", Quoted(name), ")"));
  Attributes().Add(id, name);
}

void UpdateAttribute(Stage& stage, HostileInput& random) {
  const auto id = random.AttributeId();
  const std::string name = random.AttributeName();
  stage.Say(Words("AttrInfo.Update(", id, ", ", Quoted(name), ")"));
  Attributes().Update(id, name);
}

void DelAttribute(Stage& stage, HostileInput& random) {
  const auto id = random.AttributeId();
  const std::string name = random.AttributeName();
  if (random.OneIn(2)) {
    stage.Say(Words("AttrInfo.Del(", id, ")"));
    Attributes().Del(id);
  } else {
    stage.Say("AttrInfo.Del(" + Quoted(name) + ")");
    Attributes().Del(name);
  }
}

// An attribute can go once no record has it: each is replaced by one without. Putting
// the old records back leaves them with an attribute that is not registered.
void RetireAttribute(Stage& stage, HostileInput& random) {
  const auto id = random.AttributeId();
  const bool puts_back = random.OneIn(2);
  stage.Say(Words("no record keeps attribute ", id, ", AttrInfo.Del",
                  puts_back ? ", the old records again" : ""));
  std::vector<ONU_ABILITY_CODE_ATTR_INFO> records;
  onu_ability_get_all_ability_attr_info(records);
  for (ONU_ABILITY_CODE_ATTR_INFO record : records) {
    if (record.ability_attr.erase(id) != 0) {
      Codes().Update(record);
    }
  }
  Attributes().Del(id);
  if (puts_back) {
    Codes().Restore(records);
  }
}

void AskAttribute(Stage& stage, HostileInput& random) {
  const auto id = random.AttributeId();
  const std::string name = random.AttributeName();
  stage.Say(Words("AttrInfo questions, id ", id, ", name ", Quoted(name)));
  stage.Note("IsValid", Attributes().IsValid(name));
  stage.Note("IsExist", Attributes().IsExist(id));
  stage.Note("name", Attributes().Get(id));
  stage.Note("id", Attributes().Get(name));
}

void ShowAttributes(Stage& stage, HostileInput& random) {
  const bool terminal = random.OneIn(2);
  stage.Say(terminal ? "AttrInfo.Show(vty)" : "AttrInfo.Show(null)");
  Attributes().Show(terminal ? &stage.terminal : nullptr);
}

void UpdateCode(Stage& stage, HostileInput& random) {
  ONU_ABILITY_CODE_ATTR_INFO record = random.Record();
  stage.Say("CodeInfo.Update(" + Shown(record) + ")");
  stage.Note("IsValid", Codes().IsValid(record));
  Codes().Update(record);
}

// A code of the catalogue keeps all of its attributes, and gives one another value.
void SetAttribute(Stage& stage, HostileInput& random) {
  const unsigned short code = random.Code();
  const auto id = random.AttributeId();
  const unsigned short value = random.AttributeValue();
  stage.Say(Words("code ", code, " gets attribute ", id, " = ", value));
  std::vector<ONU_ABILITY_CODE_ATTR_INFO> records;
  onu_ability_get_all_ability_attr_info(records);
  for (auto& record : records) {
    if (record.ability_code == code) {
      record.ability_attr[id] = value;
      Codes().Update(record);
      return;
    }
  }
}

void SetKeyCode(Stage& stage, HostileInput& random) {
  const unsigned short code = random.KeyCode();
  stage.Say(Words("CodeInfo.SetKeyAbilityCode(", code, ")"));
  Codes().SetKeyAbilityCode(code);
}

void AskCode(Stage& stage, HostileInput& random) {
  const unsigned short code = random.Code();
  const auto id = random.AttributeId();
  const std::string name = random.CodeName();
  stage.Say(Words("CodeInfo questions, code ", code, ", id ", id, ", name ", Quoted(name)));
  stage.Note("IsExist(code)", Codes().IsExist(code));
  stage.Note("IsExist(attribute)", Codes().IsExist(id));
  stage.Note("code", Codes().Get(name));
  stage.Note("name", Codes().Get(code));
  stage.Note("attribute", Codes().Get(code, id));
}

void DelCode(Stage& stage, HostileInput& random) {
  const unsigned short code = random.Code();
  const std::string name = random.CodeName();
  if (random.OneIn(2)) {
    stage.Say(Words("CodeInfo.Del(", code, ")"));
    stage.Note("result", Codes().Del(code));
  } else {
    stage.Say("CodeInfo.Del(" + Quoted(name) + ")");
    stage.Note("result", Codes().Del(name));
  }
}

void ShowCodes(Stage& stage, HostileInput& random) {
  void* vty = random.OneIn(6) ? nullptr : &stage.terminal;
  const unsigned short code = random.Code();
  const std::string text = random.Pick<const char*>({"code", "LAN", "10", "", "_", "null"});
  const unsigned int kind = random.Below(3);
  stage.Say(Words("CodeInfo.Show, kind ", kind, ", ", code, ", ", Quoted(text)));
  if (kind == 0) {
    Codes().Show(vty);
  } else if (kind == 1) {
    Codes().Show(vty, code);
  } else {
    Codes().Show(vty, text);
  }
}

// What a host kept of the registry and puts back, changed or not.
void RestoreCodes(Stage& stage, HostileInput& random) {
  std::vector<ONU_ABILITY_CODE_ATTR_INFO> records;
  onu_ability_get_all_ability_attr_info(records);
  const ONU_ABILITY_CODE_ATTR_INFO record = random.Record();
  const unsigned int place = random.Below(24);
  const unsigned int kind = random.Below(4);
  stage.Say(Words("CodeInfo.Restore, kind ", kind, ", place ", place, ", ") + Shown(record));
  if (kind == 1) {
    records.push_back(record);
  } else if (kind == 2 && place < records.size()) {
    records[place] = record;
  } else if (kind == 3 && place < records.size()) {
    std::swap(records[place], records.front());
  }
  Codes().Restore(records);
}

// --- Records handed out

void HandOut(Stage& stage, HostileInput& /*random*/) {
  stage.Say("CodeInfo.Get(), to be kept");
  const auto* records = stage.Records();
  stage.Note("records", records == nullptr ? -1 : static_cast<long long>(records->size()));
}

void ReplaceRecord(Stage& stage, HostileInput& random) {
  const ONU_ABILITY_CODE_ATTR_INFO record = random.Record();
  const unsigned int place = random.Below(24);
  auto* records = stage.Records();
  if (records == nullptr) {
    return;
  }
  if (place < records->size()) {
    stage.Say(Words("records[", place, "] = ") + Shown(record));
    (*records)[place] = record;
  } else {
    stage.Say("records.push_back(" + Shown(record) + ")");
    records->push_back(record);
  }
}

void ChangeField(ONU_ABILITY_CODE_ATTR_INFO& record, HostileInput& random) {
  switch (random.Below(4)) {
    case 0:
      record.ability_code = random.Code();
      return;
    case 1:
      record.ability_name = random.CodeName();
      return;
    case 2:
      record.ability_attr.erase(random.AttributeId());
      return;
    default:
      record.ability_attr[random.AttributeId()] = random.AttributeValue();
  }
}

void ChangeRecord(Stage& stage, HostileInput& random) {
  const unsigned int place = random.Below(24);
  auto* records = stage.Records();
  if (records == nullptr || records->empty()) {
    return;
  }
  auto& record = (*records)[place % records->size()];
  const std::string before = Shown(record);
  ChangeField(record, random);
  stage.Say("record " + before + " becomes " + Shown(record));
}

void MoveRecords(Stage& stage, HostileInput& random) {
  const unsigned int one = random.Below(24);
  const unsigned int other = random.Below(24);
  const unsigned int kind = random.Below(6);
  auto* records = stage.Records();
  if (records == nullptr || records->empty()) {
    return;
  }
  const auto place = static_cast<std::ptrdiff_t>(one % records->size());
  const size_t second = other % records->size();
  stage.Say(Words("records moved, kind ", kind, ", places ", place, " and ", second));
  if (kind < 2) {
    records->erase(records->begin() + place);
  } else if (kind < 4) {
    std::swap((*records)[static_cast<size_t>(place)], (*records)[second]);
  } else if (kind == 4) {
    const auto copy = (*records)[second];
    records->insert(records->begin() + place, copy);
  } else {
    records->reserve(records->capacity() * 2);
  }
}

void DefineAttributes() {
  Attributes().Add(ONU_ABILITY_ATTR_CONFIRM_TYPE, "CONFIRM");
  Attributes().Add(ONU_ABILITY_ATTR_PORT_TYPE, "PORT");
  Attributes().Add(ONU_ABILITY_ATTR_VALUE_TYPE, "VALUE");
}

ONU_ABILITY_CODE_ATTR_INFO CatalogueRecord(unsigned short code, HostileInput& random) {
  ONU_ABILITY_CODE_ATTR_INFO record;
  record.ability_code = code;
  record.ability_name = "CODE_" + std::to_string(code);
  const bool text = code == 1082 || code == 1083 || code == 1093;
  const bool lamp = code == 1030 || code == 1031;
  record.ability_attr[ONU_ABILITY_ATTR_CONFIRM_TYPE] =
      random.Pick<unsigned short>({0, 1, 2, 3, 3, 3});
  record.ability_attr[ONU_ABILITY_ATTR_PORT_TYPE] = random.Pick<unsigned short>({0, 0, 3, 7, 4});
  record.ability_attr[ONU_ABILITY_ATTR_VALUE_TYPE] = text || random.OneIn(12) ? 3 : 2;
  record.ability_attr[ONU_ABILITY_ATTR_LAMP] = lamp || random.OneIn(10) ? 1 : 0;
  return record;
}

}  // namespace

void DefineWholeCatalogue(Stage& stage, HostileInput& random) {
  stage.Say("a catalogue of attributes and codes");
  DefineAttributes();
  Attributes().Add(ONU_ABILITY_ATTR_LAMP, "LAMP");
  for (const unsigned short code : kCatalogueCodes) {
    ONU_ABILITY_CODE_ATTR_INFO record = CatalogueRecord(code, random);
    Codes().Update(record);
  }
}

void DefineCatalogue(Stage& stage, HostileInput& random) {
  stage.Say("a catalogue with gaps");
  DefineAttributes();
  // The codes then acquire the attribute by being read.
  const bool lamps_later = random.OneIn(2);
  if (!lamps_later) {
    Attributes().Add(ONU_ABILITY_ATTR_LAMP, "LAMP");
  }
  for (const unsigned short code : kCatalogueCodes) {
    ONU_ABILITY_CODE_ATTR_INFO record = CatalogueRecord(code, random);
    if (lamps_later) {
      record.ability_attr.erase(ONU_ABILITY_ATTR_LAMP);
    }
    if (!random.OneIn(12)) {
      Codes().Update(record);
    }
  }
  if (lamps_later) {
    Attributes().Add(ONU_ABILITY_ATTR_LAMP, "LAMP");
  }
}

std::vector<Operation> RegistryOperations() {
  return {
      {"attribute add", 2, AddAttribute},
      {"attribute update", 1, UpdateAttribute},
      {"attribute delete", 1, DelAttribute, false, true},
      {"attribute retirement", 2, RetireAttribute, false, true},
      {"attribute questions", 1, AskAttribute},
      {"attribute listing", 1, ShowAttributes},
      {"code update", 5, UpdateCode, false, true},
      {"code attribute", 3, SetAttribute},
      {"code restoration", 3, RestoreCodes, false, true},
      {"key code", 2, SetKeyCode, false, true},
      {"code questions", 5, AskCode},
      {"code delete", 3, DelCode, false, true},
      {"code listing", 1, ShowCodes},
  };
}

std::vector<Operation> RecordOperations() {
  return {
      {"records handed out", 2, HandOut},
      {"record replacement", 4, ReplaceRecord},
      {"record change", 8, ChangeRecord},
      {"record move", 4, MoveRecords},
  };
}
