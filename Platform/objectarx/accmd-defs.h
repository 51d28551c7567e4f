// Flags of a command, macros. A modal command runs in the document's context with the document locked for writing by
// the host.
#pragma once

#define ACRX_CMD_MODAL 0x00000000
