// A folder of the running test's own under the system's temporary folder. ctest runs the tests of
// one fixture side by side in separate processes, so a folder named only after the fixture would be
// made and removed under another test's feet.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

namespace TalvexTest {

inline std::filesystem::path scratchFolder(const std::string& tag)
{
    const auto* test = ::testing::UnitTest::GetInstance()->current_test_info();
    std::string name = tag;
    if (test != nullptr) name = name + "_" + test->test_suite_name() + "_" + test->name();
    return std::filesystem::path(::testing::TempDir()) / name;
}

}  // namespace TalvexTest
