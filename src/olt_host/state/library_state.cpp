#include "state/library_state.h"
