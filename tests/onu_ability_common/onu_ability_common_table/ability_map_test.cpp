// The map of a profile's abilities: used as the std::map that it holds, it tells when its
// codes may have changed.
#include "onu_ability_common_table/ability_map.h"

#include <functional>
#include <iterator>
#include <utility>
#include <vector>

#include "profile_expectations.h"

namespace {

using Map = AbilityMap::Map;

AbilityMap Numbers() { return {{1, Value(2, 10)}, {2, Value(2, 20)}, {5, Value(2, 50)}}; }

std::vector<unsigned short> CodesOf(const AbilityMap& map) {
  std::vector<unsigned short> codes;
  for (const auto& entry : map) codes.push_back(entry.first);
  return codes;
}

std::vector<unsigned int> NumbersIn(const AbilityMap& map) {
  std::vector<unsigned int> numbers;
  for (const auto& entry : map) numbers.push_back(entry.second.ability_ushort_value);
  return numbers;
}

TEST(AbilityMap, ReadsLikeTheMapThatItHolds) {
  const AbilityMap map = Numbers();
  EXPECT_EQ(3U, map.size());
  EXPECT_FALSE(map.empty());
  EXPECT_EQ(1U, map.count(2));
  EXPECT_EQ(0U, map.count(3));
  EXPECT_EQ(20U, map.find(2)->second.ability_ushort_value);
  EXPECT_EQ(map.end(), map.find(3));
  EXPECT_EQ(5, map.lower_bound(3)->first);
  EXPECT_EQ(5, map.upper_bound(2)->first);
  EXPECT_EQ(2, map.equal_range(2).first->first);
  EXPECT_EQ(50U, map.at(5).ability_ushort_value);
  EXPECT_THROW(map.at(3), std::out_of_range);
  EXPECT_EQ(1, map.begin()->first);
  EXPECT_EQ(5, map.rbegin()->first);
  EXPECT_EQ(1, std::prev(map.rend())->first);
  EXPECT_EQ(Map().max_size(), map.max_size());
  EXPECT_EQ((std::vector<unsigned short>{1, 2, 5}), CodesOf(map));
}

TEST(AbilityMap, HandsOutPlacesWhoseValuesMayChange) {
  AbilityMap map = Map{{1, Value(2, 10)}, {2, Value(2, 20)}, {5, Value(2, 50)}};
  const auto before = map.Changes();
  map.rbegin()->second.ability_ushort_value = 51;
  std::prev(map.rend())->second.ability_ushort_value = 11;
  map.upper_bound(1)->second.ability_ushort_value = 21;
  EXPECT_EQ(map.upper_bound(1), map.equal_range(1).second);
  EXPECT_EQ(before, map.Changes()) << "the codes are those that they were";
  EXPECT_EQ((std::vector<unsigned int>{11, 21, 51}), NumbersIn(map));
}

TEST(AbilityMap, AssignedToItselfStaysAsItIs) {
  AbilityMap map = Numbers();
  const AbilityMap& same = map;
  const auto before = map.Changes();
  map = same;
  EXPECT_EQ((std::vector<unsigned int>{10, 20, 50}), NumbersIn(map));
  EXPECT_EQ(before, map.Changes());
}

struct Change {
  const char* name;
  void (*change)(AbilityMap& map);
  std::vector<unsigned short> codes;  // afterwards
};

std::ostream& operator<<(std::ostream& out, const Change& change) { return out << change.name; }

class AbilityMapChangeTest : public ::testing::TestWithParam<Change> {};

TEST_P(AbilityMapChangeTest, IsDoneAndCounted) {
  AbilityMap map = Numbers();
  const auto before = map.Changes();
  GetParam().change(map);
  EXPECT_EQ(GetParam().codes, CodesOf(map));
  EXPECT_NE(before, map.Changes());
  EXPECT_NE(0U, map.Changes());
}

const Change kChanges[] = {
    {"Subscript", [](AbilityMap& map) { map[3] = Value(2, 1); }, {1, 2, 3, 5}},
    {"SubscriptOfHeld", [](AbilityMap& map) { map[2] = Value(2, 1); }, {1, 2, 5}},
    {"TryEmplace", [](AbilityMap& map) { map.try_emplace(3, Value(2, 1)); }, {1, 2, 3, 5}},
    {"TryEmplaceAtHint",
     [](AbilityMap& map) { map.try_emplace(map.lower_bound(3), 3); },
     {1, 2, 3, 5}},
    {"Emplace", [](AbilityMap& map) { map.emplace(3, Value(2, 1)); }, {1, 2, 3, 5}},
    {"EmplaceHint",
     [](AbilityMap& map) { map.emplace_hint(map.end(), 9, Value(2, 1)); },
     {1, 2, 5, 9}},
    {"InsertValue",
     [](AbilityMap& map) {
       map.insert({3, Value(2, 1)});
     },
     {1, 2, 3, 5}},
    {"InsertPair",
     [](AbilityMap& map) {
       map.insert(std::make_pair(static_cast<unsigned short>(3), Value(2, 1)));
     },
     {1, 2, 3, 5}},
    {"InsertRange",
     [](AbilityMap& map) {
       const Map more = {{7, Value(2, 1)}};
       map.insert(more.begin(), more.end());
     },
     {1, 2, 5, 7}},
    {"InsertList",
     [](AbilityMap& map) {
       map.insert({{7, Value(2, 1)}, {8, Value(2, 1)}});
     },
     {1, 2, 5, 7, 8}},
    {"InsertOrAssign", [](AbilityMap& map) { map.insert_or_assign(3, Value(2, 1)); }, {1, 2, 3, 5}},
    {"InsertOrAssignAtHint",
     [](AbilityMap& map) { map.insert_or_assign(map.end(), 9, Value(2, 1)); },
     {1, 2, 5, 9}},
    {"InsertNode",
     [](AbilityMap& map) {
       Map other = {{7, Value(2, 1)}};
       map.insert(other.extract(7));
     },
     {1, 2, 5, 7}},
    {"EraseCode", [](AbilityMap& map) { map.erase(2); }, {1, 5}},
    {"ErasePlace", [](AbilityMap& map) { map.erase(map.begin()); }, {2, 5}},
    {"EraseConstPlace", [](AbilityMap& map) { map.erase(map.cbegin()); }, {2, 5}},
    {"EraseRange", [](AbilityMap& map) { map.erase(map.cbegin(), map.cend()); }, {}},
    {"ExtractCode", [](AbilityMap& map) { map.extract(2); }, {1, 5}},
    {"ExtractPlace", [](AbilityMap& map) { map.extract(map.cbegin()); }, {2, 5}},
    {"Clear", [](AbilityMap& map) { map.clear(); }, {}},
    {"CopyAssignment",
     [](AbilityMap& map) {
       const AbilityMap other = {{7, Value(2, 1)}};
       map = other;
     },
     {7}},
    {"MoveAssignment",
     [](AbilityMap& map) {
       map = AbilityMap{{7, Value(2, 1)}};
     },
     {7}},
    {"Swap",
     [](AbilityMap& map) {
       AbilityMap other = {{7, Value(2, 1)}};
       map.swap(other);
     },
     {7}},
    {"BeingMovedFrom", [](AbilityMap& map) { const AbilityMap other = std::move(map); }, {}},
    {"BeingMoveAssignedFrom",
     [](AbilityMap& map) {
       AbilityMap other;
       other = std::move(map);
     },
     {}},
};

INSTANTIATE_TEST_SUITE_P(All, AbilityMapChangeTest, ::testing::ValuesIn(kChanges),
                         [](const auto& test) { return std::string(test.param.name); });

TEST(AbilityMap, ReadingAndChangingValuesIsNoChangeOfCodes) {
  AbilityMap map = Numbers();
  const auto before = map.Changes();
  map.begin()->second.ability_ushort_value = 1;
  map.find(2)->second = Value(3, 0, "text");
  map.at(5).ability_ushort_value = 2;
  for (auto& entry : map) ++entry.second.ability_ushort_value;
  const Map& as_map = std::as_const(map);
  EXPECT_EQ(3U, as_map.size());
  EXPECT_EQ(before, map.Changes());
}

TEST(AbilityMap, HandedOutForChangingItCountsNoMore) {
  AbilityMap map = Numbers();
  Map& handed_out = map;
  EXPECT_EQ(0U, map.Changes());
  handed_out.erase(1);
  map.clear();
  EXPECT_EQ(0U, map.Changes());
  // What is copied from it is another map, which nobody else has.
  const AbilityMap copy = map;
  EXPECT_NE(0U, copy.Changes());
}

}  // namespace
