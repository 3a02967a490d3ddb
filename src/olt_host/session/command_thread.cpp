#include "session/command_thread.h"
