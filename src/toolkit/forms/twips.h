#pragma once

namespace talvora {

/// Measures of windows are given in twips, 1440 to the inch. A device-independent pixel is a 96th of an inch, and the
/// display's scale is Qt's affair, so that 15 twips make a pixel everywhere.
inline constexpr int TwipsPerPixel = 15;

constexpr int toTwips(int pixels) {
    return pixels * TwipsPerPixel;
}

/// Rounded to the nearest pixel, halves away from zero.
constexpr int toPixels(int twips) {
    return (twips + (twips < 0 ? -TwipsPerPixel / 2 : TwipsPerPixel / 2)) / TwipsPerPixel;
}

}  // namespace talvora
