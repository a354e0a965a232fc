// Values: kinds, shapes, parts, and the count of their owners.
#include "host/array_library.h"

#include <algorithm>

#include "host/class_objects.h"
#include "hosts/memory/failure.h"
#include "hosts/memory/intern_table.h"
#include "hosts/memory/value.h"
#include "hosts/memory/watch.h"
#include "hosts/memory/world_state.h"

using memory_host::enter;
using memory_host::entersToNull;
using memory_host::Service;

namespace {

/// One reference to the value leaves the temporary scope, if one stands in it.
void leaveTemporaryScope(const qxArray* value) noexcept {
    if (memory_host::standingWorld == nullptr) {
        return;
    }
    std::vector<qxArray*>& temporaries = memory_host::standingWorld->temporaries;
    if (const auto found = std::find(temporaries.begin(), temporaries.end(), value); found != temporaries.end()) {
        temporaries.erase(found);
    }
}

}  // namespace

void qxDestroyArray(qxArray* value) noexcept {
    if (value == nullptr) {
        return;
    }
    leaveTemporaryScope(value);
    intrusive_ptr_release(value);
}

void intrusive_ptr_add_ref(const qxArray* value) noexcept { ++value->references; }

void intrusive_ptr_release(const qxArray* value) noexcept {
    if (--value->references == 0) {
        delete value;
    }
}

qxClassID qxGetClassID(const qxArray* value) {
    enter(Service::qxGetClassID);
    return value->id;
}

std::int32_t qxGetFullClassID(const qxArray* value) {
    enter(Service::qxGetFullClassID);
    // A foreign value bears the number of its class when the object system knows that class.
    const bool isForeign = value->id == qxClassID::opaque || value->id == qxClassID::object;
    const memory_host::Class* cls =
        isForeign ? memory_host::currentWorld().findClass(memory_host::intern(value->className)) : nullptr;
    return static_cast<std::int32_t>(cls == nullptr ? value->id : cls->number);
}

const char* qxGetClassName(const qxArray* value) {
    enter(Service::qxGetClassName);
    return value->className.c_str();
}

bool qxIsA(const qxArray* value, const char* className) {
    enter(Service::qxIsA, std::string_view(className));
    if (value->cls == nullptr) {
        return value->className == className;
    }
    const std::vector<memory_host::Class*>& lineage = value->cls->lineage();
    return std::any_of(lineage.begin(), lineage.end(),
                       [className](const memory_host::Class* cls) { return cls->id.view() == className; });
}

bool qxIsEmpty(const qxArray* value) {
    enter(Service::qxIsEmpty);
    return value->elementCount() == 0;
}

std::size_t qxGetNumberOfElements(const qxArray* value) {
    enter(Service::qxGetNumberOfElements);
    return value->elementCount();
}

std::size_t qxGetNumberOfDimensions(const qxArray* value) {
    enter(Service::qxGetNumberOfDimensions);
    return value->dimensions.size();
}

const std::size_t* qxGetDimensions(const qxArray* value) {
    enter(Service::qxGetDimensions);
    return value->dimensions.data();
}

const qxArray* qxGetCell(const qxArray* cell, std::size_t index) {
    return entersToNull(Service::qxGetCell) ? nullptr : cell->elements.at(index).get();
}

const double* qxGetDoubles(const qxArray* value) {
    enter(Service::qxGetDoubles);
    return value->doubles.data();
}

qxArray* qxGetPropertyShared(const qxArray* object, std::size_t index, const char* name) {
    if (entersToNull(Service::qxGetPropertyShared, std::string_view(name))) {
        return nullptr;
    }
    if (index >= object->elementCount()) {
        throw memory_host::HostFailure("the object has no element of that index");
    }
    const auto found = object->properties.find(std::string_view(name));
    if (found == object->properties.end()) {
        throw memory_host::HostFailure("the object has no property of that name");
    }
    qxArray* value = found->second.get();
    if (value != nullptr) {
        intrusive_ptr_add_ref(value);
        memory_host::currentWorld().temporaries.push_back(value);
    }
    return value;
}

void qxSetArrayScope(qxArray* value, qxArrayScope scope) {
    enter(Service::qxSetArrayScope);
    if (scope == qxArrayScope::none) {
        leaveTemporaryScope(value);
    }
}

bool omIsZELK(const qxArray* value) {
    enter(Service::omIsZELK);
    return value->cls != nullptr;
}

zelk::COSInternedID omGetCOSClassID(const qxArray* value) {
    enter(Service::omGetCOSClassID);
    return value->cls == nullptr ? zelk::COSInternedID() : value->cls->id;
}
