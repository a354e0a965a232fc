#include "bench/floors/host_floor.h"

#include <string_view>
#include <unordered_set>

#include "host/i18n.h"

namespace bench {

using zelk::COSClass;
using zelk::COSInterface;

namespace {

using Names = std::vector<std::u16string>;

constexpr fl::i18n::codecvt_ascii_to_ustring widening(false);

/// Leads a function over the nodes of a walk.
template <class Function>
class EachNode final : public zelk::COSVisitor<COSInterface*> {
public:
    explicit EachNode(Function function) : function_(std::move(function)) {}
    void visit(COSInterface* node) override { function_(node); }

private:
    Function function_;
};

bool isConstructor(std::string_view method, COSInterface* node) {
    const std::string_view cls = zelk::cosiClassOfMember(node)->getName();
    return cls.ends_with(method) && (cls.size() == method.size() || cls[cls.size() - method.size() - 1] == '.');
}

Names methodNames(zelk::COSInternedID id, bool staticOnly) {
    Names names;
    COSClass* cls = COSClass::getClass(id);
    if (cls->getDefinition(false) == nullptr) {
        return names;
    }
    names.reserve(32);
    std::unordered_set<const char*> seen;  // interned names: the same text is the same address
    EachNode visitor([&](COSInterface* node) {
        const zelk::COSMethodInfo* method = zelk::cosiToMethod(node);
        const char* name = method->getName();
        if (isConstructor(name, node)) {
            return;
        }
        std::u16string wide = fl::i18n::to_ustring(name, widening);
        const bool accepted =
            (!staticOnly || method->isStatic()) && method->isListable() && method->getAccess() == zelk::publicAccess;
        if (seen.insert(name).second && accepted) {
            names.push_back(std::move(wide));
        }
    });
    cls->visitMethods(visitor);
    return names;
}

Names propertyNames(zelk::COSInternedID id, bool constantOnly) {
    Names names;
    EachNode visitor([&](COSInterface* node) {
        const zelk::COSPropInfo* property = zelk::cosiToProp(node);
        const std::int32_t setAccess = property->getSetAccess();
        if ((!constantOnly || setAccess == zelk::constantSetAccess) &&
            (setAccess == zelk::publicAccess || property->getGetAccess() == zelk::publicAccess) &&
            property->isListable()) {
            names.push_back(fl::i18n::to_ustring(property->getName(), widening));
        }
    });
    COSClass::getClass(id)->visitProperties(visitor);
    return names;
}

}  // namespace

Names hostFloorMethodNames(zelk::COSInternedID cls) { return methodNames(cls, false); }

Names hostFloorStaticMethodNames(zelk::COSInternedID cls) { return methodNames(cls, true); }

Names hostFloorPropertyNames(zelk::COSInternedID cls) { return propertyNames(cls, false); }

Names hostFloorConstantNames(zelk::COSInternedID cls) { return propertyNames(cls, true); }

Names hostFloorEnumerationNames(zelk::COSInternedID cls) {
    Names names;
    const zelk::COSIteratorPtr members = COSClass::getClass(cls)->getEnumerationMembers();
    while (members->hasMoreElements()) {
        const zelk::COSInterfacePtr node = members->nextElement();
        const zelk::COSEnumInfo* member = zelk::cosiToEnum(node.get());
        if (!member->isHidden()) {
            names.push_back(fl::i18n::to_ustring(member->getName(), widening));
        }
    }
    return names;
}

}  // namespace bench
