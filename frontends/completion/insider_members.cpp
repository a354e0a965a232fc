#include "frontends/completion/insider_members.h"

#include <memory>
#include <string_view>
#include <utility>
#include <vector>

#include "contextdata/introspection.h"
#include "frontends/completion/lineage.h"
#include "frontends/completion/member_records.h"

namespace contextdata::completion {

using ZELKContextData::ClassInfo;
using ZELKContextData::MethodInfo;
using ZELKContextData::PropertyInfo;
using ZELKContextData::ResolvedClassID;

namespace {

std::string_view detailOf(std::int32_t access) {
    if (access == zelk::privateAccess) {
        return "private";
    }
    return access == zelk::publicAccess ? std::string_view() : "protected";
}

/// Collects what one asker may use.
class InsiderMembers {
public:
    /// `listed` is the name of the class whose members are listed; it outlives this.
    InsiderMembers(const Lineage& asker, const std::u16string& listed) : asker_(asker), listed_(listed) {}

    /// The members of a class that access codes or access lists open to the asker. Each class of the lineage tells
    /// for itself.
    void add(const std::vector<std::shared_ptr<ClassInfo>>& classes, zelk::COSClass& cls,
             const std::vector<std::int32_t>& accessCodes) {
        const Declarations methods = declarationsOfMethods(cls);
        const Declarations properties = declarationsOfProperties(cls);
        for (const std::shared_ptr<ClassInfo>& one : classes) {
            addMethods(*one, methods, accessCodes);
            addProperties(*one, properties, accessCodes);
        }
    }

    Items take() { return sortedOnce(std::move(items_)); }

private:
    void addMethods(const ClassInfo& one, const Declarations& declarations,
                    const std::vector<std::int32_t>& accessCodes) {
        MethodInfo::GetOptions options;
        options.accessibility = accessCodes;
        options.accessingClass = &asker_;
        for (const MethodInfo& method : methodsFrom(one, declarations, options)) {
            const Declaration* declaration = declarations.find(method.name);
            if (declaration->isListable) {
                add(method.name, method.isStatic ? Kind::staticMethod : Kind::method, one, *declaration);
            }
        }
    }

    void addProperties(const ClassInfo& one, const Declarations& declarations,
                       const std::vector<std::int32_t>& accessCodes) {
        PropertyInfo::GetOptions options;
        options.accessibility = accessCodes;
        options.accessingClass = &asker_;
        for (const PropertyInfo& property : propertiesFrom(one, declarations, options)) {
            const Declaration* declaration = declarations.find(property.name);
            if (declaration->isListable) {
                add(property.name, declaration->isConstant() ? Kind::constant : Kind::property, one, *declaration);
            }
        }
    }

    void add(const std::u16string& name, Kind kind, const ClassInfo& one, const Declaration& declaration) {
        items_.push_back({.name = name,
                          .kind = kind,
                          .isInherited = one.getClass() != listed_,
                          .definingClass = SharedText(one.getClass()),
                          .detail = detailOf(declaration.access)});
    }

    const Lineage& asker_;
    const std::u16string& listed_;
    std::vector<Item> items_;
};

}  // namespace

Items insiderMembersOf(const ResolvedClassID& cls, const ResolvedClassID& asker) {
    const Lineage lineage(cls);
    const Lineage asking(asker);
    zelk::COSClass* object = ZELKIntrospection::getCOSClass(cls);
    zelk::COSClass* askingObject = ZELKIntrospection::getCOSClass(asker);
    if (lineage.classes().empty() || asking.classes().empty() || object == nullptr || askingObject == nullptr) {
        return {};
    }
    const std::u16string& listed = lineage.getClass();
    InsiderMembers members(asking, listed);
    // What is private to the asker comes first: to its code, the name means that.
    if (lineage.isA(asking.getSuperclassInfo().classID)) {
        members.add({asking.classes().front()}, *askingObject, {zelk::privateAccess});
    }
    members.add(lineage.classes(), *object, {});
    return members.take();
}

}  // namespace contextdata::completion
