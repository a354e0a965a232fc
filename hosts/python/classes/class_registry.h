// All classes that were asked about, by type and by name.
#pragma once

#include <Python.h>

#include <boost/smart_ptr/intrusive_ptr.hpp>

#include <cstdint>
#include <deque>
#include <unordered_map>
#include <vector>

#include "host/interned.h"
#include "hosts/python/classes/class_object.h"

namespace python_host {

/// Holds types weakly and forgets the dead ones, so that a program that makes and drops classes does not grow it.
/// Guarded by the GIL.
class ClassRegistry {
public:
    /// The one registry; never destroyed, since the interpreter may be gone before static objects are.
    static ClassRegistry& instance();

    /// The class object of a living type; made at the first call.
    ClassObject& objectOf(PyTypeObject* type);

    /// The class of a name: canonical, the path of an alias, or a built-in class's short name. Null when no living
    /// type has it.
    ClassObject* find(zelk::COSInternedID name);

    /// The class of a number; null for a number that no class has. Its type may have died.
    ClassObject* numbered(std::int32_t number) const noexcept;

    /// Gives a class, whose type is alive, the name that is due to it now.
    zelk::COSInternedID nameFor(const ClassObject& cls, const TypeName& name);

    std::uint64_t nextVersion() noexcept { return ++lastVersion_; }

    /// Keeps the tables of all classes together within bounds.
    void makeRoomFor(std::size_t members);

    /// How many classes are known, dead ones that were not noticed yet included.
    std::size_t size() const noexcept { return objects_.size(); }

private:
    using Handle = boost::intrusive_ptr<ClassObject>;

    ClassRegistry() = default;

    ClassObject* known(PyTypeObject* type);
    ClassObject& add(PyTypeObject* type, Ref weakType);
    ClassObject* bearerOf(zelk::COSInternedID name);
    ClassObject* findByPath(std::string_view name);
    zelk::COSInternedID qualifiedNameFor(const ClassObject& cls, zelk::COSInternedID base);
    bool mayBear(const ClassObject& cls, zelk::COSInternedID base);
    void forgetName(const ClassObject& cls);
    void leaveSlots(const ClassObject& cls);
    void sweep();
    void retire(Handle cls);
    std::int32_t takeNumber();
    void giveBackNumber(std::int32_t number);
    static std::size_t indexOf(std::int32_t number) noexcept {
        return static_cast<std::size_t>(number - lastBuiltInNumber - 1);
    }

    /// Numbers up to this are those of built-in kinds of values.
    static constexpr std::int32_t lastBuiltInNumber = 18;

    std::unordered_map<PyTypeObject*, Handle> objects_;
    std::unordered_map<zelk::COSInternedID, const ClassObject*> byName_;
    /// The classes that share a base name which does not lead to them; the position is their number less one.
    std::unordered_map<zelk::COSInternedID, std::vector<const ClassObject*>> slots_;
    /// The base name under which a class has a slot.
    std::unordered_map<const ClassObject*, zelk::COSInternedID> slotOf_;
    std::deque<Handle> retired_;
    std::vector<std::int32_t> freeNumbers_;
    /// By number, from the first that is not built in; null where the number is free.
    std::vector<ClassObject*> numbered_;
    std::size_t sweepAt_ = 128;
    std::size_t keptMembers_ = 0;
    std::uint64_t lastVersion_ = 0;
};

}  // namespace python_host
