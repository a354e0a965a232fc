// Values. Here are those that the library makes itself, texts and cells; yours replace the whole class. What the
// library holds is this type, opaque to it, counted by you.
#include <atomic>
#include <limits>
#include <string>
#include <utility>
#include <vector>

#include "failure.h"
#include "host/array_library.h"
#include "host/class_objects.h"
#include "host/text.h"

class qxArray {
public:
    explicit qxArray(std::u16string_view text) : text(text), dimensions{1, text.size()} {}
    qxArray(std::size_t rows, std::size_t columns)
        : isCell(true), elements(rows * columns), dimensions{rows, columns} {}

    /// A value begins with the one reference of its maker.
    mutable std::atomic<std::size_t> references = 1;
    bool isCell = false;
    std::u16string text;
    std::vector<qxUniqueArray> elements;
    std::size_t dimensions[2];
};

void intrusive_ptr_add_ref(const qxArray* value) noexcept { ++value->references; }
void intrusive_ptr_release(const qxArray* value) noexcept {
    if (--value->references == 0) {
        delete value;
    }
}
void qxDestroyArray(qxArray* value) noexcept {
    if (value != nullptr) {
        intrusive_ptr_release(value);
    }
}

// What a value is.

qxClassID qxGetClassID(const qxArray* value) { return value->isCell ? qxClassID::cell : qxClassID::character; }
std::int32_t qxGetFullClassID(const qxArray* value) { return static_cast<std::int32_t>(qxGetClassID(value)); }
const char* qxGetClassName(const qxArray* value) { return value->isCell ? "cell" : "char"; }
bool qxIsA(const qxArray* value, const char* className) { return std::string_view(qxGetClassName(value)) == className; }

std::size_t qxGetNumberOfDimensions(const qxArray* /*value*/) { return 2; }
const std::size_t* qxGetDimensions(const qxArray* value) { return value->dimensions; }
std::size_t qxGetNumberOfElements(const qxArray* value) { return value->dimensions[0] * value->dimensions[1]; }
bool qxIsEmpty(const qxArray* value) { return qxGetNumberOfElements(value) == 0; }
bool qxIsScalar(const qxArray* value) { return qxGetNumberOfElements(value) == 1; }

// What is in it. Numbers, structures and truth values are to come.

const qxArray* qxGetCell(const qxArray* cell, std::size_t index) { return cell->elements.at(index).get(); }
const double* qxGetDoubles(const qxArray* /*value*/) { template_host::missing("a double array"); }
bool qxIsLogicalScalarTrue(const qxArray* /*value*/) { return false; }
std::size_t qxGetNumberOfFields(const qxArray* /*value*/) { return 0; }
const char* qxGetFieldNameByNumber(const qxArray* /*value*/, std::size_t /*number*/) {
    template_host::missing("a structure");
}
qxSharedArray qxGetField(const qxArray* /*value*/, std::size_t /*index*/, const char* /*name*/) { return {}; }

bool isNonMissingScalarText(const qxArray* value) { return !value->isCell; }
std::u16string getScalarText(const qxArray* value) {
    if (value->isCell) {
        throw TextException("MustBeStringScalarOrCharacterVector");
    }
    return value->text;
}

// Making values.

qxUniqueArray qxCreateString(std::u16string_view text) { return qxUniqueArray(new qxArray(text)); }
qxUniqueArray qxCreateCell(std::size_t rows, std::size_t columns) {
    const bool fits = columns == 0 || rows <= std::numeric_limits<std::ptrdiff_t>::max() / sizeof(void*) / columns;
    return fits ? qxUniqueArray(new qxArray(rows, columns)) : nullptr;
}
void qxSetCell(qxArray* cell, std::size_t index, qxUniqueArray element) {
    cell->elements.at(index) = std::move(element);
}

// No scope of yours ends values behind the library's back. If one does, take the value out of it here.
void qxSetArrayScope(qxArray* /*value*/, qxArrayScope /*scope*/) {}

// Objects of the class system: none yet, so nothing has properties.

qxArray* qxGetPropertyShared(const qxArray* /*object*/, std::size_t /*index*/, const char* /*name*/) { return nullptr; }
qxUniqueArray qxGetProperty(const qxArray* /*object*/, std::size_t /*index*/, const char* /*name*/) { return nullptr; }
bool omIsZELK(const qxArray* /*value*/) { return false; }
zelk::COSInternedID omGetCOSClassID(const qxArray* /*value*/) { return {}; }
qxUniqueArray omCreateZELKScalar(const zelk::COSInterfacePtr& /*node*/) {
    template_host::missing("an object for a namespace");
}
