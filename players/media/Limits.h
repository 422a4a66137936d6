// What a media file may ask for at most: for those who read it and those who convert its pictures.
#pragma once

#include <cstdint>

inline constexpr int64_t kMostPixels = 8192 * 4320;  // of a picture, as it is stored and as it is seen
