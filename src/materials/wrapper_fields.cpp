#include "materials/wrapper_fields.h"

#include "archive/name_compare.h"

namespace TalvexCore {

namespace {

// A stored name is at least its length word.
constexpr uint64_t minimumNameBytes = 4;

}  // namespace

bool readNames(QuickArchive& in, ObjectNames& names)
{
    names.clear();
    return readCountedList(in, minimumNameBytes, [&] {
        in.readWString(names.emplace_back());
        return true;
    });
}

void writeNames(QuickArchive& out, const ObjectNames& names)
{
    writeCountedList(out, names, [&](const std::u16string& name) {
        out.writeWString(name);
        return true;
    });
}

bool namesEqual(const ObjectNames& a, const ObjectNames& b)
{
    if (a.size() != b.size()) return false;
    for (std::size_t i = 0; i < a.size(); ++i)
        if (!equalsNoCase(a[i], b[i])) return false;
    return true;
}

}  // namespace TalvexCore
