// What a silencer does in a duct: whether it fits and how much pressure it costs at an airflow. Pure functions over the
// catalogue's figures; sizes in mm, airflows in l/s, pressures in Pa, attenuation in dB.
#pragma once

#include <string>
#include <vector>

#include "Catalogue.h"

namespace bench {

// A duct as a request describes it; what it does not name is 0. Without an airflow every range fits.
struct Duct {
    double diameter = 0;
    double width = 0;
    double height = 0;
    double airflow = 0;
};

bool Fits(const Silencer& silencer, const Duct& duct);

// Follows the silencer's curve (its point, its curve or its flow noise points, the first that it has); between points
// and beyond them the pressure drop grows with the square of the airflow.
double PressureDrop(const Silencer& silencer, double airflow);

// Attenuation in the octave band of 250 Hz as the catalogue has it; empty when it has none.
std::string AttenuationAt250(const Silencer& silencer);

// The products that fit, as the page that the configurator reads: <products> with a <product id code length
// pressureDrop attenuation250> for each; the pressure drop has one decimal.
std::string ProductsPage(const Catalogue& catalogue, const Duct& duct);

}  // namespace bench
