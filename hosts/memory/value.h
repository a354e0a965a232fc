// A value of the in-memory host.
#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "host/array_library.h"
#include "host/class_system.h"

namespace memory_host {

class Class;

enum class TextKind { none, present, missing };

/// A field: its name, and its value in each element; an unset value is null.
struct Field {
    std::string name;
    std::vector<qxUniqueArray> values;
};

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

    /// Whether the value is of the named class or of a subclass.
    bool isA(std::string_view className) const;

    /// The property of an element; null when there is none of that name, or it was given no value.
    qxArray* property(std::size_t index, std::string_view name) const;
    bool hasProperty(std::size_t index, std::string_view name) const;
    /// Null when there is no such field.
    const memory_host::Field* field(std::string_view name) const;

    mutable std::size_t references = 1;
    qxClassID id;
    std::string className;
    std::vector<std::size_t> dimensions;
    memory_host::Class* cls = nullptr;  // set for objects of the class system
    std::vector<double> doubles;
    std::vector<qxUniqueArray> elements;  // of a cell; an unset element is null
    memory_host::TextKind textKind = memory_host::TextKind::none;
    std::u16string text;
    std::map<std::string, qxUniqueArray, std::less<>> properties;  // of every element that has none of its own
    std::map<std::pair<std::size_t, std::string>, qxUniqueArray> elementProperties;
    std::vector<memory_host::Field> fields;  // of a structure or older object, in order
    zelk::COSInterfacePtr node;              // set for objects that stand for a node of the class system

private:
    static inline std::size_t alive_ = 0;
};
