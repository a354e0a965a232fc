#include <thread>

#include "contextdata/introspection.h"
#include "contextdata/values.h"
#include "host/class_objects.h"
#include "host/exceptions.h"
#include "host/text.h"
#include "hosts/python/python_host.h"
#include "tests/python_host/session.h"

namespace {

using namespace session;

class Values : public PythonTest {
protected:
    static qxClassID kind(const std::string& expression) { return qxGetClassID(value(expression).get()); }
    static std::string className(const std::string& expression) { return qxGetClassName(value(expression).get()); }
    static std::vector<std::size_t> extents(const std::string& expression) {
        const qxUniqueArray held = value(expression);
        const std::size_t* first = qxGetDimensions(held.get());
        return {first, first + qxGetNumberOfDimensions(held.get())};
    }
    using Extents = std::vector<std::size_t>;
};

TEST_F(Values, HaveTheKindOfTheirExactType) {
    run("import types, numpy, functools\nclass L(list): pass\nclass S(str): pass\nclass A: pass\ndef g(): yield");
    EXPECT_EQ(kind("[]"), qxClassID::cell);
    EXPECT_EQ(kind("()"), qxClassID::cell);
    EXPECT_EQ(kind("{}"), qxClassID::structure);
    EXPECT_EQ(kind("types.SimpleNamespace()"), qxClassID::structure);
    EXPECT_EQ(kind("True"), qxClassID::logical);
    EXPECT_EQ(kind("''"), qxClassID::character);
    EXPECT_EQ(kind("1"), qxClassID::int64);
    EXPECT_EQ(kind("1.5"), qxClassID::float64);
    EXPECT_EQ(kind("1j"), qxClassID::float64);
    EXPECT_EQ(kind("len"), qxClassID::functionHandle);
    EXPECT_EQ(kind("lambda: 0"), qxClassID::functionHandle);
    EXPECT_EQ(kind("[].append"), qxClassID::functionHandle);
    EXPECT_EQ(kind("str.upper"), qxClassID::functionHandle);
    EXPECT_EQ(kind("int"), qxClassID::functionHandle);
    EXPECT_EQ(kind("numpy.add"), qxClassID::functionHandle);
    EXPECT_EQ(kind("functools.partial(len)"), qxClassID::functionHandle);
    EXPECT_EQ(kind("None"), qxClassID::opaque);
    EXPECT_EQ(kind("g()"), qxClassID::opaque);
    EXPECT_EQ(kind("__import__('datetime').datetime_CAPI"), qxClassID::opaque);
    for (const char* object : {"L()", "S()", "A()", "set()", "b''", "types"}) {
        EXPECT_GT(kind(object), qxClassID::object) << object;
    }
}

TEST_F(Values, OfArraysHaveTheKindOfTheirElements) {
    run("import numpy");
    const std::pair<const char*, qxClassID> kinds[] = {
        {"float64", qxClassID::float64}, {"float32", qxClassID::float32}, {"int8", qxClassID::int8},
        {"uint8", qxClassID::uint8},     {"int16", qxClassID::int16},     {"uint16", qxClassID::uint16},
        {"int32", qxClassID::int32},     {"uint32", qxClassID::uint32},   {"int64", qxClassID::int64},
        {"uint64", qxClassID::uint64},   {"bool", qxClassID::logical},    {"complex128", qxClassID::float64},
        {"longlong", qxClassID::int64},  {"U3", qxClassID::character},    {"object", qxClassID::cell},
        {"float16", qxClassID::opaque},  {"M8[s]", qxClassID::opaque},
    };
    for (const auto& [type, expected] : kinds) {
        EXPECT_EQ(kind("numpy.zeros(2, '" + std::string(type) + "')"), expected) << type;
    }
    EXPECT_EQ(kind("numpy.float64(1)"), qxClassID::float64);
    EXPECT_EQ(kind("numpy.int16(1)"), qxClassID::int16);
    EXPECT_EQ(kind("numpy.bool_(True)"), qxClassID::logical);
    EXPECT_GT(kind("numpy.matrix([1])"), qxClassID::object);
}

TEST_F(Values, OfOneClassShareANumberOfTheirOwn) {
    run("class A: pass\nclass B: pass\na, b, c = A(), A(), B()");
    EXPECT_EQ(kind("a"), kind("b"));
    EXPECT_NE(kind("a"), kind("c"));
    EXPECT_GT(kind("a"), qxClassID::object);
}

TEST_F(Values, AreObjectsOfTheClassSystemAboveTheBuiltInKinds) {
    run("class A: pass");
    EXPECT_TRUE(omIsZELK(value("A()").get()));
    EXPECT_STREQ(omGetCOSClassID(value("A()").get()).c_str(), "__main__.A");
    for (const char* builtIn : {"1", "[]", "{}", "None", "len", "A"}) {
        const qxUniqueArray held = value(builtIn);
        EXPECT_FALSE(omIsZELK(held.get())) << builtIn;
        EXPECT_TRUE(omGetCOSClassID(held.get()).isEmpty()) << builtIn;
        EXPECT_FALSE(ZELKIntrospection::isZELKObject(held.get())) << builtIn;
    }
    EXPECT_TRUE(ZELKIntrospection::isZELKObject(value("A()").get()));
}

TEST_F(Values, NameTheirClass) {
    run("import numpy\nclass A: pass");
    EXPECT_EQ(className("1.5"), "double");
    EXPECT_EQ(className("[]"), "cell");
    EXPECT_EQ(className("{}"), "struct");
    EXPECT_EQ(className("''"), "char");
    EXPECT_EQ(className("len"), "function_handle");
    EXPECT_EQ(className("numpy.zeros(2, 'f4')"), "single");
    EXPECT_EQ(className("A()"), "__main__.A");
    EXPECT_EQ(className("None"), "builtins.NoneType");
}

TEST_F(Values, AreOfTheirClassItsBasesAndTheirKind) {
    run("class A: pass\nclass B(A): pass\nb = B()");
    const qxUniqueArray held = value("b");
    EXPECT_TRUE(qxIsA(held.get(), "__main__.B"));
    EXPECT_TRUE(qxIsA(held.get(), "__main__.A"));
    EXPECT_TRUE(qxIsA(held.get(), "object"));
    EXPECT_FALSE(qxIsA(held.get(), "double"));
    EXPECT_FALSE(qxIsA(held.get(), "tall"));
    EXPECT_FALSE(qxIsA(held.get(), ""));
    EXPECT_TRUE(qxIsA(value("1.5").get(), "double"));
    EXPECT_TRUE(qxIsA(value("1.5").get(), "builtins.float"));
}

TEST_F(Values, HaveTwoExtentsAtLeast) {
    run("import numpy");
    EXPECT_EQ(extents("numpy.zeros((2, 3, 4))"), (Extents{2, 3, 4}));
    EXPECT_EQ(extents("numpy.zeros(5)"), (Extents{5, 1}));
    EXPECT_EQ(extents("numpy.array(5)"), (Extents{1, 1}));
    EXPECT_EQ(extents("[1, 2, 3]"), (Extents{1, 3}));
    EXPECT_EQ(extents("'a\U0001F600'"), (Extents{1, 3}));
    EXPECT_EQ(extents("1"), (Extents{1, 1}));
    EXPECT_TRUE(qxIsEmpty(value("[]").get()));
    EXPECT_FALSE(qxIsEmpty(value("{}").get()));
    EXPECT_EQ(getSizeFromQxArray(value("numpy.zeros((2, 3))").get()), (std::vector<std::uint64_t>{2, 3}));
}

TEST_F(Values, OfCellsGiveTheirElements) {
    run("import numpy\nl = ['a', 2.5]\no = numpy.array([['x', None], [1, 'y']], dtype=object)");
    const qxUniqueArray list = value("l");
    EXPECT_EQ(getScalarText(qxGetCell(list.get(), 0)), u"a");
    EXPECT_EQ(*qxGetDoubles(qxGetCell(list.get(), 1)), 2.5);
    EXPECT_EQ(qxGetCell(list.get(), 0), qxGetCell(list.get(), 0));
    EXPECT_EQ(qxGetCell(list.get(), 2), nullptr);
    const qxUniqueArray array = value("o");
    EXPECT_EQ(getScalarText(qxGetCell(array.get(), 3)), u"y");
    EXPECT_EQ(qxGetCell(array.get(), 4), nullptr);
}

TEST_F(Values, OfACellOutliveItsShrinking) {
    run("l = ['a', 'b']");
    const qxUniqueArray list = value("l");
    const qxArray* second = qxGetCell(list.get(), 1);
    run("l.clear()");
    EXPECT_EQ(getScalarText(second), u"b");
    EXPECT_EQ(qxGetCell(list.get(), 1), nullptr);
    std::vector<std::u16string> names;
    const qxUniqueArray fresh = value("l");
    EXPECT_TRUE(getStringsFromQxarray(fresh.get(), names));
}

TEST_F(Values, GiveTheirDoublesOnlyInOnePiece) {
    run("import numpy\na = numpy.arange(6.0).reshape(2, 3)");
    EXPECT_EQ(qxGetDoubles(value("a").get())[4], 4.0);
    for (const char* other : {"a.T", "a[:, ::2]", "a.astype('f4')", "a.astype('>f8')", "1", "[]", "1j"}) {
        EXPECT_THROW(qxGetDoubles(value(other).get()), foundation::core::except::IException) << other;
    }
    EXPECT_EQ(*qxGetDoubles(value("numpy.float64(2.5)").get()), 2.5);
}

TEST_F(Values, HoldTheirObject) {
    run("class A: pass\na = A()");
    const long before = evalNumber("__import__('sys').getrefcount(a)");
    qxUniqueArray held = value("a");
    EXPECT_EQ(evalNumber("__import__('sys').getrefcount(a)"), before + 1);
    EXPECT_EQ(python_host::unwrap(held.get()), eval("a").get());
    const qxSharedArray shared = makeSharedPtr(held.release());
    const qxSharedArray second = shared;
    EXPECT_EQ(evalNumber("__import__('sys').getrefcount(a)"), before + 1);
}

TEST_F(Values, ReleasedWithoutTheLockWaitForTheNextCall) {
    run("class A: pass\na = A()");
    const long before = evalNumber("__import__('sys').getrefcount(a)");
    qxUniqueArray held = value("a");
    std::thread([&held] { held.reset(); }).join();
    EXPECT_EQ(evalNumber("__import__('sys').getrefcount(a)"), before + 1);
    value("1");
    EXPECT_EQ(evalNumber("__import__('sys').getrefcount(a)"), before);
}

TEST_F(Values, DestroyingNothingIsAllowed) { qxDestroyArray(nullptr); }

}  // namespace
