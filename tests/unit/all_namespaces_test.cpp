#include "contextdata/namespace_names.h"
#include "host/text.h"
#include "tests/support/world_test.h"

namespace {

using foundation::core::except::IException;
using foundation::core::except::InterruptException;
using memory_host::Call;
using memory_host::Fault;
using memory_host::Service;
using testing::Contains;
using testing::ElementsAre;
using ZELKContextData::getZELKAllNamespaces;

constexpr const char* allNamespaces = "ostrel.metadata.Namespace.getAllNamespaces";

class AllNamespacesTest : public WorldTest {
protected:
    /// Objects without names, which the host gives for all namespaces from now on.
    void hostGives(std::size_t count) {
        world.function(allNamespaces, [this, count](const qxArray*) {
            qxUniqueArray objects = world.olderObject("ostrel.metadata.Namespace");
            world.reshape(objects.get(), {1, count});
            given = objects.get();
            nameThem(objects, count);
            return objects;
        });
    }

    void nameThem(const qxUniqueArray& objects, std::size_t count) {
        for (std::size_t index = 0; index < count; ++index) {
            world.setProperty(objects, index, "Name", world.number(static_cast<double>(index)));
        }
    }

    static std::vector<std::size_t> dimensionsOf(const qxUniqueArray& value) {
        const std::size_t* first = qxGetDimensions(value.get());
        return {first, first + qxGetNumberOfDimensions(value.get())};
    }

    static Names textsOf(const qxUniqueArray& cell) {
        Names texts;
        for (std::size_t index = 0; index < qxGetNumberOfElements(cell.get()); ++index) {
            texts.push_back(getScalarText(qxGetCell(cell.get(), index)));
        }
        return texts;
    }

