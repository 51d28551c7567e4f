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

// What the server keeps of a product's record: its code, and the silencer's length in mm from the model parameters
// ("L"). Empty and 0 when the record does not say. The library's calls for reading attributes are not among those that
// anyone here declares, so this looks into the file.
struct ProductFacts {
    std::string code;
    double length = 0;
};
ProductFacts FactsOfProduct(const std::string& database, const std::string& className, const std::string& key);

}  // namespace bench::klimora
