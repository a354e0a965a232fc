#include <chrono>
#include <filesystem>
#include <fstream>

#include "contextdata/resolved_class_id.h"
#include "host/dispatcher.h"
#include "host/i18n.h"
#include "host/name_resolution.h"
#include "tests/python_host/session.h"

namespace {

using namespace session;
namespace fs = std::filesystem;

class FileScopes : public PythonTest {
protected:
    void SetUp() override {
        PythonTest::SetUp();
        folder_ = ownFolder();
        fs::create_directories(folder_);
    }
    void TearDown() override {
        fs::remove_all(folder_);
        PythonTest::TearDown();
    }

    fs::path write(const std::string& name, const std::string& text) {
        const fs::path file = folder_ / name;
        fs::create_directories(file.parent_path());
        std::ofstream(file) << text;
        // Two writes within one tick of the clock would look the same.
        fs::last_write_time(file, fs::file_time_type::clock::now() + std::chrono::seconds(++writes_));
        return file;
    }

    static std::string resolve(const fs::path& file, const std::string& name) {
        FunctionScope* scope = Dispatcher::getDispatcher().getFunctionScope(file.u16string());
        EXPECT_NE(scope, nullptr);
        return zelk::nameresolution::omResolveAnyClass(name, scope);
    }
    static std::string resolveAtPrompt(const std::string& name) {
        return zelk::nameresolution::omResolveAnyClass(name, nullptr);
    }
    static bool hasScope(const std::u16string& file) {
        return Dispatcher::getDispatcher().getFunctionScope(file) != nullptr;
    }

