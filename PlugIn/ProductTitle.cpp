#include "ProductTitle.h"

#include "Lib/DisplayName.h"
#include "ModuleNames.h"
#include "Util/ModuleVersion.h"

std::string ProductTitle() {
    return kDisplayName + (" " + ModuleFileVersion(kModuleFileName));
}
