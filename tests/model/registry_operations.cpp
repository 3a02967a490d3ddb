#include "both_sides.h"
#include "onu_ability_common_reg_extern_func.h"
#include "settings.h"

namespace {

using model::Format;

OnuAbilityAttrInfo& Attributes() { return *OnuAbilityAttrInfo::GetInstance(); }
OnuAbilityCodeInfo& Codes() { return *OnuAbilityCodeInfo::GetInstance(); }

void DefineAttribute(int id, const std::string& name) {
  Attributes().Add(AsAttribute(id), name);
  model::Attributes().Add(id, name);
}

void AddAttribute(BothSides& both, RandomInput& random) {
  const int id = random.AttributeId();
  const std::string name = random.AttributeName();
  both.Describe(Format("AttrInfo.Add(%d, %s)", id, Quoted(name).c_str()));
  DefineAttribute(id, name);
}

void UpdateAttribute(BothSides& both, RandomInput& random) {
  const int id = random.AttributeId();
  const std::string name = random.AttributeName();
  both.Describe(Format("AttrInfo.Update(%d, %s)", id, Quoted(name).c_str()));
  Attributes().Update(AsAttribute(id), name);
  model::Attributes().Update(id, name);
}

void DelAttribute(BothSides& both, RandomInput& random) {
  if (random.OneIn(2)) {
    const int id = random.AttributeId();
    both.Describe(Format("AttrInfo.Del(%d)", id));
    Attributes().Del(AsAttribute(id));
    model::Attributes().Del(id);
  } else {
    const std::string name = random.AttributeName();
    both.Describe("AttrInfo.Del(" + Quoted(name) + ")");
    Attributes().Del(name);
    model::Attributes().DelByName(name);
  }
}

void AskAttribute(BothSides& both, RandomInput& random) {
  const int id = random.AttributeId();
  const std::string name = random.AttributeName();
  both.Describe(Format("AttrInfo questions, id %d, name %s", id, Quoted(name).c_str()));
  both.Same("IsValid", Attributes().IsValid(name), model::Attributes().IsValid(name));
  both.Same("IsExist", Attributes().IsExist(AsAttribute(id)), model::Attributes().IsExist(id));
  both.Same("name", Attributes().Get(AsAttribute(id)), model::Attributes().NameOf(id));
  both.Same("id", Attributes().Get(name), model::Attributes().IdOf(name));
}

void ShowAttributes(BothSides& both, RandomInput& random) {
  const bool terminal = random.OneIn(2);
  both.Describe(terminal ? "AttrInfo.Show(vty)" : "AttrInfo.Show(null)");
  Attributes().Show(terminal ? &both.terminal : nullptr);
  model::Attributes().Show(terminal);
}

model::CodeRecord RandomRecord(RandomInput& random) {
  model::CodeRecord record;
  record.code = random.Code();
  record.name = random.CodeName();
  for (auto& entry : record.attributes) {
    if (entry.first != 5 || random.OneIn(4)) {
      entry.second = random.AttributeValue();
    }
  }
  if (random.OneIn(4)) {
    record.attributes.erase(random.AttributeId());
  }
  if (random.OneIn(8)) {
    record.attributes[random.AttributeId()] = random.AttributeValue();
  }
  return record;
}

ONU_ABILITY_CODE_ATTR_INFO ToLibrary(const model::CodeRecord& record) {
  ONU_ABILITY_CODE_ATTR_INFO result;
  result.ability_name = record.name;
  result.ability_code = record.code;
  result.ability_attr.clear();
  for (const auto& entry : record.attributes) {
    result.ability_attr[AsAttribute(entry.first)] = entry.second;
  }
  return result;
}

void CompareRecord(BothSides& both, const ONU_ABILITY_CODE_ATTR_INFO& library,
                   const model::CodeRecord& model) {
  both.Same("code of record", library.ability_code, model.code);
  both.Same("name of record", library.ability_name, model.name);
  std::string attributes;
  for (const auto& entry : library.ability_attr) {
    attributes += Format("%d=%d ", entry.first, entry.second);
  }
  std::string expected;
  for (const auto& entry : model.attributes) {
    expected += Format("%d=%d ", entry.first, entry.second);
  }
  both.Same("attributes of record", attributes, expected);
}

std::string Shown(const model::CodeRecord& record) {
  std::string text = Format("%d %s", record.code, Quoted(record.name).c_str());
  for (const auto& entry : record.attributes) {
    text += Format(" %d=%d", entry.first, entry.second);
  }
  return text;
}

void StoreCode(const model::CodeRecord& record) {
  ONU_ABILITY_CODE_ATTR_INFO info = ToLibrary(record);
  Codes().Update(info);
  model::Codes().Update(record);
}

void UpdateCode(BothSides& both, RandomInput& random) {
  CompareRecord(both, ONU_ABILITY_CODE_ATTR_INFO(), model::CodeRecord());
  const model::CodeRecord record = RandomRecord(random);
  both.Describe("CodeInfo.Update(" + Shown(record) + ")");
  const ONU_ABILITY_CODE_ATTR_INFO info = ToLibrary(record);
  both.Same("IsValid", Codes().IsValid(info), model::Codes().IsValid(record));
  StoreCode(record);
}

void ChangeRecord(BothSides& both, RandomInput& random) {
  const model::CodeRecord record = RandomRecord(random);
  const unsigned int place = random.Below(static_cast<unsigned int>(Codes().Get().size()) + 1);
  if (place < Codes().Get().size() && !random.OneIn(4)) {
    both.Describe(Format("CodeInfo.Get()[%u] = ", place) + Shown(record));
    Codes().Get()[place] = ToLibrary(record);
    model::Codes().records[place] = record;
  } else {
    both.Describe("CodeInfo.Get().push_back(" + Shown(record) + ")");
    Codes().Get().push_back(ToLibrary(record));
    model::Codes().records.push_back(record);
  }
}

void SetKeyCode(BothSides& both, RandomInput& random) {
  const unsigned short code = random.OneIn(2) ? 1085 : random.Code();
  both.Describe(Format("CodeInfo.SetKeyAbilityCode(%d)", code));
  Codes().SetKeyAbilityCode(code);
  model::Codes().key_code = code;
}

void AskCode(BothSides& both, RandomInput& random) {
  const unsigned short code = random.Code();
  const int id = random.AttributeId();
  const std::string name = random.CodeName();
  both.Describe(
      Format("CodeInfo questions, code %d, id %d, name %s", code, id, Quoted(name).c_str()));
  both.Same("IsExist(code)", Codes().IsExist(code), model::Codes().IsExist(code));
  both.Same("IsExist(attribute)", Codes().IsExist(AsAttribute(id)),
            model::Codes().IsAttributeUsed(id));
  both.Same("code", Codes().Get(name), model::Codes().CodeOf(name));
  both.Same("name", Codes().Get(code), model::Codes().NameOf(code));
  both.Same("attribute", Codes().Get(code, AsAttribute(id)), model::Codes().Attribute(code, id));
}

void DelCode(BothSides& both, RandomInput& random) {
  if (random.OneIn(2)) {
    const unsigned short code = random.Code();
    both.Describe(Format("CodeInfo.Del(%d)", code));
    both.Same("result", Codes().Del(code), model::Codes().Del(code));
  } else {
    const std::string name = random.CodeName();
    both.Describe("CodeInfo.Del(" + Quoted(name) + ")");
    both.Same("result", Codes().Del(name), model::Codes().DelByName(name));
  }
}

void ShowCodes(BothSides& both, RandomInput& random) {
  const bool terminal = !random.OneIn(6);
  void* vty = terminal ? &both.terminal : nullptr;
  const unsigned short code = random.Code();
  const std::string text = random.Pick<const char*>({"lan", "LAN", "a", "", "_", "null", "12"});
  switch (random.Below(3)) {
    case 0:
      both.Describe("CodeInfo.Show(vty)");
      Codes().Show(vty);
      model::Codes().Show(terminal);
      return;
    case 1:
      both.Describe(Format("CodeInfo.Show(vty, %d)", code));
      Codes().Show(vty, code);
      model::Codes().ShowCode(terminal, code);
      return;
    default:
      both.Describe("CodeInfo.Show(vty, " + Quoted(text) + ")");
      Codes().Show(vty, text);
      model::Codes().ShowText(terminal, text);
  }
}

}  // namespace

