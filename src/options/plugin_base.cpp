#include "options/plugin_base.h"

#include <new>

namespace NuvaUtils {

PluginInterface* PluginBase::getInterface(int32_t id) const
{
    for (const Node& node : interfaces)
        if (node.object && node.object->interfaceId() == id) return node.object;
    return nullptr;
}

bool PluginBase::addInterface(PluginInterface* object, int32_t id)
{
    try {
        interfaces.push_front({object, id});
    } catch (const std::bad_alloc&) {
        return false;
    }
    return true;
}

bool PluginBase::removeInterface(PluginInterface* object)
{
    auto before = interfaces.before_begin();
    for (auto node = interfaces.begin(); node != interfaces.end(); before = node++) {
        if (node->object == object) {
            interfaces.erase_after(before);
            return true;
        }
    }
    return false;
}

}  // namespace NuvaUtils
