// The document's UTF-8 gathered in memory mapped ahead: every byte kept in order across the steps
// in which the memory is mapped.
#include <gtest/gtest.h>

#include <string>

#include "module/populated_text.h"

using namespace TalvexCore;

TEST(PopulatedText, KeepsEveryByteAcrossItsSteps)
{
    PopulatedText text;
    EXPECT_TRUE(text.view().empty());
    std::string expected;
    // Pieces of odd sizes, one larger than a step, so that the appends straddle step ends.
    for (std::size_t size : {std::size_t(1), std::size_t(4095), std::size_t(1) << 20, std::size_t(5) << 20,
                             std::size_t(3), std::size_t(3) << 20}) {
        std::string piece(size, '\0');
        for (std::size_t i = 0; i < size; ++i) piece[i] = static_cast<char>('a' + (expected.size() + i) % 23);
        expected += piece;
        // The first piece is taken whole, the others copied.
        if (size == 1) text.take(piece);
        else text.append(piece);
        ASSERT_EQ(text.view().size(), expected.size());
    }
    EXPECT_TRUE(text.view() == expected);
}
