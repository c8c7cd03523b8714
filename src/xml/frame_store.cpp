#include "xml/frame_store.h"

#include "archive/text_conversion.h"

namespace TalvexCore {

void AssetUrl::assignTo(std::u16string& out) const
{
    out.assign(base);
    if (form == Form::None) return;
    out += u'/';
    if (form == Form::Wide) out += wideWord;
    else appendNarrowAsWide(out, narrowWord);
}

std::size_t FrameStore::take(std::size_t count)
{
    const std::size_t first = used;
    while (entries.size() < first + count) entries.emplace_back();
    used = first + count;
    return first;
}

}  // namespace TalvexCore
