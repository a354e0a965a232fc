// The class system: nodes that show the classes and namespaces of data.h to the library.
#include <deque>
#include <map>
#include <set>

#include "data.h"
#include "failure.h"
#include "host/class_system.h"
#include "object_system.h"

/// Every class has one as soon as it is defined.
class zelk::COSClassDefinition {};

namespace minimal_host {

namespace {

using zelk::COSInterface;
using zelk::COSInternedID;
using Nodes = std::vector<COSInterface*>;

/// What a walk shows, as it was when the walk began.
template <class Base, class Element>
class Walk final : public Base {
public:
    explicit Walk(const auto& elements) : elements_(elements.begin(), elements.end()) {}

    bool hasMoreElements() override { return next_ < elements_.size(); }
    Element nextElement() override {
        if (!hasMoreElements()) {
            throw zelk::ENoElements();
        }
        return elements_[next_++];
    }

    void addReference() const noexcept override { ++owners_; }
    void releaseReference() const noexcept override {
        if (--owners_ == 0) {
            delete this;
        }
    }

private:
    std::vector<Element> elements_;
    std::size_t next_ = 0;
    mutable std::size_t owners_ = 0;
};

using NodeWalk = Walk<zelk::COSIterator, zelk::COSInterfacePtr>;
using NameWalk = Walk<zelk::COSIDIterator, COSInternedID>;

/// A node stands where it is until everything is forgotten, so its handles need no count.
class Node : public COSInterface {
public:
    explicit Node(std::string_view name) : name(id(name)) {}
    Node(const Node&) = delete;
    Node& operator=(const Node&) = delete;
    virtual ~Node() = default;

    void addReference() const noexcept override {}
    void releaseReference() const noexcept override {}

    const COSInternedID name;
};

class MethodNode final : public Node, public zelk::COSMethodInfo {
public:
    /// `cls` is null for the function of a namespace.
    MethodNode(const Method& method, zelk::COSClass* cls) : Node(method.name), cls(cls), isStatic_(method.isStatic) {}

    const char* getName() const override { return name.c_str(); }
    bool isStatic() const override { return isStatic_; }
    // Everything here is everybody's.
    bool isListable() const override { return true; }
    std::int32_t getAccess() const override { return zelk::publicAccess; }
    zelk::COSAccessList getAccessList() const override { return {}; }
    std::int32_t getVisibility() const override { return zelk::shownVisibility; }

    zelk::COSClass* const cls;

private:
    bool isStatic_;
};

class PropertyNode final : public Node, public zelk::COSPropInfo {
public:
    PropertyNode(std::string_view name, zelk::COSClass* cls) : Node(name), cls(cls) {}

    const char* getName() const override { return name.c_str(); }
    std::int32_t getGetAccess() const override { return zelk::publicAccess; }
    std::int32_t getSetAccess() const override { return zelk::publicAccess; }
    bool isListable() const override { return true; }
    zelk::COSDataTypePtr getDataType() const override { return {}; }
    zelk::COSAccessList getGetAccessList() const override { return {}; }
    zelk::COSAccessList getSetAccessList() const override { return {}; }
    std::int32_t getVisibility() const override { return zelk::shownVisibility; }
    bool isReadOnly() const override { return false; }
    const zelk::COSExtendedPropInfo* getExtended() const override { return nullptr; }
    zelk::COSAttributePtr findAttribute(COSInternedID /*name*/) const override { return {}; }

    zelk::COSClass* const cls;
};

class ClassNode final : public Node, public zelk::COSClass {
public:
    ClassNode(const Class& cls, std::vector<ClassNode*> superclasses, std::int32_t number)
        : Node(cls.name), number(number), superclasses_(std::move(superclasses)) {
        for (const Method& method : cls.methods) {
            methods_.emplace_back(method, this);
        }
        for (const std::string& property : cls.properties) {
            properties_.emplace_back(property, this);
        }
    }

    const zelk::COSClassDefinition* getDefinition(bool /*load*/) override { return &definition_; }
    COSInternedID getID() const override { return name; }
    const char* getName() const override { return name.c_str(); }
    bool isHidden() const override { return false; }
    bool hasDynamicProperties() const override { return false; }
    bool withholdsOwnMembers() const override { return false; }

