// Run-time type information of database classes.
#pragma once

#include "rxboiler.h"

#define ACDB_DECLARE_MEMBERS(CLASS_NAME) ACRX_DECLARE_MEMBERS(CLASS_NAME)
