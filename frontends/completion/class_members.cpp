#include "frontends/completion/class_members.h"

#include <cstddef>
#include <optional>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

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

/// Whether an 8-bit name reads as a text. Names within ASCII need no conversion to tell.
bool readsAs(const char* name, std::u16string_view text, const fl::i18n::codecvt_ascii_to_ustring& converter) {
    for (std::size_t place = 0; place < text.size(); ++place) {
        const auto own = static_cast<unsigned char>(name[place]);
        if (own >= 0x80) {
            return fl::i18n::to_ustring(name, converter) == text;
        }
        if (own != text[place]) {
            return false;
        }
    }
    return name[text.size()] == '\0';
}

/// The class that declares a member, by its name and beside the one that is listed; of an unknown one, nothing.
struct Origin {
    SharedText definingClass;
    bool isInherited = false;
};

/// The declaring class of each member of one sort. The first member of a name decides, as it does in the listings.
class DefiningClasses final : public zelk::COSVisitor<zelk::COSInterface*> {
public:
    void visit(zelk::COSInterface* member) override {
        const zelk::COSMethodInfo* method = zelk::cosiToMethod(member);
        sawStaticMethod_ = sawStaticMethod_ || (method != nullptr && mayBeListedAsStatic(*method));
        const char* name = method != nullptr ? method->getName() : nameOf(member);
        if (name == nullptr) {
            return;
        }
        if (zelk::COSClass* cls = zelk::cosiClassOfMember(member)) {
            members_.push_back({name, cls});
        }
    }

    /// The walk went to its end.
    void complete() { isComplete_ = true; }

    /// False when no static method can be listed.
    bool mayHaveStaticMethods() const { return sawStaticMethod_ || !isComplete_; }

    /// Where a listed name comes from. `listed` is the class whose members are listed.
    Origin originOf(const std::u16string& name, const zelk::COSClass* listed) {
        zelk::COSClass* cls = declarerOf(name);
        return cls == nullptr ? Origin() : Origin{displayName(cls), cls != listed};
    }

    /// Another list begins.
    void rewind() { next_ = 0; }

private:
    struct Member {
        const char* name;  // permanent
        zelk::COSClass* cls;
    };

    /// A list has its names in the order of the walk, so the one that is sought stands a little further on. In any
    /// other order, an index is cheaper than to look through all members for each.
    zelk::COSClass* declarerOf(const std::u16string& name) {
        if (!index_) {
            while (next_ < members_.size() && !readsAs(members_[next_].name, name, converter_)) {
                ++next_;
            }
            if (next_ < members_.size()) {
                return members_[next_++].cls;
            }
            makeIndex();
        }
        const auto found = index_->find(name);
        return found == index_->end() ? nullptr : found->second;
    }

    void makeIndex() {
        index_.emplace();
        for (const Member& member : members_) {
            index_->try_emplace(fl::i18n::to_ustring(member.name, converter_), member.cls);
        }
    }

    /// Unless the host says that it is not.
    static bool mayBeListedAsStatic(const zelk::COSMethodInfo& method) {
        return !unlessItFails([&] { return !method.isStatic() || !method.isListable(); });
    }

    /// Of a member that is no method.
    static const char* nameOf(zelk::COSInterface* member) {
        if (const zelk::COSPropInfo* property = zelk::cosiToProp(member)) {
            return property->getName();
        }
        const zelk::COSEnumInfo* enumerationMember = zelk::cosiToEnum(member);
        return enumerationMember == nullptr ? nullptr : enumerationMember->getName();
    }

    // A class declares many members, mostly in a row: its name is made once.
    const SharedText& displayName(zelk::COSClass* cls) {
        if (last_ == nullptr || last_->first != cls) {
            auto entry = displayNames_.find(cls);
            if (entry == displayNames_.end()) {
                entry = displayNames_.emplace(cls, newDisplayName(*cls)).first;
            }
            last_ = &*entry;
        }
        return last_->second;
    }

    static SharedText newDisplayName(const zelk::COSClass& cls) {
        return SharedText(fl::i18n::to_ustring(zelk::nameresolution::getBaseClassNameFromFullName(cls.getName())));
    }

    const fl::i18n::codecvt_ascii_to_ustring converter_{false};
    std::vector<Member> members_;
    bool sawStaticMethod_ = false;
    bool isComplete_ = false;
    std::size_t next_ = 0;
    std::optional<std::unordered_map<std::u16string, zelk::COSClass*>> index_;
    std::unordered_map<zelk::COSClass*, SharedText> displayNames_;
    decltype(displayNames_)::const_pointer last_ = nullptr;
};

DefiningClasses definingClassesOfMethods(zelk::COSClass& cls) {
    DefiningClasses classes;
    cls.visitMethods(classes);
    classes.complete();
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
    Names names = unlessItFails([&] {
        Names listed;
        bool isOpen = false;
        listing(of.id, listed, isOpen);
        return listed;
    });
    items.reserve(items.size() + names.size());
    definingClasses.rewind();
    for (std::u16string& name : names) {
        Origin origin = unlessItFails([&] { return definingClasses.originOf(name, of.cls); });
        items.push_back({.name = std::move(name),
                         .kind = kind,
                         .isInherited = origin.isInherited,
                         .definingClass = std::move(origin.definingClass)});
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
    if (ofMethods.mayHaveStaticMethods()) {
        append(items, listed, getClassStaticMethodNames, Kind::staticMethod, ofMethods);
    }
    append(items, listed, getClassMethodNames, Kind::method, ofMethods);
    return sortedOnce(std::move(items));
}

}  // namespace contextdata::completion
