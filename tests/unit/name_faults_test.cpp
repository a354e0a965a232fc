// Every host call of the questions about namespaces, folders, arguments, precedence and other object systems fails in
// turn and in every way.
#include "contextdata/argument_block_metadata.h"
#include "contextdata/namespace_names.h"
#include "contextdata/other_object_systems.h"
#include "contextdata/what_list.h"
#include "contextdata/workspace.h"
#include "tests/support/temporary_folder.h"
#include "tests/unit/question_faults.h"

namespace {

using namespace question_faults;

class NameFaults : public QuestionFaults {
protected:
    TemporaryFolder disk;
};

// Other object systems.

TEST_F(NameFaults, OlderPackageIsNoneForEveryFailureButTheInterrupt) {
    world.function("findpackage", [this](const qxArray*) { return world.opaque("xob.package"); });
    const auto rule = [](const FailedCall& failed, const Answer& full) {
        if (failed.isNullAnswer()) {
            return full;
        }
        return failed.isInterrupt() ? passing(failed) : Answer{"false", {u"kept"}, wasEvaluatedBefore(failed)};
    };
    const auto isPackage = [](const std::u16string& name) -> Ask {
        return [name](Names&) -> Reply { return {IsXOBPackage(name) ? "true" : "false", {}}; };
    };
    sweep(isPackage(u"xob"), rule);
    sweep(isPackage(u"it's"), rule);
}

/// The parts of an older package's names, as one test below builds the package.
struct PackageParts {
    Names classes = {u"Alpha", u"Beta"};
    Names functions = {u"run"};
    Names kinds[3] = {{u"a.k"}, {u"fast.qxew64"}, {u"Inner"}};
    std::size_t kindsKept = 3;

