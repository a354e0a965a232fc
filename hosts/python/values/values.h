// Host values: live objects, and what the host makes itself: cells of names, cells that are filled, namespaces.
#pragma once

#include <Python.h>

#include <atomic>
#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "host/array_library.h"
#include "hosts/python/objects/name_list.h"
#include "hosts/python/references.h"

/// Five forms: a live object with a reference to it; a text; a cell of texts; a cell that is filled element by element;
/// an array of namespaces. Only a cell of the second kind is changed by anybody, but the object behind a value may
/// change; extents and field names are those of the first time that they were asked for.
class qxArray {
public:
    /// The elements of a cell of names are made in one piece and then filled.
    qxArray() noexcept;
    explicit qxArray(python_host::Ref object);
    explicit qxArray(python_host::NameList names);
    /// A cell of unset elements.
    qxArray(std::size_t rows, std::size_t columns);
    /// A row of namespaces.
    static qxUniqueArray ofNamespaces(python_host::NameList names);
    ~qxArray();
    qxArray(const qxArray&) = delete;
    qxArray& operator=(const qxArray&) = delete;

    void addOwner() const noexcept { owners_.fetch_add(1, std::memory_order_relaxed); }
    /// Whether that was the last owner.
    bool dropOwner() const noexcept { return owners_.fetch_sub(1, std::memory_order_acq_rel) == 1; }

    qxClassID classId() const noexcept { return classId_; }
    /// The object behind the value, borrowed; null for a text or a cell that the host made.
    PyObject* object() const noexcept { return object_; }
    bool isText() const noexcept { return form_ == Form::text; }
    std::string_view text() const noexcept { return text_; }

    bool isNamespaces() const noexcept { return form_ == Form::namespaces; }

    const std::vector<std::size_t>& dimensions() const;
    const qxArray* element(std::size_t index) const;
    /// Whether the value is a cell that has such an element and may be changed; `element` is gone if it is not.
    bool setElement(std::size_t index, qxUniqueArray element) noexcept;
    /// The name of a namespace; nothing when there is no such element.
    std::optional<std::string_view> namespaceName(std::size_t index) const;
    /// The names of the fields of a structure, each a zero-terminated text; none for any other value.
    const std::vector<std::string>& fieldNames() const;

private:
    enum class Form : std::uint8_t { object, text, names, cell, namespaces };

    /// What is made only when somebody asks.
    struct Parts;

    Parts& parts() const;
    std::vector<std::size_t> measure() const;
    const qxArray* objectElement(std::size_t index) const;

    mutable std::atomic<std::int32_t> owners_{1};
    Form form_;
    qxClassID classId_;
    PyObject* object_ = nullptr;
    std::string_view text_;  ///< lies in the cell's list
    mutable std::unique_ptr<Parts> parts_;
};

namespace python_host {

/// A cell of texts, in the order of the list.
qxUniqueArray makeCell(NameList names);

/// An array with one element a namespace of the list, whose property "Name" is its name.
qxUniqueArray makeNamespaceObjects(NameList names);

/// A text as a value. Throws a host failure when the text cannot be made.
qxUniqueArray makeTextValue(std::string_view utf8);

}  // namespace python_host