    fs::path folder_;
    int writes_ = 0;
};

TEST_F(FileScopes, AtThePromptNamesMeanWhatMainBinds) {
    run("import collections as c\nfrom collections import OrderedDict as O\nclass A:\n class B: pass\nint_like = 3");
    EXPECT_EQ(resolveAtPrompt("c.OrderedDict"), "collections.OrderedDict");
    EXPECT_EQ(resolveAtPrompt("O"), "collections.OrderedDict");
    EXPECT_EQ(resolveAtPrompt("A.B"), "__main__.A.B");
    EXPECT_EQ(resolveAtPrompt("int"), "builtins.int");
    EXPECT_EQ(resolveAtPrompt("collections.OrderedDict"), "collections.OrderedDict");
    EXPECT_EQ(resolveAtPrompt("int_like"), "");
    EXPECT_EQ(resolveAtPrompt("Missing"), "");
    EXPECT_EQ(resolveAtPrompt("A.Missing"), "");
}

TEST_F(FileScopes, AVariableHidesTheBuiltIn) {
    run("int = 3");
    EXPECT_EQ(resolveAtPrompt("int"), "");
    EXPECT_EQ(resolveAtPrompt("builtins.int"), "builtins.int");
}

TEST_F(FileScopes, OfALoadedModuleAreItsNames) {
    const fs::path file = write("cdloaded.py", "from collections import OrderedDict as Ordered\nclass Own: pass\n");
    run("import sys\nsys.path.insert(0, '" + folder_.string() + "')\nimport cdloaded\nsys.path.pop(0)");
    EXPECT_EQ(resolve(file, "Ordered"), "collections.OrderedDict");
    EXPECT_EQ(resolve(file, "Own"), "cdloaded.Own");
    EXPECT_EQ(resolve(folder_ / "." / "cdloaded.py", "Own"), "cdloaded.Own");
    run("cdloaded.Late = dict");
    EXPECT_EQ(resolve(file, "Late"), "builtins.dict");
    run("del sys.modules['cdloaded'], cdloaded");
    EXPECT_EQ(resolve(file, "Own"), "");
}

TEST_F(FileScopes, OfAFileThatIsNotLoadedAreItsImports) {
    run("import collections, collections.abc, os.path");
    const fs::path file = write("unloaded.py",
                                "import sys\n"
                                "sys.modules['__main__'].trace.append('executed')\n"
                                "import collections as c\n"
                                "import collections.abc\n"
                                "from collections import OrderedDict as O, deque\n"
                                "from no_such_module import Thing\n"
                                "try:\n    from collections import Counter\n"
                                "except ImportError:\n    Counter = None\n"
                                "if True:\n    from collections import UserDict as U\n"
                                "def f():\n    from collections import ChainMap\n"
                                "class int: pass\n");
    EXPECT_EQ(resolve(file, "c.OrderedDict"), "collections.OrderedDict");
    EXPECT_EQ(resolve(file, "collections.abc.Mapping"), "collections.abc.Mapping");
    EXPECT_EQ(resolve(file, "O"), "collections.OrderedDict");
    EXPECT_EQ(resolve(file, "deque"), "collections.deque");
    EXPECT_EQ(resolve(file, "Counter"), "collections.Counter");
    EXPECT_EQ(resolve(file, "U"), "collections.UserDict");
    EXPECT_EQ(resolve(file, "ChainMap"), "");
    EXPECT_EQ(resolve(file, "Thing"), "");
    EXPECT_EQ(resolve(file, "int"), "");
    EXPECT_EQ(resolve(file, "str"), "builtins.str");
}

TEST_F(FileScopes, ImportEverythingFromAModule) {
    run("import collections");
    const fs::path file = write("stars.py", "from collections import *\n");
    EXPECT_EQ(resolve(file, "OrderedDict"), "collections.OrderedDict");
}

TEST_F(FileScopes, ResolveRelativeImportsInTheirPackage) {
    write("cdpack/__init__.py", "class Top: pass\n");
    write("cdpack/sub/__init__.py", "");
    write("cdpack/sub/base.py", "class Base: pass\n");
    const fs::path file = write("cdpack/sub/user.py",
                                "from . import base\nfrom .base import Base\nfrom .. import Top\nfrom ... import X\n");
    run("import sys\nsys.path.insert(0, '" + folder_.string() + "')\nimport cdpack.sub.base\nsys.path.pop(0)");
    EXPECT_EQ(resolve(file, "base.Base"), "cdpack.sub.base.Base");
    EXPECT_EQ(resolve(file, "Base"), "cdpack.sub.base.Base");
    EXPECT_EQ(resolve(file, "Top"), "cdpack.Top");
    EXPECT_EQ(resolve(file, "X"), "");
}

TEST_F(FileScopes, KeepTheLastGoodTextWhileTyping) {
    run("import collections");
    fs::path file = write("typing_now.py", "from collections import OrderedDict as O\n");
    EXPECT_EQ(resolve(file, "O"), "collections.OrderedDict");
    file = write("typing_now.py", "from collections import OrderedDict as O\nfrom collections imp");
    EXPECT_EQ(resolve(file, "O"), "collections.OrderedDict");
    file = write("typing_now.py", "from collections import deque as O\n");
    EXPECT_EQ(resolve(file, "O"), "collections.deque");
}

TEST_F(FileScopes, AFileThatNeverWasAProgramHasNone) {
    EXPECT_FALSE(hasScope(write("bad.py", "import (").u16string()));
    EXPECT_FALSE(hasScope(u""));
    EXPECT_FALSE(hasScope(u"<stdin>"));
    EXPECT_FALSE(hasScope((folder_ / "missing.py").u16string()));
    EXPECT_FALSE(hasScope(folder_.u16string()));
    EXPECT_FALSE(hasScope(write("zero.py", std::string("import os\0", 10)).u16string()));
}

TEST_F(FileScopes, AFileInAnotherEncodingIsStillRead) {
    run("import collections");
    const fs::path file = write("latin.py", "# -*- coding: latin-1 -*-\n# \xe4\nfrom collections import deque as D\n");
    EXPECT_EQ(resolve(file, "D"), "collections.deque");
}

TEST_F(FileScopes, AParsersWarningStaysOffTheScreen) {
    run("import sys, io, warnings, collections\nwarnings.simplefilter('always')\nold, sys.stderr = sys.stderr, "
        "io.StringIO()");
    const fs::path file = write("odd.py", "x = '\\d'\nfrom collections import deque as D\n");
    EXPECT_EQ(resolve(file, "D"), "collections.deque");
    EXPECT_EQ(evalText("sys.stderr.getvalue()"), "");
    run("sys.stderr = old\nwarnings.resetwarnings()");
}

TEST_F(FileScopes, AUsersImportHookIsNotAsked) {
    run("import builtins, collections\nold = builtins.__import__\n"
        "builtins.__import__ = lambda *a, **k: (trace.append('import'), old(*a, **k))[1]");
    const fs::path file = write("hooked.py", "from collections import deque as D\n");
    EXPECT_EQ(resolve(file, "D"), "collections.deque");
    run("builtins.__import__ = old");
}

TEST_F(FileScopes, ServeTheLibrarysIdentities) {
    run("import collections");
    const fs::path file = write("identity.py", "import collections as c\n");
    const ZELKContextData::ResolvedClassID id(file.u16string(), u"c.OrderedDict");
    EXPECT_EQ(id.getComponentQualifiedName(), u"collections.OrderedDict");
    EXPECT_TRUE(ZELKContextData::ResolvedClassID(file.u16string(), u"Missing").isNull());
}

}  // namespace
