// The load trace: each object of a material file where its record lies, as the reads found it.
#include <gtest/gtest.h>

#include <sstream>

#include "archive/load_trace.h"
#include "materials/base_brdf.h"
#include "materials/material_single_brdf.h"
#include "materials/tal_mat_file.h"
#include "support/byte_builder.h"

using namespace TalvexCore;
using TalvexTest::ByteBuilder;
using TalvexTest::bytesOf;

namespace {

struct Traced {
    bool loaded = false;
    LoadTrace trace;
    MaterialFileLoad report;
};

Traced loadTraced(const std::vector<uint8_t>& bytes)
{
    std::istringstream in(std::string(bytes.begin(), bytes.end()));
    TalMatFile file;
    Traced result;
    file.setLoadTrace(&result.trace);
    result.loaded = file.load(in);
    result.report = file.lastLoad();
    return result;
}

void expectObject(const TracedObject& object, const std::u16string& className, std::optional<uint32_t> typeId,
                  std::optional<uint32_t> version, uint64_t offset, uint64_t length, int depth, bool complete)
{
    EXPECT_EQ(std::tuple(object.className, object.typeId, object.version, object.offset, object.length, object.depth,
                         object.complete),
              std::tuple(className, typeId, version, offset, length, depth, complete));
}

}  // namespace

// Two single-layer materials in the plain and in the block container: each material and its layer at
// the offset of its tag in the file, as long as its record, the layer one level deeper. A refused
// layer tag in the second stops both objects after the bytes read, and the failure is the load's own.
TEST(LoadTrace, ObjectsOfAMaterialFileWhereTheirRecordsLie)
{
    auto material = std::make_shared<MaterialSingleBRDF>();
    material->brdf = createBRDF(2);
    material->name = u"Oak";
    const auto record = bytesOf(*material);
    const auto layer = bytesOf(*material->brdf);
    const uint64_t layerAt = 16;  // behind the tag, two integers and the layer's type id
    ASSERT_TRUE(std::equal(layer.begin(), layer.end(), record.begin() + layerAt));

    ByteBuilder stream;
    stream.u32(0).raw(record.data(), record.size()).u32(0).raw(record.data(), record.size());
    ByteBuilder refused = stream;
    const std::size_t refusedTag = 4 + record.size() + 4 + layerAt;
    refused.bytes[refusedTag + 2] = 9;  // the second layer's version tag becomes 0x00090000

    for (const uint32_t container : {2u, 3u}) {
        SCOPED_TRACE(container);
        const uint64_t origin = container == 3 ? 12 : 8;
        auto fileOf = [&](const ByteBuilder& body) {
            ByteBuilder file;
            file.u32(container << 16).u32(2);
            if (container == 3) file.u32(1);
            file.append(body);
            if (container == 3) file.bytes.resize(origin + QuickArchive::BlockSize);
            return file.bytes;
        };
        const uint64_t first = origin + 4, second = first + record.size() + 4;

        const Traced whole = loadTraced(fileOf(stream));
        ASSERT_TRUE(whole.loaded);
        EXPECT_TRUE(whole.trace.fileVersion == container && whole.trace.declaredObjects == 2 && !whole.trace.failure);
        ASSERT_EQ(whole.trace.objects().size(), 4u);
        for (int i = 0; i < 2; ++i) {
            const uint64_t at = i == 0 ? first : second;
            expectObject(whole.trace.objects()[2 * i], material->pluginType(), 0, 2, at, record.size(), 0, true);
            expectObject(whole.trace.objects()[2 * i + 1], material->brdf->pluginType(), 2, 4, at + layerAt,
                         layer.size(), 1, true);
        }

        const Traced damaged = loadTraced(fileOf(refused));
        ASSERT_FALSE(damaged.loaded);
        ASSERT_EQ(damaged.trace.objects().size(), 4u);
        expectObject(damaged.trace.objects()[2], material->pluginType(), 0, 2, second, layerAt + 4, 0, false);
        expectObject(damaged.trace.objects()[3], material->brdf->pluginType(), 2, std::nullopt, second + layerAt,
                     4, 1, false);
        ASSERT_TRUE(damaged.trace.failure);
        EXPECT_EQ(damaged.trace.failure->offset, second + layerAt);
        EXPECT_EQ(describe(*damaged.trace.failure).rfind("in material 2 (MtlSingleBRDF) > BRDFDiffuse at", 0), 0u)
            << describe(*damaged.trace.failure);
        EXPECT_EQ(describe(*damaged.trace.failure), describe(*damaged.report.failure));
    }
}