void DefineCatalogue(BothSides& both, RandomInput& random) {
  both.Describe("a catalogue of attributes and codes");
  DefineAttribute(1, "CONFIRM");
  DefineAttribute(3, "LAMP");
  DefineAttribute(4, "PORT");
  DefineAttribute(5, "VALUE");
  for (const int code :
       {1001, 1002, 1010, 1011, 1012, 1023, 1080, 1081, 1082, 1083, 1085, 1093, 65533, 48}) {
    if (random.OneIn(12)) {
      continue;
    }
    model::CodeRecord record;
    record.code = static_cast<unsigned short>(code);
    record.name = Format("CODE_%d", code);
    record.attributes[1] = random.Pick<unsigned short>({0, 1, 2, 3, 3, 3});
    record.attributes[3] = random.Pick<unsigned short>({0, 0, 0, 1});
    record.attributes[4] = random.Pick<unsigned short>({0, 0, 3, 7, 4});
    const bool text = code == 1082 || code == 1083 || code == 1093;
    record.attributes[5] = text || random.OneIn(10) ? 3 : 2;
    StoreCode(record);
  }
}

std::vector<Operation> RegistryOperations() {
  return {
      {"attribute add", 2, AddAttribute},       {"attribute update", 1, UpdateAttribute},
      {"attribute delete", 1, DelAttribute},    {"attribute questions", 2, AskAttribute},
      {"attribute listing", 1, ShowAttributes}, {"code update", 4, UpdateCode},
      {"code record change", 1, ChangeRecord},  {"key code", 1, SetKeyCode},
      {"code questions", 3, AskCode},           {"code delete", 2, DelCode},
      {"code listing", 2, ShowCodes},
  };
}
