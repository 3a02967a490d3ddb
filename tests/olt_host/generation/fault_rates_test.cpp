// How operators state which faults a population shall have.
#include <gtest/gtest.h>

#include <numeric>
#include <stdexcept>
#include <string>

#include "generation/faults.h"

namespace olt_host_test {
namespace {

std::uint32_t RateOf(const std::string& text, olt_host::FaultKind kind) {
  return olt_host::ReadFaultRates(text)[static_cast<std::size_t>(kind)];
}

std::string ErrorOf(const std::string& text) {
  try {
    olt_host::ReadFaultRates(text);
  } catch (const std::runtime_error& error) {
    return error.what();
  }
  return "no error";
}

TEST(FaultRates, AreStatedInPercentByKind) {
  EXPECT_EQ(RateOf("garbage=5,padding=2.5", olt_host::FaultKind::kGarbage), 50000U);
  EXPECT_EQ(RateOf("garbage=5,padding=2.5", olt_host::FaultKind::kPadding), 25000U);
  EXPECT_EQ(RateOf("garbage=5,padding=2.5", olt_host::FaultKind::kCase), 0U);
  EXPECT_EQ(RateOf("case=0.0001", olt_host::FaultKind::kCase), 1U);
  EXPECT_EQ(RateOf("case=100", olt_host::FaultKind::kCase), olt_host::kAlways);
}

TEST(FaultRates, LaterEntriesCountAndAllStandsForEach) {
  EXPECT_EQ(RateOf("all=1,ones=0", olt_host::FaultKind::kOnes), 0U);
  EXPECT_EQ(RateOf("ones=3,all=1", olt_host::FaultKind::kOnes), 10000U);
  const olt_host::FaultRates rates = olt_host::ReadFaultRates("all=1");
  EXPECT_EQ(std::accumulate(rates.begin(), rates.end(), 0U), 10000U * rates.size());
}

TEST(FaultRates, EveryKindHasAName) {
  for (std::size_t i = 0; i < olt_host::kFaultKinds.size(); ++i) {
    const std::string name = olt_host::ToText(olt_host::kFaultKinds[i]);
    EXPECT_EQ(static_cast<std::size_t>(olt_host::kFaultKinds[i]), i);
    EXPECT_EQ(RateOf(name + "=7", olt_host::kFaultKinds[i]), 70000U) << name;
  }
}

TEST(FaultRates, WhatIsWrongIsTold) {
  EXPECT_EQ(ErrorOf("garbag=1"), "\"garbag\" is no fault; expected \"garbage\"");
  EXPECT_EQ(ErrorOf("xyz=1"),
            "\"xyz\" is no fault; expected one of all, missing, ones, truncated, case, padding, "
            "garbage, unknown, changed");
  EXPECT_EQ(ErrorOf("case=1,"),
            "\"\" is no fault; expected one of all, missing, ones, truncated, "
            "case, padding, garbage, unknown, changed");
  for (const char* entry : {"case", "case=", "case=101", "case=100.1", "case=-1", "case=1e1",
                            "case=1.", "case=.5", "case=1.23456", "case=9999"}) {
    EXPECT_EQ(ErrorOf(entry), "\"" + std::string(entry) +
                                  "\" states no rate; expected case=PERCENT, 0 to 100 with up to "
                                  "4 decimals");
  }
}

}  // namespace
}  // namespace olt_host_test
