// Routing by extension and the plain-text path that both conversions fall back on.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include <unistd.h>

#include "archive/text_conversion.h"
#include "module/file_routing.h"
#include "module/material_conversion.h"
#include "module/options_conversion.h"

using namespace TalvexCore;

namespace {

class PlainTextPath : public ::testing::Test {
protected:
    std::filesystem::path dir;

    void SetUp() override
    {
        dir = std::filesystem::temp_directory_path() /
              ("routing_test_" + std::to_string(::getpid()) + "_" +
               ::testing::UnitTest::GetInstance()->current_test_info()->name());
        std::filesystem::create_directories(dir);
    }
    void TearDown() override { std::filesystem::remove_all(dir); }

    std::u16string file(const std::string& name, const std::string& bytes)
    {
        std::ofstream(dir / name, std::ios::binary) << bytes;
        return (dir / name).u16string();
    }
};

}  // namespace

// The extension is the text behind the last dot of the whole path, compared without regard to case.
TEST(FileRouting, ExtensionDecidesTheCommand)
{
    struct Case {
        std::u16string path;
        bool material, options;
    };
    const Case cases[] = {
        {u"wood.talmat", true, false},
        {u"C:\\lib\\WOOD.TALMAT", true, false},
        {u"/lib/wood.NuMat", true, false},
        {u"scene.talopt", false, true},
        {u"scene.NUOPT", false, true},
        {u".talmat", true, false},
        {u"a.b.talopt", false, true},
        {u"wood.talmat.bak", false, false},
        {u"lib.talmat/wood", false, false},  // the last dot lies in a folder's name
        {u"lib.talmat\\wood", false, false},
        {u"wood.", false, false},
        {u"wood", false, false},
        {u"", false, false},
        {u"wood.talmat ", false, false},
        {u"wood.tal", false, false},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(isMaterialFilePath(c.path), c.material) << wideToNarrow(c.path);
        EXPECT_EQ(isOptionsFilePath(c.path), c.options) << wideToNarrow(c.path);
    }
}

TEST_F(PlainTextPath, TextComesBackAsItStands)
{
    struct Case {
        const char* what;
        std::string bytes;
        std::u16string text;
    };
    const Case cases[] = {
        {"empty file", "", u""},
        {"xml with its own line ends", "<talmat>\r\n  <Assets/>\n</talmat>\r\n", u"<talmat>\r\n  <Assets/>\n</talmat>\r\n"},
        {"byte order mark kept", "\xEF\xBB\xBF<a/>", u"\uFEFF<a/>"},
        {"cut at a zero byte", std::string("<a>\0</a>", 8), u"<a>"},
        {"windows-1252 bytes", "<a>caf\xE9 \x80</a>", u"<a>caf\u00e9 \u20AC</a>"},
        {"utf-8 text", "<a>\xE2\x82\xAC\xF0\x9F\x98\x80</a>", u"<a>\u20AC\U0001F600</a>"},
        {"utf-16 is not recognised", std::string("\xFF\xFE<\0a\0", 6), u"\u00FF\u00FE<"},
        // A valid header whose material does not load: the text path meets the tag's zero byte.
        {"header without a readable material", std::string("\0\0\3\0\1\0\0\0\1\0\0\0", 12), u""},
    };
    int n = 0;
    for (const Case& c : cases) {
        const std::string stem = "file" + std::to_string(n++);
        EXPECT_EQ(materialFileToXml(file(stem + ".talmat", c.bytes)), c.text) << c.what;
        EXPECT_EQ(optionsFileToXml(file(stem + ".talopt", c.bytes)), c.text) << c.what;
    }
}

TEST_F(PlainTextPath, UnreadablePathsGiveEmptyText)
{
    std::filesystem::create_directories(dir / "folder.talmat");
    for (const std::u16string& path : {(dir / "missing.talmat").u16string(), (dir / "folder.talmat").u16string()}) {
        EXPECT_EQ(materialFileToXml(path), u"");
        EXPECT_EQ(optionsFileToXml(path), u"");
    }
    std::u16string text = u"kept";
    EXPECT_EQ(writeMaterialFileXml((dir / "missing.talmat").u16string(), text, {}), ConversionOutcome::Unreadable);
    EXPECT_EQ(writeOptionsFileXml(file("text.talopt", "<t/>"), text, {}), ConversionOutcome::PlainText);
    EXPECT_EQ(text, u"kept<t/>");
}
