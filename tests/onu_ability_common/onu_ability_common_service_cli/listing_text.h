// The text of one profile in a listing, as an operator sees it: the layout is
// written out here, independently of the library's formats.
#ifndef TESTS_LISTING_TEXT_H
#define TESTS_LISTING_TEXT_H

#include <string>

// What one block shows. Defaults are those of an empty real profile; an empty
// place line is left out.
struct ListedProfile {
  std::string id = "0";
  std::string sn = "000000000000";
  std::string pon_no;
  std::string onu_id;
  std::string omci_mode;
  std::string report_type = "0";
  std::string vendor_id;
  std::string profile_name;
  std::string default_value = "0";
  std::string match_type = "0";
  std::string type = "1";
  std::string source = "0";
  std::string data_uni = "0";
  std::string lamps = "0";
  std::string bind_count = "0";
  std::string age_count = "0";
  std::string size = "30";
  std::string num = "0";
  std::string cells;
};

// A line of the upper part: the label, then the value in a field of 30.
inline std::string ListedLine(const std::string& label, const std::string& value) {
  std::string line = label;
  line.resize(23, ' ');
  line += value;
  if (value.size() < 30) {
    line.append(30 - value.size(), ' ');
  }
  return line + "\r\n";
}

inline std::string ListedPlace(const std::string& label, const std::string& value) {
  return value.empty() ? std::string() : ListedLine(label, value);
}

inline std::string ListingOf(const ListedProfile& p) {
  const std::string stars = "********************************************\r\n";
  return stars + ListedLine("id:", p.id) + "onu_sn:" + p.sn + "\r\n" +
         ListedPlace("pon_no:", p.pon_no) + ListedPlace("onu_id:", p.onu_id) +
         ListedPlace("omci_mode:", p.omci_mode) + ListedLine("reporttype:", p.report_type) +
         ListedLine("vendor id:", p.vendor_id) +
         ListedLine("ability profile name:", p.profile_name) +
         ListedLine("default value:", p.default_value) +
         ListedLine("flag_match_type:", p.match_type) + ListedLine("profile_type:", p.type) +
         ListedLine("profile_source:", p.source) + ListedLine("data uni total num:", p.data_uni) +
         ListedLine("total lamp num:", p.lamps) + ListedLine("bind count:", p.bind_count) +
         ListedLine("age_count:", p.age_count) + ListedLine("size:", p.size) +
         ListedLine("common_ability_num:", p.num) +
         "--------------common ability----------------\r\n"
         "ability \tvalue   \tability \tvalue   \tability \tvalue   \r\n" +
         p.cells + "\r\n" + stars + "\r\n\r\n";
}

#endif  // TESTS_LISTING_TEXT_H
