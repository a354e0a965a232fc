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
#include <span>
#include <string>
#include <vector>

#include "host/array_library.h"
#include "host/counted.h"
#include "host/data_types.h"
#include "host/exceptions.h"
#include "host/interned.h"
#include "host/visibility.h"
#include "host/visitor.h"

namespace zelk {

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
    /// Asking takes nothing and may be repeated.
    virtual bool hasMoreElements() = 0;
    /// The next node, never empty. Throws `ENoElements` when there is none left.
    virtual COSInterfacePtr nextElement() = 0;

protected:
    ~COSIterator() = default;
};

/// A counted handle to an iterator; empty stands for a walk over nothing.
using COSIteratorPtr = boost::intrusive_ptr<COSIterator>;

/// A walk over interned ids in the class system's own order.
class COSIDIterator : public COSReferenceCounted {
public:
    /// Asking takes nothing and may be repeated.
    virtual bool hasMoreElements() = 0;
    /// The next id. Throws `ENoElements` when there is none left.
    virtual COSInternedID nextElement() = 0;

protected:
    ~COSIDIterator() = default;
};

/// A counted handle to such a walk; empty stands for a walk over nothing.
using COSIDIteratorPtr = boost::intrusive_ptr<COSIDIterator>;

/// Access code of a member that everybody may use. All other codes are the host's own.
inline constexpr std::int32_t publicAccess = 0;

/// Access code of a member that only the class that declares it may use. It is never asked of superclasses.
inline constexpr std::int32_t privateAccess = 2;

/// Set-access code of a property that can never be assigned: a constant.
inline constexpr std::int32_t constantSetAccess = 5;

/// Visibility of a member that is shown; with any other it is hidden.
inline constexpr std::int32_t shownVisibility = 1;

/// The classes to which a member is open whatever its access code says, and with them their subclasses: canonical
/// names, each once, in the class system's own order. Borrowed from the member's node.
using COSAccessList = std::span<const COSInternedID>;

/// A method as the class system describes it.
class COSMethodInfo {
public:
    /// The name without its class, a text of the intern table.
    virtual const char* getName() const = 0;
    /// Whether the method is called on the class and not on an object. Of a namespace's function nobody asks it.
    virtual bool isStatic() const = 0;
    /// Whether the author lets the method be listed. The name lists of the library offer listable methods only.
    virtual bool isListable() const = 0;
    /// The access code; `publicAccess` for everybody.
    virtual std::int32_t getAccess() const = 0;
    /// Who may use the method whatever the code says; empty for nobody in particular. Borrowed from the node.
    virtual COSAccessList getAccessList() const = 0;
    /// How the author shows the method to those who ask for records of methods. A hidden one is no record, yet hides
    /// the methods of its name that the class inherits.
    virtual std::int32_t getVisibility() const = 0;

protected:
    ~COSMethodInfo() = default;
};

/// Those who read attributes of metadata; what an attribute shows may depend on who reads it.
class COSClient;

/// The client that stands for everybody. Permanent.
CONTEXTDATA_HOST_API const COSClient& COSGetPublicClient();

/// An attribute that the author gave to a piece of metadata, beyond those that the class system knows.
class COSAttribute : public COSReferenceCounted {
public:
    /// Empty when the attribute declares none.
    virtual COSDataTypePtr getDataType() const = 0;
    /// The value as `client` sees it; null when it sees none.
    virtual qxUniqueArray getValue(const COSClient& client) const = 0;

protected:
    ~COSAttribute() = default;
};

/// A counted handle to an attribute; empty when there is none of a name.
using COSAttributePtr = boost::intrusive_ptr<COSAttribute>;

/// What a class system with extended records knows of a property besides.
class COSExtendedPropInfo {
public:
    /// Whether reading the property runs code of its author.
    virtual bool hasCustomGetter() const = 0;
    /// Finds out whether objects hold a value of the property, as against making one at each reading. True when it
    /// could be found out; `isStored` is left alone when not.
    virtual bool queryIsStored(bool& isStored) const = 0;

protected:
    ~COSExtendedPropInfo() = default;
};

