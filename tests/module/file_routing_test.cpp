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

// The extension is the text behind the last dot of the whole path, compared without regard to case.
TEST(FileRouting, ExtensionDecidesTheCommand)
{
    struct Case {
        std::u16string path;
        bool material, options;
    };
    const Case cases[] = {
        {u"wood.talmat", true, false},     {u"C:\\lib\\WOOD.TALMAT", true, false}, {u"/lib/wood.NuMat", true, false},
        {u".talmat", true, false},         {u"scene.talopt", false, true},         {u"a.b.NUOPT", false, true},
        {u"wood.talmat.bak", false, false}, {u"lib.talmat/wood", false, false},   {u"lib.talmat\\wood", false, false},
        {u"wood.", false, false},          {u"wood", false, false},                {u"", false, false},
        {u"wood.talmat ", false, false},   {u"wood.tal", false, false},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(wideToNarrow(c.path));
        EXPECT_EQ(isMaterialFilePath(c.path), c.material);
        EXPECT_EQ(isOptionsFilePath(c.path), c.options);
    }
}

// A file that does not load comes back as its text, through either conversion; the module's own
// tests hold the common cases.
TEST(FileRouting, PlainTextPath)
{
    const auto dir = std::filesystem::temp_directory_path() / ("routing_test_" + std::to_string(::getpid()));
    std::filesystem::create_directories(dir / "folder.talmat");
    auto file = [&](const std::string& name, const std::string& bytes) {
        std::ofstream(dir / name, std::ios::binary) << bytes;
        return (dir / name).u16string();
    };
    const std::pair<std::string, std::u16string> cases[] = {
        {"<talmat>\r\n  <Assets/>\n</talmat>\r\n", u"<talmat>\r\n  <Assets/>\n</talmat>\r\n"},
        {"<a>\xE2\x82\xAC\xF0\x9F\x98\x80</a>", u"<a>\u20AC\U0001F600</a>"},
        {std::string("\xFF\xFE<\0a\0", 6), u"\u00FF\u00FE<"},  // UTF-16 is not recognised
        {"<a>\x80\x81\xE9\xED\xA0\x80</a>", u"<a>\u20AC\u0081\u00E9\u00ED\u00A0\u20AC</a>"},  // Windows-1252
        {"<a>\xE2\x82</a>", u"<a>\u00E2\u201A</a>"},  // a cut sequence is not UTF-8
        // A valid header whose material does not load: the text path meets the tag's zero byte.
        {std::string("\0\0\3\0\1\0\0\0\1\0\0\0", 12), u""},
    };
    for (const auto& [bytes, text] : cases) {
        SCOPED_TRACE(bytes);
        // The UTF-8 text is the wide text's, whichever way a lone surrogate would go.
        EXPECT_EQ(materialFileToXml(file("f.talmat", bytes)), wideToNarrow(text));
        EXPECT_EQ(optionsFileToXml(file("f.talopt", bytes), LoneSurrogates::Kept), wideToNarrow(text));
    }
    // The load and the text read one opening of the file: a text longer than one read comes back
    // whole, also after the options load has read it to its end.
    const std::string longText = "<t>" + std::string(200000, 'x') + "</t>";
    EXPECT_EQ(materialFileToXml(file("long.talmat", longText)), longText);
    EXPECT_EQ(optionsFileToXml(file("long.talopt", longText), LoneSurrogates::Kept), longText);
    // A folder named like a file does not open as one.
    EXPECT_EQ(materialFileToXml((dir / "folder.talmat").u16string()), "");
    std::string text = "kept";
    EXPECT_EQ(writeMaterialFileXml((dir / "missing.talmat").u16string(), text, {}), ConversionOutcome::Unreadable);
    EXPECT_EQ(writeOptionsFileXml(file("text.talopt", "<t/>"), text, {}), ConversionOutcome::PlainText);
    EXPECT_EQ(text, "kept<t/>");
    std::filesystem::remove_all(dir);
}
