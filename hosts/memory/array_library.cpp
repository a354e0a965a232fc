// Values: kinds, shapes, parts, and the count of their owners.
#include "host/array_library.h"

#include <algorithm>
#include <utility>

#include "host/class_objects.h"
#include "hosts/memory/intern_table.h"
#include "hosts/memory/names.h"
#include "hosts/memory/property_read.h"
#include "hosts/memory/value.h"
#include "hosts/memory/value_making.h"
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
    return value->isA(className);
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
    qxUniqueArray value = memory_host::readProperty(object, index, name);
    if (value) {
        memory_host::currentWorld().temporaries.push_back(value.get());
    }
    return value.release();
}

qxUniqueArray qxGetProperty(const qxArray* object, std::size_t index, const char* name) {
    if (entersToNull(Service::qxGetProperty, std::string_view(name))) {
        return nullptr;
    }
    // Values never change once they are made, so a copy may be the thing itself.
    return memory_host::readProperty(object, index, name);
}

qxSharedArray qxGetField(const qxArray* value, std::size_t index, const char* name) {
    if (entersToNull(Service::qxGetField, std::string_view(name))) {
        return nullptr;
    }
    const memory_host::Field* field = value->field(name);
    return field == nullptr ? nullptr : field->values.at(index).get();
}

std::size_t qxGetNumberOfFields(const qxArray* value) {
    enter(Service::qxGetNumberOfFields);
    return value->fields.size();
}

const char* qxGetFieldNameByNumber(const qxArray* value, std::size_t number) {
    enter(Service::qxGetFieldNameByNumber);
    return value->fields.at(number).name.c_str();
}

bool qxIsScalar(const qxArray* value) {
    enter(Service::qxIsScalar);
    return value->elementCount() == 1;
}

bool qxIsLogicalScalarTrue(const qxArray* value) {
    enter(Service::qxIsLogicalScalarTrue);
    return value->id == qxClassID::logical && value->elementCount() == 1 && value->doubles.front() != 0;
}

qxUniqueArray qxCreateString(std::u16string_view text) {
    enter(Service::qxCreateString);
    return memory_host::makeText(text);
}

qxUniqueArray qxCreateCell(std::size_t rows, std::size_t columns) {
    if (entersToNull(Service::qxCreateCell)) {
        return nullptr;
    }
    qxUniqueArray cell = memory_host::makeValue(qxClassID::cell, "cell", {rows, columns});
    cell->elements.resize(rows * columns);
    return cell;
}

void qxSetCell(qxArray* cell, std::size_t index, qxUniqueArray element) {
    enter(Service::qxSetCell);
    cell->elements.at(index) = std::move(element);
}

qxUniqueArray qxCreateClassArray(const char* className) {
    const bool isKnown = memory_host::currentWorld().javaClasses.contains(className);
    if (entersToNull(Service::qxCreateClassArray, std::string_view(className)) || !isKnown) {
        return nullptr;
    }
    return memory_host::makeValue(qxClassID::opaque, className, {0, 0});
}

qxUniqueArray qxFindClassMember(const qxArray* value, const char* memberName) {
    if (entersToNull(Service::qxFindClassMember, std::string_view(memberName))) {
        return nullptr;
    }
    const auto& classes = memory_host::currentWorld().javaClasses;
    const auto cls = classes.find(value->className);
    if (cls == classes.end()) {
        return nullptr;
    }
    const auto member = cls->second.find(std::string_view(memberName));
    return member == cls->second.end() ? nullptr : memory_host::makeValue(qxClassID::opaque, member->second, {1, 1});
}

std::size_t qxCountNameCharacters(std::string_view text) noexcept { return memory_host::nameLength(text); }

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

qxUniqueArray omCreateZELKScalar(const zelk::COSInterfacePtr& node) {
    enter(Service::omCreateZELKScalar);
    memory_host::Class& metadata = memory_host::currentWorld().classNamed("ostrel.metadata.Object");
    qxUniqueArray object = memory_host::makeValue(metadata.number, metadata.id.view(), {1, 1});
    object->cls = &metadata;
    object->node = node;
    return object;
}
