// A wide path names the same file on every platform: characters outside ASCII and outside the
// basic plane open and save where the file system shows them.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "archive/file_path.h"
#include "archive/quick_archive.h"

namespace fs = std::filesystem;
using namespace TalvexCore;

TEST(FilePath, WideNamesOpenAndSaveAsThemselves)
{
    const fs::path folder = fs::path(::testing::TempDir()) / "cindrel_wide_paths";
    fs::create_directories(folder);
    const std::u16string name = u"\u00e9t\u00e9 \u041c\u0438\u0440 \U0001F600.talmat";
    // The wide path of the folder, through the file system's own form of it.
    const std::u16string path = folder.u16string() + u"/" + name;
    const fs::path expected = folder / fs::path(name);

    QuickArchive out(1);
    out.writeU32(0x00050000u);
    ASSERT_TRUE(out.writeToFile(path));
    EXPECT_TRUE(fs::exists(expected)) << "saved under another name";

    QuickArchive in(1);
    uint32_t tag = 0;
    ASSERT_TRUE(in.readFromFile(path));
    EXPECT_EQ((in.readU32(tag), tag), 0x00050000u);

    // The path ends at its first zero character, on every platform.
    EXPECT_EQ(filePath(path + std::u16string(1, u'\0') + u"tail"), filePath(path));
    fs::remove_all(folder);
}
