// A second host, as someone else would write it: it knows the installed headers
// and nothing of this project's own host. It defines the host's symbols in the
// plainest way, loads two types, asks about them, and returns 0 when every answer
// is right.
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <mutex>
#include <string>

#include "bep.h"
#include "mutex_lock.h"
#include "onu_ability_common_global.h"
#include "onu_ability_common_reg_extern_func.h"
#include "onu_ability_common_service_cinterface.h"
#include "onu_ability_common_service_cli.h"
#include "onu_ability_common_table.h"
#include "ulog.h"
#include "variant.h"
#include "vty.h"

extern "C" {
unsigned int ask_lamps(unsigned int key);
unsigned int ask_name(unsigned short real_type, char* buffer, unsigned int size);
unsigned int not_found_status(void);
}

namespace {

unsigned int lines = 0;
unsigned int modules_seen = 0;
unsigned int commands = 0;
int failures = 0;

void Expect(bool holds, const char* what) {
  if (!holds) {
    std::fprintf(stderr, "second host: %s\n", what);
    ++failures;
  }
}

}  // namespace

struct vty {
  std::string text;
};

extern "C" void ulogPrintf(unsigned int module_id, unsigned int, const char* format, ...) {
  char line[2048];
  va_list arguments;
  va_start(arguments, format);
  std::vsnprintf(line, sizeof(line), format, arguments);
  va_end(arguments);
  ++lines;
  modules_seen = module_id;
}

CMutexLock::CMutexLock() : _handle(new std::mutex) {}
CMutexLock::~CMutexLock() { delete static_cast<std::mutex*>(_handle); }
unsigned int CMutexLock::Lock(int, const char*, unsigned int) {
  static_cast<std::mutex*>(_handle)->lock();
  return 0;
}
unsigned int CMutexLock::Unlock(const char*, unsigned int) {
  static_cast<std::mutex*>(_handle)->unlock();
  return 0;
}

// Values one after another; the read position sits in front.
struct Bytes {
  std::string data;
  std::size_t position = 0;
};
namespace {
Bytes& In(void* handle) { return *static_cast<Bytes*>(handle); }
unsigned int Put(void* handle, const void* from, std::size_t size) {
  In(handle).data.append(static_cast<const char*>(from), size);
  return 0;
}
unsigned int Take(void* handle, void* to, std::size_t size) {
  Bytes& bytes = In(handle);
  if (bytes.data.size() - bytes.position < size) {
    return 1;
  }
  std::memcpy(to, bytes.data.data() + bytes.position, size);
  bytes.position += size;
  return 0;
}
}  // namespace
Variant::Variant() : _handle(new Bytes) {}
Variant::~Variant() { delete static_cast<Bytes*>(_handle); }
unsigned int Variant::Append(unsigned short value, unsigned int) {
  return Put(_handle, &value, sizeof(value));
}
unsigned int Variant::Append(unsigned int value, unsigned int) {
  return Put(_handle, &value, sizeof(value));
}
unsigned int Variant::Append(char* bytes, unsigned int length, unsigned int) {
  return Put(_handle, bytes, length);
}
unsigned int Variant::Fetch(unsigned short& value, unsigned int) const {
  return Take(_handle, &value, sizeof(value));
}
unsigned int Variant::Fetch(unsigned int& value, unsigned int) const {
  return Take(_handle, &value, sizeof(value));
}
unsigned int Variant::Fetch(char* bytes, unsigned int length, unsigned int) const {
  return Take(_handle, bytes, length);
}

extern "C" {
int bep_StrCmp(const char* a, const char* b) { return std::strcmp(a, b); }
unsigned int bep_StrLen(const char* text) { return static_cast<unsigned int>(std::strlen(text)); }
void* bep_callocEx(unsigned int count, unsigned int size, const char*, unsigned int) {
  return std::calloc(count, size);
}
void bep_freeEx(void* block, const char*, unsigned int) { std::free(block); }
void bep_memCpyEx(void* dst, unsigned int dst_size, const void* src, unsigned int count) {
  if (count <= dst_size) {
    std::memcpy(dst, src, count);
  }
}
void bep_memSetEx(void* dst, unsigned int dst_size, int value, unsigned int count) {
  if (count <= dst_size) {
    std::memset(dst, value, count);
  }
}
int vty_out(struct vty* vty, const char* format, ...) {
  char text[2048];
  va_list arguments;
  va_start(arguments, format);
  const int length = std::vsnprintf(text, sizeof(text), format, arguments);
  va_end(arguments);
  vty->text += text;
  return length;
}
int install_element(unsigned int, struct cmd_element*) {
  ++commands;
  return 0;
}
int cl_install_module(const char*, int (*install)(void), int (*showrun)(void)) {
  return install() + showrun();
}
}

