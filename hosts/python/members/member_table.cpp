#include "hosts/python/members/member_table.h"

#include <algorithm>
#include <string_view>

#include "hosts/python/annotations/annotations.h"
#include "hosts/python/classes/class_object.h"
#include "hosts/python/classes/class_registry.h"
#include "hosts/python/classes/resolution_order.h"
#include "hosts/python/dictionaries.h"
#include "hosts/python/interning.h"
#include "hosts/python/keys.h"
#include "hosts/python/members/member_access.h"
#include "hosts/python/members/member_classification.h"
#include "hosts/python/namespaces/live_modules.h"
#include "hosts/python/python_text.h"
#include "hosts/python/references.h"

namespace python_host {

namespace {

/// A value in the index: which list, and the position in it.
enum class List : std::uint32_t { methods = 0, properties = 1, enumerationMembers = 2 };
constexpr std::uint32_t listBits = 2;

constexpr std::uint32_t place(List list, std::size_t position) {
    return (static_cast<std::uint32_t>(position) << listBits) | static_cast<std::uint32_t>(list);
}

template <class Nodes>
const typename Nodes::value_type* nodeAt(const Nodes& nodes, List list, std::uint32_t found) {
    constexpr std::uint32_t listMask = (1U << listBits) - 1;
    if (found == NameIndex::absent || (found & listMask) != static_cast<std::uint32_t>(list)) {
        return nullptr;
    }
    return &nodes[found >> listBits];
}

bool isCapitalised(std::string_view name) {
    const auto isCapital = [](char c) { return c >= 'A' && c <= 'Z'; };
    const auto mayStand = [&](char c) { return isCapital(c) || c == '_' || (c >= '0' && c <= '9'); };
    return std::all_of(name.begin(), name.end(), mayStand) && std::any_of(name.begin(), name.end(), isCapital);
}

/// Looked up when asked: before the module is loaded there are no enumerations, and somebody may reload it.
bool isEnumeration(PyTypeObject* type) {
    PyObject* metaclass = findInModule("enum", keys().enumType);
    return metaclass != nullptr && PyType_Check(metaclass) && derivesFrom(Py_TYPE(type), asType(metaclass));
}

bool isMadeInPython(const PyTypeObject* type) { return (type->tp_flags & Py_TPFLAGS_HEAPTYPE) != 0; }

bool isExactDict(PyObject* object) { return object != nullptr && PyDict_CheckExact(object); }

/// The class in whose dictionary names are being read.
struct Declarer {
    explicit Declarer(ClassObject* declarer) : cls(declarer), access(declarer->getID().view()) {}

    ClassObject* cls;
    MemberAccess access;
};

}  // namespace

class MemberTableBuilder {
public:
    explicit MemberTableBuilder(PyTypeObject* type) : type_(type), table_(new MemberTable) {}

    MemberTable::Handle build() {
        registerOrder();
        table_->key_.takeTag(type_);
        addEnumerationMembers();
        for (std::size_t index = 0; index < table_->declarers_.size(); ++index) {
            addClass(typeAt(index), Declarer(table_->declarers_[index].get()));
        }
        for (std::size_t index = table_->declarers_.size(); index-- > 0;) {
            addFields(typeAt(index), table_->declarers_[index].get());
        }
        return table_;
    }

private:
    /// Registering creates weak references, and with them perhaps a garbage collection that changes classes; so it
    /// comes first, and the walk, which creates nothing, sees one state.
    void registerOrder() {
        do {
            order_ = resolutionOrder(type_);
            table_->declarers_.clear();
            const Py_ssize_t count = order_ ? PyTuple_GET_SIZE(order_.get()) : 0;
            for (Py_ssize_t index = 0; index < count; ++index) {
                PyTypeObject* type = asType(PyTuple_GET_ITEM(order_.get(), index));
                table_->declarers_.emplace_back(&ClassRegistry::instance().objectOf(type));
            }
        } while (order_.get() != type_->tp_mro);
    }

    PyTypeObject* typeAt(std::size_t index) const {
        return asType(PyTuple_GET_ITEM(order_.get(), static_cast<Py_ssize_t>(index)));
    }

    void addEnumerationMembers() {
        table_->key_.cover(type_->tp_dict);
        PyObject* members = isEnumeration(type_) ? findItem(type_->tp_dict, keys().memberMap) : nullptr;
        if (!isExactDict(members) || table_->declarers_.empty()) {
            return;
        }
        table_->key_.cover(members);
        const Declarer declarer(table_->declarers_.front().get());
        eachTextItem(members, [&](PyObject* key, PyObject* /*value*/) {
            addNode(key, declarer, [&](const MemberFacts& facts) {
                table_->enumerationMembers_.emplace_back(table_.get(), facts);
                return place(List::enumerationMembers, table_->enumerationMembers_.size() - 1);
            });
        });
    }

