// Which elements a connection stub of a kind may carry. A kind is the function name that the server knows
// ("TerminalDevice", "Pump", …), compared exactly; an unknown kind has none of them.
#pragma once

#include <string_view>

enum class StubElement {
    kFlow,
    kClampedFlow,  // the flow is brought into its range first
    kPressureDrop,
    kClampedPressureDrop,  // likewise
    kCurve,
    kHeatingPower,
    kSoundGeneration,
    kSoundAttenuation
};

bool StubKindHas(std::string_view kind, StubElement element);
