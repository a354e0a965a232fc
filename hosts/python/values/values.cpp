#include "hosts/python/values/values.h"

#include <limits>
#include <new>
#include <numeric>
#include <string>
#include <utility>

#include "hosts/python/errors.h"
#include "hosts/python/objects/object_names.h"
#include "hosts/python/python_host.h"
#include "hosts/python/python_text.h"
#include "hosts/python/utf.h"
#include "hosts/python/values/object_release.h"
#include "hosts/python/values/value_kinds.h"

using python_host::NameList;
using python_host::Ref;

struct qxArray::Parts {
    NameList names;
    std::vector<std::size_t> dimensions;
    std::unique_ptr<qxArray[]> texts;
    std::vector<qxUniqueArray> elements;
    std::optional<std::vector<std::string>> fieldNames;
};

namespace {

/// UTF-16 units of a valid UTF-8 text.
std::size_t unitsOf(std::string_view utf8) {
    return std::accumulate(utf8.begin(), utf8.end(), std::size_t{0}, [](std::size_t count, char c) {
        const auto byte = static_cast<unsigned char>(c);
        const bool continues = (byte & 0xC0) == 0x80;
        const bool isPair = byte >= 0xF0;
        return count + (continues ? 0U : 1U) + (isPair ? 1U : 0U);
    });
}

}  // namespace

qxArray::qxArray() noexcept : form_(Form::text), classId_(qxClassID::character) {}

qxArray::qxArray(Ref object)
    : form_(Form::object), classId_(python_host::classIdOfObject(object.get())), object_(object.release()) {}

qxArray::qxArray(NameList names) : form_(Form::names), classId_(qxClassID::cell), parts_(std::make_unique<Parts>()) {
    parts_->names = std::move(names);
    const auto& texts = parts_->names.names();
    parts_->texts = std::make_unique<qxArray[]>(texts.size());
    for (std::size_t index = 0; index < texts.size(); ++index) {
        parts_->texts[index].text_ = texts[index];
    }
}

qxArray::qxArray(std::size_t rows, std::size_t columns)
    : form_(Form::cell), classId_(qxClassID::cell), parts_(std::make_unique<Parts>()) {
    if (columns != 0 && rows > std::numeric_limits<std::size_t>::max() / columns) {
        throw std::bad_alloc();
    }
    parts_->dimensions = {rows, columns};
    parts_->elements.resize(rows * columns);
}

qxUniqueArray qxArray::ofNamespaces(NameList names) {
    qxUniqueArray value(new qxArray);
    value->form_ = Form::namespaces;
    value->classId_ = qxClassID::opaque;
    value->parts().names = std::move(names);
    return value;
}

qxArray::~qxArray() {
    if (object_ != nullptr) {
        python_host::releaseObject(object_);
    }
}

qxArray::Parts& qxArray::parts() const {
    if (!parts_) {
        parts_ = std::make_unique<Parts>();
    }
    return *parts_;
}

std::vector<std::size_t> qxArray::measure() const {
    switch (form_) {
        case Form::text:
            return {1, unitsOf(text_)};
        case Form::names:
            return {parts().names.names().size(), 1};
        case Form::namespaces:
            return {1, parts().names.names().size()};
        case Form::cell:
        case Form::object:
            break;
    }
    return python_host::extentsOf(object_);
}

const std::vector<std::size_t>& qxArray::dimensions() const {
    std::vector<std::size_t>& dimensions = parts().dimensions;
    if (dimensions.empty()) {
        dimensions = measure();
    }
    return dimensions;
}

const qxArray* qxArray::element(std::size_t index) const {
    if (form_ == Form::names) {
        return index < parts().names.names().size() ? &parts().texts[index] : nullptr;
    }
    if (form_ == Form::cell) {
        return index < parts().elements.size() ? parts().elements[index].get() : nullptr;
    }
    return form_ == Form::object ? objectElement(index) : nullptr;
}

const qxArray* qxArray::objectElement(std::size_t index) const {
    Ref current = python_host::elementOf(object_, index);
    if (!current) {
        return nullptr;
    }
    std::vector<qxUniqueArray>& elements = parts().elements;
    if (elements.size() <= index) {
        elements.resize(index + 1);
    }
    // The element stays what it was when it was first asked for: others may hold it.
    if (!elements[index]) {
        elements[index] = qxUniqueArray(new qxArray(std::move(current)));
    }
    return elements[index].get();
}

bool qxArray::setElement(std::size_t index, qxUniqueArray element) noexcept {
    if (form_ != Form::cell || index >= parts_->elements.size()) {
        return false;
    }
    parts_->elements[index].swap(element);
    return true;
}

std::optional<std::string_view> qxArray::namespaceName(std::size_t index) const {
    if (form_ != Form::namespaces || index >= parts_->names.names().size()) {
        return std::nullopt;
    }
    return parts_->names.names()[index];
}

const std::vector<std::string>& qxArray::fieldNames() const {
    std::optional<std::vector<std::string>>& names = parts().fieldNames;
    if (!names) {
        names.emplace();
        if (form_ == Form::object) {
            const NameList fields = python_host::fieldNamesOf(object_);
            // A name with a zero within would be handed on as another one.
            for (const std::string_view name : fields.names()) {
                if (name.find('\0') == std::string_view::npos) {
                    names->emplace_back(name);
                }
            }
        }
    }
    return *names;
}

namespace python_host {

qxUniqueArray wrap(PyObject* object) {
    const PendingErrorGuard pending;
    // First of all: what waits may have finalisers, and they may drop what holds a borrowed object.
    Ref keep = Ref::share(object);
    releaseWaitingObjects();
    return qxUniqueArray(new qxArray(std::move(keep)));
}

PyObject* unwrap(const qxArray* value) noexcept { return value->object(); }

qxUniqueArray makeCell(NameList names) { return qxUniqueArray(new qxArray(std::move(names))); }

qxUniqueArray makeNamespaceObjects(NameList names) { return qxArray::ofNamespaces(std::move(names)); }

qxUniqueArray makeTextValue(std::string_view utf8) {
    const Ref text = Ref::steal(makeText(utf8));
    if (!text) {
        throw PythonFailure("the text cannot be made");
    }
    return wrap(text.get());
}

}  // namespace python_host

void qxDestroyArray(qxArray* value) noexcept { intrusive_ptr_release(value); }

void intrusive_ptr_add_ref(const qxArray* value) noexcept { value->addOwner(); }

void intrusive_ptr_release(const qxArray* value) noexcept {
    if (value != nullptr && value->dropOwner()) {
        delete value;
    }
}
