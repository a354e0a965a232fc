#include "bench/floors/answers.h"

#include <string_view>

#include "host/text.h"

namespace bench {

namespace {

bool sameShape(const qxArray* one, const qxArray* other) {
    const std::size_t count = qxGetNumberOfDimensions(one);
    return count == qxGetNumberOfDimensions(other) &&
           std::equal(qxGetDimensions(one), qxGetDimensions(one) + count, qxGetDimensions(other));
}

bool sameElements(const qxArray* one, const qxArray* other) {
    for (std::size_t index = 0; index < qxGetNumberOfElements(one); ++index) {
        if (!sameValues(qxGetCell(one, index), qxGetCell(other, index))) {
            return false;
        }
    }
    return true;
}

bool sameNumbers(const qxArray* one, const qxArray* other) {
    const double* numbers = qxGetDoubles(one);
    return std::equal(numbers, numbers + qxGetNumberOfElements(one), qxGetDoubles(other));
}

}  // namespace

bool sameValues(const qxArray* one, const qxArray* other) {
    if (one == other || one == nullptr || other == nullptr) {
        return one == other;
    }
    const qxClassID kind = qxGetClassID(one);
    if (kind != qxGetClassID(other) || !sameShape(one, other)) {
        return false;
    }
    if (kind == qxClassID::cell) {
        return sameElements(one, other);
    }
    if (kind == qxClassID::float64) {
        return sameNumbers(one, other);
    }
    if (isNonMissingScalarText(one)) {
        return isNonMissingScalarText(other) && getScalarText(one) == getScalarText(other);
    }
    return std::string_view(qxGetClassName(one)) == qxGetClassName(other);
}

}  // namespace bench
