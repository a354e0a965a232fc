// All that is known about a class.
#include <iostream>

#include "frontends/completion/describe_class.h"
#include "host/i18n.h"
#include "hosts/memory/world.h"

namespace completion = contextdata::completion;
using fl::i18n::to_string;
using ZELKContextData::ResolvedClassID;

int main() {
    memory_host::World world;
    world.cls("bank.Account").method("deposit").method("openMany").isStatic();
    world.cls("bank.Savings")
        .derives("bank.Account")
        .property("rate")
        .validation("double", {"1", "1"}, {"mustBePositive"})
        .constant("limit")
        .method("audit")
        .access(2);

    // From a name as it is written in a file; at a prompt there is none.
    const ResolvedClassID savings(u"", u"bank.Savings");
    const completion::ClassDescription found = completion::describeClass(savings);
    std::cout << to_string(found.name) << '\n';
    for (const completion::Superclass& superclass : found.superclasses) {
        std::cout << "derives from " << to_string(superclass.name) << '\n';
    }
    for (const completion::DescribedProperty& property : found.properties) {
        std::cout << "property " << to_string(property.name) << " of type " << to_string(property.typeName)
                  << ", checked by " << to_string(property.validators.front()) << '\n';
    }
    for (const completion::DescribedProperty& constant : found.constants) {
        std::cout << "constant " << to_string(constant.name) << '\n';
    }
    for (const completion::DescribedMember& method : found.methods) {
        std::cout << completion::textOfAccess(method.access) << " method " << to_string(method.name) << " of "
                  << to_string(method.definingClass) << '\n';
    }
    for (const completion::DescribedMember& method : found.staticMethods) {
        std::cout << "static method " << to_string(method.name) << " of " << to_string(method.definingClass) << '\n';
    }
}