namespace {

void DefineCode(unsigned short code, const char* name, unsigned short lamp,
                unsigned short value_type) {
  ONU_ABILITY_CODE_ATTR_INFO info;
  info.ability_code = code;
  info.ability_name = name;
  info.ability_attr[ONU_ABILITY_ATTR_LAMP] = lamp;
  info.ability_attr[ONU_ABILITY_ATTR_VALUE_TYPE] = value_type;
  OnuAbilityCodeInfo::GetInstance()->Update(info);
}

void LoadType(unsigned int key, unsigned int lamps, const char* name) {
  OnuAbilityProfile profile;
  profile.Init(static_cast<ONU_ABILITY_ENUM_PROFILE_TYPE>(1),
               static_cast<ONU_ABILITY_ENUM_PROFILE_SOURCE>(0),
               static_cast<ONU_ABILITY_ENUM_MATCH_TYPE>(2));
  profile.Add(key);
  profile.Add(static_cast<unsigned short>(1081), key);
  profile.Add(static_cast<unsigned short>(1083), std::string(name));
  profile.Add(static_cast<unsigned short>(7), lamps);
  Expect(OnuAbilityTableManager::GetInstance()->Add(profile) == 0, "a profile is taken");
}

}  // namespace

int main() {
  OnuAbilityRegExternFunc::GetInstance()->SetModuleId(77);
  OnuAbilityTableManager::GetInstance()->Init();
  for (int id : {1, 3, 4, 5}) {
    OnuAbilityAttrInfo::GetInstance()->Add(static_cast<ONU_ABILITY_ENUM_ABILITY_ATTR_ID>(id),
                                           "ATTRIBUTE" + std::to_string(id));
  }
  DefineCode(7, "LAMPS", 1, 2);
  DefineCode(1081, "REAL_TYPE", 0, 2);
  DefineCode(1083, "TYPE_NAME", 0, 3);
  DefineCode(1085, "KEY_VALUE", 0, 2);
  LoadType(500, 9, "FIRST");
  LoadType(501, 4, "SECOND");

  Expect(ask_lamps(500) == 9, "lamps by key value");
  char name[4];
  Expect(ask_name(501, name, sizeof(name)) == 0 && std::strcmp(name, "SEC") == 0, "a name, cut");
  Expect(ask_name(502, name, sizeof(name)) == not_found_status(), "no such type");
  Expect(modules_seen == 77 && lines > 0, "lines carry the module id");

  Variant buffer;
  OnuAbilityProfile out;
  OnuAbilityProfile in;
  Expect(OnuAbilityTableManager::GetInstance()->Get(static_cast<ONU_ABILITY_ENUM_PROFILE_TYPE>(1),
                                                    static_cast<ONU_ABILITY_ENUM_PROFILE_SOURCE>(2),
                                                    500U, out) == 0,
         "a profile is found");
  out.Serialize(buffer);
  in.UnSerialize(buffer);
  Expect(in._common_ability_num == out._common_ability_num, "a profile survives the buffer");

  onu_ability_service_cbb_cli_init();
  Expect(commands == 16, "sixteen commands are installed");
  vty terminal;
  cl_get_onu_common_type_cmd.func(&cl_get_onu_common_type_cmd, &terminal, 0, nullptr);
  Expect(terminal.text == "common_sfu_type:       857\r\ncommon_hgu_type:       762\r\n",
         "a command prints");

  const unsigned int before = lines;
  onu_ability_set_log_level_mask(0);
  Expect(ask_lamps(501) == 4 && lines == before, "a clear mask is silent, and answers");

  // The library leaves its tables to the end of the process; this host does not.
  OnuAbilityTableManager::GetInstance()->DelOnuAbilityTable(ONU_ABILITY_PROFILE_TYPE_MATCH);
  OnuAbilityTableManager::GetInstance()->DelOnuAbilityTable(ONU_ABILITY_PROFILE_TYPE_REAL);
  return failures == 0 ? 0 : 1;
}
