#include "contextdata/class_info.h"
#include "contextdata/class_member_names.h"
#include "contextdata/introspection.h"
#include "contextdata/namespace_names.h"
#include "contextdata/resolved_class_id.h"
#include "contextdata/workspace.h"
#include "tests/two_hosts/answers.h"
#include "tests/two_hosts/texts.h"

namespace two_hosts {

namespace {

using ZELKContextData::ClassInfo;
using ZELKContextData::MethodInfo;
using ZELKContextData::PropertyInfo;
using ZELKContextData::ResolvedClassID;
using Names = std::vector<std::u16string>;

constexpr const char* classNames[] = {"bank.Account", "bank.Savings", "bank.Colour", "bank.Missing", "bank", ""};

void answerNameLists(std::ostream& out) {
    using List = bool (*)(const std::u16string&, Names&, bool&);
    const std::pair<const char*, List> lists[] = {
        {"methods", ZELKContextData::getClassMethodNames},
        {"static methods", ZELKContextData::getClassStaticMethodNames},
        {"properties", ZELKContextData::getClassPropertyNames},
        {"constants", ZELKContextData::getClassConstantPropertyNames},
        {"enumeration members", ZELKContextData::getClassEnumerationNames},
    };
    for (const auto& [what, list] : lists) {
        for (const char* name : classNames) {
            ask(out, std::string(what) + " of " + name);
            Names names = {u"(kept)"};
            bool flag = false;
            const bool grew = list(widen(name), names, flag);
            say(out, names);
            say(out, grew);
        }
    }
}

void answerNamespaces(std::ostream& out) {
    using List = bool (*)(const std::u16string&, Names&);
    const std::pair<const char*, List> lists[] = {
        {"classes", ZELKContextData::getNamespaceClassNames},
        {"functions", ZELKContextData::getNamespaceFunctionNames},
        {"namespaces", ZELKContextData::getNamespaceNamespaceNames},
    };
    for (const auto& [what, list] : lists) {
        for (const char* name : {"bank", "bank.rules", "bank.Account", "nowhere", ""}) {
            ask(out, std::string(what) + " in " + name);
            Names names;
            const bool grew = list(widen(name), names);
            say(out, names);
            say(out, grew);
        }
    }
    for (const char* name : {"bank", "bank.rules", "bank.Account", "nowhere", ""}) {
        ask(out, std::string("is a namespace: ") + name);
        say(out, ZELKIntrospection::isZELKNamespace(widen(name)));
    }
}

void answerClasses(std::ostream& out) {
    for (const char* name : classNames) {
        ask(out, std::string("is a class: ") + name);
        say(out, ZELKIntrospection::isZELKClass(widen(name)));
        ask(out, std::string("is a hidden class: ") + name);
        say(out, ZELKIntrospection::isHiddenZELKClass(widen(name)));
        ask(out, std::string("constructor of ") + name);
        say(out, narrow(ZELKIntrospection::getConstructorName(widen(name))));
        ask(out, std::string("identity at the prompt: ") + name);
        const ResolvedClassID id(std::u16string(), widen(name));
        say(out, narrow(id.getComponentQualifiedName()));
        say(out, narrow(id.getNonComponentQualifiedName()));
        for (const char* base : {"bank.Account", "bank.Savings", "bank.Missing"}) {
            ask(out, std::string(name) + " derives from " + base);
            say(out, ZELKIntrospection::isZELKClassDerivedFrom(widen(name), widen(base)));
        }
        for (const char* method : {"deposit", "accrue", "parse", "_audit", "balance", "missing"}) {
            ask(out, std::string(name) + " has the method " + method);
            bool isStatic = false;
            say(out, ZELKIntrospection::hasMethod(widen(name), std::string(method), isStatic));
            say(out, std::string(isStatic ? "static" : "not known to be static"));
        }
    }
    for (const auto& [first, second] :
         {std::pair{"bank.Savings", "bank.Account"}, std::pair{"bank.Account", "bank.Savings"},
          std::pair{"bank.Account", "bank.Account"}, std::pair{"bank.Account", "bank.Colour"},
          std::pair{"bank.Missing", "bank.Account"}}) {
        ask(out, std::string("precedence of ") + first + " and " + second);
        say(out, std::to_string(GetClassPrecedence(widen(first), widen(second))));
    }
}

std::string shown(const PropertyInfo& property) {
    return narrow(property.name) + (property.typeName.empty() ? "" : " : " + narrow(property.typeName)) +
           (property.readFlag ? ", read-only" : "") + (property.hasCustomGetter ? ", computed" : "") +
           (property.extendedFlag ? ", stored" : "");
}

void answerRecords(std::ostream& out) {
    const ClassInfo account(ResolvedClassID::fromKnownResolvedClassID(std::string("bank.Account")));
    const ClassInfo savings(ResolvedClassID::fromKnownResolvedClassID(std::string("bank.Savings")));
    const std::pair<const char*, const ClassInfo*> classes[] = {{"bank.Account", &account}, {"bank.Savings", &savings}};
    const std::pair<const char*, const ClassInfo*> askers[] = {{"nobody", nullptr}, {"its class", &account}};
    const std::pair<const char*, std::vector<std::int32_t>> accesses[] = {{"public", {0}}, {"0 1 2", {0, 1, 2}}};
    for (const auto& [name, cls] : classes) {
        ask(out, std::string("superclasses of ") + name);
        say(out, cls->getSuperclassInfo().getSuperclasses());
        for (const auto& [who, asker] : askers) {
            for (const auto& [which, access] : accesses) {
                const std::string where = std::string(" of ") + name + " for " + who + ", access " + which;
                for (const int context : {0, 1, 2, 3, 4}) {
                    ask(out, "method records" + where + ", context " + std::to_string(context));
                    for (const MethodInfo& method :
                         cls->getMethods(access, static_cast<MethodInfo::GetContext>(context), asker)) {
                        say(out, narrow(method.definingClass) + "." + narrow(method.name) +
                                     (method.isStatic ? ", static" : ""));
                    }
                }
                ask(out, "property records" + where);
                for (const PropertyInfo& property : cls->getProperties(access, asker)) {
                    say(out, shown(property));
                }
            }
        }
    }
}

}  // namespace

void answerQueries(std::ostream& out) {
    answerNameLists(out);
    answerNamespaces(out);
    answerClasses(out);
    answerRecords(out);
}

}  // namespace two_hosts
