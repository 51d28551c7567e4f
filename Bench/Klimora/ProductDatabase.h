// Product files: record databases that the server reads through Kbase640.dll. The dictionary lies beside the database
// under the same name with the ending .ddk. Paths are narrow, in the ANSI code page.
// Contract: rows P2.
#pragma once

#include <string>

namespace bench::klimora {

std::string DictionaryBeside(const std::string& databaseFile);
// Whether the database has a record of the class under the key; refuses when library or files cannot be used.
bool HasProduct(const std::string& dictionary, const std::string& database, const std::string& className,
                const std::string& key);

}  // namespace bench::klimora
