// What a match profile is told by while others come and go: positions and given ids shift
// when a catalogue gains an entry and is read again, the source and the key do not.
//
// Several profiles may have one key, each for a way to recognise the type; they are
// numbered from the oldest, which only a change among themselves shifts.
#ifndef OLT_HOST_CONFIRMATION_MATCH_PROFILE_NAME_H
#define OLT_HOST_CONFIRMATION_MATCH_PROFILE_NAME_H

#include <cstdint>
#include <tuple>

namespace olt_host {

struct MatchProfileName {
  unsigned int source = 0;
  std::uint32_t key = 0;    // 0 without one
  unsigned int number = 1;  // among those of the source with the key; the oldest has 1

  bool operator<(const MatchProfileName& other) const {
    return std::tie(source, key, number) < std::tie(other.source, other.key, other.number);
  }
};

}  // namespace olt_host

#endif  // OLT_HOST_CONFIRMATION_MATCH_PROFILE_NAME_H
