#include "tests/golden/golden_worlds.h"

#include <stdexcept>

#include "contextdata/values.h"
#include "tests/golden/access_worlds.h"
#include "tests/golden/desk_world.h"

namespace golden {

GoldenWorld::GoldenWorld() {
    for (const char* question : {"class", "denotes", "methods", "properties", "fieldnames", "keys"}) {
        world_.function(question, [this, question](const qxArray* value) { return answer(value, question); });
    }
}

const qxArray* GoldenWorld::variable(std::u16string_view name, qxUniqueArray value) {
    const qxSharedArray shared = makeSharedPtr(value.release());
    variables_.insert_or_assign(std::u16string(name), shared);
    return shared.get();
}

void GoldenWorld::answers(const qxArray* value, std::string_view question, Names names) {
    answers_.insert_or_assign({value, std::string(question)}, std::move(names));
}

void GoldenWorld::evaluates(std::u16string_view expression, std::function<qxUniqueArray()> make) {
    expressions_.insert_or_assign(std::u16string(expression), std::move(make));
    world_.evaluatedBy([this](const memory_host::Evaluation& asked, qxArray** outputs) {
        const auto found = expressions_.find(asked.expression);
        if (found == expressions_.end()) {
            return static_cast<inExecutionStatus>(1);
        }
        outputs[0] = found->second().release();
        return inExecutionStatus::success;
    });
}

qxSharedArray GoldenWorld::find(const std::u16string& name) {
    const auto found = variables_.find(name);
    return found == variables_.end() ? qxSharedArray() : found->second;
}

std::vector<contextdata::completion::Item> GoldenWorld::names() const {
    using contextdata::completion::Item;
    using contextdata::completion::Kind;
    std::vector<Item> names;
    for (const auto& [name, value] : variables_) {
        names.push_back({name, Kind::variable});
    }
    for (const char16_t* word : {u"new", u"return", u"true"}) {
        names.push_back({word, Kind::keyword});
        names.back().isInherited = true;
    }
    return names;
}

qxUniqueArray GoldenWorld::answer(const qxArray* value, const std::string& question) {
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

namespace {

void buildBankClasses(memory_host::World& world) {
    world.cls("handle").method("delete").method("isvalid");
    world.cls("bank.Person").property("name");
    world.cls("bank.Account")
        .derives("handle")
        .method("Account")
        .method("deposit")
        .method("withdraw")
        .method("withdraw")
        .method("open")
        .isStatic()
        .method("audit")
        .access(1)
        .method("plus")
        .unlistable()
        .property("balance")
        .setAccess(1)
        .property("owner")
        .property("pin")
        .getAccess(1)
        .setAccess(1)
        .property("cache")
        .unlistable()
        .constant("limit");
    world.cls("bank.Savings").derives("bank.Account").method("accrue").property("rate");
    world.cls("bank.Currency")
        .method("convert")
        .constant("EUR")
        .property("symbol")
        .enumerationMember("EUR")
        .enumerationMember("USD")
        .enumerationMember("DEM")
        .hiddenMember();
    world.cls("tools:bank.Ledger").method("book");
    world.cls("bank.Vault").hidden().method("lock");
    world.cls("bank.Planned").undefined().method("never");
}

void buildBankNamespaces(memory_host::World& world) {
    world.ns("bank")
        .holdsClass("bank.Account")
        .holdsClass("bank.Savings")
        .holdsClass("bank.Vault")
        .holdsClass("tools:bank.Ledger")
        .function("transfer")
        .function("bank.settle")
        .function("reconcile")
        .access(1)
        .function("legacyTransfer")
        .unlistable()
        .holdsNamespace("bank.rates");
    world.ns("bank.rates").function("current");
    world.ns("empty");
}

void buildBankVariables(GoldenWorld& bank) {
    memory_host::World& world = bank.world();
    qxUniqueArray person = world.object("bank.Person");
    qxUniqueArray account = world.object("bank.Account");
    world.setProperty(account, "owner", std::move(person));
    bank.variable(u"account", std::move(account));

    const qxArray* savings = bank.variable(u"savings", world.object("bank.Savings"));
    bank.answers(savings, "properties", {u"balance", u"nickname", u"rate"});
    bank.variable(u"ledger", world.object("tools:bank.Ledger"));
    bank.variable(u"euro", world.object("bank.Currency"));
    bank.variable(u"κόμβος", world.object("bank.Person"));
    bank.variable(u"𝒙1", world.object("bank.Person"));
    bank.variable(u"number", world.number(1));
    bank.variable(u"planned", world.object("bank.Planned"));

    const qxArray* cls = bank.variable(u"Money", world.functionHandle());
    bank.answers(cls, "denotes", {u"class", u"bank.Currency"});
    const qxArray* lost = bank.variable(u"Lost", world.functionHandle());
    bank.answers(lost, "denotes", {u"class", u"bank.Nowhere"});
    bank.answers(lost, "methods", {u"call"});
    const qxArray* space = bank.variable(u"b", world.opaque("module"));
    bank.answers(space, "denotes", {u"namespace", u"bank"});
    bank.answers(space, "properties", {u"version", u"transfer"});
}

void buildBank(GoldenWorld& bank) {
    buildBankClasses(bank.world());
    buildBankNamespaces(bank.world());
    buildBankVariables(bank);
}

/// Values that are no objects of the class system.
void buildValues(GoldenWorld& values) {
    memory_host::World& world = values.world();
    world.cls("numbers.array").method("sum").method("zeros").isStatic().property("size");
    world.cls("numbers.dict").method("keys");
    world.cls("numbers.record").method("copy");

    values.answers(values.variable(u"array", world.doubles({2, 2})), "class", {u"numbers.array"});
    const qxArray* opaque = values.variable(u"opaque", world.opaque("foreign.Thing"));
    values.answers(opaque, "methods", {u"poke", u"peek"});
    values.answers(opaque, "properties", {u"state", u"peek"});
    const qxArray* structure = values.variable(u"structure", world.structure());
    values.answers(structure, "fieldnames", {u"y", u"x"});
    const qxArray* dictionary = values.variable(u"dictionary", world.structure());
    values.answers(dictionary, "class", {u"numbers.dict"});
    values.answers(dictionary, "fieldnames", {u"key"});
    const qxArray* record = values.variable(u"record", world.structure());
    values.answers(record, "class", {u"numbers.record"});
    values.answers(record, "properties", {u"x", u"derived"});
    values.answers(record, "fieldnames", {u"x"});
    values.variable(u"mute", world.opaque("foreign.Mute"));
}

/// A file's imports give short names to classes.
void buildImports(GoldenWorld& imports) {
    memory_host::World& world = imports.world();
    world.cls("bank.Account").method("deposit");
    world.contextResolution(true);
    world.imports(world.scope(u"teller.src"), "Account", "bank.Account");
}

/// Literals are evaluated to objects of classes that bear their kind in their members.
void buildLiterals(GoldenWorld& literals) {
    memory_host::World& world = literals.world();
    const std::pair<const char16_t*, const char*> texts[] = {{u"''", "text"},
                                                             {u"b''", "bytes"},
                                                             {u"[]", "list"},
                                                             {u"{}", "dictionary"},
                                                             {u"()", "tuple"},
                                                             {u"(1.5)", "number"},
                                                             {u"(sheet)", "sheet"},
                                                             {u"(sheet.corner)", "corner"},
                                                             {u"[1, 'a'][1]", "element"},
                                                             {u"'abc'.size", "size"},
                                                             {u"(f())", "forbidden"}};
    for (const auto& [text, kind] : texts) {
        const std::string name = std::string("literals.") + kind;
        world.cls(name).method(kind).method("fold");
        literals.evaluates(text, [&world, name] { return world.object(name); });
    }
}

}  // namespace

bool build(GoldenWorld& world, std::string_view name) {
    if (name == "bank") {
        buildBank(world);
    } else if (name == "values") {
        buildValues(world);
    } else if (name == "imports") {
        buildImports(world);
    } else if (name == "vaults") {
        buildVaults(world);
    } else if (name == "shapes") {
        buildShapes(world);
    } else if (name == "literals") {
        buildLiterals(world);
    } else if (name == "desk") {
        buildDesk(world);
    } else {
        return false;
    }
    return true;
}

}  // namespace golden
