#include "hosts/python/namespaces/namespace_listing.h"

#include <string>
#include <utility>

#include "hosts/python/classes/class_registry.h"
#include "hosts/python/dictionaries.h"
#include "hosts/python/interning.h"
#include "hosts/python/members/member_access.h"
#include "hosts/python/python_host.h"
#include "hosts/python/python_text.h"
#include "hosts/python/references.h"

namespace python_host {

namespace {

struct FoundClass {
    zelk::COSInternedID bound;
    Ref type;
};

zelk::COSInternedID join(zelk::COSInternedID name, zelk::COSInternedID bound) {
    return internName(std::string(name.view()) + '.' + bound.c_str());
}

std::int32_t accessOf(std::string_view name) {
    return startsWithUnderscore(name) && !isSpecialName(name) ? protectedAccess : zelk::publicAccess;
}

}  // namespace

NamespaceListing::Handle NamespaceListing::read(zelk::COSInternedID name, PyObject* module) {
    const boost::intrusive_ptr<NamespaceListing> listing(new NamespaceListing);
    const Ref dictionary = Ref::share(PyModule_GetDict(module));
    listing->dictionary_ = dictionary.get();
    listing->version_ = versionOf(dictionary.get());

    // Classes are registered after the walk, since registering creates objects.
    std::vector<FoundClass> classes;
    eachTextItem(dictionary.get(), [&](PyObject* key, PyObject* value) {
        const zelk::COSInternedID bound = internKey(key);
        if (bound.isEmpty()) {
            return;
        }
        if (PyType_Check(value)) {
            classes.push_back({bound, Ref::share(value)});
        } else if (PyModule_Check(value)) {
            listing->addModule(bound);
        } else if (isKnownFunction(value)) {
            listing->addFunction(bound, !isSpecialName(bound.view()) && isIdentifier(key));
        }
    });
    for (const FoundClass& found : classes) {
        listing->addClass(name, found.bound, asType(found.type.get()));
    }
    return listing;
}

bool NamespaceListing::holdsFor(PyObject* module) const noexcept {
    PyObject* dictionary = PyModule_GetDict(module);
    return dictionary == dictionary_ && versionOf(dictionary) == version_;
}

void NamespaceListing::addClass(zelk::COSInternedID name, zelk::COSInternedID bound, PyTypeObject* type) {
    ClassObject& cls = ClassRegistry::instance().objectOf(type);
    classes_.emplace_back(boost::intrusive_ptr<ClassObject>(&cls), join(name, bound),
                          startsWithUnderscore(bound.view()));
    classNodes_.emplace_back(this, &classes_.back());
}

void NamespaceListing::addModule(zelk::COSInternedID bound) {
    // The language binds a module of its own in every other one.
    if (!isSpecialName(bound.view())) {
        modules_.push_back(bound);
    }
}

void NamespaceListing::addFunction(zelk::COSInternedID bound, bool listable) {
    constexpr bool isStatic = true;
    functions_.emplace_back(this, MemberFacts{bound, nullptr, accessOf(bound.view()), listable}, isStatic);
}

}  // namespace python_host
