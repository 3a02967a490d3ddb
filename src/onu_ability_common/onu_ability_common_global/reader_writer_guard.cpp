#include "onu_ability_common_global/reader_writer_guard.h"

ReaderWriterGuard onu_ability_settings_guard;
