// The system variables of the drawing.
#pragma once

namespace bench {

void ResetSystemVariables();

}  // namespace bench