    zelk::COSIDIteratorPtr getSuperclasses() override {
        std::vector<COSInternedID> names;
        for (const ClassNode* superclass : superclasses_) {
            names.push_back(superclass->name);
        }
        return new NameWalk(names);
    }
    bool isSubclassOf(COSInternedID base) const override {
        bool found = name == base;
        for (const ClassNode* superclass : superclasses_) {
            found = found || superclass->isSubclassOf(base);
        }
        return found;
    }

    zelk::COSIteratorPtr findMethods(COSInternedID wanted) override {
        Nodes found;
        for (MethodNode* method : all(&ClassNode::methods_)) {
            if (method->name == wanted) {
                found.push_back(method);
            }
        }
        return new NodeWalk(found);
    }
    zelk::COSInterfacePtr findProperty(COSInternedID wanted) override {
        for (PropertyNode* property : all(&ClassNode::properties_)) {
            if (property->name == wanted) {
                return property;
            }
        }
        return {};
    }

    // What the visitor throws ends the walk, and nothing has to be undone.
    void visitMethods(zelk::COSVisitor<COSInterface*>& visitor) override {
        for (MethodNode* method : all(&ClassNode::methods_)) {
            visitor.visit(method);
        }
    }
    void visitProperties(zelk::COSVisitor<COSInterface*>& visitor) override {
        for (PropertyNode* property : all(&ClassNode::properties_)) {
            visitor.visit(property);
        }
    }
    void visitDeclaredMethods(zelk::COSVisitor<COSInterface*>& visitor) override {
        for (MethodNode& method : methods_) {
            visitor.visit(&method);
        }
    }
    void visitDeclaredProperties(zelk::COSVisitor<COSInterface*>& visitor) override {
        for (PropertyNode& property : properties_) {
            visitor.visit(&property);
        }
    }
    zelk::COSIteratorPtr getEnumerationMembers() override { return {}; }

    void getClassAttributeNames(bool /*hidden*/, std::vector<std::string>& names) const override { names.clear(); }
    void getPropertyAttributeNames(bool /*hidden*/, std::vector<std::string>& names) const override { names.clear(); }
    void getMethodAttributeNames(bool /*hidden*/, std::vector<std::string>& names) const override { names.clear(); }
    void getEventAttributeNames(bool /*hidden*/, std::vector<std::string>& names) const override { names.clear(); }

    const std::int32_t number;

private:
    /// The class's own members, then those of its superclasses that are not declared anew.
    template <class Member>
    std::vector<Member*> all(std::deque<Member> ClassNode::*members) {
        std::vector<Member*> found;
        std::set<COSInternedID> names;
        addAll(members, found, names);
        return found;
    }
    template <class Member>
    void addAll(std::deque<Member> ClassNode::*members, std::vector<Member*>& found, std::set<COSInternedID>& names) {
        for (Member& member : this->*members) {
            if (names.insert(member.name).second) {
                found.push_back(&member);
            }
        }
        for (ClassNode* superclass : superclasses_) {
            superclass->addAll(members, found, names);
        }
    }

    zelk::COSClassDefinition definition_;
    std::vector<ClassNode*> superclasses_;
    // Deques leave what they hold in its place.
    std::deque<MethodNode> methods_;
    std::deque<PropertyNode> properties_;
};

class NamespaceNode final : public Node, public zelk::COSNamespace {
public:
    NamespaceNode(const Namespace& space, Nodes classes, Nodes namespaces)
        : Node(space.name), classes_(std::move(classes)), namespaces_(std::move(namespaces)) {
        for (const std::string& function : space.functions) {
            functions_.emplace_back(Method{function}, nullptr);
        }
    }

