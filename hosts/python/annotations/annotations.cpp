#include "hosts/python/annotations/annotations.h"

#include <optional>
#include <string>
#include <string_view>

#include "hosts/python/dictionaries.h"
#include "hosts/python/keys.h"
#include "hosts/python/namespaces/live_modules.h"
#include "hosts/python/objects/instance_attributes.h"
#include "hosts/python/python_text.h"
#include "hosts/python/references.h"
#include "hosts/python/values/callables.h"

namespace python_host {

namespace {

/// The word in front of the brackets, without the module it is taken from: "typing.Final[int]" gives "Final".
std::string_view headOf(std::string_view annotation) {
    const std::size_t start = annotation.find_first_not_of(' ');
    if (start == std::string_view::npos) {
        return {};
    }
    std::string_view head = annotation.substr(start, annotation.find('[') - start);
    head = head.substr(0, head.find_last_not_of(' ') + 1);
    const std::size_t dot = head.rfind('.');
    return dot == std::string_view::npos ? head : head.substr(dot + 1);
}

std::string_view argumentsOf(std::string_view annotation) {
    const std::size_t bracket = annotation.find('[');
    return bracket == std::string_view::npos ? std::string_view() : annotation.substr(bracket + 1);
}

bool isFinalText(std::string_view annotation) {
    const std::string_view head = headOf(annotation.substr(0, annotation.find(']')));
    return head == "Final" || (head == "ClassVar" && isFinalText(argumentsOf(annotation)));
}

std::optional<std::string> textOf(PyObject* annotation) {
    return PyUnicode_CheckExact(annotation) ? std::optional(lossyUtf8Of(annotation)) : std::nullopt;
}

/// What stands in front of the brackets of a generic alias of `typing`; null for anything else. The alias is told by
/// its type, and its parts are read from its own dictionary.
PyObject* aliasOrigin(PyObject* annotation) {
    if (!isNamedType(Py_TYPE(annotation), "_GenericAlias")) {
        return nullptr;
    }
    return findItem(instanceDictionary(annotation), keys().origin);
}

}  // namespace

bool isFinalAnnotation(PyObject* annotation) {
    if (const auto text = textOf(annotation)) {
        return isFinalText(*text);
    }
    // Around a class variable's brackets the language allows it as a text only.
    PyObject* final = findInModule("typing", keys().final);
    return final != nullptr && (annotation == final || aliasOrigin(annotation) == final);
}

bool isConstructorOnlyAnnotation(PyObject* annotation) {
    if (const auto text = textOf(annotation)) {
        return headOf(*text) == "InitVar";
    }
    PyObject* initVar = findInModule("dataclasses", keys().initVar);
    return initVar != nullptr && (annotation == initVar || asObject(Py_TYPE(annotation)) == initVar);
}

}  // namespace python_host
