#include "ProductTitle.h"

#include "Lib/ModuleIdentity.h"
#include "Util/ModuleVersion.h"

std::string ProductTitle() {
    return kDisplayName + (" " + ModuleFileVersion(kModuleFileName));
}
