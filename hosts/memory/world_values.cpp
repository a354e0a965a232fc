// The values that a world makes.
#include <algorithm>
#include <utility>

#include "hosts/memory/value_making.h"
#include "hosts/memory/world.h"
#include "hosts/memory/world_state.h"

namespace memory_host {

qxUniqueArray World::doubles(std::vector<std::size_t> dimensions, std::vector<double> elements) {
    qxUniqueArray value = makeValue(qxClassID::float64, "double", std::move(dimensions));
    value->doubles = std::move(elements);
    value->doubles.resize(value->elementCount());
    return value;
}

qxUniqueArray World::logical(bool value) { return makeLogical(value); }

qxUniqueArray World::charRow(std::u16string_view text) { return makeText(text); }

qxUniqueArray World::charMatrix(std::size_t rows, std::size_t columns) {
    return makeValue(qxClassID::character, "char", {rows, columns});
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
    qxUniqueArray value = makeValue(qxClassID::cell, "cell", {elements.empty() ? 0U : 1U, elements.size()});
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

qxUniqueArray World::structure(std::vector<std::size_t> dimensions) {
    return makeValue(qxClassID::structure, "struct", std::move(dimensions));
}

void World::setField(const qxUniqueArray& structure, std::string_view name, qxUniqueArray value, std::size_t index) {
    std::vector<Field>& fields = structure->fields;
    auto found = std::find_if(fields.begin(), fields.end(), [name](const Field& field) { return field.name == name; });
    if (found == fields.end()) {
        found = fields.insert(fields.end(), Field{std::string(name), {}});
        found->values.resize(structure->elementCount());
    }
    found->values.at(index) = std::move(value);
}

qxUniqueArray World::functionHandle() { return makeValue(qxClassID::functionHandle, "function_handle", {1, 1}); }

qxUniqueArray World::object(std::string_view className, std::vector<std::size_t> dimensions) {
    Class& cls = state_->classNamed(className);
    qxUniqueArray value = makeValue(cls.number, cls.id.view(), std::move(dimensions));
    value->cls = &cls;
    return value;
}

qxUniqueArray World::opaque(std::string_view className) { return makeValue(qxClassID::opaque, className, {1, 1}); }

qxUniqueArray World::olderObject(std::string_view className) { return makeValue(qxClassID::object, className, {1, 1}); }

qxUniqueArray World::valueOf(qxClassID id) { return makeValue(id, "", {1, 1}); }

qxUniqueArray World::objectOfID(qxClassID id, std::string_view className) {
    qxUniqueArray value = object(className);
    value->id = id;
    return value;
}

void World::reshape(qxArray* value, std::vector<std::size_t> dimensions) { value->dimensions = std::move(dimensions); }

void World::setProperty(const qxUniqueArray& object, std::string_view name, qxUniqueArray value) {
    object->properties.insert_or_assign(std::string(name), std::move(value));
}

void World::setProperty(const qxUniqueArray& object, std::size_t index, std::string_view name, qxUniqueArray value) {
    object->elementProperties.insert_or_assign({index, std::string(name)}, std::move(value));
}

void World::endTemporaryScope() {
    for (const qxArray* value : std::exchange(state_->temporaries, {})) {
        intrusive_ptr_release(value);
    }
}

std::size_t World::valuesAlive() const noexcept { return qxArray::alive(); }

}  // namespace memory_host
