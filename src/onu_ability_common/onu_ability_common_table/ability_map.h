/// @file
/// The abilities of a profile: an ordered map from code to value that tells when its
/// codes may have changed, so that what was found out about them need not be found out
/// again at every filling.
///
/// Used as the std::map that it holds, with the same iterators. Values may change
/// through them unseen; which codes there are may not. No lock of its own.
#ifndef ONU_ABILITY_COMMON_TABLE_ABILITY_MAP_H
#define ONU_ABILITY_COMMON_TABLE_ABILITY_MAP_H

#include <cstdint>
#include <initializer_list>
#include <map>
#include <utility>

#include "onu_ability_common_global.h"

/// A std::map that counts its changes.
class AbilityMap {
 public:
  /// @{
  /// As std::map's.
  using Map = std::map<unsigned short, ONU_ABILITY_COMMON_ABILITY_VALUE>;
  using key_type = Map::key_type;
  using mapped_type = Map::mapped_type;
  using value_type = Map::value_type;
  using key_compare = Map::key_compare;
  using size_type = Map::size_type;
  using difference_type = Map::difference_type;
  using reference = Map::reference;
  using const_reference = Map::const_reference;
  using iterator = Map::iterator;
  using const_iterator = Map::const_iterator;
  using reverse_iterator = Map::reverse_iterator;
  using const_reverse_iterator = Map::const_reverse_iterator;
  using node_type = Map::node_type;
  /// @}

  /// @{
  /// Made, copied and moved as a std::map. A copy counts its own changes; what is moved
  /// from has changed.
  AbilityMap() = default;
  AbilityMap(Map map) : _map(std::move(map)) {}
  AbilityMap(std::initializer_list<value_type> values) : _map(values) {}
  AbilityMap(const AbilityMap& other) : _map(other._map) {}
  AbilityMap(AbilityMap&& other) noexcept : _map(std::move(other._map)) { other.NoteChange(); }
  AbilityMap& operator=(const AbilityMap& other) {
    if (this != &other) {
      NoteChange();
      _map = other._map;
    }
    return *this;
  }
  AbilityMap& operator=(AbilityMap&& other) noexcept {
    NoteChange();
    other.NoteChange();
    _map = std::move(other._map);
    return *this;
  }
  ~AbilityMap() = default;
  /// @}

  /// Another number after every operation that may have changed the codes. 0 for ever
  /// once the map itself was handed out for changing, by the conversion below.
  std::uint64_t Changes() const { return _changes; }

  /// The map, for reading.
  operator const Map&() const { return _map; }
  /// The map, for changing: from then on no change is counted.
  operator Map&() {
    _changes = 0;
    return _map;
  }

  /// @{
  /// As std::map's.
  iterator begin() { return _map.begin(); }
  iterator end() { return _map.end(); }
  const_iterator begin() const { return _map.begin(); }
  const_iterator end() const { return _map.end(); }
  const_iterator cbegin() const { return _map.cbegin(); }
  const_iterator cend() const { return _map.cend(); }
  reverse_iterator rbegin() { return _map.rbegin(); }
  reverse_iterator rend() { return _map.rend(); }
  const_reverse_iterator rbegin() const { return _map.rbegin(); }
  const_reverse_iterator rend() const { return _map.rend(); }

  bool empty() const { return _map.empty(); }
  size_type size() const { return _map.size(); }
  size_type max_size() const { return _map.max_size(); }
  size_type count(unsigned short code) const { return _map.count(code); }
  iterator find(unsigned short code) { return _map.find(code); }
  const_iterator find(unsigned short code) const { return _map.find(code); }
  iterator lower_bound(unsigned short code) { return _map.lower_bound(code); }
  const_iterator lower_bound(unsigned short code) const { return _map.lower_bound(code); }
  iterator upper_bound(unsigned short code) { return _map.upper_bound(code); }
  const_iterator upper_bound(unsigned short code) const { return _map.upper_bound(code); }
  auto equal_range(unsigned short code) { return _map.equal_range(code); }
  auto equal_range(unsigned short code) const { return _map.equal_range(code); }
  mapped_type& at(unsigned short code) { return _map.at(code); }
  const mapped_type& at(unsigned short code) const { return _map.at(code); }
  /// @}

  /// @{
  /// As std::map's. Each counts as a change, whether it found anything to change or not.
  mapped_type& operator[](unsigned short code) {
    NoteChange();
    return _map[code];
  }
  template <typename... Arguments>
  std::pair<iterator, bool> try_emplace(unsigned short code, Arguments&&... arguments) {
    NoteChange();
    return _map.try_emplace(code, std::forward<Arguments>(arguments)...);
  }
  template <typename... Arguments>
  iterator try_emplace(const_iterator hint, unsigned short code, Arguments&&... arguments) {
    NoteChange();
    return _map.try_emplace(hint, code, std::forward<Arguments>(arguments)...);
  }
  template <typename... Arguments>
  std::pair<iterator, bool> emplace(Arguments&&... arguments) {
    NoteChange();
    return _map.emplace(std::forward<Arguments>(arguments)...);
  }
  template <typename... Arguments>
  iterator emplace_hint(const_iterator hint, Arguments&&... arguments) {
    NoteChange();
    return _map.emplace_hint(hint, std::forward<Arguments>(arguments)...);
  }
  template <typename... Arguments>
  auto insert(Arguments&&... arguments) {
    NoteChange();
    return _map.insert(std::forward<Arguments>(arguments)...);
  }
  // Those whose argument may stand in braces.
  std::pair<iterator, bool> insert(value_type value) {
    NoteChange();
    return _map.insert(std::move(value));
  }
  void insert(std::initializer_list<value_type> values) {
    NoteChange();
    _map.insert(values);
  }
  template <typename Value>
  std::pair<iterator, bool> insert_or_assign(unsigned short code, Value&& value) {
    NoteChange();
    return _map.insert_or_assign(code, std::forward<Value>(value));
  }
  template <typename Value>
  iterator insert_or_assign(const_iterator hint, unsigned short code, Value&& value) {
    NoteChange();
    return _map.insert_or_assign(hint, code, std::forward<Value>(value));
  }
  size_type erase(unsigned short code) {
    NoteChange();
    return _map.erase(code);
  }
  iterator erase(iterator place) {
    NoteChange();
    return _map.erase(place);
  }
  iterator erase(const_iterator place) {
    NoteChange();
    return _map.erase(place);
  }
  iterator erase(const_iterator first, const_iterator last) {
    NoteChange();
    return _map.erase(first, last);
  }
  node_type extract(unsigned short code) {
    NoteChange();
    return _map.extract(code);
  }
  node_type extract(const_iterator place) {
    NoteChange();
    return _map.extract(place);
  }
  void clear() {
    NoteChange();
    _map.clear();
  }
  void swap(AbilityMap& other) {
    NoteChange();
    other.NoteChange();
    _map.swap(other._map);
  }
  /// @}

 private:
  void NoteChange() {
    if (_changes != 0) {
      ++_changes;
    }
  }

  Map _map;
  std::uint64_t _changes = 1;
};

#endif  // ONU_ABILITY_COMMON_TABLE_ABILITY_MAP_H
