#include "PartTypes.h"

namespace bench::klimora {
namespace {

struct PartType {
    const char* define;
    long id;
};

constexpr PartType kPartTypes[] = {
    {"EWAPART_MANIFOLD", 41},   {"EWAPART_RADIATOR", 42}, {"EWAPART_ZONEVALVE", 51}, {"EWAPART_STOPVALVE", 52},
    {"EWAPART_SUPPLY", 61},     {"EWAPART_EXTRACT", 62},  {"EWAPART_OUTDOOR", 63},   {"EWAPART_EXHAUST", 64},
    {kDuctDefine, kDuctTypeId}, {"EWAPART_BEND", 69},     {kSilencerDefine, 73},     {"EWAPART_BRANCH", 82},
    {kStubDefine, 90},          {"EWAPART_CUSTOM", 99},
};

}  // namespace

long TypeIdOfDefine(const std::string& define) {
    for (const PartType& type : kPartTypes)
        if (define == type.define) return type.id;
    return 0;
}

const char* EntityClass(long typeId) {
    return typeId == kDuctTypeId ? "EwaDuct" : "EwaPart";
}

}  // namespace bench::klimora
