#include <boost/numeric/conversion/cast.hpp>

#include <algorithm>
#include <cmath>
#include <span>

#include "contextdata/values.h"
#include "host/class_objects.h"
#include "host/interpreter.h"

namespace {

using Size = std::vector<std::uint64_t>;

/// The mixin by which a class asks for its size as doubles, from a method of its own.
const std::string& customSizeClassName() {
    static const std::string name = "ostrel.mixin.internal.CustomSizeString";
    return name;
}

Size ownDimensions(const qxArray* value) {
    const std::span dimensions(qxGetDimensions(value), qxGetNumberOfDimensions(value));
    return {dimensions.begin(), dimensions.end()};
}

bool hasSizeMethod(const qxArray* value) { return qxGetClassID(value) > qxClassID::opaque; }

const char* sizeMethod(const qxArray* value) {
    const bool customSize = omIsZELK(value) && qxIsA(value, customSizeClassName().c_str());
    return customSize ? "sizeAsDouble" : "size";
}

/// Empty when a number is missing; throws boost::numeric::bad_numeric_cast when one is out of range.
Size toSize(std::span<const double> extents) {
    if (std::any_of(extents.begin(), extents.end(), [](double extent) { return std::isnan(extent); })) {
        return {};
    }
    Size size;
    size.reserve(extents.size());
    for (const double extent : extents) {
        size.push_back(boost::numeric_cast<std::uint64_t>(extent));
    }
    return size;
}

Size toSize(const qxArray* answer) {
    if (answer == nullptr || qxGetClassID(answer) != qxClassID::float64 || qxIsEmpty(answer)) {
        return {};
    }
    return toSize(std::span(qxGetDoubles(answer), qxGetNumberOfElements(answer)));
}

Size sizeByMethod(const qxArray* value) {
    const qxUniqueArray answer(inCallMethodSingleInputSingleOutput(value, sizeMethod(value)));
    return toSize(answer.get());
}

}  // namespace

std::vector<std::uint64_t> getSizeFromQxArray(const qxArray* value) {
    try {
        if (value == nullptr || qxIsA(value, "tall")) {
            return {};
        }
        if (!hasSizeMethod(value)) {
            return ownDimensions(value);
        }
        Size size = sizeByMethod(value);
        return size.empty() ? ownDimensions(value) : size;
    } catch (...) {
        // The size method is the object's own code; an object that cannot say its size has none.
        return {};
    }
}
