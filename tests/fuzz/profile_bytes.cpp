// UnSerialize over arbitrary bytes in the reference host's own buffer: whatever comes out
// is a profile that can be written, and what was written reads back the same.
#include <string>
#include <vector>

#include "fuzz_target.h"
#include "input_bytes.h"
#include "loaded_host.h"
#include "onu_ability_common_table.h"
#include "platform/variant_bytes.h"

namespace {

using Bytes = std::vector<unsigned char>;

OnuAbilityProfile Read(const Bytes& bytes, bool& to_end) {
  Variant variant;
  olt_host::SetVariantBytes(variant, bytes);
  OnuAbilityProfile profile;
  profile.UnSerialize(variant);
  to_end = olt_host::IsReadToEnd(variant);
  return profile;
}

// With the count that a reader needs, which may be stale.
Bytes Written(OnuAbilityProfile profile) {
  profile._common_ability_num = static_cast<unsigned int>(profile._common_ability.size());
  Variant variant;
  profile.Serialize(variant);
  return olt_host::VariantBytes(variant);
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  LoadSmallCatalogue();
  const std::string_view input = InputBytes(data, size).Rest();
  bool to_end = false;
  const OnuAbilityProfile profile = Read(Bytes(input.begin(), input.end()), to_end);
  const Bytes first = Written(profile);
  // What the rules for new values leave out they leave out once.
  const Bytes second = Written(Read(first, to_end));
  Hold(to_end, "what was written is read to its end");
  const OnuAbilityProfile third = Read(second, to_end);
  Hold(to_end, "what was written again is read to its end");
  Hold(Written(third) == second, "what was read is written the same");
  Hold(third._id == profile._id && third._bind_count == profile._bind_count &&
           third._profile_type == profile._profile_type &&
           third._ability_default_value == profile._ability_default_value,
       "the header is the same");
  return 0;
}
