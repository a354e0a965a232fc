#include "tests/fuzz/model.h"

#include <algorithm>

namespace fuzz {

const std::vector<std::string>& classNames() {
    static const std::vector<std::string> names = {
        "A",
        "pkg.A",
        "pkg.B",
        "pkg.inner.C",
        "tools:pkg.D",
        "tools:E",
        "handle",
        "double",
        "uint16",
        "table",
        "tall",
        "gr\u00f6\u00dfe.F",
        "ostrel.mixin.internal.CustomSizeString",
        "ostrel.mixin.internal.indexing.DisallowCompletionOfDotMethodNames",
        // Older forms; no class bears them.
        "old.A",
        "old.B",
        "old.C",
        // No class at all.
        "missing",
        "pkg",
        "pkg.D",
        "a",
    };
    return names;
}

constexpr std::size_t canonicalNameCount = 14;
constexpr std::size_t olderNameCount = 3;

const std::vector<std::string>& memberNames() {
    static const std::vector<std::string> names = {
        "work",  "A",       "B",      "C",     "D", "E", "tools:E",
        "plus",  "ne",      "Plus",   "plus2", "x", "y", "gr\u00f6\u00dfe",
        "pkg.A", "valueOf", "handle",
    };
    return names;
}

const std::vector<std::string>& namespaceNames() {
    static const std::vector<std::string> names = {"pkg", "pkg.inner", "gr\u00f6\u00dfe", "empty", "nowhere"};
    return names;
}

const std::vector<std::string>& fileNames() {
    static const std::vector<std::string> names = {"/a.code", "/b.code", "/none"};
    return names;
}

namespace {

constexpr std::int32_t accessCodes[] = {0, 0, 1, 2, 3, 5};
constexpr const char* typeIDs[] = {"", "double", "Colour", "any", "logical scalar"};
constexpr const char* words[] = {"red", "green", "", "1", ":", "n", "gr\u00f6\u00dfe", "RVXGetSet", "Other"};

std::vector<std::string> someClassNames(Input& input) {
    std::vector<std::string> names;
    for (std::size_t count = input.below(3); count > 0; --count) {
        names.push_back(input.oneOf(classNames()));
    }
    return names;
}

std::vector<std::string> someWords(Input& input) {
    std::vector<std::string> some;
    for (std::size_t count = input.below(4); count > 0; --count) {
        some.emplace_back(input.oneOf(words));
    }
    return some;
}

ModelMethod method(Input& input) {
    ModelMethod made;
    made.name = input.oneOf(memberNames());
    made.isStatic = input.once(3);
    made.isListable = !input.once(5);
    made.access = input.oneOf(accessCodes);
    made.visibility = input.once(4) ? static_cast<std::int32_t>(input.below(4)) : 1;
    made.openTo = someClassNames(input);
    return made;
}

ModelType type(Input& input) {
    ModelType made;
    made.id = input.oneOf(typeIDs);
    if (input.once(3)) {
        made.validation = ModelValidation{input.oneOf(typeIDs), someWords(input), {}};
        if (input.once(2)) {
            made.validation->validators = someWords(input);
        }
    }
    if (input.once(2)) {
        made.values.emplace();
        for (std::size_t count = input.below(4); count > 0; --count) {
            made.values->push_back({input.oneOf(words), !input.once(3)});
        }
    }
    return made;
}

ModelProperty property(Input& input) {
    ModelProperty made;
    made.name = input.oneOf(memberNames());
    made.isListable = !input.once(5);
    made.isReadOnly = input.once(4);
    made.getAccess = input.oneOf(accessCodes);
    made.setAccess = input.oneOf(accessCodes);
    made.visibility = input.once(4) ? static_cast<std::int32_t>(input.below(4)) : 1;
    made.readableBy = someClassNames(input);
    made.writableBy = someClassNames(input);
    if (input.once(2)) {
        made.type = type(input);
    }
    if (input.once(3)) {
        made.extended = ModelExtended{input.once(2), {}};
        if (input.once(2)) {
            made.extended->isStored = input.once(2);
        }
    }
    for (std::size_t count = input.once(4) ? input.below(4) : 0; count > 0; --count) {
        made.attributes.push_back({input.oneOf(words), input.oneOf(typeIDs), input.once(2)});
    }
    std::erase_if(made.attributes, [](const ModelAttribute& attribute) { return attribute.name.empty(); });
    return made;
}

/// What the class derives from stands before it; what it merely lists may stand anywhere, or nowhere.
std::vector<ModelSuperclass> superclasses(Input& input, const std::vector<ModelClass>& before) {
    std::vector<ModelSuperclass> made;
    for (std::size_t count = input.below(4); count > 0; --count) {
        switch (input.below(8)) {
            case 0:
                made.push_back({"", false});
                break;
            case 1:
                made.push_back({input.oneOf(classNames()), false});
                break;
            default:
                if (!before.empty()) {
                    made.push_back({input.oneOf(before).name, true});
                }
        }
    }
    return made;
}

ModelClass classOf(Input& input, const std::string& name, const std::vector<ModelClass>& before) {
    ModelClass made;
    made.name = name;
    made.isDefined = !input.once(8);
    made.isHidden = input.once(4);
    made.withholds = input.once(8);
    made.hasDynamicProperties = input.once(3);
    made.superclasses = superclasses(input, before);
    for (std::size_t count = input.below(7); count > 0; --count) {
        made.methods.push_back(method(input));
    }
    for (std::size_t count = input.below(5); count > 0; --count) {
        made.properties.push_back(property(input));
    }
    for (std::size_t count = input.once(3) ? input.below(5) : 0; count > 0; --count) {
        made.enumeration.push_back({input.oneOf(memberNames()), input.once(4), input.once(8)});
    }
    for (auto& family : made.attributes) {
        for (std::size_t count = input.once(3) ? input.below(4) : 0; count > 0; --count) {
            const char* word = input.oneOf(words);
            family.emplace_back(word, input.once(3));
        }
    }
    return made;
}

void addClasses(Input& input, Model& model) {
    for (std::size_t count = input.below(7); count > 0; --count) {
        const std::string& name = classNames()[input.below(canonicalNameCount)];
        const bool isNew = std::none_of(model.classes.begin(), model.classes.end(),
                                        [&](const ModelClass& cls) { return cls.name == name; });
        if (isNew) {
            model.classes.push_back(classOf(input, name, model.classes));
        }
    }
    // Rarely something that no author writes: a deep chain, and a class with more members than anybody reads.
    if (input.once(32)) {
        for (std::size_t depth = 1 + input.below(200), level = 0; level < depth; ++level) {
            ModelClass link;
            link.name = "deep.C" + std::to_string(level);
            link.methods.push_back({"at" + std::to_string(level)});
            if (!model.classes.empty()) {
                link.superclasses.push_back({model.classes.back().name, true});
            }
            model.classes.push_back(std::move(link));
        }
    }
    if (!model.classes.empty() && model.classes.size() < 20 && input.once(64)) {
        // A fuzzer is fond of the largest bytes: what takes long must not hang on those.
        const std::size_t count = input.below(65536) == 0x1234 ? 100'000 : 300;
        for (std::size_t number = 0; number < count; ++number) {
            model.classes.front().methods.push_back({"m" + std::to_string(number % (count - 7))});
        }
    }
}

void addOlderNames(Input& input, Model& model) {
    for (std::size_t count = model.classes.empty() ? 0 : input.below(4); count > 0; --count) {
        const std::string& older = classNames()[canonicalNameCount + input.below(olderNameCount)];
        model.olderNames.emplace_back(older, input.oneOf(model.classes).name);
    }
}

void addNamespaces(Input& input, Model& model) {
    for (std::size_t index = 0; index + 1 < namespaceNames().size(); ++index) {
        if (!input.once(2)) {
            continue;
        }
        ModelNamespace space;
        space.name = namespaceNames()[index];
        for (const ModelClass& cls : model.classes) {
            if (model.classes.size() < 20 && input.once(3)) {
                space.classes.push_back(cls.name);
            }
        }
        for (std::size_t count = input.below(4); count > 0; --count) {
            space.functions.push_back(method(input));
        }
        // Of those that stand already, so that the order of the namespaces is that of the model.
        for (const ModelNamespace& other : model.namespaces) {
            if (input.once(2)) {
                space.namespaces.push_back(other.name);
            }
        }
        space.fillsListsWhenRead = input.once(3);
        space.hasForeignNodes = input.once(4);
        model.namespaces.push_back(std::move(space));
    }
}

void addScopes(Input& input, Model& model) {
    model.resolvesInContext = input.once(2);
    for (std::size_t count = input.below(3), index = 0; index < count; ++index) {
        ModelScope scope{fileNames()[index], {}};
        for (std::size_t imports = input.below(3); imports > 0; --imports) {
            const std::string& name = input.oneOf(classNames());
            scope.imports[name] = input.oneOf(classNames());
        }
        model.scopes.push_back(std::move(scope));
    }
    if (!model.scopes.empty() && input.once(3)) {
        model.executing = input.below(model.scopes.size());
    }
    if (input.once(3)) {
        model.stoppedIn = input.oneOf(fileNames());
    }
}

}  // namespace

Model makeModel(Input& input) {
    Model model;
    addClasses(input, model);
    addOlderNames(input, model);
    addNamespaces(input, model);
    addScopes(input, model);
    for (const char* type : typeIDs) {
        if (*type != 0 && input.once(2)) {
            model.convertibleTypes.insert(type);
        }
    }
    for (std::size_t count = model.classes.empty() ? 0 : input.below(4); count > 0; --count) {
        const std::string& first = input.oneOf(model.classes).name;
        model.precedences.emplace(first, input.oneOf(model.classes).name);
    }
    return model;
}

}  // namespace fuzz
