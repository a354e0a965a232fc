// Questions about classes, namespaces, objects and their members.
#include "contextdata/introspection.h"

#include "tests/faults/function_table.h"

namespace faults {

using ZELKContextData::ResolvedClassID;
using namespace ZELKIntrospection;
using enum Service;

namespace {

const std::string statik = "open";
const std::string ordinary = "withdrawEverything";
const std::string property = "balance";
const std::string unknown = "nothingOfTheKind";
const std::string methodsFunction = "methods";
const std::u16string space = u"banking.retail.branches";
const std::u16string secret = u"bank.Secret";

ResolvedClassID idOf(const std::u16string& name) { return ResolvedClassID::fromKnownResolvedClassID(name); }

/// Asks with the identity of banking.retail.Account at hand.
template <class Call>
Question asksOfIdentity(Call call) {
    return [call](Scene&, Caller& caller) {
        const ResolvedClassID id = idOf(account);
        return told(caller([&] { return call(id, caller); }));
    };
}

/// The class of a name: every failure but the interrupt is no class.
Rule lookUpByName(const char* negative) { return guarded(negative).null({getClass, classGetDefinition}, negative); }

/// The class of an identity, which need not be defined.
Rule lookUpByIdentity(const char* negative) { return guarded(negative).null({getClass}, negative); }

/// The class of a value: asking the value is not guarded, the look-up is.
Rule lookUpByValue(const char* negative) {
    return passes()
        .at({getClass, classGetDefinition}, guarded(negative))
        .null({getClass, classGetDefinition}, negative);
}

std::vector<Row> classRows() {
    return {
        Row("ZELKIntrospection::getCOSClass(u16string const&)", {bank, undefinedAccount, nothing},
            asks([](Scene&, Caller&) { return getCOSClass(account); }), lookUpByName("nothing")),
        Row("ZELKIntrospection::getCOSClass(ZELKContextData::ResolvedClassID const&)",
            {bank, undefinedAccount, nothing}, asksOfIdentity([](const auto& id, Caller&) { return getCOSClass(id); }),
            lookUpByIdentity("nothing")),
        Row("ZELKIntrospection::getCOSClass(qxArray const*)", {bank, undefinedAccount, matrix},
            asks([](Scene& scene, Caller&) { return getCOSClass(scene.value.get()); }), lookUpByValue("nothing")),
        Row("ZELKIntrospection::isZELKClass(u16string const&)", {bank, undefinedAccount, nothing},
            asks([](Scene&, Caller&) { return isZELKClass(account); }), lookUpByName("false")),
        Row("ZELKIntrospection::isZELKClass(ZELKContextData::ResolvedClassID const&)",
            {bank, undefinedAccount, nothing}, asksOfIdentity([](const auto& id, Caller&) { return isZELKClass(id); }),
            lookUpByIdentity("false")),
        Row("ZELKIntrospection::isZELKObject(qxArray const*)", {bank, undefinedAccount, matrix},
            asks([](Scene& scene, Caller&) { return isZELKObject(scene.value.get()); }), lookUpByValue("false")),
        Row("ZELKIntrospection::isHiddenZELKClass(u16string const&)", {namespaces},
            asks([](Scene&, Caller&) { return isHiddenZELKClass(secret); }),
            lookUpByName("false").at({classIsHidden}, passes()))
            .also({bank, nothing}, asks([](Scene&, Caller&) { return isHiddenZELKClass(account); }),
                  lookUpByName("false").at({classIsHidden}, passes())),
        Row("ZELKIntrospection::isZELKClassDerivedFrom(u16string const&, u16string const&)",
            {bank, undefinedAccount, nothing},
            asks([](Scene&, Caller&) { return isZELKClassDerivedFrom(account, base); }),
            lookUpByName("false").from({toString, 2}, passes())),
        Row(
            "ZELKIntrospection::isZELKClassDerivedFrom(ZELKContextData::ResolvedClassID const&, "
            "ZELKContextData::ResolvedClassID const&)",
            {bank, undefinedAccount, nothing},
            [](Scene&, Caller& caller) {
                const ResolvedClassID derived = idOf(account);
                const ResolvedClassID of = idOf(base);
                return told(caller([&] { return isZELKClassDerivedFrom(derived, of); }));
            },
            passes().at({getClass}, guarded("false")).null({getClass}, "false")),
        Row("ZELKIntrospection::getClassName(qxArray const*)", {bank, matrix},
            asks([](Scene& scene, Caller&) { return getClassName(scene.value.get()); }), passes()),
        Row("ZELKIntrospection::getConstructorName(u16string const&)", {nothing},
            asks([](Scene&, Caller&) { return getConstructorName(base); }), passes()),
        Row("ZELKIntrospection::isNoDotMethodClass(qxArray const*)", {bank, tallObject, matrix},
            asks([](Scene& scene, Caller&) { return isNoDotMethodClass(scene.value.get()); }), passes()),
    };
}

std::vector<Row> namespaceRows() {
    return {
        Row("ZELKIntrospection::isZELKNamespace(u16string const&)", {namespaces, nothing},
            asks([](Scene&, Caller&) { return isZELKNamespace(space); }),
            passes().null({getNamespaceInterface}, "false")),
        Row("ZELKIntrospection::getNamespaceInterface(u16string const&)", {namespaces, nothing},
            asks([](Scene&, Caller&) { return ZELKIntrospection::getNamespaceInterface(space); }),
            passes().null({getNamespaceInterface}, "nothing")),
    };
}

std::vector<Row> memberRows() {
    const Rule byIdentity = passes()
                                .at({getClass}, guarded("false"))
                                .null({getClass, classGetDefinition, classFindMethods}, "false")
                                .flagBy(methodIsStatic);
    const Rule byName =
        guarded("false").null({getClass, classGetDefinition, classFindMethods}, "false").flagBy(methodIsStatic);
    return {
        Row("ZELKIntrospection::hasMethod(ZELKContextData::ResolvedClassID const&, string const&, bool&)",
            {bank, undefinedAccount, nothing},
            asksOfIdentity([](const auto& id, Caller& caller) { return hasMethod(id, statik, caller.flag); }),
            byIdentity)
            .also({bank},
                  asksOfIdentity([](const auto& id, Caller& caller) { return hasMethod(id, unknown, caller.flag); }),
                  byIdentity),
        Row("ZELKIntrospection::hasMethod(u16string const&, string const&, bool&)", {bank, undefinedAccount, nothing},
            asks([](Scene&, Caller& caller) { return hasMethod(account, statik, caller.flag); }), byName)
            .also({bank}, asks([](Scene&, Caller& caller) { return hasMethod(account, unknown, caller.flag); }),
                  byName),
        Row("ZELKIntrospection::hasMethod(qxArray const*, string const&)", {bank, undefinedAccount, matrix},
            asks([](Scene& scene, Caller&) { return hasMethod(scene.value.get(), ordinary); }),
            lookUpByValue("false").null({classFindMethods}, "false")),
        Row("ZELKIntrospection::hasProperty(qxArray const*, string const&)", {bank, undefinedAccount, matrix},
            asks([](Scene& scene, Caller&) { return hasProperty(scene.value.get(), property); }),
            lookUpByValue("false").null({classFindProperty}, "false")),
        Row("ZELKIntrospection::callFunctionOnObject(qxArray const*, string const&, vector<u16string>&)",
            {foreignValue, foreignValueOfFewArts}, asks([](Scene& scene, Caller& caller) {
                return callFunctionOnObject(scene.value.get(), methodsFunction, caller.names);
            }),
            swallows("false").restoring().null({inCallFcn, qxGetCell}, "false")),
    };
}

}  // namespace

std::vector<Row> introspectionRows() {
    std::vector<Row> rows = classRows();
    for (const auto part : {namespaceRows, memberRows}) {
        for (Row& row : part()) {
            rows.push_back(std::move(row));
        }
    }
    return rows;
}

}  // namespace faults
