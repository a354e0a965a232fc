// A program of the time of version 0.1, which keeps compiling and running as it is: it reads every record, calls every
// virtual operation, and puts a class of its own into a tree of superclasses.
#include <algorithm>
#include <iostream>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "contextdata/argument_block_metadata.h"
#include "contextdata/class_info.h"
#include "contextdata/class_member_names.h"
#include "contextdata/exclusion_tables.h"
#include "contextdata/introspection.h"
#include "contextdata/member_names.h"
#include "contextdata/namespace_names.h"
#include "contextdata/other_object_systems.h"
#include "contextdata/resolved_class_id.h"
#include "contextdata/values.h"
#include "contextdata/what_list.h"
#include "contextdata/workspace.h"
#include "contextdata/workspace_methods.h"

using ZELKContextData::ClassInfo;
using ZELKContextData::MethodInfo;
using ZELKContextData::PropertyInfo;
using ZELKContextData::ResolvedClassID;

namespace {

using Names = std::vector<std::u16string>;

int failures = 0;

void expect(const char* what, bool holds) {
    if (!holds) {
        std::cout << what << ": UNEXPECTED\n";
        ++failures;
    }
}

MethodInfo::GetOptions anywhere() {
    MethodInfo::GetOptions options;
    options.context = MethodInfo::GetContext::anyPosition;
    return options;
}

template <class Record>
Names namesOf(const std::vector<Record>& records) {
    Names names;
    for (const Record& record : records) {
        names.push_back(record.name);
    }
    return names;
}

// A class that a front end invents, with another class below it.
class Invented final : public ClassInfo {
public:
    explicit Invented(std::shared_ptr<ClassInfo> base) {
        structure_.className = u"front.Invented";
        structure_.superclasses.push_back(std::move(base));
    }

    std::vector<MethodInfo> getMethods(const MethodInfo::GetOptions& options) const override {
        std::vector<MethodInfo> methods = getMethodsOfSuperclasses(options);
        methods.push_back({u"invent", u"front.Invented", true});
        return methods;
    }
    std::vector<PropertyInfo> getProperties(const PropertyInfo::GetOptions& options) const override {
        return getPropertiesOfSuperclasses(options);
    }
    using ClassInfo::getMethods;
    using ClassInfo::getProperties;
};

// Watches the walk that the class system leads over the methods of a class.
class Watching final : public ZELKContextData::MethodVisitorMutable {
public:
    using MethodVisitorMutable::MethodVisitorMutable;

    void visit(zelk::COSInterfacePtr handle, zelk::COSMethodInfo* method) override {
        names.emplace_back(method->getName());
        MethodVisitorMutable::visit(std::move(handle), method);
    }

