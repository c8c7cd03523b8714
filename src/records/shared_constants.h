// Constants the classes share: identity, white and black, and the degree factors.
#pragma once

#include "archive/value_types.h"

namespace TalvexCore {

inline constexpr Matrix identityMatrix{{Vector{1, 0, 0}, Vector{0, 1, 0}, Vector{0, 0, 1}}};
inline constexpr Transform identityTransform{identityMatrix, Vector{0, 0, 0}};
inline constexpr Color whiteColor{1, 1, 1};
inline constexpr Color blackColor{0, 0, 0};
inline constexpr float degreesPerRadian = 57.29578f;
inline constexpr float radiansPerDegree = 0.017453292f;

}  // namespace TalvexCore
