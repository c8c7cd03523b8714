#include "records/transform_components.h"

#include <cmath>

#include "archive/quick_archive.h"
#include "records/record_io.h"
#include "records/shared_constants.h"

namespace TalvexCore {

namespace {

constexpr uint32_t componentsTag = 0x10000;

using M3 = std::array<std::array<float, 3>, 3>;  // [row][column]

M3 multiply(const M3& a, const M3& b)
{
    M3 r{};
    for (int i = 0; i < 3; ++i)
        for (int j = 0; j < 3; ++j)
            for (int k = 0; k < 3; ++k) r[i][j] += a[i][k] * b[k][j];
    return r;
}

M3 rotation(int axis, float degrees)
{
    const float a = degrees * radiansPerDegree;
    const float c = std::cos(a), s = std::sin(a);
    switch (axis) {
    case 0: return {{{1, 0, 0}, {0, c, -s}, {0, s, c}}};
    case 1: return {{{c, 0, s}, {0, 1, 0}, {-s, 0, c}}};
    default: return {{{c, -s, 0}, {s, c, 0}, {0, 0, 1}}};
    }
}

M3 axisScale(int axis, float scale, int32_t mirror)
{
    M3 d{{{1, 0, 0}, {0, 1, 0}, {0, 0, 1}}};
    d[axis][axis] = mirror != 0 ? -scale : scale;
    return d;
}

}  // namespace

bool TransformComponents::writeBinary(QuickArchive& out) const
{
    out.writeU32(componentsTag);
    for (float v : {x_rotation, y_rotation, z_rotation, x_scale, y_scale, z_scale, x_offset, y_offset, z_offset})
        out.writeF32(v);
    for (int32_t v : {x_mirror, y_mirror, z_mirror}) out.writeI32(v);
    return true;
}

bool TransformComponents::readBinary(QuickArchive& in)
{
    resetDefaults();
    if (!readVersion(in, {versionOf(componentsTag)})) return false;
    for (float* v : {&x_rotation, &y_rotation, &z_rotation, &x_scale, &y_scale, &z_scale, &x_offset, &y_offset,
                     &z_offset})
        in.readF32(*v);
    for (int32_t* v : {&x_mirror, &y_mirror, &z_mirror}) in.readI32(*v);
    return true;
}

bool TransformComponents::operator==(const TransformComponents& o) const
{
    return x_rotation == o.x_rotation && y_rotation == o.y_rotation && z_rotation == o.z_rotation &&
           x_scale == o.x_scale && y_scale == o.y_scale && z_scale == o.z_scale && x_offset == o.x_offset &&
           y_offset == o.y_offset && z_offset == o.z_offset && x_mirror == o.x_mirror && y_mirror == o.y_mirror &&
           z_mirror == o.z_mirror;
}

Matrix TransformComponents::toMatrix() const
{
    M3 m = multiply(rotation(0, x_rotation), axisScale(0, x_scale, x_mirror));
    m = multiply(m, rotation(1, y_rotation));
    m = multiply(m, axisScale(1, y_scale, y_mirror));
    m = multiply(m, rotation(2, z_rotation));
    m = multiply(m, axisScale(2, z_scale, z_mirror));
    Matrix result;
    for (int col = 0; col < 3; ++col) result.v[col] = {m[0][col], m[1][col], m[2][col]};
    return result;
}

Transform TransformComponents::toTransform() const
{
    return {toMatrix(), {x_offset, y_offset, z_offset}};
}

}  // namespace TalvexCore
