// How the handlers read their arguments. Not for hosts.
//
// Nothing is refused here: text that is no number reads as 0, and an argument
// that the framework did not pass as the empty text.
#ifndef ONU_ABILITY_COMMON_SERVICE_CLI_COMMAND_ARGUMENTS_H
#define ONU_ABILITY_COMMON_SERVICE_CLI_COMMAND_ARGUMENTS_H

#include <cstdlib>

class CommandArguments {
 public:
  CommandArguments(int argc, char** argv) : _argc(argc), _argv(argv) {}

  // The argument's text, never null. Not const: the host's primitives and the
  // library's own utilities take plain char*.
  char* Text(int index) const {
    static char empty[] = "";
    return index < _argc && _argv[index] != nullptr ? _argv[index] : empty;
  }

  int Number(int index) const { return atoi(Text(index)); }
  unsigned int Unsigned(int index) const { return static_cast<unsigned int>(Number(index)); }
  unsigned short Short(int index) const { return static_cast<unsigned short>(Number(index)); }

  // A key ability value: the full unsigned range, unlike the numbers above.
  unsigned int Key(int index) const {
    return static_cast<unsigned int>(strtoul(Text(index), nullptr, 10));
  }

 private:
  int _argc;
  char** _argv;
};

#endif  // ONU_ABILITY_COMMON_SERVICE_CLI_COMMAND_ARGUMENTS_H
