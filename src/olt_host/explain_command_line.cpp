#include "explain_command_line.h"

#include "command_options.h"
#include "vty/number.h"

namespace olt_host {

namespace {

// "PLACE/ONU"; false, and the numbers unchanged, for anything else.
bool ReadOnuName(const std::string& text, ExplainOptions& options) {
  constexpr unsigned int kHighestPlace = 65535;
  constexpr unsigned int kHighestOnu = 255;
  const std::size_t slash = text.find('/');
  unsigned int place = 0;
  unsigned int onu = 0;
  if (slash == std::string::npos || !ReadNumber(text.substr(0, slash), place) ||
      !ReadNumber(text.substr(slash + 1), onu) || place > kHighestPlace || onu > kHighestOnu) {
    return false;
  }
  options.place = static_cast<std::uint16_t>(place);
  options.onu = static_cast<std::uint8_t>(onu);
  return true;
}

}  // namespace

CLI::App* AddExplain(CLI::App& app, CommandLine& result) {
  ExplainOptions& options = result.explain;
  CLI::App* explain = app.add_subcommand("explain", "Tell why an ONU is recognised as what it is");
  AddCatalogue(*explain, result, true);
  AddReports(*explain, result, true);
  explain
      ->add_option_function<std::string>(
          "--onu",
          [&options](const std::string& text) {
            if (!ReadOnuName(text, options)) {
              throw CLI::ValidationError(
                  "--onu", "\"" + text + "\" is no ONU; expected its place and number, as in 1/2");
            }
          },
          "The ONU: its place and number")
      ->required()
      ->type_name("A/B");
  CLI::Option* all =
      explain->add_flag("--all", options.all, "Show every match profile, not only the nearest");
  explain->add_flag("--json", options.json, "Print one JSON document, with every match profile")
      ->excludes(all);
  AddCatalogueOptions(*explain, result);
  AddLogOptions(*explain, result);
  LogOnlyWhenAsked(*explain, result);
  explain->footer(
      "Tells what the ONU reported, which match profile took it and where that stands,\n"
      "why each other did not, and what the identify modes make of its type.\n\n"
      "Exit status:\n"
      "  0  explained, recognised or not\n"
      "  2  bad usage or bad input, such as an ONU that is not in REPORTS; one message\n"
      "     on standard error says where\n");
  return explain;
}

}  // namespace olt_host
