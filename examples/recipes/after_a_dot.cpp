// Which names may follow what somebody has typed.
#include <iostream>

#include "frontends/completion/complete.h"
#include "host/evaluation.h"
#include "host/i18n.h"
#include "hosts/memory/world.h"

namespace completion = contextdata::completion;

// The variables of whoever types; here, those of the host.
class Variables final : public completion::Workspace {
public:
    qxSharedArray find(const std::u16string& name) override {
        return inGetValueFromCurrentWorkspace(fl::i18n::to_string(name));
    }
};

int main() {
    memory_host::World world;
    world.cls("bank.Account").method("deposit").method("close").property("balance").constant("limit");
    world.variable("account", world.object("bank.Account"));

    Variables variables;
    const std::u16string typed = u"total = account.";
    const completion::Completions found = completion::complete({.text = typed, .cursor = typed.size()}, variables);
    for (const completion::Item& item : found.items) {
        std::cout << fl::i18n::to_string(item.name) << ", " << completion::textOf(item.kind) << '\n';
    }

    // An empty answer has a reason.
    const std::u16string unknown = u"stranger.";
    const completion::Completions none = completion::complete({.text = unknown, .cursor = unknown.size()}, variables);
    std::cout << "nothing: " << fl::i18n::to_string(none.reason) << '\n';
}
