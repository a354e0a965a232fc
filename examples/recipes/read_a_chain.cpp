// The value behind a chain of names, without running code, and without printing anything.
#include <iostream>

#include "contextdata/workspace.h"
#include "hosts/memory/world.h"

namespace {

void show(const char* text, const qxSharedArray& value) {
    std::cout << text << ": " << (value ? qxGetClassName(value.get()) : "no value") << '\n';
}

}  // namespace

int main() {
    memory_host::World world;
    world.cls("bank.Person").property("name");
    world.cls("bank.Account").property("owner").method("audit");
    qxUniqueArray person = world.object("bank.Person");
    world.setProperty(person, "name", world.charRow(u"Ada"));
    qxUniqueArray account = world.object("bank.Account");
    world.setProperty(account, "owner", std::move(person));
    world.variable("account", std::move(account));

    show("account", GetValueFromCurrentWorkspace(u"account"));
    show("account.owner", GetValueFromCurrentWorkspace(u"account.owner"));
    show("account.owner.name", GetValueFromCurrentWorkspace(u"account.owner.name"));

    // A method is never called, and a text whose first name is no variable is not evaluated.
    show("account.audit", GetValueFromCurrentWorkspace(u"account.audit"));
    show("launch()", GetValueFromCurrentWorkspace(u"launch()"));

    std::cout << "evaluated: " << world.evaluations().size() << ", printed: " << world.shown().size() << '\n';
}
