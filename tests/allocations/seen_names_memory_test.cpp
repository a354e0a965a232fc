// The names that a walk has met are as they were when there is no memory for one more.
#include <gtest/gtest.h>

#include <new>
#include <string>
#include <vector>

#include "contextdata/introspection/seen_names.h"
#include "tests/allocations/failing_memory.h"

namespace {

using contextdata::introspection::SeenNames;

/// A name of ASCII or beyond; its text stays where it is.
struct Name {
    std::string interned;
    std::u16string converted;
};

std::vector<Name> someNames(std::size_t count, std::size_t firstBeyondAscii) {
    std::vector<Name> names;
    for (std::size_t number = 0; number < count; ++number) {
        const std::string digits = std::to_string(number);
        const bool isAscii = number < firstBeyondAscii;
        names.push_back(
            {(isAscii ? "aNameOfUsualLength" : "caf\xC3\xA9") + digits,
             (isAscii ? u"aNameOfUsualLength" : u"caf\u00E9") + std::u16string(digits.begin(), digits.end())});
    }
    return names;
}

/// Inserts all names, each of which finds no memory at first.
int refusalsOf(const std::vector<Name>& names) {
    SeenNames seen;
    int refusals = 0;
    for (const Name& name : names) {
        failing_memory::arm(1, [&refusals] { ++refusals; });
        try {
            EXPECT_TRUE(seen.insert(name.interned, name.converted));
            failing_memory::disarm();
        } catch (const std::bad_alloc&) {
            failing_memory::disarm();
            EXPECT_TRUE(seen.insert(name.interned, name.converted)) << "it had not been met";
        }
    }
    for (const Name& name : names) {
        EXPECT_FALSE(seen.insert(name.interned, name.converted)) << "all of them have been met";
    }
    return refusals;
}

TEST(SeenNamesMemory, ANameThatCannotBeKeptWasNotMet) {
    EXPECT_GT(refusalsOf(someNames(1'000, 1'000)), 3) << "the table grew";
    EXPECT_GT(refusalsOf(someNames(300, 100)), 100) << "texts were kept";
}

}  // namespace
