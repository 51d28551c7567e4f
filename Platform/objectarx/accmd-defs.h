// Flags of a command, as macros. A modal command runs in the document's context while the host locks the document for
// writing.
#pragma once

#define ACRX_CMD_MODAL 0x00000000
