#include "contextdata/what_list.h"

#include <unistd.h>

#include "tests/support/temporary_folder.h"
#include "tests/support/world_test.h"

namespace {

using foundation::core::except::InterruptException;
using memory_host::Call;
using memory_host::Fault;
using memory_host::Service;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

namespace fs = std::filesystem;

constexpr std::int32_t privateEntry = 3;

class WhatListTest : public WorldTest {
protected:
    WhatListTest() { world.workingFolder(disk.text("work")); }

    /// The names that one call appends to an empty vector.
    static Names listed(const std::u16string& folder, const std::string& kind) {
        Names names;
        getWhatList(folder, names, kind);
        return names;
    }

    TemporaryFolder disk;
};

// Which folder is meant.

TEST_F(WhatListTest, EmptyNameListsTheWorkingFolder) {
    disk.folder("work/@Foo");
    disk.file("work/run.k");
    EXPECT_THAT(listed(u"", "classes"), ElementsAre(u"Foo"));
    EXPECT_THAT(listed(u"", ".k"), ElementsAre(u"run.k"));
    EXPECT_EQ(world.journal().countOf(Service::getCurrentPath), 0U);
}

TEST_F(WhatListTest, WorkingFolderIsThatOfTheMoment) {
    disk.file("work/run.k");
    disk.file("other/walk.k");
    EXPECT_THAT(listed(u"", ".k"), ElementsAre(u"run.k"));
    world.workingFolder(disk.text("other"));
    EXPECT_THAT(listed(u"", ".k"), ElementsAre(u"walk.k"));
}

TEST_F(WhatListTest, NamedFolderIsSoughtOnTheSearchPathAlone) {
    disk.file("work/tools/here.k");
    disk.file("lib/tools/there.k");
    world.searchPathEntry(disk.text("lib"));
    EXPECT_THAT(listed(u"tools", ".k"), ElementsAre(u"there.k"));
    EXPECT_EQ(world.journal().countOf(Service::getCurrentWorkingFolder), 0U);
}

TEST_F(WhatListTest, AnEntryOfThatNameIsTheFolderItself) {
    disk.file("lib/tools/there.k");
    disk.file("lib/tools/tools/deeper.k");
    disk.file("other/tools/own.k");
    world.searchPathEntry(disk.text("lib/tools"));
    world.searchPathEntry(disk.text("other/tools"));
    EXPECT_THAT(listed(u"tools", ".k"), ElementsAre(u"deeper.k", u"own.k"));
}

TEST_F(WhatListTest, FolderThatIsNowhereYieldsNothing) {
    disk.folder("lib");
    disk.file("lib/tools");  // a file of that name
    world.searchPathEntry(disk.text("lib"));
    EXPECT_THAT(listed(u"tools", ".k"), IsEmpty());
    EXPECT_EQ(world.journal().countOf(Service::ioGetDirList), 0U);
}

TEST_F(WhatListTest, EmptySearchPathYieldsNothing) { EXPECT_THAT(listed(u"tools", ".k"), IsEmpty()); }

TEST_F(WhatListTest, FolderContributesOnceForEachEntryThatHoldsIt) {
    disk.file("first/tools/b.k");
    disk.file("first/tools/a.k");
    disk.file("second/tools/a.k");
    disk.folder("empty");
    world.searchPathEntry(disk.text("second"));
    world.searchPathEntry(disk.text("empty"));
    world.searchPathEntry(disk.text("first"));
    EXPECT_THAT(listed(u"tools", ".k"), ElementsAre(u"a.k", u"a.k", u"b.k"));
}

TEST_F(WhatListTest, EntryThatStandsTwiceOnThePathContributesTwice) {
    disk.file("lib/tools/a.k");
    disk.file("lib/tools/b.k");
    world.searchPathEntry(disk.text("lib"));
    world.searchPathEntry(disk.text("lib"));
    EXPECT_THAT(listed(u"tools", ".k"), ElementsAre(u"a.k", u"b.k", u"a.k", u"b.k"));
}

TEST_F(WhatListTest, NamesAreAppendedToWhatTheVectorHolds) {
    disk.file("work/run.k");
    Names names = {u"kept", u"run.k"};
    getWhatList(u"", names, ".k");
    EXPECT_THAT(names, ElementsAre(u"kept", u"run.k", u"run.k"));
}

// Private entries of the path.

TEST_F(WhatListTest, PrivateEntryCountsWhenItLiesInTheWorkingFolder) {
    disk.file("work/private/tools/secret.k");
    world.searchPathEntry(disk.text("work/private"), privateEntry);
    EXPECT_THAT(listed(u"tools", ".k"), ElementsAre(u"secret.k"));
}

TEST_F(WhatListTest, PrivateEntryElsewhereIsPassedOverAndTheWalkGoesOn) {
    disk.file("lib/private/tools/secret.k");
    disk.file("lib/tools/open.k");
    world.searchPathEntry(disk.text("lib/private"), privateEntry);
    world.searchPathEntry(disk.text("lib"));
    EXPECT_THAT(listed(u"tools", ".k"), ElementsAre(u"open.k"));
}

TEST_F(WhatListTest, PrivateEntryMustLieRightInTheWorkingFolder) {
    disk.file("work/deep/private/tools/secret.k");
    disk.file("work/tools/secret.k");
    disk.file("tools/secret.k");
    world.searchPathEntry(disk.text("work/deep/private"), privateEntry);
    world.searchPathEntry(disk.text("work"), privateEntry);  // the working folder does not lie in itself
    world.searchPathEntry(disk.text(), privateEntry);
    EXPECT_THAT(listed(u"tools", ".k"), IsEmpty());
}

TEST_F(WhatListTest, EntriesOfAnyOtherKindCountEverywhere) {
    disk.file("lib/tools/open.k");
    for (const std::int32_t kind : {0, 1, 2, 4, -3, 33}) {
        world.searchPathEntry(disk.text("lib"), kind);
    }
    EXPECT_EQ(listed(u"tools", ".k"), Names(6, u"open.k"));
    EXPECT_EQ(world.journal().countOf(Service::vfsAreSame), 0U);
}

TEST_F(WhatListTest, WorkingFolderItselfIsListedWhateverThePathSays) {
    disk.file("work/run.k");
    world.searchPathEntry(disk.text("work"), privateEntry);
    EXPECT_THAT(listed(u"", ".k"), ElementsAre(u"run.k"));
}

// Kinds.

TEST_F(WhatListTest, KindsKeepTheirEntriesToTheLetter) {
    for (const char* file : {"run.k", "RUN.K", "run.kk", ".k", "k", "run.k.txt", "fast.qxe", "fast.qxew64",
                             "fast.QXEW64", "fast.qxew32", ".qxew64", "qxew64", "fast.qxew64.old"}) {
        disk.file(fs::path("work") / file);
    }
    for (const char* folder : {"@Foo", "@", "+", "+pack", "@@Twice", "+@Mixed", "Foo@", "pack+", "deep.k", "@Bar.k"}) {
        disk.folder(fs::path("work") / folder);
    }
    EXPECT_THAT(listed(u"", "classes"), ElementsAre(u"@Twice", u"Bar.k", u"Foo"));
    EXPECT_THAT(listed(u"", "packages"), ElementsAre(u"@Mixed", u"pack"));
    EXPECT_THAT(listed(u"", ".k"), ElementsAre(u".k", u"@Bar.k", u"deep.k", u"run.k"));
    EXPECT_THAT(listed(u"", ".qxe"), ElementsAre(u".qxew64", u"fast.qxew64"));
}

TEST_F(WhatListTest, CompiledFilesAreListedByTheFullSuffixAlone) {
    disk.file("work/old.qxe");
    EXPECT_THAT(listed(u"", ".qxe"), IsEmpty());
    disk.file("work/new.qxew64");
    EXPECT_THAT(listed(u"", ".qxe"), ElementsAre(u"new.qxew64"));
}

TEST_F(WhatListTest, MarkAloneIsNoName) {
    disk.folder("work/@");
    disk.folder("work/+");
    disk.folder("work/@F");
    disk.folder("work/+p");
    EXPECT_THAT(listed(u"", "classes"), ElementsAre(u"F"));
    EXPECT_THAT(listed(u"", "packages"), ElementsAre(u"p"));
}

TEST_F(WhatListTest, MarkedFilesCountLikeMarkedFolders) {
    disk.file("work/@Foo");
    disk.file("work/+pack");
    EXPECT_THAT(listed(u"", "classes"), ElementsAre(u"Foo"));
    EXPECT_THAT(listed(u"", "packages"), ElementsAre(u"pack"));
}

TEST_F(WhatListTest, AnyOtherKindYieldsNothingHoweverFullTheFolderIs) {
    for (const char* name : {"run.k", "fast.qxew64", "fast.qxe", "@Foo", "+pack", "run"}) {
        disk.file(fs::path("work") / name);
    }
    for (const char* kind : {"", "k", ".K", ".k ", ".qxew64", "qxe", ".QXE", "class", "Classes", "CLASSES", "package",
                             "Packages", "@", "+", "*", "files"}) {
        EXPECT_THAT(listed(u"", kind), IsEmpty()) << kind;
    }
}

// What the host is asked.

TEST_F(WhatListTest, FolderIsListedByItsPathABackslashAndAStar) {
    disk.folder("work");
    listed(u"", ".k");
    const std::string path = disk.path("work").string();
    EXPECT_THAT(world.journal().calls(), Contains(Call{Service::fileStatus, path}).Times(1));
    EXPECT_THAT(world.journal().calls(), Contains(Call{Service::ioGetDirList, path + "\\*"}).Times(1));
}

TEST_F(WhatListTest, PathThatIsNoFolderIsNotListed) {
    disk.file("file");
    world.workingFolder(disk.text("file"));
    EXPECT_THAT(listed(u"", ".k"), IsEmpty());
    world.workingFolder(disk.text("nothing"));
    EXPECT_THAT(listed(u"", ".k"), IsEmpty());
    EXPECT_EQ(world.journal().countOf(Service::ioGetDirList), 0U);
}

TEST_F(WhatListTest, DriveIsTestedByItsRoot) {
    disk.file("x:/run.k");
    world.workingFolder(disk.text("x:"));
    EXPECT_THAT(listed(u"", ".k"), IsEmpty());  // it has no root as yet
    const std::string path = disk.path("x:").string();
    EXPECT_THAT(world.journal().calls(), Contains(Call{Service::fileStatus, path + "\\"}).Times(1));
    EXPECT_EQ(world.journal().countOf(Service::fileStatus), 1U);
    disk.folder("x:\\");
    EXPECT_THAT(listed(u"", ".k"), ElementsAre(u"run.k"));
    EXPECT_THAT(world.journal().calls(), Contains(Call{Service::ioGetDirList, path + "\\*"}).Times(1));
}

TEST_F(WhatListTest, ColonInsideAPathIsNoDrive) {
    disk.file("x:y/run.k");
    world.workingFolder(disk.text("x:y"));
    EXPECT_THAT(listed(u"", ".k"), ElementsAre(u"run.k"));
}

TEST_F(WhatListTest, DriveOfANamedFolderIsTestedByItsRootToo) {
    disk.file("lib/x:/run.k");
    world.searchPathEntry(disk.text("lib"));
    EXPECT_THAT(listed(u"x:", ".k"), IsEmpty());
    EXPECT_THAT(world.journal().calls(),
                Contains(Call{Service::fileStatus, disk.path("lib/x:").string() + "\\"}).Times(1));
}

TEST_F(WhatListTest, NamesBeyondAsciiComeAndGoUnchanged) {
    disk.file(fs::path(u"lib/gr\u00F6\u00DFe/\u03C0.k"));
    disk.file(fs::path(u"lib/gr\u00F6\u00DFe/\U0001D70B.k"));
    disk.folder(fs::path(u"lib/gr\u00F6\u00DFe/@\u00C4rger"));
    world.searchPathEntry(disk.text("lib"));
    EXPECT_THAT(listed(u"gr\u00F6\u00DFe", ".k"), ElementsAre(u"\u03C0.k", u"\U0001D70B.k"));
    EXPECT_THAT(listed(u"gr\u00F6\u00DFe", "classes"), ElementsAre(u"\u00C4rger"));
}

TEST_F(WhatListTest, BackslashesInNamesAreNoDividers) {
    disk.file("a\\b/run.k");
    disk.file("a\\b/c\\d.k");
    world.workingFolder(disk.text("a\\b"));
    EXPECT_THAT(listed(u"", ".k"), ElementsAre(u"c\\d.k", u"run.k"));
}

TEST_F(WhatListTest, HiddenFilesAreListed) {
    disk.file("work/.hidden.k");
    EXPECT_THAT(listed(u"", ".k"), ElementsAre(u".hidden.k"));
}

TEST_F(WhatListTest, LinksAreEntriesWhereverTheyLead) {
    disk.file("work/run.k");
    disk.file("elsewhere/walk.k");
    fs::create_symlink(disk.path("gone"), disk.path("work/broken.k"));
    fs::create_symlink(disk.path("gone"), disk.path("work/@Broken"));
    fs::create_directory_symlink(disk.path("elsewhere"), disk.path("work/tools"));
    fs::create_directory_symlink(disk.path("gone"), disk.path("work/nowhere"));
    world.searchPathEntry(disk.text("work"));
    EXPECT_THAT(listed(u"", ".k"), ElementsAre(u"broken.k", u"run.k"));
    EXPECT_THAT(listed(u"", "classes"), ElementsAre(u"Broken"));
    EXPECT_THAT(listed(u"tools", ".k"), ElementsAre(u"walk.k"));
    EXPECT_THAT(listed(u"nowhere", ".k"), IsEmpty());
}

TEST_F(WhatListTest, NameThatIsNoTextYieldsNothing) {
    disk.file("lib/run.k");
    world.searchPathEntry(disk.text("lib"));
    EXPECT_THAT(listed(std::u16string(1, char16_t{0xD800}), ".k"), IsEmpty());
    EXPECT_THAT(listed(std::u16string(1'000'000, u'z'), ".k"), IsEmpty());
    EXPECT_THAT(listed(std::u16string(u"no\0thing", 8), ".k"), IsEmpty());
}

// Failures.

TEST_F(WhatListTest, FolderWithoutPermissionYieldsNothing) {
    if (geteuid() == 0) {
        GTEST_SKIP() << "root may read every folder";
    }
    disk.file("work/run.k");
    fs::permissions(disk.path("work"), fs::perms::none);
    EXPECT_THAT(listed(u"", ".k"), IsEmpty());
    fs::permissions(disk.path("work"), fs::perms::owner_all);
    EXPECT_THAT(listed(u"", ".k"), ElementsAre(u"run.k"));
}

TEST_F(WhatListTest, FolderThatVanishesBeforeItIsListedEmptiesTheWholeList) {
    disk.file("first/tools/a.k");
    disk.file("second/tools/b.k");
    world.searchPathEntry(disk.text("first"));
    world.searchPathEntry(disk.text("second"));
    std::size_t listings = 0;
    world.whenCalled(Service::ioGetDirList, [&] {
        if (++listings == 2) {
            fs::remove_all(disk.path("second"));
        }
    });
    EXPECT_THAT(listed(u"tools", ".k"), IsEmpty());
    EXPECT_EQ(listings, 2U);
    EXPECT_THAT(listed(u"tools", ".k"), ElementsAre(u"a.k"));
}

TEST_F(WhatListTest, FolderThatVanishesBeforeItIsTestedIsMerelyNone) {
    disk.file("first/tools/a.k");
    disk.file("second/tools/b.k");
    world.searchPathEntry(disk.text("second"));
    world.searchPathEntry(disk.text("first"));
    world.whenCalled(Service::fileStatus, [&] { fs::remove_all(disk.path("second")); });
    EXPECT_THAT(listed(u"tools", ".k"), ElementsAre(u"a.k"));
}

TEST_F(WhatListTest, FailureInTheMiddleEmptiesAllAndKeepsWhatTheVectorHeld) {
    disk.file("work/private/tools/a.k");
    disk.file("lib/tools/b.k");
    world.searchPathEntry(disk.text("work/private"), privateEntry);
    world.searchPathEntry(disk.text("lib"));
    const Names before = {u"kept"};
    for (const Service service : {Service::getDispatcher, Service::pathEntryFindFolder, Service::pathEntryGetKind,
                                  Service::vfsGetStringFromIRI, Service::fileStatus, Service::ioGetDirList}) {
        for (const Fault fault : failuresButInterrupt) {
            world.faults().failService(service, 2, fault);
            Names names = before;
            getWhatList(u"tools", names, ".k");
            EXPECT_EQ(names, before) << nameOf(service) << " " << fault;
        }
        world.faults().failService(service, 2, Fault::interrupt);
        Names names = before;
        EXPECT_THROW(getWhatList(u"tools", names, ".k"), InterruptException) << nameOf(service);
        EXPECT_EQ(names, before);
    }
    world.faults().clear();
    EXPECT_THAT(listed(u"tools", ".k"), ElementsAre(u"a.k", u"b.k"));
}

TEST_F(WhatListTest, InterruptPassesWhateverTheKind) {
    world.faults().failService(Service::currentFolderGet, Fault::interrupt);
    for (const char* kind : {"classes", "packages", ".k", ".qxe"}) {
        EXPECT_THROW(listed(u"", kind), InterruptException) << kind;
    }
}

}  // namespace
