#include "contextdata/values.h"

#include "host/text.h"
#include "tests/support/world_test.h"

namespace {

using foundation::core::except::InterruptException;
using memory_host::Fault;
using memory_host::Service;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

class ValuesTest : public WorldTest {
protected:
    template <class... Elements>
    qxUniqueArray cellWith(Elements... elements) {
        std::vector<qxUniqueArray> all;
        (all.push_back(std::move(elements)), ...);
        return world.cellOf(std::move(all));
    }

    const Names before = {u"kept"};
    Names names = before;
};

// Strings of a cell.

TEST_F(ValuesTest, TextsOfACellAreAppendedInStorageOrder) {
    const qxUniqueArray cell = cellWith(world.charRow(u"one"), world.stringScalar(u"two"), world.charRow(u""));
    EXPECT_TRUE(getStringsFromQxarray(cell.get(), names));
    EXPECT_THAT(names, ElementsAre(u"kept", u"one", u"two", u""));
}

TEST_F(ValuesTest, EmptyCellAnswersTrueAndAddsNothing) {
    const qxUniqueArray cell = world.cell({});
    EXPECT_TRUE(getStringsFromQxarray(cell.get(), names));
    EXPECT_EQ(names, before);
}

TEST_F(ValuesTest, OnlyACellHasStrings) {
    EXPECT_FALSE(getStringsFromQxarray(nullptr, names));
    EXPECT_FALSE(getStringsFromQxarray(world.charRow(u"text").get(), names));
    EXPECT_FALSE(getStringsFromQxarray(world.stringScalar(u"text").get(), names));
    EXPECT_FALSE(getStringsFromQxarray(world.number(1).get(), names));
    EXPECT_EQ(names, before);
}

TEST_F(ValuesTest, OneElementThatIsNoTextUndoesAll) {
    const auto expectNothing = [this](const qxUniqueArray& cell) {
        EXPECT_FALSE(getStringsFromQxarray(cell.get(), names));
        EXPECT_EQ(names, before);
    };
    expectNothing(cellWith(world.charRow(u"one"), world.missingString(), world.charRow(u"two")));
    expectNothing(cellWith(world.charRow(u"one"), world.number(1)));
    expectNothing(cellWith(world.charRow(u"one"), world.charMatrix(2, 3)));
    expectNothing(cellWith(world.charRow(u"one"), qxUniqueArray()));
    expectNothing(cellWith(world.charRow(u"one"), world.cell({u"nested"})));
    EXPECT_EQ(world.journal().countOf(Service::getScalarText), 5U);  // never asked of what is no text
}

TEST_F(ValuesTest, NamesAreCutBackWhenAnythingIsThrown) {
    const qxUniqueArray cell = world.cell({u"one", u"two"});
    for (const Service service : {Service::qxGetCell, Service::isNonMissingScalarText, Service::getScalarText}) {
        world.faults().failService(service, 2, Fault::interrupt);
        EXPECT_THROW(getStringsFromQxarray(cell.get(), names), InterruptException) << nameOf(service);
        EXPECT_EQ(names, before);
        world.faults().failService(service, 2, Fault::thrownInt);
        EXPECT_THROW(getStringsFromQxarray(cell.get(), names), int) << nameOf(service);
        EXPECT_EQ(names, before);
    }
}

TEST_F(ValuesTest, TextExtractionNamesItsErrors) {
    try {
        getScalarText(world.missingString().get());
        ADD_FAILURE() << "no exception";
    } catch (const TextException& error) {
        EXPECT_STREQ(error.getComponent(), "OSTREL:string");
        EXPECT_STREQ(error.getIdentifier(), "MissingNotSupported");
    }
    try {
        getScalarText(world.number(1).get());
        ADD_FAILURE() << "no exception";
    } catch (const TextException& error) {
        EXPECT_STREQ(error.getIdentifier(), "MustBeStringScalarOrCharacterVector");
    }
}

// Shared properties.

TEST_F(ValuesTest, SharedPropertyIsTheValueItselfAndOutlivesTheTemporaryScope) {
    const qxUniqueArray account = world.object("bank.Account");
    qxUniqueArray balance = world.number(7);
    const qxArray* stored = balance.get();
    world.setProperty(account, "balance", std::move(balance));
    const qxSharedArray read = getSharedProperty(account.get(), "balance", 0);
    world.endTemporaryScope();
    ASSERT_EQ(read.get(), stored);
    EXPECT_EQ(*qxGetDoubles(read.get()), 7);
}

TEST_F(ValuesTest, SharedPropertyKeepsTheValueWhenTheObjectGoes) {
    qxUniqueArray account = world.object("bank.Account");
    world.setProperty(account, "balance", world.number(7));
    qxSharedArray read = getSharedProperty(account.get(), "balance", 0);
    account.reset();
    EXPECT_EQ(world.valuesAlive(), 1U);
    EXPECT_EQ(*qxGetDoubles(read.get()), 7);
    read.reset();
    EXPECT_EQ(world.valuesAlive(), 0U);
}

TEST_F(ValuesTest, SharedPropertyIsEmptyWhateverIsThrown) {
    const qxUniqueArray account = world.object("bank.Account");
    world.setProperty(account, "balance", world.number(7));
    for (const Service service : {Service::qxGetPropertyShared, Service::qxSetArrayScope}) {
        for (const Fault fault :
             {Fault::interrupt, Fault::hostException, Fault::standardException, Fault::thrownInt, Fault::badAlloc}) {
            world.faults().failService(service, fault);
            EXPECT_EQ(getSharedProperty(account.get(), "balance", 0), nullptr) << nameOf(service) << " " << fault;
        }
    }
    world.faults().clear();
    EXPECT_NE(getSharedProperty(account.get(), "balance", 0), nullptr);
}

TEST_F(ValuesTest, SharedPropertyThatIsNotThereIsEmpty) {
    const qxUniqueArray account = world.object("bank.Account");
    world.setProperty(account, "note", qxUniqueArray());
    EXPECT_EQ(getSharedProperty(account.get(), "no such property", 0), nullptr);
    EXPECT_EQ(getSharedProperty(account.get(), "note", 0), nullptr);
    EXPECT_EQ(getSharedProperty(account.get(), "note", 5), nullptr);
}

TEST_F(ValuesTest, SharedHandleAdoptsTheReferenceItIsGiven) {
    qxSharedArray shared = makeSharedPtr(world.number(1).release());
    EXPECT_EQ(world.valuesAlive(), 1U);
    shared.reset();
    EXPECT_EQ(world.valuesAlive(), 0U);
}

TEST_F(ValuesTest, SharedHandleTakesTheValueOutOfItsScope) {
    const qxUniqueArray value = world.number(1);
    intrusive_ptr_add_ref(value.get());
    const qxSharedArray shared = makeSharedPtr(value.get());
    EXPECT_EQ(world.journal().countOf(Service::qxSetArrayScope), 1U);
}

TEST_F(ValuesTest, SharedHandleOfNothingIsEmpty) {
    EXPECT_EQ(makeSharedPtr(nullptr), nullptr);
    EXPECT_TRUE(world.journal().calls().empty());
}

TEST_F(ValuesTest, SharedHandleThatCannotBeMadeLeavesTheValueToItsOwner) {
    const qxUniqueArray value = world.number(1);
    world.faults().failService(Service::qxSetArrayScope, Fault::interrupt);
    EXPECT_THROW(makeSharedPtr(value.get()), InterruptException);
    EXPECT_EQ(world.valuesAlive(), 1U);
}

// Kinds of objects.

TEST_F(ValuesTest, OpaqueValuesAndOlderObjectsAreObjectsOrOpaque) {
    EXPECT_TRUE(isObjectOrIsOpaque(world.opaque("java.lang.String").get()));
    EXPECT_TRUE(isObjectOrIsOpaque(world.olderObject("xob.Thing").get()));
    EXPECT_FALSE(isObjectOrIsOpaque(world.functionHandle().get()));
    EXPECT_FALSE(isObjectOrIsOpaque(world.structure().get()));
    EXPECT_FALSE(isObjectOrIsOpaque(world.object("bank.Account").get()));
    EXPECT_FALSE(isObjectOrIsOpaque(nullptr));
    for (int id = 0; id <= 20; ++id) {
        const qxUniqueArray value = world.valueOf(static_cast<qxClassID>(id));
        EXPECT_EQ(isObjectOrIsOpaque(value.get()), id == 17 || id == 18) << id;
    }
}

TEST_F(ValuesTest, KindOfObjectCatchesNothing) {
    const qxUniqueArray value = world.opaque("thing");
    world.faults().failService(Service::qxGetClassID, Fault::standardException);
    EXPECT_THROW(isObjectOrIsOpaque(value.get()), std::runtime_error);
}

TEST_F(ValuesTest, OpaqueObjectIsAskedForItsMethodsAndProperties) {
    const qxUniqueArray value = world.opaque("java.lang.String");
    world.function("methods", [this](const qxArray*) { return world.cell({u"length", u"plus"}); });
    world.function("properties", [this](const qxArray*) { return world.cell({u"bytes"}); });
    getOpaqueObjectMethods(value.get(), names);
    EXPECT_THAT(names, ElementsAre(u"kept", u"length", u"plus"));
    getOpaqueObjectProperties(value.get(), names);
    EXPECT_THAT(names, ElementsAre(u"kept", u"length", u"plus", u"bytes"));
}

TEST_F(ValuesTest, OpaqueObjectThatCannotAnswerAddsNothing) {
    const qxUniqueArray value = world.opaque("java.lang.String");
    world.faults().failService(Service::inCallFcn, Fault::interrupt);
    getOpaqueObjectMethods(value.get(), names);
    getOpaqueObjectProperties(value.get(), names);
    EXPECT_EQ(names, before);
}

// Built-in functions.

TEST_F(ValuesTest, BuiltinFunctionNamesCollapseRepeats) {
    world.documentedBuiltins({u"sin", u"cos", u"sin"});
    EXPECT_THAT(getBuiltinFunctionNames(), UnorderedElementsAre(u"sin", u"cos"));
    world.documentedBuiltins({});
    EXPECT_THAT(getBuiltinFunctionNames(), IsEmpty());
}

TEST_F(ValuesTest, BuiltinFunctionNamesCatchNothing) {
    world.faults().failService(Service::getDocumentedBuiltins, Fault::interrupt);
    EXPECT_THROW(getBuiltinFunctionNames(), InterruptException);
}

}  // namespace
