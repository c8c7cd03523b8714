#include "archive/load_trace.h"

namespace TalvexCore {

void LoadTrace::beginObject(std::u16string className, std::optional<uint32_t> typeId, uint64_t at)
{
    TracedObject object;
    object.className = std::move(className);
    object.typeId = typeId;
    object.offset = origin + at;
    object.depth = static_cast<int>(open.size());
    open.push_back(traced.size());
    traced.push_back(std::move(object));
}

void LoadTrace::acceptVersion(uint64_t at, uint32_t version)
{
    if (open.empty()) return;
    TracedObject& object = traced[open.back()];
    if (!object.version && object.offset == origin + at) object.version = version;
}

void LoadTrace::endObject(uint64_t at, bool complete)
{
    if (open.empty()) return;
    TracedObject& object = traced[open.back()];
    open.pop_back();
    object.length = origin + at > object.offset ? origin + at - object.offset : 0;
    object.complete = complete;
}

}  // namespace TalvexCore
