// The documents of shards: what is in their heads, and which merge.
#include "network/summary_document.h"

#include <gtest/gtest.h>

#include <fstream>

#include "host_files.h"

namespace olt_host_test {
namespace {

using Json = nlohmann::ordered_json;
using olt_host::DocumentHead;
using olt_host::Shard;
using olt_host::ShardSet;

DocumentHead HeadOf(const Shard& shard) {
  return {"confirm", Json::array({{{"name", "Example"}, {"version", "3"}, {"sha256", "ab"}}}),
          ShardSet::Of(shard)};
}

std::string MessageOf(DocumentHead head, const DocumentHead& other) {
  try {
    AddShards(head, other, "two.json");
  } catch (const std::runtime_error& error) {
    return error.what();
  }
  return "";
}

TEST(SummaryDocuments, OfAllShardsAreThatOfOneRun) {
  DocumentHead head = HeadOf({2, 3});
  AddShards(head, HeadOf({3, 3}), "b");
  EXPECT_FALSE(head.shards.IsWhole());
  EXPECT_EQ(olt_host::MissingText(head.shards), "1");
  EXPECT_EQ(HeadText(head), "Catalogue: Example, version 3\nShards:    2 of 3; missing: 1\n");
  AddShards(head, HeadOf({1, 3}), "a");
  EXPECT_TRUE(head.shards.IsWhole());
  EXPECT_EQ(MakeDocument(head, {{"n", 1}}).dump(), MakeDocument(HeadOf({1, 1}), {{"n", 1}}).dump());
}

TEST(SummaryDocuments, NameTheShardsThatAreMissing) {
  EXPECT_EQ(olt_host::MissingText({4, {2}}), "1, 3 and 4");
  EXPECT_EQ(olt_host::MissingText({5, {2}}), "1 and 3 to 5");
  EXPECT_EQ(olt_host::MissingText({11, {1, 3, 4, 10}}), "2, 5 to 9 and 11");
  EXPECT_EQ(olt_host::MissingText({10000, {10000}}), "1 to 9999");
  EXPECT_EQ(olt_host::MissingText({2, {1, 2}}), "");
  EXPECT_EQ(HeadText(HeadOf({3, 10})),
            "Catalogue: Example, version 3\nShards:    1 of 10, number 3\n");
}

TEST(SummaryDocuments, NameShardsOnLinesThatFitAScreen) {
  ShardSet every_second{60, {}};
  for (std::uint32_t number = 2; number <= 60; number += 2) every_second.numbers.insert(number);
  EXPECT_EQ(olt_host::ShardsText("Shards:    ", every_second),
            "Shards:    30 of 60; missing: 1, 3, 5, 7, 9, 11, 13, 15, 17, 19, 21, 23, 25,\n"
            "           27, 29, 31, 33, 35, 37, 39, 41, 43, 45, 47, 49, 51, 53, 55, 57 and\n"
            "           59\n");
}

TEST(SummaryDocuments, MergeOnlyWithTheirLike) {
  EXPECT_EQ(MessageOf(HeadOf({1, 3}), HeadOf({1, 3})),
            "two.json: shard 1 of 3 is there already; expected every shard once");
  EXPECT_EQ(MessageOf(HeadOf({1, 3}), HeadOf({2, 4})),
            "two.json: one of 4 shards; expected one of 3 like the first");
  DocumentHead other = HeadOf({2, 3});
  other.kind = "diff";
  EXPECT_EQ(MessageOf(HeadOf({1, 3}), other),
            "two.json: a summary of diff; expected one of confirm like the first");
  other = HeadOf({2, 3});
  other.catalogues[0]["sha256"] = "cd";
  EXPECT_NE(MessageOf(HeadOf({1, 3}), other).find("two.json: made with another catalogue"),
            std::string::npos);
  EXPECT_EQ(MessageOf(HeadOf({1, 1}), HeadOf({1, 1})), "");
}

TEST(SummaryDocuments, AreReadAsTheyWereWritten) {
  const TemporaryDirectory folder;
  const std::string file = folder.Path("document.json");
  const Json document = MakeDocument(HeadOf({2, 3}), {{"n", 1}});
  std::ofstream(file) << olt_host::DocumentText(document);
  Json read;
  const DocumentHead head = olt_host::ReadDocument(file, read);
  EXPECT_EQ(read, document);
  EXPECT_EQ(head.kind, "confirm");
  EXPECT_EQ(head.shards.count, 3U);
  EXPECT_EQ(head.shards.numbers, std::set<std::uint32_t>{2});
}

TEST(SummaryDocuments, SayWhatIsNoDocument) {
  const TemporaryDirectory folder;
  const std::string file = folder.Path("document.json");
  Json document;
  for (const char* text :
       {"", "[]", R"({"kind": "confirm", "catalogues": [1]})", "{\"kind\": 3}",
        R"({"kind": "confirm", "catalogues": [], "shards": {"of": 3, "numbers": [4]}})"}) {
    std::ofstream(file) << text;
    try {
      olt_host::ReadDocument(file, document);
      ADD_FAILURE() << text;
    } catch (const std::runtime_error& error) {
      EXPECT_EQ(std::string(error.what()).find(file + ": this is no summary of a network ("), 0U)
          << error.what();
    }
  }
}

TEST(SummaryDocuments, SayWhichFileCannotBeRead) {
  const TemporaryDirectory folder;
  Json document;
  const auto error = [&](const std::string& name) {
    return ErrorOf([&] { olt_host::ReadDocument(folder.Path(name), document); }, folder);
  };
  EXPECT_EQ(
      error("none.json"),
      "none.json: cannot be read: No such file or directory; expected a summary of a network");
  std::filesystem::create_directory(folder.Path("folder"));
  EXPECT_EQ(error("folder"),
            "folder: cannot be read: Is a directory; expected a summary of a network");
}

}  // namespace
}  // namespace olt_host_test
