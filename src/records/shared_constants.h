// Constants the classes share: identity, white and black, and the degree factors.
#pragma once

#include <bit>
#include <cstdint>

#include "archive/value_types.h"

namespace TalvexCore {

inline constexpr Matrix identityMatrix{{Vector{1, 0, 0}, Vector{0, 1, 0}, Vector{0, 0, 1}}};
inline constexpr Transform identityTransform{identityMatrix, Vector{0, 0, 0}};
inline constexpr Color whiteColor{1, 1, 1};
inline constexpr Color blackColor{0, 0, 0};
// The stored factor is the float just below the nearest to 180 over pi: what files and cameras hold.
inline constexpr float degreesPerRadian = std::bit_cast<float>(uint32_t{0x42652EE0});
inline constexpr float radiansPerDegree = 0.017453292f;

}  // namespace TalvexCore
