#include "hosts/python/annotations/annotation_constants.h"

#include <utility>

#include "hosts/python/annotations/annotation_enumerations.h"
#include "hosts/python/python_text.h"
#include "hosts/python/references.h"

namespace python_host {

namespace {

/// The time that it takes to write a number out grows with the square of its length.
bool isTooLong(PyObject* plain) {
    constexpr std::size_t mostBits = 14'000;
    return PyLong_CheckExact(plain) && _PyLong_NumBits(plain) > mostBits;
}

/// The representation of a built-in object; nothing for a number that nobody would want to read.
std::optional<std::string> representation(PyObject* plain) {
    const Ref text = Ref::steal(isTooLong(plain) ? nullptr : PyObject_Repr(plain));
    if (!text) {
        PyErr_Clear();
        return std::nullopt;
    }
    return lossyUtf8Of(text.get());
}

}  // namespace

bool isPlainNumber(PyObject* object) noexcept { return PyLong_CheckExact(object) || PyFloat_CheckExact(object); }

bool isPlainConstant(PyObject* object) noexcept {
    return object == Py_None || object == Py_Ellipsis || PyBool_Check(object) || isPlainNumber(object) ||
           PyUnicode_CheckExact(object) || PyBytes_CheckExact(object);
}

std::optional<std::string> sourceTextOf(PyObject* object) {
    if (object == Py_Ellipsis) {
        return "...";
    }
    if (isPlainConstant(object)) {
        return representation(object);
    }
    std::string member = enumerationMemberText(object);
    return member.empty() ? std::nullopt : std::optional(std::move(member));
}

std::optional<DataTypeValue> valueOf(PyObject* object) {
    if (PyUnicode_CheckExact(object)) {
        std::string buffer;
        const auto text = utf8Of(object, buffer);
        // What cannot be an 8-bit zero-terminated text is shown as source code writes it.
        if (text && text->find('\0') == std::string_view::npos) {
            return DataTypeValue::ofText(std::string(*text));
        }
    }
    auto text = sourceTextOf(object);
    return text ? std::optional(DataTypeValue::ofConverted(*std::move(text))) : std::nullopt;
}

}  // namespace python_host
