// Klimora's command KLIMSILX in AutoCAD: reads product family key and user code as two lines of input, asks for a duct
// and inserts the silencer into its middle. The duct keeps its handle and its start; a new duct of the same kind takes
// the rest; the adjacent parts are reconnected. A part that is not a duct or is too short is refused without any
// change. The command prints its outcome in one line.
// Contract: rows X1 to X4.
#pragma once

namespace bench::klimora {

inline constexpr char kInsertCommand[] = "KLIMSILX";

void RunInsertCommand();

}  // namespace bench::klimora
