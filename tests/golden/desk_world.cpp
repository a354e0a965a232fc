#include "tests/golden/desk_world.h"

#include <functional>
#include <utility>

#include "tests/golden/golden_file.h"

namespace golden {

namespace {

void buildNamespaces(memory_host::World& world) {
    world.cls("paper.Sheet").method("fold");
    world.cls("paper.Secret").hidden();
    world.ns("paper")
        .holdsClass("paper.Sheet")
        .holdsClass("paper.Secret")
        .function("paper.cut")
        .holdsNamespace("paper.size");
    world.ns("paper.size").function("paper.size.area");
    world.ns("pencil");
    world.ns("pencil.hard.grade");
    world.ns("rubber");
}

/// A table of rows, whose subscripts are evaluated in the language of the text.
void buildSubscripts(GoldenWorld& desk) {
    memory_host::World& world = desk.world();
    world.variable("rows", world.structure());
    world.variable("deep", world.structure());
    desk.evaluates(u"rows[2]", [&world] { return world.object("paper.Sheet"); });
    desk.evaluates(u"rows [ -1 ] .first", [&world] { return world.object("paper.Sheet"); });
    desk.evaluates(u"deep[\"a.b\"]['c'][0, 1:2]", [&world] { return world.object("paper.Sheet"); });
    desk.evaluates(u"rows[\"inner\"]", [&world] {
        qxUniqueArray inner = world.structure();
        world.setField(inner, "depth", world.number(1));
        return inner;
    });
    desk.evaluates(u"rows()", [&world] { return world.object("paper.Sheet"); });
}

void buildKeys(GoldenWorld& desk) {
    memory_host::World& world = desk.world();
    qxUniqueArray rows = world.structure();
    for (const char* name : {"width", "inner", "height", "it's", "say \"when\"", "back\\slash"}) {
        world.setField(rows, name, world.number(1));
    }
    desk.variable(u"rows", std::move(rows));
    qxUniqueArray record = world.structure();
    world.setField(record, "x", world.number(1));
    desk.answers(desk.variable(u"record", std::move(record)), "properties", {u"x"});
    desk.answers(desk.variable(u"table", world.opaque("foreign.Table")), "keys", {u"größe", u"price"});
    desk.variable(u"number", world.number(1));
}

void buildFunctions(memory_host::World& world) {
    world.functionMetadata("fold", nullptr, world.cell({u"sheet", u"times", u"way"}),
                           world.cell({u"times", u"way", u"wet"}));
    world.functionMetadata("paper.cut", nullptr, world.cell({u"sheet"}), world.cell({u"sheet", u"largo"}));
}

}  // namespace

void buildDesk(GoldenWorld& desk) {
    buildNamespaces(desk.world());
    buildSubscripts(desk);
    buildKeys(desk);
    buildFunctions(desk.world());
    desk.world().workingFolder(widen(GOLDEN_FOLDER "/shelf"));
}

}  // namespace golden
