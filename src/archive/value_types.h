// The plain value types that records are written in: colours, vectors, matrices, transforms, rectangles.
#pragma once

#include <array>
#include <cstdint>

namespace TalvexCore {

struct Color {
    float r = 0, g = 0, b = 0;
    bool operator==(const Color&) const = default;
    // Each component becomes max(0, 1 - c); there is no upper clamp.
    Color complementColor() const;
};

struct AColor {
    float r = 0, g = 0, b = 0, a = 0;
    bool operator==(const AColor&) const = default;
};

struct Vector {
    float x = 0, y = 0, z = 0;
    bool operator==(const Vector&) const = default;
};

// Three vectors, each whole before the next; they are the matrix's columns.
struct Matrix {
    std::array<Vector, 3> v{};
    bool operator==(const Matrix&) const = default;
};

struct Transform {
    Matrix m;
    Vector offset;
    bool operator==(const Transform&) const = default;
};

// A transform whose offset is held in double precision; files hold it as three f32.
struct TransformD {
    Matrix m;
    std::array<double, 3> offset{};
    bool operator==(const TransformD&) const = default;
};

// Four edges as stored, plus the derived size and two spare words that reading clears.
struct Rect {
    int32_t left = 0, top = 0, right = 0, bottom = 0;
    int32_t width = 0, height = 0;
    int32_t spare1 = 0, spare2 = 0;
    bool operator==(const Rect&) const = default;
};

using Bytes16 = std::array<uint8_t, 16>;

}  // namespace TalvexCore
