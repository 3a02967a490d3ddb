#include "catalogue/catalogue_difference.h"

#include <algorithm>
#include <map>
#include <set>
#include <string_view>
#include <utility>

#include "text/columns.h"
#include "text/whole_characters.h"

namespace olt_host {

namespace {

// Entries with one key are told apart by which of them they are.
using Identity = std::pair<std::pair<unsigned int, std::string>, std::size_t>;

std::vector<Identity> IdentitiesOf(const std::vector<ContentEntry>& entries, EntryKind kind) {
  std::vector<Identity> identities;
  std::map<std::pair<unsigned int, std::string>, std::size_t> seen;
  for (const ContentEntry& entry : entries) {
    const std::pair<unsigned int, std::string> name(entry.key,
                                                    kind == EntryKind::kSetting ? entry.name : "");
    identities.emplace_back(name, seen[name]++);
  }
  return identities;
}

std::string ValueOf(const ContentEntry& entry, const std::string& name) {
  const auto value = entry.values.find(name);
  return value == entry.values.end() ? "none" : value->second;
}

// "GE_PORTS 4 to 2"; a setting has nothing but its value.
std::string DetailText(const std::string& name, const std::string& before,
                       const std::string& after) {
  return (name == "value" ? "" : name + " ") + before + " to " + after;
}

std::vector<std::string> DetailsOf(const ContentEntry& before, const ContentEntry& after) {
  std::set<std::string> names;
  for (const ContentEntry* entry : {&before, &after}) {
    for (const auto& value : entry->values) {
      names.insert(value.first);
    }
  }
  std::vector<std::string> details;
  for (const std::string& name : names) {
    const std::string old_value = ValueOf(before, name);
    const std::string new_value = ValueOf(after, name);
    if (old_value != new_value) {
      details.push_back(DetailText(name, old_value, new_value));
    }
  }
  return details;
}

// Which of the places, given in their new order, need not have moved: as many as
// possible that still ascend.
std::vector<bool> InOrder(const std::vector<std::size_t>& places) {
  std::vector<std::size_t> ends;  // of the best ascent of each length, as indices
  std::vector<std::size_t> previous(places.size());
  for (std::size_t i = 0; i < places.size(); ++i) {
    const auto end = std::lower_bound(
        ends.begin(), ends.end(), places[i],
        [&](std::size_t index, std::size_t place) { return places[index] < place; });
    previous[i] = end == ends.begin() ? i : *(end - 1);
    if (end == ends.end()) {
      ends.push_back(i);
    } else {
      *end = i;
    }
  }
  std::vector<bool> in_order(places.size(), false);
  for (std::size_t left = ends.size(), at = ends.empty() ? 0 : ends.back(); left > 0; --left) {
    in_order[at] = true;
    at = previous[at];
  }
  return in_order;
}

class SectionComparison {
 public:
  SectionComparison(EntryKind kind, const std::vector<ContentEntry>& before,
                    const std::vector<ContentEntry>& after)
      : _kind(kind), _before(before), _after(after) {
    const std::vector<Identity> identities = IdentitiesOf(before, kind);
    for (std::size_t i = 0; i < identities.size(); ++i) {
      _places.emplace(identities[i], i);
    }
  }

  void AddTo(CatalogueDifference& difference) {
    const std::vector<Identity> identities = IdentitiesOf(_after, _kind);
    std::vector<std::size_t> kept;
    for (const Identity& identity : identities) {
      const auto place = _places.find(identity);
      if (place != _places.end()) {
        kept.push_back(place->second);
      }
    }
    const std::vector<bool> in_order = InOrder(kept);
    std::size_t index = 0;
    for (std::size_t i = 0; i < identities.size(); ++i) {
      const auto place = _places.find(identities[i]);
      if (place == _places.end()) {
        Add(difference, _after[i], ChangeKind::kAdded, {});
        continue;
      }
      const auto details = DetailsOf(_before[place->second], _after[i]);
      if (!details.empty()) {
        Add(difference, _after[i], ChangeKind::kChanged, details);
      } else if (!in_order[index]) {
        Add(difference, _after[i], ChangeKind::kMoved, {});
      }
      ++index;
    }
    AddRemoved(difference, kept);
  }

 private:
  void AddRemoved(CatalogueDifference& difference, const std::vector<std::size_t>& kept) {
    const std::set<std::size_t> stayed(kept.begin(), kept.end());
    for (std::size_t i = 0; i < _before.size(); ++i) {
      if (stayed.count(i) == 0) {
        Add(difference, _before[i], ChangeKind::kRemoved, {});
      }
    }
  }

