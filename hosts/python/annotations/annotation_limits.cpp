#include "hosts/python/annotations/annotation_limits.h"

#include <array>
#include <cmath>
#include <optional>
#include <string_view>

#include "hosts/python/annotations/annotation_constants.h"
#include "hosts/python/annotations/annotation_objects.h"
#include "hosts/python/annotations/annotation_text.h"
#include "hosts/python/python_text.h"

namespace python_host {

namespace {

constexpr std::array<std::string_view, 10> limitNames = {"min", "max",         "ge",         "gt",         "le",
                                                         "lt",  "multiple_of", "min_length", "max_length", "regex"};

/// How some kinds of declarations say that there is no limit.
bool isInfinite(PyObject* number) { return PyFloat_CheckExact(number) && std::isinf(PyFloat_AS_DOUBLE(number)); }

std::optional<std::string> textOfLimit(PyObject* limit) {
    if (limit == nullptr) {
        return std::nullopt;
    }
    if (PyUnicode_CheckExact(limit)) {
        return lossyUtf8Of(limit);
    }
    return isPlainNumber(limit) && !isInfinite(limit) ? sourceTextOf(limit) : std::nullopt;
}

}  // namespace

std::vector<std::string> limitsOf(PyObject* object) {
    std::vector<std::string> limits;
    for (const std::string_view name : limitNames) {
        const Ref limit = storedAttribute(object, name);
        if (const auto text = textOfLimit(limit.get())) {
            limits.push_back(bounded(std::string(name) + '=' + *text));
        }
    }
    return limits;
}

}  // namespace python_host
