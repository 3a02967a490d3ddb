#include "session/channel.h"
