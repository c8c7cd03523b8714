#include "fresh_model_state.h"

#include <mutex>

#include "module/model_state_lock.h"

namespace CindrelTool {

FreshModelState::FreshModelState()
{
    const std::lock_guard<std::mutex> held(TalvexCore::modelStateLock());
    sun = *TalvexCore::defaultSun();
    materials = *TalvexCore::sceneMaterials();
}

void FreshModelState::restore() const
{
    const std::lock_guard<std::mutex> held(TalvexCore::modelStateLock());
    *TalvexCore::defaultSun() = sun;
    *TalvexCore::sceneMaterials() = materials;
}

}  // namespace CindrelTool
