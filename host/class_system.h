// The class system: class objects, their members, the walks over them, and namespaces.
//
// Lifetimes. Class objects (`COSClass`) and namespace objects belong to the host's registry; the library
// receives raw pointers, never frees them, and uses them only until control returns to the host's interpreter.
// Nodes and iterators are counted: `COSInterfacePtr` and `COSIteratorPtr` hold one reference each. Views
// (`COSMethodInfo`, `COSPropInfo`, `COSEnumInfo`) are borrowed from the node they were taken of.
//
// Names are zero-terminated 8-bit texts of the intern table: they are never null and outlive every node.
//
// Threads. Interpreter thread only. Every operation that is not `noexcept` may throw any host failure or the
// interrupt; a walk that is cut short leaves the class system as it was.
#pragma once

#include <boost/smart_ptr/intrusive_ptr.hpp>

#include <cstdint>

#include "host/exceptions.h"
#include "host/interned.h"
#include "host/visibility.h"

namespace zelk {

/// An object that the host counts. The two operations never fail and may do nothing for permanent objects.
class COSReferenceCounted {
public:
    virtual void addReference() const noexcept = 0;
    virtual void releaseReference() const noexcept = 0;

protected:
    COSReferenceCounted() = default;
    COSReferenceCounted(const COSReferenceCounted&) = default;
    COSReferenceCounted& operator=(const COSReferenceCounted&) = default;
    ~COSReferenceCounted() = default;
};

inline void intrusive_ptr_add_ref(const COSReferenceCounted* object) noexcept { object->addReference(); }
inline void intrusive_ptr_release(const COSReferenceCounted* object) noexcept { object->releaseReference(); }

/// A metadata node: a method, a property, an enumeration member, a class or a namespace. The `cosiTo...`
/// functions tell which.
class COSInterface : public COSReferenceCounted {
protected:
    ~COSInterface() = default;
};

/// A counted handle to a node; empty when there is none.
using COSInterfacePtr = boost::intrusive_ptr<COSInterface>;

/// Raised when an element is asked of an iterator that has none left.
class CONTEXTDATA_HOST_API ENoElements : public foundation::core::except::IException {
public:
    ENoElements();
    ENoElements(const ENoElements& other);
    ENoElements& operator=(const ENoElements& other);
    ~ENoElements() noexcept override;

    const boost::exception_detail::clone_base* clone() const override;
    [[noreturn]] void rethrow() const override;
};

/// A walk over nodes in the class system's own order.
class COSIterator : public COSReferenceCounted {
public:
    virtual bool hasMoreElements() = 0;
    /// The next node, never empty. Throws `ENoElements` when there is none left.
    virtual COSInterfacePtr nextElement() = 0;

protected:
    ~COSIterator() = default;
};

/// A counted handle to an iterator; empty stands for a walk over nothing.
using COSIteratorPtr = boost::intrusive_ptr<COSIterator>;

/// What a class calls once for every member it walks. Two virtual slots: the destructor and `visit`.
template <class Node>
class COSVisitor {
public:
    virtual ~COSVisitor() = default;
    /// `member` is not null and is borrowed for the call; a visitor that keeps it takes a handle.
    virtual void visit(Node member) = 0;
};

/// The declared type of a property's values.
class COSDataType : public COSReferenceCounted {
public:
    /// The identifier of the type, empty when it has none.
    virtual COSInternedID getID() const = 0;

protected:
    ~COSDataType() = default;
};

/// A counted handle to a data type; empty when a property declares none.
using COSDataTypePtr = boost::intrusive_ptr<COSDataType>;

/// Access code of a member that everybody may use. All other codes are the host's own.
inline constexpr std::int32_t publicAccess = 0;

/// Set-access code of a property that can never be assigned: a constant.
inline constexpr std::int32_t constantSetAccess = 5;

/// A method as the class system describes it.
class COSMethodInfo {
public:
    virtual const char* getName() const = 0;
    virtual bool isStatic() const = 0;
    /// Whether the author lets the method be listed. The name lists of the library offer listable methods only.
    virtual bool isListable() const = 0;
    /// The access code; `publicAccess` for everybody.
    virtual std::int32_t getAccess() const = 0;

protected:
    ~COSMethodInfo() = default;
};

/// A property as the class system describes it.
class COSPropInfo {
public:
    virtual const char* getName() const = 0;
    virtual std::int32_t getGetAccess() const = 0;
    /// The set-access code; `constantSetAccess` marks a constant.
    virtual std::int32_t getSetAccess() const = 0;
    /// Whether the author lets the property be listed. The name lists of the library offer listable ones only.
    virtual bool isListable() const = 0;
    /// Empty when no type is declared.
    virtual COSDataTypePtr getDataType() const = 0;

protected:
    ~COSPropInfo() = default;
};

/// A member of an enumeration.
class COSEnumInfo {
public:
    virtual const char* getName() const = 0;
    virtual bool isHidden() const = 0;

protected:
    ~COSEnumInfo() = default;
};

/// The definition behind a class object; the library only asks whether there is one.
class COSClassDefinition;

/// A class of the class system.
class COSClass {
public:
    /// The class object for an id, or null. The id may be a legacy form of the name; `getID` of the result is
    /// the canonical one. The empty handle names no class.
    CONTEXTDATA_HOST_API static COSClass* getClass(COSInternedID id);

