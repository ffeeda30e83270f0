#include "platform/random.h"

#include <random>

namespace talvora {

double nextRandom() {
    static std::mt19937 series;  // NOLINT(cert-msc51-cpp,cert-msc32-c): the fixed default seed is meant
    constexpr double range = 4294967296.0;
    return static_cast<double>(series()) / range;
}

int randomIndex(int count) {
    return static_cast<int>(nextRandom() * count);
}

}  // namespace talvora
