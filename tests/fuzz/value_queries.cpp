#include <algorithm>
#include <cmath>
#include <limits>
#include <stdexcept>
#include <utility>

#include "contextdata/argument_block_metadata.h"
#include "contextdata/introspection.h"
#include "contextdata/member_names.h"
#include "contextdata/other_object_systems.h"
#include "contextdata/resolved_class_id.h"
#include "contextdata/values.h"
#include "contextdata/workspace_methods.h"
#include "tests/fuzz/expect.h"
#include "tests/fuzz/plain_utf.h"
#include "tests/fuzz/queries.h"

namespace fuzz {

namespace {

using Extents = std::vector<std::uint64_t>;

/// In the place of an answer whose making ends with its question.
qxUniqueArray noAnswer(const qxArray* /*value*/) { return nullptr; }

// Cells of texts.

void askForTexts(const Case& world) {
    std::vector<qxUniqueArray> elements;
    Wides texts;
    bool isGood = true;
    for (std::size_t count = world.input.below(6); count > 0; --count) {
        switch (world.input.below(12)) {
            case 0:
                elements.push_back(world.world.missingString());
                isGood = false;
                break;
            case 1:
                elements.push_back(world.world.charMatrix(2, 2));
                isGood = false;
                break;
            case 2:
                elements.push_back(nullptr);
                isGood = false;
                break;
            case 3:
                elements.push_back(world.world.number(1));
                isGood = false;
                break;
            default:
                texts.push_back(world.input.text(6));
                elements.push_back(texts.size() % 2 == 0 ? world.world.charRow(texts.back())
                                                         : world.world.stringScalar(texts.back()));
        }
    }
    const bool isCell = !world.input.once(8);
    const qxUniqueArray value = isCell ? world.world.cellOf(std::move(elements)) : world.world.charRow(u"text");
    isGood = isGood && isCell;
    Wides names = {u"kept"};
    expectEqual(getStringsFromQxarray(value.get(), names), isGood, "whether all are texts");
    Wides expected = {u"kept"};
    if (isGood) {
        expected.insert(expected.end(), texts.begin(), texts.end());
    }
    expectEqual(names, expected, "the texts of a cell");
    expect(!getStringsFromQxarray(nullptr, names) && names == expected, "no texts of nothing");
}

// Sizes.

/// What a list of numbers means as a size: nothing where it cannot be converted at all, empty where it is no size.
std::optional<Extents> extentsOf(const std::vector<double>& numbers) {
    Extents extents;
    if (std::any_of(numbers.begin(), numbers.end(), [](double number) { return std::isnan(number); })) {
        return Extents();
    }
    for (const double number : numbers) {
        if (number <= -1.0 || number >= 18446744073709551616.0) {
            return std::nullopt;
        }
        const double whole = std::trunc(number);
        constexpr double half = 9223372036854775808.0;
        extents.push_back(whole >= half ? static_cast<std::uint64_t>(whole - half) + (std::uint64_t{1} << 63)
                                        : static_cast<std::uint64_t>(whole));
    }
    return extents;
}

void askForSize(const Case& world) {
    constexpr double numbers[] = {0,
                                  1,
                                  2.9,
                                  -0.5,
                                  -1,
                                  3,
                                  1e19,
                                  9223372036854775808.0,
                                  18446744073709551616.0,
                                  std::numeric_limits<double>::quiet_NaN(),
                                  std::numeric_limits<double>::infinity()};
    if (world.model.classes.empty()) {
        return;
    }
    const ModelClass& cls = world.input.oneOf(world.model.classes);
    std::vector<double> answer;
    for (std::size_t count = world.input.below(4); count > 0; --count) {
        answer.push_back(world.input.oneOf(numbers));
    }
    enum class Manner { doubles, other, nothing, failure };
    const auto manner = static_cast<Manner>(world.input.below(4));
    std::string asked;
    for (const char* method : {"size", "sizeAsDouble"}) {
        world.world.cls(cls.name).answers(method, [&, method](const qxArray*) -> qxUniqueArray {
            asked = method;
            switch (manner) {
                case Manner::doubles:
                    return world.world.doubles({1, answer.size()}, answer);
                case Manner::other:
                    return world.world.charRow(u"2 3");
                case Manner::nothing:
                    return nullptr;
                case Manner::failure:
                    break;
            }
            throw std::runtime_error("no size");
        });
    }
    const std::vector<std::size_t> dimensions = {2, 1 + world.input.below(3)};
    const qxUniqueArray object = world.world.object(cls.name, dimensions);
    const Extents found = getSizeFromQxArray(object.get());
    const Extents own(dimensions.begin(), dimensions.end());

    Extents expected = own;
    std::string method;
    if (world.classes.derives(cls, "tall")) {
        expected = {};
    } else {
        method = world.classes.derives(cls, "ostrel.mixin.internal.CustomSizeString") ? "sizeAsDouble" : "size";
        if (manner == Manner::failure) {
            expected = {};
        } else if (manner == Manner::doubles && !answer.empty()) {
            const std::optional<Extents> converted = extentsOf(answer);
            expected = !converted ? Extents() : converted->empty() ? own : *converted;
        }
    }
    expectEqual(found, expected, "the size of an object of " + cls.name + " that answers " + shown(answer));
    expectEqual(asked, method, "the method that was asked of " + cls.name);
    for (const char* each : {"size", "sizeAsDouble"}) {
        world.world.cls(cls.name).answers(each, noAnswer);
    }
}

void askForPlainSizes(const Case& world) {
    const std::vector<std::size_t> dimensions = {world.input.below(3), world.input.below(3), 1 + world.input.below(2)};
    const qxUniqueArray matrix = world.world.doubles(dimensions);
    expectEqual(getSizeFromQxArray(matrix.get()), Extents(dimensions.begin(), dimensions.end()),
                "the size of a matrix");
    expectEqual(getSizeFromQxArray(nullptr), Extents(), "the size of nothing");
    expect(!isObjectOrIsOpaque(matrix.get()) && !isObjectOrIsOpaque(nullptr), "a matrix is neither opaque nor older");
    expect(!ZELKIntrospection::isZELKObject(matrix.get()) && !ZELKIntrospection::isZELKObject(nullptr), "no objects");
    expect(!ZELKIntrospection::isNoDotMethodClass(matrix.get()), "a matrix has dot methods, if any");
    expectEqual(ZELKIntrospection::getClassName(matrix.get()), std::u16string(u"double"), "the class of a matrix");
}

// Structures.

void askForFields(const Case& world) {
    const qxUniqueArray structure = world.world.structure({1, 2});
    Wides expected;
    for (std::size_t count = world.input.below(4); count > 0; --count) {
        const std::string& name = world.input.oneOf(memberNames());
        world.world.setField(structure, name, world.world.number(1), world.input.below(2));
        if (std::find(expected.begin(), expected.end(), wideAscii(name)) == expected.end()) {
            expected.push_back(wideAscii(name));
        }
    }
    Wides names;
    StructContextData::getStructFieldNames(structure.get(), names);
    expectEqual(names, expected, "the fields of a structure");
}

// Objects.

bool isNoDotClass(const Case& world, const ModelClass& cls) {
    static const char* const listed[] = {"table",
                                         "timetable",
                                         "collection",
                                         "timetableCollection",
                                         "tall",
                                         "ostrel.mixin.internal.indexing.DisallowCompletionOfDotMethodNames",
                                         "ostrel.tabular.CustomProperties",
                                         "ostrel.tabular.TableProperties",
                                         "ostrel.tabular.TimetableProperties",
                                         "ostrel.tabular.TallTimetableProperties",
                                         "distributed",
                                         "codistributed",
                                         "groupedData",
                                         "dataset",
                                         "ostrel.io.DovFile",
                                         "categorical",
                                         "datetime",
                                         "duration",
                                         "calendarDuration"};
    return std::any_of(std::begin(listed), std::end(listed),
                       [&](const char* name) { return world.classes.derives(cls, name); });
}

void askForObject(const Case& world) {
    if (world.model.classes.empty()) {
        return;
    }
    const ModelClass& cls = world.input.oneOf(world.model.classes);
    qxUniqueArray made = world.world.object(cls.name);
    world.world.setProperty(made, "carried", world.world.number(2));
    constexpr bool addsReference = false;
    const qxSharedArray object(made.release(), addsReference);
    const bool isObject = cls.isDefined;
    const std::string what = " of an object of " + cls.name;
    expectEqual(ZELKIntrospection::isZELKObject(object.get()), isObject, "being one" + what);
    expectEqual(ZELKIntrospection::getCOSClass(object.get()) != nullptr, isObject, "the class" + what);
    expectEqual(ZELKIntrospection::getClassName(object.get()), wideAscii(cls.name), "the class name" + what);
    expectEqual(std::string(ZELKContextData::ResolvedClassID(object.get()).get().view()), cls.name,
                "the identity" + what);
    expectEqual(ZELKIntrospection::isNoDotMethodClass(object.get()), isNoDotClass(world, cls), "no dot methods" + what);
    for (const std::string& member : memberNames()) {
        expectEqual(ZELKIntrospection::hasMethod(object.get(), member),
                    isObject && world.classes.findMethod(cls, member) != nullptr, member + what);
        expectEqual(ZELKIntrospection::hasProperty(object.get(), member),
                    isObject && world.classes.hasProperty(cls, member), "the property " + member + what);
    }
    const qxSharedArray carried = getSharedProperty(object.get(), "carried", 0);
    expect(carried && *qxGetDoubles(carried.get()) == 2, "what is carried" + what);
    expect(!getSharedProperty(object.get(), "missing", 0), "nothing that is missing" + what);
    expect(!getSharedProperty(object.get(), "carried", 1), "nothing of a second element" + what);

    // The object's own answer, when it has one, else what its class lists.
    Wides names = {u"kept"};
    ZELKIntrospection::getObjectPropertyNames(object.get(), names);
    Wides expected = {u"kept"};
    if (isObject) {
        const Wides listed = world.classes.propertyNames(cls, 2, 2, 2, 1);
        expected.insert(expected.end(), listed.begin(), listed.end());
    }
    expectEqual(names, expected, "property names" + what);

    const int selector = static_cast<int>(world.input.below(4)) - 1;
    const std::u16string variable = wideAscii(world.input.oneOf(memberNames()));
    Wides methods = isObject ? world.classes.methodNames(cls, -1, selector) : Wides();
    std::erase_if(methods, [&](const std::u16string& name) {
        return name == variable || name.find(u'.') != std::u16string::npos;
    });
    expectEqual(getMethodsForWSVariable(variable, object, selector), methods, "methods after the variable" + what);
}

/// A value that answers for itself.
void askForOpaque(const Case& world) {
    Wides answers;
    for (std::size_t count = world.input.below(5); count > 0; --count) {
        answers.push_back(wide(world.input.oneOf(memberNames())));
    }
    const bool fails = world.input.once(4);
    for (const char* function : {"methods", "properties"}) {
        world.world.function(function, [&](const qxArray*) -> qxUniqueArray {
            if (fails) {
                throw 3;
            }
            std::vector<qxUniqueArray> texts;
            for (const std::u16string& name : answers) {
                texts.push_back(world.world.charRow(name));
            }
            return world.world.cellOf(std::move(texts));
        });
    }
    constexpr bool addsReference = false;
    const qxSharedArray value(
        (world.input.once(2) ? world.world.opaque("strange") : world.world.olderObject("older")).release(),
        addsReference);
    expect(isObjectOrIsOpaque(value.get()), "opaque or older");
    const Wides expected = fails ? Wides() : answers;
    Wides names;
    getOpaqueObjectMethods(value.get(), names);
    expectEqual(names, expected, "methods of an opaque value");
    names.clear();
    getOpaqueObjectProperties(value.get(), names);
    expectEqual(names, expected, "properties of an opaque value");
    names = {u"kept"};
    expectEqual(ZELKIntrospection::callFunctionOnObject(value.get(), "methods", names), !fails,
                "whether the call succeeds");
    expect(!ZELKIntrospection::callFunctionOnObject(value.get(), "unknown", names), "no call of nothing");

    const std::u16string variable = wide(world.input.oneOf(memberNames()));
    Wides offered = expected;
    std::erase_if(offered, [&](const std::u16string& name) {
        return name == variable || name.find(u'.') != std::u16string::npos || RecordRules::isOperator(narrow(name));
    });
    expectEqual(getMethodsForWSVariable(variable, value, 1), offered, "methods after an opaque variable");
    world.world.function("methods", noAnswer);
    world.world.function("properties", noAnswer);
}

void askForFunctions(const Case& world) {
    world.world.javaMember("java.lang.Text", "valueOf");
    world.world.javaMember("java.lang.Text", "other", "strange");
    const std::pair<const char16_t*, bool> functions[] = {{u"java.lang.Text.valueOf", true},
                                                          {u"java.lang.Text.other", false},
                                                          {u"java.lang.Text.", false},
                                                          {u".valueOf", false},
                                                          {u"valueOf", false},
                                                          {u"", false},
                                                          {u"java.lang.valueOf", false},
                                                          {u"java.lang.Text.valueOf.", false}};
    for (const auto& [name, expected] : functions) {
        expectEqual(IsJavaFunction(name), expected, "a Java function: " + shown(std::u16string(name)));
    }
    world.world.documentedBuiltins({u"sine", u"cosine", u"sine"});
    const std::unordered_set<std::u16string> builtins = getBuiltinFunctionNames();
    expect(builtins == std::unordered_set<std::u16string>{u"sine", u"cosine"}, "documented built-in functions");

    // What a function declares, where the switch lets the scope decide.
    world.world.functionMetadata("declared", nullptr, world.world.number(1), nullptr);
    if (!world.scopes.empty()) {
        world.world.functionMetadata("declared", world.scopes.front(), world.world.number(2), world.world.number(3));
    }
    const std::string& file = world.input.oneOf(fileNames());
    const auto answer = ZELKContextData::getArgumentBlockMetadata(wide(file), u"declared");
    const bool isScoped =
        world.model.resolvesInContext && !world.model.scopes.empty() && world.model.scopes.front().file == file;
    expect(answer.first != nullptr && (answer.second != nullptr) == isScoped, "what a function declares");
    expectEqual(*qxGetDoubles(answer.first.get()), isScoped ? 2.0 : 1.0, "the first array");
    expectEqual(static_cast<const void*>(answer.scope),
                static_cast<const void*>(isScoped ? world.scopes.front() : nullptr), "the scope");
    expect(ZELKContextData::getArgumentBlockMetadata(wide(file), u"unknown").first == nullptr, "an unknown function");
}

}  // namespace

void askAboutValues(const Case& world) {
    askForTexts(world);
    askForSize(world);
    askForPlainSizes(world);
    askForFields(world);
    askForObject(world);
    askForOpaque(world);
    askForFunctions(world);
}

}  // namespace fuzz
