#include "frontends/completion/value_members.h"

#include <algorithm>
#include <unordered_set>

#include "contextdata/introspection.h"
#include "frontends/completion/ask.h"
#include "frontends/completion/class_members.h"
#include "frontends/completion/insider_members.h"
#include "frontends/completion/namespace_members.h"
#include "host/i18n.h"

namespace contextdata::completion {

using ZELKContextData::ResolvedClassID;

namespace {

void append(std::vector<Item>& items, std::vector<std::u16string> names, Kind kind) {
    items.reserve(items.size() + names.size());
    for (std::u16string& name : names) {
        items.push_back({std::move(name), kind});
    }
}

bool isStructure(const qxArray* value) {
    return unlessItFails([&] { return qxGetClassID(value) == qxClassID::structure; });
}

/// Not every structure has its fields behind a dot: one whose fields are reached otherwise has them as fields, yet
/// not as properties.
void markFields(std::vector<Item>& items, const qxArray* value) {
    const std::vector<std::u16string> names = ask(value, "fieldnames");
    const std::unordered_set<std::u16string_view> fields(names.begin(), names.end());
    for (Item& item : items) {
        item.kind = fields.contains(item.name) ? Kind::field : item.kind;
    }
}

Items membersOfObject(const qxArray* value) {
    // The value first: asking it may run its author's code, and what that does to the class is then seen.
    const Items own = sortedOnce(ownMembers(value));
    const ResolvedClassID cls = classOf(value);
    return cls.isNull() ? membersWithoutClass(value) : merged(membersOfClass(cls, Side::object), own);
}

ResolvedClassID classBehind(const Subject& subject) {
    return subject.nature == Subject::Nature::object ? classOf(subject.value.get()) : subject.cls;
}

}  // namespace

ResolvedClassID classOf(const qxArray* value) {
    if (unlessItFails([&] { return ZELKIntrospection::isZELKObject(value); })) {
        return unlessItFails([&] { return ResolvedClassID(value); });
    }
    const std::vector<std::u16string> names = ask(value, "class");
    if (names.size() != 1) {
        return {};
    }
    return unlessItFails([&] { return ResolvedClassID::fromLegacyString(fl::i18n::to_string(names.front())); });
}

std::vector<Item> ownMembers(const qxArray* value) {
    std::vector<Item> items;
    append(items, ask(value, "properties"), Kind::property);
    if (!items.empty() && isStructure(value)) {
        markFields(items, value);
    }
    return items;
}

Items membersWithoutClass(const qxArray* value) {
    std::vector<Item> items;
    if (isStructure(value)) {
        append(items, ask(value, "fieldnames"), Kind::field);
    }
    append(items, ask(value, "methods"), Kind::method);
    append(items, ask(value, "properties"), Kind::property);
    return sortedOnce(std::move(items));
}

Items membersOf(const Subject& subject) {
    switch (subject.nature) {
        case Subject::Nature::object:
            return membersOfObject(subject.value.get());
        case Subject::Nature::classItself:
            return membersOfClass(subject.cls, Side::classItself);
        case Subject::Nature::space: {
            const Items held = membersOfNamespace(subject.space);
            return subject.value ? merged(held, sortedOnce(ownMembers(subject.value.get()))) : held;
        }
        case Subject::Nature::nothing:
            break;
    }
    return {};
}

Items membersOf(const Subject& subject, const ResolvedClassID& asker) {
    Items offered = membersOf(subject);
    if (asker.isNull()) {
        return offered;
    }
    const ResolvedClassID cls = classBehind(subject);
    return cls.isNull() ? offered : merged(offered, insiderMembersOf(cls, asker));
}

}  // namespace contextdata::completion
