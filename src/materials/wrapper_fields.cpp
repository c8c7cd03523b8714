#include "materials/wrapper_fields.h"

#include "archive/name_compare.h"

namespace TalvexCore {

namespace {

// A stored name is at least its length word.
constexpr uint64_t minimumNameBytes = 4;

}  // namespace

bool readNames(QuickArchive& in, NameList& names)
{
    uint64_t count = 0;
    in.readCount(count);
    if (!in.countFits(count, minimumNameBytes)) return false;
    names.assign(count, {});
    for (std::u16string& name : names) in.readWString(name);
    return true;
}

void writeNames(QuickArchive& out, const NameList& names)
{
    out.writeCount(names.size());
    for (const std::u16string& name : names) out.writeWString(name);
}

bool namesEqual(const NameList& a, const NameList& b)
{
    if (a.size() != b.size()) return false;
    for (std::size_t i = 0; i < a.size(); ++i)
        if (!equalsNoCase(a[i], b[i])) return false;
    return true;
}

}  // namespace TalvexCore
