#include "hosts/memory/value.h"

#include <algorithm>
#include <functional>
#include <numeric>
#include <utility>

#include "hosts/memory/class.h"

qxArray::qxArray(qxClassID id, std::string className, std::vector<std::size_t> dimensions)
    : id(id), className(std::move(className)), dimensions(std::move(dimensions)) {
    ++alive_;
}

qxArray::~qxArray() { --alive_; }

std::size_t qxArray::elementCount() const noexcept {
    return std::accumulate(dimensions.begin(), dimensions.end(), std::size_t{1}, std::multiplies<>());
}

bool qxArray::isA(std::string_view name) const {
    if (cls == nullptr) {
        return className == name;
    }
    const std::vector<memory_host::Class*>& lineage = cls->lineage();
    return std::any_of(lineage.begin(), lineage.end(),
                       [name](const memory_host::Class* each) { return each->id.view() == name; });
}

qxArray* qxArray::property(std::size_t index, std::string_view name) const {
    if (const auto own = elementProperties.find({index, std::string(name)}); own != elementProperties.end()) {
        return own->second.get();
    }
    const auto shared = properties.find(name);
    return shared == properties.end() ? nullptr : shared->second.get();
}

bool qxArray::hasProperty(std::size_t index, std::string_view name) const {
    return elementProperties.contains({index, std::string(name)}) || properties.contains(name);
}

const memory_host::Field* qxArray::field(std::string_view name) const {
    const auto found = std::find_if(fields.begin(), fields.end(),
                                    [name](const memory_host::Field& each) { return each.name == name; });
    return found == fields.end() ? nullptr : &*found;
}