    Answer answer() const {
        Answer made{"true"};
        const auto add = [&](const Names& part) { made.names.insert(made.names.end(), part.begin(), part.end()); };
        add(classes);
        add(functions);
        std::for_each(kinds, kinds + kindsKept, add);
        return made;
    }
};

/// The names of one part or of one of its elements are not read.
PackageParts withoutWhatWasRead(const FailedCall& failed) {
    PackageParts parts;
    switch (failed.countOf(Service::qxGetPropertyShared)) {
        case 1:
            parts.classes.clear();
            break;
        case 2:
            parts.classes.erase(parts.classes.begin());
            break;
        case 3:
            parts.classes.pop_back();
            break;
        default:
            parts.functions.clear();
    }
    return parts;
}

Answer packageRule(const FailedCall& failed, const Answer& full) {
    const Service service = failed.call().service;
    if (const std::size_t kind = failed.countOf(Service::getDispatcher); kind > 0) {
        PackageParts parts;
        if (failed.isInterrupt()) {
            parts.kindsKept = kind - 1;
            return passing(failed, parts.answer().names);
        }
        parts.kinds[kind - 1].clear();
        return failed.isNullAnswer() ? full : parts.answer();
    }
    const bool isRead =
        service == Service::qxGetPropertyShared || (service == Service::qxSetArrayScope && !failed.isNullAnswer());
    if (isRead) {
        return withoutWhatWasRead(failed).answer();
    }
    if (failed.isNullAnswer()) {
        PackageParts foldersAlone;
        foldersAlone.classes.clear();
        foldersAlone.functions.clear();
        return service == Service::inCallFcnWithTrap ? foldersAlone.answer() : full;
    }
    return passing(failed, namesBefore(failed, full, Service::getScalarText));
}

TEST_F(NameFaults, NamesOfAnOlderPackageAreThoseThatCanBeRead) {
    const auto named = [this](const Names& names) {
        qxUniqueArray objects = world.olderObject("xob.entry");
        world.reshape(objects.get(), {1, names.size()});
        for (std::size_t index = 0; index < names.size(); ++index) {
            world.setProperty(objects, index, "Name", world.charRow(names[index]));
        }
        return objects;
    };
    world.function("findpackage", [&](const qxArray*) {
        qxUniqueArray package = world.opaque("xob.package");
        world.setProperty(package, "Classes", named({u"Alpha", u"Beta"}));
        world.setProperty(package, "Functions", named({u"run"}));
        return package;
    });
    disk.file("lib/@xob/a.k");
    disk.file("lib/@xob/fast.qxew64");
    disk.folder("lib/@xob/@Inner");
    world.searchPathEntry(disk.text("lib"));
    const Ask ask = [](Names& names) -> Reply {
        return {XOBContextData::getPackageStrings(u"xob", names) ? "true" : "false", {}};
    };
    ASSERT_EQ(answerTo(ask), PackageParts().answer());
    sweep(ask, packageRule);
}

TEST_F(NameFaults, JavaFunctionPassesEverythingAndIsNoneWithoutItsClassOrMember) {
    world.javaMember("java.lang.String", "valueOf");
    sweep(
        [](Names&) -> Reply {
            return {IsJavaFunction(u"java.lang.String.valueOf") ? "true" : "false", {}};
        },
        [](const FailedCall& failed, const Answer& full) {
            const bool isLookUp =
                isOneOf(failed.call().service, {Service::qxCreateClassArray, Service::qxFindClassMember});
            return failed.isNullAnswer() && isLookUp ? Answer{"false"} : everythingPasses(failed, full);
        });
}

TEST_F(NameFaults, FieldsOfAStructurePassEverythingWithTheNamesSoFar) {
    const qxUniqueArray value = world.structure();
    for (const char* field : {"one", "two", "three"}) {
        world.setField(value, field, qxUniqueArray());
    }
    sweep(
        [&](Names& names) -> Reply {
            StructContextData::getStructFieldNames(value.get(), names);
            return {};
        },
        [](const FailedCall& failed, const Answer& full) {
            return failed.isNullAnswer() ? full : passing(failed, namesBefore(failed, full, Service::toUstring));
        });
}

// Folders.

Answer folderRule(const FailedCall& failed, const Answer& full) {
    if (failed.isNullAnswer()) {
        return full;
    }
    return failed.isInterrupt() ? passing(failed) : Answer{""};
}

TEST_F(NameFaults, FolderIsEmptyForEveryFailureButTheInterrupt) {
    disk.file("work/private/tools/a.k");
    disk.file("lib/tools/b.k");
    disk.file("work/run.k");
    world.workingFolder(disk.text("work"));
    world.searchPathEntry(disk.text("work/private"), 3);
    world.searchPathEntry(disk.text("nothing"));
    world.searchPathEntry(disk.text("lib"));
    const auto lists = [](const std::u16string& folder) -> Ask {
        return [folder](Names& names) -> Reply {
            getWhatList(folder, names, ".k");
            return {};
        };
    };
    ASSERT_EQ(answerTo(lists(u"tools")).names, (Names{u"kept", u"a.k", u"b.k"}));
    sweep(lists(u"tools"), folderRule);
    ASSERT_EQ(answerTo(lists(u"")).names, (Names{u"kept", u"run.k"}));
    sweep(lists(u""), folderRule);
}

// Namespaces.

TEST_F(NameFaults, NamespaceListingsPassEverythingWithTheNamesSoFar) {
    world.cls("bank.Secret").hidden();
    world.ns("bank")
        .holdsClass("bank.Account")
        .holdsClass("bank.Secret")
        .holdsClass("bank.Money")
        .function("convert")
        .function("internal")
        .access(1)
        .function("round")
        .holdsNamespace("bank.inner")
        .holdsNamespace("bank.other")
        .foreignNodes();
    struct Listing {
        bool (*list)(const std::u16string&, Names&);
        Names names;
    };
    for (const Listing& listing :
         {Listing{ZELKContextData::getNamespaceClassNames, {u"kept", u"bank.Account", u"bank.Money"}},
          Listing{ZELKContextData::getNamespaceFunctionNames, {u"kept", u"convert", u"round"}},
          Listing{ZELKContextData::getNamespaceNamespaceNames, {u"kept", u"bank.inner", u"bank.other"}}}) {
        const Ask ask = [&](Names& names) -> Reply {
            world.ns("bank").fillsListsWhenRead();
            return {listing.list(u"bank", names) ? "true" : "false", {}};
        };
        ASSERT_EQ(answerTo(ask).names, listing.names);
        sweep(ask, [](const FailedCall& failed, const Answer& full) {
            const bool isNothingFound =
                isOneOf(failed.call().service,
                        {Service::getNamespaceInterface, Service::qxGetPropertyShared, Service::namespaceGetClasses,
                         Service::namespaceGetFunctions, Service::namespaceGetNamespaces});
            if (failed.isNullAnswer()) {
                return isNothingFound ? Answer{"false"} : full;
            }
            return passing(failed, namesBefore(failed, full, Service::toUstring));
        });
    }
}

TEST_F(NameFaults, NamesOfAllNamespacesPassEverything) {
    world.ns("bank");
    world.ns("shop");
    const Ask ask = [](Names&) -> Reply { return {"", {shared(ZELKContextData::getZELKAllNamespaces())}}; };
    const std::string bank = testing::PrintToString(std::u16string(u"bank"));
    const std::string shop = testing::PrintToString(std::u16string(u"shop"));
    ASSERT_EQ(answerTo(ask).text, " cell of 2 by 1: " + bank + " " + shop);
    sweep(ask, [&](const FailedCall& failed, const Answer& full) {
        if (!failed.isNullAnswer()) {
            return passing(failed);
        }
        switch (failed.call().service) {
            case Service::inFullFevalFcn:
                return Answer{" cell of 0 by 1:"};
            case Service::qxCreateCell:
                return Answer{" nothing"};
            case Service::qxGetProperty:
                return Answer{failed.countOf(Service::qxGetProperty) == 1 ? " cell of 2 by 1: nothing " + shop
                                                                          : " cell of 2 by 1: " + bank + " nothing"};
            default:
                return full;
        }
    });
}

// Arguments and precedence.

TEST_F(NameFaults, ArgumentMetadataPassesEverythingAndLeavesNoArray) {
    FunctionScope* const file = world.scope(u"/project/run.k");
    world.functionMetadata("solve", file, world.number(1), world.number(2));
    world.functionMetadata("solve", nullptr, world.number(3), world.number(4));
    const Ask ask = [file](Names&) -> Reply {
        auto [first, second, scope] = ZELKContextData::getArgumentBlockMetadata(u"/project/run.k", u"solve");
        return {scope == file ? "in the file" : "everywhere", {shared(std::move(first)), shared(std::move(second))}};
    };
    sweep(ask, everythingPasses);
    world.contextResolution(true);
    ASSERT_EQ(answerTo(ask).text, "in the file 1 2");
    sweep(ask, [](const FailedCall& failed, const Answer& full) {
        const bool hasNoScope = failed.isNullAnswer() && failed.call().service == Service::getFunctionScope;
        return hasNoScope ? Answer{"everywhere 3 4"} : everythingPasses(failed, full);
    });
}

TEST_F(NameFaults, PrecedencePassesEverything) {
    world.cls("bank.Money");
    world.cls("bank.Rate");
    world.precedes("bank.Money", "bank.Rate");
    sweep(
        [](Names&) -> Reply {
            return {std::to_string(GetClassPrecedence(u"bank.Money", u"bank.Rate")), {}};
        },
        everythingPasses);
    sweep(
        [](Names&) -> Reply {
            return {std::to_string(GetClassPrecedence(u"bank.Rate", u"bank.Money")), {}};
        },
        everythingPasses);
}

}  // namespace
