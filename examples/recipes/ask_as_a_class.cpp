// The members that the code of one class may use, beside those that everybody may.
#include <iostream>

#include "contextdata/class_info.h"
#include "host/i18n.h"
#include "hosts/memory/world.h"

using ZELKContextData::ClassInfo;
using ZELKContextData::MethodInfo;

namespace {

void show(const char* asker, const ClassInfo& cls, const MethodInfo::GetOptions& options) {
    std::cout << asker << ':';
    for (const MethodInfo& method : cls.getMethods(options)) {
        std::cout << ' ' << fl::i18n::to_string(method.name);
    }
    std::cout << '\n';
}

}  // namespace

int main() {
    memory_host::World world;
    world.cls("bank.Auditor");
    world.cls("bank.Account")
        .method("deposit")
        .method("inspect")
        .access(1)
        .openTo("bank.Auditor")
        .method("rewrite")
        .access(2);

    const ClassInfo account(u"", u"bank.Account");
    const ClassInfo auditor(u"", u"bank.Auditor");

    MethodInfo::GetOptions options{.context = MethodInfo::GetContext::afterDot};
    show("everybody", account, options);

    // An access list opens a member to the classes on it and to their subclasses.
    options.accessingClass = &auditor;
    show("bank.Auditor", account, options);

    // A class's own code is told by the codes that it may use: here the private one as well.
    options.accessingClass = &account;
    options.accessibility = {zelk::publicAccess, 1, zelk::privateAccess};
    show("bank.Account", account, options);
}