    const char* getName() const override { return name.c_str(); }
    zelk::COSIteratorPtr getClasses() override { return new NodeWalk(classes_); }
    zelk::COSIteratorPtr getNamespaces() override { return new NodeWalk(namespaces_); }
    zelk::COSIteratorPtr getFunctions() override {
        Nodes functions;
        for (MethodNode& function : functions_) {
            functions.push_back(&function);
        }
        return new NodeWalk(functions);
    }

private:
    Nodes classes_;
    Nodes namespaces_;
    std::deque<MethodNode> functions_;
};

std::map<COSInternedID, ClassNode> classes;
std::map<COSInternedID, NamespaceNode> namespaces;

template <class Found>
Found* findIn(std::map<COSInternedID, Found>& known, COSInternedID name) {
    const auto found = known.find(name);
    return found == known.end() ? nullptr : &found->second;
}

/// The node of each name, which must be known.
template <class Wanted, class Found>
std::vector<Wanted*> allIn(std::map<COSInternedID, Found>& known, const std::vector<std::string>& names) {
    std::vector<Wanted*> nodes;
    for (const std::string& name : names) {
        nodes.push_back(findIn(known, id(name)));
        if (nodes.back() == nullptr) {
            throw template_host::Failure(name + " is not defined");
        }
    }
    return nodes;
}

template <class Found>
void refuseTaken(std::map<COSInternedID, Found>& known, const std::string& name) {
    if (name.empty() || findIn(known, id(name)) != nullptr) {
        throw template_host::Failure("\"" + name + "\" is no name for something new");
    }
}

}  // namespace

void define(const Class& cls) {
    refuseTaken(classes, cls.name);
    // Numbers up to that of the older object system's objects are taken by the built-in kinds.
    const auto number = static_cast<std::int32_t>(classes.size()) + static_cast<std::int32_t>(qxClassID::object) + 1;
    classes.try_emplace(id(cls.name), cls, allIn<ClassNode>(classes, cls.superclasses), number);
}

void define(const Namespace& space) {
    refuseTaken(namespaces, space.name);
    namespaces.try_emplace(id(space.name), space, allIn<COSInterface>(classes, space.classes),
                           allIn<COSInterface>(namespaces, space.namespaces));
}

qxUniqueArray makeObject(const std::string& className, std::vector<Field> properties) {
    const ClassNode* cls = allIn<ClassNode>(classes, {className}).front();
    return make({.kind = qxClassID{cls->number}, .fields = std::move(properties), .cls = cls->name});
}

/// The half of `forgetEverything` that lies here.
void forgetDefinitions() {
    namespaces.clear();
    classes.clear();
}

}  // namespace minimal_host

using namespace minimal_host;

// What the library asks for by name.

zelk::COSClass* zelk::COSClass::getClass(COSInternedID name) { return findIn(classes, name); }
zelk::COSInterfacePtr zelk::COSPackage::getNamespaceInterface(COSInternedID name) { return findIn(namespaces, name); }

// The views of a node.

zelk::COSMethodInfo* zelk::cosiToMethod(COSInterface* node) noexcept { return dynamic_cast<MethodNode*>(node); }
zelk::COSPropInfo* zelk::cosiToProp(COSInterface* node) noexcept { return dynamic_cast<PropertyNode*>(node); }
zelk::COSEnumInfo* zelk::cosiToEnum(COSInterface* /*node*/) noexcept { return nullptr; }
zelk::COSClass* zelk::cosiToClass(COSInterface* node) noexcept { return dynamic_cast<ClassNode*>(node); }
zelk::COSNamespace* zelk::cosiToNamespace(COSInterface* node) noexcept { return dynamic_cast<NamespaceNode*>(node); }
zelk::COSClass* zelk::cosiClassOfMember(COSInterface* member) {
    if (const auto* method = dynamic_cast<MethodNode*>(member)) {
        return method->cls;
    }
    const auto* property = dynamic_cast<PropertyNode*>(member);
    return property == nullptr ? nullptr : property->cls;
}

// Classes by number.

namespace {

const ClassNode* numbered(std::int32_t number) {
    for (const auto& [name, cls] : classes) {
        if (cls.number == number) {
            return &cls;
        }
    }
    return nullptr;
}

class ClassNumbers final : public ObjectSystem {
public:
    std::int32_t getClassNumber(const std::string& className) override {
        const ClassNode* cls = findIn(classes, id(className));
        return cls == nullptr ? 0 : cls->number;
    }
    bool isDerivedFrom(std::int32_t cls, std::int32_t base) override {
        const ClassNode* derived = numbered(cls);
        const ClassNode* above = numbered(base);
        return derived != nullptr && above != nullptr && derived->isSubclassOf(above->name);
    }
    // No class here is stronger than another.
    bool hasPrecedenceOver(std::int32_t /*cls*/, std::int32_t /*other*/) override { return false; }
};

}  // namespace

ObjectSystem& template_host::objectSystem() {
    static ClassNumbers numbers;
    return numbers;
}
