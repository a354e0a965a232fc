// Python's str objects as 8-bit and UTF-16 text, read from their storage: no Python error is ever raised, nothing is
// allocated that the garbage collector counts, and a subclass's own methods are never asked.
#pragma once

#include <Python.h>

#include <optional>
#include <string>
#include <string_view>

#include "hosts/python/python_host.h"

namespace python_host {

/// The UTF-8 of a str (or of an instance of a subclass); nothing when it holds a lone surrogate or is not ready.
///
/// The view lies in the object when it is ASCII, else in `buffer`.
std::optional<std::string_view> utf8Of(PyObject* text, std::string& buffer);

/// The same with replacement characters in place of what cannot be encoded.
std::string lossyUtf8Of(PyObject* text);

std::u16string utf16Of(PyObject* text);

/// The number of UTF-16 units of a str.
std::size_t utf16LengthOf(PyObject* text);

/// A str of a UTF-8 text; null, with no Python error set, when it cannot be made. New reference.
PyObject* makeText(std::string_view utf8) noexcept;

/// Whether the text can follow a dot in source code, as `isIdentifier` of a str says.
bool isIdentifier(std::string_view utf8) noexcept;

/// Names by the custom of the language. `__x__` belongs to the language itself.
bool isSpecialName(std::string_view name) noexcept;
inline bool startsWithUnderscore(std::string_view name) noexcept { return name.starts_with('_'); }

}  // namespace python_host
