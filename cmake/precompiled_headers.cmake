# What nearly every source includes of the standard library, and of the test framework,
# read once for all targets whose flags agree with those of the first. It is there for
# speed alone: every source includes what it needs, and the lint gate builds without it
# (CMAKE_DISABLE_PRECOMPILE_HEADERS).
set(STANDARD_HEADERS <algorithm> <chrono> <cstddef> <cstdint> <functional> <map> <memory>
  <optional> <set> <sstream> <stdexcept> <string> <string_view> <utility> <vector>)
