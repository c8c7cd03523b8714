// The search through wrappers, and the two rules by which a reference reaches the XML.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "archive/quick_archive.h"
#include "materials/base_material.h"

namespace TalvexCore {

class AssetXmlWriter;

// How deep materials may stand in one another: as deep as a record may nest, and no deeper. Loading
// refuses deeper records, saving refuses to write them, and every walk through inner materials
// stops there, so that a reference that reaches itself through the scene ends too.
constexpr int maximumMaterialDepth = QuickArchive::MaxNesting;

// A walk through inner materials visits at most this many: through the scene, references can reach
// the same wrappers again and again, and a walk must end in time all the same.
constexpr long maximumMaterialVisits = 1L << 16;

// Counts the depth of the walks through inner materials on this thread, and the steps of the
// outermost walk; false past either maximum.
class MaterialDepthGuard {
public:
    MaterialDepthGuard();
    ~MaterialDepthGuard();
    MaterialDepthGuard(const MaterialDepthGuard&) = delete;
    MaterialDepthGuard& operator=(const MaterialDepthGuard&) = delete;
    explicit operator bool() const { return entered; }

private:
    bool entered;
};

// The materials of type `typeId` found through the wrappers: the material itself when it is of that
// type (the search does not go on inside it), else the matches of its inner materials in order.
// The search goes no deeper than the maximum depth.
std::vector<MaterialPtr> findMaterialsByType(const MaterialPtr& material, uint32_t typeId);
// The first of them, or none; the same search, ended at its first find.
MaterialPtr findFirstMaterialByType(const MaterialPtr& material, uint32_t typeId);
// A reference gives its embedded copy, which may be empty; any other material gives itself.
MaterialPtr resolveReference(const MaterialPtr& material);
// Whether a parameter naming this material is written: not for an empty one, nor for a reference
// that names no target.
bool isEmittable(const MaterialPtr& material);
// The asset of an inner material under `url`. A reference is first replaced by its embedded copy,
// through as many references as a record may nest, so no reference is ever asked for its own asset.
void writeInnerXml(AssetXmlWriter& writer, const MaterialPtr& material, const std::u16string& url);

}  // namespace TalvexCore
