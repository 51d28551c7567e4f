// Readable text of a status. The text belongs to the host and lives as long as it; it is never freed by the caller.
#pragma once

#include "AdAChar.h"
#include "acadstrc.h"

const ACHAR* acadErrorStatusText(Acad::ErrorStatus es);
