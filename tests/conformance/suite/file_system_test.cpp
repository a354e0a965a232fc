#include "host/file_system.h"

#include <algorithm>
#include <filesystem>

#include "host/dispatcher.h"
#include "tests/conformance/suite/suite.h"
#include "tests/support/temporary_folder.h"

namespace {

namespace fs = std::filesystem;
using Texts = std::vector<std::u16string>;
using ::testing::ElementsAre;
using ::testing::UnorderedElementsAre;

class FileSystem : public conformance::Conformance {
protected:
    using Entry = std::shared_ptr<IPathEntry>;

    static std::vector<Entry> entries() {
        std::vector<Entry> all;
        Dispatcher::getDispatcher().GetCurrentPath().visit([&all](const Entry& entry) {
            all.push_back(entry);
            return true;
        });
        return all;
    }
    static std::u16string pathOf(const vfs::Location& location) { return vfs::GetStringFromIRI(location); }
    static Texts listed(const std::u16string& folder, Texts before = {}) {
        ioGetDirList(folder + u"\\*", before, 1);
        return before;
    }

    TemporaryFolder disk;
};

TEST_F(FileSystem, TellsFilesFromFolders) {
    CONFORMANCE_NEEDS(provider().hasFileSystem(), "the file system of the machine");
    disk.file("plain.txt");
    disk.folder("inner");
    EXPECT_TRUE(status(disk.text("inner")).exists);
    EXPECT_TRUE(is_directory(status(disk.text("inner"))));
    EXPECT_TRUE(status(disk.text("plain.txt")).exists);
    EXPECT_FALSE(is_directory(status(disk.text("plain.txt"))));
}

TEST_F(FileSystem, KnowsNothingWhereNothingIs) {
    for (const std::u16string& nowhere : {disk.text("missing"), disk.text("missing/inner"), std::u16string()}) {
        EXPECT_FALSE(status(nowhere).exists);
        EXPECT_FALSE(is_directory(status(nowhere)));
    }
}

TEST_F(FileSystem, ListsFilesAndFoldersHiddenOnesIncluded) {
    CONFORMANCE_NEEDS(provider().hasFileSystem(), "the file system of the machine");
    disk.file("shelf/a.txt");
    disk.file("shelf/.hidden");
    disk.folder("shelf/inner");
    disk.file("shelf/two words");
    EXPECT_THAT(listed(disk.text("shelf")), UnorderedElementsAre(u"a.txt", u".hidden", u"inner", u"two words"));
}

TEST_F(FileSystem, AppendsToTheList) {
    CONFORMANCE_NEEDS(provider().hasFileSystem(), "the file system of the machine");
    disk.file("shelf/a.txt");
    EXPECT_THAT(listed(disk.text("shelf"), {u"kept"}), ElementsAre(u"kept", u"a.txt"));
    disk.folder("empty");
    EXPECT_THAT(listed(disk.text("empty"), {u"kept"}), ElementsAre(u"kept"));
}

TEST_F(FileSystem, DividesAPatternAtItsLastBackslash) {
    CONFORMANCE_NEEDS(provider().hasFileSystem(), "the file system of the machine");
    disk.file("odd\\folder/a.txt");
    EXPECT_THAT(listed(disk.text("odd\\folder")), ElementsAre(u"a.txt"));
}

TEST_F(FileSystem, ListsNothingOfWhatIsNoFolder) {
    CONFORMANCE_NEEDS(provider().hasFileSystem(), "the file system of the machine");
    disk.file("plain.txt");
    for (const char* place : {"missing", "plain.txt"}) {
        Texts names = {u"kept"};
        try {
            ioGetDirList(disk.text(place) + u"\\*", names, 1);
        } catch (const foundation::core::except::IException&) {
            SUCCEED() << "or fails";
        }
        EXPECT_THAT(names, ElementsAre(u"kept"));
    }
}

TEST_F(FileSystem, KnowsTheWorkingFolder) {
    CONFORMANCE_NEEDS(provider().workIn(disk.path()), "a working folder");
    const vfs::Location location = Dispatcher::getDispatcher().GetCurrentWorkingFolder().get().getLocation();
    EXPECT_EQ(pathOf(location), disk.text());
    EXPECT_EQ(vfs::GetName(location), disk.path().filename().u16string());
}

TEST_F(FileSystem, ClimbsFromLocationToLocation) {
    disk.folder("outer/inner");
    CONFORMANCE_NEEDS(provider().workIn(disk.path("outer/inner")), "a working folder");
    const vfs::Location inner = Dispatcher::getDispatcher().GetCurrentWorkingFolder().get().getLocation();
    const vfs::Location outer = vfs::GetParent(inner);
    EXPECT_EQ(pathOf(outer), disk.text("outer"));
    EXPECT_EQ(vfs::GetName(inner), u"inner");
    EXPECT_TRUE(vfs::AreSame(inner, inner));
    EXPECT_FALSE(vfs::AreSame(inner, outer));
    EXPECT_TRUE(vfs::AreSame(vfs::GetParent(inner), outer));
    vfs::Location root = inner;
    for (int climb = 0; climb < 100; ++climb) {
        root = vfs::GetParent(root);
    }
    EXPECT_TRUE(vfs::AreSame(vfs::GetParent(root), root)) << "a root is its own parent";
    EXPECT_TRUE(is_directory(status(pathOf(root))));
}

TEST_F(FileSystem, ShowsTheSearchPathInItsOrder) {
    disk.folder("second");
    disk.folder("first");
    CONFORMANCE_NEEDS(provider().searchIn({disk.path("second"), disk.path("first")}), "a search path");
    Texts found;
    for (const Entry& entry : entries()) {
        found.push_back(pathOf(entry->getLocation()));
        EXPECT_NE(entry->getKind(), privatePathEntry);
    }
    EXPECT_THAT(found, ElementsAre(disk.text("second"), disk.text("first")));
}

TEST_F(FileSystem, EndsTheSearchWhenItsVisitorSaysSo) {
    disk.folder("a");
    disk.folder("b");
    CONFORMANCE_NEEDS(provider().searchIn({disk.path("a"), disk.path("b")}), "a search path");
    int calls = 0;
    const auto once = [&calls](const Entry& entry) {
        EXPECT_TRUE(entry);
        ++calls;
        return false;
    };
    Dispatcher::getDispatcher().GetCurrentPath().visit(once);
    EXPECT_EQ(calls, 1);
    const auto thrower = [](const Entry&) -> bool { throw 3; };
    EXPECT_THROW(Dispatcher::getDispatcher().GetCurrentPath().visit(thrower), int);
    EXPECT_EQ(entries().size(), 2U);
}

TEST_F(FileSystem, FindsAFolderInAnEntryOfThePath) {
    disk.folder("shelf/inner");
    disk.file("shelf/plain.txt");
    CONFORMANCE_NEEDS(provider().searchIn({disk.path("shelf")}), "a search path");
    const Entry entry = entries().at(0);
    const auto found = entry->findFolder(u"inner");
    ASSERT_TRUE(found);
    EXPECT_EQ(pathOf(*found), disk.text("shelf/inner"));
    EXPECT_TRUE(vfs::AreSame(vfs::GetParent(*found), entry->getLocation()));
    EXPECT_FALSE(entry->findFolder(u"missing"));
    EXPECT_FALSE(entry->findFolder(u"plain.txt"));
}

TEST_F(FileSystem, FindsAFolderThatTheEntryIs) {
    disk.folder("shelf");
    CONFORMANCE_NEEDS(provider().searchIn({disk.path("shelf")}), "a search path");
    const auto found = entries().at(0)->findFolder(u"shelf");
    ASSERT_TRUE(found);
    EXPECT_EQ(pathOf(*found), disk.text("shelf"));
}

TEST_F(FileSystem, MarksEntriesOfPrivateFolders) {
    disk.folder("private");
    CONFORMANCE_NEEDS(provider().searchPrivatelyIn(disk.path("private")), "private folders on the search path");
    const std::vector<Entry> all = entries();
    EXPECT_TRUE(std::any_of(all.begin(), all.end(), [&](const Entry& entry) {
        return entry->getKind() == privatePathEntry && pathOf(entry->getLocation()) == disk.text("private");
    }));
}

}  // namespace
