// What is built on first use is built once, also when sixteen threads come at the same time. A program of its own, so
// that nothing has been used before.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <atomic>
#include <functional>
#include <thread>
#include <vector>

#include "contextdata/class_info.h"
#include "contextdata/exclusion_tables.h"
#include "contextdata/method_info.h"
#include "contextdata/property_visitor.h"
#include "contextdata/resolved_class_id.h"

namespace {

using namespace ZELKContextData;

/// Has sixteen threads call a function at the same time, and answers what each of them got.
template <class Result>
std::vector<Result> fromSixteenThreads(const std::function<Result()>& call) {
    constexpr std::size_t threadCount = 16;
    std::vector<Result> results(threadCount);
    std::atomic<std::size_t> waiting = 0;
    std::vector<std::thread> threads;
    for (Result& result : results) {
        threads.emplace_back([&] {
            ++waiting;
            while (waiting < threadCount) {
                std::this_thread::yield();
            }
            result = call();
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    return results;
}

using NameSet = std::set<std::u16string>;

/// Every thread gets the whole of a table, a copy of its own.
void expectWholeTable(NameSet (*table)(), std::size_t size) {
    const std::vector<NameSet> results = fromSixteenThreads<NameSet>(table);
    const NameSet expected = table();
    EXPECT_EQ(expected.size(), size);
    EXPECT_THAT(results, testing::Each(expected));
}

TEST(FirstUse, OperatorNamesAreCopiedOnceFromATableThatIsBuiltOnce) {
    const std::u16string name = u"plus";
    EXPECT_THAT(fromSixteenThreads<int>([&] { return MethodInfo::isOperatorOverload(name) ? 1 : 0; }),
                testing::Each(1));
}

TEST(FirstUse, MethodNames) { expectWholeTable(getZELKMethodsExcludeSet, 29); }
TEST(FirstUse, ClassesWithoutDotMethods) { expectWholeTable(getNoDotMethodClassesExcludeSet, 19); }
TEST(FirstUse, GraphicsNamespaces) { expectWholeTable(getGX7NamespacesExcludeSet, 9); }
TEST(FirstUse, GraphicsNamespacesBelowTheTop) { expectWholeTable(getGX7OstrelNamespacesExcludeSet, 3); }

TEST(FirstUse, AttributesThatStandForGetters) {
    using Names = const std::vector<std::string>*;
    EXPECT_THAT(fromSixteenThreads<Names>([] { return &getAttributesToTreatAsHavingCustomGetters(); }),
                testing::Each(&getAttributesToTreatAsHavingCustomGetters()));
    EXPECT_THAT(getAttributesToTreatAsHavingCustomGetters(), testing::ElementsAre("RVXGetSet"));
}

TEST(FirstUse, AccessOfEverybody) {
    const ClassInfo cls{ResolvedClassID()};
    using Access = const std::vector<std::int32_t>*;
    EXPECT_THAT(fromSixteenThreads<Access>([&] { return &cls.getDefaultAccessibility(); }),
                testing::Each(&cls.getDefaultAccessibility()));
    EXPECT_THAT(cls.getDefaultAccessibility(), testing::ElementsAre(0));
}

TEST(FirstUse, IdentitiesAreMadeAndReadOnAnyThread) {
    const std::string name = "p:banking.retail.Account";
    const std::vector<std::u16string> names = fromSixteenThreads<std::u16string>([&] {
        const ResolvedClassID id = ResolvedClassID::fromKnownResolvedClassID(name);
        const ResolvedClassID copy = id;
        return copy.getComponentQualifiedName() + copy.getNonComponentQualifiedName();
    });
    EXPECT_THAT(names, testing::Each(u"p:banking.retail.Accountbanking.retail.Account"));
}

TEST(FirstUse, RulesThatAskNobodyAnswerOnAnyThread) {
    const zelk::COSInternedID cls = zelk::internal::makeInterned("double");
    const std::vector<std::u16string> sizes = {u"3", u":", u"numberOfRows"};
    const std::vector<std::vector<std::uint64_t>> results =
        fromSixteenThreads<std::vector<std::uint64_t>>([&]() -> std::vector<std::uint64_t> {
            std::vector<std::uint64_t> extents = PropertyInfo::castSizeStringToIntegers(sizes);
            extents.push_back(MethodInfo::isClassToCompleteMethodsForBeforeDot(cls) ? 1 : 0);
            extents.push_back(MethodInfo::isClassToCompleteMethodsForAfterDot(cls) ? 1 : 0);
            return extents;
        });
    EXPECT_THAT(results, testing::Each(testing::ElementsAre(3, UINT64_MAX, UINT64_MAX, 0, 1)));
}

}  // namespace
