#include "recognition/difference_counter.h"

#include <algorithm>

namespace olt_host {

namespace {

std::optional<OnuChange> KindOf(const OnuOutcome& before, const OnuOutcome& after) {
  if (before.real_type && after.real_type && *before.real_type != *after.real_type) {
    return OnuChange::kType;
  }
  if (!before.real_type && after.real_type) return OnuChange::kBecameKnown;
  if (before.real_type && !after.real_type) return OnuChange::kBecameUnknown;
  if (before.report_type != after.report_type) return OnuChange::kReportType;
  if (before.how != after.how || before.winner.key != after.winner.key) {
    return OnuChange::kOtherProfile;
  }
  return std::nullopt;
}

std::string NameOfType(const NamesByKey& names, const PatternName& pattern) {
  const auto name = names.find(pattern.key);
  return name == names.end() ? "" : name->second;
}

SideOfChange SideOf(const OnuOutcome& onu, const NamesByKey& names) {
  SideOfChange side;
  side.real_type = onu.real_type;
  if (onu.real_type) side.type_name = NameOfType(names, onu.winner);
  side.report_type = onu.report_type;
  side.type_to_translate = onu.type_to_translate;
  side.how = onu.how;
  side.fitting = onu.fitting;
  side.winner = onu.winner;
  return side;
}

auto OrderOf(const OnuAddress& onu) { return std::tie(onu.olt, onu.file, onu.place, onu.onu); }

bool IsBefore(const OnuAddress& one, const OnuAddress& other) {
  return OrderOf(one) < OrderOf(other);
}

auto OrderOf(const SideOfChange& side) {
  return std::tie(side.real_type, side.report_type, side.type_to_translate, side.how, side.fitting,
                  side.winner.key, side.winner.source, side.winner.id);
}

// A network's file may name an ONU twice: then what became of it decides.
bool HasEarlierExample(const ChangeGroup& one, const ChangeGroup& other) {
  const auto order = [](const ChangeGroup& group) {
    return std::tuple(OrderOf(group.examples.front()), OrderOf(group.before), OrderOf(group.after),
                      std::string_view(group.report));
  };
  return order(one) < order(other);
}

void MergeExamples(std::vector<OnuAddress>& into, const std::vector<OnuAddress>& others) {
  // The usual case of a population in order.
  if (into.size() == kMostExamples && !IsBefore(others.front(), into.back())) return;
  into.insert(into.end(), others.begin(), others.end());
  std::stable_sort(into.begin(), into.end(), IsBefore);
  into.resize(std::min(into.size(), kMostExamples));
}

// The groups of a map, most ONUs first, otherwise in the order of the map.
template <typename Key, typename Group>
std::vector<Group> MostFirst(const std::map<Key, Group>& groups) {
  std::vector<Group> sorted;
  sorted.reserve(groups.size());
  for (const auto& entry : groups) sorted.push_back(entry.second);
  std::stable_sort(sorted.begin(), sorted.end(),
                   [](const Group& one, const Group& other) { return one.onus > other.onus; });
  return sorted;
}

}  // namespace

void DifferenceCounter::Count(const OnuAddress& address, const OnuOutcome& before,
                              const OnuOutcome& after, const NamesOfBoth& names,
                              std::string_view report) {
  ++_onus;
  if (before.ByLuck()) CountLuck(address, before, names.before, _luck_before);
  if (after.ByLuck()) CountLuck(address, after, names.after, _luck_after);
  const auto kind = KindOf(before, after);
  if (!kind) return;
  ChangeGroup group;
  group.kind = *kind;
  group.onus = 1;
  group.examples = {address};
  group.before = SideOf(before, names.before);
  group.after = SideOf(after, names.after);
  group.report = report;
  AddGroup(group);
}

void DifferenceCounter::CountLuck(const OnuAddress& address, const OnuOutcome& onu,
                                  const NamesByKey& names, LuckGroups& groups) {
  LuckGroup group;
  group.winner = onu.winner;
  group.next = onu.next;
  group.winner_name = NameOfType(names, onu.winner);
  group.next_name = NameOfType(names, onu.next);
  group.most_fitting = onu.fitting;
  group.onus = 1;
  group.examples = {address};
  AddGroup(group, groups);
}

void DifferenceCounter::Add(const PopulationDifference& difference) {
  _onus += difference.onus;
  for (const ChangeGroup& group : difference.groups) AddGroup(group);
  for (const LuckGroup& group : difference.luck_before.groups) AddGroup(group, _luck_before);
  for (const LuckGroup& group : difference.luck_after.groups) AddGroup(group, _luck_after);
}

DifferenceCounter::ChangeKey DifferenceCounter::KeyOf(const ChangeGroup& group) {
  const auto type = [](const SideOfChange& side) {
    return side.real_type ? long{*side.real_type} : -1;
  };
  std::uint64_t detail_before = 0;
  std::uint64_t detail_after = 0;
  if (group.kind == OnuChange::kReportType) {
    detail_before = group.before.report_type;
    detail_after = group.after.report_type;
  } else if (group.kind == OnuChange::kOtherProfile) {
    detail_before = group.before.winner.key;
    detail_after = group.after.winner.key;
  }
  return {group.kind, type(group.before), type(group.after), detail_before, detail_after};
}

void DifferenceCounter::AddGroup(const ChangeGroup& group) {
  const auto [entry, is_new] = _changes.try_emplace(KeyOf(group), group);
  if (is_new) return;
  ChangeGroup& sum = entry->second;
  const std::size_t onus = sum.onus + group.onus;
  if (HasEarlierExample(group, sum)) {
    std::vector<OnuAddress> examples = std::move(sum.examples);
    sum = group;
    MergeExamples(sum.examples, examples);
  } else {
    MergeExamples(sum.examples, group.examples);
  }
  sum.onus = onus;
}

void DifferenceCounter::AddGroup(const LuckGroup& group, LuckGroups& groups) {
  const auto key_of = [](const PatternName& name) {
    return PatternKey(name.key, name.source, name.id);
  };
  const auto [entry, is_new] =
      groups.try_emplace({key_of(group.winner), key_of(group.next)}, group);
  if (is_new) return;
  LuckGroup& sum = entry->second;
  sum.onus += group.onus;
  sum.most_fitting = std::max(sum.most_fitting, group.most_fitting);
  MergeExamples(sum.examples, group.examples);
}

Luck DifferenceCounter::LuckOf(const LuckGroups& groups) {
  Luck luck;
  luck.groups = MostFirst(groups);
  for (const LuckGroup& group : luck.groups) luck.onus += group.onus;
  return luck;
}

PopulationDifference DifferenceCounter::Difference() const {
  PopulationDifference difference;
  difference.onus = _onus;
  difference.groups = MostFirst(_changes);
  std::stable_sort(
      difference.groups.begin(), difference.groups.end(),
      [](const ChangeGroup& one, const ChangeGroup& other) { return one.kind < other.kind; });
  for (const ChangeGroup& group : difference.groups) {
    difference.counts[static_cast<std::size_t>(group.kind)] += group.onus;
  }
  difference.luck_before = LuckOf(_luck_before);
  difference.luck_after = LuckOf(_luck_after);
  return difference;
}

}  // namespace olt_host
