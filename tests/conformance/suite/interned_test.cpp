#include "host/interned.h"

#include <string>
#include <string_view>
#include <thread>
#include <vector>

#include "tests/conformance/suite/suite.h"

namespace {

using zelk::COSInternedID;
using zelk::internal::makeInterned;
using Interning = conformance::Conformance;

TEST_F(Interning, GivesOneHandleForTheSameBytes) {
    const std::string first = "conformance.Name";
    const std::string second = "conformance.Name";
    EXPECT_EQ(makeInterned(first), makeInterned(second));
    EXPECT_EQ(makeInterned(first).c_str(), makeInterned(second).c_str());
}

TEST_F(Interning, TakesTheViewAndNothingBehindIt) {
    const std::string_view longer = "conformance.Name.and.more";
    EXPECT_EQ(makeInterned(longer.substr(0, 16)), makeInterned("conformance.Name"));
    EXPECT_STREQ(makeInterned(longer.substr(0, 16)).c_str(), "conformance.Name");
}

TEST_F(Interning, TellsOtherBytesApart) {
    for (const char* other : {"conformance.name", "conformance.Nam", "conformance.Name ", "conformance_Name", " "}) {
        EXPECT_NE(makeInterned(other), makeInterned("conformance.Name")) << other;
        EXPECT_STREQ(makeInterned(other).c_str(), other);
    }
}

TEST_F(Interning, KeepsEveryByteButZero) {
    std::string all;
    for (int byte = 1; byte < 256; ++byte) {
        all.push_back(static_cast<char>(byte));
    }
    EXPECT_EQ(makeInterned(all).view(), all);
    const std::string large(100'000, 'x');
    EXPECT_EQ(makeInterned(large).view(), large);
}

TEST_F(Interning, GivesNoNameTheEmptyHandle) {
    EXPECT_NE(makeInterned("conformance.Name"), COSInternedID());
    EXPECT_FALSE(makeInterned("conformance.Name").isEmpty());
    EXPECT_STREQ(COSInternedID().c_str(), "");
}

TEST_F(Interning, LeavesNamesWhereTheyAre) {
    const COSInternedID early = makeInterned("conformance.Early");
    const char* place = early.c_str();
    for (int number = 0; number < 50'000; ++number) {
        makeInterned("conformance.Later" + std::to_string(number));
    }
    EXPECT_EQ(makeInterned("conformance.Early").c_str(), place);
    EXPECT_STREQ(place, "conformance.Early");
}

TEST_F(Interning, GivesEveryThreadTheSameHandles) {
    constexpr std::size_t threadCount = 8;
    constexpr std::size_t nameCount = 500;
    std::vector<std::vector<COSInternedID>> handles(threadCount);
    std::vector<std::thread> threads;
    for (std::vector<COSInternedID>& own : handles) {
        threads.emplace_back([&own] {
            for (std::size_t number = 0; number < nameCount; ++number) {
                own.push_back(makeInterned("conformance.shared" + std::to_string(number)));
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    for (const std::vector<COSInternedID>& own : handles) {
        EXPECT_EQ(own, handles.front());
    }
    EXPECT_STREQ(handles.front().back().c_str(), "conformance.shared499");
}

}  // namespace
