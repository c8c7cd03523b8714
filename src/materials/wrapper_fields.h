// The walkers of a material's rows: one reader, writer, reset, copy, comparison and emitter for
// every class whose fields are described as rows.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <memory>
#include <span>
#include <string>
#include <variant>
#include <vector>

#include "archive/quick_archive.h"
#include "archive/text_conversion.h"
#include "archive/value_types.h"
#include "materials/base_material.h"
#include "materials/material_rows.h"
#include "materials/material_search.h"
#include "records/record_io.h"
#include "materials/scene_materials.h"
#include "textures/base_texture.h"
#include "xml/asset_frame.h"
#include "xml/asset_xml_writer.h"

namespace TalvexCore {

template <class... F>
struct Overloaded : F... {
    using F::operator()...;
};
template <class... F>
Overloaded(F...) -> Overloaded<F...>;

// A count of names, then each name.
bool readNames(QuickArchive& in, ObjectNames& names);
void writeNames(QuickArchive& out, const ObjectNames& names);
// The same number of names, equal index by index without regard to case.
bool namesEqual(const ObjectNames& a, const ObjectNames& b);

template <class M>
bool readRecordRows(QuickArchive& in, M& self, std::span<const RecordRow<M>> rows, uint32_t version)
{
    for (const RecordRow<M>& row : rows) {
        if (row.since > version) continue;
        const bool ok = std::visit(
            Overloaded{
                [&](BaseRecordRow) { return self.readBaseRecord(in); },
                [&](BareMaterial<M> bare) { return readRequiredChild(in, self.*bare.field); },
                [&](MaterialPtr M::*f) { return readChild(in, self.*f); },
                [&](TexturePtr M::*f) { return readChild(in, self.*f); },
                [&](Color M::*f) { in.readColor(self.*f); return true; },
                [&](float M::*f) { in.readF32(self.*f); return true; },
                [&](uint32_t M::*f) { in.readU32(self.*f); return true; },
                [&](bool M::*f) { in.readBool(self.*f); return true; },
                [&](ObjectNames M::*f) { return readNames(in, self.*f); },
            },
            row.field);
        if (!ok) return false;
    }
    return true;
}

// The newest record: the tag of `version`, then every row.
template <class M>
bool writeRecordRows(QuickArchive& out, const M& self, std::span<const RecordRow<M>> rows, uint32_t version)
{
    writeVersion(out, version);
    for (const RecordRow<M>& row : rows) {
        const bool ok = std::visit(
            Overloaded{
                [&](BaseRecordRow) { return self.writeBaseRecord(out); },
                [&](BareMaterial<M> bare) { return writeRequiredChild(out, self.*bare.field); },
                [&](MaterialPtr M::*f) { return writeChild(out, self.*f); },
                [&](TexturePtr M::*f) { return writeChild(out, self.*f); },
                [&](Color M::*f) { out.writeColor(self.*f); return true; },
                [&](float M::*f) { out.writeF32(self.*f); return true; },
                [&](uint32_t M::*f) { out.writeU32(self.*f); return true; },
                [&](bool M::*f) { out.writeBool(self.*f); return true; },
                [&](ObjectNames M::*f) { writeNames(out, self.*f); return true; },
            },
            row.field);
        if (!ok) return false;
    }
    return true;
}

// A record of any version up to `newest`: the tag, then the rows of that version.
template <class M>
bool readWrapper(QuickArchive& in, M& self, uint32_t newest, LoadReset reset)
{
    const auto version = readVersionUpTo(in, newest);
    if (reset == LoadReset::AfterTag) self.resetDefaults();
    return version && readRecordRows(in, self, M::recordRows(), *version);
}

// Every field of the class back to its default; the name and the uuid stay.
template <class M>
void resetFieldsKeepingBase(M& self)
{
    std::u16string name = std::move(self.name), uuid = std::move(self.uuid);
    self = M();
    self.name = std::move(name);
    self.uuid = std::move(uuid);
}

enum class InnerCopy { Clone, SameName };

// A copy whose inner materials are copied the way `inner` says and whose textures are cloned or
// shared; the copy keeps the source's name and has no uuid.
template <class M>
std::shared_ptr<M> copyWithInner(const M& self, std::span<const RecordRow<M>> rows, InnerCopy inner,
                                 TextureCopy textures = TextureCopy::Clone)
{
    auto copy = std::make_shared<M>(self);
    const auto copyMaterial = [inner](MaterialPtr& m) {
        if (m) m = inner == InnerCopy::SameName ? m->cloneSameName() : m->clone();
    };
    for (const RecordRow<M>& row : rows) {
        std::visit(Overloaded{
                       [&](BareMaterial<M> bare) { copyMaterial((*copy).*bare.field); },
                       [&](MaterialPtr M::*f) { copyMaterial((*copy).*f); },
                       [&](TexturePtr M::*f) {
                           if (textures == TextureCopy::Clone) (*copy).*f = cloneChild((*copy).*f);
                       },
                       [](const auto&) {},
                   },
                   row.field);
    }
    return copy;
}

// `clone` gives the copy a unique name of the source's; `cloneSameName` keeps the name.
template <class M>
MaterialPtr cloneWrapper(const M& self, InnerCopy inner, TextureCopy textures = TextureCopy::Clone)
{
    auto copy = copyWithInner(self, M::recordRows(), inner, textures);
    if (inner == InnerCopy::Clone) copy->name = sceneMaterials()->uniqueName(self.name);
    return copy;
}

// Same class; each inner material and texture equal or both empty; every value equal.
template <class M>
bool rowsEqual(const M& self, const MaterialPtr& other)
{
    const M* that = sameClass(self, other);
    if (!that) return false;
    for (const RecordRow<M>& row : M::recordRows()) {
        const bool equal = std::visit(Overloaded{
                                          [](BaseRecordRow) { return true; },
                                          [&](BareMaterial<M> bare) { return childEqual(self.*bare.field, that->*bare.field); },
                                          [&](MaterialPtr M::*f) { return childEqual(self.*f, that->*f); },
                                          [&](TexturePtr M::*f) { return childEqual(self.*f, that->*f); },
                                          [&](ObjectNames M::*f) { return namesEqual(self.*f, that->*f); },
                                          [&](auto f) { return self.*f == that->*f; },
                                      },
                                      row.field);
        if (!equal) return false;
    }
    return true;
}

// How a parameter names an inner material: inside an object's own asset by the owner's url; at the
// top level by the url of the inner material's standard asset, only when that one is emitted.
enum class InnerNaming { OwnerUrl, TopLevel };

// The asset of each present texture among the rows, under its url word.
template <class M>
void writeRowTextures(AssetXmlWriter& writer, const M& self, const std::u16string& url,
                      std::span<const XmlRow<M>> rows)
{
    for (const XmlRow<M>& row : rows)
        if (auto f = std::get_if<TexturePtr M::*>(&row.field); f && self.**f)
            (self.**f)->writeXml(writer, KeptUrl(writer, AssetUrl(url, row.word())));
}

template <class M>
void writeRowParameters(AssetXmlWriter& writer, const M& self, const std::u16string& url,
                        std::span<const XmlRow<M>> rows, InnerNaming naming)
{
    for (const XmlRow<M>& row : rows) {
        std::visit(Overloaded{
                       [&](MaterialPtr M::*f) {
                           const MaterialPtr inner = resolveReference(self.*f);
                           if (naming == InnerNaming::OwnerUrl) writer.writePlugin(row.name, inner, url);
                           else if (isEmittable(inner)) writer.writePlugin(row.name, inner, u"");
                       },
                       [&](TexturePtr M::*f) {
                           writer.writePlugin(row.name, self.*f, KeptUrl(writer, AssetUrl(url, row.word())).text());
                       },
                       [&](Color M::*f) { writer.writeColor(row.name, self.*f); },
                       [&](float M::*f) { writer.writeFloat(row.name, self.*f); },
                       [&](uint32_t M::*f) { writer.writeInt(row.name, static_cast<int32_t>(self.*f)); },
                       [&](bool M::*f) { writer.writeBool(row.name, self.*f); },
                       [&](bool (*computed)(const M&)) { writer.writeBool(row.name, computed(self)); },
                       [&](ObjectNames M::*f) {
                           writer.openList(row.name, "");
                           for (const std::u16string& entry : self.*f) writer.writeStringEntry(entry);
                           writer.closeList();
                       },
                   },
                   row.field);
    }
}

// The asset a wrapper gives of itself inside another object's url: its inner materials and textures
// first, then its own asset with an empty layout and the parameters of its rows.
template <class M>
void writeWrapperXml(AssetXmlWriter& writer, const M& self, const std::u16string& ownerUrl,
                     std::span<const XmlRow<M>> rows)
{
    const KeptUrl kept(writer, AssetUrl(ownerUrl, self.name));
    const std::u16string& url = kept.text();
    for (const XmlRow<M>& row : rows)
        if (auto f = std::get_if<MaterialPtr M::*>(&row.field)) writeInnerXml(writer, self.**f, url);
    writeRowTextures(writer, self, url, rows);
    writer.beginAsset(kept.xmlText(), self.assetType(), "", self.pluginType());
    writeRowParameters(writer, self, url, rows, InnerNaming::OwnerUrl);
    writer.endAsset();
}

template <class M>
bool RowMaterial<M>::writeBinary(QuickArchive& out) const
{
    return writeRecordRows(out, self(), M::recordRows(), M::newestVersion);
}

template <class M>
bool RowMaterial<M>::readBinary(QuickArchive& in)
{
    return readWrapper(in, self(), M::newestVersion, M::loadReset);
}

template <class M>
void RowMaterial<M>::resetDefaults()
{
    resetFieldsKeepingBase(self());
}

template <class M>
MaterialPtr RowMaterial<M>::clone() const
{
    return cloneWrapper(self(), InnerCopy::Clone, M::textureCopy);
}

template <class M>
MaterialPtr RowMaterial<M>::cloneSameName() const
{
    return cloneWrapper(self(), InnerCopy::SameName, M::textureCopy);
}

template <class M>
bool RowMaterial<M>::isEqual(const MaterialPtr& other) const
{
    return rowsEqual(self(), other);
}

template <class M>
void RowMaterial<M>::writeXml(AssetXmlWriter& writer, const std::u16string& url) const
{
    if constexpr (requires { M::xmlRows(); }) writeWrapperXml(writer, self(), url, M::xmlRows());
}

}  // namespace TalvexCore
