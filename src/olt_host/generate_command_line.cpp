#include "generate_command_line.h"

#include "command_options.h"
#include "generation/population_generator.h"
#include "network/generated_network.h"
#include "network_command_line.h"

namespace olt_host {

CLI::App* AddGenerate(CLI::App& app, CommandLine& result) {
  CLI::App* generate = app.add_subcommand("generate", "Make a population of ONUs to test with");
  GenerateOptions& options = result.generate;
  AddCatalogue(*generate, result, true);
  generate->add_option("--onus", options.onus, "How many ONUs")
      ->required()
      ->check(CLI::Range(std::uint64_t{0}, std::uint64_t{kMostOlts} * kMostOnus))
      ->type_name("N");
  generate->add_option("--olts", options.olts, "At so many OLTs: JSON lines, an ONU a line")
      ->check(CLI::Range(std::uint32_t{1}, kMostOlts))
      ->type_name("T");
  generate->add_option("--seed", options.seed, "Another seed, another population (default 1)")
      ->type_name("S");
  generate
      ->add_option("--models", options.models,
                   "Only ONUs of these types, by key or name (default all)")
      ->delimiter(',')
      ->allow_extra_args(false)
      ->type_name("TYPE,..");
  generate->add_option("--faults", options.faults, "How many reports shall have which fault")
      ->type_name("KIND=PERCENT,..");
  generate->add_flag("--again", options.again, "The same ONUs, asked a second time");
  generate
      ->add_option_function<std::string>(
          "-o,--output",
          [&options](const std::string& file) { options.output = file == "-" ? "" : file; },
          "Write to FILE; JSON lines if it is called *.jsonl")
      ->type_name("FILE");
  AddWorkerOptions(*generate, result);
  AddCatalogueOptions(*generate, result);
  AddLogOptions(*generate, result);
  LogOnlyWhenAsked(*generate, result);
  generate->footer(
      "Writes a reports file. Every ONU states the type that it truly is and its\n"
      "faults; what must be recognised all the same states that as its expectation.\n"
      "The same catalogue, options and seed give the same bytes everywhere.\n\n"
      "With --olts the ONUs stand at OLTs olt-00001 and on, as many at each, and some\n"
      "OLTs are set to modes that translate types.\n\n"
      "Faults:\n"
      "  missing    a value or text is not told\n"
      "  ones       a number is told as 0xFFFFFFFF\n"
      "  truncated  a text lacks its end\n"
      "  case       a text is in small letters, or in capitals\n"
      "  padding    blanks or zero bytes fill a text\n"
      "  garbage    bytes behind the terminator of a text\n"
      "  unknown    values of codes that the catalogue does not define\n"
      "  changed    told otherwise with --again\n"
      "  all        each of these\n");
  return generate;
}

}  // namespace olt_host
