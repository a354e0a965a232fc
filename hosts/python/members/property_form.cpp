#include "hosts/python/members/property_form.h"

#include <cstddef>
#include <optional>

#include "hosts/python/classes/resolution_order.h"
#include "hosts/python/members/traits.h"
#include "hosts/python/objects/known_getters.h"
#include "hosts/python/values/callables.h"

namespace python_host {

namespace {

class ExtendedRecord final : public zelk::COSExtendedPropInfo {
public:
    constexpr ExtendedRecord(bool hasCustomGetter, std::optional<bool> isStored) noexcept
        : isStored_(isStored), hasCustomGetter_(hasCustomGetter) {}

    bool hasCustomGetter() const override { return hasCustomGetter_; }
    bool queryIsStored(bool& isStored) const override {
        isStored = isStored_.value_or(isStored);
        return isStored_.has_value();
    }

private:
    std::optional<bool> isStored_;
    bool hasCustomGetter_;
};

PropertyForm formOfDescriptor(PyObject* value) {
    if (isCachedProperty(value)) {
        return PropertyForm::storedOnce;
    }
    if (isTrait(value)) {
        return isLibraryTrait(value) ? PropertyForm::stored : PropertyForm::storedByDescriptor;
    }
    return PropertyForm::descriptor;
}

}  // namespace

PropertyForm formOf(PyObject* value, PyTypeObject* type, std::string_view name) {
    PyTypeObject* kind = Py_TYPE(value);
    if (kind->tp_descr_get == nullptr) {
        return kind->tp_descr_set == nullptr ? PropertyForm::stored : PropertyForm::descriptorWithoutGetter;
    }
    if (kind == &PyMemberDescr_Type) {
        return PropertyForm::stored;
    }
    if (kind == &PyGetSetDescr_Type) {
        return isKnownGetter(type, name) ? PropertyForm::knownGetter : PropertyForm::descriptor;
    }
    // A class method that is no method stands around a property.
    if (derivesFrom(kind, &PyProperty_Type) || derivesFrom(kind, &PyClassMethod_Type)) {
        return PropertyForm::computed;
    }
    return isKnownItemGetter(value) ? PropertyForm::stored : formOfDescriptor(value);
}

const zelk::COSExtendedPropInfo& extendedRecordOf(PropertyForm form) noexcept {
    static constexpr ExtendedRecord records[] = {
        /* stored */ {false, true},
        /* storedOnce */ {true, true},
        /* storedByDescriptor */ {true, true},
        /* computed */ {true, false},
        /* knownGetter */ {false, std::nullopt},
        /* descriptor */ {true, std::nullopt},
        /* descriptorWithoutGetter */ {false, std::nullopt},
    };
    return records[static_cast<std::size_t>(form)];
}

}  // namespace python_host
