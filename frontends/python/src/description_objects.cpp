#include "frontends/python/src/description_objects.h"

#include <iterator>
#include <unordered_map>
#include <vector>

#include "frontends/python/src/new_objects.h"
#include "frontends/python/src/python_text.h"

namespace contextdata::python {

using completion::ClassDescription;
using completion::DescribedMember;
using completion::DescribedProperty;
using completion::Superclass;

namespace {

/// A tuple of what `make` makes of each element.
template <class Range, class Make>
pybind11::tuple tupleOf(const Range& range, Make make) {
    pybind11::tuple tuple = newTuple(std::size(range));
    Py_ssize_t place = 0;
    for (const auto& element : range) {
        PyTuple_SET_ITEM(tuple.ptr(), place++, pybind11::object(make(element)).release().ptr());
    }
    return tuple;
}

template <class Texts>
pybind11::tuple textsOf(const Texts& texts) {
    return tupleOf(texts, [](const std::u16string& text) { return strOf(text); });
}

class Converter {
public:
    pybind11::tuple members(const std::vector<DescribedMember>& members) {
        return tupleOf(members, [this](const DescribedMember& member) {
            return tupleWith(strOf(member.name), access(member.access), named(member.definingClass));
        });
    }

    pybind11::tuple properties(const std::vector<DescribedProperty>& properties) {
        return tupleOf(properties, [this](const DescribedProperty& property) {
            return tupleWith(strOf(property.name), access(property.access), named(property.definingClass),
                             named(property.typeName), textsOf(property.sizes), textsOf(property.validators),
                             textsOf(property.values), pybind11::bool_(property.isReadOnly),
                             pybind11::bool_(property.hasCustomGetter), pybind11::bool_(property.isStored));
        });
    }

private:
    /// Classes and types come again and again.
    pybind11::object named(const std::u16string& name) {
        if (name.empty()) {
            return pybind11::none();
        }
        pybind11::object& known = names_[name];
        if (!known) {
            known = strOf(name);
        }
        return known;
    }

    pybind11::object access(std::int32_t code) {
        pybind11::object& known = accesses_[code];
        if (!known) {
            known = strOfAscii(completion::textOfAccess(code).c_str());
        }
        return known;
    }

    std::unordered_map<std::u16string, pybind11::object> names_;
    std::unordered_map<std::int32_t, pybind11::object> accesses_;
};

pybind11::tuple superclassesOf(const std::vector<Superclass>& superclasses) {
    return tupleOf(superclasses, [](const Superclass& superclass) {
        return tupleWith(strOf(superclass.name), superclassesOf(superclass.superclasses),
                         pybind11::bool_(superclass.isRepeated), pybind11::bool_(superclass.isCut));
    });
}

}  // namespace

pybind11::tuple objectsOf(const ClassDescription& description) {
    Converter converter;
    const auto& attributes = description.attributes;
    return tupleWith(strOf(description.name), superclassesOf(description.superclasses),
                     tupleWith(textsOf(attributes.ofClasses), textsOf(attributes.ofProperties),
                               textsOf(attributes.ofMethods), textsOf(attributes.ofEvents)),
                     converter.members(description.enumerationMembers), converter.properties(description.constants),
                     converter.properties(description.properties), converter.members(description.staticMethods),
                     converter.members(description.methods));
}

pybind11::tuple memberObject(const std::u16string& name, const char* access) {
    return tupleWith(strOf(name), strOfAscii(access), pybind11::none());
}

}  // namespace contextdata::python
