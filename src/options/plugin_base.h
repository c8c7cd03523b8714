// PluginBase: the interface list that the frame data carry; no record or asset touches it.
#pragma once

#include <cstdint>
#include <forward_list>

namespace NuvaUtils {

// An interface object answers its own id.
class PluginInterface {
public:
    virtual ~PluginInterface() = default;
    virtual int32_t interfaceId() const = 0;
};

// A list of interfaces, newest first. The list does not own the objects.
class PluginBase {
public:
    virtual ~PluginBase() = default;
    // The first object whose own id is `id`; null when there is none. Empty nodes are skipped.
    virtual PluginInterface* getInterface(int32_t id) const;
    virtual void pluginIdle() {}
    // Pushes a node to the front; false if it cannot be allocated.
    virtual bool addInterface(PluginInterface* object, int32_t id);
    // Unlinks the first node of this object; false if there is none. The object stays.
    virtual bool removeInterface(PluginInterface* object);

    PluginBase() = default;
    // The list belongs to its object: a copy starts with none.
    PluginBase(const PluginBase&) {}
    PluginBase& operator=(const PluginBase&) { return *this; }

private:
    struct Node {
        PluginInterface* object;
        int32_t id;
    };
    std::forward_list<Node> interfaces;
};

}  // namespace NuvaUtils
