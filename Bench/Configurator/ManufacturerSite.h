// Requests to the manufacturer's web server: fetches the products that fit the duct in an address, and publishes the
// choice under the address's session identifier. The functions return false with a sentence in `error` on failure.
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
// `products` is a comma-separated list of ids.
bool PublishChoice(const std::string& address, const std::string& products, std::string& error);
