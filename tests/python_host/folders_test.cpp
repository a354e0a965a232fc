#include <unistd.h>

#include <system_error>

#include "contextdata/other_object_systems.h"
#include "contextdata/what_list.h"
#include "host/dispatcher.h"
#include "host/exceptions.h"
#include "host/file_system.h"
#include "host/i18n.h"
#include "tests/python_host/session.h"
#include "tests/support/temporary_folder.h"

namespace {

using namespace session;
using foundation::core::except::IException;
using foundation::core::except::InterruptException;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
namespace fs = std::filesystem;

using WideNames = std::vector<std::u16string>;

/// Each test has a search path and a working directory of its own.
class Folders : public PythonTest {
protected:
    void SetUp() override {
        PythonTest::SetUp();
        before_ = fs::current_path();
        run("import sys\nsaved = sys.path\nsys.path = []");
        disk.folder("work");
        fs::current_path(disk.path("work"));
    }
    void TearDown() override {
        run("sys.path = saved");
        fs::current_path(before_);
        PythonTest::TearDown();
    }

    static std::string quoted(const fs::path& path) { return "'" + path.string() + "'"; }
    void searchPath(const std::string& expression) { run("sys.path = " + expression); }

    static WideNames listed(const std::u16string& folder, const std::string& kind) {
        WideNames names;
        getWhatList(folder, names, kind);
        return names;
    }
    static WideNames content(const std::u16string& folder) {
        WideNames names;
        ioGetDirList(folder + u"\\*", names, 1);
        return names;
    }
    static std::vector<std::u16string> entries() {
        std::vector<std::u16string> paths;
        Dispatcher::getDispatcher().GetCurrentPath().visit([&](const std::shared_ptr<IPathEntry>& entry) {
            paths.push_back(vfs::GetStringFromIRI(entry->getLocation()));
            return true;
        });
        return paths;
    }
    static std::optional<vfs::Location> find(std::size_t index, const std::u16string& name) {
        std::optional<vfs::Location> found;
        Dispatcher::getDispatcher().GetCurrentPath().visit([&](const std::shared_ptr<IPathEntry>& entry) {
            found = entry->findFolder(name);
            return index-- != 0;
        });
        return found;
    }
    static vfs::Location workingFolder() {
        return Dispatcher::getDispatcher().GetCurrentWorkingFolder().get().getLocation();
    }

