// What the records of properties say: who can assign them, where values come from, what the author attached.
#include <optional>

#include "hosts/python/python_host.h"
#include "tests/python_host/session.h"

namespace {

using namespace session;

class PropertyRecords : public PythonTest {
protected:
    static bool isReadOnly(const std::string& className, const std::string& name) {
        const zelk::COSPropInfo* found = property(className, name);
        EXPECT_NE(found, nullptr) << name;
        return found != nullptr && found->isReadOnly();
    }

    static bool hasCustomGetter(const std::string& className, const std::string& name) {
        const zelk::COSPropInfo* found = property(className, name);
        EXPECT_NE(found, nullptr) << name;
        return found != nullptr && found->getExtended()->hasCustomGetter();
    }

    /// Nothing when it cannot be found out.
    static std::optional<bool> isStored(const std::string& className, const std::string& name) {
        const zelk::COSPropInfo* found = property(className, name);
        EXPECT_NE(found, nullptr) << name;
        if (found == nullptr) {
            return std::nullopt;
        }
        bool stored = false;
        bool untouched = true;
        if (!found->getExtended()->queryIsStored(stored)) {
            found->getExtended()->queryIsStored(untouched);
            EXPECT_TRUE(!stored && untouched) << "an answer was left behind for " << name;
            return std::nullopt;
        }
        return stored;
    }

    static zelk::COSAttributePtr attribute(const std::string& className, const std::string& name,
                                           const std::string& attributeName) {
        const zelk::COSPropInfo* found = property(className, name);
        EXPECT_NE(found, nullptr) << name;
        return found == nullptr ? zelk::COSAttributePtr() : found->findAttribute(id(attributeName));
    }

    static std::string typeOf(const zelk::COSAttributePtr& attribute) {
        const zelk::COSDataTypePtr type = attribute ? attribute->getDataType() : zelk::COSDataTypePtr();
        return type ? type->getID().c_str() : "";
    }

    static PyObject* valueOf(const zelk::COSAttributePtr& attribute) {
        const qxUniqueArray value = attribute->getValue(zelk::COSGetPublicClient());
        return value ? python_host::unwrap(value.get()) : nullptr;
    }

