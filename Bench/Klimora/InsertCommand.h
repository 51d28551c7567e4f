// Klimora's command KLIMSILX in AutoCAD: takes product family key and user code as two lines of input, asks for a duct
// and puts the silencer into it. It says on the command line what came of it, in one line.
// Contract: rows X1 and X2.
#pragma once

namespace bench::klimora {

inline constexpr char kInsertCommand[] = "KLIMSILX";

void RunInsertCommand();

}  // namespace bench::klimora
