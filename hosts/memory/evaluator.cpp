#include "hosts/memory/evaluator.h"

#include <charconv>
#include <cmath>
#include <vector>

#include "hosts/memory/encoding.h"
#include "hosts/memory/failure.h"
#include "hosts/memory/names.h"
#include "hosts/memory/value_making.h"
#include "hosts/memory/world_state.h"

namespace memory_host {

namespace {

using Arguments = std::vector<qxSharedArray>;

qxSharedArray shared(qxUniqueArray value) {
    constexpr bool addReference = false;
    return {value.release(), addReference};
}

qxSharedArray orError(qxSharedArray value, const char* complaint) {
    if (!value) {
        throw EvaluationError(complaint);
    }
    return value;
}

const qxArray* onlyArgument(const Arguments& arguments) {
    if (arguments.size() > 1) {
        throw EvaluationError("functions here take one value at most");
    }
    return arguments.empty() ? nullptr : arguments.front().get();
}

/// `isa(value, 'class')`, the one function that the language itself has.
qxSharedArray isOfClass(const Arguments& arguments) {
    if (arguments.size() != 2 || arguments[1]->textKind != TextKind::present) {
        throw EvaluationError("isa takes a value and the name of a class");
    }
    const std::u16string& name = arguments[1]->text;
    const bool isKind = name == u"opaque" && arguments[0]->id == qxClassID::opaque;
    return shared(makeLogical(isKind || arguments[0]->isA(utf8Of(name).value_or(""))));
}

qxSharedArray call(std::string_view function, const Arguments& arguments) {
    if (function == "isa") {
        return isOfClass(arguments);
    }
    const auto& functions = currentWorld().functions;
    const auto found = functions.find(function);
    if (found == functions.end()) {
        throw EvaluationError("undefined name");
    }
    return orError(shared(found->second(onlyArgument(arguments))), "the function gave no value");
}

/// The element of an index that counts from 1.
qxSharedArray element(const qxSharedArray& value, const Arguments& arguments) {
    const qxArray* given = onlyArgument(arguments);
    if (given == nullptr || given->doubles.size() != 1) {
        throw EvaluationError("an index is one number");
    }
    const double index = given->doubles.front();
    if (!(index >= 1 && index <= static_cast<double>(value->elementCount())) || std::floor(index) != index) {
        throw EvaluationError("the index is out of range");
    }
    const auto position = static_cast<std::size_t>(index) - 1;
    if (value->id == qxClassID::cell) {
        return orError(value->elements.at(position).get(), "the element is not set");
    }
    qxUniqueArray part = makeValue(value->id, value->className, {1, 1});
    part->cls = value->cls;
    if (!value->doubles.empty()) {
        part->doubles = {value->doubles.at(position)};
    }
    for (const Field& field : value->fields) {
        part->fields.push_back({field.name, {}});
        part->fields.back().values.push_back(sharedClaim(field.values.at(position).get()));
    }
    for (const auto& [name, common] : value->properties) {
        part->properties.emplace(name, sharedClaim(common.get()));
    }
    for (const auto& [key, own] : value->elementProperties) {
        if (key.first == position) {
            part->elementProperties.emplace(std::pair(std::size_t{0}, key.second), sharedClaim(own.get()));
        }
    }
    return shared(std::move(part));
}

qxSharedArray callMethod(const qxArray* object, std::string_view name) {
    if (object->cls != nullptr) {
        for (const Class* cls : object->cls->lineage()) {
            if (const auto method = cls->callableMethods.find(name); method != cls->callableMethods.end()) {
                return orError(shared(method->second(object)), "the method gave no value");
            }
        }
    }
    throw EvaluationError("no such member");
}

qxSharedArray member(const qxSharedArray& value, std::string_view name) {
    if (value->elementCount() != 1) {
        throw EvaluationError("a dot follows one element only");
    }
    if (const Field* field = value->field(name)) {
        return orError(field->values.front().get(), "the field is not set");
    }
    if (value->hasProperty(0, name)) {
        return orError(value->property(0, name), "the property has no value");
    }
    return callMethod(value.get(), name);
}

/// Reads an expression from left to right; every value is made as soon as it is read.
class Reader {
public:
    explicit Reader(std::string_view text) : rest_(text) {}

    qxSharedArray whole() {
        qxSharedArray value = expression();
        take(';');
        if (skipBlanks(); !rest_.empty()) {
            throw EvaluationError("the text goes on after its end");
        }
        return value;
    }

private:
    static constexpr int deepest = 100;

    /// Brackets within brackets, of which a text may have any number.
    class Nesting {
    public:
        explicit Nesting(int& depth) : depth_(depth) {
            if (depth_ == deepest) {
                throw EvaluationError("too many brackets within brackets");
            }
            ++depth_;
        }
        Nesting(const Nesting&) = delete;
        Nesting& operator=(const Nesting&) = delete;
        ~Nesting() { --depth_; }

    private:
        int& depth_;
    };

    void skipBlanks() { rest_.remove_prefix(std::min(rest_.find_first_not_of(' '), rest_.size())); }

    bool take(char mark) {
        skipBlanks();
        const bool found = rest_.starts_with(mark);
        rest_.remove_prefix(found ? 1 : 0);
        return found;
    }

    std::string_view takeName() {
        skipBlanks();
        const std::string_view name = rest_.substr(0, nameLength(rest_));
        rest_.remove_prefix(name.size());
        return name;
    }

    qxSharedArray expression() {
        const Nesting nesting(depth_);
        qxSharedArray value = primary();
        while (true) {
            if (take('.')) {
                const std::string_view name = takeName();
                if (name.empty()) {
                    throw EvaluationError("a name follows a dot");
                }
                value = member(value, name);
            } else if (take('(')) {
                value = element(value, arguments());
            } else {
                return value;
            }
        }
    }

    Arguments arguments() {
        Arguments read;
        if (take(')')) {
            return read;
        }
        do {
            read.push_back(expression());
        } while (take(','));
        if (!take(')')) {
            throw EvaluationError("a bracket is open");
        }
        return read;
    }

    qxSharedArray primary() {
        if (take('\'')) {
            return quoted();
        }
        if (take('(')) {
            return bracketed();
        }
        const std::string_view name = takeName();
        if (name.empty()) {
            return number();
        }
        const auto& variables = currentWorld().variables;
        if (const auto variable = variables.find(name); variable != variables.end()) {
            return variable->second.get();
        }
        return call(name, take('(') ? arguments() : Arguments());
    }

    qxSharedArray bracketed() {
        qxSharedArray value = expression();
        if (!take(')')) {
            throw EvaluationError("a bracket is open");
        }
        return value;
    }

    qxSharedArray quoted() {
        const std::size_t end = rest_.find('\'');
        if (end == std::string_view::npos) {
            throw EvaluationError("a text has no end");
        }
        const std::string_view text = rest_.substr(0, end);
        rest_.remove_prefix(end + 1);
        return shared(makeText(utf16Of(text)));
    }

    qxSharedArray number() {
        double read = 0;
        const auto [end, error] = std::from_chars(rest_.data(), rest_.data() + rest_.size(), read);
        if (error != std::errc()) {
            throw EvaluationError("an expression begins with a name, a number or a text");
        }
        rest_.remove_prefix(static_cast<std::size_t>(end - rest_.data()));
        qxUniqueArray value = makeValue(qxClassID::float64, "double", {1, 1});
        value->doubles = {read};
        return shared(std::move(value));
    }

    std::string_view rest_;
    int depth_ = 0;
};

}  // namespace

qxSharedArray evaluate(std::string_view expression) { return Reader(expression).whole(); }

}  // namespace memory_host
