// What adds to the classes and namespaces of a world.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "host/array_library.h"
#include "host/class_system.h"
#include "hosts/memory/export.h"

namespace memory_host {

class Class;
class Namespace;
enum class NodeKind : std::uint8_t;

/// Adds to one class. `method`, `property`, `constant` and `enumerationMember` begin a member; the calls after
/// them describe that member. A member is public and listable unless it is told otherwise.
class CONTEXTDATA_MEMORY_HOST_API ClassBuilder {
public:
    /// For the world, which lends the class.
    explicit ClassBuilder(Class& cls) : class_(cls) {}

    /// A superclass, made as needed.
    ClassBuilder& derives(std::string_view superclass);
    /// A superclass that the class merely names: there need be no class object of that id.
    ClassBuilder& listsSuperclass(std::string_view id);
    /// An empty id among the superclasses.
    ClassBuilder& listsNullSuperclass();
    /// What the class itself declares is kept out of records.
    ClassBuilder& withholdsOwnMembers();
    /// Kept out of listings by its author.
    ClassBuilder& hidden();
    /// A class object without a definition.
    ClassBuilder& undefined();
    /// Objects may carry properties that the class does not declare.
    ClassBuilder& hasDynamicProperties();

    /// A method; one more overload when the class has one of that name.
    ClassBuilder& method(std::string_view name);
    /// A property that everybody may read and assign.
    ClassBuilder& property(std::string_view name);
    /// A property that nobody can assign.
    ClassBuilder& constant(std::string_view name);
    /// One more member of an enumeration, behind the others.
    ClassBuilder& enumerationMember(std::string_view name);
    /// A node, before the methods of a name, that is no method.
    ClassBuilder& foreignNodeAmongMethods(std::string_view name);
    /// A node in the enumeration that is no enumeration member.
    ClassBuilder& foreignNodeInEnumeration();

    ClassBuilder& isStatic(bool value = true);          ///< of a method
    ClassBuilder& access(std::int32_t code);            ///< of a method
    ClassBuilder& getAccess(std::int32_t code);         ///< of a property
    ClassBuilder& setAccess(std::int32_t code);         ///< of a property
    ClassBuilder& unlistable();                         ///< of a method or property
    ClassBuilder& visibility(std::int32_t code);        ///< of a method or property
    ClassBuilder& openTo(std::string_view cls);         ///< a class on a method's access list
    ClassBuilder& readableBy(std::string_view cls);     ///< a class on a property's list for reading
    ClassBuilder& writableBy(std::string_view cls);     ///< a class on a property's list for writing
    ClassBuilder& readOnly();                           ///< of a property
    ClassBuilder& customGetter(bool value = true);      ///< in a property's extended record
    ClassBuilder& stored(std::optional<bool> whether);  ///< in a property's extended record; unset: not known
    /// An attribute of a property's metadata; one of type "" has no type, one of value null no value.
    ClassBuilder& attribute(std::string_view name, std::string_view typeID, qxUniqueArray value);

    /// The type of the property, by its identifier; the calls below describe it.
    ClassBuilder& dataType(std::string_view id);
    /// Makes the property's type a validation.
    ClassBuilder& validation(std::string_view className, std::vector<std::string> dimensions = {},
                             std::vector<std::string> validators = {});
    /// Gives the property's type a list of values and adds one to it: a text, something that has to be converted, or
    /// nothing.
    /// @{
    ClassBuilder& textValue(std::string_view text);
    ClassBuilder& rawValue(std::string_view raw);
    ClassBuilder& emptyValueList();
    /// @}
    ClassBuilder& hiddenMember();  ///< of an enumeration

    /// Gives objects of the class a method that can be called; it may throw.
    ClassBuilder& answers(std::string_view methodName, std::function<qxUniqueArray(const qxArray* object)> method);

    /// The names of attributes that may be written on the class, its properties, methods and events.
    /// @{
    ClassBuilder& classAttribute(std::string_view name, bool hidden = false);
    ClassBuilder& propertyAttribute(std::string_view name, bool hidden = false);
    ClassBuilder& methodAttribute(std::string_view name, bool hidden = false);
    ClassBuilder& eventAttribute(std::string_view name, bool hidden = false);
    /// @}

    /// The class as the class system shows it; borrowed from the world, never null.
    zelk::COSClass* object() const noexcept;

private:
    Class& class_;
    NodeKind member_{};  // the kind of the member that was begun last
};

/// Adds to one namespace.
class CONTEXTDATA_MEMORY_HOST_API NamespaceBuilder {
public:
    /// For the world, which lends the namespace.
    explicit NamespaceBuilder(Namespace& space) : namespace_(space) {}

    /// A class, made as needed.
    NamespaceBuilder& holdsClass(std::string_view fullName);
    /// A public listable function; the two calls below describe it.
    NamespaceBuilder& function(std::string_view name);
    NamespaceBuilder& access(std::int32_t code);  ///< of the last function
    NamespaceBuilder& unlistable();               ///< the last function
    /// An inner namespace, made as needed.
    NamespaceBuilder& holdsNamespace(std::string_view fullName);
    /// A node in each of its lists that is neither class nor function nor namespace.
    NamespaceBuilder& foreignNodes();
    /// Its lists are empty until somebody reads the properties that show them.
    NamespaceBuilder& fillsListsWhenRead();

private:
    Namespace& namespace_;
};

}  // namespace memory_host
