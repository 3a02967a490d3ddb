#include "capture_command_line.h"

#include "command_options.h"

namespace olt_host {

CLI::App* AddCapture(CLI::App& app, CommandLine& result) {
  CaptureOptions& options = result.capture;
  CLI::App* capture = app.add_subcommand("capture", "Write what ONUs reported, as a test to keep");
  AddCatalogue(*capture, result, true);
  AddReports(*capture, result, true);
  capture->add_option("FILE", options.file, "The new reports file")->required()->type_name("FILE");
  AddOnuOption(*capture, "Only this ONU: its place and number",
               [&options](std::uint16_t place, std::uint8_t onu) {
                 options.one_onu = true;
                 options.place = place;
                 options.onu = onu;
               });
  capture->add_flag("--replace", options.replace, "Take the place of a FILE that is there");
  AddCatalogueOptions(*capture, result);
  AddLogOptions(*capture, result);
  LogOnlyWhenAsked(*capture, result);
  capture->footer(
      "FILE states what came of each ONU as its expectation, with all match profiles that\n"
      "fit where only their order decides. Of serial numbers it holds hashes.\n\n"
      "Exit status:\n"
      "  0  captured\n"
      "  2  bad usage or bad input, or a FILE that cannot be written; one message on\n"
      "     standard error says why\n");
  return capture;
}

CLI::App* AddReplay(CLI::App& app, CommandLine& result) {
  ReplayOptions& options = result.replay;
  CLI::App* replay = app.add_subcommand("replay", "Hold captured reports against a catalogue");
  AddCatalogue(*replay, result, true);
  replay->add_option("REPORTS", options.reports, "What was captured (YAML); one file or more")
      ->required()
      ->type_name("FILE ...");
  replay->add_flag("--json", options.json, "Print one JSON document");
  AddCatalogueOptions(*replay, result);
  AddLogOptions(*replay, result);
  LogOnlyWhenAsked(*replay, result);
  replay->footer(
      "Stricter than confirm: an ONU without an expectation fails, and so does one for\n"
      "which several match profiles fit unless its expectation names them all.\n\n"
      "Exit status:\n"
      "  0  every ONU came as expected\n"
      "  1  some did not\n"
      "  2  bad usage or bad input; one message on standard error says where\n");
  return replay;
}

}  // namespace olt_host
