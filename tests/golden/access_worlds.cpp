#include "tests/golden/access_worlds.h"

namespace golden {

namespace {

constexpr std::int32_t protectedAccess = 1;
constexpr std::int32_t accessByList = 3;
constexpr std::int32_t hiddenVisibility = 0;

void buildAccount(memory_host::World& world) {
    memory_host::ClassBuilder account = world.cls("bank.Account");
    account.derives("handle").method("deposit").method("withdraw").property("balance");
    account.method("audit").access(protectedAccess).openTo("bank.Account");
    account.method("settle").access(accessByList).openTo("bank.Teller");
    account.method("reset").access(zelk::privateAccess);
    account.method("forge").access(zelk::privateAccess).isStatic();
    account.constant("secret").getAccess(zelk::privateAccess);
    account.property("pin").getAccess(zelk::privateAccess).setAccess(zelk::privateAccess);
    account.property("cache").getAccess(protectedAccess).setAccess(protectedAccess);
    account.readableBy("bank.Account").writableBy("bank.Account");
    account.property("limit").getAccess(zelk::privateAccess).setAccess(accessByList).writableBy("bank.Teller");
    // Not for anybody: hidden, unlistable, the constructor, an operator.
    account.method("wipe").access(zelk::privateAccess).visibility(hiddenVisibility);
    account.method("trace").access(protectedAccess).openTo("bank.Account").visibility(hiddenVisibility);
    account.property("key").getAccess(zelk::privateAccess).setAccess(zelk::privateAccess).visibility(hiddenVisibility);
    account.method("patch").access(zelk::privateAccess).unlistable();
    account.property("log").getAccess(zelk::privateAccess).setAccess(zelk::privateAccess).unlistable();
    account.method("Account").access(protectedAccess).openTo("bank.Account");
    account.method("plus").access(protectedAccess).openTo("bank.Account");
}

}  // namespace

void buildVaults(GoldenWorld& vaults) {
    memory_host::World& world = vaults.world();
    world.cls("handle").method("delete");
    buildAccount(world);
    world.cls("bank.Savings").derives("bank.Account").method("accrue").access(zelk::privateAccess);
    // Says again, for everybody, what a superclass keeps to itself or to some.
    world.cls("bank.Open").derives("bank.Account").method("reset").method("settle").access(zelk::privateAccess);
    world.cls("bank.Teller").method("serve").method("count").access(zelk::privateAccess);
    world.cls("bank.HeadTeller").derives("bank.Teller");
    world.cls("bank.Stranger");

    vaults.variable(u"account", world.object("bank.Account"));
    vaults.variable(u"savings", world.object("bank.Savings"));
    vaults.variable(u"open", world.object("bank.Open"));
    vaults.variable(u"teller", world.object("bank.Teller"));
    vaults.variable(u"number", world.number(1));
    const qxArray* mute = vaults.variable(u"mute", world.opaque("foreign.Thing"));
    vaults.answers(mute, "methods", {u"poke"});
}

void buildShapes(GoldenWorld& shapes) {
    memory_host::World& world = shapes.world();
    world.cls("shape.Base")
        .classAttribute("Abstract")
        .classAttribute("Internal", true)
        .propertyAttribute("Constant")
        .methodAttribute("Sealed")
        .eventAttribute("NotifyAccess")
        .method("draw")
        .method("clone")
        .isStatic()
        .property("name")
        .dataType("string");
    world.cls("shape.Left").derives("shape.Base").classAttribute("HandleCompatible").method("draw").property("name");
    world.cls("shape.Right").derives("shape.Base").method("draw").method("turn").access(zelk::privateAccess);
    memory_host::ClassBuilder box = world.cls("tools:shape.Box");
    box.derives("shape.Left").derives("shape.Right");
    box.method("Box").method("plus").method("fit").method("fit").access(7).method("odd").access(7);
    box.method("secret").visibility(0).method("own").access(zelk::privateAccess);
    world.convertsToAny("shape.Colour", [](const std::string& raw) { return "#" + raw; });
    box.property("size").validation("double", {"1", ":", "n"}, {"mustBePositive", "mustBeFinite"});
    box.property("colour").dataType("shape.Colour").textValue("red").rawValue("ff0");
    box.property("area").readOnly().customGetter().stored(false).setAccess(1);
    box.property("lid").setAccess(zelk::privateAccess);
    box.property("hidden").visibility(0);
    box.constant("CORNERS").readOnly().dataType("double");
    world.cls("shape.Colour").enumerationMember("red").enumerationMember("green").enumerationMember("old");
    world.cls("shape.Colour").hiddenMember().enumerationMember("red").constant("green").method("mix");
    world.cls("shape.Empty");
    world.cls("shape.Planned").undefined().method("never");
    // Two classes that derive from each other, by mistake.
    world.cls("shape.Hen").derives("shape.Egg").method("cackle");
    world.cls("shape.Egg").derives("shape.Hen").method("hatch");
}

}  // namespace golden
