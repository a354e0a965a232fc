#include "contextdata/argument_block_metadata.h"

#include <type_traits>

#include "host/i18n.h"
#include "tests/support/world_test.h"

namespace {

using fl::i18n::ConversionException;
using foundation::core::except::InterruptException;
using memory_host::Call;
using memory_host::Fault;
using memory_host::Service;
using testing::Contains;
using ZELKContextData::ArgumentBlockMetadata;
using ZELKContextData::getArgumentBlockMetadata;

static_assert(std::is_nothrow_move_constructible_v<ArgumentBlockMetadata>);
static_assert(std::is_move_assignable_v<ArgumentBlockMetadata>);
static_assert(!std::is_copy_constructible_v<ArgumentBlockMetadata>);
static_assert(!std::is_copy_assignable_v<ArgumentBlockMetadata>);

class ArgumentBlockMetadataTest : public WorldTest {
protected:
    ArgumentBlockMetadataTest() {
        world.functionMetadata("solve", file, world.number(1), world.number(2));
        world.functionMetadata("solve", nullptr, world.number(3), world.number(4));
    }

    static double numberIn(const qxUniqueArray& value) { return value ? *qxGetDoubles(value.get()) : -1; }

    FunctionScope* const file = world.scope(u"/project/run.k");
};

TEST_F(ArgumentBlockMetadataTest, SwitchOnAsksInTheScopeOfTheContext) {
    world.contextResolution(true);
    const ArgumentBlockMetadata found = getArgumentBlockMetadata(u"/project/run.k", u"solve");
    EXPECT_EQ(numberIn(found.first), 1);
    EXPECT_EQ(numberIn(found.second), 2);
    EXPECT_EQ(found.scope, file);
}

TEST_F(ArgumentBlockMetadataTest, SwitchOnAndAContextWithoutAScopeAsksWithNone) {
    world.contextResolution(true);
    const ArgumentBlockMetadata found = getArgumentBlockMetadata(u"/project/other.k", u"solve");
    EXPECT_EQ(numberIn(found.first), 3);
    EXPECT_EQ(numberIn(found.second), 4);
    EXPECT_EQ(found.scope, nullptr);
}

TEST_F(ArgumentBlockMetadataTest, SwitchOnLooksTheContextUpOnceAndNeverTheRunningScope) {
    world.contextResolution(true);
    world.executing(file);
    const ArgumentBlockMetadata found = getArgumentBlockMetadata(u"", u"solve");
    EXPECT_EQ(numberIn(found.first), 3);
    EXPECT_EQ(world.journal().countOf(Service::getFunctionScope), 1U);
    EXPECT_EQ(world.journal().countOf(Service::getCurrentlyExecutingFunctionScope), 0U);
}

TEST_F(ArgumentBlockMetadataTest, SwitchOffGivesTheSameAnswerInEveryContext) {
    for (const char16_t* context : {u"/project/run.k", u"/project/other.k", u""}) {
        const ArgumentBlockMetadata found = getArgumentBlockMetadata(context, u"solve");
        EXPECT_EQ(numberIn(found.first), 3);
        EXPECT_EQ(numberIn(found.second), 4);
        EXPECT_EQ(found.scope, nullptr);
    }
}

TEST_F(ArgumentBlockMetadataTest, SwitchOffAsksNoDispatcher) {
    getArgumentBlockMetadata(u"/project/run.k", u"solve");
    EXPECT_EQ(world.journal().countOf(Service::getDispatcher), 0U);
    EXPECT_EQ(world.journal().countOf(Service::getFunctionScope), 0U);
}

TEST_F(ArgumentBlockMetadataTest, ScopeIsThatOfTheAnswerNotThatOfTheQuestion) {
    world.functionMetadata("everywhere", nullptr, world.number(5), world.number(6));
    world.contextResolution(true);
    const ArgumentBlockMetadata found = getArgumentBlockMetadata(u"/project/run.k", u"everywhere");
    EXPECT_EQ(numberIn(found.first), 5);
    EXPECT_EQ(found.scope, nullptr);
}

TEST_F(ArgumentBlockMetadataTest, UnknownFunctionHasTwoEmptyArrays) {
    const ArgumentBlockMetadata found = getArgumentBlockMetadata(u"", u"nothing");
    EXPECT_EQ(found.first, nullptr);
    EXPECT_EQ(found.second, nullptr);
    EXPECT_EQ(found.scope, nullptr);
}

TEST_F(ArgumentBlockMetadataTest, OneArrayMayBeEmpty) {
    world.functionMetadata("firstOnly", nullptr, world.number(1), qxUniqueArray());
    world.functionMetadata("secondOnly", nullptr, qxUniqueArray(), world.number(2));
    const ArgumentBlockMetadata first = getArgumentBlockMetadata(u"", u"firstOnly");
    EXPECT_NE(first.first, nullptr);
    EXPECT_EQ(first.second, nullptr);
    const ArgumentBlockMetadata second = getArgumentBlockMetadata(u"", u"secondOnly");
    EXPECT_EQ(second.first, nullptr);
    EXPECT_NE(second.second, nullptr);
}

TEST_F(ArgumentBlockMetadataTest, NameGoesOutInTheEncodingOfTheHost) {
    getArgumentBlockMetadata(u"", u"gr\u00F6\u00DFe");
    EXPECT_THAT(world.journal().calls(), Contains(Call{Service::omGetFunctionMetadata,
                                                       "gr\xC3\xB6\xC3\x9F"
                                                       "e"}));
}

TEST_F(ArgumentBlockMetadataTest, NameThatCannotBeConvertedIsRefusedNotSubstituted) {
    std::u16string name = u"solve";
    name.push_back(char16_t{0xD800});
    for (const bool on : {false, true}) {
        world.contextResolution(on);
        EXPECT_THROW(getArgumentBlockMetadata(u"/project/run.k", name), ConversionException) << on;
    }
    EXPECT_EQ(world.journal().countOf(Service::omGetFunctionMetadata), 0U);
}

TEST_F(ArgumentBlockMetadataTest, ContextOfInvalidTextHasNoScope) {
    world.contextResolution(true);
    const ArgumentBlockMetadata found = getArgumentBlockMetadata(std::u16string(1, char16_t{0xDC00}), u"solve");
    EXPECT_EQ(numberIn(found.first), 3);
}

TEST_F(ArgumentBlockMetadataTest, RecordOwnsItsArrays) {
    world.function("make", [this](const qxArray*) { return world.number(1); });
    const std::size_t before = world.valuesAlive();
    {
        ArgumentBlockMetadata record;
        record.first = world.number(1);
        record.second = world.number(2);
        const ArgumentBlockMetadata moved = std::move(record);
        EXPECT_EQ(numberIn(moved.first), 1);
        EXPECT_EQ(numberIn(moved.second), 2);
        EXPECT_EQ(world.valuesAlive(), before + 2);
    }
    EXPECT_EQ(world.valuesAlive(), before);
}

TEST_F(ArgumentBlockMetadataTest, StandsInTheOrderOfTheHostsAnswer) {
    qxUniqueArray one = world.number(1);
    qxUniqueArray two = world.number(2);
    const ArgumentBlockMetadata record{std::move(one), std::move(two), file};
    EXPECT_EQ(numberIn(record.first), 1);
    EXPECT_EQ(numberIn(record.second), 2);
    EXPECT_EQ(record.scope, file);
}

TEST_F(ArgumentBlockMetadataTest, NothingIsCaught) {
    world.contextResolution(true);
    for (const Service service : {Service::featureIsOn, Service::getDispatcher, Service::getFunctionScope,
                                  Service::toString, Service::omGetFunctionMetadata}) {
        world.faults().failService(service, Fault::interrupt);
        EXPECT_THROW(getArgumentBlockMetadata(u"/project/run.k", u"solve"), InterruptException) << nameOf(service);
        world.faults().failService(service, Fault::thrownInt);
        EXPECT_THROW(getArgumentBlockMetadata(u"/project/run.k", u"solve"), int) << nameOf(service);
    }
}

}  // namespace
