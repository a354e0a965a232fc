// The world in which consumers of older versions ask: made by the host of today, with the headers of today.
#include "hosts/memory/world.h"

#include <iostream>

#include "host/array_library.h"

int askAsBefore(const qxArray* account);

int main() {
    memory_host::World world;
    world.cls("bank.Base").method("audit").methodAttribute("Inline").eventAttribute("Once");
    world.cls("bank.Account").derives("bank.Base").method("deposit").method("open").isStatic();
    world.cls("bank.Account")
        .property("balance")
        .validation("double", {"1", ":"}, {"isSound"})
        .constant("limit")
        .readOnly();
    world.cls("bank.Account").classAttribute("Sealed").propertyAttribute("Stored");
    world.cls("bank.Currency").enumerationMember("euro");
    world.ns("bank").holdsClass("bank.Account").function("transfer").holdsNamespace("bank.inner");
    world.ns("bank.inner");
    world.documentedBuiltins({u"sine"});
    world.functionMetadata("transfer", nullptr, world.cell({u"amount"}), nullptr);
    world.variable("account", world.object("bank.Account"));
    qxUniqueArray record = world.structure();
    world.setField(record, "alpha", world.number(2.5));
    world.variable("record", std::move(record));

    const qxUniqueArray account = world.object("bank.Account");
    const int failures = askAsBefore(account.get());
    std::cout << (failures == 0 ? "all answers are as they were\n" : "some answers are not as they were\n");
    return failures == 0 ? 0 : 1;
}
