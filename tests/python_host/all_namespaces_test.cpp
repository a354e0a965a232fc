#include <algorithm>
#include <cctype>

#include "contextdata/namespace_names.h"
#include "host/evaluation.h"
#include "host/exceptions.h"
#include "host/i18n.h"
#include "host/text.h"
#include "hosts/python/python_host.h"
#include "tests/python_host/session.h"
#include "tests/support/temporary_folder.h"

namespace {

using namespace session;
using ::testing::AllOf;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsSupersetOf;
using ::testing::Not;

std::string textOf(const qxArray* value) { return fl::i18n::to_string(getScalarText(value)); }

/// What the library gives to a front end.
Names allNamespaces() {
    const qxUniqueArray cell = ZELKContextData::getZELKAllNamespaces();
    Names names;
    for (std::size_t index = 0; index < qxGetNumberOfElements(cell.get()); ++index) {
        names.push_back(textOf(qxGetCell(cell.get(), index)));
    }
    return names;
}

class AllNamespaces : public PythonTest {
protected:
    void SetUp() override {
        PythonTest::SetUp();
        run("import sys, os, numpy.linalg\nsaved = sys.path\nsys.path = []");
    }
    void TearDown() override {
        run("sys.path = saved");
        PythonTest::TearDown();
    }
    TemporaryFolder disk;
};

TEST_F(AllNamespaces, AreTheLoadedModulesInOrderEachOnce) {
    const Names names = allNamespaces();
    EXPECT_THAT(names, IsSupersetOf({"numpy", "numpy.linalg", "os", "os.path", "sys", "builtins"}));
    EXPECT_TRUE(std::is_sorted(names.begin(), names.end()));
    EXPECT_EQ(std::adjacent_find(names.begin(), names.end()), names.end());
}

/// The names with which all namespaces begin, of those that begin with a letter in either case.
Names outermostOf(const Names& namespaces, char letter) {
    Names outermost;
    for (const std::string& name : namespaces) {
        const bool isWanted = letter == '\0' || std::tolower(static_cast<unsigned char>(name.front())) == letter;
        const std::string first = name.substr(0, name.find('.'));
        if (isWanted && (outermost.empty() || outermost.back() != first)) {
            outermost.push_back(first);
        }
    }
    std::sort(outermost.begin(), outermost.end());
    outermost.erase(std::unique(outermost.begin(), outermost.end()), outermost.end());
    return outermost;
}

TEST_F(AllNamespaces, OutermostOnesAreTheirFirstPartsWhateverLetterIsTyped) {
    disk.file("cdquiet.py");
    disk.file("Cdloud/__init__.py");
    disk.file("cdfolder/nothing.py");
    run("sys.path = saved + ['" + disk.path().string() +
        "']\nimport types\n"
        "sys.modules['alone.inner'] = types.ModuleType('alone.inner')");
    const Names namespaces = allNamespaces();
    EXPECT_EQ(python_host::outermostModules(""), outermostOf(namespaces, '\0'));
    EXPECT_EQ(python_host::outermostModules("\xC3\xA4"), outermostOf(namespaces, '\0'));
    for (const char letter : std::string("_abcdefghijklmnopqrstuvwxyz")) {
        EXPECT_EQ(python_host::outermostModules(std::string(1, letter) + "x"), outermostOf(namespaces, letter));
    }
    EXPECT_EQ(python_host::outermostModules("C"), outermostOf(namespaces, 'c'));
    EXPECT_THAT(outermostOf(namespaces, 'c'), AllOf(IsSupersetOf({"cdquiet", "Cdloud"}), Not(Contains("cdfolder"))));
    EXPECT_THAT(outermostOf(namespaces, 'a'), Contains("alone"));
    run("del sys.modules['alone.inner']");
}

TEST_F(AllNamespaces, ModulesThatAreNotImportedCountAndStayUnimported) {
    disk.file("cdquiet.py");
    disk.file("cdpackage/__init__.py");
    disk.file("cdpackage/inner.py");
    disk.file("cdextension.cpython-311-x86_64-linux-gnu.so");
    disk.file("cdfolder/nothing.py");
    disk.file("not-a-name.py");
    disk.file("cdtext.txt");
    run("sys.path = ['" + disk.path().string() + "', '/no/such/folder', '" + disk.path("cdtext.txt").string() + "']");
    const Names names = allNamespaces();
    EXPECT_THAT(names, IsSupersetOf({"cdquiet", "cdpackage", "cdextension"}));
    EXPECT_THAT(names, AllOf(Not(Contains("cdfolder")), Not(Contains("cdtext")), Not(Contains("not-a-name")),
                             Not(Contains("inner")), Not(Contains("cdpackage.inner"))));
    EXPECT_EQ(evalText("repr([n for n in sys.modules if n.startswith('cd')])"), "[]");
}

TEST_F(AllNamespaces, HoldTheModulesCompiledIntoTheInterpreter) {
    run("compiled = [name for name in sys.builtin_module_names if name not in sys.modules]");
    EXPECT_THAT(allNamespaces(), Contains(evalText("compiled[0]")));
}

TEST_F(AllNamespaces, EntriesThatAreNoModulesOrHaveNoPlainNameAreLeftOut) {
    run("import types\n"
        "class Text(str):\n"
        " def __hash__(self): trace.append('hash'); return str.__hash__(self)\n"
        " def __eq__(self, other): trace.append('eq'); return str.__eq__(self, other)\n"
        "class Trap:\n"
        " def __getattr__(self, name): trace.append(name); raise AttributeError\n"
        " @property\n def __class__(self): trace.append('class'); return types.ModuleType\n"
        "class Module(types.ModuleType):\n"
        " def __getattribute__(self, name): trace.append(name); return object.__getattribute__(self, name)\n"
        "added = {Text('cd_text'): types.ModuleType('a'), 3: types.ModuleType('b'), None: types.ModuleType('c'),\n"
        " 'cd_trap': Trap(), 'cd_none': None, 'cd-dash': types.ModuleType('d'), 'cd..dots': types.ModuleType('e'),\n"
        " '': types.ModuleType('f'), '.cd': types.ModuleType('g'), 'cd.': types.ModuleType('h'),\n"
        " 'cd\\ud800': types.ModuleType('i'), 'cd_good': Module('other name'), 'cd_größe.x': types.ModuleType('j')}\n"
        "sys.modules.update(added)\ntrace.clear()");
    Names found;
    for (const std::string& name : allNamespaces()) {
        if (name.find("cd") != std::string::npos || name.empty()) {
            found.push_back(name);
        }
    }
    EXPECT_EQ(evalText("repr(trace)"), "[]");
    run("for key in added: del sys.modules[key]\ntrace.clear()");
    EXPECT_THAT(found, ElementsAre("cd_good", "cd_größe.x"));
}

TEST_F(AllNamespaces, AreObjectsWithANameEach) {
    const qxUniqueArray function = qxCreateString(u"ostrel.metadata.Namespace.getAllNamespaces");
    const qxArray* input = function.get();
    qxArray* output = nullptr;
    inFullFevalFcn(1, &output, 1, &input);
    const qxUniqueArray spaces(output);
    ASSERT_TRUE(spaces);
    const std::size_t count = qxGetNumberOfElements(spaces.get());
    ASSERT_GT(count, 10U);
    const qxUniqueArray name = qxGetProperty(spaces.get(), count - 1, "Name");
    const qxUniqueArray shared(qxGetPropertyShared(spaces.get(), count - 1, "Name"));
    EXPECT_EQ(textOf(name.get()), textOf(shared.get()));
    EXPECT_THROW(qxGetProperty(spaces.get(), count, "Name"), foundation::core::except::IException);
}

class NamespaceNames : public PythonTest {
protected:
    using Listing = bool (*)(const std::u16string&, std::vector<std::u16string>&);
    static Names list(Listing listing, const std::u16string& name) {
        std::vector<std::u16string> wide;
        const bool hasGrown = listing(name, wide);
        EXPECT_EQ(hasGrown, !wide.empty());
        Names names;
        for (const std::u16string& each : wide) {
            names.push_back(fl::i18n::to_string(each));
        }
        return names;
    }
};

TEST_F(NamespaceNames, ListClassesFunctionsAndInnerNamespaces) {
    run("import numpy");
    EXPECT_THAT(list(ZELKContextData::getNamespaceClassNames, u"numpy"), Contains("numpy.ndarray"));
    EXPECT_THAT(list(ZELKContextData::getNamespaceFunctionNames, u"numpy"), IsSupersetOf({"add", "mean", "linspace"}));
    EXPECT_THAT(list(ZELKContextData::getNamespaceNamespaceNames, u"numpy"),
                IsSupersetOf({"numpy.linalg", "numpy.random"}));
    EXPECT_TRUE(list(ZELKContextData::getNamespaceClassNames, u"no_such").empty());
}

TEST_F(NamespaceNames, InnerNamespacesNeedNotBeImported) {
    const TemporaryFolder disk;
    disk.file("cdouter/__init__.py");
    disk.file("cdouter/quiet.py");
    run("import sys\nsys.path.insert(0, '" + disk.path().string() + "')\nimport cdouter\nsys.path.pop(0)");
    EXPECT_THAT(list(ZELKContextData::getNamespaceNamespaceNames, u"cdouter"), ElementsAre("cdouter.quiet"));
    EXPECT_EQ(evalText("repr('cdouter.quiet' in sys.modules)"), "False");
    run("del sys.modules['cdouter']");
}

}  // namespace
