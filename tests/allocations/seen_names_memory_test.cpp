// The names that a walk has met are as they were when there is no memory for one more.
#include <gtest/gtest.h>

#include <new>
#include <string>

#include "contextdata/introspection/seen_names.h"
#include "tests/allocations/failing_memory.h"

namespace {

using contextdata::introspection::SeenNames;

std::u16string nameOf(int number) {
    const std::string digits = std::to_string(number);
    return u"aNameThatIsLongEnoughToFillTheArenaSoon" + std::u16string(digits.begin(), digits.end());
}

TEST(SeenNamesMemory, ANameThatCannotBeKeptWasNotMet) {
    constexpr int count = 300;
    SeenNames seen;
    int refusals = 0;
    for (int number = 0; number < count; ++number) {
        const std::u16string name = nameOf(number);
        failing_memory::arm(1, [&refusals] { ++refusals; });
        try {
            EXPECT_TRUE(seen.insert(name));
            failing_memory::disarm();
        } catch (const std::bad_alloc&) {
            failing_memory::disarm();
            EXPECT_TRUE(seen.insert(name)) << "it had not been met";
        }
    }
    for (int number = 0; number < count; ++number) {
        EXPECT_FALSE(seen.insert(nameOf(number))) << "all of them have been met";
    }
    EXPECT_GT(refusals, 5) << "tables and arena grew";
}

}  // namespace
