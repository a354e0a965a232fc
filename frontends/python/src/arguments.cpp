#include "frontends/python/src/arguments.h"

#include <array>
#include <cstddef>

#include "frontends/python/src/errors.h"

namespace contextdata::python {

namespace {

constexpr std::array<const char*, 6> parameterNames = {"text", "cursor", "namespace", "inside", "ranked", "limit"};
constexpr Py_ssize_t positionalCount = 3;
using Values = std::array<PyObject*, parameterNames.size()>;

[[noreturn]] void throwError() { throwRaised(); }

std::size_t positionOf(PyObject* keyword) {
    for (std::size_t position = 0; position < parameterNames.size(); ++position) {
        if (PyUnicode_CompareWithASCIIString(keyword, parameterNames[position]) == 0) {
            return position;
        }
    }
    PyErr_Format(PyExc_TypeError, "complete() has no argument '%U'", keyword);
    throwError();
}

Values bind(PyObject* const* values, Py_ssize_t count, PyObject* keywords) {
    Values bound = {};
    if (count > positionalCount) {
        PyErr_Format(PyExc_TypeError, "complete() takes at most %zd arguments without a keyword, not %zd",
                     positionalCount, count);
        throwError();
    }
    for (Py_ssize_t index = 0; index < count; ++index) {
        bound[static_cast<std::size_t>(index)] = values[index];
    }
    const Py_ssize_t keywordCount = keywords == nullptr ? 0 : PyTuple_GET_SIZE(keywords);
    for (Py_ssize_t index = 0; index < keywordCount; ++index) {
        const std::size_t position = positionOf(PyTuple_GET_ITEM(keywords, index));
        if (bound[position] != nullptr) {
            PyErr_Format(PyExc_TypeError, "complete() got '%s' twice", parameterNames[position]);
            throwError();
        }
        bound[position] = values[count + index];
    }
    return bound;
}

PyObject* checkedText(PyObject* text) {
    if (text == nullptr) {
        PyErr_SetString(PyExc_TypeError, "complete() needs the text to complete");
        throwError();
    }
    if (!PyUnicode_Check(text)) {
        PyErr_Format(PyExc_TypeError, "text must be a str, not %s", Py_TYPE(text)->tp_name);
        throwError();
    }
    return text;
}

Py_ssize_t checkedCursor(PyObject* cursor, Py_ssize_t length) {
    if (cursor == nullptr || cursor == Py_None) {
        return length;
    }
    if (!PyLong_Check(cursor)) {
        PyErr_Format(PyExc_TypeError, "cursor must be an int or None, not %s", Py_TYPE(cursor)->tp_name);
        throwError();
    }
    const Py_ssize_t position = PyLong_AsSsize_t(cursor);
    const bool overflows = position == -1 && PyErr_Occurred() != nullptr;
    if (overflows || position < 0 || position > length) {
        PyErr_Clear();
        PyErr_Format(PyExc_ValueError, "cursor must be between 0 and %zd, the length of the text", length);
        throwError();
    }
    return position;
}

bool isLeftOut(PyObject* value) { return value == nullptr || value == Py_None; }

PyObject* checkedDictionary(PyObject* variables) {
    if (!PyDict_CheckExact(variables)) {
        PyErr_Format(
            PyExc_TypeError,
            "namespace must be a plain dict, or a tuple of the locals and the globals, not %s: reading another "
            "mapping would run its code",
            Py_TYPE(variables)->tp_name);
        throwError();
    }
    return variables;
}

bool checkedFlag(PyObject* ranked) {
    if (isLeftOut(ranked)) {
        return false;
    }
    if (!PyBool_Check(ranked)) {
        PyErr_Format(PyExc_TypeError, "ranked must be True or False, not %s", Py_TYPE(ranked)->tp_name);
        throwError();
    }
    return ranked == Py_True;
}

Py_ssize_t checkedLimit(PyObject* limit) {
    if (isLeftOut(limit)) {
        return PY_SSIZE_T_MAX;
    }
    if (!PyLong_Check(limit)) {
        PyErr_Format(PyExc_TypeError, "limit must be an int or None, not %s", Py_TYPE(limit)->tp_name);
        throwError();
    }
    int overflow = 0;
    const long long most = PyLong_AsLongLongAndOverflow(limit, &overflow);
    if (overflow < 0 || (overflow == 0 && most < 0)) {
        PyErr_SetString(PyExc_ValueError, "limit must be 0 or more");
        throwError();
    }
    return overflow > 0 || most > PY_SSIZE_T_MAX ? PY_SSIZE_T_MAX : static_cast<Py_ssize_t>(most);
}

}  // namespace

Scope readScope(PyObject* variables) {
    if (isLeftOut(variables)) {
        return {};
    }
    if (!PyTuple_CheckExact(variables)) {
        return {checkedDictionary(variables), nullptr};
    }
    const Py_ssize_t count = PyTuple_GET_SIZE(variables);
    if (count != 1 && count != 2) {
        PyErr_Format(PyExc_TypeError, "a tuple of namespaces holds the locals and the globals, not %zd namespaces",
                     count);
        throwError();
    }
    return {checkedDictionary(PyTuple_GET_ITEM(variables, 0)),
            count == 1 ? nullptr : checkedDictionary(PyTuple_GET_ITEM(variables, 1))};
}

CompleteArguments readCompleteArguments(PyObject* const* values, Py_ssize_t count, PyObject* keywords) {
    const auto [text, cursor, variables, inside, ranked, limit] = bind(values, count, keywords);
    CompleteArguments arguments;
    arguments.text = checkedText(text);
    arguments.cursor = checkedCursor(cursor, PyUnicode_GET_LENGTH(text));
    arguments.scope = readScope(variables);
    arguments.inside = isLeftOut(inside) ? nullptr : inside;
    arguments.isRanked = checkedFlag(ranked);
    arguments.limit = checkedLimit(limit);
    return arguments;
}

}  // namespace contextdata::python
