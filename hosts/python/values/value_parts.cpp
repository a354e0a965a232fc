// Fields, cells, texts and truth values of the array library.
#include <bit>
#include <new>
#include <stdexcept>
#include <string>
#include <utility>

#include "host/array_library.h"
#include "hosts/python/dictionaries.h"
#include "hosts/python/errors.h"
#include "hosts/python/objects/instance_attributes.h"
#include "hosts/python/python_host.h"
#include "hosts/python/python_text.h"
#include "hosts/python/values/numpy_values.h"
#include "hosts/python/values/values.h"

namespace {

using python_host::PendingErrorGuard;
using python_host::Ref;

/// Any unit beyond ASCII may stand in a name, as it does for those who read what was typed.
bool isNameStart(char c) noexcept {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_' || (static_cast<unsigned char>(c) & 0x80) != 0;
}

bool isNameCharacter(char c) noexcept { return isNameStart(c) || (c >= '0' && c <= '9'); }

/// Where a structure keeps its fields.
PyObject* fieldsOf(PyObject* object) noexcept {
    return PyDict_CheckExact(object) ? object : python_host::instanceDictionary(object);
}

}  // namespace

qxSharedArray qxGetField(const qxArray* value, std::size_t index, const char* name) {
    const PendingErrorGuard pending;
    const bool hasFields = value->classId() == qxClassID::structure && value->object() != nullptr;
    const Ref key = Ref::steal(hasFields && index == 0 ? python_host::makeText(name) : nullptr);
    if (!key) {
        return {};
    }
    const Ref field = Ref::share(python_host::findItem(fieldsOf(value->object()), key.get()));
    constexpr bool addsReference = false;
    return field ? qxSharedArray(python_host::wrap(field.get()).release(), addsReference) : qxSharedArray();
}

std::size_t qxGetNumberOfFields(const qxArray* value) {
    const PendingErrorGuard pending;
    return value->fieldNames().size();
}

const char* qxGetFieldNameByNumber(const qxArray* value, std::size_t number) {
    const PendingErrorGuard pending;
    return value->fieldNames().at(number).c_str();
}

bool qxIsScalar(const qxArray* value) { return qxGetNumberOfElements(value) == 1; }

bool qxIsLogicalScalarTrue(const qxArray* value) {
    PyObject* object = value->object();
    return object != nullptr && (object == Py_True || python_host::isNumpyTrue(object));
}

qxUniqueArray qxCreateString(std::u16string_view text) {
    const PendingErrorGuard pending;
    int order = std::endian::native == std::endian::little ? -1 : 1;
    const Ref object = Ref::steal(python_host::orThrow(
        PyUnicode_DecodeUTF16(reinterpret_cast<const char*>(text.data()),
                              static_cast<Py_ssize_t>(text.size() * sizeof(char16_t)), "surrogatepass", &order)));
    return python_host::wrap(object.get());
}

qxUniqueArray qxCreateCell(std::size_t rows, std::size_t columns) {
    try {
        return qxUniqueArray(new qxArray(rows, columns));
    } catch (const std::bad_alloc&) {
        return nullptr;
    } catch (const std::length_error&) {
        return nullptr;
    }
}

void qxSetCell(qxArray* cell, std::size_t index, qxUniqueArray element) {
    if (!cell->setElement(index, std::move(element))) {
        throw python_host::PythonFailure("the value is no cell that can be filled, or has no such element");
    }
}

std::size_t qxCountNameCharacters(std::string_view text) noexcept {
    if (text.empty() || !isNameStart(text.front())) {
        return 0;
    }
    std::size_t length = 1;
    while (length < text.size() && isNameCharacter(text[length])) {
        ++length;
    }
    return length;
}
