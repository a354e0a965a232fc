// What the records of members ask of a node beyond the structure of its class.
#include "hosts/python/classes/class_object.h"
#include "hosts/python/dictionaries.h"
#include "hosts/python/errors.h"
#include "hosts/python/members/dataclass_fields.h"
#include "hosts/python/members/member_access.h"
#include "hosts/python/members/nodes.h"
#include "hosts/python/members/property_attributes.h"
#include "hosts/python/members/traits.h"
#include "hosts/python/python_text.h"
#include "hosts/python/references.h"

namespace python_host {

namespace {

/// The type that declares a member, kept alive; empty once it has died.
Ref declaringType(const MemberFacts& facts) {
    PyTypeObject* type = facts.declarer == nullptr ? nullptr : facts.declarer->type();
    return type == nullptr ? Ref() : Ref::share(type);
}

/// What the author attached to a property, as an exact dictionary; empty when that is nothing.
Ref metadataOf(PyTypeObject* type, PyObject* name) {
    if (Ref ofField = fieldMetadata(type, name)) {
        return ofField;
    }
    const Ref value = Ref::share(findItem(type->tp_dict, name));
    return Ref::share(value && isTrait(value.get()) ? traitMetadata(value.get()) : nullptr);
}

}  // namespace

zelk::COSAccessList MemberNode::accessListFor(std::int32_t access) const {
    const bool isShared = access == protectedAccess && facts_.declarer != nullptr;
    return isShared ? facts_.declarer->idAsList() : zelk::COSAccessList();
}

zelk::COSAccessList PropertyNode::getSetAccessList() const {
    return facts().access == protectedAccess && !isReadOnly() ? accessListFor(facts().access) : zelk::COSAccessList();
}

bool PropertyNode::isReadOnly() const {
    if (propertyFacts_.isReadOnly) {
        return true;
    }
    const PendingErrorGuard pending;
    const Ref type = declaringType(facts());
    if (!type || !isDataclass(asType(type.get()))) {
        return false;
    }
    const Ref name = Ref::steal(makeText(facts().name.view()));
    return name && isFrozenField(asType(type.get()), name.get());
}

zelk::COSAttributePtr PropertyNode::findAttribute(zelk::COSInternedID name) const {
    const PendingErrorGuard pending;
    const Ref type = declaringType(facts());
    const Ref property = Ref::steal(makeText(facts().name.view()));
    const Ref key = Ref::steal(name.isEmpty() ? nullptr : makeText(name.view()));
    if (!type || !property || !key) {
        return {};
    }
    const Ref metadata = metadataOf(asType(type.get()), property.get());
    PyObject* value = findItem(metadata.get(), key.get());
    return value == nullptr ? zelk::COSAttributePtr() : attributeOf(Ref::share(value));
}

}  // namespace python_host