    TemporaryFolder disk;

private:
    fs::path before_;
};

TEST_F(Folders, AnEmptyNameIsTheWorkingDirectoryOfTheProcess) {
    disk.folder("work/@Foo");
    disk.file("other/run.k");
    EXPECT_THAT(listed(u"", "classes"), ElementsAre(u"Foo"));
    run("import os\nos.chdir(" + quoted(disk.path("other")) + ")");
    EXPECT_THAT(listed(u"", "classes"), IsEmpty());
    EXPECT_THAT(listed(u"", ".k"), ElementsAre(u"run.k"));
    EXPECT_EQ(vfs::GetStringFromIRI(workingFolder()), disk.text("other"));
}

TEST_F(Folders, TheSearchPathIsWhatItIsNow) {
    disk.file("first/tools/a.k");
    disk.file("second/tools/b.k");
    EXPECT_THAT(listed(u"tools", ".k"), IsEmpty());
    searchPath("[" + quoted(disk.path("first")) + "]");
    EXPECT_THAT(listed(u"tools", ".k"), ElementsAre(u"a.k"));
    run("sys.path.insert(0, " + quoted(disk.path("second")) + ")");
    EXPECT_THAT(listed(u"tools", ".k"), ElementsAre(u"b.k", u"a.k"));
}

TEST_F(Folders, AnEntryThatStandsTwiceCountsTwice) {
    disk.file("first/tools/a.k");
    searchPath("[" + quoted(disk.path("first")) + "] * 2");
    EXPECT_THAT(listed(u"tools", ".k"), ElementsAre(u"a.k", u"a.k"));
}

TEST_F(Folders, EmptyAndRelativeEntriesBelongToTheWorkingDirectory) {
    disk.file("work/tools/a.k");
    disk.file("work/lib/tools/b.k");
    searchPath("['', 'lib', './lib/', '../work']");
    EXPECT_THAT(entries(),
                ElementsAre(disk.text("work"), disk.text("work/lib"), disk.text("work/lib"), disk.text("work")));
    EXPECT_THAT(listed(u"tools", ".k"), ElementsAre(u"a.k", u"b.k", u"b.k", u"a.k"));
}

TEST_F(Folders, EntriesThatAreNoFoldersHoldNone) {
    disk.file("archive.zip");
    disk.file("good/tools/a.k");
    fs::create_symlink(disk.path("gone"), disk.path("broken"));
    searchPath("[" + quoted(disk.path("archive.zip")) + ", " + quoted(disk.path("gone")) + ", " +
               quoted(disk.path("broken")) + ", " + quoted(disk.path("good")) + "]");
    EXPECT_THAT(listed(u"tools", ".k"), ElementsAre(u"a.k"));
    EXPECT_THAT(listed(u"archive.zip", ".k"), IsEmpty());
}

TEST_F(Folders, EntriesThatAreNoPlainTextAreLeftOut) {
    disk.file("good/tools/a.k");
    run("class Text(str):\n"
        " def __str__(self): trace.append('str'); return self\n"
        " def __fspath__(self): trace.append('path'); return self\n"
        "class Path:\n def __fspath__(self): trace.append('path'); return '/'");
    searchPath("[None, 3, b'/tmp', Path(), Text('/tmp'), 'nul\\0l', 'lone\\ud800', " + quoted(disk.path("good")) + "]");
    EXPECT_THAT(entries(), ElementsAre(disk.text("good")));
}

TEST_F(Folders, ASearchPathThatIsNoPlainListHasNoEntries) {
    run("class List(list):\n"
        " def __iter__(self): trace.append('iter'); return iter(())\n"
        " def __len__(self): trace.append('len'); return 1\n"
        " def __getitem__(self, index): trace.append('item'); return '/'");
    searchPath("List(['/'])");
    EXPECT_THAT(entries(), IsEmpty());
    searchPath("('/',)");
    EXPECT_THAT(entries(), IsEmpty());
    run("del sys.path");
    EXPECT_THAT(entries(), IsEmpty());
}

TEST_F(Folders, AVisitEndsWhenTheVisitorHasEnough) {
    searchPath("['/', '/', '/']");
    int count = 0;
    Dispatcher::getDispatcher().GetCurrentPath().visit([&](const auto&) { return ++count < 2; });
    EXPECT_EQ(count, 2);
}

TEST_F(Folders, AVisitorMayChangeTheSearchPath) {
    searchPath("['/', '/']");
    int count = 0;
    Dispatcher::getDispatcher().GetCurrentPath().visit([&](const auto&) {
        run("sys.path.clear()");
        return ++count < 10;
    });
    EXPECT_EQ(count, 2);
}

TEST_F(Folders, NoEntryIsPrivate) {
    searchPath("['', '/']");
    Dispatcher::getDispatcher().GetCurrentPath().visit([](const std::shared_ptr<IPathEntry>& entry) {
        EXPECT_EQ(entry->getKind(), 0);
        return true;
    });
}

TEST_F(Folders, AFolderLiesInAnEntryOrIsTheEntry) {
    disk.folder("lib/deep/er");
    disk.folder("other");
    searchPath("[" + quoted(disk.path("lib")) + "]");
    EXPECT_EQ(vfs::GetStringFromIRI(find(0, u"deep").value()), disk.text("lib/deep"));
    EXPECT_EQ(vfs::GetStringFromIRI(find(0, u"deep/er").value()), disk.text("lib/deep/er"));
    EXPECT_EQ(vfs::GetStringFromIRI(find(0, u"lib").value()), disk.text("lib"));
    EXPECT_EQ(vfs::GetStringFromIRI(find(0, disk.text("lib")).value()), disk.text("lib"));
    for (const std::u16string& name : WideNames{u"", u".", u"..", u"../other", u"deep/..", disk.text("other"), u"none",
                                                std::u16string(u"deep\0x", 6), std::u16string(1, char16_t{0xD800})}) {
        EXPECT_FALSE(find(0, name)) << fl::i18n::to_string(name);
    }
}

TEST_F(Folders, NamesGoBeyondAscii) {
    disk.file("lib/@Größe/日本.k");
    disk.file("lib/@Größe/\U0001F600.k");
    searchPath("[" + quoted(disk.path("lib")) + "]");
    EXPECT_THAT(listed(u"@Größe", ".k"), ElementsAre(u"日本.k", u"\U0001F600.k"));
}

TEST_F(Folders, NamesThatAreNoUtf8AreSkipped) {
    disk.file("work/a.k");
    disk.file("work/\xFF.k");
    EXPECT_THAT(listed(u"", ".k"), ElementsAre(u"a.k"));
    EXPECT_THAT(content(disk.text("work")), ElementsAre(u"a.k"));
}

TEST_F(Folders, AListingIsInTheOrderOfNamesAndHoldsAllKinds) {
    disk.file("work/b");
    disk.folder("work/a");
    disk.file("work/.hidden");
    fs::create_symlink(disk.path("gone"), disk.path("work/c"));
    EXPECT_THAT(content(disk.text("work")), ElementsAre(u".hidden", u"a", u"b", u"c"));
}

TEST_F(Folders, AListingIsAddedToWhatIsThere) {
    disk.file("work/b");
    WideNames names = {u"z"};
    ioGetDirList(disk.text("work") + u"\\*", names, 1);
    EXPECT_THAT(names, ElementsAre(u"z", u"b"));
}

TEST_F(Folders, TheLastBackslashDividesFolderAndWildcard) {
    disk.file("work/back\\slash/a.k");
    disk.file("work/end:/b.k");
    EXPECT_THAT(content(disk.text("work/back\\slash")), ElementsAre(u"a.k"));
    searchPath("['']");
    EXPECT_THAT(listed(u"back\\slash", ".k"), ElementsAre(u"a.k"));
    EXPECT_THAT(listed(u"end:", ".k"), ElementsAre(u"b.k"));
}

TEST_F(Folders, WhatCannotBeListedIsAHostFailure) {
    disk.file("work/file");
    WideNames names = {u"z"};
    const std::u16string lone(1, char16_t{0xD800});
    for (const std::u16string& pattern :
         {disk.text("gone") + u"\\*", disk.text("work/file") + u"\\*", disk.text("work"), disk.text("work") + u"\\*.k",
          disk.text("work") + u"/*", lone + u"\\*", std::u16string(u"/\0\\*", 4), std::u16string()}) {
        EXPECT_THROW(ioGetDirList(pattern, names, 1), IException) << fl::i18n::to_string(pattern);
    }
    EXPECT_THROW(ioGetDirList(disk.text("work") + u"\\*", names, 0), IException);
    EXPECT_THAT(names, ElementsAre(u"z"));
}

TEST_F(Folders, StatusTellsFoldersFilesAndNothing) {
    disk.file("work/file");
    fs::create_symlink(disk.path("gone"), disk.path("broken"));
    fs::create_symlink(disk.path("work"), disk.path("link"));
    EXPECT_TRUE(is_directory(status(disk.text("work"))));
    EXPECT_TRUE(is_directory(status(disk.text("link"))));
    EXPECT_TRUE(status(disk.text("work/file")).exists);
    EXPECT_FALSE(is_directory(status(disk.text("work/file"))));
    for (const std::u16string& path : {disk.text("gone"), disk.text("broken"), disk.text("work/file/below"),
                                       std::u16string(), std::u16string(1, char16_t{0xDC00}),
                                       disk.text("work") + std::u16string(1, u'\0'), std::u16string(100'000, u'x')}) {
        EXPECT_FALSE(status(path).exists);
        EXPECT_FALSE(is_directory(status(path)));
    }
}

/// Takes the rights of the administrator away for the life of the object.
class OrdinaryUser {
public:
    OrdinaryUser() : changed_(geteuid() == 0 && seteuid(65534) == 0) {}
    ~OrdinaryUser() { EXPECT_TRUE(!changed_ || seteuid(0) == 0); }
    OrdinaryUser(const OrdinaryUser&) = delete;
    OrdinaryUser& operator=(const OrdinaryUser&) = delete;

private:
    bool changed_;
};

TEST_F(Folders, AFolderWithoutPermissionIsAHostFailureAndAnEmptyList) {
    disk.file("work/closed/a.k");
    searchPath("['']");
    fs::permissions(disk.path("work/closed"), fs::perms::none);
    fs::permissions(disk.path(), fs::perms::all);
    {
        const OrdinaryUser user;
        ASSERT_NE(geteuid(), 0U);
        WideNames names;
        EXPECT_THROW(ioGetDirList(disk.text("work/closed") + u"\\*", names, 1), IException);
        EXPECT_FALSE(status(disk.text("work/closed/a.k")).exists);
        EXPECT_THAT(listed(u"closed", ".k"), IsEmpty());
    }
    fs::permissions(disk.path("work/closed"), fs::perms::all);
}

TEST_F(Folders, AWorkingDirectoryThatIsGoneIsAHostFailureAndAnEmptyList) {
    disk.file("lib/tools/a.k");
    searchPath("['', 'relative', " + quoted(disk.path("lib")) + "]");
    fs::remove_all(disk.path("work"));
    EXPECT_THROW(workingFolder(), IException);
    EXPECT_THAT(listed(u"", ".k"), IsEmpty());
    EXPECT_THAT(listed(u"tools", ".k"), ElementsAre(u"a.k"));
}

TEST_F(Folders, LocationsHaveNamesAndParents) {
    const vfs::Location work = workingFolder();
    EXPECT_EQ(vfs::GetName(work), u"work");
    EXPECT_EQ(vfs::GetStringFromIRI(vfs::GetParent(work)), disk.text());
    fs::current_path("/");
    const vfs::Location root = workingFolder();
    EXPECT_TRUE(vfs::AreSame(vfs::GetParent(root), root));
}

TEST_F(Folders, LocationsAreTheSameThroughLinks) {
    fs::create_symlink(disk.path("work"), disk.path("link"));
    disk.folder("other");
    searchPath("[" + quoted(disk.path("link")) + ", " + quoted(disk.path("other")) + "]");
    EXPECT_TRUE(vfs::AreSame(find(0, u"link").value(), workingFolder()));
    EXPECT_TRUE(vfs::AreSame(workingFolder(), workingFolder()));
    EXPECT_FALSE(vfs::AreSame(find(1, u"other").value(), workingFolder()));
}

TEST_F(Folders, AForeignLocationIsAHostFailure) {
    EXPECT_THROW(vfs::GetName({u"elsewhere:/work"}), IException);
    EXPECT_THROW(vfs::GetStringFromIRI({u""}), IException);
    EXPECT_THROW(vfs::GetStringFromIRI({std::u16string(u"file:/\xD800", 7)}), IException);
}

TEST_F(Folders, AnErrorThatIsPendingStaysPending) {
    disk.file("work/a.k");
    searchPath("['']");
    PyErr_SetString(PyExc_ValueError, "pending");
    EXPECT_THAT(listed(u"", ".k"), ElementsAre(u"a.k"));
    listed(u"tools", ".k");
    EXPECT_TRUE(PyErr_ExceptionMatches(PyExc_ValueError));
    PyErr_Clear();
}

}  // namespace
