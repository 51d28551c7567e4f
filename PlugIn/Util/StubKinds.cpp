#include "Util/StubKinds.h"

#include <algorithm>
#include <initializer_list>

namespace {

struct KindSet {
    StubElement element;
    std::initializer_list<std::string_view> kinds;
};

// The sets differ from each other on purpose.
const KindSet kKindSets[] = {
    {StubElement::kFlow, {"TerminalDevice", "Radiator", "HeatingDevice", "WaterDevice"}},
    {StubElement::kClampedFlow, {"TerminalDevice", "Radiator", "HeatingDevice"}},
    {StubElement::kPressureDrop,
     {"DuctworkRoot", "Fan", "PipeworkRoot", "Pump", "TerminalDevice", "Radiator", "HotColdWaterJoint",
      "HotCircWaterJoint", "HeatingDevice", "WaterDevice", "Nbranch", "Component"}},
    {StubElement::kClampedPressureDrop, {"TerminalDevice", "Radiator", "HeatingDevice"}},
    {StubElement::kCurve,
     {"DuctworkRoot", "Fan", "PipeworkRoot", "Pump", "HotColdWaterJoint", "HotCircWaterJoint", "Nbranch", "Component"}},
    {StubElement::kHeatingPower, {"Radiator"}},
    {StubElement::kSoundGeneration, {"DuctworkRoot", "Fan", "Nbranch", "Component"}},
    {StubElement::kSoundAttenuation, {"Nbranch", "Component"}},
};

}  // namespace

bool StubKindHas(std::string_view kind, StubElement element) {
    for (const KindSet& set : kKindSets) {
        if (set.element == element) return std::find(set.kinds.begin(), set.kinds.end(), kind) != set.kinds.end();
    }
    return false;
}
