// The values that a world makes.
#include <cassert>
#include <utility>

#include "hosts/memory/value.h"
#include "hosts/memory/world.h"
#include "hosts/memory/world_state.h"

namespace memory_host {

namespace {

qxUniqueArray make(qxClassID id, std::string_view className, std::vector<std::size_t> dimensions) {
    return qxUniqueArray(new qxArray(id, std::string(className), std::move(dimensions)));
}

}  // namespace

qxUniqueArray World::doubles(std::vector<std::size_t> dimensions, std::vector<double> elements) {
    qxUniqueArray value = make(qxClassID::float64, "double", std::move(dimensions));
    value->doubles = std::move(elements);
    value->doubles.resize(value->elementCount());
    return value;
}

qxUniqueArray World::logical(bool value) {
    qxUniqueArray made = make(qxClassID::logical, "logical", {1, 1});
    made->doubles = {value ? 1.0 : 0.0};
    return made;
}

qxUniqueArray World::charRow(std::u16string_view text) {
    qxUniqueArray value = make(qxClassID::character, "char", {text.empty() ? 0U : 1U, text.size()});
    value->textKind = TextKind::present;
    value->text = text;
    return value;
}

qxUniqueArray World::charMatrix(std::size_t rows, std::size_t columns) {
    return make(qxClassID::character, "char", {rows, columns});
}

qxUniqueArray World::stringScalar(std::u16string_view text) {
    qxUniqueArray value = object("string");
    value->textKind = TextKind::present;
    value->text = text;
    return value;
}

qxUniqueArray World::missingString() {
    qxUniqueArray value = object("string");
    value->textKind = TextKind::missing;
    return value;
}

qxUniqueArray World::cellOf(std::vector<qxUniqueArray> elements) {
    qxUniqueArray value = make(qxClassID::cell, "cell", {elements.empty() ? 0U : 1U, elements.size()});
    value->elements = std::move(elements);
    return value;
}

qxUniqueArray World::cell(std::initializer_list<std::u16string_view> texts) {
    std::vector<qxUniqueArray> elements;
    for (const std::u16string_view text : texts) {
        elements.push_back(charRow(text));
    }
    return cellOf(std::move(elements));
}

qxUniqueArray World::structure() { return make(qxClassID::structure, "struct", {1, 1}); }

qxUniqueArray World::functionHandle() { return make(qxClassID::functionHandle, "function_handle", {1, 1}); }

qxUniqueArray World::object(std::string_view className, std::vector<std::size_t> dimensions) {
    Class& cls = state_->classNamed(className);
    qxUniqueArray value = make(cls.number, cls.id.view(), std::move(dimensions));
    value->cls = &cls;
    return value;
}

qxUniqueArray World::opaque(std::string_view className) { return make(qxClassID::opaque, className, {1, 1}); }

qxUniqueArray World::olderObject(std::string_view className) { return make(qxClassID::object, className, {1, 1}); }

qxUniqueArray World::valueOf(qxClassID id) { return make(id, "", {1, 1}); }

void World::setProperty(const qxUniqueArray& object, std::string_view name, qxUniqueArray value) {
    object->properties.insert_or_assign(std::string(name), std::move(value));
}

void World::endTemporaryScope() {
    for (const qxArray* value : std::exchange(state_->temporaries, {})) {
        intrusive_ptr_release(value);
    }
}

std::size_t World::valuesAlive() const noexcept { return qxArray::alive(); }

}  // namespace memory_host
