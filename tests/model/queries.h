// The model's query functions.
#ifndef TESTS_MODEL_QUERIES_H
#define TESTS_MODEL_QUERIES_H

#include <string>

#include "record.h"

namespace model {

u32 KeyValueExists(u32 key);
u32 SearchByRealType(u16 real_type);
u32 AbilityByKey(u32 key, u16 code);
// `buffer` is what the caller's holds, null when it has none.
u32 TypeNameByKey(u32 key, std::string* buffer, u32 size);
u32 TypeNameByRealType(u16 real_type, std::string* buffer, u32 size);
u32 LampTotalByRealType(u16 real_type);
u32 LampTotalByKey(u32 key);

}  // namespace model

#endif  // TESTS_MODEL_QUERIES_H
