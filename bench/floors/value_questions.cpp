// Texts, sizes, properties and own names of host values.
#include <array>
#include <memory>

#include "bench/floors/questions.h"
#include "contextdata/introspection.h"
#include "contextdata/member_names.h"
#include "contextdata/values.h"
#include "host/class_objects.h"
#include "host/dispatcher.h"
#include "host/interpreter.h"
#include "host/text.h"

namespace bench {

namespace {

using Size = std::vector<std::uint64_t>;

qxSharedArray held(qxUniqueArray value) { return {value.release(), false}; }

qxSharedArray takenOutOfScope(qxArray* value) {
    qxSetArrayScope(value, qxArrayScope::none);
    return {value, false};
}

Names floorTexts(const qxArray* cell) {
    const std::size_t count = qxGetNumberOfElements(cell);
    Names texts;
    texts.reserve(count);
    for (std::size_t index = 0; index < count; ++index) {
        const qxArray* element = qxGetCell(cell, index);
        if (isNonMissingScalarText(element)) {
            texts.push_back(getScalarText(element));
        }
    }
    return texts;
}

Names floorAnswer(const qxArray* value, const char* function) {
    qxArray* output = nullptr;
    inCallFcn(1, &output, 1, &value, function);
    const qxUniqueArray answer(output);
    return floorTexts(answer.get());
}

Size floorDimensions(const qxArray* value) {
    if (qxIsA(value, "tall")) {
        return {};
    }
    const std::size_t* dimensions = qxGetDimensions(value);
    return {dimensions, dimensions + qxGetNumberOfDimensions(value)};
}

Size floorSizeOfObject(const qxArray* value) {
    if (qxIsA(value, "tall")) {
        return {};
    }
    const bool custom = omIsZELK(value) && qxIsA(value, "ostrel.mixin.internal.CustomSizeString");
    const qxUniqueArray answer(inCallMethodSingleInputSingleOutput(value, custom ? "sizeAsDouble" : "size"));
    const double* extents = qxGetDoubles(answer.get());
    Size size;
    size.reserve(qxGetNumberOfElements(answer.get()));
    for (std::size_t index = 0; index < qxGetNumberOfElements(answer.get()); ++index) {
        size.push_back(static_cast<std::uint64_t>(extents[index]));
    }
    return size;
}

std::unordered_set<std::u16string> floorBuiltins() {
    const std::vector<std::u16string> names = Dispatcher::getDispatcher().getDocumentedBuiltins();
    return {names.begin(), names.end()};
}

qxUniqueArray cellOfTexts(memory_host::World& world, std::size_t count) {
    std::vector<qxUniqueArray> elements;
    for (std::size_t number = 0; number < count; ++number) {
        const std::string text = "a text of number " + std::to_string(number);
        elements.push_back(world.charRow(std::u16string(text.begin(), text.end())));
    }
    return world.cellOf(std::move(elements));
}

std::vector<Question> textQuestions(memory_host::World& world) {
    std::vector<Question> questions;
    for (const std::size_t count : {10U, 1'000U}) {
        const qxSharedArray cell = held(cellOfTexts(world, count));
        questions.push_back(question(
            "values", "getStringsFromQxarray, " + std::to_string(count) + " texts", count,
            [cell] {
                Names texts;
                getStringsFromQxarray(cell.get(), texts);
                return texts;
            },
            [cell] { return floorTexts(cell.get()); }));
    }
    return questions;
}

std::vector<Question> sizeQuestions(memory_host::World& world) {
    const qxSharedArray matrix = held(world.doubles({2, 3}));
    world.cls("values.Sized").answers("size", [&world](const qxArray*) { return world.doubles({1, 2}, {3, 4}); });
    const qxSharedArray object = held(world.object("values.Sized"));
    return {
        question(
            "values", "getSizeFromQxArray of a matrix", 1, [matrix] { return getSizeFromQxArray(matrix.get()); },
            [matrix] { return floorDimensions(matrix.get()); }),
        question(
            "values", "getSizeFromQxArray of an object", 1, [object] { return getSizeFromQxArray(object.get()); },
            [object] { return floorSizeOfObject(object.get()); }),
    };
}

std::vector<Question> propertyQuestions(memory_host::World& world) {
    world.cls("values.Account").property("balance").property("beneficiaries");
    qxUniqueArray account = world.object("values.Account");
    world.setProperty(account, "balance", world.number(7));
    const qxSharedArray object = held(std::move(account));
    const std::string balance = "balance";
    return {
        question(
            "values", "getSharedProperty", 1, [object, balance] { return getSharedProperty(object.get(), balance, 0); },
            [object, balance] { return takenOutOfScope(qxGetPropertyShared(object.get(), 0, balance.c_str())); }),
        question(
            "values", "makeSharedPtr", 1,
            [object] {
                intrusive_ptr_add_ref(object.get());
                return makeSharedPtr(const_cast<qxArray*>(object.get()));
            },
            [object] {
                intrusive_ptr_add_ref(object.get());
                return takenOutOfScope(const_cast<qxArray*>(object.get()));
            }),
    };
}

std::vector<Question> ownNameQuestions(memory_host::World& world) {
    const qxSharedArray text = held(world.opaque("java.lang.String"));
    const auto appended = [text](void (*append)(const qxArray*, Names&)) {
        return [text, append] {
            Names names;
            append(text.get(), names);
            return names;
        };
    };
    return {
        question("values", "getOpaqueObjectMethods", 1, appended(getOpaqueObjectMethods),
                 [text] { return floorAnswer(text.get(), "methods"); }),
        question("values", "getOpaqueObjectProperties", 1, appended(getOpaqueObjectProperties),
                 [text] { return floorAnswer(text.get(), "properties"); }),
        question("values", "getObjectPropertyNames", 1, appended(ZELKIntrospection::getObjectPropertyNames),
                 [text] { return floorAnswer(text.get(), "properties"); }),
        question(
            "values", "callFunctionOnObject", 1,
            [text] {
                Names names;
                ZELKIntrospection::callFunctionOnObject(text.get(), "fieldnames", names);
                return names;
            },
            [text] { return floorAnswer(text.get(), "fieldnames"); }),
        question(
            "values", "isObjectOrIsOpaque", 1, [text] { return isObjectOrIsOpaque(text.get()); },
            [text] {
                const qxClassID id = qxGetClassID(text.get());
                return id == qxClassID::opaque || id == qxClassID::object;
            }),
    };
}

}  // namespace

std::vector<Question> valueQuestions(memory_host::World& world) {
    std::vector<Question> questions;
    for (const auto part : {textQuestions, sizeQuestions, propertyQuestions, ownNameQuestions}) {
        for (Question& each : part(world)) {
            questions.push_back(std::move(each));
        }
    }
    Names builtins;
    for (int number = 0; number < 1'000; ++number) {
        const std::string name = "builtinOfNumber" + std::to_string(number);
        builtins.emplace_back(name.begin(), name.end());
    }
    world.documentedBuiltins(builtins);
    questions.push_back(
        question("values", "getBuiltinFunctionNames, 1000", builtins.size(), getBuiltinFunctionNames, floorBuiltins));
    return questions;
}

}  // namespace bench
