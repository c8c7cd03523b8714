// Only regular files open: a device, a FIFO (whose opening would wait for a writer) or a folder is
// refused at once with the reason, and a file that another writer holds open still opens for reading.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#ifndef _WIN32
#include <sys/stat.h>
#endif

#include "archive/file_path.h"
#include "archive/regular_file.h"

namespace fs = std::filesystem;
using namespace TalvexCore;

TEST(RegularFile, DevicesAndFoldersAreRefusedWithTheirReason)
{
#ifdef _WIN32
    RegularFile device(u"NUL");
#else
    RegularFile device(u"/dev/null");
#endif
    EXPECT_TRUE(!device.isOpen() && device.failureReason() == "not a regular file");
    EXPECT_EQ(device.stream().get(), std::char_traits<char>::eof());

    const fs::path folder = fs::path(::testing::TempDir()) / "cindrel_regular_file";
    fs::remove_all(folder);
    fs::create_directories(folder);
    RegularFile asFile(widePath(folder)), missing(widePath(folder / "missing.talmat"));
    EXPECT_FALSE(asFile.isOpen() || missing.isOpen());
    EXPECT_NE(asFile.failureReason(), missing.failureReason());
    EXPECT_NE(missing.failureReason(), "not a regular file");
#ifndef _WIN32
    ASSERT_EQ(::mkfifo((folder / "pipe.talmat").c_str(), 0600), 0);
    RegularFile fifo(widePath(folder / "pipe.talmat"));
    EXPECT_TRUE(!fifo.isOpen() && fifo.failureReason() == "not a regular file");
#endif

    {
        std::ofstream writer(folder / "written.talmat", std::ios::binary);
        writer << "bytes" << std::flush;
        RegularFile reader(widePath(folder / "written.talmat"));
        ASSERT_TRUE(reader.isOpen()) << reader.failureReason();
        const std::string text{std::istreambuf_iterator<char>(reader.stream()), {}};
        EXPECT_EQ(text, "bytes");
    }
    fs::remove_all(folder);
}
