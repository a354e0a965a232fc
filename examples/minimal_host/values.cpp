// Values: content with a count of its owners. To the library a value is opaque; what it wants to know, it asks here.
#include <atomic>
#include <limits>
#include <utility>

#include "data.h"
#include "failure.h"
#include "host/array_library.h"
#include "host/class_objects.h"
#include "host/class_system.h"
#include "host/text.h"

using minimal_host::Content;
using minimal_host::Value;

namespace {
std::atomic<std::size_t> alive = 0;
}

class qxArray {
public:
    explicit qxArray(Content given) : content(std::move(given)) { ++alive; }
    qxArray(const qxArray&) = delete;
    qxArray& operator=(const qxArray&) = delete;
    ~qxArray() { --alive; }

    Content content;
    /// One owner to begin with: whoever had it made. A sole owner and a shared one count alike.
    mutable std::atomic<std::size_t> owners = 1;
};

namespace {

bool is(const qxArray* value, qxClassID kind) { return value->content.kind == kind; }

Value fieldOf(const qxArray* value, std::string_view name) {
    for (const minimal_host::Field& field : value->content.fields) {
        if (field.first == name) {
            return field.second;
        }
    }
    return nullptr;
}

}  // namespace

qxUniqueArray minimal_host::make(Content content) {
    if (content.kind == qxClassID::float64 || content.kind == qxClassID::logical) {
        content.numbers.resize(content.extents[0] * content.extents[1]);
    }
    return qxUniqueArray(new qxArray(std::move(content)));
}
std::size_t minimal_host::valuesAlive() noexcept { return alive; }

// Lifetime.

void intrusive_ptr_add_ref(const qxArray* value) noexcept { ++value->owners; }
void intrusive_ptr_release(const qxArray* value) noexcept {
    if (--value->owners == 0) {
        delete value;
    }
}
void qxDestroyArray(qxArray* value) noexcept {
    if (value != nullptr) {
        intrusive_ptr_release(value);
    }
}
// There are no temporary scopes here that end values behind the back of their owners.
void qxSetArrayScope(qxArray* /*value*/, qxArrayScope /*scope*/) {}

// Kind and shape.

qxClassID qxGetClassID(const qxArray* value) { return value->content.kind; }
std::int32_t qxGetFullClassID(const qxArray* value) { return static_cast<std::int32_t>(value->content.kind); }
const char* qxGetClassName(const qxArray* value) {
    switch (value->content.kind) {
        case qxClassID::float64:
            return "double";
        case qxClassID::logical:
            return "logical";
        case qxClassID::character:
            return "char";
        case qxClassID::cell:
            return "cell";
        case qxClassID::structure:
            return "struct";
        default:
            return value->content.cls.c_str();
    }
}
bool qxIsA(const qxArray* value, const char* className) {
    const zelk::COSClass* cls = zelk::COSClass::getClass(value->content.cls);
    return std::string_view(qxGetClassName(value)) == className ||
           (cls != nullptr && cls->isSubclassOf(minimal_host::id(className)));
}
std::size_t qxGetNumberOfDimensions(const qxArray* /*value*/) { return 2; }
const std::size_t* qxGetDimensions(const qxArray* value) { return value->content.extents; }
std::size_t qxGetNumberOfElements(const qxArray* value) {
    return value->content.extents[0] * value->content.extents[1];
}
bool qxIsEmpty(const qxArray* value) { return qxGetNumberOfElements(value) == 0; }
bool qxIsScalar(const qxArray* value) { return qxGetNumberOfElements(value) == 1; }

// Content.

const double* qxGetDoubles(const qxArray* value) { return value->content.numbers.data(); }
bool qxIsLogicalScalarTrue(const qxArray* value) {
    return is(value, qxClassID::logical) && qxIsScalar(value) && value->content.numbers.front() != 0;
}
bool isNonMissingScalarText(const qxArray* value) { return is(value, qxClassID::character); }
std::u16string getScalarText(const qxArray* value) {
    if (!is(value, qxClassID::character)) {
        throw TextException("MustBeStringScalarOrCharacterVector");
    }
    return value->content.text;
}
const qxArray* qxGetCell(const qxArray* cell, std::size_t index) { return cell->content.elements.at(index).get(); }
std::size_t qxGetNumberOfFields(const qxArray* value) {
    return is(value, qxClassID::structure) ? value->content.fields.size() : 0;
}
const char* qxGetFieldNameByNumber(const qxArray* value, std::size_t number) {
    return value->content.fields.at(number).first.c_str();
}
qxSharedArray qxGetField(const qxArray* value, std::size_t /*index*/, const char* name) {
    return is(value, qxClassID::structure) ? fieldOf(value, name) : nullptr;
}

// Objects. Reading a property runs nothing, as each is stored; to have none of a name is no failure.

bool omIsZELK(const qxArray* value) { return value->content.kind > qxClassID::object; }
zelk::COSInternedID omGetCOSClassID(const qxArray* value) {
    return omIsZELK(value) ? value->content.cls : zelk::COSInternedID();
}
qxArray* qxGetPropertyShared(const qxArray* object, std::size_t /*index*/, const char* name) {
    return fieldOf(object, name).detach();
}
qxUniqueArray qxGetProperty(const qxArray* object, std::size_t /*index*/, const char* name) {
    const Value found = fieldOf(object, name);
    return found ? minimal_host::make(found->content) : nullptr;
}

// A namespace as an object. The lists are named for what the library reads; the class system shows the rest.
qxUniqueArray omCreateZELKScalar(const zelk::COSInterfacePtr& node) {
    zelk::COSNamespace* space = zelk::cosiToNamespace(node.get());
    if (space == nullptr) {
        throw template_host::Failure("only namespaces can be shown as objects");
    }
    Content content{.kind = qxClassID::opaque, .cls = minimal_host::id("ostrel.metadata.Namespace")};
    for (const char* list : {"ClassList", "FunctionList", "PackageList"}) {
        content.fields.emplace_back(list, minimal_host::shared(qxCreateCell(0, 1)));
    }
    return minimal_host::make(std::move(content));
}

// Making values.

qxUniqueArray qxCreateString(std::u16string_view text) {
    return minimal_host::make(
        {.kind = qxClassID::character, .extents = {1, text.size()}, .text = std::u16string(text)});
}
qxUniqueArray qxCreateCell(std::size_t rows, std::size_t columns) {
    const bool fits = columns == 0 || rows <= std::numeric_limits<std::ptrdiff_t>::max() / sizeof(Value) / columns;
    return fits ? minimal_host::make({.kind = qxClassID::cell,
                                      .extents = {rows, columns},
                                      .elements = std::vector<Value>(rows * columns)})
                : nullptr;
}
void qxSetCell(qxArray* cell, std::size_t index, qxUniqueArray element) {
    cell->content.elements.at(index) = minimal_host::shared(std::move(element));
}
