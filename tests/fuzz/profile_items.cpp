// UnSerialize over arbitrary items, with fetches, appends and allocations that fail:
// whatever comes out is a profile that can be written, and what was written reads back
// the same.
#include <algorithm>
#include <string>
#include <vector>

#include "fuzz_target.h"
#include "input_bytes.h"
#include "short_ways/texts.h"
#include "support/catalogue_builder.h"
#include "support/library_reset.h"
#include "support/recording_host.h"
#include "support/variant_items.h"

namespace {

constexpr unsigned int kLogMasks[] = {0, 0xFFFFFFFFU, 1U | (1U << 13U)};

void StartOver() {
  onu_ability_set_log_level_mask(0);
  ResetLibrary({ONU_ABILITY_ATTR_CONFIRM_TYPE, ONU_ABILITY_ATTR_LAMP, ONU_ABILITY_ATTR_PORT_TYPE,
                ONU_ABILITY_ATTR_VALUE_TYPE});
  DefineUsualCodes();
  RecordingHost& host = RecordingHost::Instance();
  host.ForgetLog();
  host.ForgetMutexCalls();
  host.ForgetMemoryCalls();
}

std::vector<VariantItem> TakeItems(InputBytes& input) {
  std::vector<VariantItem> items;
  while (!input.empty()) {
    switch (input.Byte() % 5) {
      case 0:
        items.push_back(ShortItem(input.Number16()));
        break;
      case 1:
        items.push_back(IntItem(input.Byte()));
        break;
      case 2:
        items.push_back(IntItem(input.Number16()));
        break;
      case 3:
        items.push_back(IntItem(input.Number32()));
        break;
      default:
        items.push_back(BytesItem(std::string(input.Text())));
    }
  }
  return items;
}

std::vector<VariantItem> Written(OnuAbilityProfile& profile) {
  Variant variant;
  profile.Serialize(variant);
  return ItemsOf(variant);
}

// Whether the rules for new values take the value. One that replaces another is not asked.
bool IsTakenAnew(const ONU_ABILITY_COMMON_ABILITY_VALUE& value, unsigned int default_value) {
  if (value.ability_value_type == ONU_ABILITY_VALUE_TYPE_STRING) {
    return !value.ability_string_value.empty();
  }
  return value.ability_value_type == ONU_ABILITY_VALUE_TYPE_USHORT &&
         value.ability_ushort_value != default_value;
}

bool IsTakenWhole(const OnuAbilityProfile& profile) {
  return std::all_of(profile._common_ability.begin(), profile._common_ability.end(),
                     [&profile](const auto& ability) {
                       return IsTakenAnew(ability.second, profile._ability_default_value);
                     });
}

// What comes of the profile when it is written and read.
OnuAbilityProfile ReadBack(OnuAbilityProfile profile) {
  // The cached count may be stale, and tells how many are read.
  profile._common_ability_num = static_cast<unsigned int>(profile._common_ability.size());
  Variant variant;
  PutItems(variant, Written(profile));
  OnuAbilityProfile read;
  read.UnSerialize(variant);
  Hold(ItemsLeft(variant) == 0, "items are left");
  read._common_ability_num = static_cast<unsigned int>(read._common_ability.size());
  return read;
}

void HoldReadsBack(OnuAbilityProfile profile) {
  profile._common_ability_num = static_cast<unsigned int>(profile._common_ability.size());
  const OnuAbilityProfile read = ReadBack(profile);
  if (IsTakenWhole(profile)) HoldSame("what was written", Shown(profile), Shown(read));
  // What the rules leave out they leave out once.
  HoldSame("what was written again", Shown(read), Shown(ReadBack(read)));
}

}  // namespace

// Which calls fail, the log mask, and the items.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  StartOver();
  InputBytes input(data, size);
  const unsigned int failing_fetch = input.Byte();
  const unsigned int failing_allocation = input.Byte();
  const unsigned int failing_append = input.Byte();
  onu_ability_set_log_level_mask(kLogMasks[input.Byte() % 3]);
  Variant variant;
  PutItems(variant, TakeItems(input));
  RecordingHost& host = RecordingHost::Instance();
  host.FailFetch(failing_fetch);
  host.FailAllocation(failing_allocation);
  OnuAbilityProfile profile;
  profile.UnSerialize(variant);
  host.FailFetch(0);
  host.FailAllocation(0);
  host.FailAppend(failing_append);
  const std::vector<VariantItem> written = Written(profile);
  host.FailAppend(0);
  const std::vector<VariantItem> whole = Written(profile);
  Hold(failing_append == 0 ||
           written.size() == std::min<std::size_t>(failing_append - 1, whole.size()),
       "an item that cannot be written ends the writing");
  HoldReadsBack(profile);
  Hold(host.blocks_in_use() == 0, "a block of the host's memory is still in use");
  Hold(host.locks_held() == 0, "a lock is held");
  Hold(!::testing::Test::HasFailure(), "the host found a fault");
  return 0;
}
