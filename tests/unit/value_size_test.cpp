// The size of a value as the language itself reports it.
#include <cmath>
#include <cstdint>
#include <limits>

#include "contextdata/values.h"
#include "host/exceptions.h"
#include "tests/support/world_test.h"

namespace {

using memory_host::Fault;
using memory_host::Service;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr double nan = std::numeric_limits<double>::quiet_NaN();
constexpr double infinity = std::numeric_limits<double>::infinity();

class ValueSizeTest : public WorldTest {
protected:
    /// The size of a 2-by-5 object whose size method answers these numbers.
    std::vector<std::uint64_t> sizeAnswered(std::vector<double> numbers) {
        world.cls("bank.Ledger").answers("size", [&](const qxArray*) {
            const std::size_t count = numbers.size();
            return world.doubles({1, count}, numbers);
        });
        return getSizeFromQxArray(world.object("bank.Ledger", {2, 5}).get());
    }
};

TEST_F(ValueSizeTest, NullHasNoSize) { EXPECT_THAT(getSizeFromQxArray(nullptr), IsEmpty()); }

TEST_F(ValueSizeTest, TallValueHasNoSize) {
    world.cls("tall").answers("size", [this](const qxArray*) { return world.doubles({1, 2}, {3, 4}); });
    world.cls("special.Tall").derives("tall");
    EXPECT_THAT(getSizeFromQxArray(world.object("tall", {3, 4}).get()), IsEmpty());
    EXPECT_THAT(getSizeFromQxArray(world.object("special.Tall", {3, 4}).get()), IsEmpty());
}

TEST_F(ValueSizeTest, BuiltInAndOpaqueValuesHaveTheirDimensions) {
    EXPECT_THAT(getSizeFromQxArray(world.doubles({3, 4}).get()), ElementsAre(3, 4));
    EXPECT_THAT(getSizeFromQxArray(world.doubles({2, 0, 7}).get()), ElementsAre(2, 0, 7));
    EXPECT_THAT(getSizeFromQxArray(world.opaque("thing").get()), ElementsAre(1, 1));
    EXPECT_EQ(world.journal().countOf(Service::inCallMethod), 0U);
}

TEST_F(ValueSizeTest, ObjectIsAskedForItsSize) { EXPECT_THAT(sizeAnswered({7, 8, 9}), ElementsAre(7, 8, 9)); }

TEST_F(ValueSizeTest, ObjectOfTheOlderSystemIsAskedToo) {
    const qxUniqueArray value = world.olderObject("xob.Thing");
    EXPECT_THAT(getSizeFromQxArray(value.get()), IsEmpty());  // it has no such method, so it has no size
    EXPECT_EQ(world.journal().calls().back(), (memory_host::Call{Service::inCallMethod, "size"}));
}

TEST_F(ValueSizeTest, CustomSizeClassIsAskedForDoubles) {
    world.cls("ostrel.mixin.internal.CustomSizeString");
    world.cls("big.Array")
        .derives("ostrel.mixin.internal.CustomSizeString")
        .answers("size",
                 [this](const qxArray*) {
                     return world.doubles({1, 1}, {1});
                 })
        .answers("sizeAsDouble", [this](const qxArray*) {
            return world.doubles({1, 2}, {1e19, 3});
        });
    EXPECT_THAT(getSizeFromQxArray(world.object("big.Array").get()), ElementsAre(10000000000000000000ULL, 3));
}

TEST_F(ValueSizeTest, TopBitIsReached) {
    EXPECT_THAT(sizeAnswered({9223372036854775808.0, 18446744073709549568.0}),
                ElementsAre(9223372036854775808ULL, 18446744073709549568ULL));
}

TEST_F(ValueSizeTest, NumbersAreTruncatedTowardZero) {
    EXPECT_THAT(sizeAnswered({2.9, -0.5, 0.99}), ElementsAre(2, 0, 0));
}

TEST_F(ValueSizeTest, MissingNumberFallsBackToTheDimensions) { EXPECT_THAT(sizeAnswered({2, nan}), ElementsAre(2, 5)); }

TEST_F(ValueSizeTest, MissingNumberWinsOverOneOutOfRange) {
    EXPECT_THAT(sizeAnswered({-1, nan}), ElementsAre(2, 5));
    EXPECT_THAT(sizeAnswered({nan, 1e30}), ElementsAre(2, 5));
}

TEST_F(ValueSizeTest, NumberOutOfRangeLeavesNoSize) {
    EXPECT_THAT(sizeAnswered({-1, 3}), IsEmpty());
    EXPECT_THAT(sizeAnswered({3, 18446744073709551616.0}), IsEmpty());
    EXPECT_THAT(sizeAnswered({infinity}), IsEmpty());
    EXPECT_THAT(sizeAnswered({-infinity}), IsEmpty());
}

TEST_F(ValueSizeTest, AnswerThatIsNoListOfNumbersFallsBackToTheDimensions) {
    EXPECT_THAT(sizeAnswered({}), ElementsAre(2, 5));
    const qxUniqueArray ledger = world.object("bank.Ledger", {2, 5});
    world.cls("bank.Ledger").answers("size", [this](const qxArray*) { return world.charRow(u"12"); });
    EXPECT_THAT(getSizeFromQxArray(ledger.get()), ElementsAre(2, 5));
    world.cls("bank.Ledger").answers("size", [this](const qxArray*) { return world.logical(true); });
    EXPECT_THAT(getSizeFromQxArray(ledger.get()), ElementsAre(2, 5));
    world.cls("bank.Ledger").answers("size", [](const qxArray*) { return qxUniqueArray(); });
    EXPECT_THAT(getSizeFromQxArray(ledger.get()), ElementsAre(2, 5));
}

TEST_F(ValueSizeTest, SizeMethodThatFailsLeavesNoSize) {
    const qxUniqueArray ledger = world.object("bank.Ledger", {2, 5});
    EXPECT_THAT(getSizeFromQxArray(ledger.get()), IsEmpty());  // undefined method
    world.cls("bank.Ledger").answers("size", [](const qxArray*) -> qxUniqueArray { throw 7; });
    EXPECT_THAT(getSizeFromQxArray(ledger.get()), IsEmpty());
}

TEST_F(ValueSizeTest, EverythingThrownOnTheWayIsSwallowedTheInterruptIncluded) {
    world.cls("bank.Ledger").answers("size", [this](const qxArray*) { return world.doubles({1, 2}, {7, 8}); });
    const qxUniqueArray ledger = world.object("bank.Ledger", {2, 5});
    for (const Service service : {Service::qxIsA, Service::qxGetClassID, Service::omIsZELK, Service::inCallMethod,
                                  Service::qxIsEmpty, Service::qxGetDoubles, Service::qxGetNumberOfElements}) {
        for (const Fault fault :
             {Fault::interrupt, Fault::hostException, Fault::standardException, Fault::thrownInt, Fault::badAlloc}) {
            world.faults().failService(service, fault);
            EXPECT_THAT(getSizeFromQxArray(ledger.get()), IsEmpty()) << nameOf(service) << " " << fault;
        }
    }
    world.faults().clear();
    EXPECT_EQ(world.valuesAlive(), 1U);
    EXPECT_THAT(getSizeFromQxArray(ledger.get()), ElementsAre(7, 8));
}

TEST_F(ValueSizeTest, DimensionsThatCannotBeReadLeaveNoSize) {
    const qxUniqueArray matrix = world.doubles({3, 4});
    world.faults().failService(Service::qxGetDimensions, Fault::standardException);
    EXPECT_THAT(getSizeFromQxArray(matrix.get()), IsEmpty());
}

}  // namespace
