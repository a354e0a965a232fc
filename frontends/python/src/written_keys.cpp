#include "frontends/python/src/written_keys.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "frontends/completion/characters.h"
#include "frontends/completion/keys.h"
#include "frontends/python/src/python_language.h"
#include "frontends/python/src/python_text.h"
#include "hosts/python/python_host.h"

namespace contextdata::python {

using completion::Item;
using completion::Items;
using completion::Kind;

namespace {

using Written = std::optional<std::u16string>;

/// Writes keys as source code; nothing for those that cannot be written.
class Writer {
public:
    explicit Writer(char16_t quote) : quote_(quote) {}

    Written key(PyObject* object, bool isBracketed) const {
        if (PyBytes_CheckExact(object)) {
            return bytes(object);
        }
        return PyTuple_CheckExact(object) ? tuple(object, isBracketed, deepest) : std::nullopt;
    }

private:
    static constexpr int deepest = 10;

    Written part(PyObject* object, int depth) const {
        if (PyUnicode_CheckExact(object)) {
            return text(object);
        }
        if (PyBytes_CheckExact(object)) {
            return bytes(object);
        }
        if (PyTuple_CheckExact(object)) {
            return depth == 0 ? std::nullopt : tuple(object, true, depth - 1);
        }
        return constant(object);
    }

    Written text(PyObject* object) const {
        const std::u16string units = utf16Of(object, PyUnicode_GET_LENGTH(object));
        std::u16string escaped = pythonLanguage().escaped(units, quote_);
        return escaped.empty() && !units.empty() ? std::nullopt : Written(quote_ + std::move(escaped) + quote_);
    }

    Written bytes(PyObject* object) const {
        std::u16string written = u"b";
        written += quote_;
        const auto* data = reinterpret_cast<const unsigned char*>(PyBytes_AS_STRING(object));
        for (Py_ssize_t index = 0; index < PyBytes_GET_SIZE(object); ++index) {
            appendByte(written, data[index]);
        }
        return written + quote_;
    }

    void appendByte(std::u16string& written, unsigned char byte) const {
        constexpr unsigned char firstBeyondAscii = 0x80;
        if (byte < firstBeyondAscii) {
            const char16_t unit = byte;
            written += pythonLanguage().escaped({&unit, 1}, quote_);
            return;
        }
        constexpr std::u16string_view digits = u"0123456789abcdef";
        written += u"\\x";
        written += digits[byte / digits.size()];
        written += digits[byte % digits.size()];
    }

    /// A subscript needs no bracket around a tuple that is not empty.
    Written tuple(PyObject* object, bool isBracketed, int depth) const {
        const Py_ssize_t count = PyTuple_GET_SIZE(object);
        std::u16string written;
        for (Py_ssize_t index = 0; index < count; ++index) {
            const Written each = part(PyTuple_GET_ITEM(object, index), depth);
            if (!each) {
                return std::nullopt;
            }
            written += (index == 0 ? u"" : u", ") + *each;
        }
        written += count == 1 ? u"," : u"";
        return isBracketed || count == 0 ? u'(' + written + u')' : written;
    }

    /// A number or a word of the language. Not all numbers can be written.
    static Written constant(PyObject* object) {
        const bool isNumber =
            PyLong_CheckExact(object) || (PyFloat_CheckExact(object) && std::isfinite(PyFloat_AS_DOUBLE(object)));
        if (!isNumber && !PyBool_Check(object) && object != Py_None) {
            return std::nullopt;
        }
        const auto written = pybind11::reinterpret_steal<pybind11::object>(PyObject_Repr(object));
        if (!written) {
            PyErr_Clear();
            return std::nullopt;
        }
        return utf16Of(written.ptr(), PyUnicode_GET_LENGTH(written.ptr()));
    }

    char16_t quote_;
};

std::u16string withoutBlanks(std::u16string_view text) {
    std::u16string kept;
    std::copy_if(text.begin(), text.end(), std::back_inserter(kept),
                 [](char16_t unit) { return !completion::isBlank(unit); });
    return kept;
}

/// The keys that may be written, held fast: writing them makes objects, upon which finalisers of a user's may run.
std::vector<pybind11::object> keysToWrite(PyObject* dictionary) {
    std::vector<pybind11::object> keys;
    Py_ssize_t position = 0;
    PyObject* key = nullptr;
    PyObject* value = nullptr;
    while (PyDict_Next(dictionary, &position, &key, &value) != 0) {
        if (PyBytes_CheckExact(key) || PyTuple_CheckExact(key)) {
            keys.push_back(pybind11::reinterpret_borrow<pybind11::object>(key));
        }
    }
    return keys;
}

}  // namespace

Items writtenKeys(const qxSharedArray& value, std::u16string_view typed) {
    PyObject* dictionary = value ? python_host::unwrap(value.get()) : nullptr;
    if (dictionary == nullptr || !PyDict_CheckExact(dictionary)) {
        return {};
    }
    const Writer writer(completion::quoteOfKey(typed));
    const bool isBracketed = typed.starts_with(u'(');
    const std::u16string beginning = withoutBlanks(typed);
    std::vector<Item> items;
    for (const pybind11::object& key : keysToWrite(dictionary)) {
        const Written written = writer.key(key.ptr(), isBracketed);
        if (written && withoutBlanks(*written).starts_with(beginning)) {
            items.push_back({*written, Kind::key});
        }
    }
    return sortedOnce(std::move(items));
}

}  // namespace contextdata::python
