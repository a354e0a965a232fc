#include "contextdata/other_object_systems.h"
#include "host/array_library.h"
#include "host/class_objects.h"
#include "host/class_system.h"
#include "host/exceptions.h"
#include "host/i18n.h"
#include "host/text.h"
#include "hosts/python/python_host.h"
#include "tests/python_host/session.h"

namespace {

using namespace session;
using foundation::core::except::IException;

class ValueParts : public PythonTest {
protected:
    static std::string field(const std::string& expression, const char* name, std::size_t index = 0) {
        const qxUniqueArray holder = value(expression);
        const qxSharedArray result = qxGetField(holder.get(), index, name);
        if (!result) {
            return "nothing";
        }
        const Ref text = Ref::steal(PyObject_Repr(python_host::unwrap(result.get())));
        return PyUnicode_AsUTF8(text.get());
    }
    static Names fields(const std::string& expression) {
        std::vector<std::u16string> wide;
        StructContextData::getStructFieldNames(value(expression).get(), wide);
        Names names;
        for (const std::u16string& name : wide) {
            names.push_back(fl::i18n::to_string(name));
        }
        return names;
    }
};

TEST_F(ValueParts, OfAStructureAreItsFields) {
    run("import types\nd = {'b': 1, 'a': [2], 3: 4}\nn = types.SimpleNamespace(x=5)");
    EXPECT_EQ(field("d", "a"), "[2]");
    EXPECT_EQ(field("n", "x"), "5");
    EXPECT_EQ(field("d", "missing"), "nothing");
    EXPECT_EQ(field("d", "a", 1), "nothing");
    EXPECT_EQ(field("n", "missing"), "nothing");
    EXPECT_EQ(fields("d"), (Names{"b", "a"}));
    EXPECT_EQ(fields("n"), Names{"x"});
    EXPECT_EQ(fields("{}"), Names{});
}

TEST_F(ValueParts, AreNoFieldsOfOtherValues) {
    run("class D(dict):\n def __getitem__(self, key): trace.append(key)\n"
        "class A: pass\na = A()\na.x = 1");
    for (const char* other : {"D(x=1)", "a", "1", "'x'", "[1]", "None"}) {
        EXPECT_EQ(field(other, "x"), "nothing") << other;
        EXPECT_EQ(fields(other), Names{}) << other;
    }
}

TEST_F(ValueParts, ThatAreFieldsAreComparedWithPlainTextsOnly) {
    run("class K:\n def __hash__(self): return hash('x')\n def __eq__(self, o): trace.append('eq'); return True\n"
        "d = {K(): 1, 'y': 2}\ntrace.clear()");
    EXPECT_EQ(field("d", "x"), "nothing");
    EXPECT_EQ(field("d", "y"), "2");
    EXPECT_EQ(fields("d"), Names{"y"});
}

TEST_F(ValueParts, NamesOfFieldsHoldNoZero) {
    run("d = {'a\\0b': 1, 'c': 2}");
    EXPECT_EQ(fields("d"), Names{"c"});
}

TEST_F(ValueParts, NamesOfFieldsStandWhileTheStructureChanges) {
    run("d = {'a': 1}");
    const qxUniqueArray held = value("d");
    ASSERT_EQ(qxGetNumberOfFields(held.get()), 1U);
    const char* name = qxGetFieldNameByNumber(held.get(), 0);
    run("d.clear()\nd['other'] = 2\nd['more'] = 3");
    EXPECT_STREQ(name, "a");
    EXPECT_EQ(qxGetNumberOfFields(held.get()), 1U);
}

TEST_F(ValueParts, OneElementIsAScalar) {
    run("import numpy");
    for (const char* scalar : {"1", "{}", "[1]", "'a'", "None", "numpy.zeros((1, 1))", "numpy.float64(1)"}) {
        EXPECT_TRUE(qxIsScalar(value(scalar).get())) << scalar;
    }
    for (const char* other : {"[]", "[1, 2]", "'ab'", "''", "numpy.zeros(2)"}) {
        EXPECT_FALSE(qxIsScalar(value(other).get())) << other;
    }
}

TEST_F(ValueParts, OnlyATruthValueIsTrue) {
    run("import numpy\nclass A:\n def __bool__(self): trace.append('bool'); return True");
    for (const char* truth : {"True", "numpy.bool_(True)", "numpy.array(True)", "numpy.array([[True]])"}) {
        EXPECT_TRUE(qxIsLogicalScalarTrue(value(truth).get())) << truth;
    }
    for (const char* other : {"False", "1", "1.0", "'x'", "[True]", "numpy.bool_(False)", "numpy.array([False])",
                              "numpy.array([True, True])", "numpy.array([1])", "A()", "None"}) {
        EXPECT_FALSE(qxIsLogicalScalarTrue(value(other).get())) << other;
    }
}

TEST_F(ValueParts, TextsAreMadeOfAnyUnits) {
    for (const std::u16string& text : {std::u16string(u""), std::u16string(u"a\u00fc\U0001F600"),
                                       std::u16string(u"x\xD800y"), std::u16string(u"\0z", 2)}) {
        const qxUniqueArray made = qxCreateString(text);
        ASSERT_TRUE(isNonMissingScalarText(made.get()));
        EXPECT_EQ(getScalarText(made.get()), text);
        EXPECT_EQ(qxGetClassID(made.get()), qxClassID::character);
        EXPECT_EQ(qxGetNumberOfElements(made.get()), text.size());
    }
}

TEST_F(ValueParts, CellsAreFilledElementByElement) {
    const qxUniqueArray cell = qxCreateCell(2, 1);
    ASSERT_TRUE(cell);
    EXPECT_EQ(qxGetClassID(cell.get()), qxClassID::cell);
    EXPECT_STREQ(qxGetClassName(cell.get()), "cell");
    EXPECT_EQ(qxGetDimensions(cell.get())[0], 2U);
    EXPECT_EQ(qxGetDimensions(cell.get())[1], 1U);
    EXPECT_EQ(qxGetCell(cell.get(), 0), nullptr);
    qxSetCell(cell.get(), 1, qxCreateString(u"x"));
    EXPECT_EQ(getScalarText(qxGetCell(cell.get(), 1)), u"x");
    qxSetCell(cell.get(), 1, nullptr);
    EXPECT_EQ(qxGetCell(cell.get(), 1), nullptr);
    EXPECT_THROW(qxSetCell(cell.get(), 2, qxCreateString(u"y")), IException);
}

TEST_F(ValueParts, CellsWithoutElementsKeepTheirShape) {
    const qxUniqueArray cell = qxCreateCell(0, 1);
    EXPECT_TRUE(qxIsEmpty(cell.get()));
    EXPECT_EQ(qxGetDimensions(cell.get())[1], 1U);
}

TEST_F(ValueParts, CellsBeyondMemoryAreNotMade) {
    EXPECT_FALSE(qxCreateCell(static_cast<std::size_t>(-1), 2));
    EXPECT_FALSE(qxCreateCell(static_cast<std::size_t>(-1) / 4, 1));
}

TEST_F(ValueParts, LiveValuesAreNoCellsToFill) {
    run("l = [1]");
    const qxUniqueArray live = value("l");
    EXPECT_THROW(qxSetCell(live.get(), 0, qxCreateString(u"x")), IException);
    EXPECT_EQ(evalText("repr(l)"), "[1]");
}

TEST_F(ValueParts, ACopyOfAPropertyIsReadWithoutRunningCode) {
    run("class A:\n x = 5\n @property\n def p(self): trace.append('p')\na = A()");
    const qxUniqueArray held = value("a");
    const qxUniqueArray read = qxGetProperty(held.get(), 0, "x");
    ASSERT_TRUE(read);
    EXPECT_EQ(PyLong_AsLong(python_host::unwrap(read.get())), 5);
    EXPECT_FALSE(qxGetProperty(held.get(), 0, "p"));
    EXPECT_THROW(qxGetProperty(held.get(), 1, "x"), IException);
}

TEST_F(ValueParts, NameCharactersAreThoseOfIdentifiers) {
    EXPECT_EQ(qxCountNameCharacters("name.rest"), 4U);
    EXPECT_EQ(qxCountNameCharacters("_a1[0]"), 3U);
    EXPECT_EQ(qxCountNameCharacters("1a"), 0U);
    EXPECT_EQ(qxCountNameCharacters(""), 0U);
    EXPECT_EQ(qxCountNameCharacters(".a"), 0U);
    EXPECT_EQ(qxCountNameCharacters("gr\u00f6\u00dfe b"), 7U);
}

TEST_F(ValueParts, ANamespaceIsAValueWithItsName) {
    run("import collections");
    const zelk::COSInterfacePtr node = zelk::COSPackage::getNamespaceInterface(id("collections"));
    ASSERT_TRUE(node);
    const qxUniqueArray object = omCreateZELKScalar(node);
    ASSERT_TRUE(object);
    EXPECT_TRUE(qxIsScalar(object.get()));
    EXPECT_STREQ(qxGetClassName(object.get()), "ostrel.metadata.Namespace");
    EXPECT_TRUE(qxIsA(object.get(), "ostrel.metadata.Namespace"));
    EXPECT_FALSE(omIsZELK(object.get()));
    const qxUniqueArray name = qxGetProperty(object.get(), 0, "Name");
    EXPECT_EQ(getScalarText(name.get()), u"collections");
    for (const char* list : {"ClassList", "FunctionList", "PackageList"}) {
        EXPECT_TRUE(qxGetProperty(object.get(), 0, list)) << list;
    }
    EXPECT_FALSE(qxGetProperty(object.get(), 0, "Other"));
    EXPECT_THROW(qxGetProperty(object.get(), 1, "Name"), IException);
}

TEST_F(ValueParts, NothingButANamespaceHasAnObjectThatStandsForIt) {
    run("class A:\n def f(self): pass");
    const zelk::COSIteratorPtr methods = classOf("__main__.A")->findMethods(id("f"));
    ASSERT_TRUE(methods && methods->hasMoreElements());
    EXPECT_THROW(omCreateZELKScalar(methods->nextElement()), IException);
}

TEST_F(ValueParts, TextsAreNarrowedByEitherConverter) {
    using fl::i18n::codecvt_ustring_to_string;
    EXPECT_EQ(fl::i18n::to_string(u"\u00fc", codecvt_ustring_to_string(true)), "\u00fc");
    EXPECT_EQ(fl::i18n::to_string(u"\xD800", codecvt_ustring_to_string(false)), "\uFFFD");
    EXPECT_THROW(fl::i18n::to_string(u"\xD800", codecvt_ustring_to_string(true)), fl::i18n::ConversionException);
}

}  // namespace
