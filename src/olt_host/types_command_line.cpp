#include "types_command_line.h"

#include "command_options.h"

namespace olt_host {

CLI::App* AddTypes(CLI::App& app, CommandLine& result) {
  CLI::App* types = app.add_subcommand("types", "Tell which ONU types can do something");
  AddCatalogue(*types, result, true);
  types->add_option("--where", result.types.where, "Only types for which this holds")
      ->type_name("EXPRESSION")
      ->check([](const std::string& text) {
        const bool blank = text.find_first_not_of(" \t") == std::string::npos;
        return std::string(blank ? "the expression is empty; expected one such as \"lan>=4\"" : "");
      });
  types->add_flag("--json", result.types.json, "Print one JSON document");
  AddCatalogueOptions(*types, result);
  AddLogOptions(*types, result);
  LogOnlyWhenAsked(*types, result);
  types->footer(
      "An expression compares abilities: \"lan>=4 and pots>=2 and capa=hgu\".\n"
      "  ability   its code, its name or the beginning of that, in capitals or not, or\n"
      "            lan, uni (port totals), capa, vendor, name, real, report\n"
      "  compare   = != < <= > >= numbers, = != texts, ~ a text that contains\n"
      "  join      not, and, or (binding in this order) and parentheses\n");
  return types;
}

CLI::App* AddCompare(CLI::App& app, CommandLine& result) {
  CLI::App* compare = app.add_subcommand("compare", "Tell how two ONU types differ");
  AddCatalogue(*compare, result, true);
  compare->add_option("A", result.types.a, "Key, real type or type name of an ONU type")
      ->required()
      ->type_name("TYPE");
  compare->add_option("B", result.types.b, "The same of another")->required()->type_name("TYPE");
  compare->add_flag("--json", result.types.json, "Print one JSON document");
  AddCatalogueOptions(*compare, result);
  AddLogOptions(*compare, result);
  LogOnlyWhenAsked(*compare, result);
  compare->footer("key=, real= or name= before a TYPE say which of them is meant.");
  return compare;
}

}  // namespace olt_host
