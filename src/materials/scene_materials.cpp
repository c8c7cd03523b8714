#include "materials/scene_materials.h"

#include <ostream>

#include "archive/quick_archive.h"
#include "archive/text_conversion.h"
#include "archive/wide_text.h"
#include "materials/diffuse_brdf.h"
#include "materials/material_layered_brdf.h"
#include "materials/material_search.h"
#include "records/record_io.h"
#include "records/uuid.h"

namespace TalvexCore {

namespace {

// A material record is at least a type id and a tag; an identifier entry two string lengths.
constexpr uint64_t minimumMaterialBytes = 8;
constexpr uint64_t minimumUuidEntryBytes = 8;

std::wstring toWide(const std::u16string& text)
{
    std::wstring out;
    out.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char32_t c = text[i];
        if constexpr (sizeof(wchar_t) >= 4) {
            if (c >= 0xD800 && c < 0xDC00 && i + 1 < text.size() && text[i + 1] >= 0xDC00 && text[i + 1] < 0xE000) {
                out += static_cast<wchar_t>(0x10000 + ((c - 0xD800) << 10) + (text[++i] - 0xDC00));
                continue;
            }
        }
        out += static_cast<wchar_t>(c);
    }
    return out;
}

template <class Stream, class Convert>
void dumpTo(Stream& out, const SceneMaterials& set, Convert convert)
{
    for (const auto& [key, material] : set.materials)
        out << convert(key) << ' ' << (material ? convert(material->name) : convert(u"")) << '\n';
    out << "Beginning UUIDs" << '\n';
    for (const auto& [key, value] : set.uuids) out << convert(key) << ' ' << convert(value) << '\n';
}

}  // namespace

std::shared_ptr<SceneMaterials> sceneMaterials()
{
    static const std::shared_ptr<SceneMaterials> instance = std::make_shared<SceneMaterials>();
    return instance;
}

void SceneMaterials::clear()
{
    materials.clear();
    uuids.clear();
}

SceneMaterials::UuidMap::iterator SceneMaterials::findUuidOf(const std::u16string& name)
{
    for (auto it = uuids.begin(); it != uuids.end(); ++it)
        if (equalsNoCase(it->second, name)) return it;
    return uuids.end();
}

SceneMaterials::UuidMap::const_iterator SceneMaterials::findUuidOf(const std::u16string& name) const
{
    for (auto it = uuids.begin(); it != uuids.end(); ++it)
        if (equalsNoCase(it->second, name)) return it;
    return uuids.end();
}

bool SceneMaterials::addMaterial(const MaterialPtr& material)
{
    if (!material || material->name.empty()) return false;
    if (materials.contains(material->name)) return false;
    const bool inserted = materials.emplace(material->name, material).second;
    // A fresh identifier is not stored back into the material; a known one keeps its old name.
    if (inserted) uuids.emplace(material->uuid.empty() ? newUuid() : material->uuid, material->name);
    return inserted;
}

bool SceneMaterials::removeMaterial(const std::u16string& name)
{
    const auto entry = materials.find(name);
    if (entry == materials.end()) return false;
    materials.erase(entry);
    if (const auto id = findUuidOf(name); id != uuids.end()) uuids.erase(id);
    return true;
}

bool SceneMaterials::replaceMaterial(const std::u16string& oldName, const MaterialPtr& material)
{
    // A material with no object has no name to stand under.
    if (!material) return false;
    const bool renamed = !equalsNoCase(material->name, oldName);
    if (renamed && materials.contains(material->name)) return false;
    const auto entry = materials.find(oldName);
    if (entry == materials.end()) return false;
    materials.erase(entry);
    const bool inserted = materials.emplace(material->name, material).second;
    if (inserted && renamed)
        if (const auto id = findUuidOf(oldName); id != uuids.end()) id->second = material->name;
    return inserted;
}

MaterialPtr SceneMaterials::getMaterial(const std::u16string& name) const
{
    const auto entry = materials.find(name);
    return entry == materials.end() ? nullptr : entry->second;
}

MaterialPtr SceneMaterials::materialForUuid(const std::u16string& uuid) const
{
    const auto id = uuids.find(uuid);
    return id == uuids.end() ? nullptr : getMaterial(id->second);
}

std::u16string SceneMaterials::uuidForName(const std::u16string& name) const
{
    const auto id = findUuidOf(name);
    return id == uuids.end() ? std::u16string() : id->first;
}