    qxArray* given = nullptr;
};

TEST_F(AllNamespacesTest, NamesStandInACellOfOneColumnInTheOrderOfTheHost) {
    world.ns("zeta");
    world.ns("alpha").holdsNamespace("alpha.inner");
    const qxUniqueArray names = getZELKAllNamespaces();
    ASSERT_NE(names, nullptr);
    EXPECT_EQ(qxGetClassID(names.get()), qxClassID::cell);
    EXPECT_THAT(dimensionsOf(names), ElementsAre(3U, 1U));
    EXPECT_THAT(textsOf(names), ElementsAre(u"zeta", u"alpha", u"alpha.inner"));
}

TEST_F(AllNamespacesTest, NoNamespaceAtAllGivesACellOfZeroByOne) {
    const qxUniqueArray names = getZELKAllNamespaces();
    ASSERT_NE(names, nullptr);
    EXPECT_EQ(qxGetClassID(names.get()), qxClassID::cell);
    EXPECT_THAT(dimensionsOf(names), ElementsAre(0U, 1U));
    EXPECT_EQ(world.journal().countOf(Service::qxGetProperty), 0U);
}

TEST_F(AllNamespacesTest, FunctionIsCalledByItsNameOnceAndWithoutAnArgument) {
    std::size_t calls = 0;
    world.function(allNamespaces, [&](const qxArray* argument) {
        EXPECT_EQ(argument, nullptr);
        ++calls;
        return world.cell({});
    });
    EXPECT_NE(getZELKAllNamespaces(), nullptr);
    EXPECT_EQ(calls, 1U);
    EXPECT_EQ(world.journal().countOf(Service::inFullFevalFcn), 1U);
}

TEST_F(AllNamespacesTest, NameOfEachElementIsReadAndStoredAsTheHostGivesIt) {
    world.function(allNamespaces, [this](const qxArray*) {
        qxUniqueArray objects = world.olderObject("ostrel.metadata.Namespace");
        world.reshape(objects.get(), {1, 3});
        world.setProperty(objects, 0, "Name", world.number(7));
        world.setProperty(objects, 1, "Name", qxUniqueArray());
        world.setProperty(objects, 2, "Name", world.missingString());
        return objects;
    });
    const qxUniqueArray names = getZELKAllNamespaces();
    EXPECT_EQ(world.journal().countOf(Service::qxGetProperty), 3U);
    EXPECT_THAT(world.journal().calls(), Contains(Call{Service::qxGetProperty, "Name"}).Times(3));
    ASSERT_THAT(dimensionsOf(names), ElementsAre(3U, 1U));
    EXPECT_EQ(*qxGetDoubles(qxGetCell(names.get(), 0)), 7);
    EXPECT_EQ(qxGetCell(names.get(), 1), nullptr);
    EXPECT_FALSE(isNonMissingScalarText(qxGetCell(names.get(), 2)));
}

TEST_F(AllNamespacesTest, NamesOutliveTheTemporaryScopeAndGoWithTheCell) {
    world.ns("bank");
    world.ns("shop");
    qxUniqueArray names = getZELKAllNamespaces();
    world.endTemporaryScope();
    EXPECT_EQ(world.valuesAlive(), 3U);  // the cell and its two texts; nothing else is left
    EXPECT_THAT(textsOf(names), ElementsAre(u"bank", u"shop"));
    names.reset();
    EXPECT_EQ(world.valuesAlive(), 0U);
}

TEST_F(AllNamespacesTest, CellThatCannotBeMadeGivesNothingAndNoNameIsRead) {
    world.ns("bank");
    world.faults().failService(Service::qxCreateCell, Fault::nullAnswer);
    EXPECT_EQ(getZELKAllNamespaces(), nullptr);
    EXPECT_EQ(world.journal().countOf(Service::qxGetProperty), 0U);
    EXPECT_EQ(world.valuesAlive(), 0U);
}

TEST_F(AllNamespacesTest, FunctionThatGivesNothingMeansNoNamespaces) {
    world.function(allNamespaces, [](const qxArray*) { return qxUniqueArray(); });
    const qxUniqueArray names = getZELKAllNamespaces();
    ASSERT_NE(names, nullptr);
    EXPECT_THAT(dimensionsOf(names), ElementsAre(0U, 1U));
}

TEST_F(AllNamespacesTest, CountIsAskedAnewBeforeEachNameForReadingMayChangeIt) {
    hostGives(4);
    world.whenCalled(Service::qxGetProperty, [this] { world.reshape(given, {1, 2}); });
    const qxUniqueArray names = getZELKAllNamespaces();
    EXPECT_THAT(dimensionsOf(names), ElementsAre(4U, 1U));
    EXPECT_EQ(world.journal().countOf(Service::qxGetProperty), 2U);
    EXPECT_NE(qxGetCell(names.get(), 1), nullptr);
    EXPECT_EQ(qxGetCell(names.get(), 2), nullptr);
}

TEST_F(AllNamespacesTest, ArrayThatGrowsMeanwhileFillsNoMoreThanTheCell) {
    hostGives(2);
    world.whenCalled(Service::qxGetProperty, [this] { world.reshape(given, {1, 5}); });
    const qxUniqueArray names = getZELKAllNamespaces();
    EXPECT_THAT(dimensionsOf(names), ElementsAre(2U, 1U));
    EXPECT_EQ(world.journal().countOf(Service::qxGetProperty), 2U);
}

TEST_F(AllNamespacesTest, ErrorOfTheFunctionPassesAndLeavesNothing) {
    world.function(allNamespaces, [](const qxArray*) -> qxUniqueArray { throw std::runtime_error("no namespaces"); });
    EXPECT_THROW(getZELKAllNamespaces(), std::runtime_error);
    EXPECT_EQ(world.valuesAlive(), 0U);
    world.function(allNamespaces, [](const qxArray*) -> qxUniqueArray { throw TextException("MissingNotSupported"); });
    EXPECT_THROW(getZELKAllNamespaces(), TextException);
    EXPECT_EQ(world.valuesAlive(), 0U);
}

TEST_F(AllNamespacesTest, FailureInTheMiddlePassesAndLeavesNothing) {
    hostGives(3);
    for (const Service service : {Service::qxGetProperty, Service::qxSetCell, Service::qxGetNumberOfElements}) {
        world.faults().failService(service, 2, Fault::interrupt);
        EXPECT_THROW(getZELKAllNamespaces(), InterruptException) << nameOf(service);
        EXPECT_EQ(world.valuesAlive(), 0U) << nameOf(service);
    }
}

TEST_F(AllNamespacesTest, ObjectWithoutANameIsAFailureOfTheHost) {
    world.function(allNamespaces, [this](const qxArray*) { return world.olderObject("ostrel.metadata.Namespace"); });
    EXPECT_THROW(getZELKAllNamespaces(), IException);
    EXPECT_EQ(world.valuesAlive(), 0U);
}

}  // namespace
