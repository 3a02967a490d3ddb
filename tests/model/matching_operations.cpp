#include "both_sides.h"

namespace {

using model::Format;

void Ambiguous(BothSides& both, RandomInput& random) {
  const unsigned int number_1 = random.Number();
  const unsigned int number_2 = random.Number();
  const std::string text_1 = random.Text();
  const std::string text_2 = random.Text();
  both.Describe(Format("IsAmbiguousMatch(%u, %u), (%s, %s)", number_1, number_2,
                       Quoted(text_1).c_str(), Quoted(text_2).c_str()));
  both.Same("of numbers", both.library[0].IsAmbiguousMatch(number_1, number_2),
            both.model[0].IsAmbiguousNumber(number_1, number_2));
  both.Same("of texts", both.library[0].IsAmbiguousMatch(text_1, text_2),
            both.model[0].IsAmbiguousText(text_1, text_2));
}

void Equal(BothSides& both, RandomInput& random) {
  const unsigned int slot = random.Below(kSlots);
  const unsigned short code = random.Code();
  model::Value value = random.AnyValue();
  const auto held = both.model[slot].abilities.find(code);
  if (held != both.model[slot].abilities.end() && random.OneIn(2)) {
    value = held->second;
  }
  const int source = random.Source();
  both.Describe(Format("p%u.IsEqual(%d, %s), source %d", slot, code, Text(value).c_str(), source));
  const OnuAbilityProfile& library = both.library[slot];
  const model::Profile& model = both.model[slot];
  both.Same("IsEqual value", library.IsEqual(code, ToLibrary(value)),
            model.IsEqualValue(code, value));
  both.Same("IsEqual number", library.IsEqual(code, value.number),
            model.IsEqualNumber(code, value.number));
  both.Same("IsEqual of source", library.IsEqual(AsSource(source), code, value.number),
            model.IsEqualOfSource(source, code, value.number));
  both.Same("IsEqual text", library.IsEqual(code, value.text), model.IsEqualText(code, value.text));
}

void Identity(BothSides& both, RandomInput& random) {
  const unsigned int slot = random.Below(kSlots);
  const unsigned int key = random.Key();
  const std::string vendor = random.Pick<const char*>({"", "ZKWM", "ABCD", "ABC"});
  both.Describe(
      Format("p%u == real type %u, key %u, vendor %s", slot, key & 0xFFFFU, key, vendor.c_str()));
  const OnuAbilityProfile& library = both.library[slot];
  const model::Profile& model = both.model[slot];
  const unsigned short real_type = static_cast<unsigned short>(key);
  both.Same("== real type", library == real_type, model.HasRealType(real_type));
  both.Same("== vendor", library == vendor, model.HasVendor(vendor));
  both.Same("== key", library == key, model.HasKey(key));
}

void Whole(BothSides& both, RandomInput& random) {
  const unsigned int stored = random.Below(kSlots);
  const unsigned int input = random.Below(kSlots);
  both.Describe(Format("p%u == p%u", stored, input));
  const OnuAbilityProfile& given = both.library[input];
  both.Same("==", both.library[stored] == given, both.model[stored].Matches(both.model[input]));
}

}  // namespace

std::vector<Operation> MatchingOperations() {
  return {
      {"matching with wildcards", 1, Ambiguous},
      {"matching of values", 3, Equal},
      {"matching of identity", 2, Identity},
      {"matching of profiles", 6, Whole},
  };
}
