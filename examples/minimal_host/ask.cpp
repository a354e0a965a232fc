// A small world, and what the library says about it: `ask.expected` shows the answers.
#include <iostream>
#include <string>
#include <vector>

#include "contextdata/class_info.h"
#include "contextdata/class_member_names.h"
#include "contextdata/namespace_names.h"
#include "contextdata/workspace.h"
#include "contextdata/workspace_methods.h"
#include "data.h"
#include "frontends/completion/complete.h"
#include "host/evaluation.h"
#include "host/host.h"
#include "host/i18n.h"

namespace {

using Names = std::vector<std::u16string>;

void buildWorld() {
    using namespace minimal_host;
    define(Class{.name = "bank.Person", .properties = {"name"}});
    define(Class{.name = "bank.Account",
                 .methods = {{"deposit"}, {"withdraw"}, {.name = "openMany", .isStatic = true}},
                 .properties = {"balance", "owner"}});
    define(Class{.name = "bank.Savings", .superclasses = {"bank.Account"}, .properties = {"rate"}});
    define(Namespace{
        .name = "bank", .classes = {"bank.Person", "bank.Account", "bank.Savings"}, .functions = {"transfer"}});

    const Value owner = shared(makeObject("bank.Person", {{"name", shared(qxCreateString(u"Ada"))}}));
    assign("account",
           shared(makeObject("bank.Savings", {{"owner", owner}, {"balance", shared(make({.numbers = {12.5}}))}})));
    assign("options", shared(make({.kind = qxClassID::structure, .fields = {{"owner", owner}}})));
}

void answer(const char* question, const Names& names) {
    std::cout << question << ':';
    for (const std::u16string& name : names) {
        std::cout << ' ' << fl::i18n::to_string(name);
    }
    std::cout << '\n';
}

/// The variables that can be completed: those of the host.
class Variables final : public contextdata::completion::Workspace {
public:
    qxSharedArray find(const std::u16string& name) override {
        return inGetValueFromCurrentWorkspace(fl::i18n::to_string(name));
    }
};

Names mayFollow(std::u16string_view typed) {
    Variables variables;
    Names names;
    for (const auto& item :
         contextdata::completion::complete({.text = typed, .cursor = typed.size()}, variables).items) {
        names.push_back(item.name);
    }
    return names;
}

}  // namespace

int main() {
    buildWorld();
    std::cout << "host: " << host::host_name() << '\n';

    // Each function of the library answers one question.
    Names names;
    bool mayHaveMore = false;
    ZELKContextData::getClassMethodNames(u"bank.Account", names, mayHaveMore);
    answer("methods of bank.Account", names);
    names.clear();
    ZELKContextData::getClassPropertyNames(u"bank.Savings", names, mayHaveMore);
    answer("properties of bank.Savings", names);
    names.clear();
    ZELKContextData::getNamespaceClassNames(u"bank", names);
    answer("classes in bank", names);
    answer("methods of the variable account",
           getMethodsForWSVariable(u"account", GetValueFromCurrentWorkspace(u"account"), 1));
    answer("superclasses of bank.Savings",
           ZELKContextData::ClassInfo(u"", u"bank.Savings").getSuperclassInfo().getSuperclasses());

    // The completion engine asks them all.
    for (const char16_t* typed :
         {u"account.", u"account.ow", u"account.owner.", u"options.owner.", u"bank.", u"bank.Account.", u"stranger."}) {
        answer(("after " + fl::i18n::to_string(typed)).c_str(), mayFollow(typed));
    }
    minimal_host::forgetEverything();
    std::cout << "values left: " << minimal_host::valuesAlive() << '\n';
}
