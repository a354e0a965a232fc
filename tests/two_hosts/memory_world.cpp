#include <map>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "hosts/memory/world.h"
#include "tests/two_hosts/world.h"

namespace two_hosts {

namespace {

class MemoryWorld final : public World {
public:
    MemoryWorld() {
        for (const char* question : {"class", "denotes", "methods", "properties", "fieldnames", "keys"}) {
            world_.function(question, [this, question](const qxArray* value) { return answer(value, question); });
        }
        buildClasses();
        world_.ns("bank")
            .holdsClass("bank.Account")
            .holdsClass("bank.Savings")
            .holdsClass("bank.Colour")
            .function("open_account")
            .holdsNamespace("bank.rules");
        world_.ns("bank.rules").function("current");
        world_.precedes("bank.Savings", "bank.Account");
        world_.contextResolution(true);
        buildVariables();
    }

private:
    using Key = std::pair<const qxArray*, std::string>;

    void buildClasses() {
        world_.cls("bank.Account")
            .method("deposit")
            .method("withdraw")
            .method("parse")
            .isStatic()
            .method("_audit")
            .access(1)
            .openTo("bank.Account")
            .property("balance")
            .stored(true)
            .property("owner")
            .stored(true)
            .property("number")
            .setAccess(1)
            .readOnly()
            .customGetter()
            .stored(false)
            .constant("LIMIT")
            .readOnly()
            .stored(true)
            .property("_pin")
            .getAccess(1)
            .setAccess(1)
            .readableBy("bank.Account")
            .writableBy("bank.Account")
            .stored(true);
        world_.cls("bank.Savings")
            .derives("bank.Account")
            .method("accrue")
            .method("withdraw")
            .property("rate")
            .dataType("builtins.float")
            .stored(true);
        world_.cls("bank.Colour").enumerationMember("red").enumerationMember("green").enumerationMember("blue");
    }

    void buildVariables() {
        qxUniqueArray account = world_.object("bank.Account");
        world_.setProperty(account, "owner", world_.charRow(u"ada"));
        world_.setProperty(account, "nickname", world_.charRow(u"main"));
        answers_[{account.get(), "properties"}] = {u"balance", u"owner", u"number", u"LIMIT", u"nickname"};
        world_.variable("account", std::move(account));
        world_.variable("savings", world_.object("bank.Savings"));
        world_.variable("colour", world_.object("bank.Colour"));

        qxUniqueArray inner = world_.structure();
        world_.setField(inner, "value", world_.number(2.5));
        answers_[{inner.get(), "properties"}] = {u"value"};
        answers_[{inner.get(), "fieldnames"}] = {u"value"};
        qxUniqueArray nested = world_.structure();
        answers_[{nested.get(), "properties"}] = {u"inner", u"label"};
        answers_[{nested.get(), "fieldnames"}] = {u"inner", u"label"};
        world_.setProperty(nested, "inner", claimed(inner));
        world_.setProperty(nested, "label", world_.charRow(u"text"));
        world_.setProperty(inner, "value", world_.number(2.5));
        world_.setField(nested, "inner", std::move(inner));
        world_.setField(nested, "label", world_.charRow(u"text"));
        world_.variable("nested", std::move(nested));

        qxUniqueArray table = world_.structure();
        world_.setField(table, "alpha", world_.number(2.5));
        world_.setField(table, "beta", world_.charRow(u"text"));
        world_.variable("table", std::move(table));
        world_.variable("number", world_.number(2.5));
        world_.variable("matrix", world_.doubles({2, 3}));
    }

    static qxUniqueArray claimed(const qxUniqueArray& value) {
        intrusive_ptr_add_ref(value.get());
        return qxUniqueArray(value.get());
    }

    qxUniqueArray answer(const qxArray* value, const std::string& question) {
        const auto found = answers_.find({value, question});
        if (found == answers_.end()) {
            throw std::invalid_argument(question);
        }
        std::vector<qxUniqueArray> texts;
        for (const std::u16string& name : found->second) {
            texts.push_back(world_.charRow(name));
        }
        return world_.cellOf(std::move(texts));
    }

    memory_host::World world_;
    std::map<Key, std::vector<std::u16string>> answers_;
};

}  // namespace

std::unique_ptr<World> buildWorld() { return std::make_unique<MemoryWorld>(); }

}  // namespace two_hosts
