// The commands that ask backwards: which types can do something, and how two differ.
#include <string>

#include "commands/host_commands.h"
#include "commands/host_context.h"
#include "commands/type_output.h"
#include "recognition/expression_words.h"
#include "vty/command_table.h"
#include "vty/json_output.h"
#include "vty/place.h"
#include "vty/terminal.h"

namespace olt_host {

namespace {

// A word that holds blanks was in quotes: among others it is a value, alone it is the
// whole expression.
std::string JoinedExpression(int words, char** argv) {
  std::string expression;
  for (int i = 0; i < words; ++i) {
    const std::string word = argv[i];
    const bool is_value = words > 1 && (word.empty() || word.find(' ') != std::string::npos);
    expression += (i == 0 ? "" : " ") + (is_value ? QuotedWord(word) : word);
  }
  return expression;
}

int Show(struct vty& terminal, const std::string& expression, bool as_json) {
  if (as_json) {
    WriteJson(terminal, TypesJson(expression));
  } else {
    WriteTypes(terminal, expression);
  }
  return 0;
}

int ShowTypes(cmd_element* /*element*/, struct vty* vty, int argc, char** argv) {
  return Show(*vty, "", WantsJson(argc, argv));
}

int ShowTypesWhere(cmd_element* /*element*/, struct vty* vty, int argc, char** argv) {
  const bool as_json = argc > 1 && WantsJson(argc, argv);
  const std::string expression = JoinedExpression(as_json ? argc - 1 : argc, argv);
  try {
    // An empty expression is a mistake here, not a wish for all types.
    return Show(*vty, expression.empty() ? " " : expression, as_json);
  } catch (const ExpressionError& error) {
    if (as_json) return vty->Refuse(error.what());
    const std::string place = LineWithCaret("  ", expression, error.at());
    vty->Write(place.data(), place.size());
    return vty->Refuse(error.rule());
  }
}

int CompareTwoTypes(cmd_element* /*element*/, struct vty* vty, int argc, char** argv) {
  try {
    if (argc > 2 && WantsJson(argc, argv)) {
      WriteJson(*vty, TypeComparisonJson(argv[0], argv[1]));
    } else {
      WriteTypeComparison(*vty, argv[0], argv[1]);
    }
  } catch (const TypeNameError& error) {
    return vty->Refuse(error.what());
  }
  return 0;
}

#define TYPE_HELP                \
  "show what the host holds\r\n" \
  "the ONU types, the newest first\r\n"
#define EXPRESSION_HELP \
  "such as lan>=4 and pots>=2 and capa=hgu; = != < <= > >= ~ and or not ( )\r\n"
#define JSON_HELP "as a JSON document\r\n"
#define CALL_HELP \
  "key, real type or type name; key=, real=, name=, shipped= or operator= before it\r\n"

cmd_element show_cmd = {"show type {[json]}*1", ShowTypes, TYPE_HELP JSON_HELP};

cmd_element where_cmd = {
    "show type where <string> {<string>}*63 {[json]}*1", ShowTypesWhere,
    TYPE_HELP "only the types that can do this\r\n" EXPRESSION_HELP EXPRESSION_HELP JSON_HELP};

cmd_element compare_cmd = {"compare type <string> <string> {[json]}*1", CompareTwoTypes,
                           "compare what the host holds\r\n"
                           "two ONU types, ability by ability\r\n" CALL_HELP CALL_HELP JSON_HELP};

}  // namespace

void InstallTypeCommands() {
  for (cmd_element* command : {&show_cmd, &where_cmd, &compare_cmd}) {
    install_element(kCommandNode, command);
  }
  CommandTable::Instance().AllowReadOnly(&compare_cmd);
}

}  // namespace olt_host