    /// The definition, or null for a class object that is known by name only. `load` allows the host to go and
    /// fetch a definition that is not at hand; the library always passes false, so that asking has no effect.
    virtual const COSClassDefinition* getDefinition(bool load) = 0;

    /// The canonical interned name.
    virtual COSInternedID getID() const = 0;
    virtual const char* getName() const = 0;

    /// Whether the author keeps the class out of listings.
    virtual bool isHidden() const = 0;

    /// Whether objects of the class may carry properties that the class does not declare, so that a list made
    /// from the class alone need not be complete. Passed on unread to those who ask for property names.
    virtual bool hasDynamicProperties() const = 0;

    /// Whether the class derives from the class named `base`; whether from itself is the host's to say.
    virtual bool isSubclassOf(COSInternedID base) const = 0;

    /// The methods of a name, overloads in the class's order. Empty handle or empty walk when there is none.
    virtual COSIteratorPtr findMethods(COSInternedID name) = 0;

    /// The property of a name; empty when there is none.
    virtual COSInterfacePtr findProperty(COSInternedID name) = 0;

    /// Calls the visitor once for every method, inherited ones included, in the class's order. What the visitor
    /// throws passes out.
    virtual void visitMethods(COSVisitor<COSInterface*>& visitor) = 0;

    /// As `visitMethods`, for properties.
    virtual void visitProperties(COSVisitor<COSInterface*>& visitor) = 0;

    /// The enumeration members in the class's order.
    virtual COSIteratorPtr getEnumerationMembers() = 0;

protected:
    ~COSClass() = default;
};

/// A namespace: its classes, functions (viewed as methods) and inner namespaces, each in the host's order.
class COSNamespace {
public:
    virtual const char* getName() const = 0;
    virtual COSIteratorPtr getClasses() = 0;
    virtual COSIteratorPtr getFunctions() = 0;
    virtual COSIteratorPtr getNamespaces() = 0;

protected:
    ~COSNamespace() = default;
};

/// The registry of namespaces.
struct COSPackage {
    /// The namespace of a name, or an empty handle; the empty id names none. The host keeps the object alive
    /// beyond the handle.
    CONTEXTDATA_HOST_API static COSInterfacePtr getNamespaceInterface(COSInternedID name);
};

/// The views of a node: null when `node` is null or is of another kind; borrowed from the node. Never throw.
CONTEXTDATA_HOST_API COSMethodInfo* cosiToMethod(COSInterface* node) noexcept;
CONTEXTDATA_HOST_API COSPropInfo* cosiToProp(COSInterface* node) noexcept;
CONTEXTDATA_HOST_API COSEnumInfo* cosiToEnum(COSInterface* node) noexcept;
CONTEXTDATA_HOST_API COSClass* cosiToClass(COSInterface* node) noexcept;
CONTEXTDATA_HOST_API COSNamespace* cosiToNamespace(COSInterface* node) noexcept;

/// The class that declares a member; null for a node that is no member of a class (a namespace's function).
/// Borrowed from the registry.
CONTEXTDATA_HOST_API COSClass* cosiClassOfMember(COSInterface* member);

}  // namespace zelk
