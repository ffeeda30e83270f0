#pragma once

#include <algorithm>
#include <cstddef>
#include <vector>

namespace talvora::bench {

/// The middle of the values, of an even number the upper one. There must be at least one.
inline double median(std::vector<double> values) {
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

}  // namespace talvora::bench
