#include <algorithm>
#include <utility>

#include "contextdata/other_object_systems.h"
#include "contextdata/what_list.h"
#include "contextdata/workspace.h"
#include "tests/fuzz/expect.h"
#include "tests/fuzz/plain_utf.h"
#include "tests/fuzz/queries.h"
#include "tests/support/temporary_folder.h"

namespace fuzz {

namespace {

/// What lies in each of the folders "first", "second" and "private", in their folder "sought" and in "@pack".
const Wides& entries() {
    static const Wides names = {u"+", u"+pack", u".k", u"@", u"@A", u"a.k", u"b.kk", u"c.qxe", u"d.qxew64", u"e.K"};
    return names;
}

/// Made once: folders are slow, and nobody changes these.
const TemporaryFolder& disk() {
    static const TemporaryFolder made;
    static const bool isFilled = [] {
        for (const char* folder : {"first", "second", "private"}) {
            for (const char* inside : {"", "/sought", "/@pack"}) {
                for (const std::u16string& entry : entries()) {
                    made.file(std::string(folder) + inside + "/" + narrow(entry));
                }
            }
        }
        return true;
    }();
    (void)isFilled;
    return made;
}

/// The entries of a kind, in the order of the listing, which is sorted.
Wides ofKind(const Wides& listed, const std::string& kind) {
    Wides names;
    for (const std::u16string& entry : listed) {
        const bool isMarked = entry.size() > 1;
        if ((kind == "classes" && isMarked && entry[0] == u'@') ||
            (kind == "packages" && isMarked && entry[0] == u'+')) {
            names.push_back(entry.substr(1));
        }
        if ((kind == ".k" && entry.ends_with(u".k")) || (kind == ".qxe" && entry.ends_with(u".qxew64"))) {
            names.push_back(entry);
        }
    }
    return names;
}

/// All that lies in a folder: the entries, and what stands beside them in the outer folders.
Wides contentOf(bool isOuter) {
    Wides listed = entries();
    if (isOuter) {
        listed.insert(listed.end(), {u"@pack", u"sought"});
        std::sort(listed.begin(), listed.end());
    }
    return listed;
}

struct PathEntry {
    const char* folder;
    bool isPrivate;
};

/// Sets up the folders of the case: its search path, and whether private folders are open to the working folder.
struct Folders {
    std::vector<PathEntry> path;
    std::string working;