  void Add(CatalogueDifference& difference, const ContentEntry& entry, ChangeKind kind,
           const std::vector<std::string>& details) {
    difference.push_back({_kind, entry.key, entry.name, kind, details});
  }

  EntryKind _kind;
  const std::vector<ContentEntry>& _before;
  const std::vector<ContentEntry>& _after;
  std::map<Identity, std::size_t> _places;
};

// "2 real profiles added, 1 changed".
std::string SectionCounts(const CatalogueDifference& difference, EntryKind entry) {
  std::string text;
  for (const ChangeKind kind :
       {ChangeKind::kAdded, ChangeKind::kRemoved, ChangeKind::kChanged, ChangeKind::kMoved}) {
    const auto count =
        std::count_if(difference.begin(), difference.end(), [&](const CatalogueChange& change) {
          return change.entry == entry && change.kind == kind;
        });
    if (count != 0) {
      const std::string what = " " + std::string(ToText(entry)) + (count == 1 ? "" : "s");
      text += (text.empty() ? "" : ", ") + std::to_string(count) + (text.empty() ? what : "") +
              " " + ToText(kind);
    }
  }
  return text;
}

// A line that is too long for a screen goes on in the next ones.
void Break(const std::string& line, std::vector<std::string>& lines) {
  std::string indent;
  std::string_view rest = line;
  do {
    const std::size_t room = kLineColumns - indent.size();
    const std::size_t whole = WholeCharacters(rest, room);
    const std::string_view piece = rest.substr(0, whole == 0 ? room : whole);
    lines.push_back(indent + std::string(piece));
    rest.remove_prefix(piece.size());
    indent = "      ";
  } while (!rest.empty());
}

}  // namespace

const char* ToText(EntryKind kind) {
  switch (kind) {
    case EntryKind::kSetting:
      return "setting";
    case EntryKind::kAttribute:
      return "attribute";
    case EntryKind::kCode:
      return "code";
    case EntryKind::kRealProfile:
      return "real profile";
    case EntryKind::kMatchProfile:
      break;
  }
  return "match profile";
}

const char* ToText(ChangeKind kind) {
  switch (kind) {
    case ChangeKind::kAdded:
      return "added";
    case ChangeKind::kRemoved:
      return "removed";
    case ChangeKind::kChanged:
      return "changed";
    case ChangeKind::kMoved:
      break;
  }
  return "moved";
}

CatalogueDifference Compare(const CatalogueContent& before, const CatalogueContent& after) {
  CatalogueDifference difference;
  SectionComparison(EntryKind::kSetting, before.settings, after.settings).AddTo(difference);
  SectionComparison(EntryKind::kAttribute, before.attributes, after.attributes).AddTo(difference);
  SectionComparison(EntryKind::kCode, before.codes, after.codes).AddTo(difference);
  SectionComparison(EntryKind::kRealProfile, before.real_profiles, after.real_profiles)
      .AddTo(difference);
  SectionComparison(EntryKind::kMatchProfile, before.match_profiles, after.match_profiles)
      .AddTo(difference);
  return difference;
}

std::string CountsText(const CatalogueDifference& difference) {
  std::string text;
  for (const EntryKind entry : {EntryKind::kSetting, EntryKind::kAttribute, EntryKind::kCode,
                                EntryKind::kRealProfile, EntryKind::kMatchProfile}) {
    const std::string counts = SectionCounts(difference, entry);
    text += (text.empty() || counts.empty() ? "" : "; ") + counts;
  }
  return text;
}

std::vector<std::string> ChangeLines(const CatalogueChange& change) {
  std::string head = std::string("  ") + ToText(change.entry) + " ";
  if (change.entry == EntryKind::kSetting) {
    head += change.name;
  } else {
    head += std::to_string(change.key) + (change.name.empty() ? "" : " (" + change.name + ")");
  }
  std::vector<std::string> lines = {head + ": " + ToText(change.kind)};
  for (const std::string& detail : change.details) {
    lines.back() += ",";
    if (lines.back().size() + 1 + detail.size() + 1 <= kLineColumns) {
      lines.back() += " " + detail;
    } else {
      lines.push_back("    " + detail);
    }
  }
  std::vector<std::string> broken;
  for (const std::string& line : lines) {
    Break(line, broken);
  }
  return broken;
}

}  // namespace olt_host
