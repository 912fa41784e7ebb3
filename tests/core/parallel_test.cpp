#include "tbvnonpara/core/parallel.hpp"

#include <atomic>
#include <gtest/gtest.h>
#include <stdexcept>
#include <string>
#include <vector>

namespace TBVNonPara {
namespace {

TEST(InParallel, EveryPartIsDoneOnce) {
    for (const std::size_t parts : {std::size_t(1), std::size_t(2), std::size_t(7)}) {
        std::vector<std::atomic<int>> done(parts);
        inParallel(parts, [&](std::size_t part) { done[part] += 1; });
        for (const std::atomic<int>& times : done) {
            EXPECT_EQ(times, 1);
        }
    }
}

TEST(InParallel, TheLowestErrorIsRaisedWhenAllHaveEnded) {
    std::atomic<int> ended = 0;
    try {
        inParallel(5, [&](std::size_t part) {
            ended += 1;
            if (part == 4 || part == 2) {
                throw std::runtime_error(std::to_string(part));
            }
        });
        ADD_FAILURE();
    } catch (const std::runtime_error& error) {
        EXPECT_STREQ(error.what(), "2");
    }
    EXPECT_EQ(ended, 5);
}

TEST(Parts, TakeAllElementsEvenly) {
    for (const std::size_t elements :
         {std::size_t(0), std::size_t(1), std::size_t(10), std::size_t(1000003)}) {
        for (const std::size_t parts : {std::size_t(1), std::size_t(3), std::size_t(8)}) {
            EXPECT_EQ(beginOfPart(0, parts, elements), 0U);
            EXPECT_EQ(beginOfPart(parts, parts, elements), elements);
            for (std::size_t part = 0; part < parts; ++part) {
                const std::size_t size =
                    beginOfPart(part + 1, parts, elements) - beginOfPart(part, parts, elements);
                EXPECT_TRUE(size == elements / parts || size == elements / parts + 1)
                    << elements << ' ' << parts;
            }
        }
    }
}

TEST(Parts, AreNoMoreThanTheWorkIsWorth) {
    EXPECT_EQ(partsWorthwhile(0, 5'000'000), 1U);
    EXPECT_EQ(partsWorthwhile(1, 5'000'000), 1U);
    EXPECT_EQ(partsWorthwhile(8, 10), 1U);
    EXPECT_EQ(partsWorthwhile(8, 250'000), 3U);
    EXPECT_EQ(partsWorthwhile(8, 5'000'000), 8U);
}

}  // namespace
}  // namespace TBVNonPara
