// Keys of the system registry.
#pragma once

#include "AdAChar.h"

#define ACRX_SERVICE_DICTIONARY ACRX_T("ServiceDictionary")
#define ACRX_DYNAMIC_LINKER ACRX_T("DynamicLinker")
