#include <utility>

#include "contextdata/class_member_names.h"
#include "contextdata/introspection.h"
#include "contextdata/member_names.h"
#include "contextdata/resolved_class_id.h"
#include "contextdata/workspace.h"
#include "tests/fuzz/expect.h"
#include "tests/fuzz/plain_utf.h"
#include "tests/fuzz/queries.h"

namespace fuzz {

namespace {

using ZELKContextData::ResolvedClassID;
using NameList = bool (*)(const std::u16string&, Wides&, bool&);
using NameListByIdentity = bool (*)(const ResolvedClassID&, Wides&, bool&);

ResolvedClassID known(const std::string& name) { return ResolvedClassID::fromKnownResolvedClassID(name); }

/// The class object of a class of the model, by the world's own record of it.
const void* objectOf(const Case& world, const ModelClass* cls) {
    return cls == nullptr ? nullptr : static_cast<const void*>(world.world.cls(cls->name).object());
}

const void* asPointer(zelk::COSClass* cls) { return cls; }

void askAboutOne(const Case& world, const std::string& name) {
    const std::string what = " of " + name;
    const std::u16string wideName = wide(name);
    const ModelClass* cls = world.classes.find(name);
    const ModelClass* defined = world.classes.findDefined(name);
    expectEqual(asPointer(ZELKIntrospection::getCOSClass(wideName)), objectOf(world, defined), "the class" + what);
    expectEqual(asPointer(ZELKIntrospection::getCOSClass(known(name))), objectOf(world, cls),
                "the class object" + what);
    expectEqual(ZELKIntrospection::isZELKClass(wideName), defined != nullptr, "definedness" + what);
    expectEqual(ZELKIntrospection::isZELKClass(known(name)), cls != nullptr, "being known" + what);
    expectEqual(ZELKIntrospection::isHiddenZELKClass(wideName), defined != nullptr && defined->isHidden,
                "hiding" + what);
    for (const std::string& base : classNames()) {
        expectEqual(ZELKIntrospection::isZELKClassDerivedFrom(wideName, wide(base)),
                    defined != nullptr && world.classes.derives(*defined, base), "derivation from " + base + what);
        expectEqual(ZELKIntrospection::isZELKClassDerivedFrom(known(name), known(base)),
                    cls != nullptr && world.classes.derives(*cls, base), "derivation by identity from " + base + what);
    }
    // Of a name that is no class, one member tells as much as all.
    const std::size_t count = defined == nullptr ? 1 : memberNames().size();
    for (std::size_t index = 0; index < count; ++index) {
        const std::string& member = memberNames()[index];
        const ModelMethod* method = defined == nullptr ? nullptr : world.classes.findMethod(*defined, member);
        for (const bool before : {false, true}) {
            bool flag = before;
            expectEqual(ZELKIntrospection::hasMethod(wideName, member, flag), method != nullptr, member + what);
            expectEqual(flag, method != nullptr ? method->isStatic : before, "the flag for " + member + what);
            flag = before;
            expectEqual(ZELKIntrospection::hasMethod(known(name), member, flag), method != nullptr,
                        "by identity " + member + what);
            expectEqual(flag, method != nullptr ? method->isStatic : before, "by identity the flag " + member + what);
        }
    }
}

/// `expected` is empty where the class is not there.
void askForList(const Case& world, const std::string& name, NameList byName, NameListByIdentity byIdentity,
                const std::optional<Wides>& expectedByName, const std::optional<Wides>& expectedByIdentity,
                bool writesFlag, const std::string& what) {
    const auto check = [&](auto list, const auto& subject, const std::optional<Wides>& expected, const ModelClass* cls,
                           const std::string& how) {
        for (const bool before : {false, true}) {
            Wides names = {u"kept", u"work"};
            bool flag = before;
            const bool grew = list(subject, names, flag);
            Wides all = {u"kept", u"work"};
            if (expected) {
                all.insert(all.end(), expected->begin(), expected->end());
            }
            expectEqual(names, all, what + how + name);
            expectEqual(grew, all.size() > 2, "growth of " + what + how + name);
            const bool isWritten = writesFlag && cls != nullptr;
            expectEqual(flag, isWritten ? cls->hasDynamicProperties : before, "the flag of " + what + how + name);
        }
    };
    check(byName, wide(name), expectedByName, world.classes.findDefined(narrowAscii(wide(name))), " by name of ");
    check(byIdentity, known(name), expectedByIdentity, world.classes.find(name), " by identity of ");
}

void askForLists(const Case& world, const std::string& name) {
    using namespace ZELKContextData;
    // By name, the text goes through ASCII; by identity a class object without a definition will do.
    const ModelClass* byName = world.classes.findDefined(narrowAscii(wide(name)));
    const ModelClass* byIdentity = world.classes.find(name);
    const auto list = [&](NameList first, NameListByIdentity second, auto rule, bool writesFlag, const char* what) {
        const auto expected = [&](const ModelClass* cls) {
            return cls == nullptr ? std::nullopt : std::optional<Wides>(rule(*cls));
        };
        askForList(world, name, first, second, expected(byName), expected(byIdentity), writesFlag, what);
    };
    const ClassRules& rules = world.classes;
    list(
        getClassMethodNames, getClassMethodNames, [&](const ModelClass& cls) { return rules.methodNames(cls, 0, 1); },
        false, "methods");
    list(
        getClassStaticMethodNames, getClassStaticMethodNames,
        [&](const ModelClass& cls) { return rules.methodNames(cls, 1, 1); }, false, "static methods");
    list(
        getClassPropertyNames, getClassPropertyNames,
        [&](const ModelClass& cls) { return rules.propertyNames(cls, 2, 2, 2, 1); }, true, "properties");
    list(
        getClassConstantPropertyNames, getClassConstantPropertyNames,
        [&](const ModelClass& cls) { return rules.propertyNames(cls, 2, 2, 0, 1); }, true, "constants");
    list(
        getClassEnumerationNames, getClassEnumerationNames,
        [&](const ModelClass& cls) { return rules.enumerationNames(cls); }, false, "enumeration members");
}

void askForSelections(const Case& world, const ModelClass& cls) {
    zelk::COSClass* object = world.world.cls(cls.name).object();
    for (int staticSelection = -2; staticSelection <= 2; ++staticSelection) {
        for (int listable = -2; listable <= 2; ++listable) {
            Wides names;
            ZELKIntrospection::getClassMethodNames(object, names, staticSelection, listable);
            expectEqual(names, world.classes.methodNames(cls, staticSelection, listable),
                        "methods of " + cls.name + " by " + shown(std::vector<int>{staticSelection, listable}));
        }
    }
    const int a = static_cast<int>(world.input.below(4));
    const int b = static_cast<int>(world.input.below(4));
    const int c = static_cast<int>(world.input.below(4));
    const int d = static_cast<int>(world.input.below(4));
    using ZELKIntrospection::DesiredPropertyAttributes;
    const DesiredPropertyAttributes wishes[] = {ZELKIntrospection::leftHandSideDesiredPropertyAttributes,
                                                ZELKIntrospection::rightHandSideDesiredPropertyAttributes,
                                                ZELKIntrospection::eitherSideDesiredPropertyAttributes,
                                                {a, b, c, d}};
    const int selections[][4] = {{2, 0, 1, 1}, {0, 2, 2, 1}, {2, 2, 2, 1}, {a, b, c, d}};
    for (std::size_t index = 0; index < 4; ++index) {
        Wides names;
        ZELKIntrospection::getClassPropertyNames(object, names, wishes[index]);
        const int* s = selections[index];
        expectEqual(names, world.classes.propertyNames(cls, s[0], s[1], s[2], s[3]),
                    "properties of " + cls.name + " by " + shown(std::vector<int>(s, s + 4)));
    }
}

void askForIdentities(const Case& world, const std::string& name) {
    const std::u16string wideName = wide(name);
    const auto check = [&](const ResolvedClassID& id, const std::string& expected, const std::string& what) {
        expectEqual(std::string(id.get().view()), expected, what);
        expectEqual(id.isNull(), expected.empty(), "nullness of " + what);
        expectEqual(id.getComponentQualifiedName(), wide(expected), "the full name of " + what);
        expectEqual(id.getNonComponentQualifiedName(), wide(ClassRules::baseName(expected)), "the name of " + what);
    };
    for (const std::string& file : fileNames()) {
        check(ResolvedClassID(wide(file), wideName), world.classes.resolvedIn(file, name), name + " in " + file);
    }
    for (std::size_t index = 0; index < world.scopes.size(); ++index) {
        check(ResolvedClassID(world.scopes[index], wideName),
              world.classes.resolvedIn(&world.model.scopes[index], name), name + " in a scope");
    }
    const FunctionScope* nowhere = nullptr;
    const ModelScope* none = nullptr;
    check(ResolvedClassID(nowhere, wideName), world.classes.resolvedIn(none, name), name + " in no scope");
    check(known(name), name, name + " as known");
    check(ResolvedClassID::fromKnownResolvedClassID(wideName), narrowAscii(wideName), name + " as known in UTF-16");
    expectEqual(ResolvedClassID::isAlreadyResolved(name), name.find(':') != std::string::npos, "qualification " + name);
    for (const bool isWide : {false, true}) {
        const std::string asked = isWide ? narrowAscii(wideName) : name;
        const ModelClass* cls = world.classes.findDefined(asked);
        try {
            const ResolvedClassID id =
                isWide ? ResolvedClassID::fromLegacyString(wideName) : ResolvedClassID::fromLegacyString(name);
            check(id, cls == nullptr ? "(none)" : cls->name, name + " as an older form");
        } catch (const ResolvedClassID::BadClassNameException& failure) {
            expect(cls == nullptr, "an older form is known: " + name);
            expectEqual(failure.getBadClassName(), asked, "the bad name");
        }
    }
}

void askForPrecedence(const Case& world) {
    const auto holds = [&](const std::string& first, const std::string& second) {
        const ModelClass* one = world.classes.find(narrowAscii(wide(first)));
        const ModelClass* other = world.classes.find(narrowAscii(wide(second)));
        return one != nullptr && other != nullptr && world.model.precedences.contains({one->name, other->name});
    };
    for (const ModelClass& first : world.model.classes) {
        for (const ModelClass& second : world.model.classes) {
            const int expected = holds(first.name, second.name) ? -1 : holds(second.name, first.name) ? 1 : 0;
            expectEqual(GetClassPrecedence(wide(first.name), wide(second.name)), expected,
                        "precedence of " + first.name + " and " + second.name);
        }
    }
}

}  // namespace

void askAboutClasses(const Case& world) {
    const ResolvedClassID::DebuggerFocus focus = ResolvedClassID::GetDebuggerFocus();
    expectEqual(focus.fileName, wide(world.model.stoppedIn.value_or("")), "the debugger's focus");
    expectEqual(focus.focusPosition1 * 10 + focus.focusPosition2, world.model.stoppedIn ? 34 : 0, "its positions");
    for (const std::string& name : classNames()) {
        askAboutOne(world, name);
        askForLists(world, name);
        askForIdentities(world, name);
    }
    // Of a long chain of classes one is enough.
    if (world.model.classes.size() >= 20) {
        askForSelections(world, world.input.oneOf(world.model.classes));
        return;
    }
    for (const ModelClass& cls : world.model.classes) {
        askForSelections(world, cls);
    }
    askForPrecedence(world);
}

}  // namespace fuzz
