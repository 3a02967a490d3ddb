#include "transport/transports.h"
