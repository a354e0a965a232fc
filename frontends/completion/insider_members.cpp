#include "frontends/completion/insider_members.h"

#include <memory>
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

/// Collects what one asker may use.
class InsiderMembers {
public:
    explicit InsiderMembers(const Lineage& asker) : asker_(asker) {}

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
        for (MethodInfo& method : methodsFrom(one, declarations, options)) {
            if (declarations.find(method.name)->isListable) {
                const Kind kind = method.isStatic ? Kind::staticMethod : Kind::method;
                items_.push_back({std::move(method.name), kind, one.getClass()});
            }
        }
    }

    void addProperties(const ClassInfo& one, const Declarations& declarations,
                       const std::vector<std::int32_t>& accessCodes) {
        PropertyInfo::GetOptions options;
        options.accessibility = accessCodes;
        options.accessingClass = &asker_;
        for (PropertyInfo& property : propertiesFrom(one, declarations, options)) {
            const Declaration* declaration = declarations.find(property.name);
            if (declaration->isListable) {
                const Kind kind = declaration->isConstant() ? Kind::constant : Kind::property;
                items_.push_back({std::move(property.name), kind, one.getClass()});
            }
        }
    }

    const Lineage& asker_;
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
    InsiderMembers members(asking);
    // What is private to the asker comes first: to its code, the name means that.
    if (lineage.isA(asking.getSuperclassInfo().classID)) {
        members.add({asking.classes().front()}, *askingObject, {zelk::privateAccess});
    }
    members.add(lineage.classes(), *object, {});
    return members.take();
}

}  // namespace contextdata::completion
