// Klimora's command KLIMSILX in AutoCAD: takes product family key and user code as two lines of input, asks for a duct
// and puts the silencer into it. The duct keeps its handle and its start, the silencer comes into its middle, and a new
// duct of the same kind takes the rest; neighbours are connected to the part that now touches them. What is no duct, or
// too short, is refused with nothing changed. It says on the command line what came of it, in one line.
// Contract: rows X1 to X4.
#pragma once

namespace bench::klimora {

inline constexpr char kInsertCommand[] = "KLIMSILX";

void RunInsertCommand();

}  // namespace bench::klimora
