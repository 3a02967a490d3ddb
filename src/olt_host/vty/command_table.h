// The commands and modules that were installed, by command node: the host's
// side of install_element and cl_install_module.
//
// Process-wide, filled at start-up before any session runs, only read
// afterwards; no lock. Keeps pointers to the records, which outlive it.
#ifndef OLT_HOST_VTY_COMMAND_TABLE_H
#define OLT_HOST_VTY_COMMAND_TABLE_H

#include <map>
#include <set>
#include <string>
#include <vector>

#include "vty/matcher.h"

namespace olt_host {

class CommandTable {
 public:
  struct Module {
    std::string name;
    int (*showrun)(void);  // may be null
  };

  // The table that install_element and cl_install_module fill.
  static CommandTable& Instance();

  // Reads the element's syntax and offers it under `node`. Returns an empty
  // text, or, the table unchanged, why the element was refused: a null field, a
  // syntax that cannot be read (quoted, the place marked on a line of its own),
  // an element that the node already has, a line that would mean both the element
  // and an earlier one (both are quoted, and such a line).
  std::string Install(unsigned int node, cmd_element* element);

  // Lets read-only operators run the element too. Without that they may run only
  // commands whose first keyword is "show".
  void AllowReadOnly(const cmd_element* element) { _read_only.insert(element); }
  bool MayChange(const Command& command) const;

  // In the order of installation; empty for a node without commands.
  const std::vector<Command>& Commands(unsigned int node) const;

  void AddModule(const Module& module) { _modules.push_back(module); }
  const std::vector<Module>& modules() const { return _modules; }

  // What install_element refused, in order. The library does not look at its
  // results, so a host asks here whether every command was taken.
  void NoteRefusal(const std::string& reason) { _refusals.push_back(reason); }
  const std::vector<std::string>& refusals() const { return _refusals; }

 private:
  std::map<unsigned int, std::vector<Command>> _commands;
  std::vector<Module> _modules;
  std::vector<std::string> _refusals;
  std::set<const cmd_element*> _read_only;
};

}  // namespace olt_host

#endif  // OLT_HOST_VTY_COMMAND_TABLE_H