/// A property as the class system describes it.
class COSPropInfo {
public:
    /// The name without its class, a text of the intern table.
    virtual const char* getName() const = 0;
    /// The code of reading; `publicAccess` for everybody.
    virtual std::int32_t getGetAccess() const = 0;
    /// The set-access code; `constantSetAccess` marks a constant.
    virtual std::int32_t getSetAccess() const = 0;
    /// Whether the author lets the property be listed. The name lists of the library offer listable ones only.
    virtual bool isListable() const = 0;
    /// Empty when no type is declared.
    virtual COSDataTypePtr getDataType() const = 0;
    /// Who may read, and who may assign, whatever the codes say; empty for nobody in particular. Borrowed from the
    /// node.
    /// @{
    virtual COSAccessList getGetAccessList() const = 0;
    virtual COSAccessList getSetAccessList() const = 0;
    /// @}
    /// As for methods, save that a hidden property is a record, kept apart.
    virtual std::int32_t getVisibility() const = 0;
    /// Whether nobody at all can assign the property, the class that declares it included.
    virtual bool isReadOnly() const = 0;
    /// The extended record, borrowed from the node; null when there is none.
    virtual const COSExtendedPropInfo* getExtended() const = 0;
    /// The author's attribute of a name; empty when there is none.
    virtual COSAttributePtr findAttribute(COSInternedID name) const = 0;

protected:
    ~COSPropInfo() = default;
};

/// A member of an enumeration.
class COSEnumInfo {
public:
    /// The name without its class, a text of the intern table.
    virtual const char* getName() const = 0;
    /// Whether the author keeps the member out of listings. Walks show hidden members; those who list leave them out.
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
    /// The canonical name; of a class as an element of a namespace, the name that a listing shows.
    virtual const char* getName() const = 0;

    /// Whether the author keeps the class out of listings.
    virtual bool isHidden() const = 0;

    /// Whether objects of the class may carry properties that the class does not declare, so that a list made
    /// from the class alone need not be complete. Passed on unread to those who ask for property names.
    virtual bool hasDynamicProperties() const = 0;

    /// Whether the members that the class itself declares are kept out of records of members, even for those who ask
    /// for hidden ones. What the class inherits is not concerned.
    virtual bool withholdsOwnMembers() const = 0;

    /// The direct superclasses by their ids, in the order of their declaration; each names a class object. Empty
    /// when there is none.
    virtual COSIDIteratorPtr getSuperclasses() = 0;

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

    /// The same walks over the members that the class itself declares. A host that cannot tell them apart may show
    /// inherited ones as well, at the cost of a deep class being walked once for every class that it derives from.
    /// @{
    virtual void visitDeclaredMethods(COSVisitor<COSInterface*>& visitor) { visitMethods(visitor); }
    virtual void visitDeclaredProperties(COSVisitor<COSInterface*>& visitor) { visitProperties(visitor); }
    /// @}

    /// The enumeration members in the class's order.
    virtual COSIteratorPtr getEnumerationMembers() = 0;

    /// The names of the attributes that may be written where the class, or a class that derives from it, is declared:
    /// on the class itself, on its properties, on its methods, on its events. `names` is filled anew; repeats are
    /// allowed. `includeHidden` asks for those, too, that the class system does not advertise.
    /// @{
    virtual void getClassAttributeNames(bool includeHidden, std::vector<std::string>& names) const = 0;
    virtual void getPropertyAttributeNames(bool includeHidden, std::vector<std::string>& names) const = 0;
    virtual void getMethodAttributeNames(bool includeHidden, std::vector<std::string>& names) const = 0;
    virtual void getEventAttributeNames(bool includeHidden, std::vector<std::string>& names) const = 0;
    /// @}

protected:
    ~COSClass() = default;
};

/// A namespace: its classes, functions (viewed as methods) and inner namespaces, each in the host's order.
class COSNamespace {
public:
    /// The name that listings show, a text of the intern table.
    virtual const char* getName() const = 0;
    /// Walks over what the namespace holds: over nodes with the view of a class, of a method, of a namespace. Each call
    /// begins a walk of its own; an empty handle is a walk over nothing.
    /// @{
    virtual COSIteratorPtr getClasses() = 0;
    virtual COSIteratorPtr getFunctions() = 0;
    virtual COSIteratorPtr getNamespaces() = 0;
    /// @}

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
/// @{
CONTEXTDATA_HOST_API COSMethodInfo* cosiToMethod(COSInterface* node) noexcept;
CONTEXTDATA_HOST_API COSPropInfo* cosiToProp(COSInterface* node) noexcept;
CONTEXTDATA_HOST_API COSEnumInfo* cosiToEnum(COSInterface* node) noexcept;
CONTEXTDATA_HOST_API COSClass* cosiToClass(COSInterface* node) noexcept;
CONTEXTDATA_HOST_API COSNamespace* cosiToNamespace(COSInterface* node) noexcept;
/// @}

/// The class that declares a member; null for a node that is no member of a class (a namespace's function).
/// Borrowed from the registry.
CONTEXTDATA_HOST_API COSClass* cosiClassOfMember(COSInterface* member);

}  // namespace zelk
