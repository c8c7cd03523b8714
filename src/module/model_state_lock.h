// The one lock of the model's process-wide state (the scene material set, the default sun): a
// conversion holds it from load to the last line of its document, so two never interleave.
#pragma once

#include <mutex>

namespace TalvexCore {

inline std::mutex& modelStateLock()
{
    static std::mutex lock;
    return lock;
}

}  // namespace TalvexCore
