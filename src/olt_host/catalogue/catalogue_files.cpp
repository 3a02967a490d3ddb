#include "catalogue/catalogue_files.h"