    static bool libraryIsMissing(const char* name) {
        PyObject* module = PyImport_ImportModule(name);
        Py_XDECREF(module);
        PyErr_Clear();
        return module == nullptr;
    }
};

TEST_F(PropertyRecords, APropertyWithoutSetterIsReadOnly) {
    run("class A:\n"
        " @property\n def r(self): pass\n"
        " @property\n def w(self): pass\n"
        " @w.setter\n def w(self, v): pass\n"
        " x = 1");
    EXPECT_TRUE(isReadOnly("__main__.A", "r"));
    EXPECT_FALSE(isReadOnly("__main__.A", "w"));
    EXPECT_FALSE(isReadOnly("__main__.A", "x"));
}

TEST_F(PropertyRecords, TheSetterIsReadWhereThePropertyKeepsIt) {
    run("class Lying(property):\n"
        " @property\n def fset(self): trace.append('fset'); return None\n"
        " def __getattribute__(self, name): trace.append(name)\n"
        "class A: pass\n"
        "A.p = Lying(lambda self: 1, lambda self, value: None)\n"
        "trace.clear()");
    EXPECT_FALSE(isReadOnly("__main__.A", "p"));
}

TEST_F(PropertyRecords, CompiledMembersAndGettersWithoutSetterAreReadOnly) {
    run("class A:\n __slots__ = ('slot',)");
    EXPECT_TRUE(isReadOnly("builtins.complex", "real"));
    EXPECT_TRUE(isReadOnly("builtins.int", "real"));
    EXPECT_FALSE(isReadOnly("builtins.BaseException", "args"));
    EXPECT_FALSE(isReadOnly("__main__.A", "slot"));
}

TEST_F(PropertyRecords, ConstantsAreReadOnly) {
    run("from typing import Final\nclass A:\n LIMIT = 3\n a: Final = []\n b: Final[int]\n c: int = 3");
    EXPECT_TRUE(isReadOnly("__main__.A", "LIMIT"));
    EXPECT_TRUE(isReadOnly("__main__.A", "a"));
    EXPECT_TRUE(isReadOnly("__main__.A", "b"));
    EXPECT_FALSE(isReadOnly("__main__.A", "c"));
}

TEST_F(PropertyRecords, FieldsOfAFrozenDataclassAreReadOnly) {
    run("from dataclasses import dataclass, field\n"
        "from typing import ClassVar\n"
        "@dataclass(frozen=True)\nclass Frozen:\n"
        " x: int = 3\n"
        " y: list = field(default_factory=list)\n"
        " shared: ClassVar[list] = []\n"
        " plain = []\n"
        "@dataclass(frozen=True, slots=True)\nclass Slotted:\n z: int\n"
        "@dataclass\nclass Open:\n x: int = 3\n"
        "class Derived(Frozen): pass");
    EXPECT_TRUE(isReadOnly("__main__.Frozen", "x"));
    EXPECT_TRUE(isReadOnly("__main__.Frozen", "y"));
    EXPECT_TRUE(isReadOnly("__main__.Derived", "x"));
    EXPECT_TRUE(isReadOnly("__main__.Slotted", "z"));
    EXPECT_FALSE(isReadOnly("__main__.Frozen", "shared"));
    EXPECT_FALSE(isReadOnly("__main__.Frozen", "plain"));
    EXPECT_FALSE(isReadOnly("__main__.Open", "x"));
}

TEST_F(PropertyRecords, OnlyTheDecoratorsOwnRecordFreezesAClass) {
    run("class Parameters:\n"
        " @property\n def frozen(self): trace.append('frozen'); return True\n"
        " def __getattribute__(self, name): trace.append(name)\n"
        "from dataclasses import dataclass\n"
        "@dataclass\nclass A:\n x: int = 3\n"
        "A.__dataclass_params__ = Parameters()\n"
        "class B:\n x = 3\n __dataclass_params__ = 1\n __dataclass_fields__ = {'x': 2}\n"
        "trace.clear()");
    EXPECT_FALSE(isReadOnly("__main__.A", "x"));
    EXPECT_FALSE(isReadOnly("__main__.B", "x"));
}

TEST_F(PropertyRecords, FreezingInPlaceIsSeenByTheNextCall) {
    run("from dataclasses import dataclass\n@dataclass\nclass A:\n x: int = 3\n _y: int = 4");
    const zelk::COSPropInfo* x = property("__main__.A", "x");
    const zelk::COSPropInfo* y = property("__main__.A", "_y");
    EXPECT_FALSE(x->isReadOnly());
    EXPECT_EQ(y->getSetAccessList().size(), 1U);
    run("A.__dataclass_params__.frozen = True");
    EXPECT_TRUE(x->isReadOnly());
    EXPECT_TRUE(y->getSetAccessList().empty());
}

TEST_F(PropertyRecords, PropertiesRunTheirAuthorsCode) {
    run("import functools\n"
        "class A:\n"
        " @property\n def p(self): trace.append('p')\n"
        " @functools.cached_property\n def c(self): trace.append('c')\n"
        " @classmethod\n @property\n def k(cls): trace.append('k')\n"
        "A.trace = None\ntrace.clear()");
    EXPECT_TRUE(hasCustomGetter("__main__.A", "p"));
    EXPECT_TRUE(hasCustomGetter("__main__.A", "c"));
    EXPECT_TRUE(hasCustomGetter("__main__.A", "k"));
    EXPECT_EQ(isStored("__main__.A", "p"), false);
    EXPECT_EQ(isStored("__main__.A", "c"), true);
    EXPECT_EQ(isStored("__main__.A", "k"), false);
}

TEST_F(PropertyRecords, ValuesSlotsAndFieldsAreStored) {
    run("from dataclasses import dataclass, field\n"
        "@dataclass\nclass A:\n"
        " x: int = 3\n"
        " y: list = field(default_factory=list)\n"
        " z: 'no.such.Type' = None\n"
        " plain = []\n"
        " class Inner: pass\n"
        "class Slotted:\n __slots__ = ('slot',)\n"
        "from collections import namedtuple\n"
        "Point = namedtuple('Point', 'x')\nPoint.__module__ = '__main__'");
    for (const char* name : {"x", "y", "z", "plain", "Inner"}) {
        EXPECT_FALSE(hasCustomGetter("__main__.A", name)) << name;
        EXPECT_EQ(isStored("__main__.A", name), true) << name;
    }
    EXPECT_FALSE(hasCustomGetter("__main__.Slotted", "slot"));
    EXPECT_EQ(isStored("__main__.Slotted", "slot"), true);
    EXPECT_EQ(isStored("builtins.complex", "real"), true);
    EXPECT_FALSE(hasCustomGetter("__main__.Point", "x"));
    EXPECT_EQ(isStored("__main__.Point", "x"), true);
}

TEST_F(PropertyRecords, OfDescriptorsItCannotBeToldWhatTheyStore) {
    run("class Reader:\n"
        " def __get__(self, object, owner=None): trace.append('get')\n"
        "class Both(Reader):\n"
        " def __set__(self, object, value): trace.append('set')\n"
        "class Writer:\n"
        " def __set__(self, object, value): trace.append('set')\n"
        "class A:\n reader = Reader()\n both = Both()\n writer = Writer()");
    for (const char* name : {"reader", "both"}) {
        EXPECT_TRUE(hasCustomGetter("__main__.A", name)) << name;
        EXPECT_EQ(isStored("__main__.A", name), std::nullopt) << name;
    }
    EXPECT_FALSE(hasCustomGetter("__main__.A", "writer"));
    EXPECT_EQ(isStored("__main__.A", "writer"), std::nullopt);
}

TEST_F(PropertyRecords, AClassWhoseMetaclassMakesItADescriptorIsOne) {
    run("class Meta(type):\n def __get__(cls, object, owner=None): trace.append('get')\n"
        "class A:\n class Inner(metaclass=Meta): pass\n class Plain: pass");
    EXPECT_TRUE(hasCustomGetter("__main__.A", "Inner"));
    EXPECT_FALSE(hasCustomGetter("__main__.A", "Plain"));
}

TEST_F(PropertyRecords, ACompiledGetterIsTrustedOnlyWhenItIsKnown) {
    run("import io, numpy\nclass Own(numpy.ndarray): pass");
    EXPECT_FALSE(hasCustomGetter("builtins.int", "real"));
    EXPECT_FALSE(hasCustomGetter("numpy.ndarray", "shape"));
    EXPECT_TRUE(hasCustomGetter("__main__.Own", "T"));
    EXPECT_TRUE(hasCustomGetter("io.BufferedReader", "closed"));
    EXPECT_EQ(isStored("builtins.int", "real"), std::nullopt);
    EXPECT_EQ(isStored("io.BufferedReader", "closed"), std::nullopt);
}

TEST_F(PropertyRecords, TraitsAreStoredAndOnlyTheLibrarysOwnRunNoOtherCode) {
    if (libraryIsMissing("traitlets")) {
        GTEST_SKIP() << "traitlets is not installed";
    }
    run("import traitlets\n"
        "class Even(traitlets.Int):\n def get(self, obj, cls=None): trace.append('get')\n"
        "class A(traitlets.HasTraits):\n x = traitlets.Int(1)\n y = Even()\n"
        "Int = type('Int', (traitlets.Int,), {})\nA.add_class_trait = None\n"
        "class B(traitlets.HasTraits):\n z = Int()\n"
        "trace.clear()");
    EXPECT_FALSE(hasCustomGetter("__main__.A", "x"));
    EXPECT_TRUE(hasCustomGetter("__main__.A", "y"));
    EXPECT_TRUE(hasCustomGetter("__main__.B", "z"));
    EXPECT_EQ(isStored("__main__.A", "x"), true);
    EXPECT_EQ(isStored("__main__.A", "y"), true);
}

TEST_F(PropertyRecords, TheMetadataOfAFieldIsItsAttributes) {
    run("from dataclasses import dataclass, field\n"
        "@dataclass\nclass A:\n"
        " x: int = field(default=1, metadata={'yes': True, 'count': 3, 'share': 0.5, 'unit': 'm', 'list': []})\n"
        " y: list = field(default_factory=list, metadata={'no': False})\n"
        " z: int = 3");
    EXPECT_EQ(typeOf(attribute("__main__.A", "x", "yes")), "logical scalar");
    EXPECT_EQ(valueOf(attribute("__main__.A", "x", "yes")), Py_True);
    EXPECT_EQ(typeOf(attribute("__main__.A", "y", "no")), "logical scalar");
    EXPECT_EQ(valueOf(attribute("__main__.A", "y", "no")), Py_False);
    EXPECT_EQ(typeOf(attribute("__main__.A", "x", "count")), "builtins.int");
    EXPECT_EQ(PyLong_AsLong(valueOf(attribute("__main__.A", "x", "count"))), 3);
    EXPECT_EQ(typeOf(attribute("__main__.A", "x", "share")), "builtins.float");
    EXPECT_EQ(typeOf(attribute("__main__.A", "x", "unit")), "builtins.str");
    EXPECT_STREQ(PyUnicode_AsUTF8(valueOf(attribute("__main__.A", "x", "unit"))), "m");
    EXPECT_FALSE(attribute("__main__.A", "x", "other"));
    EXPECT_FALSE(attribute("__main__.A", "z", "yes"));
    EXPECT_FALSE(property("__main__.A", "x")->findAttribute({}));
}

TEST_F(PropertyRecords, OfAnUnknownKindOfAttributeOnlyItsPresenceIsKnown) {
    run("from dataclasses import dataclass, field\n"
        "class Text(str): pass\n"
        "@dataclass\nclass A:\n"
        " x: int = field(default=1, metadata={'list': [], 'nothing': None, 'text': Text('t')})");
    for (const char* name : {"list", "nothing", "text"}) {
        const zelk::COSAttributePtr found = attribute("__main__.A", "x", name);
        ASSERT_TRUE(found) << name;
        EXPECT_FALSE(found->getDataType()) << name;
        EXPECT_FALSE(found->getValue(zelk::COSGetPublicClient())) << name;
    }
}

TEST_F(PropertyRecords, MetadataThatAnAuthorChangesIsSeenByTheNextCall) {
    run("from dataclasses import dataclass, field\n"
        "shared = {}\n"
        "@dataclass\nclass A:\n x: int = field(default=1, metadata=shared)");
    const zelk::COSPropInfo* x = property("__main__.A", "x");
    EXPECT_FALSE(x->findAttribute(id("flag")));
    run("shared['flag'] = True");
    ASSERT_TRUE(x->findAttribute(id("flag")));
    EXPECT_EQ(x, property("__main__.A", "x"));
    const zelk::COSAttributePtr kept = x->findAttribute(id("flag"));
    run("shared.clear()");
    EXPECT_FALSE(x->findAttribute(id("flag")));
    EXPECT_EQ(valueOf(kept), Py_True);
}

TEST_F(PropertyRecords, MappingsOfAUsersMakingAreNotAsked) {
    run("from dataclasses import dataclass, field\n"
        "import types, collections\n"
        "class Mapping(dict):\n"
        " def __getitem__(self, key): trace.append(key); return True\n"
        " def get(self, key, default=None): trace.append(key); return True\n"
        " def __contains__(self, key): trace.append(key); return True\n"
        "class Any:\n"
        " def __getitem__(self, key): trace.append(key); return True\n"
        " def __len__(self): return 1\n"
        " def keys(self): trace.append('keys'); return ['flag']\n"
        "class Key:\n"
        " def __hash__(self): return hash('flag')\n"
        " def __eq__(self, other): trace.append('eq'); return True\n"
        "@dataclass\nclass A:\n"
        " derived: int = field(default=1, metadata=Mapping(flag=True))\n"
        " foreign: int = field(default=1, metadata=Any())\n"
        " chained: int = field(default=1, metadata=collections.ChainMap({'flag': True}))\n"
        " nested: int = field(default=1, metadata=types.MappingProxyType({'flag': True}))\n"
        " keyed: int = field(default=1, metadata={Key(): True})\n"
        "A.__dataclass_fields__['lying'] = Mapping(metadata={'flag': True})\n"
        "A.lying = 1\n"
        "trace.clear()");
    for (const char* name : {"derived", "foreign", "chained", "nested", "keyed", "lying"}) {
        EXPECT_FALSE(attribute("__main__.A", name, "flag")) << name;
    }
    run("A.__dataclass_fields__ = Mapping(derived=A.__dataclass_fields__['keyed'])\ntrace.clear()");
    EXPECT_FALSE(attribute("__main__.A", "derived", "flag"));
}

TEST_F(PropertyRecords, WhatATraitIsTaggedWithIsItsAttributes) {
    if (libraryIsMissing("traitlets")) {
        GTEST_SKIP() << "traitlets is not installed";
    }
    run("import traitlets\n"
        "class Lying(traitlets.Int):\n def __getattribute__(self, name):\n"
        "  trace.append(name); return super().__getattribute__(name)\n"
        "class Mapping(dict):\n def __getitem__(self, key): trace.append(key); return True\n"
        "class A(traitlets.HasTraits):\n"
        " x = traitlets.Int(1).tag(sync=True)\n"
        " y = Lying(1).tag(sync=False)\n"
        " z = traitlets.Int(1)\n"
        "vars(vars(A)['z'])['metadata'] = Mapping(sync=True)\n"
        "class Pretender:\n def __init__(self): self.metadata = {'sync': True}\n"
        "class B:\n x = Pretender()\n"
        "trace.clear()");
    EXPECT_EQ(typeOf(attribute("__main__.A", "x", "sync")), "logical scalar");
    EXPECT_EQ(valueOf(attribute("__main__.A", "x", "sync")), Py_True);
    EXPECT_EQ(valueOf(attribute("__main__.A", "y", "sync")), Py_False);
    EXPECT_FALSE(attribute("__main__.A", "z", "sync"));
    EXPECT_FALSE(attribute("__main__.B", "x", "sync"));
}

TEST_F(PropertyRecords, AnswerForAClassThatDied) {
    run("from dataclasses import dataclass, field\n"
        "@dataclass(frozen=True)\nclass A:\n x: int = field(default=1, metadata={'flag': True})");
    const zelk::COSInterfacePtr node = classOf("__main__.A")->findProperty(id("x"));
    const zelk::COSPropInfo* x = zelk::cosiToProp(node.get());
    ASSERT_TRUE(x->isReadOnly());
    run("del A\nimport gc\ngc.collect()");
    ASSERT_EQ(classOf("__main__.A"), nullptr);
    EXPECT_FALSE(x->isReadOnly());
    EXPECT_FALSE(x->findAttribute(id("flag")));
    EXPECT_FALSE(x->getExtended()->hasCustomGetter());
}

TEST_F(PropertyRecords, ThePublicClientIsAlwaysTheSame) {
    EXPECT_EQ(&zelk::COSGetPublicClient(), &zelk::COSGetPublicClient());
}

}  // namespace
