// Only regular files open: a device, a FIFO (whose opening would wait for a writer) or a folder is
// refused at once with the reason, and a file that another writer holds open still opens for reading.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#ifndef _WIN32
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
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
    {
        RegularFile fifo(widePath(folder / "pipe.talmat"));
        EXPECT_TRUE(!fifo.isOpen() && fifo.failureReason() == "not a regular file");
    }
    {
        // A FIFO with a writer and bytes waiting is refused too, and its bytes stay for their reader.
        const int reader = ::open((folder / "pipe.talmat").c_str(), O_RDONLY | O_NONBLOCK);
        const int writer = ::open((folder / "pipe.talmat").c_str(), O_WRONLY);
        ASSERT_TRUE(reader >= 0 && writer >= 0);
        ASSERT_EQ(::write(writer, "waiting", 7), 7);
        RegularFile fifo(widePath(folder / "pipe.talmat"));
        EXPECT_TRUE(!fifo.isOpen() && fifo.failureReason() == "not a regular file");
        char bytes[8] = {};
        EXPECT_EQ(::read(reader, bytes, sizeof bytes), 7);
        ::close(writer);
        ::close(reader);
    }
    RegularFile endless(u"/dev/zero");
    EXPECT_TRUE(!endless.isOpen() && endless.failureReason() == "not a regular file");
#endif

    // Files of every size read whole: empty, smaller than one read, and many reads long.
    for (const std::size_t size : {std::size_t(0), std::size_t(5000), std::size_t(65536), std::size_t(200003)}) {
        std::string bytes(size, '\0');
        for (std::size_t i = 0; i < size; ++i) bytes[i] = static_cast<char>(i * 7 + i / 251);
        std::ofstream(folder / "sized.talmat", std::ios::binary) << bytes;
        RegularFile reader(widePath(folder / "sized.talmat"));
        ASSERT_TRUE(reader.isOpen()) << size << ": " << reader.failureReason();
        const std::string text{std::istreambuf_iterator<char>(reader.stream()), {}};
        EXPECT_TRUE(text == bytes) << size;
        reader.stream().clear();
        reader.stream().seekg(-3, std::ios::end);
        if (size >= 3) {
            EXPECT_EQ(reader.stream().get(), static_cast<unsigned char>(bytes[size - 3])) << size;
        }
    }

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
