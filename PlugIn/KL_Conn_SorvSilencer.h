// The command SorvSIL: inserts one of the manufacturer's silencers into a duct of the open Klimora project. It runs as
// a modal command in the document's context, inside one transaction, which is committed only when the silencer's
// insertion was queued. Without a transaction it changes nothing. It reports every failure to the user.
#pragma once

void SorvSilencer() noexcept;
