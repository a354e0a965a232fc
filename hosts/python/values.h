// Host values: live objects, and cells of names that the host makes itself.
#pragma once

#include <Python.h>

#include <atomic>
#include <cstddef>
#include <memory>
#include <string_view>
#include <vector>

#include "host/array_library.h"
#include "hosts/python/name_list.h"
#include "hosts/python/references.h"

/// Three forms: a live object with a reference to it; a text; a cell of texts. Nobody changes a value, but the object
/// behind it may change; extents are those of the first time that they were asked for.
class qxArray {
public:
    /// The elements of a cell of names are made in one piece and then filled.
    qxArray() noexcept;
    explicit qxArray(python_host::Ref object);
    explicit qxArray(python_host::NameList names);
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

    const std::vector<std::size_t>& dimensions() const;
    const qxArray* element(std::size_t index) const;

private:
    enum class Form : std::uint8_t { object, text, names };

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

}  // namespace python_host
