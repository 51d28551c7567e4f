#pragma once

#define IDD_PRODUCTS 100
#define IDC_DUCT 1001
#define IDC_PRODUCTS 1002
