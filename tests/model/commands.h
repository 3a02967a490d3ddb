// The model's command handlers and table listings. Arguments are those that the
// framework passes; the terminal is the record's.
#ifndef TESTS_MODEL_COMMANDS_H
#define TESTS_MODEL_COMMANDS_H

#include <string>
#include <vector>

#include "record.h"

namespace model {

using Arguments = std::vector<std::string>;

int ShowTable(const Arguments& arguments);
int AddProfile(const Arguments& arguments);
int SetProfile(const Arguments& arguments);
int ApplyProfile(const Arguments& arguments);
int ShowPending(const Arguments& arguments);
int DelProfile(const Arguments& arguments);
int ShowCodes(const Arguments& arguments);
int SetCode(const Arguments& arguments);
int DelCode(const Arguments& arguments);
int UpdateNumberValue(const Arguments& arguments);
int UpdateTextValue(const Arguments& arguments);
int SetCommonType(const Arguments& arguments);
int ShowCommonTypes(const Arguments& arguments);
int SetKeyCode(const Arguments& arguments);
int ShowKeyCode(const Arguments& arguments);
int TestAbility(const Arguments& arguments);

u32 AbilityNumber(const std::string& text);
void ShowAll(int type, int source, int flag, bool terminal);
void ShowItem(int type, int source, int flag, u16 real_type, bool terminal);

}  // namespace model

#endif  // TESTS_MODEL_COMMANDS_H
