// Result and value codes of the aced and acut functions, as macros; failures are negative. No other header of this
// folder includes this one, so a source that uses a code includes it itself.
#pragma once

#define RTNONE 5000
#define RTREAL 5001
#define RTSHORT 5003
#define RTSTR 5005
#define RT3DPOINT 5009

#define RTNORM 5100
#define RTERROR (-5001)
#define RTCAN (-5002)
#define RTREJ (-5003)
#define RTINPUTTRUNCATED (-5008)

#define RSERR 3
