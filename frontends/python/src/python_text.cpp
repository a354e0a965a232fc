#include "frontends/python/src/python_text.h"

#include <algorithm>

#include "frontends/python/src/errors.h"
#include "hosts/python/python_host.h"

namespace contextdata::python {

namespace {

constexpr Py_UCS4 lastOfOneUnit = 0xFFFF;
constexpr char16_t lastAscii = 0x7F;

/// One pass without a branch, which compilers turn into a few wide instructions.
bool isAscii(std::u16string_view text) {
    char16_t seen = 0;
    for (const char16_t unit : text) {
        seen |= unit;
    }
    return seen <= lastAscii;
}

bool isSurrogate(char16_t unit) { return (unit & 0xF800) == 0xD800; }

void appendPair(std::u16string& units, Py_UCS4 codePoint) {
    const Py_UCS4 offset = codePoint - (lastOfOneUnit + 1);
    units.push_back(static_cast<char16_t>(0xD800 + (offset >> 10)));
    units.push_back(static_cast<char16_t>(0xDC00 + (offset & 0x3FF)));
}

std::u16string utf16OfWide(const Py_UCS4* begin, const Py_UCS4* end) {
    std::u16string units;
    units.reserve(static_cast<std::size_t>(end - begin));
    for (; begin != end; ++begin) {
        if (*begin > lastOfOneUnit) {
            appendPair(units, *begin);
        } else {
            units.push_back(static_cast<char16_t>(*begin));
        }
    }
    return units;
}

}  // namespace

std::u16string utf16Of(PyObject* text, Py_ssize_t length) {
    if (PyUnicode_READY(text) != 0) {
        throwRaised();
    }
    switch (PyUnicode_KIND(text)) {
        case PyUnicode_1BYTE_KIND: {
            const Py_UCS1* data = PyUnicode_1BYTE_DATA(text);
            return {data, data + length};
        }
        case PyUnicode_2BYTE_KIND: {
            const Py_UCS2* data = PyUnicode_2BYTE_DATA(text);
            return {data, data + length};
        }
        default: {
            const Py_UCS4* data = PyUnicode_4BYTE_DATA(text);
            return utf16OfWide(data, data + length);
        }
    }
}

void assignUtf16(std::u16string& units, PyObject* text) {
    const Py_ssize_t length = PyUnicode_GET_LENGTH(text);
    if (!PyUnicode_IS_READY(text) || PyUnicode_KIND(text) != PyUnicode_1BYTE_KIND) {
        units = utf16Of(text, length);
        return;
    }
    const Py_UCS1* data = PyUnicode_1BYTE_DATA(text);
    units.assign(data, data + length);
}

pybind11::object strOf(std::u16string_view text) {
    const auto length = static_cast<Py_ssize_t>(text.size());
    PyObject* str = nullptr;
    if (isAscii(text)) {
        str = PyUnicode_New(length, lastAscii);
        if (str != nullptr) {
            std::transform(text.begin(), text.end(), PyUnicode_1BYTE_DATA(str),
                           [](char16_t unit) { return static_cast<Py_UCS1>(unit); });
        }
    } else if (std::none_of(text.begin(), text.end(), isSurrogate)) {
        str = PyUnicode_FromKindAndData(PyUnicode_2BYTE_KIND, text.data(), length);
    } else {
        constexpr int nativeOrder = PY_BIG_ENDIAN ? 1 : -1;
        int order = nativeOrder;
        str = PyUnicode_DecodeUTF16(reinterpret_cast<const char*>(text.data()),
                                    length * static_cast<Py_ssize_t>(sizeof(char16_t)), "surrogatepass", &order);
    }
    if (str == nullptr) {
        throwRaised();
    }
    return pybind11::reinterpret_steal<pybind11::object>(str);
}

bool isPublicName(PyObject* key) {
    return PyUnicode_CheckExact(key) && python_host::isIdentifier(key) && PyUnicode_READ_CHAR(key, 0) != '_';
}

Py_ssize_t codePointBefore(PyObject* text, Py_ssize_t end, std::size_t units) {
    if (PyUnicode_KIND(text) != PyUnicode_4BYTE_KIND) {
        return end - static_cast<Py_ssize_t>(units);
    }
    const Py_UCS4* data = PyUnicode_4BYTE_DATA(text);
    while (units > 0 && end > 0) {
        --end;
        units -= std::min<std::size_t>(units, data[end] > lastOfOneUnit ? 2 : 1);
    }
    return end;
}

}  // namespace contextdata::python
