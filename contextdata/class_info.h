// What is known about one class: its name, its superclasses, its attributes and its members.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "contextdata/attribute_info.h"
#include "contextdata/export.h"
#include "contextdata/method_info.h"
#include "contextdata/method_visitor.h"
#include "contextdata/property_info.h"
#include "contextdata/property_visitor.h"
#include "contextdata/resolved_class_id.h"
#include "host/array_library.h"
#include "host/interned.h"

namespace ZELKContextData {

class ClassInfo;

/// A class's name and identity, and the whole tree of its superclasses. A plain value.
///
/// A copy shares the superclass objects. What is moved from keeps its id and loses name and superclasses.
struct CONTEXTDATA_API ClassStructureInfo {
    ClassStructureInfo();
    ClassStructureInfo(const ClassStructureInfo& other);
    ClassStructureInfo(ClassStructureInfo&& other) noexcept;
    ClassStructureInfo& operator=(const ClassStructureInfo& other);
    ClassStructureInfo& operator=(ClassStructureInfo&& other) noexcept;
    ~ClassStructureInfo();

    /// The names of the class and of all it derives from, depth first, the class itself first. A class that is reached
    /// by two paths stands twice. Empty for a nameless class.
    std::vector<std::u16string> getSuperclasses() const;

    std::u16string className;                              ///< empty for an unknown class
    std::vector<std::shared_ptr<ClassInfo>> superclasses;  ///< the direct ones, none null, in the class system's order
    zelk::COSInternedID classID;                           ///< null for an unknown class
};

/// One class of the class system, as it was when the object was made, and the questions about it.
///
/// Each object holds one object for every path to every ancestor, made anew; nothing is shared between objects that
/// are made separately. The questions about members and attributes ask the class system afresh at each call.
///
/// The questions about members use the object, and those of its superclasses, as their working space: one query at a
/// time, on the interpreter thread, although they are const. `isA` and `getAttributes` only read.
///
/// A copy shares the superclass objects. The visitors of a copy still work for its source: who asks a copy for members
/// keeps the source alive.
class CONTEXTDATA_API ClassInfo {
public:
    /// The class that a name denotes in a file. Throws what the resolution of the name throws, and as below.
    ClassInfo(const std::u16string& contextFile, const std::u16string& className);

    /// The class of an identity, under its name without package qualification. Unknown for the null identity.
    ///
    /// Throws what the class system throws while the superclasses are read, the interrupt included. A superclass that
    /// the class system does not know is an empty entry, and so is one that stands above itself.
    explicit ClassInfo(const ResolvedClassID& id);

    /// The class of an object, under its full name, package qualification included. Unknown for null and for a value
    /// that is no object of a defined class. Throws as above.
    explicit ClassInfo(const qxArray* value);

    ClassInfo(const ClassInfo&);
    ClassInfo& operator=(const ClassInfo&);

    virtual ~ClassInfo();

    /// The properties that the asker may read or write: inherited ones first, in the order of the superclasses and
    /// without those that the class itself declares or hides, then its own.
    ///
    /// Nobody is asked for private members (code 2) but the class itself; the first such code of the access list is
    /// left out when superclasses are asked. A host failure while own properties are visited makes this class, with all
    /// it inherits, contribute nothing; the interrupt passes. Empty for an unknown class.
    virtual std::vector<PropertyInfo> getProperties(const PropertyInfo::GetOptions& options) const;

    /// The methods that the asker may call where the context says. As for properties, save that an inherited method is
    /// left out only when the class hides its name: one that the class merely declares again stands twice.
    ///
    /// Empty for an unknown context, for a class whose methods the context does not offer, and after a dot for classes
    /// that derive from "ostrel.mixin.internal.indexing.DisallowCompletionOfDotMethodNames". Superclasses are asked all
    /// this for themselves.
    virtual std::vector<MethodInfo> getMethods(const MethodInfo::GetOptions& options) const;

    /// The attribute names that the class and its ancestors report, joined. `flag` goes to the class system as it is.
    ///
    /// A host failure anywhere in the tree empties the whole answer; the interrupt passes. A nameless class asks
    /// nobody.
    virtual AttributeInfo getAttributes(bool flag) const;

    /// Whether this is the class of that id or name, or derives from it. Names are compared exactly, with the form that
    /// `getClass` shows. The null id and the empty name are those of an unknown class. Any thread.
    /// @{
    virtual bool isA(const zelk::COSInternedID& id) const;
    virtual bool isA(const std::u16string& name) const;
    /// @}

    /// The access list of those who are nobody in particular: the public code alone. The same object at every call.
    virtual const std::vector<std::int32_t>& getDefaultAccessibility() const;

    /// `getMethods` without constructors, operator overloads and hidden methods.
    std::vector<MethodInfo> getMethods(const std::vector<std::int32_t>& access, const MethodInfo::GetContext& context,
                                       const ClassInfo* accessingClass) const;

    /// `getProperties` that may be read or written, without hidden ones.
    std::vector<PropertyInfo> getProperties(const std::vector<std::int32_t>& access,
                                            const ClassInfo* accessingClass) const;

    /// The name as the constructor found it; empty for an unknown class. Any thread; borrowed from the object.
    const std::u16string& getClass() const noexcept { return structure_.className; }

    /// Name, identity and superclasses as they were when the object was made. Any thread; borrowed from the object.
    const ClassStructureInfo& getSuperclassInfo() const noexcept { return structure_; }

protected:
    /// An unknown class, which a derived class may fill.
    ClassInfo();

    /// What the superclasses contribute: each is asked in order, without the first private code of the access list.
    /// @{
    std::vector<MethodInfo> getMethodsOfSuperclasses(const MethodInfo::GetOptions& options) const;
    std::vector<PropertyInfo> getPropertiesOfSuperclasses(const PropertyInfo::GetOptions& options) const;
    /// @}

    /// What is known of the class itself; a derived class that fills it leaves no superclass null.
    ClassStructureInfo structure_;

private:
    struct Branch;
    CONTEXTDATA_INSIDE static std::vector<std::shared_ptr<ClassInfo>> superclassesOf(const Branch& branch);
    CONTEXTDATA_INSIDE static std::shared_ptr<ClassInfo> superclassNamed(zelk::COSInternedID listedID,
                                                                         const Branch& branch);
    CONTEXTDATA_INSIDE void fill(const Branch& branch);
    CONTEXTDATA_INSIDE bool offersMethodsIn(MethodInfo::GetContext context) const;
    CONTEXTDATA_INSIDE void addAttributes(bool flag, AttributeInfo& attributes) const;

    mutable PropertyVisitorMutable propertyVisitor_;
    mutable MethodVisitorMutable methodVisitor_;
};

}  // namespace ZELKContextData
