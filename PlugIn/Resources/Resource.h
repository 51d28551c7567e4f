// Identifiers of the module's resources. The user-code dialog has a name instead of a number.
#pragma once

#define IDI_SORVIK_SMALL 115
#define IDI_SORVIK_LARGE 118
#define IDD_CONFIGURATOR_WAIT 10000
#define IDC_USER_CODE 1102
