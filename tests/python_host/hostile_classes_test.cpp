// Classes that run, print, loop or lie when they are touched. Each test ends with an empty trace.
#include "contextdata/introspection.h"
#include "contextdata/member_names.h"
#include "host/class_objects.h"
#include "hosts/python/python_host.h"
#include "tests/python_host/session.h"

namespace {

using namespace session;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

class HostileClasses : public PythonTest {
protected:
    void SetUp() override {
        PythonTest::SetUp();
        run("def mark(name):\n"
            " def hook(*args, **kwargs):\n"
            "  trace.append(name)\n"
            "  print(name)\n"
            "  raise RuntimeError(name)\n"
            " return hook\n");
    }

    /// Everything that may be asked of a class and an object of it without asking the object itself.
    static void askEverything(const std::string& className, const std::string& object) {
        zelk::COSClass* cls = classOf(className);
        ASSERT_NE(cls, nullptr);
        methods(className);
        properties(className);
        constants(className);
        enumerationMembers(className);
        cls->getDefinition(false);
        cls->isHidden();
        cls->hasDynamicProperties();
        cls->isSubclassOf(id("builtins.int"));
        const qxUniqueArray held = value(object);
        omGetCOSClassID(held.get());
        qxGetClassName(held.get());
        qxIsA(held.get(), "builtins.int");
        qxGetNumberOfElements(held.get());
        call("methods", object);
        call("class", object);
        call("denotes", object);
        call("fieldnames", object);
        ZELKIntrospection::hasMethod(held.get(), "visible");
    }
};

TEST_F(HostileClasses, AMetaclassIsNotAsked) {
    run("class Meta(type):\n pass\n"
        "class A(metaclass=Meta):\n def visible(self): pass\n x = 1\n"
        "a = A()\n"
        "for hook in ['__getattribute__', '__getattr__', '__dir__', '__instancecheck__', '__subclasscheck__', '__eq__',"
        " '__hash__', '__bool__', '__len__', '__iter__', '__repr__', '__call__', '__prepare__']:\n"
        " setattr(Meta, hook, mark(hook))\n");
    EXPECT_THAT(methods("__main__.A"), ElementsAre("visible"));
    EXPECT_THAT(properties("__main__.A"), ElementsAre("x"));
    askEverything("__main__.A", "a");
    run("for hook in list(vars(Meta)):\n"
        " if type(vars(Meta)[hook]) is type(mark): type.__delattr__(Meta, hook)\n");
}

TEST_F(HostileClasses, ObjectsAreNotAsked) {
    run("class A:\n def visible(self): pass\n __class__ = property(mark('__class__'))\na = A()\n"
        "for hook in ['__getattribute__', '__getattr__', '__eq__', '__hash__', '__bool__', '__len__', '__iter__',"
        " '__repr__', '__str__', '__getitem__', '__index__', '__float__', '__array__', '__del__', "
        "'__class_getitem__']:\n"
        " setattr(A, hook, mark(hook))\n");
    EXPECT_THAT(methods("__main__.A"), ElementsAre("visible"));
    askEverything("__main__.A", "a");
    run("del A.__del__");
}

TEST_F(HostileClasses, DescriptorsAreNotAsked) {
    run("class Descriptor: pass\n"
        "descriptor = Descriptor()\n"
        "for hook in ['__get__', '__set__', '__getattribute__', '__eq__', '__hash__', '__call__', '__bool__']:\n"
        " setattr(Descriptor, hook, mark(hook))\n"
        "class A:\n def visible(self): pass\n"
        "type.__setattr__(A, 'thing', descriptor)\n"
        "a = A()");
    EXPECT_THAT(methods("__main__.A"), ElementsAre("visible"));
    EXPECT_THAT(properties("__main__.A"), ElementsAre("thing"));
    askEverything("__main__.A", "a");
}

TEST_F(HostileClasses, TheListingHookOfAClassIsNotAsked) {
    run("class A:\n def visible(self): pass\n __dir__ = mark('__dir__')\na = A()");
    askEverything("__main__.A", "a");
}

TEST_F(HostileClasses, AClassThatLiesAboutItsTypeIsWhatItIs) {
    run("class A:\n def visible(self): pass\n @property\n def __class__(self): return int\na = A()");
    const qxUniqueArray held = value("a");
    EXPECT_STREQ(omGetCOSClassID(held.get()).c_str(), "__main__.A");
    EXPECT_TRUE(qxIsA(held.get(), "__main__.A"));
    EXPECT_FALSE(qxIsA(held.get(), "builtins.int"));
}

TEST_F(HostileClasses, ForeignKeysAreNotCompared) {
    run("class Key(str):\n"
        " def __hash__(self): return str.__hash__(self)\n"
        " def __eq__(self, other): trace.append('eq'); return False\n"
        "class Number:\n"
        " def __init__(self, hash): self.hash = hash\n"
        " def __hash__(self): return self.hash\n"
        " def __eq__(self, other): trace.append('eq'); return False\n"
        "names = ['visible', '__annotations__', '__dataclass_fields__', '__fields__', '__module__', '__getattr__',"
        " '__dir__', '_member_map_', '__getattribute__', 'x']\n"
        "space = {Number(hash(name)): 1 for name in names}\n"
        "space['__module__'] = '__main__'\n"
        "space['visible'] = lambda self: 0\n"
        "space['x'] = 1\n"
        "trace.clear()\n"
        "A = type('A', (), {})\n"
        "import gc\n"
        "[d] = [d for d in gc.get_referents(A.__dict__) if type(d) is dict]\n"
        "def poison(d, names):\n"
        " for name in names: d[Number(hash(name))] = 1\n"
        "poison(d, ['visible', '__annotations__', '__fields__', '__getattr__', '__dir__', 'x'])\n"
        "d['visible'] = lambda self: 0\n"
        "d['x'] = 1\n"
        "trace.clear()\n"
        "a = A()\n"
        "A.__module__\n"
        "trace.clear()\n");
    EXPECT_THAT(methods("__main__.A"), ElementsAre("visible"));
    EXPECT_THAT(properties("__main__.A"), ElementsAre("x"));
    const python_host::Ref type = eval("A");
    EXPECT_FALSE(python_host::stampOf(python_host::asType(type.get())));
    askEverything("__main__.A", "a");
}

TEST_F(HostileClasses, SubclassesOfStrAreNoNames) {
    run("class Key(str): pass\nA = type('A', (), {'plain': 1})\nimport gc\n"
        "[d] = [d for d in gc.get_referents(A.__dict__) if type(d) is dict]\n"
        "d[Key('other')] = 1\nA.__module__ = '__main__'");
    EXPECT_THAT(properties("__main__.A"), ElementsAre("plain"));
}

TEST_F(HostileClasses, ACustomResolutionOrderIsFollowedAndNotCached) {
    run("class Stranger:\n def s(self): pass\n"
        "class Meta(type):\n def mro(cls): return [cls, Stranger, object]\n"
        "class A(metaclass=Meta):\n def visible(self): pass");
    EXPECT_THAT(methods("__main__.A"), ElementsAre("visible", "s"));
    run("Stranger.t = lambda self: 0");
    EXPECT_THAT(methods("__main__.A"), ElementsAre("visible", "s", "t"));
}

}  // namespace
