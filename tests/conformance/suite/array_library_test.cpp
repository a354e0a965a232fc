#include "host/array_library.h"

#include <limits>
#include <numeric>
#include <string>
#include <vector>

#include "host/class_system.h"
#include "host/text.h"
#include "tests/conformance/suite/suite.h"
#include "tests/conformance/suite/value_kinds.h"

namespace {

using conformance::nameOf;
using conformance::ValueKind;

class ArrayLibrary : public conformance::Conformance {
protected:
    static std::vector<std::size_t> extentsOf(const qxUniqueArray& value) {
        const std::size_t* first = qxGetDimensions(value.get());
        return {first, first + qxGetNumberOfDimensions(value.get())};
    }
    static qxUniqueArray cell(std::size_t rows, std::size_t columns) {
        qxUniqueArray made = qxCreateCell(rows, columns);
        EXPECT_TRUE(made) << "small cells can be made";
        return made;
    }
};

/// What is the same for every kind of value.
class EveryKind : public ArrayLibrary, public testing::WithParamInterface<std::pair<ValueKind, const char*>> {
protected:
    qxUniqueArray value() { return provider().value(GetParam().first); }
};

TEST_P(EveryKind, CountsItsElementsByItsExtents) {
    const qxUniqueArray value = this->value();
    CONFORMANCE_NEEDS(value, GetParam().second);
    const std::vector<std::size_t> extents = extentsOf(value);
    const std::size_t count = std::accumulate(extents.begin(), extents.end(), std::size_t{1}, std::multiplies<>());
    EXPECT_EQ(qxGetNumberOfElements(value.get()), count);
    EXPECT_EQ(qxIsEmpty(value.get()), count == 0);
    EXPECT_EQ(qxIsScalar(value.get()), count == 1);
}

TEST_P(EveryKind, IsOfTheClassThatItNamesAndOfNoUnknownOne) {
    const qxUniqueArray value = this->value();
    CONFORMANCE_NEEDS(value, GetParam().second);
    const char* name = qxGetClassName(value.get());
    ASSERT_NE(name, nullptr);
    EXPECT_STRNE(name, "");
    EXPECT_TRUE(qxIsA(value.get(), name)) << name;
    EXPECT_FALSE(qxIsA(value.get(), conformance::unknownName.c_str()));
    EXPECT_STREQ(qxGetClassName(value.get()), name) << "the name is borrowed for the life of the value";
}

TEST_P(EveryKind, OfABuiltInKindHasThatForItsNumber) {
    const qxUniqueArray value = this->value();
    CONFORMANCE_NEEDS(value, GetParam().second);
    const qxClassID kind = qxGetClassID(value.get());
    if (kind <= qxClassID::functionHandle) {
        EXPECT_EQ(qxGetFullClassID(value.get()), static_cast<std::int32_t>(kind));
    }
}

TEST_P(EveryKind, CanBeTakenOutOfEveryScope) {
    const qxUniqueArray value = this->value();
    CONFORMANCE_NEEDS(value, GetParam().second);
    const std::size_t count = qxGetNumberOfElements(value.get());
    qxSetArrayScope(value.get(), qxArrayScope::none);
    qxSetArrayScope(value.get(), qxArrayScope::none);
    EXPECT_EQ(qxGetNumberOfElements(value.get()), count);
}

INSTANTIATE_TEST_SUITE_P(OfValue, EveryKind, testing::ValuesIn(conformance::valueKinds), [](const auto& tested) {
    std::string name = tested.param.second;
    std::replace(name.begin(), name.end(), ' ', '_');
    return name;
});

TEST_F(ArrayLibrary, TellsKindsByTheirCodes) {
    const struct {
        ValueKind kind;
        qxClassID id;
        const char* className;
    } expected[] = {
        {ValueKind::doubleScalar, qxClassID::float64, "double"},
        {ValueKind::doubleRow, qxClassID::float64, "double"},
        {ValueKind::emptyDouble, qxClassID::float64, "double"},
        {ValueKind::logicalTrue, qxClassID::logical, "logical"},
        {ValueKind::text, qxClassID::character, "char"},
        {ValueKind::cell, qxClassID::cell, "cell"},
        {ValueKind::structure, qxClassID::structure, "struct"},
    };
    for (const auto& each : expected) {
        if (const qxUniqueArray value = provider().value(each.kind)) {
            EXPECT_EQ(qxGetClassID(value.get()), each.id) << each.className;
            EXPECT_STREQ(qxGetClassName(value.get()), each.className);
        }
    }
    if (const qxUniqueArray handle = provider().value(ValueKind::functionHandle)) {
        EXPECT_EQ(qxGetClassID(handle.get()), qxClassID::functionHandle);
    }
    if (const qxUniqueArray opaque = provider().value(ValueKind::opaque)) {
        EXPECT_EQ(qxGetClassID(opaque.get()), qxClassID::opaque);
    }
    if (const qxUniqueArray older = provider().value(ValueKind::olderObject)) {
        EXPECT_EQ(qxGetClassID(older.get()), qxClassID::object);
    }
}

TEST_F(ArrayLibrary, ShowsTheShapesOfDoubles) {
    const qxUniqueArray matrix = provider().value(ValueKind::doubleMatrix);
    CONFORMANCE_NEEDS(matrix, nameOf(ValueKind::doubleMatrix));
    EXPECT_EQ(extentsOf(matrix), (std::vector<std::size_t>{2, 3}));
    const qxUniqueArray empty = provider().value(ValueKind::emptyDouble);
    CONFORMANCE_NEEDS(empty, nameOf(ValueKind::emptyDouble));
    EXPECT_TRUE(qxIsEmpty(empty.get()));
}

TEST_F(ArrayLibrary, ShowsTheElementsOfDoubles) {
    const qxUniqueArray row = provider().value(ValueKind::doubleRow);
    CONFORMANCE_NEEDS(row, nameOf(ValueKind::doubleRow));
    ASSERT_EQ(qxGetNumberOfElements(row.get()), 3U);
    const double* elements = qxGetDoubles(row.get());
    EXPECT_EQ(std::vector<double>(elements, elements + 3), (std::vector<double>{1, 2, 3.5}));
}

TEST_F(ArrayLibrary, TellsTrueFromAllElse) {
    const qxUniqueArray yes = provider().value(ValueKind::logicalTrue);
    CONFORMANCE_NEEDS(yes, nameOf(ValueKind::logicalTrue));
    EXPECT_TRUE(qxIsLogicalScalarTrue(yes.get()));
    for (const ValueKind other : {ValueKind::logicalFalse, ValueKind::logicalRow, ValueKind::doubleScalar,
                                  ValueKind::text, ValueKind::cell, ValueKind::opaque}) {
        if (const qxUniqueArray value = provider().value(other)) {
            EXPECT_FALSE(qxIsLogicalScalarTrue(value.get())) << nameOf(other);
        }
    }
}

TEST_F(ArrayLibrary, ShowsTheElementsOfACell) {
    const qxUniqueArray cell = provider().value(ValueKind::cell);
    CONFORMANCE_NEEDS(cell, nameOf(ValueKind::cell));
    ASSERT_EQ(qxGetNumberOfElements(cell.get()), 2U);
    EXPECT_EQ(getScalarText(qxGetCell(cell.get(), 0)), u"first");
    EXPECT_EQ(*qxGetDoubles(qxGetCell(cell.get(), 1)), 2.5);
    EXPECT_EQ(qxGetCell(cell.get(), 0), qxGetCell(cell.get(), 0)) << "elements are borrowed from the cell";
}

TEST_F(ArrayLibrary, ShowsTheFieldsOfAStructureInTheirOrder) {
    const qxUniqueArray structure = provider().value(ValueKind::structure);
    CONFORMANCE_NEEDS(structure, nameOf(ValueKind::structure));
    ASSERT_EQ(qxGetNumberOfFields(structure.get()), 2U);
    const char* first = qxGetFieldNameByNumber(structure.get(), 0);
    EXPECT_STREQ(qxGetFieldNameByNumber(structure.get(), 1), "beta");
    EXPECT_STREQ(first, "alpha") << "names are borrowed for the life of the structure";
    const qxSharedArray alpha = qxGetField(structure.get(), 0, "alpha");
    const qxSharedArray beta = qxGetField(structure.get(), 0, "beta");
    ASSERT_TRUE(alpha && beta);
    EXPECT_EQ(*qxGetDoubles(alpha.get()), 2.5);
    EXPECT_EQ(getScalarText(beta.get()), u"some text");
    EXPECT_FALSE(qxGetField(structure.get(), 0, "gamma"));
    EXPECT_FALSE(qxGetField(structure.get(), 0, "alph"));
}

TEST_F(ArrayLibrary, SharesFieldsBeyondTheLifeOfTheStructure) {
    qxUniqueArray structure = provider().value(ValueKind::structure);
    CONFORMANCE_NEEDS(structure, nameOf(ValueKind::structure));
    const qxSharedArray alpha = qxGetField(structure.get(), 0, "alpha");
    structure.reset();
    ASSERT_TRUE(alpha);
    EXPECT_EQ(*qxGetDoubles(alpha.get()), 2.5);
}

TEST_F(ArrayLibrary, ShowsNoFieldsOfOtherValues) {
    for (const ValueKind other : {ValueKind::doubleScalar, ValueKind::text, ValueKind::cell, ValueKind::opaque}) {
        if (const qxUniqueArray value = provider().value(other)) {
            EXPECT_EQ(qxGetNumberOfFields(value.get()), 0U) << nameOf(other);
            EXPECT_FALSE(qxGetField(value.get(), 0, "alpha")) << nameOf(other);
        }
    }
}

TEST_F(ArrayLibrary, MakesTexts) {
    for (const std::u16string& text :
         {std::u16string(u""), std::u16string(u"plain"), std::u16string(u"a \"b\" 'c'\n")}) {
        const qxUniqueArray made = qxCreateString(text);
        ASSERT_TRUE(made);
        EXPECT_TRUE(isNonMissingScalarText(made.get()));
        EXPECT_EQ(getScalarText(made.get()), text);
        EXPECT_EQ(qxGetNumberOfElements(made.get()), text.size());
    }
}

TEST_F(ArrayLibrary, MakesCellsWithoutElementsSet) {
    const qxUniqueArray made = cell(2, 3);
    EXPECT_EQ(qxGetClassID(made.get()), qxClassID::cell);
    EXPECT_EQ(extentsOf(made), (std::vector<std::size_t>{2, 3}));
    for (std::size_t index = 0; index < 6; ++index) {
        EXPECT_EQ(qxGetCell(made.get(), index), nullptr);
    }
    EXPECT_EQ(extentsOf(cell(0, 1)), (std::vector<std::size_t>{0, 1}));
}

TEST_F(ArrayLibrary, GivesAnElementToItsCell) {
    const qxUniqueArray made = cell(2, 1);
    qxUniqueArray element = qxCreateString(u"kept");
    const qxArray* place = element.get();
    qxSetCell(made.get(), 1, std::move(element));
    EXPECT_EQ(qxGetCell(made.get(), 0), nullptr);
    ASSERT_EQ(qxGetCell(made.get(), 1), place);
    EXPECT_EQ(getScalarText(qxGetCell(made.get(), 1)), u"kept");
    qxSetCell(made.get(), 1, qxCreateString(u"other"));
    EXPECT_EQ(getScalarText(qxGetCell(made.get(), 1)), u"other");
    qxSetCell(made.get(), 1, nullptr);
    EXPECT_EQ(qxGetCell(made.get(), 1), nullptr);
}

TEST_F(ArrayLibrary, RefusesACellBeyondMemory) {
    try {
        EXPECT_FALSE(qxCreateCell(std::numeric_limits<std::size_t>::max(), 3));
    } catch (...) {
        SUCCEED() << "or fails";
    }
}

TEST_F(ArrayLibrary, DestroyingNothingIsAllowed) { qxDestroyArray(nullptr); }

TEST_F(ArrayLibrary, EndsAValueWithItsLastOwner) {
    std::optional<conformance::WatchedValue> watched = provider().watchedValue();
    CONFORMANCE_NEEDS(watched, "values whose end can be seen");
    EXPECT_TRUE(watched->isAlive());
    constexpr bool addsReference = false;
    qxSharedArray shared(watched->value.release(), addsReference);
    qxSharedArray second = shared;
    shared.reset();
    EXPECT_TRUE(watched->isAlive()) << "a shared handle holds it";
    second.reset();
    EXPECT_FALSE(watched->isAlive());
}

TEST_F(ArrayLibrary, EndsWhatACellHoldsWithTheCell) {
    std::optional<conformance::WatchedValue> watched = provider().watchedValue();
    CONFORMANCE_NEEDS(watched, "values whose end can be seen");
    qxUniqueArray holder = cell(1, 1);
    qxSetCell(holder.get(), 0, std::move(watched->value));
    EXPECT_TRUE(watched->isAlive());
    holder.reset();
    EXPECT_FALSE(watched->isAlive());
}

TEST_F(ArrayLibrary, ReadsAPropertyEitherWay) {
    const std::optional<conformance::PropertySubject> subject = provider().objectWithProperty();
    CONFORMANCE_NEEDS(subject, "objects with properties that can be read");
    const qxUniqueArray copied = qxGetProperty(subject->object.get(), 0, subject->property.c_str());
    ASSERT_TRUE(copied);
    EXPECT_EQ(*qxGetDoubles(copied.get()), 2.5);
    const qxUniqueArray shared(qxGetPropertyShared(subject->object.get(), 0, subject->property.c_str()));
    ASSERT_TRUE(shared);
    qxSetArrayScope(shared.get(), qxArrayScope::none);
    EXPECT_EQ(*qxGetDoubles(shared.get()), 2.5);
}

TEST_F(ArrayLibrary, GivesNothingForAPropertyThatIsNotThere) {
    const std::optional<conformance::PropertySubject> subject = provider().objectWithProperty();
    CONFORMANCE_NEEDS(subject, "objects with properties that can be read");
    using foundation::core::except::IException;
    try {
        EXPECT_FALSE(qxGetProperty(subject->object.get(), 0, conformance::unknownName.c_str()));
    } catch (const IException&) {
        SUCCEED() << "or fails";
    }
    try {
        EXPECT_EQ(qxGetPropertyShared(subject->object.get(), 0, conformance::unknownName.c_str()), nullptr);
    } catch (const IException&) {
        SUCCEED() << "or fails";
    }
}

TEST_F(ArrayLibrary, CountsTheCharactersOfANameAtTheStart) {
    EXPECT_EQ(qxCountNameCharacters("name"), 4U);
    EXPECT_EQ(qxCountNameCharacters("name.rest"), 4U);
    EXPECT_EQ(qxCountNameCharacters("a1_b(2)"), 4U);
    EXPECT_EQ(qxCountNameCharacters("x y"), 1U);
    for (const char* none : {"", "1a", ".a", " a", "(", "'a'"}) {
        EXPECT_EQ(qxCountNameCharacters(none), 0U) << none;
    }
    const std::string_view longer = "abcdef";
    EXPECT_EQ(qxCountNameCharacters(longer.substr(0, 3)), 3U) << "the view, and nothing behind it";
}

TEST_F(ArrayLibrary, KnowsNoClassOfAnUnknownName) { EXPECT_FALSE(qxCreateClassArray("no.such.Class")); }

TEST_F(ArrayLibrary, FindsTheStaticMembersOfJavaClasses) {
    const auto member = provider().javaMember();
    CONFORMANCE_NEEDS(member, "Java classes");
    const qxUniqueArray cls = qxCreateClassArray(member->first.c_str());
    ASSERT_TRUE(cls);
    const qxUniqueArray found = qxFindClassMember(cls.get(), member->second.c_str());
    ASSERT_TRUE(found);
    EXPECT_TRUE(qxIsA(found.get(), "java"));
    EXPECT_FALSE(qxFindClassMember(cls.get(), conformance::unknownName.c_str()));
}

}  // namespace
