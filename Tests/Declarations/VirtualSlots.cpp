// Calls a virtual function of every class of virtual-slots.txt, so that clang lays out its table.
#include "KLIMCOMSRVLib.h"
#include "KL_Conn.h"
#include "Lib/Registry.h"
#include "Lib/RegistryApp.h"
#include "Util/PDialog.h"
#include "Util/PDialogControl.h"

void Use(Registry& registry, RegistryApp& registries, PDialog& dialog, PDialogControl& control, KlConn& session) {
    registry.Reset();
    registries.Close();
    dialog.ToDialog(0);
    control.ToDialog();
    session.Shutdown();
}

void Use(KLIMCOMSRVLib::IKlimora200805& klimora, KLIMCOMSRVLib::IKlimora201011& later,
         KLIMCOMSRVLib::IKlimoraLatest& latest) {
    klimora.getVersion(nullptr);
    later.selectProduct(nullptr, nullptr);
    latest.calculate(nullptr, nullptr);
}
