#include "bench/floors/class_shapes.h"

namespace bench {

namespace {

using memory_host::ClassBuilder;
using memory_host::World;

/// Every seventh member is private, every eleventh hidden; every third property has a type.
void addMembers(ClassBuilder cls, PlainNode& node, std::size_t members, const std::string& stem) {
    for (std::size_t number = 0; number < members; ++number) {
        PlainDeclaration method;
        method.name = zelk::internal::makeInterned("method" + stem + std::to_string(number));
        method.access = number % 7 == 6 ? 2 : 0;
        method.isStatic = number % 4 == 3;
        method.isShown = number % 11 != 10;
        cls.method(method.name.view()).access(method.access).isStatic(method.isStatic);
        cls.visibility(method.isShown ? 1 : 0);

        PlainDeclaration property = method;
        property.name = zelk::internal::makeInterned("property" + stem + std::to_string(number));
        cls.property(property.name.view()).getAccess(property.access).setAccess(property.access);
        cls.visibility(property.isShown ? 1 : 0);
        if (number % 3 == 2) {
            property.type = {"double", {"1", ":"}, {"mustBePositive"}};
            cls.validation(property.type.className, property.type.dimensions, property.type.validators);
        }
        node.methods.push_back(method);
        node.properties.push_back(property);
    }
}

PlainNode& addClass(World& world, Graph& graph, const std::string& name, std::size_t members) {
    PlainNode& node = graph.nodes.emplace_back();
    node.id = zelk::internal::makeInterned(name);
    addMembers(world.cls(name), node, members, "Of" + name.substr(name.rfind('.') + 1) + "_");
    return node;
}

void derive(World& world, PlainNode& node, const PlainNode& superclass) {
    world.cls(node.id.view()).derives(superclass.id.view());
    node.superclasses.push_back(&superclass);
}

}  // namespace

Graph chain(World& world, std::size_t depth, std::size_t members) {
    const std::string stem = "chain" + std::to_string(depth) + "x" + std::to_string(members) + ".Link";
    Graph graph{stem + "0", {}, depth};
    for (std::size_t level = 0; level < depth; ++level) {
        addClass(world, graph, stem + std::to_string(level), members);
    }
    for (std::size_t level = 0; level + 1 < depth; ++level) {
        derive(world, graph.nodes[level], graph.nodes[level + 1]);
    }
    return graph;
}

Graph fan(World& world, std::size_t width, std::size_t members) {
    const std::string stem = "fan" + std::to_string(width) + "x" + std::to_string(members);
    Graph graph{stem + ".Hub", {}, width + 1};
    PlainNode& hub = addClass(world, graph, graph.className, members);
    for (std::size_t number = 0; number < width; ++number) {
        derive(world, hub, addClass(world, graph, stem + ".Blade" + std::to_string(number), members));
    }
    return graph;
}

Graph ladder(World& world, std::size_t rungs, std::size_t members) {
    const std::string stem = "ladder" + std::to_string(rungs) + "x" + std::to_string(members) + ".";
    Graph graph{stem + "Top0", {}, 1};
    PlainNode* top = &addClass(world, graph, graph.className, members);
    for (std::size_t rung = 0; rung < rungs; ++rung) {
        PlainNode& left = addClass(world, graph, stem + "Left" + std::to_string(rung), members);
        PlainNode& right = addClass(world, graph, stem + "Right" + std::to_string(rung), members);
        PlainNode& next = addClass(world, graph, stem + "Top" + std::to_string(rung + 1), members);
        derive(world, *top, left);
        derive(world, *top, right);
        derive(world, left, next);
        derive(world, right, next);
        top = &next;
        graph.paths = 3 + 2 * graph.paths;
    }
    return graph;
}

}  // namespace bench
