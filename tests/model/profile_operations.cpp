#include "both_sides.h"
#include "serialisation.h"
#include "support/variant_items.h"

namespace {

using model::Format;

unsigned int Slot(RandomInput& random) { return random.Below(kSlots); }

// Most profiles are initialised, so the rare operations on others are enough.
void Init(BothSides& both, RandomInput& random) {
  const unsigned int slot = Slot(random);
  const int type = random.Type();
  const int source = random.Source();
  const int match_type = random.MatchType();
  both.Describe(Format("p%u.Init(%d, %d, %d)", slot, type, source, match_type));
  both.library[slot].Init(AsType(type), AsSource(source), AsMatchType(match_type));
  both.model[slot].Init(type, source, match_type);
}

void Clear(BothSides& both, RandomInput& random) {
  const unsigned int slot = Slot(random);
  both.Describe(Format("p%u.Clear()", slot));
  both.library[slot].Clear();
  both.model[slot].Clear();
}

void Assign(BothSides& both, RandomInput& random) {
  const unsigned int to = Slot(random);
  const unsigned int from = Slot(random);
  both.Describe(Format("p%u = p%u", to, from));
  both.library[to] = both.library[from];
  both.model[to] = both.model[from];
}

void Copy(BothSides& both, RandomInput& random) {
  const unsigned int from = Slot(random);
  both.Describe(Format("a copy and a new profile beside p%u", from));
  both.Same("copy", OnuAbilityProfile(both.library[from]), model::Profile(both.model[from]));
  both.Same("new profile", OnuAbilityProfile(), model::Profile());
}

void SetMember(BothSides& both, RandomInput& random) {
  const unsigned int slot = Slot(random);
  OnuAbilityProfile& library = both.library[slot];
  model::Profile& model = both.model[slot];
  const unsigned int number = random.Number();
  const int source = random.Source();
  const int type = random.MatchType();
  switch (random.Below(6)) {
    case 0:
      both.Describe(Format("p%u._id = %u", slot, number & 0xFFFFU));
      library._id = model.id = static_cast<unsigned short>(number);
      return;
    case 1:
      both.Describe(Format("p%u._id = a real type or a new id", slot));
      library._id = model.id = random.Pick<unsigned short>({0, 1, 2, 5, 30001, 30002, 65535});
      return;
    case 2:
      both.Describe(Format("p%u._bind_count = %u, _age_count", slot, number));
      library._bind_count = model.bind_count = random.OneIn(2) ? 0 : number;
      library._age_count = model.age_count = number;
      return;
    case 3:
      both.Describe(Format("p%u._flag_match_type = %d", slot, type));
      library._flag_match_type = AsMatchType(type);
      model.match_type = type;
      return;
    case 4:
      both.Describe(Format("p%u._profile_source = %d", slot, source));
      library._profile_source = AsSource(source);
      model.source = source;
      return;
    default:
      both.Describe(Format("p%u._reserved[3] = %u", slot, number & 0xFFU));
      library._reserved[3] = model.reserved[3] = static_cast<unsigned char>(number);
  }
}

void Read(BothSides& both, RandomInput& random) {
  const unsigned int slot = Slot(random);
  const unsigned short code = random.Code();
  const int attribute = random.AttributeId();
  both.Describe(Format("p%u.Get(%d), IsExist, GetTotalNum(%d), GetSize", slot, code, attribute));
  const OnuAbilityProfile& library = both.library[slot];
  const model::Profile& model = both.model[slot];
  model::Value value = random.AnyValue();
  ONU_ABILITY_COMMON_ABILITY_VALUE library_value = ToLibrary(value);
  both.Same("Get value", library.Get(code, library_value), model.GetValue(code, value));
  both.Same("value's tag", library_value.ability_value_type, value.tag);
  both.Same("value's number", library_value.ability_ushort_value, value.number);
  both.Same("value's text", library_value.ability_string_value, value.text);
  unsigned int library_number = 77;
  unsigned int number = 77;
  both.Same("Get number", library.Get(code, library_number), model.GetNumber(code, number));
  both.Same("number", library_number, number);
  std::string library_text = "before";
  std::string text = "before";
  both.Same("Get text", library.Get(code, library_text), model.GetText(code, text));
  both.Same("text", library_text, text);
  library_number = number = 77;
  both.Same("Get key value", library.Get(library_number), model.GetKeyValue(number));
  both.Same("key value", library_number, number);
  both.Same("IsExist", library.IsExist(code) ? 1 : 0, model.IsExist(code) ? 1 : 0);
  both.Same("GetTotalNum", library.GetTotalNum(AsAttribute(attribute)),
            model.GetTotalNum(attribute));
  both.Same("GetSize", library.GetSize(), model.GetSize());
}

// --- Population

void AddNumber(BothSides& both, RandomInput& random) {
  const unsigned int slot = Slot(random);
  const unsigned short code = random.Code();
  const unsigned int number = random.Number();
  both.Describe(Format("p%u.Add(%d, %u)", slot, code, number));
  both.library[slot].Add(code, number);
  both.model[slot].AddNumber(code, number);
}

void AddText(BothSides& both, RandomInput& random) {
  const unsigned int slot = Slot(random);
  const unsigned short code = random.Pick<unsigned short>({1082, 1083, 1093, 1082, random.Code()});
  const std::string text = random.Text();
  both.Describe(Format("p%u.Add(%d, %s)", slot, code, Quoted(text).c_str()));
  both.library[slot].Add(code, text);
  both.model[slot].AddText(code, text);
}

void AddValue(BothSides& both, RandomInput& random) {
  const unsigned int slot = Slot(random);
  const unsigned short code = random.Code();
  const model::Value value = random.AnyValue();
  both.Describe(Format("p%u.Add(%d, value %s)", slot, code, Text(value).c_str()));
  both.library[slot].Add(code, ToLibrary(value));
  both.model[slot].AddValue(code, value);
}

void AddKey(BothSides& both, RandomInput& random) {
  const unsigned int slot = Slot(random);
  const unsigned int key = random.Key();
  both.Describe(Format("p%u.Add(key %u)", slot, key));
  both.library[slot].Add(key);
  both.model[slot].AddKey(key);
}

void AddRealType(BothSides& both, RandomInput& random) {
  const unsigned int slot = Slot(random);
  const unsigned int type = random.Key();
  both.Describe(Format("p%u.Add(1081, %u)", slot, type));
  both.library[slot].Add(static_cast<unsigned short>(1081), type);
  both.model[slot].AddNumber(1081, type);
}

void AddAllCodes(BothSides& both, RandomInput& random) {
  const unsigned int slot = Slot(random);
  const int type = random.Type();
  const unsigned int number = random.Number();
  both.Describe(Format("p%u.Add(type %d, %u)", slot, type, number));
  both.library[slot].Add(AsType(type), number);
  both.model[slot].AddAllCodes(type, number);
}

void UpdateOne(BothSides& both, RandomInput& random) {
  const unsigned int slot = Slot(random);
  const unsigned short code = random.Code();
  const model::Value value = random.AnyValue();
  OnuAbilityProfile& library = both.library[slot];
  model::Profile& model = both.model[slot];
  const unsigned int kind = random.Below(5);
  both.Describe(Format("p%u.Update kind %u (%d, %s)", slot, kind, code, Text(value).c_str()));
  switch (kind) {
    case 0:
      library.Update(code, ToLibrary(value));
      model.UpdateValue(code, value);
      return;
    case 1:
      library.Update(code, value.number);
      model.UpdateNumber(code, value.number);
      return;
    case 2:
      library.Update(code, value.text);
      model.UpdateText(code, value.text);
      return;
    case 3:
      library.UpdateInit(code, value.number);
      model.UpdateInitNumber(code, value.number);
      return;
    default:
      library.UpdateInit(code, value.text);
      model.UpdateInitText(code, value.text);
  }
}

void UpdateDerived(BothSides& both, RandomInput& random) {
  const unsigned int slot = Slot(random);
  const unsigned int kind = random.Below(3);
  OnuAbilityProfile& library = both.library[slot];
  model::Profile& model = both.model[slot];
  both.Describe(Format("p%u.Update(), UpdateLan(), UpdateDataUni(): %u", slot, kind));
  if (kind == 0) {
    library.Update();
    model.Update();
  } else if (kind == 1) {
    library.UpdateLan();
    model.UpdateLan();
  } else {
    library.UpdateDataUni();
    model.UpdateDataUni();
  }
}

void Del(BothSides& both, RandomInput& random) {
  const unsigned int slot = Slot(random);
  const unsigned short code = random.Code();
  both.Describe(Format("p%u.Del(%d)", slot, code));
  both.library[slot].Del(code);
  both.model[slot].Del(code);
}

// A profile that the tables and lookups find.
void Fill(BothSides& both, RandomInput& random) {
  const unsigned int slot = Slot(random);
  const int type = random.Pick({1, 2});
  const int source = random.Pick({0, 1});
  const unsigned int key = random.Key();
  const unsigned int real_type = random.Key();
  both.Describe(Format("p%u is type %d, source %d, key %u, real type %u", slot, type, source, key,
                       real_type));
  OnuAbilityProfile& library = both.library[slot];
  model::Profile& model = both.model[slot];
  library.Init(AsType(type), AsSource(source), ONU_ABILITY_MATCH_TYPE_NONE);
  model.Init(type, source, 0);
  library.Add(key);
  model.AddKey(key);
  library.Add(static_cast<unsigned short>(1081), real_type);
  model.AddNumber(1081, real_type);
  const std::string vendor = random.Pick<const char*>({"", "ZKWM", "ABCD"});
  library.Add(static_cast<unsigned short>(1082), vendor);
  model.AddText(1082, vendor);
  const std::string name = random.Text();
  library.Add(static_cast<unsigned short>(1083), name);
  model.AddText(1083, name);
  for (const unsigned short code : std::vector<unsigned short>{1002, 1010, 1011, 1012, 1023}) {
    const unsigned int number = random.Pick<unsigned int>({0, 1, 1, 2, 4, 0xFFFFFFFFU});
    library.Add(code, number);
    model.AddNumber(code, number);
  }
}

// --- Serialisation

void CompareItems(BothSides& both, const Variant& variant, const model::Buffer& buffer) {
  const std::vector<VariantItem> items = ItemsOf(variant);
  both.Same("number of items", static_cast<long long>(items.size()),
            static_cast<long long>(buffer.items.size()));
  for (size_t i = 0; i < items.size() && i < buffer.items.size(); ++i) {
    const std::string what = "item " + std::to_string(i);
    both.Same(what + "'s kind", items[i].kind, static_cast<int>(buffer.items[i].kind));
    both.Same(what + "'s number", items[i].number, buffer.items[i].number);
    both.Same(what + "'s bytes", items[i].bytes, buffer.items[i].bytes);
    both.Same(what + "'s index", items[i].index, 0xFFFF);
  }
  both.Same("items left", ItemsLeft(variant),
            static_cast<long long>(buffer.items.size() - buffer.cursor));
}

// Damages the items of a buffer, as another board might have written them.
void Damage(std::vector<model::Item>& items, RandomInput& random) {
  if (items.empty()) {
    return;
  }
  const unsigned int place = random.OneIn(3) ? 6 : random.Below(40);
  model::Item& item = items[place % items.size()];
  switch (random.Below(4)) {
    case 0:
      item.number =
          random.Pick<unsigned int>({0, 1, 2, 3, 5, 1010, 65535, 65536, 65537, 66546, 0xFFFFFFFFU});
      break;
    case 1:
      items.resize(place % items.size());
      return;
    case 2:
      if (!item.bytes.empty()) {
        item.bytes[item.bytes.size() / 2] = '\0';
      }
      break;
    default:
      item.kind = random.Pick({model::Item::kShort, model::Item::kInt, model::Item::kBytes});
  }
  if (item.kind == model::Item::kShort) {
    item.number &= 0xFFFFU;
  }
  if (item.kind == model::Item::kBytes) {
    item.number = 0;
  } else {
    item.bytes.clear();
  }
}

void Serialise(BothSides& both, RandomInput& random) {
  const unsigned int from = Slot(random);
  const unsigned int to = Slot(random);
  RecordingHost& host = RecordingHost::Instance();
  Variant variant;
  model::Buffer buffer;
  buffer.fail_append = random.OneIn(3) ? 1 + random.Below(30) : 0;
  host.FailAppend(buffer.fail_append);
  std::string description = Format("p%u.Serialize, append %u fails", from, buffer.fail_append);
  both.library[from].Serialize(variant);
  both.model[from].Serialize(buffer);
  CompareItems(both, variant, buffer);
  host.FailAppend(0);

  const bool damaged = random.OneIn(2);
  if (damaged) {
    Damage(buffer.items, random);
  }
  Variant source;
  std::vector<VariantItem> items;
  for (const model::Item& item : buffer.items) {
    items.push_back({static_cast<VariantItem::Kind>(item.kind), item.number, item.bytes, 0xFFFF});
  }
  PutItems(source, items);
  buffer.fail_fetch = random.OneIn(4) ? 1 + random.Below(30) : 0;
  buffer.fail_allocation = random.OneIn(6) ? 1 + random.Below(3) : 0;
  both.Describe(description + Format(", p%u.UnSerialize, %s, fetch %u and allocation %u fail", to,
                                     damaged ? "damaged" : "whole", buffer.fail_fetch,
                                     buffer.fail_allocation));
  host.FailFetch(buffer.fail_fetch);
  host.FailAllocation(buffer.fail_allocation);
  both.library[to].UnSerialize(source);
  both.model[to].UnSerialize(buffer);
  host.FailFetch(0);
  host.FailAllocation(0);
  CompareItems(both, source, buffer);
}

}  // namespace

std::vector<Operation> ProfileOperations() {
  return {
      {"profile init", 4, Init},
      {"profile clear", 1, Clear},
      {"profile assignment", 2, Assign},
      {"profile copy", 1, Copy},
      {"profile member", 3, SetMember},
      {"profile reading", 4, Read},
      {"profile add number", 6, AddNumber},
      {"profile add text", 3, AddText},
      {"profile add value", 3, AddValue},
      {"profile add key", 4, AddKey},
      {"profile add real type", 3, AddRealType},
      {"profile add all codes", 1, AddAllCodes},
      {"profile update", 4, UpdateOne},
      {"profile derived", 1, UpdateDerived},
      {"profile delete", 2, Del},
      {"profile fill", 8, Fill},
      {"profile serialisation", 3, Serialise},
  };
}
