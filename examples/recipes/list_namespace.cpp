// What a namespace holds.
#include <iostream>

#include "contextdata/introspection.h"
#include "contextdata/namespace_names.h"
#include "host/i18n.h"
#include "hosts/memory/world.h"

int main() {
    memory_host::World world;
    world.cls("bank.Teller").hidden();
    world.ns("bank")
        .holdsClass("bank.Account")
        .holdsClass("bank.Teller")
        .function("transfer")
        .function("reconcile")
        .unlistable()
        .holdsNamespace("bank.reports");

    // Each function appends, and answers whether there was something to append.
    std::vector<std::u16string> names;
    ZELKContextData::getNamespaceClassNames(u"bank", names);
    ZELKContextData::getNamespaceFunctionNames(u"bank", names);
    ZELKContextData::getNamespaceNamespaceNames(u"bank", names);
    for (const std::u16string& name : names) {
        std::cout << fl::i18n::to_string(name) << '\n';
    }

    // That a namespace exists and that it shows something are two questions.
    const bool showsClasses = ZELKContextData::getNamespaceClassNames(u"bank.reports", names);
    std::cout << "bank.reports: " << (ZELKIntrospection::isZELKNamespace(u"bank.reports") ? "known" : "unknown") << ", "
              << (showsClasses ? "with" : "without") << " classes\n";
}
