#include "tests/faults/worlds.h"

#include <string_view>
#include <utility>

namespace faults {

using ZELKContextData::ClassInfo;
using ZELKContextData::ResolvedClassID;

namespace {

std::unique_ptr<ClassInfo> infoOf(std::string_view name) {
    return std::make_unique<ClassInfo>(ResolvedClassID::fromKnownResolvedClassID(std::string(name)));
}

// Classes.

void buildNothing(Scene& scene) {
    scene.value = scene.world.number(1);
    scene.scope = scene.world.scope(u"/project/other.k");
}

void buildBank(Scene& scene) {
    scene.world.cls("banking.retail.Account")
        .derives("banking.retail.Foundation")
        .hasDynamicProperties()
        .method("open")
        .isStatic()
        .method("withdrawEverything")
        .property("balance")
        .constant("overdraftLimit")
        .enumerationMember("EUR")
        .foreignNodeInEnumeration()
        .enumerationMember("zimbabweDollar");
    scene.world.cls("banking.retail.Foundation").method("close").property("beneficiaries");
    scene.value = scene.world.object("banking.retail.Account");
    scene.world.setProperty(scene.value, "balance", scene.world.number(7));
    scene.cls = scene.world.cls("banking.retail.Account").object();
    scene.scope = scene.world.scope(file);
}

void buildUndefinedAccount(Scene& scene) {
    scene.world.cls("banking.retail.Account").undefined().property("balance").enumerationMember("EUR");
    scene.value = scene.world.object("banking.retail.Account");
    scene.cls = scene.world.cls("banking.retail.Account").object();
}

void buildConstructed(Scene& scene) {
    scene.world.cls("banking.retail.Account").method("Account").method("withdrawEverything");
    scene.cls = scene.world.cls("banking.retail.Account").object();
}

void buildCrowded(Scene& scene) {
    constexpr int count = 70;
    for (int number = 0; number < count; ++number) {
        scene.world.cls("banking.retail.Account")
            .method("withdrawEverythingAtTheTimeOfNumber" + std::to_string(number));
    }
    scene.cls = scene.world.cls("banking.retail.Account").object();
}

void buildLeafAndRoot(Scene& scene) {
    scene.world.cls("p:Leaf").derives("Root").method("fall").isStatic().property("colour");
    scene.world.cls("p:Leaf").classAttribute("Sealed").methodAttribute("StaticAndLastOfItsKind");
    scene.world.cls("Root").method("restInTheGround").property("age").classAttribute("Deep");
    scene.value = scene.world.object("p:Leaf");
    scene.info = infoOf("p:Leaf");
}

// Resolution.

void importShown(Scene& scene, FunctionScope* scope) {
    scene.world.contextResolution(true);
    scene.world.cls("banking.retail.Account");
    scene.world.imports(scope, "Shown", "banking.retail.Account");
    scene.scope = scope;
}

void buildImportInFile(Scene& scene) { importShown(scene, scene.world.scope(file)); }

void buildImportInFocus(Scene& scene) {
    importShown(scene, scene.world.scope(u"/project/focus.k"));
    scene.world.debuggerStoppedAt(u"/project/focus.k", 3, 4);
}

void buildImportInExecution(Scene& scene) {
    importShown(scene, scene.world.scope(u"/project/running.k"));
    scene.world.executing(scene.scope);
}

void buildDebuggerStopped(Scene& scene) { scene.world.debuggerStoppedAt(u"/project/focus.k", 3, 4); }
void buildNoInterpreter(Scene& scene) { scene.world.noInterpreter(); }

// Members.

void takeMethod(Scene& scene, std::string_view name) {
    scene.cls = scene.world.cls("banking.retail.Account").object();
    scene.node = scene.cls->findMethods(zelk::internal::makeInterned(name))->nextElement();
    scene.info = infoOf("banking.retail.Account");
    scene.asker = infoOf("banking.retail.Teller");
}

void takeProperty(Scene& scene, std::string_view name) {
    scene.cls = scene.world.cls("banking.retail.Account").object();
    scene.node = scene.cls->findProperty(zelk::internal::makeInterned(name));
    scene.info = infoOf("banking.retail.Account");
    scene.asker = infoOf("banking.retail.Teller");
}

void buildPlainMethod(Scene& scene) {
    scene.world.cls("banking.retail.Account").method("deposit").isStatic();
    takeMethod(scene, "deposit");
}

void buildHiddenMethod(Scene& scene) {
    scene.world.cls("banking.retail.Account").method("deposit").visibility(0);
    takeMethod(scene, "deposit");
}

void buildGuardedMethod(Scene& scene) {
    scene.world.cls("banking.retail.Teller");
    scene.world.cls("banking.retail.Account")
        .method("deposit")
        .access(7)
        .openTo("bank.Other")
        .openTo("banking.retail.Teller");
    takeMethod(scene, "deposit");
}

void buildPlainProperty(Scene& scene) {
    scene.world.cls("banking.retail.Account").property("balance");
    takeProperty(scene, "balance");
}

void buildHiddenProperty(Scene& scene) {
    scene.world.cls("banking.retail.Account").property("balance").visibility(0);
    takeProperty(scene, "balance");
}

void buildGuardedProperty(Scene& scene) {
    scene.world.cls("banking.retail.Teller");
    scene.world.cls("banking.retail.Account")
        .property("balance")
        .getAccess(7)
        .setAccess(7)
        .readableBy("bank.Other")
        .writableBy("banking.retail.Teller");
    takeProperty(scene, "balance");
}

void buildValuedProperty(Scene& scene) {
    scene.world.convertsToAny("Colour", [](const std::string& raw) { return "any " + raw; });
    scene.world.cls("banking.retail.Account")
        .property("colour")
        .dataType("Colour")
        .textValue("red")
        .rawValue("1")
        .customGetter(false)
        .stored(false)
        .attribute("RVXGetSet", "double", scene.world.number(1));
    takeProperty(scene, "colour");
}

void buildFlaggedProperty(Scene& scene) {
    scene.world.cls("banking.retail.Account")
        .property("balance")
        .attribute("RVXGetSet", "logical scalar", scene.world.logical(true));
    takeProperty(scene, "balance");
}

void buildValidatedProperty(Scene& scene) {
    scene.world.cls("banking.retail.Account")
        .property("share")
        .dataType("double")
        .validation("finance.Number", {"1", ":"}, {"mustBeFinite"});
    takeProperty(scene, "share");
}

// Namespaces, functions, precedence.

void buildNamespaces(Scene& scene) {
    scene.world.cls("bank.Secret").hidden();
    scene.world.ns("banking.retail.branches")
        .holdsClass("banking.retail.Account")
        .holdsClass("bank.Secret")
        .holdsClass("bank.Money")
        .function("convertEverything")
        .function("internal")
        .access(1)
        .function("round")
        .holdsNamespace("bank.inner")
        .holdsNamespace("bank.other")
        .foreignNodes();
}

void buildFunctionMetadata(Scene& scene) {
    FunctionScope* scope = scene.world.scope(file);
    scene.world.functionMetadata("solveEverythingAtOnce", scope, scene.world.number(1), scene.world.number(2));
    scene.world.functionMetadata("solveEverythingAtOnce", nullptr, scene.world.number(3), scene.world.number(4));
}

void buildScopedFunctionMetadata(Scene& scene) {
    buildFunctionMetadata(scene);
    scene.world.contextResolution(true);
}

void buildPrecedence(Scene& scene) {
    scene.world.cls("banking.retail.Account");
    scene.world.cls("banking.retail.Foundation");
    scene.world.precedes("banking.retail.Foundation", "banking.retail.Account");
}

// Values.

void buildMatrix(Scene& scene) { scene.value = scene.world.doubles({2, 3}); }

void buildTallObject(Scene& scene) {
    scene.world.cls("banking.retail.Table").derives("tall");
    scene.value = scene.world.object("banking.retail.Table");
}

void buildCellOfTexts(Scene& scene) { scene.value = scene.world.cell({u"one", u"a rather long text"}); }

void buildCellOfNumbers(Scene& scene) {
    std::vector<qxUniqueArray> elements;
    elements.push_back(scene.world.charRow(u"a rather long text"));
    elements.push_back(scene.world.number(2));
    scene.value = scene.world.cellOf(std::move(elements));
}

void buildStructure(Scene& scene) {
    scene.value = scene.world.structure();
    for (const char* field : {"one", "severalOfThem", "three"}) {
        scene.world.setField(scene.value, field, qxUniqueArray());
    }
}

void buildForeignValue(Scene& scene) {
    memory_host::World& world = scene.world;
    world.function("methods", [&world](const qxArray*) { return world.cell({u"length", u"plus", u"trimEverything"}); });
    world.function("properties", [&world](const qxArray*) { return world.cell({u"bytes", u"characterSet"}); });
    world.function("fieldnames", [&world](const qxArray*) { return world.cell({u"bytes"}); });
    scene.value = world.opaque("java.lang.String");
    qxUniqueArray variable = world.opaque("java.lang.String");
    world.setProperty(variable, "bytes", world.number(7));
    world.variable("text", std::move(variable));
}

void buildForeignValueOfFewArts(Scene& scene) { scene.value = scene.world.opaque("java.lang.String"); }

void buildObjectWithSize(Scene& scene) {
    memory_host::World& world = scene.world;
    world.cls("banking.retail.Account").answers("size", [&world](const qxArray*) {
        return world.doubles({1, 2}, {3, 4});
    });
    scene.value = world.object("banking.retail.Account");
}

void buildObjectWithCustomSize(Scene& scene) {
    memory_host::World& world = scene.world;
    world.cls("banking.retail.Account")
        .derives("ostrel.mixin.internal.CustomSizeString")
        .answers("sizeAsDouble", [&world](const qxArray*) {
            return world.doubles({1, 3}, {3, 4, 5});
        });
    scene.value = world.object("banking.retail.Account");
}

void buildObjectWithNames(Scene& scene) {
    memory_host::World& world = scene.world;
    world.cls("banking.retail.Account").property("balance");
    world.function("properties", [&world](const qxArray*) { return world.cell({u"own", u"another of its own"}); });
    scene.value = world.object("banking.retail.Account");
}

// The workspace.

void buildWorkspace(Scene& scene) {
    memory_host::World& world = scene.world;
    qxUniqueArray one = world.structure();
    world.setField(one, "a", world.number(7));
    world.variable("s", std::move(one));

    qxUniqueArray several = world.structure({1, 2});
    world.setField(several, "a", world.number(8), 1);
    world.variable("several", std::move(several));

    world.cls("banking.retail.Account").property("balance").method("deposit");
    qxUniqueArray object = world.object("banking.retail.Account");
    world.setProperty(object, "balance", world.number(7));
    world.variable("account", std::move(object));

    world.function("two", [&world](const qxArray*) {
        world.print(u"this reaches nobody");
        world.printError(u"nor does this");
        return world.number(2);
    });
}

void buildJavaClass(Scene& scene) { scene.world.javaMember("java.lang.String", "valueOf"); }

/// The objects behind a list of an older package, each with its name.
qxUniqueArray named(memory_host::World& world, const std::u16string& name) {
    qxUniqueArray objects = world.olderObject("xob.entry");
    world.setProperty(objects, "Name", world.charRow(name));
    return objects;
}

void buildOlderPackage(Scene& scene) {
    memory_host::World& world = scene.world;
    world.function("findpackage", [&world](const qxArray*) {
        qxUniqueArray package = world.opaque("xob.package");
        world.setProperty(package, "Classes", named(world, u"Alphabetical"));
        world.setProperty(package, "Functions", named(world, u"run"));
        return package;
    });
}

void buildOlderPackageInFolders(Scene& scene) {
    scene.disk = std::make_unique<TemporaryFolder>();
    scene.disk->file("lib/@xob/a.k");
    scene.disk->file("lib/@xob/fast.qxew64");
    scene.disk->folder("lib/@xob/@Inner");
    scene.world.searchPathEntry(scene.disk->text("lib"));
}

void buildFolders(Scene& scene) {
    scene.disk = std::make_unique<TemporaryFolder>();
    scene.disk->file("work/private/tools/private.k");
    scene.disk->file("work/run.k");
    scene.disk->file("lib/tools/a_long_name.k");
    scene.world.workingFolder(scene.disk->text("work"));
    scene.world.searchPathEntry(scene.disk->text("work/private"), 3);
    scene.world.searchPathEntry(scene.disk->text("nowhere"));
    scene.world.searchPathEntry(scene.disk->text("lib"));
}

void buildDocumentedBuiltins(Scene& scene) {
    scene.world.documentedBuiltins({u"abs", u"sum", u"abs", u"a_longer_name"});
}

}  // namespace

const NamedWorld nothing = {"nothing", buildNothing};
const NamedWorld bank = {"bank", buildBank};
const NamedWorld undefinedAccount = {"undefined account", buildUndefinedAccount};
const NamedWorld constructed = {"constructed", buildConstructed};
const NamedWorld crowded = {"crowded", buildCrowded};
const NamedWorld leafAndRoot = {"leaf and root", buildLeafAndRoot};
const NamedWorld importInFile = {"import in file", buildImportInFile};
const NamedWorld importInFocus = {"import in focus", buildImportInFocus};
const NamedWorld importInExecution = {"import in execution", buildImportInExecution};
const NamedWorld debuggerStopped = {"debugger stopped", buildDebuggerStopped};
const NamedWorld noInterpreter = {"no interpreter", buildNoInterpreter};
const NamedWorld plainMethod = {"plain method", buildPlainMethod};
const NamedWorld hiddenMethod = {"hidden method", buildHiddenMethod};
const NamedWorld guardedMethod = {"guarded method", buildGuardedMethod};
const NamedWorld plainProperty = {"plain property", buildPlainProperty};
const NamedWorld hiddenProperty = {"hidden property", buildHiddenProperty};
const NamedWorld guardedProperty = {"guarded property", buildGuardedProperty};
const NamedWorld valuedProperty = {"valued property", buildValuedProperty};
const NamedWorld flaggedProperty = {"flagged property", buildFlaggedProperty};
const NamedWorld validatedProperty = {"validated property", buildValidatedProperty};
const NamedWorld namespaces = {"namespaces", buildNamespaces};
const NamedWorld functionMetadata = {"function metadata", buildFunctionMetadata};
const NamedWorld scopedFunctionMetadata = {"scoped function metadata", buildScopedFunctionMetadata};
const NamedWorld precedence = {"precedence", buildPrecedence};
const NamedWorld matrix = {"matrix", buildMatrix};
const NamedWorld tallObject = {"tall object", buildTallObject};
const NamedWorld cellOfTexts = {"cell of texts", buildCellOfTexts};
const NamedWorld cellOfNumbers = {"cell of numbers", buildCellOfNumbers};
const NamedWorld structure = {"structure", buildStructure};
const NamedWorld foreignValue = {"foreign value", buildForeignValue};
const NamedWorld foreignValueOfFewArts = {"foreign value of few arts", buildForeignValueOfFewArts};
const NamedWorld objectWithSize = {"object with size", buildObjectWithSize};
const NamedWorld objectWithCustomSize = {"object with custom size", buildObjectWithCustomSize};
const NamedWorld objectWithNames = {"object with names", buildObjectWithNames};
const NamedWorld workspace = {"workspace", buildWorkspace};
const NamedWorld javaClass = {"java class", buildJavaClass};
const NamedWorld olderPackage = {"older package", buildOlderPackage};
const NamedWorld olderPackageInFolders = {"older package in folders", buildOlderPackageInFolders};
const NamedWorld folders = {"folders", buildFolders};
const NamedWorld documentedBuiltins = {"documented builtins", buildDocumentedBuiltins};

}  // namespace faults