    std::vector<std::string> names;

private:
    using MethodVisitorMutable::visit;
};

void identity(const qxArray* account) {
    const ResolvedClassID id = ResolvedClassID::fromLegacyString(std::u16string(u"bank.Account"));
    expect("identity by name", !id.isNull() && id.getNonComponentQualifiedName() == u"bank.Account");
    expect("identity by value", ResolvedClassID(account).get() == id.get());
    expect("null identity", ResolvedClassID().isNull());
    expect("focus", ResolvedClassID::GetDebuggerFocus().fileName.empty());
    try {
        ResolvedClassID::fromLegacyString(std::string("bank.Nobody"));
        expect("no exception", false);
    } catch (const ResolvedClassID::BadClassNameException& exception) {
        expect("name of the exception", exception.getBadClassName() == "bank.Nobody");
    }
}

void records(const qxArray* account) {
    const ClassInfo info(account);
    expect("class name", info.getClass() == u"bank.Account");
    expect("superclasses", info.getSuperclassInfo().getSuperclasses() == Names{u"bank.Account", u"bank.Base"});
    expect("isA by name", info.isA(std::u16string(u"bank.Base")) && !info.isA(std::u16string(u"bank.Nobody")));
    expect("isA by id", info.isA(info.getSuperclassInfo().classID));
    expect("default access", info.getDefaultAccessibility() == std::vector<std::int32_t>{0});

    const std::vector<MethodInfo> methods = info.getMethods(anywhere());
    expect("methods", namesOf(methods) == Names{u"audit", u"deposit", u"open"});
    expect("a method", methods.size() == 3 && methods[0].definingClass == u"bank.Base" && !methods[1].isStatic &&
                           methods[2].isStatic);
    expect("methods by access list",
           namesOf(info.getMethods({0}, MethodInfo::GetContext::anyPosition, nullptr)).size() == 3);

    const std::vector<PropertyInfo> properties = info.getProperties(PropertyInfo::GetOptions());
    expect("properties", namesOf(properties) == Names{u"balance", u"limit"});
    expect("a property", properties.size() == 2 && properties[0].typeName == u"double" &&
                             properties[0].sizes == Names{u"1", u":"} &&
                             properties[0].validators == Names{u"isSound"} && !properties[0].readFlag &&
                             properties[1].readFlag && !properties[0].hasCustomGetter && properties[0].extendedFlag &&
                             properties[0].valueKind == PropertyInfo::noValues && properties[0].values.empty());
    expect("properties by access list", namesOf(info.getProperties({0}, nullptr)).size() == 2);
    expect("sizes", PropertyInfo::castSizeStringToIntegers({u"1", u"12"}) == std::vector<std::uint64_t>{1, 12});

    const ZELKContextData::AttributeInfo attributes = info.getAttributes(false);
    expect("attributes", attributes.ofClasses == std::set<std::u16string>{u"Sealed"} &&
                             attributes.ofProperties == std::set<std::u16string>{u"Stored"} &&
                             attributes.ofMethods == std::set<std::u16string>{u"Inline"} &&
                             attributes.ofEvents == std::set<std::u16string>{u"Once"});
}

void derivedClasses(const qxArray* account) {
    const auto known = std::make_shared<ClassInfo>(account);
    const auto invented = std::make_shared<Invented>(known);
    const Names all = {u"audit", u"deposit", u"open", u"invent"};
    expect("methods of an invented class", namesOf(invented->getMethods(anywhere())) == all);
    expect("the library asks it",
           namesOf(invented->getMethods({0}, MethodInfo::GetContext::anyPosition, nullptr)) == all);
    expect("its properties", namesOf(invented->getProperties({0}, nullptr)) == Names{u"balance", u"limit"});
    expect("its superclasses", invented->isA(std::u16string(u"bank.Base")));
    expect("above another", Invented(invented).isA(std::u16string(u"front.Invented")));

    Watching watching(known.get());
    watching.clear(anywhere());
    zelk::COSVisitor<zelk::COSInterface*>& visitor = watching;
    ZELKIntrospection::getCOSClass(account)->visitMethods(visitor);
    std::sort(watching.names.begin(), watching.names.end());
    watching.names.erase(std::unique(watching.names.begin(), watching.names.end()), watching.names.end());
    expect("the walk", watching.names == std::vector<std::string>{"audit", "deposit", "open"});
}

void nameLists(const qxArray* account) {
    Names names;
    bool flag = false;
    expect("methods", ZELKContextData::getClassMethodNames(u"bank.Account", names, flag));
    expect("static methods", ZELKContextData::getClassStaticMethodNames(u"bank.Account", names, flag));
    expect("properties", ZELKContextData::getClassPropertyNames(u"bank.Account", names, flag));
    expect("constants", ZELKContextData::getClassConstantPropertyNames(u"bank.Account", names, flag));
    expect("enumeration", ZELKContextData::getClassEnumerationNames(u"bank.Currency", names, flag));
    expect("in this order",
           names == Names{u"deposit", u"open", u"audit", u"open", u"balance", u"limit", u"limit", u"euro"});
    names.clear();
    expect("classes", ZELKContextData::getNamespaceClassNames(u"bank", names) && names == Names{u"bank.Account"});
    names.clear();
    expect("functions", ZELKContextData::getNamespaceFunctionNames(u"bank", names) && names == Names{u"transfer"});
    names.clear();
    expect("namespaces", ZELKContextData::getNamespaceNamespaceNames(u"bank", names) && names.size() == 1);
    names.clear();
    expect("all namespaces",
           getStringsFromQxarray(ZELKContextData::getZELKAllNamespaces().get(), names) && !names.empty());
    names.clear();
    ZELKIntrospection::getObjectPropertyNames(account, names);
    expect("properties of an object", names == Names{u"balance", u"limit"});
    names.clear();
    ZELKIntrospection::getClassPropertyNames(ZELKIntrospection::getCOSClass(account), names,
                                             ZELKIntrospection::leftHandSideDesiredPropertyAttributes);
    expect("what can be assigned", names == Names{u"balance"});
    expect("a class", ZELKIntrospection::isZELKClass(std::u16string(u"bank.Account")));
    expect("derivation", ZELKIntrospection::isZELKClassDerivedFrom(std::u16string(u"bank.Account"), u"bank.Base"));
}

void valuesAndWorkspace(const qxArray* account) {
    const qxSharedArray value = GetValueFromCurrentWorkspace(u"account");
    expect("a variable", value && ResolvedClassID(value.get()).get() == ResolvedClassID(account).get());
    expect("its methods", getMethodsForWSVariable(u"account", value, 0) == Names{u"deposit", u"audit"});
    const qxSharedArray record = GetValueFromCurrentWorkspace(u"record");
    expect("its size", getSizeFromQxArray(record.get()) == std::vector<std::uint64_t>{1, 1});
    expect("not opaque", !isObjectOrIsOpaque(account));
    expect("built-in functions", getBuiltinFunctionNames().count(u"sine") == 1);
    Names fields;
    StructContextData::getStructFieldNames(record.get(), fields);
    expect("fields", fields == Names{u"alpha"});
    qxArray* output = nullptr;
    expect("an evaluation that fails", !EvalcExpSuccessful(u"no such thing (", 1, &output, false) && output == nullptr);
    { const DisableErrorMode quiet; }
    const ZELKContextData::ArgumentBlockMetadata metadata = ZELKContextData::getArgumentBlockMetadata(u"", u"transfer");
    expect("arguments", metadata.first && !metadata.second && metadata.scope == nullptr);
    expect("no package of the older system", !IsXOBPackage(u"nothing") && !IsJavaFunction(u"java.lang.Nothing.none"));
    Names entries;
    getWhatList(u"/no such folder", entries, "classes");
    expect("an empty folder", entries.empty());
    expect("operators", MethodInfo::isOperatorOverload(std::u16string(u"plus")) &&
                            ZELKContextData::getZELKMethodsExcludeSet().count(u"plus") == 1);
}

}  // namespace

/// Called with an object of the class bank.Account, in a world that `tests/abi/world.cpp` describes. How many answers
/// were not as they were.
int askAsBefore(const qxArray* account) {
    identity(account);
    records(account);
    derivedClasses(account);
    nameLists(account);
    valuesAndWorkspace(account);
    return failures;
}
