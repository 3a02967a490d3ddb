// capture onu: what live ONUs reported, as a reports file; replay: hold such a file against
// the library as it is.
#include <memory>
#include <stdexcept>

#include "catalogue/report_reader.h"
#include "commands/capture_output.h"
#include "commands/host_commands.h"
#include "commands/host_context.h"
#include "commands/onu_argument.h"
#include "commands/onu_listing.h"
#include "vty/json_output.h"
#include "vty/terminal.h"

namespace olt_host {

namespace {

// The last arguments are the file and, if told, `replace`.
int CaptureTo(struct vty& terminal, const OnuReports& onus, int argc, char** argv, int file) {
  try {
    WriteCapture(terminal, onus, argv[file], argc > file + 1);
  } catch (const std::runtime_error& error) {
    return terminal.Refuse(std::string("Nothing is captured: ") + error.what());
  }
  return 0;
}

int CaptureOneOnu(cmd_element* /*element*/, struct vty* vty, int argc, char** argv) {
  const OnuReport* report = FindOnuArgument(*vty, argv);
  if (report == nullptr) return -1;
  return CaptureTo(*vty, {report}, argc, argv, 2);
}

int CaptureAllOnus(cmd_element* /*element*/, struct vty* vty, int argc, char** argv) {
  const OnuReports onus = LiveOnus();
  if (onus.empty()) return vty->Refuse(NoOnus());
  return CaptureTo(*vty, onus, argc, argv, 0);
}

int ReplayFile(cmd_element* /*element*/, struct vty* vty, int argc, char** argv) {
  ReplayResult result;
  try {
    Replay(std::make_shared<const Population>(ReadReports(argv[0], Host().catalogue.catalogue)),
           result);
  } catch (const std::runtime_error& error) {
    return vty->Refuse(std::string("Nothing is replayed: ") + error.what());
  }
  if (WantsJson(argc, argv)) {
    WriteJson(*vty, ReplayJson(result));
  } else {
    WriteReplay(*vty, result);
  }
  return 0;
}

#define CAPTURE_HELP                               \
  "write what ONUs reported to a reports file\r\n" \
  "of ONUs\r\n"
#define FILE_HELP    \
  "the new file\r\n" \
  "in place of a file that is there\r\n"

cmd_element capture_one_cmd = {"capture onu <0-65535> <0-255> <string> {[replace]}*1",
                               CaptureOneOnu,
                               CAPTURE_HELP
                               "place of the ONU\r\n"
                               "number of the ONU\r\n" FILE_HELP};

cmd_element capture_all_cmd = {"capture onu all <string> {[replace]}*1", CaptureAllOnus,
                               CAPTURE_HELP "of all ONUs\r\n" FILE_HELP};

cmd_element replay_cmd = {"replay <string> {[json]}*1", ReplayFile,
                          "confirm captured reports, each of which must come as expected\r\n"
                          "the file\r\n"
                          "as a JSON document\r\n"};

}  // namespace

void InstallCaptureCommands() {
  for (cmd_element* command : {&capture_one_cmd, &capture_all_cmd, &replay_cmd}) {
    install_element(kCommandNode, command);
  }
}

}  // namespace olt_host
