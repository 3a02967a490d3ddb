// The program's main job, confirming the shipped population, comes out to the byte as it
// is kept, whatever machine the program is built for.
#include <gtest/gtest.h>

#include "program_runner.h"

namespace olt_host_test {
namespace {

TEST(ShippedPopulation, IsConfirmedAsItIsKept) {
  const ProgramResult confirmed = RunProgram({"confirm", OLT_HOST_SHIPPED_DATA "/catalogue.yaml",
                                              OLT_HOST_SHIPPED_DATA "/reports.yaml", "--csv"});
  EXPECT_EQ(confirmed.status, 0);
  EXPECT_EQ(confirmed.err, "");
  EXPECT_EQ(confirmed.out, ReadFile(Fixture("shipped_confirmation.csv")))
      << "Where the data changed on purpose, keep what\n"
         "  olt_host confirm data/catalogue.yaml data/reports.yaml --csv\n"
         "prints as tests/olt_host/fixtures/shipped_confirmation.csv.";
}

}  // namespace
}  // namespace olt_host_test