int64_t SceneMaterials::materialCount() const
{
    if (materials.size() != uuids.size()) return -1;
    return static_cast<int64_t>(materials.size());
}

void SceneMaterials::materialNames(std::vector<std::u16string>& names) const
{
    names.clear();
    for (const auto& entry : materials) names.push_back(entry.first);
}

MaterialPtr SceneMaterials::cloneMaterial(const std::u16string& name) const
{
    const MaterialPtr material = getMaterial(name);
    return material ? material->clone() : nullptr;
}

bool SceneMaterials::isNameFree(const std::u16string& name) const
{
    return !materials.contains(name);
}

bool SceneMaterials::checkName(const std::u16string& name, std::u16string& message) const
{
    // The empty name is tested as a name first: it is free unless a material has it.
    if (!isNameFree(name)) {
        message = u"The name, \"" + name + u"\"" + u", is already in use";
        return false;
    }
    if (name.empty()) {
        message = u"A name must have at least one character";
        return false;
    }
    message.clear();
    return true;
}

std::u16string SceneMaterials::uniqueName(const std::u16string& name) const
{
    std::u16string candidate;
    assignUniqueName(candidate, name);
    return candidate;
}

void SceneMaterials::assignUniqueName(std::u16string& out, const std::u16string& name) const
{
    std::size_t end = name.size();
    while (end > 0 && isWideDigit(name[end - 1])) --end;
    out.assign(name, 0, end);
    for (uint64_t counter = 1; !isNameFree(out); ++counter) {
        out.resize(end);
        out += narrowToWide(std::to_string(counter));
    }
    // The legal form is not tested again: it may be a name in use.
    out = legalizeName(std::move(out));
}

std::u16string SceneMaterials::legalizeName(std::u16string name)
{
    for (char16_t& c : name)
        if (c == u' ') c = u'_';
    if (!name.empty() && isWideDigit(name[0])) name.insert(name.begin(), u'a');
    return name;
}

MaterialPtr SceneMaterials::getDefaultMaterial() const
{
    return getMaterial(defaultMaterialName());
}

bool SceneMaterials::addDefaultMaterial()
{
    // The hidden template, made once and kept until the process ends.
    static const std::shared_ptr<const MaterialLayeredBRDF> templateMaterial = [] {
        auto diffuse = std::make_shared<Diffuse_BRDF>();
        diffuse->name = u"Diffuse";
        MaterialLayeredBRDF material;
        material.brdfs.push_back(diffuse->clone());
        material.name = u"Default_Nuva_Material_Actual";
        return std::make_shared<const MaterialLayeredBRDF>(material);
    }();
    const MaterialPtr material = templateMaterial->clone();
    material->name = defaultMaterialName();
    return addMaterial(material);
}

void SceneMaterials::dump(std::ostream& out) const
{
    dumpTo(out, *this, [](const std::u16string& text) { return wideToNarrow(text); });
}

void SceneMaterials::dump(std::wostream& out) const
{
    dumpTo(out, *this, toWide);
}

void SceneMaterials::writeXml(AssetXmlWriter& writer) const
{
    for (const auto& [name, material] : materials) writeInnerXml(writer, material, std::u16string());
}

bool SceneMaterials::writeBinary(QuickArchive& out) const
{
    writeVersion(out, 2);
    if (!writeCountedList(out, materials, [&](const auto& entry) { return writeRequiredChild(out, entry.second); }))
        return false;
    return writeCountedList(out, uuids, [&](const auto& entry) {
        out.writeWString(entry.first);
        out.writeWString(entry.second);
        return true;
    });
}

bool SceneMaterials::readBinary(QuickArchive& in)
{
    clear();
    const auto version = readVersion(in, {1, 2});
    if (!version) return false;
    const bool listed = readCountedList(in, minimumMaterialBytes, [&] {
        MaterialPtr material;
        if (!readRequiredChild(in, material)) return false;
        // Version 1 stored no identifiers: adding the material makes one.
        if (*version == 1) return addMaterial(material);
        // A repeated name is ignored, and its identifier is not made.
        materials.emplace(material->name, material);
        return true;
    });
    if (!listed) return false;
    if (*version == 1) return true;
    return readCountedList(in, minimumUuidEntryBytes, [&] {
        std::u16string key, value;
        in.readWString(key);
        in.readWString(value);
        uuids.emplace(key, value);
        return true;
    });
}

}  // namespace TalvexCore
