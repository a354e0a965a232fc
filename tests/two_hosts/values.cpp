#include "contextdata/values.h"

#include "contextdata/introspection.h"
#include "contextdata/member_names.h"
#include "contextdata/other_object_systems.h"
#include "contextdata/resolved_class_id.h"
#include "contextdata/workspace.h"
#include "contextdata/workspace_methods.h"
#include "host/evaluation.h"
#include "host/text.h"
#include "tests/two_hosts/answers.h"
#include "tests/two_hosts/texts.h"

namespace two_hosts {

namespace {

constexpr const char* variables[] = {"account", "savings", "colour", "nested", "table", "number", "matrix"};

std::string shown(const qxSharedArray& value) {
    if (!value) {
        return "nothing";
    }
    std::string line = narrow(ZELKIntrospection::getClassName(value.get()));
    for (const std::uint64_t extent : getSizeFromQxArray(value.get())) {
        line += " " + std::to_string(extent);
    }
    return isNonMissingScalarText(value.get()) ? line + " '" + narrow(getScalarText(value.get())) + "'" : line;
}

void answerExpressions(std::ostream& out) {
    for (const char* expression : {"account",
                                   "account.owner",
                                   "account.nickname",
                                   "account.deposit",
                                   "account.missing",
                                   "account.owner.x",
                                   "savings",
                                   "nested",
                                   "nested.inner",
                                   "nested.inner.value",
                                   "nested.label",
                                   "nested.missing",
                                   "nested.",
                                   "nested..inner",
                                   "table",
                                   "number",
                                   "number.",
                                   "matrix",
                                   "missing",
                                   "missing.x",
                                   "",
                                   ".",
                                   "2",
                                   "account.",
                                   " account",
                                   "account ",
                                   "number + number",
                                   "account.parse"}) {
        ask(out, std::string("value of ") + expression);
        say(out, shown(GetValueFromCurrentWorkspace(widen(expression))));
    }
}

void answerVariables(std::ostream& out) {
    for (const char* name : variables) {
        const qxSharedArray value = inGetValueFromCurrentWorkspace(name);
        ask(out, std::string("the variable ") + name);
        say(out, shown(value));
        say(out, std::string(ZELKIntrospection::isZELKObject(value.get()) ? "an object" : "no object"));
        say(out, std::string(isObjectOrIsOpaque(value.get()) ? "opaque or older" : "neither opaque nor older"));
        say(out, std::string(ZELKIntrospection::isNoDotMethodClass(value.get()) ? "no dot methods" : "dot methods"));
        ask(out, std::string("fields of ") + name);
        std::vector<std::u16string> fields;
        StructContextData::getStructFieldNames(value.get(), fields);
        say(out, fields);
        ask(out, std::string("texts of ") + name);
        std::vector<std::u16string> texts;
        say(out, getStringsFromQxarray(value.get(), texts));
    }
    for (const char* name : {"account", "savings"}) {
        const qxSharedArray value = inGetValueFromCurrentWorkspace(name);
        ask(out, std::string("methods of the variable ") + name);
        say(out, getMethodsForWSVariable(u"withdraw", value, 1));
        for (const char* member : {"deposit", "accrue", "balance", "LIMIT", "nickname", "_pin", "missing"}) {
            ask(out, std::string(name) + " has " + member);
            say(out, std::string(ZELKIntrospection::hasMethod(value.get(), member) ? "as a method" : "as no method"));
            say(out,
                std::string(ZELKIntrospection::hasProperty(value.get(), member) ? "as a property" : "as no property"));
        }
        ask(out, std::string("properties of the object ") + name);
        std::vector<std::u16string> names;
        ZELKIntrospection::getObjectPropertyNames(value.get(), names);
        say(out, names);
    }
}

}  // namespace

void answerValues(std::ostream& out) {
    answerExpressions(out);
    answerVariables(out);
}

}  // namespace two_hosts
