// The maker's web server as the configurator uses it: the products that fit the duct of an address, and the choice that
// is published under the address's session identifier. Failures are false with a sentence in `error`.
#pragma once

#include <string>
#include <vector>

struct Product {
    std::string id;
    std::string code;
    std::string length;          // mm
    std::string pressureDrop;    // Pa at the duct's airflow
    std::string attenuation250;  // dB in the octave band of 250 Hz
};

bool FetchProducts(const std::string& address, std::vector<Product>& products, std::string& error);
// `products` are ids, with commas between several.
bool PublishChoice(const std::string& address, const std::string& products, std::string& error);
