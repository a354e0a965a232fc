#include "frontends/completion/describe_class.h"

#include <algorithm>
#include <memory>
#include <optional>
#include <unordered_set>
#include <utility>

#include "contextdata/introspection.h"
#include "frontends/completion/ask.h"
#include "frontends/completion/lineage.h"
#include "frontends/completion/member_records.h"
#include "host/i18n.h"
#include "host/name_resolution.h"

namespace contextdata::completion {

using ZELKContextData::ClassInfo;
using ZELKContextData::MethodInfo;
using ZELKContextData::PropertyInfo;
using ZELKContextData::ResolvedClassID;

namespace {

/// By the custom of the hosts: members for the class and those that derive from it.
constexpr std::int32_t protectedAccess = 1;

DescribedMember memberOf(std::u16string name, const Declaration& declaration, const ClassInfo& one) {
    return {std::move(name), declaration.access, one.getClass()};
}

DescribedProperty propertyOf(PropertyInfo record, const Declaration& declaration, const ClassInfo& one) {
    DescribedProperty property;
    static_cast<DescribedMember&>(property) = memberOf(std::move(record.name), declaration, one);
    property.writeAccess = declaration.writeAccess;
    property.typeName = std::move(record.typeName);
    property.sizes = std::move(record.sizes);
    property.validators = std::move(record.validators);
    property.values = std::move(record.values);
    property.isReadOnly = record.readFlag;
    property.hasCustomGetter = record.hasCustomGetter;
    property.isStored = record.extendedFlag;
    return property;
}

template <class Member>
void sortByName(std::vector<Member>& members) {
    std::sort(members.begin(), members.end(),
              [](const Member& left, const Member& right) { return left.name < right.name; });
}

class Describer {
public:
    Describer(const Lineage& lineage, zelk::COSClass& cls, const DescribeOptions& options)
        : lineage_(lineage), class_(cls), includeHidden_(options.includeHidden) {
        if (!options.asker.isNull()) {
            asker_.emplace(options.asker);
        }
    }

    /// The order of the groups is that of the names: a name that two groups claim stands in the first.
    ClassDescription describe() {
        description_.name = lineage_.getClass();
        description_.superclasses = superclassTree(lineage_.getSuperclassInfo().classID);
        description_.attributes = lineage_.getAttributes(includeHidden_);
        unlessItFails([&] { return addEnumerationMembers(); });
        addProperties();
        addMethods();
        sortByName(description_.constants);
        sortByName(description_.properties);
        sortByName(description_.staticMethods);
        sortByName(description_.methods);
        return std::move(description_);
    }

private:
    bool isNew(const std::u16string& name) { return names_.insert(name).second; }

    bool addEnumerationMembers() {
        const zelk::COSIteratorPtr members = class_.getEnumerationMembers();
        while (members && members->hasMoreElements()) {
            const zelk::COSInterfacePtr node = members->nextElement();
            const zelk::COSEnumInfo* member = zelk::cosiToEnum(node.get());
            if (member != nullptr && (includeHidden_ || !member->isHidden())) {
                addEnumerationMember(fl::i18n::to_ustring(member->getName()), zelk::cosiClassOfMember(node.get()));
            }
        }
        return true;
    }

    void addEnumerationMember(std::u16string name, const zelk::COSClass* declarer) {
        if (!isNew(name)) {
            return;
        }
        std::u16string declarerName;
        if (declarer != nullptr) {
            declarerName =
                fl::i18n::to_ustring(zelk::nameresolution::getBaseClassNameFromFullName(declarer->getName()));
        }
        description_.enumerationMembers.push_back({std::move(name), zelk::publicAccess, std::move(declarerName)});
    }

    void addProperties() {
        const Declarations declarations = declarationsOfProperties(class_);
        for (const std::shared_ptr<ClassInfo>& one : lineage_.classes()) {
            PropertyInfo::GetOptions options;
            options.accessibility = accessTo(*one, declarations);
            options.accessingClass = asker();
            options.includeHidden = includeHidden_;
            for (PropertyInfo& record : propertiesFrom(*one, declarations, options)) {
                const Declaration& declaration = *declarations.find(record.name);
                if (isNew(record.name)) {
                    auto& group = declaration.isConstant() ? description_.constants : description_.properties;
                    group.push_back(propertyOf(std::move(record), declaration, *one));
                }
            }
        }
    }

    void addMethods() {
        const Declarations declarations = declarationsOfMethods(class_);
        for (const std::shared_ptr<ClassInfo>& one : lineage_.classes()) {
            MethodInfo::GetOptions options;
            options.accessibility = accessTo(*one, declarations);
            options.accessingClass = asker();
            options.includeOperatorOverloads = true;
            options.includeHidden = includeHidden_;
            for (MethodInfo& record : methodsFrom(*one, declarations, options)) {
                const Declaration& declaration = *declarations.find(record.name);
                if (isNew(record.name)) {
                    auto& group = record.isStatic ? description_.staticMethods : description_.methods;
                    group.push_back(memberOf(std::move(record.name), declaration, *one));
                }
            }
        }
    }

    const ClassInfo* asker() const { return asker_ ? &*asker_ : nullptr; }

    /// The access codes with which a class of the lineage is asked.
    std::vector<std::int32_t> accessTo(const ClassInfo& one, const Declarations& declarations) const {
        const zelk::COSInternedID id = one.getSuperclassInfo().classID;
        if (asker_) {
            const bool isAsker = asker_->getSuperclassInfo().classID == id;
            return isAsker ? std::vector{zelk::publicAccess, zelk::privateAccess} : std::vector{zelk::publicAccess};
        }
        std::vector<std::int32_t> codes = declarations.accessCodes();
        if (id != lineage_.getSuperclassInfo().classID) {
            std::erase(codes, zelk::privateAccess);
        }
        return codes;
    }

    const Lineage& lineage_;
    zelk::COSClass& class_;
    std::optional<Lineage> asker_;
    bool includeHidden_;
    ClassDescription description_;
    std::unordered_set<std::u16string> names_;
};

}  // namespace

std::string textOfAccess(std::int32_t code) {
    switch (code) {
        case zelk::publicAccess:
            return "public";
        case protectedAccess:
            return "protected";
        case zelk::privateAccess:
            return "private";
        default:
            return std::to_string(code);
    }
}

ClassDescription describeClass(const ResolvedClassID& id, const DescribeOptions& options) {
    const Lineage lineage(id);
    zelk::COSClass* cls = ZELKIntrospection::getCOSClass(id);
    if (lineage.classes().empty() || cls == nullptr) {
        return {};
    }
    return Describer(lineage, *cls, options).describe();
}

}  // namespace contextdata::completion
