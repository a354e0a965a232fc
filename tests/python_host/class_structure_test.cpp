// The superclasses of a class, and the words with which it and its members are declared.
#include "tests/python_host/session.h"

namespace {

using namespace session;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Not;

class ClassStructure : public PythonTest {
protected:
    static Names superclasses(const std::string& className) {
        const zelk::COSIDIteratorPtr walk = classOf(className)->getSuperclasses();
        Names names;
        while (walk && walk->hasMoreElements()) {
            names.emplace_back(walk->nextElement().c_str());
        }
        return names;
    }

    using Query = void (zelk::COSClass::*)(bool, std::vector<std::string>&) const;

    static Names ask(Query query, const std::string& className, bool includeHidden = false) {
        Names names{"left from before"};
        (classOf(className)->*query)(includeHidden, names);
        return names;
    }
    static Names classWords(const std::string& className, bool includeHidden = false) {
        return ask(&zelk::COSClass::getClassAttributeNames, className, includeHidden);
    }
    static Names propertyWords(const std::string& className) {
        return ask(&zelk::COSClass::getPropertyAttributeNames, className);
    }
    static Names methodWords(const std::string& className) {
        return ask(&zelk::COSClass::getMethodAttributeNames, className);
    }
    static Names eventWords(const std::string& className) {
        return ask(&zelk::COSClass::getEventAttributeNames, className);
    }
};

TEST_F(ClassStructure, SuperclassesStandInTheOrderOfTheirDeclaration) {
    run("class Root: pass\nclass Left(Root): pass\nclass Right(Root): pass\nclass Leaf(Right, Left): pass");
    EXPECT_THAT(superclasses("__main__.Leaf"), ElementsAre("__main__.Right", "__main__.Left"));
    EXPECT_THAT(superclasses("__main__.Left"), ElementsAre("__main__.Root"));
    EXPECT_THAT(superclasses("__main__.Right"), ElementsAre("__main__.Root"));
    EXPECT_THAT(superclasses("__main__.Root"), ElementsAre("builtins.object"));
    EXPECT_THAT(superclasses("builtins.object"), IsEmpty());
    EXPECT_THAT(superclasses("builtins.bool"), ElementsAre("builtins.int"));
}

TEST_F(ClassStructure, EachSuperclassNamesAClassObject) {
    run("def make():\n class Base: pass\n return Base\n"
        "class A(make(), make()): pass\n"
        "class Replaced: pass\nclass B(Replaced): pass\nclass Replaced: pass");
    for (const char* className : {"__main__.A", "__main__.B"}) {
        const zelk::COSIDIteratorPtr walk = classOf(className)->getSuperclasses();
        while (walk->hasMoreElements()) {
            const zelk::COSInternedID base = walk->nextElement();
            ASSERT_NE(zelk::COSClass::getClass(base), nullptr) << base.c_str();
            EXPECT_EQ(zelk::COSClass::getClass(base)->getID(), base);
            EXPECT_TRUE(classOf(className)->isSubclassOf(base)) << base.c_str();
        }
    }
}

TEST_F(ClassStructure, AWalkPastItsEndSaysSo) {
    run("class A: pass");
    const zelk::COSIDIteratorPtr walk = classOf("__main__.A")->getSuperclasses();
    walk->nextElement();
    EXPECT_FALSE(walk->hasMoreElements());
    EXPECT_THROW(walk->nextElement(), zelk::ENoElements);
}

TEST_F(ClassStructure, AWalkOutlastsAChangeOfTheBases) {
    run("def make(name): return type('Base', (), {name: 1})\n"
        "class Other: pass\n"
        "class A(make('x'), make('y')): pass");
    const zelk::COSIDIteratorPtr walk = classOf("__main__.A")->getSuperclasses();
    walk->nextElement();
    run("A.__bases__ = (Other,)\nimport gc\ngc.collect()");
    const zelk::COSInternedID second = walk->nextElement();
    ASSERT_NE(zelk::COSClass::getClass(second), nullptr) << "the class died under the walk";
    EXPECT_TRUE(zelk::COSClass::getClass(second)->findProperty(id("y")));
    EXPECT_THAT(superclasses("__main__.A"), ElementsAre("__main__.Other"));
}

TEST_F(ClassStructure, NodesOutlastAChangeOfTheBases) {
    run("class One:\n def f(self): pass\nclass Other:\n def g(self): pass\nclass A(One): pass");
    const zelk::COSInterfacePtr node = classOf("__main__.A")->findMethods(id("f"))->nextElement();
    run("A.__bases__ = (Other,)\ndel One\nimport gc\ngc.collect()");
    EXPECT_STREQ(zelk::cosiToMethod(node.get())->getName(), "f");
    EXPECT_NE(zelk::cosiClassOfMember(node.get()), nullptr);
    EXPECT_EQ(zelk::cosiClassOfMember(node.get())->getDefinition(false), nullptr);
    EXPECT_FALSE(zelk::cosiClassOfMember(node.get())->getSuperclasses());
    EXPECT_EQ(method("__main__.A", "f"), nullptr);
    EXPECT_NE(method("__main__.A", "g"), nullptr);
}

TEST_F(ClassStructure, TheRealBasesCount) {
    run("class Meta(type):\n"
        " __bases__ = property(lambda cls: trace.append('bases'))\n"
        " __base__ = property(lambda cls: trace.append('base'))\n"
        " __mro__ = property(lambda cls: trace.append('mro'))\n"
        " def __eq__(cls, other): trace.append('eq'); return True\n"
        " def __hash__(cls): trace.append('hash'); return 0\n"
        " def __subclasses__(cls): trace.append('subclasses')\n"
        "class Root(metaclass=Meta): pass\nclass A(Root): pass\n"
        "trace.clear()");
    EXPECT_THAT(superclasses("__main__.A"), ElementsAre("__main__.Root"));
}

TEST_F(ClassStructure, NoClassWithholdsItsMembers) {
    run("class _Internal: pass");
    EXPECT_FALSE(classOf("__main__._Internal")->withholdsOwnMembers());
    EXPECT_FALSE(classOf("builtins.object")->withholdsOwnMembers());
}

TEST_F(ClassStructure, AClassIsDeclaredWithAMetaclassAndWhatItsOwnHookTakes) {
    run("class Base:\n"
        " def __init_subclass__(cls, /, name, *others, key=1, _secret=2, **rest): trace.append('hook')\n"
        "class Derived(Base, name=1): pass\n"
        "trace.clear()");
    EXPECT_THAT(classWords("__main__.Base"), ElementsAre("metaclass", "name", "key"));
    EXPECT_THAT(classWords("__main__.Base", true), ElementsAre("metaclass", "name", "key", "_secret"));
    EXPECT_THAT(classWords("__main__.Derived"), ElementsAre("metaclass"));
    EXPECT_THAT(classWords("builtins.int"), ElementsAre("metaclass"));
}

TEST_F(ClassStructure, OnlyFunctionsAndClassMethodsAreReadForKeywords) {
    run("class Callable:\n"
        " def __call__(self, cls, key=1): pass\n"
        " def __get__(self, object, owner=None): trace.append('get'); return lambda **rest: None\n"
        "class A: __init_subclass__ = Callable()\n"
        "class B:\n @staticmethod\n def __init_subclass__(key=1): pass\n"
        "class C: pass\nC.__init_subclass__ = lambda cls, key=1: None\n"
        "class D:\n def __init_subclass__(*args, key=1): pass\n"
        "class E:\n def __init_subclass__(cls, positional, /, named): pass\n"
        "class F: __init_subclass__ = classmethod(Callable())\n"
        "class G: __init_subclass__ = None\n"
        "trace.clear()");
    EXPECT_THAT(classWords("__main__.A"), ElementsAre("metaclass"));
    EXPECT_THAT(classWords("__main__.B"), ElementsAre("metaclass"));
    EXPECT_THAT(classWords("__main__.C"), ElementsAre("metaclass", "key"));
    EXPECT_THAT(classWords("__main__.D"), ElementsAre("metaclass", "key"));
    EXPECT_THAT(classWords("__main__.E"), ElementsAre("metaclass", "named"));
    EXPECT_THAT(classWords("__main__.F"), ElementsAre("metaclass"));
    EXPECT_THAT(classWords("__main__.G"), ElementsAre("metaclass"));
}

TEST_F(ClassStructure, ADataclassDeclaresItsPropertiesAsFields) {
    run("from dataclasses import dataclass\n@dataclass\nclass Data:\n x: int = 1\nclass Derived(Data): pass");
    EXPECT_THAT(propertyWords("__main__.Data"), ElementsAre("property", "cached_property", "default", "default_factory",
                                                            "init", "repr", "hash", "compare", "metadata", "kw_only"));
    EXPECT_THAT(propertyWords("__main__.Derived"), ElementsAre("property", "cached_property"));
}

TEST_F(ClassStructure, MethodsMayBeAbstractWhereTheMetaclassKnowsOfIt) {
    run("import abc\n"
        "class Meta(abc.ABCMeta): pass\n"
        "class Plain: pass\nclass A(abc.ABC): pass\nclass B(metaclass=Meta): pass\nclass C(A): pass");
    EXPECT_THAT(methodWords("__main__.Plain"), ElementsAre("staticmethod", "classmethod"));
    for (const char* className : {"__main__.A", "__main__.B", "__main__.C"}) {
        EXPECT_THAT(methodWords(className), ElementsAre("staticmethod", "classmethod", "abstractmethod")) << className;
    }
}

TEST_F(ClassStructure, OnlyClassesWithTraitsDeclareHandlers) {
    run("class Plain: pass\ntry:\n import traitlets\nexcept ImportError:\n traitlets = None");
    EXPECT_THAT(eventWords("__main__.Plain"), IsEmpty());
    if (eval("traitlets").get() == Py_None) {
        GTEST_SKIP() << "traitlets is not installed";
    }
    run("class A(traitlets.HasTraits): pass");
    EXPECT_THAT(eventWords("__main__.A"), ElementsAre("observe", "default", "validate"));
}

TEST_F(ClassStructure, AClassThatDiedIsDeclaredWithNothing) {
    run("class A:\n def f(self): pass");
    zelk::COSClass* cls = classOf("__main__.A");
    const zelk::COSInterfacePtr keeper = cls->findMethods(id("f"))->nextElement();
    run("del A\nimport gc\ngc.collect()");
    ASSERT_EQ(cls->getDefinition(false), nullptr);
    for (const Query query : {&zelk::COSClass::getClassAttributeNames, &zelk::COSClass::getPropertyAttributeNames,
                              &zelk::COSClass::getMethodAttributeNames, &zelk::COSClass::getEventAttributeNames}) {
        Names names{"left from before"};
        (cls->*query)(true, names);
        EXPECT_THAT(names, IsEmpty());
    }
    EXPECT_FALSE(cls->getSuperclasses());
}

TEST_F(ClassStructure, OfAClassBoundInANamespaceIsThatOfTheClass) {
    run("import types, sys, dataclasses\n"
        "module = types.ModuleType('bound_classes')\n"
        "class Base:\n def __init_subclass__(cls, key=1): pass\n"
        "@dataclasses.dataclass\nclass A(Base):\n x: int = 1\n"
        "module.Alias = A\nmodule.Root = Base\nsys.modules['bound_classes'] = module");
    const zelk::COSInterfacePtr space = zelk::COSPackage::getNamespaceInterface(id("bound_classes"));
    const zelk::COSIteratorPtr classes = zelk::cosiToNamespace(space.get())->getClasses();
    const zelk::COSInterfacePtr alias = classes->nextElement();
    const zelk::COSInterfacePtr root = classes->nextElement();
    EXPECT_STREQ(zelk::cosiToClass(alias.get())->getName(), "bound_classes.Alias");
    EXPECT_STREQ(zelk::cosiToClass(alias.get())->getSuperclasses()->nextElement().c_str(), "__main__.Base");
    EXPECT_FALSE(zelk::cosiToClass(alias.get())->withholdsOwnMembers());
    Names names;
    zelk::cosiToClass(alias.get())->getPropertyAttributeNames(false, names);
    EXPECT_THAT(names, Contains("default_factory"));
    zelk::cosiToClass(root.get())->getClassAttributeNames(false, names);
    EXPECT_THAT(names, ElementsAre("metaclass", "key"));
    zelk::cosiToClass(root.get())->getMethodAttributeNames(false, names);
    EXPECT_THAT(names, Not(Contains("abstractmethod")));
    zelk::cosiToClass(root.get())->getEventAttributeNames(false, names);
    EXPECT_THAT(names, IsEmpty());
    run("del sys.modules['bound_classes']");
}

}  // namespace
