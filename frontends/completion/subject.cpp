#include "frontends/completion/subject.h"

#include <vector>

#include "contextdata/introspection.h"
#include "contextdata/values.h"
#include "frontends/completion/ask.h"
#include "host/i18n.h"

namespace contextdata::completion {

using ZELKContextData::ResolvedClassID;

namespace {

bool isDefined(const ResolvedClassID& id) {
    zelk::COSClass* cls = ZELKIntrospection::getCOSClass(id);
    return cls != nullptr && unlessItFails([&] { return cls->getDefinition(false) != nullptr; });
}

/// The identity behind the canonical name that a value gives of its class; null when no such class is defined.
ResolvedClassID knownClass(const std::u16string& name) {
    return unlessItFails([&] { return ResolvedClassID::fromLegacyString(fl::i18n::to_string(name)); });
}

}  // namespace

std::u16string dotted(std::span<const std::u16string_view> chain) {
    std::u16string name;
    for (const std::u16string_view segment : chain) {
        name += name.empty() ? u"" : u".";
        name += segment;
    }
    return name;
}

qxSharedArray follow(qxSharedArray root, std::span<const std::u16string_view> segments) {
    for (const std::u16string_view segment : segments) {
        if (!root) {
            break;
        }
        const std::string name = unlessItFails([&] { return fl::i18n::to_string(segment); });
        root = name.empty() ? qxSharedArray() : getSharedProperty(root.get(), name, 0);
    }
    return root;
}

Subject describe(qxSharedArray value) {
    Subject subject;
    if (!value) {
        return subject;
    }
    subject.value = std::move(value);
    subject.nature = Subject::Nature::object;
    const std::vector<std::u16string> denoted = ask(subject.value.get(), "denotes");
    if (denoted.size() != 2) {
        return subject;
    }
    if (denoted[0] == u"namespace") {
        subject.nature = Subject::Nature::space;
        subject.space = denoted[1];
    } else if (denoted[0] == u"class") {
        subject.cls = knownClass(denoted[1]);
        subject.nature = subject.cls.isNull() ? Subject::Nature::object : Subject::Nature::classItself;
    }
    return subject;
}

Subject named(std::span<const std::u16string_view> chain, const std::u16string& contextFile) {
    Subject subject;
    const std::u16string name = dotted(chain);
    const auto id = unlessItFails([&] { return ResolvedClassID(contextFile, name); });
    if (isDefined(id)) {
        subject.nature = Subject::Nature::classItself;
        subject.cls = id;
    } else if (unlessItFails([&] { return ZELKIntrospection::isZELKNamespace(name); })) {
        subject.nature = Subject::Nature::space;
        subject.space = name;
    }
    return subject;
}

}  // namespace contextdata::completion
