// The tree of a class's superclasses: making it, looking through it, and joining the attributes of all that is in it.
#include <algorithm>
#include <memory>

#include "bench/floors/class_shapes.h"
#include "bench/floors/questions.h"
#include "contextdata/class_info.h"
#include "host/class_objects.h"
#include "host/class_system.h"
#include "host/i18n.h"
#include "host/name_resolution.h"

namespace bench {

using namespace ZELKContextData;
using zelk::COSClass;
using zelk::COSInternedID;

namespace {

/// One object a path, as the library has it, without what serves questions about members.
struct PlainTree {
    std::u16string name;
    std::vector<std::shared_ptr<PlainTree>> superclasses;
    COSInternedID id;
};

struct Tree {
    ClassInfo info;
};

bool isAnswer(const Tree& tree) { return !tree.info.getClass().empty(); }

bool same(const ClassInfo& info, const PlainTree& plain) {
    const ClassStructureInfo& structure = info.getSuperclassInfo();
    return structure.className == plain.name && structure.classID == plain.id &&
           std::equal(structure.superclasses.begin(), structure.superclasses.end(), plain.superclasses.begin(),
                      plain.superclasses.end(), [](const auto& one, const auto& other) { return same(*one, *other); });
}

bool same(const Tree& tree, const PlainTree& plain) { return same(tree.info, plain); }

void fill(PlainTree& tree, COSInternedID id) {
    tree.id = id;
    tree.name = fl::i18n::to_ustring(zelk::nameresolution::getBaseClassNameFromFullName(id.view()));
    const zelk::COSIDIteratorPtr ids = COSClass::getClass(id)->getSuperclasses();
    while (ids && ids->hasMoreElements()) {
        const std::shared_ptr<PlainTree>& superclass = tree.superclasses.emplace_back(std::make_shared<PlainTree>());
        fill(*superclass, COSClass::getClass(ids->nextElement())->getID());
    }
}

PlainTree plainTree(COSInternedID id) {
    PlainTree tree;
    fill(tree, id);
    return tree;
}

void addAttributes(COSInternedID id, AttributeInfo& attributes) {
    const COSClass* cls = COSClass::getClass(id);
    const auto add = [cls](auto query, std::set<std::u16string>& set) {
        std::vector<std::string> names;
        (cls->*query)(false, names);
        for (const std::string& name : names) {
            set.insert(fl::i18n::to_ustring(name, fl::i18n::codecvt_ascii_to_ustring(false)));
        }
    };
    add(&COSClass::getClassAttributeNames, attributes.ofClasses);
    add(&COSClass::getPropertyAttributeNames, attributes.ofProperties);
    add(&COSClass::getMethodAttributeNames, attributes.ofMethods);
    add(&COSClass::getEventAttributeNames, attributes.ofEvents);
}

void joinAttributes(const PlainNode& node, AttributeInfo& attributes) {
    addAttributes(node.id, attributes);
    for (const PlainNode* superclass : node.superclasses) {
        joinAttributes(*superclass, attributes);
    }
}

template <class Wanted>
bool isIn(const ClassStructureInfo& structure, const Wanted& wanted, Wanted ClassStructureInfo::*member) {
    if (structure.*member == wanted) {
        return true;
    }
    for (const std::shared_ptr<ClassInfo>& superclass : structure.superclasses) {
        if (isIn(superclass->getSuperclassInfo(), wanted, member)) {
            return true;
        }
    }
    return false;
}

void joinNames(const ClassStructureInfo& structure, Names& names) {
    names.push_back(structure.className);
    for (const std::shared_ptr<ClassInfo>& superclass : structure.superclasses) {
        joinNames(superclass->getSuperclassInfo(), names);
    }
}

Question making(const std::string& name, const Graph& graph) {
    const ResolvedClassID id = ResolvedClassID::fromKnownResolvedClassID(graph.className);
    return question(
        "class trees", name + ", " + std::to_string(graph.paths) + " paths", graph.paths,
        [id] { return Tree{ClassInfo(id)}; }, [id] { return plainTree(id.get()); });
}

/// The tree of an object's class, which keeps its full name.
Question makingOfObject(memory_host::World& world, const Graph& graph) {
    const qxSharedArray object(world.object(graph.className).release(), false);
    return question(
        "class trees", "of an object, chain, " + std::to_string(graph.paths) + " paths", graph.paths,
        [object] { return Tree{ClassInfo(object.get())}; },
        [object] { return plainTree(omIsZELK(object.get()) ? omGetCOSClassID(object.get()) : COSInternedID()); });
}

std::vector<Question> makings(memory_host::World& world) {
    std::vector<Question> questions;
    for (const std::size_t paths : {10U, 1'000U, 5'000U, 10'000U}) {
        questions.push_back(making("chain", chain(world, paths, 0)));
        questions.push_back(making("fan", fan(world, paths - 1, 0)));
    }
    for (const std::size_t rungs : {2U, 8U, 11U, 12U}) {
        questions.push_back(making("ladder", ladder(world, rungs, 0)));
    }
    questions.push_back(makingOfObject(world, chain(world, 50, 0)));
    return questions;
}

/// Each class of the graph has attributes of its own, and one that all of them have.
void giveAttributes(memory_host::World& world, const Graph& graph) {
    for (const PlainNode& node : graph.nodes) {
        const std::string name = "AttributeOf" + std::string(node.id.view());
        world.cls(node.id.view()).classAttribute("Description").propertyAttribute("Description");
        world.cls(node.id.view()).classAttribute(name).propertyAttribute(name).methodAttribute(name);
        world.cls(node.id.view()).eventAttribute(name);
    }
}

Question attributes(memory_host::World& world, const std::string& name, Graph made) {
    giveAttributes(world, made);
    const auto graph = std::make_shared<Graph>(std::move(made));
    const auto info = std::make_shared<ClassInfo>(ResolvedClassID::fromKnownResolvedClassID(graph->className));
    return question(
        "attributes", "getAttributes, " + name, graph->paths, [info] { return info->getAttributes(false); },
        [graph] {
            AttributeInfo joined;
            joinAttributes(graph->nodes.front(), joined);
            return joined;
        });
}

std::vector<Question> searches(memory_host::World& world) {
    const Graph graph = chain(world, 50, 1);
    const auto info = std::make_shared<ClassInfo>(ResolvedClassID::fromKnownResolvedClassID(graph.className));
    const COSInternedID last = graph.nodes.back().id;
    const std::u16string lastName = fl::i18n::to_ustring(last.view());
    const std::string family = "class tree questions";
    return {
        question(
            family, "isA by identity, 50 classes up", 50, [info, last] { return info->isA(last); },
            [info, last] { return isIn(info->getSuperclassInfo(), last, &ClassStructureInfo::classID); }),
        question(
            family, "isA by name, 50 classes up", 50, [info, lastName] { return info->isA(lastName); },
            [info, lastName] { return isIn(info->getSuperclassInfo(), lastName, &ClassStructureInfo::className); }),
        question(
            family, "getSuperclasses, 50 classes", 50, [info] { return info->getSuperclassInfo().getSuperclasses(); },
            [info] {
                Names names;
                joinNames(info->getSuperclassInfo(), names);
                return names;
            }),
    };
}

}  // namespace

std::vector<Question> classTreeQuestions(memory_host::World& world) {
    std::vector<Question> questions = makings(world);
    questions.push_back(attributes(world, "one class", chain(world, 1, 2)));
    questions.push_back(attributes(world, "chain of 50", chain(world, 50, 2)));
    questions.push_back(attributes(world, "ladder of 6 diamonds", ladder(world, 6, 2)));
    for (Question& search : searches(world)) {
        questions.push_back(std::move(search));
    }
    return questions;
}

}  // namespace bench
