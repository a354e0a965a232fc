#include "hosts/memory/value.h"

#include <functional>
#include <numeric>
#include <utility>

qxArray::qxArray(qxClassID id, std::string className, std::vector<std::size_t> dimensions)
    : id(id), className(std::move(className)), dimensions(std::move(dimensions)) {
    ++alive_;
}

qxArray::~qxArray() { --alive_; }

std::size_t qxArray::elementCount() const noexcept {
    return std::accumulate(dimensions.begin(), dimensions.end(), std::size_t{1}, std::multiplies<>());
}
