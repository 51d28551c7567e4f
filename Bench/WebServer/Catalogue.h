// The manufacturer's catalogue, Bench/Sample/catalogue.xml: a complete device element for each product, and the
// database files. Sizes in mm, airflows in l/s, pressures in Pa, attenuation in dB.
#pragma once

#include <tinyxml.h>

#include <string>
#include <utility>
#include <vector>

namespace bench {

struct ServedFile {
    std::string file;  // full path
    std::string path;  // on the server
};

// A duct as a request describes it; missing values are 0. Without an airflow every product's range fits.
struct Duct {
    double diameter = 0;
    double width = 0;
    double height = 0;
    double airflow = 0;
};

class Catalogue {
 public:
    // Throws std::runtime_error with the reason when the file is not a catalogue.
    explicit Catalogue(const std::string& path);

    const ServedFile& dictionary() const { return dictionary_; }
    const ServedFile& database() const { return database_; }
    // Returns the product's device element; null for an unknown id.
    const TiXmlElement* Find(const std::string& id) const;
    // Returns the page that the configurator reads: <products> with a <product id code length pressureDrop
    // attenuation250> for each product that fits.
    std::string ProductsPage(const Duct& duct) const;
    // Returns the published result of a choice: `rootTexts` as elements of the root, the addresses of the database
    // files and the chosen devices. `server` is scheme and host without a trailing slash.
    std::string Result(const std::vector<std::string>& products, const std::string& server,
                       const std::vector<std::pair<std::string, std::string>>& rootTexts) const;

 private:
    TiXmlDocument document_;
    ServedFile dictionary_;
    ServedFile database_;
};

}  // namespace bench