    bool isOpen(const PathEntry& entry) const { return !entry.isPrivate || working.empty(); }
};

Folders folders(const Case& world) {
    constexpr const char* places[] = {"first", "second", "private", "missing"};
    Folders made;
    for (std::size_t count = world.input.below(4); count > 0; --count) {
        const char* place = world.input.oneOf(places);
        made.path.push_back({place, world.input.once(2)});
        world.world.searchPathEntry(disk().text(place), made.path.back().isPrivate ? 3 : 0);
    }
    // The folder that all of them lie in, one of them, or one that is not there.
    constexpr const char* workings[] = {"", "first", "missing"};
    made.working = world.input.oneOf(workings);
    world.world.workingFolder(made.working.empty() ? disk().text() : disk().text(made.working));
    return made;
}

/// What is listed for a folder of that name along the path.
Wides listedFor(const Folders& set, const std::string& name) {
    Wides all;
    for (const PathEntry& entry : set.path) {
        const bool isThere = std::string(entry.folder) != "missing";
        const bool isEntry = name == entry.folder;
        const bool isInside = name == "sought" || name == "@pack";
        if (isThere && set.isOpen(entry) && (isEntry || isInside)) {
            const Wides content = contentOf(isEntry);
            all.insert(all.end(), content.begin(), content.end());
        }
    }
    return all;
}

void askForLists(const Case& world, const Folders& set) {
    constexpr const char* kinds[] = {"classes", "packages", ".k", ".qxe", "other", ""};
    constexpr const char* names[] = {"sought", "@pack", "first", "missing", "nowhere"};
    const std::string kind = world.input.oneOf(kinds);
    const std::string name = world.input.oneOf(names);
    Wides found = {u"kept"};
    getWhatList(wide(name), found, kind);
    Wides expected = ofKind(listedFor(set, name), kind);
    expected.insert(expected.begin(), u"kept");
    expectEqual(found, expected, "what lies in " + name + " of the kind " + kind);

    // Without a name it is the working folder.
    found.clear();
    getWhatList(u"", found, kind);
    Wides here;
    if (set.working == "first") {
        here = contentOf(true);
    } else if (set.working.empty()) {
        here = {u"first", u"private", u"second"};
    }
    expectEqual(found, ofKind(here, kind), "what lies in the working folder of the kind " + kind);
}

/// What the interpreter says to the question whether a name is a package.
enum class Verdict { yes, no, noLogical, nothing, error, failure };

void askForPackages(const Case& world, const Folders& set) {
    const auto verdict = static_cast<Verdict>(world.input.below(6));
    const std::u16string name = world.input.once(2) ? std::u16string(u"pack") : world.input.text(8);
    std::u16string asked;
    world.world.evaluatedBy([&](const memory_host::Evaluation& question, qxArray** outputs) {
        asked = question.expression;
        expect(question.outputCount == 1 && question.flag, "one output, and a statement that ends with a semicolon");
        expect(question.source == inEvaluationSource::introspection, "asked by introspection");
        if (verdict == Verdict::failure) {
            throw 5;
        }
        if (verdict == Verdict::yes || verdict == Verdict::no) {
            outputs[0] = world.world.logical(verdict == Verdict::yes).release();
        } else if (verdict == Verdict::noLogical) {
            outputs[0] = world.world.number(1).release();
        }
        return static_cast<inExecutionStatus>(verdict == Verdict::error ? 1 : 0);
    });
    expectEqual(IsXOBPackage(name), verdict == Verdict::yes, "a package: " + shown(name));
    expectEqual(asked, u"isa(findpackage('" + name + u"'), 'opaque');", "what was evaluated");
    qxArray* output = nullptr;
    bool hasThrown = false;
    bool isGood = false;
    try {
        isGood = EvalcExpSuccessful(u"isa(findpackage(''), 'opaque');", 1, &output, true);
    } catch (int) {
        hasThrown = true;
    }
    const qxUniqueArray owned(output);
    expectEqual(hasThrown, verdict == Verdict::failure, "whether an evaluation throws");
    expectEqual(isGood, verdict != Verdict::failure && verdict != Verdict::error, "whether an evaluation succeeds");
    world.world.evaluatedBy(nullptr);

    // The names that may follow a package: classes, functions, and what lies in its folder.
    const bool isFound = world.input.once(2);
    world.world.function("findpackage", [&](const qxArray*) -> qxUniqueArray {
        if (!isFound) {
            return nullptr;
        }
        qxUniqueArray package = world.world.opaque("package");
        qxUniqueArray classes = world.world.doubles({1, 2});
        world.world.setProperty(classes, 0, "Name", world.world.charRow(u"Account"));
        world.world.setProperty(classes, 1, "Name", world.world.charRow(u""));
        world.world.setProperty(package, "Classes", std::move(classes));
        world.world.setProperty(package, "Functions", world.world.doubles({0, 0}));
        return package;
    });
    Wides names = {u"kept"};
    const bool grew = XOBContextData::getPackageStrings(u"pack", names);
    Wides expected = {u"kept"};
    if (isFound) {
        expected.push_back(u"Account");
    }
    for (const char* kind : {".k", ".qxe", "classes"}) {
        const Wides listed = ofKind(listedFor(set, "@pack"), kind);
        expected.insert(expected.end(), listed.begin(), listed.end());
    }
    expectEqual(names, expected, "what follows a package");
    expectEqual(grew, expected.size() > 1, "whether anything follows a package");
    world.world.function("findpackage", [](const qxArray*) -> qxUniqueArray { return nullptr; });
}

}  // namespace

void askAboutFolders(const Case& world) {
    const Folders set = folders(world);
    askForLists(world, set);
    askForPackages(world, set);
}

}  // namespace fuzz
