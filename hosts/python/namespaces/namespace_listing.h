// What a module holds, as nodes.
#pragma once

#include <Python.h>

#include <boost/smart_ptr/intrusive_ptr.hpp>

#include <cstdint>
#include <deque>
#include <vector>

#include "host/class_system.h"
#include "hosts/python/classes/bound_class.h"
#include "hosts/python/counted.h"
#include "hosts/python/members/nodes.h"

namespace python_host {

/// A picture of a module's dictionary at one moment.
class NamespaceListing final : public Counted {
public:
    using Handle = boost::intrusive_ptr<const NamespaceListing>;

    /// Reads a module that is loaded and listed under `name`.
    static Handle read(zelk::COSInternedID name, PyObject* module);

    /// Whether the module still holds the same.
    bool holdsFor(PyObject* module) const noexcept;

    const std::vector<ClassNode>& classes() const noexcept { return classNodes_; }
    const std::vector<MethodNode>& functions() const noexcept { return functions_; }
    /// The short names of bound modules.
    const std::vector<zelk::COSInternedID>& modules() const noexcept { return modules_; }

private:
    NamespaceListing() = default;
    void addClass(zelk::COSInternedID name, zelk::COSInternedID bound, PyTypeObject* type);
    void addModule(zelk::COSInternedID bound);
    void addFunction(zelk::COSInternedID bound, bool listable);

    PyObject* dictionary_ = nullptr;  ///< identity only
    std::uint64_t version_ = 0;
    std::deque<BoundClass> classes_;
    std::vector<ClassNode> classNodes_;
    std::vector<MethodNode> functions_;
    std::vector<zelk::COSInternedID> modules_;
};

}  // namespace python_host
