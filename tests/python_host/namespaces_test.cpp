#include "contextdata/introspection.h"
#include "tests/python_host/session.h"
#include "tests/support/temporary_folder.h"

#include <filesystem>
#include <fstream>

namespace {

using namespace session;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsSupersetOf;
using ::testing::Not;

class Namespaces : public PythonTest {
protected:
    static zelk::COSNamespace* space(const std::string& name) {
        return zelk::cosiToNamespace(zelk::COSPackage::getNamespaceInterface(id(name)).get());
    }
    static Names classes(const std::string& name) {
        return walk(space(name)->getClasses(), [](zelk::COSInterface* n) { return zelk::cosiToClass(n)->getName(); });
    }
    static Names functions(const std::string& name) {
        return walk(space(name)->getFunctions(),
                    [](zelk::COSInterface* n) { return zelk::cosiToMethod(n)->getName(); });
    }
    static Names inner(const std::string& name) {
        return walk(space(name)->getNamespaces(),
                    [](zelk::COSInterface* n) { return zelk::cosiToNamespace(n)->getName(); });
    }
};

TEST_F(Namespaces, AreLoadedModules) {
    run("import numpy, os");
    EXPECT_TRUE(ZELKIntrospection::isZELKNamespace(u"numpy.linalg"));
    EXPECT_TRUE(ZELKIntrospection::isZELKNamespace(u"os.path"));
    EXPECT_TRUE(ZELKIntrospection::isZELKNamespace(u"__main__"));
    EXPECT_TRUE(ZELKIntrospection::isZELKNamespace(u"__main__.numpy"));
    EXPECT_FALSE(ZELKIntrospection::isZELKNamespace(u"no_such_module"));
    EXPECT_FALSE(ZELKIntrospection::isZELKNamespace(u"numpy.ndarray"));
    EXPECT_FALSE(ZELKIntrospection::isZELKNamespace(u""));
}

TEST_F(Namespaces, AreNeverImported) {
    EXPECT_TRUE(ZELKIntrospection::isZELKNamespace(u"this"));
    EXPECT_THAT(classes("this"), ::testing::IsEmpty());
    EXPECT_THAT(functions("this"), ::testing::IsEmpty());
    EXPECT_THAT(inner("this"), ::testing::IsEmpty());
    EXPECT_EQ(evalText("repr('this' in __import__('sys').modules)"), "False");
}

TEST_F(Namespaces, OfUnloadedPackagesHoldWhatStandsInTheirFolders) {
    const TemporaryFolder disk;
    for (const char* file :
         {"cdouter/__init__.py", "cdouter/leaf.py", "cdouter/deep/__init__.py",
          "cdouter/deep/er.cpython-311-x86_64-linux-gnu.so", "cdouter/plain/file.py", "cdsingle.py"}) {
        disk.file(file);
    }
    run("import sys\nsys.path.insert(0, '" + disk.path().string() + "')");
    EXPECT_THAT(inner("cdouter"), ElementsAre("cdouter.deep", "cdouter.leaf"));
    EXPECT_THAT(inner("cdouter.deep"), ElementsAre("cdouter.deep.er"));
    EXPECT_THAT(inner("cdsingle"), ::testing::IsEmpty());
    for (const char16_t* name : {u"cdouter.plain", u"cdouter.plain.file", u"cdouter.none", u"cdsingle.x", u"cdouter.",
                                 u".cdouter", u"cdouter..deep"}) {
        EXPECT_FALSE(ZELKIntrospection::isZELKNamespace(name));
    }
    run("sys.path.pop(0)");
    EXPECT_FALSE(ZELKIntrospection::isZELKNamespace(u"cdouter"));
}

TEST_F(Namespaces, TheFirstFolderOfTheSearchPathThatHasAModuleDecides) {
    const TemporaryFolder disk;
    for (const char* file : {"one/cdtwice.py", "two/cdtwice/__init__.py", "two/cdtwice/inner.py"}) {
        disk.file(file);
    }
    run("import sys\nsaved = sys.path\nsys.path = ['" + disk.path("one").string() + "', '" + disk.path("two").string() +
        "']");
    EXPECT_THAT(inner("cdtwice"), ::testing::IsEmpty());
    run("sys.path.reverse()");
    EXPECT_THAT(inner("cdtwice"), ElementsAre("cdtwice.inner"));
    run("sys.path = saved");
}

TEST_F(Namespaces, AnEntryThatIsNoModuleHidesTheOneOnDisk) {
    run("import sys\nsys.modules['this'] = None");
    EXPECT_FALSE(ZELKIntrospection::isZELKNamespace(u"this"));
    run("del sys.modules['this']");
}

TEST_F(Namespaces, ModulesCompiledIntoTheInterpreterNeedNoFile) {
    run("import sys\nsaved = sys.path, sys.modules.pop('_sha1', None)\nsys.path = []");
    EXPECT_EQ(evalText("repr('_symtable' in sys.builtin_module_names)"), "True");
    EXPECT_TRUE(ZELKIntrospection::isZELKNamespace(u"_symtable"));
    EXPECT_FALSE(ZELKIntrospection::isZELKNamespace(u"_symtable.inner"));
    run("sys.path = saved");
}

TEST_F(Namespaces, ListWhatTheModuleBinds) {
    run("import math\n"
        "from collections import OrderedDict as Ordered\n"
        "class C: pass\nclass _H: pass\n"
        "def f(): pass\ndef _g(): pass\n"
        "import functools\npartial = functools.partial(f)\ndel functools\n"
        "variable = 1");
    EXPECT_THAT(classes("__main__"), IsSupersetOf({"__main__.Ordered", "__main__.C", "__main__._H"}));
    EXPECT_THAT(functions("__main__"), ElementsAre("f", "_g", "partial"));
    EXPECT_THAT(inner("__main__"), ElementsAre("__main__.math"));
}

TEST_F(Namespaces, GiveClassesTheNameByWhichTheyAreBound) {
    run("from collections import OrderedDict as Ordered\nfrom numbers import Number as _Number");
    const zelk::COSIteratorPtr found = space("__main__")->getClasses();
    bool seen = false;
    while (found->hasMoreElements()) {
        const zelk::COSInterfacePtr node = found->nextElement();
        zelk::COSClass* cls = zelk::cosiToClass(node.get());
        if (std::string(cls->getName()) == "__main__.Ordered") {
            seen = true;
            EXPECT_STREQ(cls->getID().c_str(), "collections.OrderedDict");
            EXPECT_FALSE(cls->isHidden());
            EXPECT_EQ(zelk::COSClass::getClass(cls->getID()), classOf("__main__.Ordered"));
        }
        if (std::string(cls->getName()) == "__main__._Number") {
            EXPECT_TRUE(cls->isHidden());
        }
    }
    EXPECT_TRUE(seen);
}

TEST_F(Namespaces, HideFunctionsByTheirNames) {
    run("def f(): pass\ndef _g(): pass\ndef __h__(): pass");
    const zelk::COSIteratorPtr found = space("__main__")->getFunctions();
    const auto next = [&] { return found->nextElement(); };
    const zelk::COSInterfacePtr f = next();
    const zelk::COSInterfacePtr g = next();
    const zelk::COSInterfacePtr h = next();
    EXPECT_EQ(zelk::cosiToMethod(f.get())->getAccess(), 0);
    EXPECT_TRUE(zelk::cosiToMethod(f.get())->isListable());
    EXPECT_EQ(zelk::cosiToMethod(g.get())->getAccess(), 1);
    EXPECT_FALSE(zelk::cosiToMethod(h.get())->isListable());
    EXPECT_EQ(zelk::cosiClassOfMember(f.get()), nullptr);
}

TEST_F(Namespaces, SeeChangesAtOnce) {
    run("def f(): pass");
    EXPECT_THAT(functions("__main__"), ElementsAre("f"));
    run("def g(): pass");
    EXPECT_THAT(functions("__main__"), ElementsAre("f", "g"));
    run("f = 1");
    EXPECT_THAT(functions("__main__"), ElementsAre("g"));
}

TEST_F(Namespaces, OfLibrariesHoldUniversalAndBuiltInFunctions) {
    run("import numpy, math");
    EXPECT_THAT(functions("numpy"), IsSupersetOf({"add", "mean", "dot", "array"}));
    EXPECT_THAT(functions("math"), Contains("sin"));
    EXPECT_THAT(classes("numpy"), Contains("numpy.ndarray"));
    EXPECT_THAT(inner("numpy"), IsSupersetOf({"numpy.linalg", "numpy.random", "numpy.fft"}));
}

TEST_F(Namespaces, OfPackagesHoldSubmodulesThatAreNotLoaded) {
    const auto folder = ownFolder();
    std::filesystem::create_directories(folder / "cdpackage" / "deeper");
    std::filesystem::create_directories(folder / "cdpackage" / "no_package");
    for (const char* file :
         {"__init__.py", "quiet.py", "_inner.py", "not-a-name.py", "text.txt", "deeper/__init__.py"}) {
        std::ofstream(folder / "cdpackage" / file) << "import sys; sys.modules['__main__'].trace.append(__name__)\n";
    }
    std::ofstream(folder / "cdpackage" / "__init__.py") << "\n";
    run("import sys\nsys.path.insert(0, '" + folder.string() + "')\nimport cdpackage\nsys.path.pop(0)");
    EXPECT_THAT(inner("cdpackage"), ElementsAre("cdpackage._inner", "cdpackage.deeper", "cdpackage.quiet"));
    EXPECT_THAT(inner("cdpackage.quiet"), ::testing::IsEmpty());
    EXPECT_EQ(evalText("repr('cdpackage.quiet' in sys.modules)"), "False");
    std::filesystem::remove_all(folder);
}

TEST_F(Namespaces, DoNotAskTheModule) {
    run("import sys, types\n"
        "class Module(types.ModuleType):\n"
        " def __getattribute__(self, name): trace.append(name); return object.__getattribute__(self, name)\n"
        " def __dir__(self): trace.append('dir'); return []\n"
        "module = Module('hostile')\n"
        "object.__getattribute__(module, '__dict__').update(\n"
        " f=lambda: 0, __getattr__=lambda name: trace.append(name), __dir__=lambda: trace.append('dir'), C=int)\n"
        "sys.modules['hostile'] = module\ntrace.clear()");
    EXPECT_THAT(functions("hostile"), Contains("f"));
    EXPECT_THAT(classes("hostile"), ElementsAre("hostile.C"));
    EXPECT_THAT(inner("hostile"), ::testing::IsEmpty());
    call("properties", "module");
    run("del sys.modules['hostile']");
    EXPECT_FALSE(ZELKIntrospection::isZELKNamespace(u"hostile"));
}

TEST_F(Namespaces, PassOverEntriesThatAreNoModules) {
    run("import sys\nsys.modules['strange'] = 3\nsys.modules['strange.sub'] = None");
    EXPECT_FALSE(ZELKIntrospection::isZELKNamespace(u"strange"));
    EXPECT_EQ(classOf("strange.sub.C"), nullptr);
    run("del sys.modules['strange'], sys.modules['strange.sub']");
}

}  // namespace
