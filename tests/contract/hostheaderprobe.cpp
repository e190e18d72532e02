#include "host/core/viewarea.h"
