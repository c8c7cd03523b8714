// Damaged and hostile material files: cut at every byte, bits flipped, counts far beyond the data.
// None may crash, hang or allocate beyond its bytes; each that fails says where and why, and one
// that loads although cut short says that it read past the end.
#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <sstream>

#include "materials/material_layouts.h"
#include "materials/tal_mat_file.h"
#include "support/byte_builder.h"
#include "xml/asset_xml_writer.h"

using namespace TalvexCore;

namespace {

std::string example(const char* name)
{
    std::ifstream in(std::string(CINDREL_SOURCE_DIR) + "/examples/" + name, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

struct Loaded {
    bool ok = false;
    MaterialFileLoad report;
    std::u16string xml;
};

Loaded load(const std::string& bytes)
{
    std::istringstream in(bytes);
    TalMatFile file;
    Loaded result;
    result.ok = file.load(in);
    result.report = file.lastLoad();
    if (result.ok) {
        AssetXmlWriter writer(result.xml);
        writer.openRoot(u"talmat");
        for (const MaterialPtr& material : file.materials) writeMaterialAssets(writer, material);
        writer.closeRoot();
    }
    return result;
}

// The length of the file's meaningful bytes: the zeros that pad the last block are not data.
std::size_t dataLength(const std::string& bytes)
{
    return bytes.find_last_not_of('\0') + 1;
}

struct Example {
    const char* name;
    uint32_t version;
};
constexpr Example smallExamples[] = {{"car_paint_v1.numat", 1}, {"car_paint_v2.talmat", 2}, {"single_layer.talmat", 3}};

}  // namespace

// A file cut anywhere behind its header either fails with a noted reason, or loads and says that it
// read past its end; cut behind its data, it gives the whole file's document.
TEST(HostileMaterialFiles, CutAtEveryByte)
{
    for (const Example& e : smallExamples) {
        const std::string whole = example(e.name);
        const Loaded full = load(whole);
        ASSERT_TRUE(full.ok) << e.name;
        EXPECT_FALSE(full.report.readPastEnd) << e.name;
        const std::size_t data = dataLength(whole);
        for (std::size_t cut = 8; cut < whole.size(); ++cut) {
            const Loaded part = load(whole.substr(0, cut));
            EXPECT_TRUE(part.report.binaryHeader) << e.name << " cut at " << cut;
            if (cut >= data) {
                EXPECT_EQ(part.xml, full.xml) << e.name << " cut at " << cut;
            } else if (part.ok) {
                EXPECT_TRUE(part.report.readPastEnd) << e.name << " cut at " << cut << " loads without a word";
            } else {
                ASSERT_TRUE(part.report.failure) << e.name << " cut at " << cut << " fails without a reason";
                EXPECT_LE(part.report.failure->offset, whole.size() + 16) << e.name << " cut at " << cut;
            }
        }
    }
}

// Every single flipped bit of a file loads or fails with a reason; nothing crashes.
TEST(HostileMaterialFiles, EveryBitFlipped)
{
    for (const Example& e : smallExamples) {
        const std::string whole = example(e.name);
        const std::size_t data = dataLength(whole);
        int failed = 0;
        for (std::size_t at = 8; at < data; ++at) {
            for (int bit = 0; bit < 8; ++bit) {
                std::string damaged = whole;
                damaged[at] = static_cast<char>(damaged[at] ^ (1 << bit));
                const Loaded result = load(damaged);
                if (result.ok) continue;
                ++failed;
                EXPECT_TRUE(result.report.failure) << e.name << " byte " << at << " bit " << bit;
            }
        }
        EXPECT_GT(failed, 0) << e.name;
    }
}

// Counts and lengths far beyond the data: refused or clamped without allocating their size.
TEST(HostileMaterialFiles, HugeCountsAndLengths)
{
    const std::string v2 = example("car_paint_v2.talmat");
    const std::string v3 = example("single_layer.talmat");
    auto withWord = [](std::string bytes, std::size_t at, uint32_t value) {
        std::memcpy(bytes.data() + at, &value, 4);
        return bytes;
    };
    // More materials than the file holds: the reads run off the end and the next record refuses.
    for (const auto& [file, firstMissing] : {std::pair{v2, "in material 2 "}, std::pair{v3, "in material 3 "}}) {
        const Loaded result = load(withWord(file, 4, 0xFFFFFFFF));
        ASSERT_TRUE(!result.ok && result.report.failure);
        EXPECT_EQ(describe(*result.report.failure).rfind(firstMissing, 0), 0u) << describe(*result.report.failure);
    }
    // A block count of four billion over one stored block: the same document, no memory for it.
    const Loaded manyBlocks = load(withWord(v3, 8, 0xFFFFFFFF));
    ASSERT_TRUE(manyBlocks.ok);
    EXPECT_EQ(manyBlocks.xml, load(v3).xml);
    // A length of four gigabytes at any word: a text holds only the bytes that exist.
    const std::string withName = v2 + std::string(64, 'x');
    const std::size_t wholeDocument = load(v2).xml.size();
    for (std::size_t at = 12; at + 4 <= dataLength(v2); at += 4) {
        const Loaded result = load(withWord(withName, at, 0xFFFFFFF0));
        EXPECT_LE(result.xml.size(), wholeDocument + 4 * withName.size()) << at;
    }
}
