// A set of positions of a table's profiles, for questions about many profiles at once.
#ifndef OLT_HOST_RECOGNITION_POSITION_SET_H
#define OLT_HOST_RECOGNITION_POSITION_SET_H

#include <cstddef>
#include <cstdint>
#include <vector>

namespace olt_host {

class PositionSet {
 public:
  static constexpr std::size_t kNone = static_cast<std::size_t>(-1);

  // Of the positions below `size`; all of them, or none.
  explicit PositionSet(std::size_t size = 0, bool all = false)
      : _words((size + 63) / 64, all ? ~std::uint64_t{0} : 0) {
    if (all && size % 64 != 0) _words.back() >>= 64 - size % 64;
  }

  // REQUIRES: `position` is below the size; both sets have one size.
  void Insert(std::size_t position) { _words[position / 64] |= Bit(position); }
  void Remove(std::size_t position) { _words[position / 64] &= ~Bit(position); }
  bool Contains(std::size_t position) const { return (_words[position / 64] & Bit(position)) != 0; }
  PositionSet& operator&=(const PositionSet& other) {
    for (std::size_t i = 0; i < _words.size(); ++i) _words[i] &= other._words[i];
    return *this;
  }
  PositionSet& operator|=(const PositionSet& other) {
    for (std::size_t i = 0; i < _words.size(); ++i) _words[i] |= other._words[i];
    return *this;
  }

  // Removes the position and all below it.
  void RemoveUpTo(std::size_t position) {
    for (std::size_t i = 0; i < position / 64; ++i) _words[i] = 0;
    _words[position / 64] &= ~(Bit(position) | (Bit(position) - 1));
  }

  // The highest position, kNone for an empty set.
  std::size_t Highest() const {
    for (std::size_t i = _words.size(); i-- > 0;) {
      if (_words[i] == 0) continue;
      std::size_t position = i * 64 + 63;
      while (!Contains(position)) --position;
      return position;
    }
    return kNone;
  }
  // Ascending; `take` may remove the position that it is given.
  template <typename Take>
  void ForEach(const Take& take) const {
    for (std::size_t i = 0; i < _words.size(); ++i) {
      for (std::uint64_t rest = _words[i]; rest != 0; rest &= rest - 1) {
        take(i * 64 + static_cast<std::size_t>(__builtin_ctzll(rest)));
      }
    }
  }
  // Ascending.
  std::vector<std::size_t> Positions() const {
    std::vector<std::size_t> positions;
    ForEach([&positions](std::size_t position) { positions.push_back(position); });
    return positions;
  }

 private:
  static std::uint64_t Bit(std::size_t position) { return std::uint64_t{1} << (position % 64); }

  std::vector<std::uint64_t> _words;
};

}  // namespace olt_host

#endif  // OLT_HOST_RECOGNITION_POSITION_SET_H