    void addClass(PyTypeObject* type, const Declarer& declarer) {
        table_->key_.cover(type->tp_dict);
        PyObject* found = isMadeInPython(type) ? findItem(type->tp_dict, keys().annotations) : nullptr;
        PyObject* annotations = isExactDict(found) ? found : nullptr;
        eachTextItem(type->tp_dict, [&](PyObject* key, PyObject* value) {
            addNode(key, declarer, [&](const MemberFacts& facts) {
                return addValue(facts, declarer.access, key, value, annotations);
            });
        });
        table_->key_.cover(annotations);
        eachTextItem(annotations, [&](PyObject* key, PyObject* annotation) {
            if (isConstructorOnlyAnnotation(annotation)) {
                return;
            }
            addNode(key, declarer, [&](const MemberFacts& facts) {
                return addProperty(facts, isFinalAnnotation(annotation) ? constant : stored(facts));
            });
        });
    }

    /// The fields that a class declares besides its dictionary and annotations. A derived class repeats those of its
    /// bases, so bases come first.
    void addFields(PyTypeObject* type, ClassObject* cls) {
        if (!isMadeInPython(type)) {
            return;
        }
        for (PyObject* name : {keys().dataclassFields, keys().fields}) {
            PyObject* fields = findItem(type->tp_dict, name);
            if (!isExactDict(fields)) {
                continue;
            }
            const Declarer declarer(cls);
            table_->key_.cover(fields);
            eachTextItem(fields, [&](PyObject* key, PyObject* /*field*/) {
                if (!isConstructorOnly(key)) {
                    addNode(key, declarer, [&](const MemberFacts& facts) { return addProperty(facts, stored(facts)); });
                }
            });
        }
    }

    /// What the nearest class that annotates the name says.
    bool isConstructorOnly(PyObject* name) const {
        for (std::size_t index = 0; index < table_->declarers_.size(); ++index) {
            PyObject* annotations = findItem(typeAt(index)->tp_dict, keys().annotations);
            if (PyObject* annotation = isExactDict(annotations) ? findItem(annotations, name) : nullptr) {
                return isConstructorOnlyAnnotation(annotation);
            }
        }
        return false;
    }

    /// Adds what `add` makes of a name, unless an earlier class has the name already.
    template <class Add>
    void addNode(PyObject* key, const Declarer& declarer, Add add) {
        const zelk::COSInternedID name = internKey(key);
        if (name.isEmpty()) {
            return;
        }
        std::uint32_t* place = table_->index_.insert(name);
        if (place == nullptr) {
            return;
        }
        const std::string_view text = name.view();
        const bool listable = !isSpecialName(text) && isIdentifier(key);
        const bool isNamedLikeDeclarer = text == declarer.access.shortName();
        *place = add(MemberFacts{name, declarer.cls, declarer.access.of(text), listable, isNamedLikeDeclarer});
    }

    std::uint32_t addValue(const MemberFacts& facts, const MemberAccess& access, PyObject* key, PyObject* value,
                           PyObject* annotations) {
        const MemberShape shape = classify(value);
        if (shape == MemberShape::method || shape == MemberShape::staticMethod) {
            return addMethod(facts, shape == MemberShape::staticMethod);
        }
        PropertyFacts property = stored(facts);
        if (shape == MemberShape::plainValue &&
            isConstant(access.asWritten(facts.name.view()), key, value, annotations)) {
            property = constant;
        } else if (shape == MemberShape::readOnlyProperty) {
            property.setAccess = std::max(facts.access, protectedAccess);
            property.isReadOnly = true;
        }
        property.form = formOf(value, type_, facts.name.view());
        return addProperty(facts, property);
    }

    static constexpr PropertyFacts constant{zelk::constantSetAccess, PropertyForm::stored, true};

    /// A value that may be assigned by those who may read it.
    static PropertyFacts stored(const MemberFacts& facts) { return {facts.access, PropertyForm::stored, false}; }

    static bool isConstant(std::string_view name, PyObject* key, PyObject* value, PyObject* annotations) {
        PyObject* annotation = findItem(annotations, key);
        return (annotation != nullptr && isFinalAnnotation(annotation)) ||
               (isImmutableValue(value) && isCapitalised(name));
    }

    std::uint32_t addMethod(const MemberFacts& facts, bool isStatic) {
        table_->methods_.emplace_back(table_.get(), facts, isStatic);
        return place(List::methods, table_->methods_.size() - 1);
    }

    std::uint32_t addProperty(const MemberFacts& facts, const PropertyFacts& propertyFacts) {
        table_->properties_.emplace_back(table_.get(), facts, propertyFacts);
        return place(List::properties, table_->properties_.size() - 1);
    }

    PyTypeObject* type_;
    Ref order_;
    boost::intrusive_ptr<MemberTable> table_;
};

MemberTable::MemberTable() = default;
MemberTable::~MemberTable() = default;

const MethodNode* MemberTable::findMethod(zelk::COSInternedID name) const {
    return nodeAt(methods_, List::methods, index_.find(name));
}

const PropertyNode* MemberTable::findProperty(zelk::COSInternedID name) const {
    return nodeAt(properties_, List::properties, index_.find(name));
}

MemberTable::Handle buildMemberTable(PyTypeObject* type) { return MemberTableBuilder(type).build(); }

}  // namespace python_host
