// What this host knows, as plain data. All else here is the way in which the library gets to see it:
//
//     values.cpp    what a value is and holds
//     classes.cpp   classes with their members, and namespaces
//     session.cpp   variables, and what can be called by name
//     streams.cpp   what is printed
//
// `ask.cpp` fills a small world and asks the library about it.
#pragma once

#include <boost/smart_ptr/intrusive_ptr.hpp>

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "host/array_library.h"
#include "host/interned.h"

namespace minimal_host {

/// A shared owner of a value.
using Value = boost::intrusive_ptr<qxArray>;

inline Value shared(qxUniqueArray value) {
    constexpr bool addsReference = false;
    return Value(value.release(), addsReference);
}

/// A name, and the value that it stands for.
using Field = std::pair<std::string, Value>;

/// What is in a value. Values are not changed once they are made, save for the elements of a cell.
struct Content {
    qxClassID kind = qxClassID::float64;
    std::size_t extents[2] = {1, 1};
    std::vector<double> numbers = {};  ///< of doubles and truth values, column by column; what is missing is 0
    std::u16string text = {};          ///< of a char row
    std::vector<Value> elements = {};  ///< of a cell; null where none is set
    std::vector<Field> fields = {};    ///< of a structure; the properties of an object
    zelk::COSInternedID cls = {};      ///< of an object
};

/// The permanent handle of a name; of no name, the empty one.
inline zelk::COSInternedID id(std::string_view name) {
    return name.empty() ? zelk::COSInternedID() : zelk::internal::makeInterned(name);
}

struct Method {
    std::string name;
    bool isStatic = false;
};

struct Class {
    std::string name;
    std::vector<std::string> superclasses = {};  ///< defined earlier, so no class can derive from itself
    std::vector<Method> methods = {};            ///< each name once, as for properties
    std::vector<std::string> properties = {};
};

struct Namespace {
    std::string name;
    std::vector<std::string> classes = {};  ///< full names, defined earlier, as for inner namespaces
    std::vector<std::string> functions = {};
    std::vector<std::string> namespaces = {};
};

// Making the world.

/// These two throw a host failure when the name is taken and when something that is named is not there.
void define(const Class& cls);
void define(const Namespace& space);

qxUniqueArray make(Content content);
/// The class is defined.
qxUniqueArray makeObject(const std::string& className, std::vector<Field> properties);
void assign(const std::string& variable, Value value);

/// What the program prints.
void print(std::u16string_view text, bool isError);

/// Undoes every definition and assignment. Nobody holds a node of a class any more.
void forgetEverything();

/// How many values exist.
std::size_t valuesAlive() noexcept;

}  // namespace minimal_host
