// Value types of the aced and acut functions: points, entity names and the result buffer. ads_point and ads_name are
// array types, which decay in calls and cannot be assigned. Release a resbuf from the host with acutRelRb, which frees
// the whole chain and its strings.
#pragma once

#include <stddef.h>
#include <stdint.h>

#include "AdAChar.h"

typedef double ads_real;
typedef ads_real ads_point[3];
typedef int64_t ads_name[2];

#undef X
#undef Y
#undef Z
enum { X = 0, Y = 1, Z = 2 };

#undef T
enum { T = 3 };

#undef TRUE
#undef FALSE
#define TRUE 1
#define FALSE 0

#pragma pack(push, 8)

struct ads_binary {
    short clen;
    char* buf;  // bytes, not characters
};

union ads_u_val {
    ads_real rreal;
    ads_real rpoint[3];
    short rint;
    ACHAR* rstring;
    int64_t rlname[2];
    int64_t mnLongPtr;
    int32_t rlong;
    int64_t mnInt64;
    struct ads_binary rbinary;
    unsigned char ihandle[8];
};

struct resbuf {
    struct resbuf* rbnext;
    short restype;
    union ads_u_val resval;
};

#pragma pack(pop)
