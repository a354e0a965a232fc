// A value of the in-memory host.
#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <vector>

#include "host/array_library.h"

namespace memory_host {

class Class;

enum class TextKind { none, present, missing };

}  // namespace memory_host

class qxArray {
public:
    qxArray(qxClassID id, std::string className, std::vector<std::size_t> dimensions);
    qxArray(const qxArray&) = delete;
    qxArray& operator=(const qxArray&) = delete;
    ~qxArray();

    /// Values that somebody still holds.
    static std::size_t alive() noexcept { return alive_; }

    std::size_t elementCount() const noexcept;

    mutable std::size_t references = 1;
    qxClassID id;
    std::string className;
    std::vector<std::size_t> dimensions;
    memory_host::Class* cls = nullptr;  // set for objects of the class system
    std::vector<double> doubles;
    std::vector<qxUniqueArray> elements;  // of a cell; an unset element is null
    memory_host::TextKind textKind = memory_host::TextKind::none;
    std::u16string text;
    std::map<std::string, qxUniqueArray, std::less<>> properties;

private:
    static inline std::size_t alive_ = 0;
};
