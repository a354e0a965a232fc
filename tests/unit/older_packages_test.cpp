#include "contextdata/other_object_systems.h"

#include "host/text.h"
#include "tests/support/temporary_folder.h"
#include "tests/support/world_test.h"

namespace {

using foundation::core::except::InterruptException;
using memory_host::Call;
using memory_host::Evaluation;
using memory_host::Fault;
using memory_host::Service;
using testing::Contains;
using testing::ElementsAre;
using testing::SizeIs;

constexpr auto failed = static_cast<inExecutionStatus>(1);

class OlderPackagesTest : public WorldTest {
protected:
    /// Has "findpackage" find a package of this name and raise an error for every other.
    void knows(const std::u16string& name) {
        world.function("findpackage", [this, name](const qxArray* argument) {
            if (getScalarText(argument) != name) {
                throw TextException("MissingNotSupported");
            }
            return world.opaque("xob.package");
        });
    }

    /// Has every evaluation end like this.
    void evaluationsGive(inExecutionStatus status, std::function<qxUniqueArray()> result) {
        world.evaluatedBy([status, result](const Evaluation&, qxArray** outputs) {
            *outputs = result().release();
            return status;
        });
    }
};

// Whether a name is a package.

class IsOlderPackage : public OlderPackagesTest {};

TEST_F(IsOlderPackage, WhatFindpackageFindsAsAnOpaqueValueIsOne) {
    knows(u"xob.tools");
    EXPECT_TRUE(IsXOBPackage(u"xob.tools"));
    EXPECT_FALSE(IsXOBPackage(u"xob.other"));
    EXPECT_FALSE(IsXOBPackage(u""));
}

TEST_F(IsOlderPackage, WhatFindpackageFindsAsAnyOtherValueIsNone) {
    world.function("findpackage", [this](const qxArray*) { return world.olderObject("xob.package"); });
    EXPECT_FALSE(IsXOBPackage(u"xob.tools"));
}

TEST_F(IsOlderPackage, NameGoesIntoTheExpressionAsItStands) {
    for (const char16_t* name : {u"xob.tools", u"it's", u"", u"a b\\n%", u"gr\u00F6\u00DFe"}) {
        IsXOBPackage(name);
        const Evaluation& asked = world.evaluations().back();
        EXPECT_EQ(asked.expression, std::u16string(u"isa(findpackage('") + name + u"'), 'opaque');");
        EXPECT_EQ(asked.outputCount, 1);
        EXPECT_TRUE(asked.flag);
        EXPECT_EQ(static_cast<int>(asked.source), 3);
    }
    EXPECT_THAT(world.evaluations(), SizeIs(5));
}

TEST_F(IsOlderPackage, QuotedNameMakesTheEvaluationFail) {
    knows(u"it's");
    EXPECT_FALSE(IsXOBPackage(u"it's"));
    knows(u"it");
    EXPECT_FALSE(IsXOBPackage(u"it'"));
}

TEST_F(IsOlderPackage, OnlyALogicalScalarThatIsTrueIsYes) {
    evaluationsGive(inExecutionStatus::success, [this] { return world.logical(true); });
    EXPECT_TRUE(IsXOBPackage(u"xob.tools"));
    evaluationsGive(inExecutionStatus::success, [this] { return world.logical(false); });
    EXPECT_FALSE(IsXOBPackage(u"xob.tools"));
    evaluationsGive(inExecutionStatus::success, [this] { return world.number(1); });
    EXPECT_FALSE(IsXOBPackage(u"xob.tools"));
    evaluationsGive(inExecutionStatus::success, [this] {
        qxUniqueArray several = world.logical(true);
        world.reshape(several.get(), {1, 2});
        return several;
    });
    EXPECT_FALSE(IsXOBPackage(u"xob.tools"));
    evaluationsGive(inExecutionStatus::success, [] { return qxUniqueArray(); });
    EXPECT_FALSE(IsXOBPackage(u"xob.tools"));
    EXPECT_EQ(world.valuesAlive(), 0U);
}

TEST_F(IsOlderPackage, FailedEvaluationIsNoWhateverItWroteAndTheResultIsDestroyed) {
    evaluationsGive(failed, [this] { return world.logical(true); });
    EXPECT_FALSE(IsXOBPackage(u"xob.tools"));
    EXPECT_EQ(world.valuesAlive(), 0U);
}

TEST_F(IsOlderPackage, ResultIsDestroyedWhenTheEvaluationThrows) {
    for (const bool interrupted : {false, true}) {
        world.evaluatedBy([this, interrupted](const Evaluation&, qxArray** outputs) -> inExecutionStatus {
            *outputs = world.logical(true).release();
            if (interrupted) {
                throw InterruptException();
            }
            throw std::runtime_error("half-way");
        });
        if (interrupted) {
            EXPECT_THROW(IsXOBPackage(u"xob.tools"), InterruptException);
        } else {
            EXPECT_FALSE(IsXOBPackage(u"xob.tools"));
        }
        EXPECT_EQ(world.valuesAlive(), 0U);
    }
}

TEST_F(IsOlderPackage, WithoutAnInterpreterThereAreNone) {
    knows(u"xob.tools");
    world.noInterpreter();
    EXPECT_FALSE(IsXOBPackage(u"xob.tools"));
}

TEST_F(IsOlderPackage, EveryFailureIsNoButTheInterruptPasses) {
    knows(u"xob.tools");
    for (const Service service :
         {Service::inValidInterpreterAvailable, Service::standardOutput, Service::streamPush, Service::standardError,
          Service::getErrorMode, Service::inEvalExp, Service::qxIsLogicalScalarTrue}) {
        for (const Fault fault : failuresButInterrupt) {
            world.faults().failService(service, fault);
            EXPECT_FALSE(IsXOBPackage(u"xob.tools")) << nameOf(service) << " " << fault;
        }
        world.faults().failService(service, Fault::interrupt);
        EXPECT_THROW(IsXOBPackage(u"xob.tools"), InterruptException) << nameOf(service);
        EXPECT_EQ(world.diversions(), 0U);
        EXPECT_EQ(world.valuesAlive(), 0U);
    }
}

TEST_F(IsOlderPackage, NothingIsPrinted) {
    world.errorMode(static_cast<qxErrorMode>(7));
    world.function("findpackage", [this](const qxArray*) -> qxUniqueArray {
        world.print(u"searching");
        world.printError(u"lost");
        throw TextException("MissingNotSupported");
    });
    EXPECT_FALSE(IsXOBPackage(u"xob.tools"));
    OutputStream::standardOutput().flush();
    OutputStream::standardError().flush();
    EXPECT_EQ(world.shown() + world.shownErrors(), u"");
    EXPECT_EQ(world.errorMode(), static_cast<qxErrorMode>(7));
}

TEST_F(IsOlderPackage, MonstrousNamesAreNone) {
    knows(u"xob.tools");
    EXPECT_FALSE(IsXOBPackage(std::u16string(1, char16_t{0xD800})));
    EXPECT_FALSE(IsXOBPackage(std::u16string(1'000'000, u'x')));
    EXPECT_FALSE(IsXOBPackage(u"'" + std::u16string(10'000, u'(')));
}

// What follows the name of a package.

class OlderPackageNames : public OlderPackagesTest {
protected:
    /// Objects of the older system, one for each name.
    qxUniqueArray named(const std::vector<std::u16string>& texts) {
        qxUniqueArray objects = world.olderObject("xob.entry");
        world.reshape(objects.get(), {1, texts.size()});
        for (std::size_t index = 0; index < texts.size(); ++index) {
            world.setProperty(objects, index, "Name", world.charRow(texts[index]));
        }
        return objects;
    }

    /// Has "findpackage" give a package that lists these.
    void packageLists(std::function<qxUniqueArray()> classes, std::function<qxUniqueArray()> functions) {
        world.function("findpackage", [this, classes, functions](const qxArray*) {
            qxUniqueArray package = world.opaque("xob.package");
            world.setProperty(package, 0, "Classes", classes());
            world.setProperty(package, 0, "Functions", functions());
            return package;
        });
    }

    void packageLists(const std::vector<std::u16string>& classes, const std::vector<std::u16string>& functions) {
        packageLists([this, classes] { return named(classes); }, [this, functions] { return named(functions); });
    }

    /// Puts the folder of the package "xob" on the search path, with something of every kind in it.
    void packageHasAFolder() {
        for (const char* entry : {"a.k", "b.k", "fast.qxew64", "slow.qxe", "readme.txt"}) {
            disk.file(std::filesystem::path("lib/@xob") / entry);
        }
        disk.folder("lib/@xob/@Inner");
        disk.folder("lib/@xob/+pack");
        world.searchPathEntry(disk.text("lib"));
    }

    bool list(const std::u16string& package = u"xob") { return XOBContextData::getPackageStrings(package, names); }

    const Names before = {u"kept"};
    Names names = before;
    TemporaryFolder disk;
};

TEST_F(OlderPackageNames, ClassesThenFunctionsThenTheThreeKindsOfTheFolder) {
    packageLists({u"Zeta", u"Alpha"}, {u"walk", u"run"});
    packageHasAFolder();
    EXPECT_TRUE(list());
    EXPECT_THAT(names,
                ElementsAre(u"kept", u"Zeta", u"Alpha", u"walk", u"run", u"a.k", u"b.k", u"fast.qxew64", u"Inner"));
}

TEST_F(OlderPackageNames, NamesAreNotDeduplicated) {
    packageLists({u"a.k", u"kept"}, {u"a.k"});
    packageHasAFolder();
    EXPECT_TRUE(list());
    EXPECT_THAT(names, ElementsAre(u"kept", u"a.k", u"kept", u"a.k", u"a.k", u"b.k", u"fast.qxew64", u"Inner"));
}

TEST_F(OlderPackageNames, FindpackageIsCalledOnceWithTheNameAsAText) {
    std::vector<std::u16string> asked;
    world.function("findpackage", [&](const qxArray* argument) {
        asked.push_back(getScalarText(argument));
        return qxUniqueArray();
    });
    EXPECT_FALSE(list(u"x'\u00E4"));
    EXPECT_THAT(asked, ElementsAre(u"x'\u00E4"));
    EXPECT_THAT(world.journal().calls(), Contains(Call{Service::inCallFcnWithTrap, "findpackage"}).Times(1));
}

TEST_F(OlderPackageNames, PackageThatFindpackageDoesNotKnowHasWhatLiesInItsFolder) {
    packageHasAFolder();
    EXPECT_TRUE(list());
    EXPECT_THAT(names, ElementsAre(u"kept", u"a.k", u"b.k", u"fast.qxew64", u"Inner"));
    world.function("findpackage", [](const qxArray*) -> qxUniqueArray { throw TextException("MissingNotSupported"); });
    EXPECT_TRUE(list());
    EXPECT_THAT(names, SizeIs(9));
}

TEST_F(OlderPackageNames, PackageWithoutAFolderHasItsClassesAndFunctions) {
    packageLists({u"Alpha"}, {u"run"});
    EXPECT_TRUE(list());
    EXPECT_THAT(names, ElementsAre(u"kept", u"Alpha", u"run"));
}

TEST_F(OlderPackageNames, UnknownPackageAnswersFalseWhateverTheVectorHolds) {
    EXPECT_FALSE(list());
    packageLists(std::vector<std::u16string>{}, {});
    EXPECT_FALSE(list());
    EXPECT_EQ(names, before);
}

TEST_F(OlderPackageNames, FolderIsThatOfTheMarkedNameAlone) {
    disk.file("lib/xob/a.k");
    disk.file("lib/@xob2/b.k");
    disk.file("work/c.k");
    world.workingFolder(disk.text("work"));
    world.searchPathEntry(disk.text("lib"));
    EXPECT_FALSE(list());
    disk.file("lib/@/d.k");
    EXPECT_TRUE(list(u""));
    EXPECT_THAT(names, ElementsAre(u"kept", u"d.k"));
}

TEST_F(OlderPackageNames, ResultThatIsNoScalarIsNoPackage) {
    world.function("findpackage", [this](const qxArray*) {
        qxUniqueArray package = world.opaque("xob.package");
        world.setProperty(package, "Classes", named({u"Alpha"}));
        world.reshape(package.get(), {1, 2});
        return package;
    });
    EXPECT_FALSE(list());
    EXPECT_EQ(world.journal().countOf(Service::qxGetPropertyShared), 0U);
}

TEST_F(OlderPackageNames, ResultOfAFailedCallIsNoPackageAndIsDestroyed) {
    packageLists({u"Alpha"}, {u"run"});
    world.functionFails("findpackage");
    EXPECT_FALSE(list());
    EXPECT_EQ(world.journal().countOf(Service::qxGetPropertyShared), 0U);
    EXPECT_EQ(world.valuesAlive(), 0U);
}

TEST_F(OlderPackageNames, EmptyListsAddNothing) {
    packageLists([] { return qxUniqueArray(); }, [this] { return named({u"run"}); });
    EXPECT_TRUE(list());
    packageLists([this] { return named({}); }, [this] { return named({u"walk"}); });
    EXPECT_TRUE(list());
    EXPECT_THAT(names, ElementsAre(u"kept", u"run", u"walk"));
}

TEST_F(OlderPackageNames, PackageThatCannotShowAListHasTheOther) {
    world.function("findpackage", [this](const qxArray*) {
        qxUniqueArray package = world.opaque("xob.package");
        world.setProperty(package, "Functions", named({u"run"}));
        return package;
    });
    EXPECT_TRUE(list());
    EXPECT_THAT(names, ElementsAre(u"kept", u"run"));
}

TEST_F(OlderPackageNames, EachElementIsAskedForItsOwnName) {
    packageLists([this] { return named({u"Alpha", u"Beta", u"Gamma"}); }, [] { return qxUniqueArray(); });
    EXPECT_TRUE(list());
    EXPECT_THAT(names, ElementsAre(u"kept", u"Alpha", u"Beta", u"Gamma"));
    EXPECT_THAT(world.journal().calls(), Contains(Call{Service::qxGetPropertyShared, "Name"}).Times(3));
}

TEST_F(OlderPackageNames, ElementWhoseNameIsEmptyUnsetOrUnreadableIsLeftOut) {
    packageLists(
        [this] {
            qxUniqueArray objects = named({u"Alpha", u"", u"gone", u"Omega"});
            world.setProperty(objects, 2, "Name", qxUniqueArray());
            return objects;
        },
        [this] {
            qxUniqueArray objects = world.olderObject("xob.entry");
            return objects;
        });
    EXPECT_TRUE(list());
    EXPECT_THAT(names, ElementsAre(u"kept", u"Alpha", u"Omega"));
}

TEST_F(OlderPackageNames, NameMayBeAString) {
    packageLists(
        [this] {
            qxUniqueArray objects = world.olderObject("xob.entry");
            world.setProperty(objects, "Name", world.stringScalar(u"Alpha"));
            return objects;
        },
        [] { return qxUniqueArray(); });
    EXPECT_TRUE(list());
    EXPECT_THAT(names, ElementsAre(u"kept", u"Alpha"));
}

TEST_F(OlderPackageNames, NameThatIsNoTextIsAFailureThatPassesWithTheNamesSoFar) {
    packageLists([this] { return named({u"Alpha"}); },
                 [this] {
                     qxUniqueArray objects = named({u"run", u""});
                     world.setProperty(objects, 1, "Name", world.number(1));
                     return objects;
                 });
    EXPECT_THROW(list(), TextException);
    EXPECT_THAT(names, ElementsAre(u"kept", u"Alpha", u"run"));
    EXPECT_EQ(world.valuesAlive(), 0U);
}

TEST_F(OlderPackageNames, ReadingAPropertySwallowsEverythingTheInterruptIncluded) {
    packageLists({u"Alpha", u"Beta"}, {u"run"});
    for (const Service service : {Service::qxGetPropertyShared, Service::qxSetArrayScope}) {
        names = before;
        world.faults().failService(service, 2, Fault::interrupt);  // the name of the first class
        EXPECT_TRUE(list());
        EXPECT_THAT(names, ElementsAre(u"kept", u"Beta", u"run"));
        names = before;
        world.faults().failService(service, 1, Fault::interrupt);  // the classes themselves
        EXPECT_TRUE(list());
        EXPECT_THAT(names, ElementsAre(u"kept", u"run"));
    }
}

TEST_F(OlderPackageNames, InterruptOfTheCallIsNotTrapped) {
    packageHasAFolder();
    world.function("findpackage", [](const qxArray*) -> qxUniqueArray { throw InterruptException(); });
    EXPECT_THROW(list(), InterruptException);
    EXPECT_EQ(names, before);
}

TEST_F(OlderPackageNames, FailureToListTheFolderCostsThatKindAlone) {
    packageLists({u"Alpha"}, {u"run"});
    packageHasAFolder();
    world.faults().failService(Service::ioGetDirList, 1, Fault::standardException);
    EXPECT_TRUE(list());
    EXPECT_THAT(names, ElementsAre(u"kept", u"Alpha", u"run", u"fast.qxew64", u"Inner"));
}

TEST_F(OlderPackageNames, InterruptWhileTheFolderIsListedPassesWithTheNamesSoFar) {
    packageLists({u"Alpha"}, {u"run"});
    packageHasAFolder();
    world.faults().failService(Service::ioGetDirList, 2, Fault::interrupt);
    EXPECT_THROW(list(), InterruptException);
    EXPECT_THAT(names, ElementsAre(u"kept", u"Alpha", u"run", u"a.k", u"b.k"));
}

TEST_F(OlderPackageNames, NothingThatWasReadStaysInTheTemporaryScope) {
    packageLists({u"Alpha"}, {u"run"});
    EXPECT_TRUE(list());
    EXPECT_EQ(world.valuesAlive(), 0U);
    world.endTemporaryScope();  // would release them a second time
}

TEST_F(OlderPackageNames, MonstrousNamesHaveNothing) {
    for (const std::u16string& name :
         {std::u16string(1, char16_t{0xD800}), std::u16string(1'000'000, u'x'), std::u16string(10'000, u'(')}) {
        EXPECT_FALSE(list(name));
    }
    EXPECT_EQ(names, before);
}

}  // namespace
