#include "tests/fuzz/chain_model.h"

#include <stdexcept>
#include <utility>

#include "tests/fuzz/plain_utf.h"

namespace fuzz {

ChainModel::ChainModel(memory_host::World& world) : world_(world) {
    world_.cls("pkg.Thing").method("work").property("part").property("unset").property("plain");
    world_.javaMember("java.lang.Text", "valueOf");
    world_.javaMember("java.lang.Text", "length", "other");
    buildStructures();
    buildObjects();
    buildOthers();
}

KnownValue* ChainModel::known(const qxUniqueArray& value, Kind kind, bool isScalar) {
    values_.push_back(std::make_unique<KnownValue>());
    values_.back()->value = value.get();
    values_.back()->kind = kind;
    values_.back()->isScalar = isScalar;
    return values_.back().get();
}

KnownValue* ChainModel::addNumber(const qxUniqueArray& structure, const char* field, double number) {
    qxUniqueArray value = world_.number(number);
    KnownValue* added = known(value, Kind::other);
    world_.setField(structure, field, std::move(value));
    return added;
}

void ChainModel::variable(const char* name, qxUniqueArray value, KnownValue* known) {
    variables_[name] = known;
    world_.variable(name, std::move(value));
}

// s.a.b is a number, s.a.rows has two elements, s.empty was never set; t has three elements.
void ChainModel::buildStructures() {
    qxUniqueArray s = world_.structure();
    KnownValue* outer = known(s, Kind::fields);
    qxUniqueArray a = world_.structure();
    KnownValue* inner = known(a, Kind::fields);
    inner->members["b"] = addNumber(a, "b", 1);
    qxUniqueArray rows = world_.structure({1, 2});
    inner->members["rows"] = known(rows, Kind::fields, false);
    world_.setField(a, "rows", std::move(rows));
    world_.setField(s, "a", std::move(a));
    outer->members["a"] = inner;
    world_.setField(s, "empty", nullptr);
    outer->members["empty"] = nullptr;
    variable("s", std::move(s), outer);

    qxUniqueArray t = world_.structure({1, 3});
    KnownValue* several = known(t, Kind::fields, false);
    variable("t", std::move(t), several);

    qxUniqueArray older = world_.olderObject("older.Thing");
    KnownValue* old = known(older, Kind::fields);
    old->members["field"] = addNumber(older, "field", 2);
    variable("older", std::move(older), old);

    // A variable of this name does not make a chain of what Java knows.
    qxUniqueArray java = world_.structure();
    KnownValue* root = known(java, Kind::fields);
    root->members["lang"] = addNumber(java, "lang", 3);
    variable("java", std::move(java), root);
}

void ChainModel::buildObjects() {
    qxUniqueArray part = world_.structure();
    KnownValue* knownPart = known(part, Kind::fields);
    knownPart->members["b"] = addNumber(part, "b", 4);
    qxUniqueArray object = world_.object("pkg.Thing");
    KnownValue* thing = known(object, Kind::object);
    thing->methods = {"work"};
    thing->members = {{"part", knownPart}, {"unset", nullptr}, {"plain", nullptr}};
    world_.setProperty(object, "part", std::move(part));
    world_.setProperty(object, "plain", nullptr);
    // Carried by the object, but declared by nobody.
    world_.setProperty(object, "extra", world_.number(5));
    variable("object", std::move(object), thing);

    qxUniqueArray objects = world_.object("pkg.Thing", {2, 1});
    KnownValue* things = known(objects, Kind::object, false);
    variable("objects", std::move(objects), things);
}

qxUniqueArray ChainModel::texts(const std::set<std::string>& names) {
    std::vector<qxUniqueArray> elements;
    for (const std::string& name : names) {
        elements.push_back(world_.charRow(wide(name)));
    }
    return world_.cellOf(std::move(elements));
}

void ChainModel::buildOthers() {
    qxUniqueArray opaque = world_.opaque("strange.Thing");
    KnownValue* strange = known(opaque, Kind::opaque);
    strange->methods = {"run"};
    qxUniqueArray data = world_.number(6);
    strange->members = {{"data", known(data, Kind::other)}};
    world_.setProperty(opaque, "data", std::move(data));
    world_.function("methods", [this, value = opaque.get()](const qxArray* asked) {
        return asked == value ? texts({"run"}) : throw std::invalid_argument("methods");
    });
    world_.function("fieldnames", [this, value = opaque.get()](const qxArray* asked) {
        return asked == value ? texts({"data"}) : throw std::invalid_argument("fieldnames");
    });
    variable("opaque", std::move(opaque), strange);

    qxUniqueArray number = world_.number(7);
    KnownValue* plain = known(number, Kind::other);
    variable("n", std::move(number), plain);
    qxUniqueArray cell = world_.cell({u"a", u"b"});
    KnownValue* pair = known(cell, Kind::other, false);
    variable("cell_2", std::move(cell), pair);
}

const std::vector<std::string>& ChainModel::names() {
    static const std::vector<std::string> all = {"s",     "t",      "a",       "b",      "rows",   "empty", "older",
                                                 "field", "java",   "lang",    "Text",   "object", "part",  "objects",
                                                 "unset", "plain",  "work",    "extra",  "opaque", "run",   "data",
                                                 "n",     "cell_2", "valueOf", "length", "nobody", "_x",    "x1"};
    return all;
}

namespace {

/// Takes a name from the front of a text: a letter, then letters, digits and underscores.
std::string takeName(std::string& rest) {
    const auto isLetter = [](char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); };
    std::string name;
    while (name.size() < rest.size()) {
        const char c = rest[name.size()];
        const bool follows = c == '_' || (c >= '0' && c <= '9');
        if (!isLetter(c) && (name.empty() || !follows)) {
            break;
        }
        name.push_back(c);
    }
    rest.erase(0, name.size());
    return name;
}

}  // namespace

ChainModel::Answer ChainModel::follow(const std::string& text) const {
    if (text == "java.lang.Text.valueOf") {
        return {};
    }
    std::string rest = text;
    const auto base = variables_.find(takeName(rest));
    if (base == variables_.end()) {
        return {};
    }
    const KnownValue* value = base->second;
    while (value != nullptr && rest.starts_with('.')) {
        rest.erase(0, 1);
        const std::string name = takeName(rest);
        if (name.empty()) {
            value = nullptr;
            break;
        }
        if (!value->isScalar || value->kind == Kind::other || value->methods.contains(name)) {
            return {};
        }
        const auto member = value->members.find(name);
        value = member == value->members.end() ? nullptr : member->second;
    }
    if (value != nullptr && rest.empty()) {
        return {Answer::Kind::value, value->value};
    }
    return {Answer::Kind::evaluation};
}

}  // namespace fuzz
