// Commands of the server. Most are XML that a client sends through an interface; a refused one (Refusal) changes
// neither project nor drawing. KLIMSILX is a command of AutoCAD. Contract: rows D2 to D7, P1 to P6 and X1 to X4.
#pragma once

#include <tinyxml.h>

#include <memory>
#include <string>

#include "Server.h"

namespace bench::klimora {

// Parses XML strictly: one root element, every special character escaped, values only in leaves.
std::unique_ptr<TiXmlDocument> ParseXml(const std::string& text);
// Parses a command with the given root. Does not check which elements a client sends or their order.
std::unique_ptr<TiXmlDocument> ParseCommand(const std::string& text, const std::string& root);

// The Create functions return the new part's handle. A pipe is placed between its two ends; each is a connected part's
// position or a free position.
std::string CreatePart(Server& server, const std::string& command);
std::string CreateConnectionStub(Server& server, const std::string& command);
std::string ErasePart(Server& server, const std::string& command);
// Accepts any well-formed command and does nothing, for commands whose elements are not known.
std::string TakeCommand(Server& server, const std::string& command);

inline constexpr char kSilencerClass[] = "dSilencerType";

// Adds a product from a product file to the project's list of its class. A product with the same user code is replaced,
// and its silencers in the drawing are assigned to the new product. The file is a record database, read through
// Kbase640.dll; its dictionary has the same name with the extension .ddk.
std::string ManageProductData(Server& server, const std::string& command);

inline constexpr char kInsertCommand[] = "KLIMSILX";

// Reads product family key and user code as two lines of input, asks for a duct and inserts the silencer into its
// middle. The duct keeps its handle and its start; a new duct of the same kind takes the rest; the adjacent parts are
// reconnected. Refuses a part that is not a duct or is too short. Prints its outcome in one line.
void RunInsertCommand();

}  // namespace bench::klimora
