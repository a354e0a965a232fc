#include "frontends/completion/class_members.h"

#include <unordered_map>
#include <utility>

#include "contextdata/class_member_names.h"
#include "contextdata/introspection.h"
#include "frontends/completion/ask.h"
#include "host/class_system.h"
#include "host/i18n.h"
#include "host/name_resolution.h"

namespace contextdata::completion {

using ZELKContextData::ResolvedClassID;

namespace {

using Names = std::vector<std::u16string>;
using Listing = bool (*)(const ResolvedClassID& cls, Names& names, bool& flag);

/// The declaring class of each member of one sort. The first member of a name decides, as it does in the listings.
class DefiningClasses final : public zelk::COSVisitor<zelk::COSInterface*> {
public:
    void visit(zelk::COSInterface* member) override {
        const zelk::COSInterfacePtr handle(member);
        const char* name = nameOf(member);
        if (name == nullptr) {
            return;
        }
        if (zelk::COSClass* cls = zelk::cosiClassOfMember(member)) {
            classes_.try_emplace(fl::i18n::to_ustring(name, converter_), cls);
        }
    }

    /// The item of a listed name. `listed` is the class whose members are listed.
    Item itemOf(std::u16string name, Kind kind, const zelk::COSClass* listed) {
        const auto found = classes_.find(name);
        if (found == classes_.end()) {
            return {std::move(name), kind, {}};
        }
        Item item{std::move(name), kind, displayName(found->second)};
        item.isInherited = found->second != listed;
        return item;
    }

private:
    static const char* nameOf(zelk::COSInterface* member) {
        if (const zelk::COSMethodInfo* method = zelk::cosiToMethod(member)) {
            return method->getName();
        }
        if (const zelk::COSPropInfo* property = zelk::cosiToProp(member)) {
            return property->getName();
        }
        const zelk::COSEnumInfo* enumerationMember = zelk::cosiToEnum(member);
        return enumerationMember == nullptr ? nullptr : enumerationMember->getName();
    }

    // A class declares many members: its name is made once.
    const std::u16string& displayName(zelk::COSClass* cls) {
        const auto [entry, isNew] = displayNames_.try_emplace(cls);
        if (isNew) {
            entry->second = fl::i18n::to_ustring(zelk::nameresolution::getBaseClassNameFromFullName(cls->getName()));
        }
        return entry->second;
    }

    const fl::i18n::codecvt_ascii_to_ustring converter_{false};
    std::unordered_map<std::u16string, zelk::COSClass*> classes_;
    std::unordered_map<zelk::COSClass*, std::u16string> displayNames_;
};

DefiningClasses definingClassesOfMethods(zelk::COSClass& cls) {
    DefiningClasses classes;
    cls.visitMethods(classes);
    return classes;
}

DefiningClasses definingClassesOfProperties(zelk::COSClass& cls) {
    DefiningClasses classes;
    cls.visitProperties(classes);
    return classes;
}

DefiningClasses definingClassesOfEnumerationMembers(zelk::COSClass& cls) {
    DefiningClasses classes;
    const zelk::COSIteratorPtr members = cls.getEnumerationMembers();
    while (members && members->hasMoreElements()) {
        classes.visit(members->nextElement().get());
    }
    return classes;
}

/// The class whose members are listed.
struct Listed {
    const ResolvedClassID& id;
    const zelk::COSClass* cls;
};

void append(std::vector<Item>& items, const Listed& of, Listing listing, Kind kind, DefiningClasses& definingClasses) {
    const Names names = unlessItFails([&] {
        Names listed;
        bool isOpen = false;
        listing(of.id, listed, isOpen);
        return listed;
    });
    items.reserve(items.size() + names.size());
    for (const std::u16string& name : names) {
        Item item = unlessItFails([&] { return definingClasses.itemOf(name, kind, of.cls); });
        items.push_back(item.name.empty() ? Item{name, kind, {}} : std::move(item));
    }
}

}  // namespace

Items membersOfClass(const ResolvedClassID& id, Side side) {
    using namespace ZELKContextData;
    zelk::COSClass* cls = ZELKIntrospection::getCOSClass(id);
    if (cls == nullptr) {
        return {};
    }
    const Listed listed{id, cls};
    std::vector<Item> items;
    if (side == Side::classItself) {
        DefiningClasses classes = unlessItFails([&] { return definingClassesOfEnumerationMembers(*cls); });
        append(items, listed, getClassEnumerationNames, Kind::enumerationMember, classes);
    }
    DefiningClasses ofProperties = unlessItFails([&] { return definingClassesOfProperties(*cls); });
    append(items, listed, getClassConstantPropertyNames, Kind::constant, ofProperties);
    append(items, listed, getClassPropertyNames, Kind::property, ofProperties);
    DefiningClasses ofMethods = unlessItFails([&] { return definingClassesOfMethods(*cls); });
    append(items, listed, getClassStaticMethodNames, Kind::staticMethod, ofMethods);
    append(items, listed, getClassMethodNames, Kind::method, ofMethods);
    return sortedOnce(std::move(items));
}

}  // namespace contextdata::completion
