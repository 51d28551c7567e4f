// The command SorvSIL: puts one of the maker's silencers into a duct of the open Klimora project. Runs as a modal
// command in the document's context, inside one transaction that is committed only when the silencer's insertion was
// queued; where AutoCAD starts none, nothing is touched. Nothing leaves it but messages to the user.
#pragma once

void SorvSilencer() noexcept;
