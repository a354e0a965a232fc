#include "hosts/python/classes/class_object.h"

#include <utility>
#include <vector>

#include "hosts/python/classes/class_registry.h"
#include "hosts/python/classes/declaration_keywords.h"
#include "hosts/python/classes/iterators.h"
#include "hosts/python/classes/resolution_order.h"
#include "hosts/python/errors.h"
#include "hosts/python/keys.h"
#include "hosts/python/python_text.h"

namespace python_host {

namespace {

// The library takes handles to nodes, and a handle is to something that may change; no node has anything to change.
zelk::COSInterface* asInterface(const Node& node) { return const_cast<Node*>(&node); }

template <class Nodes>
void visitAll(const Nodes& nodes, zelk::COSVisitor<zelk::COSInterface*>& visitor) {
    for (const auto& node : nodes) {
        visitor.visit(asInterface(node));
    }
}

template <class Nodes>
void visitDeclaredBy(const ClassObject& cls, const Nodes& nodes, zelk::COSVisitor<zelk::COSInterface*>& visitor) {
    for (const auto& node : nodes) {
        if (node.facts().declarer == &cls) {
            visitor.visit(asInterface(node));
        }
    }
}

/// The registry outlives every guard, but an object that was retired may not outlive a handler of signals.
class Alive {
public:
    explicit Alive(const ClassObject& object) : keep_(&object), type_(Ref::share(object.type())) {}

private:
    boost::intrusive_ptr<const ClassObject> keep_;
    Ref type_;
};

}  // namespace

ClassObject::ClassObject(Ref weakType, std::int32_t number)
    : weakType_(std::move(weakType)), unnamed_(*this), number_(number) {}

MemberTable::Handle ClassObject::members() {
    PyTypeObject* live = type();
    if (live == nullptr) {
        return MemberTable::Handle(new MemberTable);
    }
    if (table_ && table_->key().holdsFor(live)) {
        return table_;
    }
    const Alive alive(*this);
    MemberTable::Handle fresh = buildMemberTable(live);
    version_ = ClassRegistry::instance().nextVersion();
    table_.reset();
    if (fresh->key().isUsable()) {
        ClassRegistry::instance().makeRoomFor(fresh->size());
        table_ = fresh;
    }
    return fresh;
}

std::uint64_t ClassObject::structureVersion() {
    PyTypeObject* live = type();
    if (live == nullptr) {
        return 0;
    }
    if (table_ && table_->key().holdsFor(live)) {
        return version_;
    }
    return members()->key().isUsable() ? version_ : 0;
}

const zelk::COSClassDefinition* ClassObject::getDefinition(bool /*load*/) {
    return type() == nullptr ? nullptr : &definition_;
}

zelk::COSInternedID ClassObject::getID() const {
    if (PyTypeObject* live = type(); live != nullptr && !name_.holdsFor(live)) {
        refreshName(live);
    }
    return id_;
}

void ClassObject::refreshName(PyTypeObject* type) const {
    const PendingErrorGuard pending;
    name_.read(type);
    id_ = ClassRegistry::instance().nameFor(*this, name_);
}

bool ClassObject::isUnderscored() const {
    getID();
    return name_.isUnderscored();
}

bool ClassObject::hasDynamicProperties() const {
    const PendingErrorGuard pending;
    PyTypeObject* live = type();
    if (live == nullptr) {
        return false;
    }
    const bool hasDictionary = live->tp_dictoffset != 0 || (live->tp_flags & Py_TPFLAGS_MANAGED_DICT) != 0;
    return hasDictionary || findInOrder(live, keys().getattr).value != nullptr;
}

zelk::COSIDIteratorPtr ClassObject::getSuperclasses() {
    const PendingErrorGuard pending;
    PyTypeObject* live = type();
    // Naming a class may run a garbage collection, and with it code that gives this one other bases.
    Ref bases = Ref::share(live == nullptr ? nullptr : live->tp_bases);
    if (!bases) {
        return {};
    }
    std::vector<zelk::COSInternedID> ids;
    for (Py_ssize_t index = 0; index < PyTuple_GET_SIZE(bases.get()); ++index) {
        PyTypeObject* base = asType(PyTuple_GET_ITEM(bases.get(), index));
        ids.push_back(ClassRegistry::instance().objectOf(base).getID());
    }
    return IDIterator::over(std::move(ids), std::move(bases));
}

bool ClassObject::isSubclassOf(zelk::COSInternedID base) const {
    const PendingErrorGuard pending;
    PyTypeObject* live = type();
    const ClassObject* other = ClassRegistry::instance().find(base);
    PyTypeObject* otherType = other == nullptr ? nullptr : other->type();
    return live != nullptr && otherType != nullptr && derivesFrom(live, otherType);
}

zelk::COSIteratorPtr ClassObject::findMethods(zelk::COSInternedID name) {
    const PendingErrorGuard pending;
    const MemberTable::Handle table = members();
    const MethodNode* method = table->findMethod(name);
    if (method == nullptr) {
        return {};
    }
    return NodeIterator::over({zelk::COSInterfacePtr(asInterface(*method))});
}

zelk::COSInterfacePtr ClassObject::findProperty(zelk::COSInternedID name) {
    const PendingErrorGuard pending;
    const MemberTable::Handle table = members();
    const PropertyNode* property = table->findProperty(name);
    return zelk::COSInterfacePtr(property == nullptr ? nullptr : asInterface(*property));
}

void ClassObject::visitMethods(zelk::COSVisitor<zelk::COSInterface*>& visitor) {
    const PendingErrorGuard pending;
    const Alive alive(*this);
    checkForInterrupt();
    const MemberTable::Handle table = members();
    visitAll(table->methods(), visitor);
}

void ClassObject::visitProperties(zelk::COSVisitor<zelk::COSInterface*>& visitor) {
    const PendingErrorGuard pending;
    const Alive alive(*this);
    checkForInterrupt();
    const MemberTable::Handle table = members();
    visitAll(table->properties(), visitor);
}

void ClassObject::visitDeclaredMethods(zelk::COSVisitor<zelk::COSInterface*>& visitor) {
    const PendingErrorGuard pending;
    const Alive alive(*this);
    checkForInterrupt();
    const MemberTable::Handle table = members();
    visitDeclaredBy(*this, table->methods(), visitor);
}

void ClassObject::visitDeclaredProperties(zelk::COSVisitor<zelk::COSInterface*>& visitor) {
    const PendingErrorGuard pending;
    const Alive alive(*this);
    checkForInterrupt();
    const MemberTable::Handle table = members();
    visitDeclaredBy(*this, table->properties(), visitor);
}

zelk::COSIteratorPtr ClassObject::getEnumerationMembers() {
    const PendingErrorGuard pending;
    const MemberTable::Handle table = members();
    std::vector<zelk::COSInterfacePtr> nodes;
    nodes.reserve(table->enumerationMembers().size());
    for (const EnumNode& member : table->enumerationMembers()) {
        nodes.emplace_back(asInterface(member));
    }
    return NodeIterator::over(std::move(nodes));
}

void ClassObject::getClassAttributeNames(bool includeHidden, std::vector<std::string>& names) const {
    names = keywordsFor(classKeywords, includeHidden);
}

void ClassObject::getPropertyAttributeNames(bool includeHidden, std::vector<std::string>& names) const {
    names = keywordsFor(propertyKeywords, includeHidden);
}

void ClassObject::getMethodAttributeNames(bool includeHidden, std::vector<std::string>& names) const {
    names = keywordsFor(methodKeywords, includeHidden);
}

void ClassObject::getEventAttributeNames(bool includeHidden, std::vector<std::string>& names) const {
    names = keywordsFor(eventKeywords, includeHidden);
}

std::vector<std::string> ClassObject::keywordsFor(KeywordSource source, bool includeHidden) const {
    const PendingErrorGuard pending;
    const Ref live = Ref::share(type());
    std::vector<std::string> keywords = live ? source(asType(live.get())) : std::vector<std::string>();
    if (!includeHidden) {
        std::erase_if(keywords, [](const std::string& keyword) { return startsWithUnderscore(keyword); });
    }
    return keywords;
}

}  // namespace python_host
