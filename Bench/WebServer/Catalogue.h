// The manufacturer's catalogue, Bench/Sample/catalogue.xml: a finished device element for each product, and the
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

// A duct as a request describes it; what the request does not name is 0. Without an airflow every range fits.
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
    // The product's device element; null when there is none of that id.
    const TiXmlElement* Find(const std::string& id) const;
    // The products that fit, as the page that the configurator reads: <products> with a <product id code length
    // pressureDrop attenuation250> for each.
    std::string ProductsPage(const Duct& duct) const;
    // The result that is published for a choice: `rootTexts` as elements of the root, the addresses of the database
    // files, the chosen devices. `server` is scheme and host without a trailing slash.
    std::string Result(const std::vector<std::string>& products, const std::string& server,
                       const std::vector<std::pair<std::string, std::string>>& rootTexts) const;

 private:
    TiXmlDocument document_;
    ServedFile dictionary_;
    ServedFile database_;
};

}  // namespace bench
