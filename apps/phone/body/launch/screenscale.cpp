#include "screenscale.h"

#include <algorithm>
#include <cmath>

namespace phone {

namespace {

constexpr double row = 36;      // logical pixels
constexpr double smallRow = 30; // on a screen with a side below smallSide
constexpr int smallSide = 220;
constexpr int leastSide = 160;
constexpr double leastRow = 44;     // pixels
constexpr double fingerRow = 7;     // millimetres
constexpr double lowestDensity = 2; // pixels to a millimetre; what lies beyond is made up
constexpr double highestDensity = 40;

double upToQuarter(double value)
{
    return std::ceil(value * 4 - 1e-9) / 4;
}

// 0 where the display does not say, or says what no screen has.
double density(const DisplayFacts& facts)
{
    if (facts.widthMillimetres <= 0 || facts.heightMillimetres <= 0)
        return 0;
    const double across = facts.width / facts.widthMillimetres;
    const double down = facts.height / facts.heightMillimetres;
    const double mean = (across + down) / 2;
    const bool isSquare = std::abs(across - down) < mean / 4;
    return isSquare && mean >= lowestDensity && mean <= highestDensity ? mean : 0;
}

} // namespace

ScreenScale screenScale(const DisplayFacts& facts)
{
    const int side = std::min(facts.width, facts.height);
    const double least = upToQuarter(leastRow / row);
    // No larger than leaves the usual room; a screen on a desk is looked at from farther away.
    const double most = std::max(least, std::floor(side * 4.0 / (smallSide + 20)) / 4);
    double pixels = std::clamp(upToQuarter(density(facts) * fingerRow / row), least, most);
    if (side / pixels < smallSide)
        pixels = std::max(1.0, std::min(upToQuarter(leastRow / smallRow),
                                        std::floor(side * 4.0 / leastSide) / 4));
    return {pixels, static_cast<int>(facts.width / pixels),
            static_cast<int>(facts.height / pixels)};
}

} // namespace phone
