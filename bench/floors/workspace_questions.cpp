// Values behind what somebody typed, silent evaluation, and the methods of a variable's value.
#include <algorithm>
#include <memory>
#include <set>
#include <string_view>
#include <unordered_set>

#include "bench/floors/questions.h"
#include "bench/floors/silent_evaluation.h"
#include "contextdata/exclusion_tables.h"
#include "contextdata/workspace.h"
#include "contextdata/workspace_methods.h"
#include "host/class_objects.h"
#include "host/class_system.h"
#include "host/dispatcher.h"
#include "host/evaluation.h"
#include "host/i18n.h"
#include "host/interpreter.h"
#include "host/text.h"

namespace bench {

namespace {

constexpr fl::i18n::codecvt_ustring_to_ascii narrowing(false);
constexpr fl::i18n::codecvt_ascii_to_ustring widening(false);

const std::u16string fields = u"s.a.b.c";
const std::u16string property = u"account.balance";
const std::u16string foreignField = u"text.bytes";
const std::u16string indexed = u"t(2).a";

std::string narrow(const std::u16string& text) { return fl::i18n::to_string(text, narrowing); }

std::string takeName(std::string_view& rest) {
    std::string name(rest.substr(0, qxCountNameCharacters(rest)));
    rest.remove_prefix(name.size());
    return name;
}

/// A chain might name a function of Java, which is looked for first.
bool mayBeJava(const std::string& text) {
    return qxCreateClassArray(text.substr(0, text.rfind('.')).c_str()) != nullptr;
}

/// The steps of a chain by hand; `step` leads from a value to its member.
template <class Step>
qxSharedArray follow(const std::u16string& chain, Step step) {
    if (mayBeJava(narrow(chain))) {
        return {};
    }
    const std::string text = narrow(chain);
    std::string_view rest = text;
    qxSharedArray value = inGetValueFromCurrentWorkspace(takeName(rest));
    while (!rest.empty()) {
        rest.remove_prefix(1);
        value = step(value.get(), takeName(rest));
    }
    return value;
}

qxSharedArray shared(qxArray* value) {
    qxSetArrayScope(value, qxArrayScope::none);
    return {value, false};
}

qxSharedArray fieldOf(const qxArray* value, const std::string& name) {
    if (!qxIsScalar(value) || qxGetClassID(value) != qxClassID::structure) {
        return {};
    }
    return qxGetField(value, 0, name.c_str());
}

/// Methods come first, and lead nowhere.
qxSharedArray propertyOf(const qxArray* value, const std::string& name) {
    if (!qxIsScalar(value) || qxGetClassID(value) == qxClassID::structure) {
        return {};
    }
    zelk::COSClass* cls = zelk::COSClass::getClass(omGetCOSClassID(value));
    const zelk::COSInternedID id = zelk::internal::makeInterned(name);
    if (cls->getDefinition(false) == nullptr || cls->findMethods(id)->hasMoreElements() || !cls->findProperty(id)) {
        return {};
    }
    return shared(qxGetPropertyShared(value, 0, name.c_str()));
}

Names textsOf(const qxArray* value, const char* function) {
    qxArray* output = nullptr;
    inCallFcn(1, &output, 1, &value, function);
    const qxUniqueArray answer(output);
    const std::size_t count = qxGetNumberOfElements(answer.get());
    Names texts;
    texts.reserve(count);
    for (std::size_t index = 0; index < count; ++index) {
        const qxArray* element = qxGetCell(answer.get(), index);
        if (isNonMissingScalarText(element)) {
            texts.push_back(getScalarText(element));
        }
    }
    return texts;
}

bool lists(const qxArray* value, const char* function, const std::u16string& name) {
    const Names texts = textsOf(value, function);
    return std::find(texts.begin(), texts.end(), name) != texts.end();
}

qxSharedArray foreignFieldOf(const qxArray* value, const std::string& name) {
    if (!qxIsScalar(value) || zelk::COSClass::getClass(omGetCOSClassID(value)) != nullptr) {
        return {};
    }
    const std::u16string wide = fl::i18n::to_ustring(name, widening);
    if (lists(value, "methods", wide) || !lists(value, "fieldnames", wide)) {
        return {};
    }
    return shared(qxGetPropertyShared(value, 0, name.c_str()));
}

qxSharedArray evaluatedByHand() { return {evaluatedSilently(indexed, false).release(), false}; }

/// The first name is a variable, the rest is no name: the whole text is evaluated.
qxSharedArray walkedAndEvaluated() {
    const std::string text = narrow(indexed);
    std::string_view rest = text;
    if (mayBeJava(narrow(indexed)) || !inGetValueFromCurrentWorkspace(takeName(rest))) {
        return {};
    }
    qxSharedArray value = evaluatedByHand();
    qxSetArrayScope(const_cast<qxArray*>(value.get()), qxArrayScope::none);
    return value;
}

qxSharedArray evaluatedByLibrary() {
    qxArray* value = nullptr;
    EvalcExpSuccessful(indexed, 1, &value, false);
    return {value, false};
}

std::int32_t floorPrecedence(const std::u16string& first, const std::u16string& second) {
    ObjectSystem& objects = Dispatcher::getDispatcher().getObjectSystem();
    const std::int32_t one = objects.getClassNumber(narrow(first));
    const std::int32_t other = objects.getClassNumber(narrow(second));
    return objects.hasPrecedenceOver(one, other) ? -1 : objects.hasPrecedenceOver(other, one) ? 1 : 0;
}

/// The methods of an object that are not static, each name once, from a walk over its class.
Names floorObjectMethods(const std::u16string& variable, const qxArray* value) {
    class Visitor final : public zelk::COSVisitor<zelk::COSInterface*> {
    public:
        Visitor(const std::u16string& variable, Names& names) : variable_(variable), names_(names) {}
        void visit(zelk::COSInterface* node) override {
            const zelk::COSMethodInfo* method = zelk::cosiToMethod(node);
            const std::string_view name = method->getName();
            const std::string_view cls = zelk::cosiClassOfMember(node)->getName();
            if (cls.ends_with(name) && cls.substr(0, cls.size() - name.size()).ends_with('.')) {
                return;  // a constructor
            }
            std::u16string wide = fl::i18n::to_ustring(name, widening);
            if (seen_.insert(name.data()).second && !method->isStatic() && method->isListable() &&
                method->getAccess() == zelk::publicAccess && wide != variable_ &&
                wide.find(u'.') == std::u16string::npos) {
                names_.push_back(std::move(wide));
            }
        }

    private:
        const std::u16string& variable_;
        Names& names_;
        std::unordered_set<const char*> seen_;
    };
    Names names;
    zelk::COSClass* cls = zelk::COSClass::getClass(omGetCOSClassID(value));
    if (cls->getDefinition(false) != nullptr) {
        names.reserve(32);
        Visitor visitor(variable, names);
        cls->visitMethods(visitor);
    }
    return names;
}

/// The methods of a foreign value, less operators, qualified names and the variable's own.
Names floorForeignMethods(const std::u16string& variable, const qxArray* value) {
    static const std::set<std::u16string> operators = ZELKContextData::getZELKMethodsExcludeSet();
    Names methods = textsOf(value, "methods");
    std::erase_if(methods, [&](const std::u16string& name) {
        return name == variable || operators.contains(name) || name.find(u'.') != std::u16string::npos;
    });
    return methods;
}

qxUniqueArray structureWith(memory_host::World& world, std::string_view field, qxUniqueArray value) {
    qxUniqueArray structure = world.structure();
    world.setField(structure, field, std::move(value));
    return structure;
}

void fillWorkspace(memory_host::World& world) {
    world.variable("s",
                   structureWith(world, "a", structureWith(world, "b", structureWith(world, "c", world.number(1)))));
    qxUniqueArray several = world.structure({1, 2});
    world.setField(several, "a", world.number(1), 0);
    world.setField(several, "a", world.number(2), 1);
    world.variable("t", std::move(several));

    world.cls("workspace.Account").property("balance").method("deposit");
    world.cls("workspace.Foundation");
    world.precedes("workspace.Foundation", "workspace.Account");
    qxUniqueArray account = world.object("workspace.Account");
    world.setProperty(account, "balance", world.number(7));
    world.variable("account", std::move(account));

    world.function("methods", [&world](const qxArray*) {
        return world.cell({u"length", u"plus", u"trimEverything", u"java.qualified"});
    });
    world.function("properties", [&world](const qxArray*) { return world.cell({u"bytes", u"characterSet"}); });
    world.function("fieldnames", [&world](const qxArray*) { return world.cell({u"bytes"}); });
    qxUniqueArray text = world.opaque("java.lang.String");
    world.setProperty(text, "bytes", world.number(7));
    world.variable("text", std::move(text));
}

}  // namespace

std::vector<Question> workspaceQuestions(memory_host::World& world) {
    fillWorkspace(world);
    const qxSharedArray text(world.opaque("java.lang.String").release(), false);
    for (int number = 0; number < 100; ++number) {
        world.cls("workspace.Crowd").method("methodOfNumber" + std::to_string(number)).isStatic(number % 4 == 3);
    }
    const qxSharedArray crowd(world.object("workspace.Crowd").release(), false);
    const std::u16string account = u"workspace.Account";
    const std::u16string foundation = u"workspace.Foundation";
    return {
        question(
            "chain walks", "s.a.b.c, through structures", 1, [] { return GetValueFromCurrentWorkspace(fields); },
            [] { return follow(fields, fieldOf); }),
        question(
            "chain walks", "account.balance, of an object", 1, [] { return GetValueFromCurrentWorkspace(property); },
            [] { return follow(property, propertyOf); }),
        question(
            "chain walks", "text.bytes, of a foreign value", 1,
            [] { return GetValueFromCurrentWorkspace(foreignField); },
            [] { return follow(foreignField, foreignFieldOf); }),
        question(
            "chain walks", "t(2).a, which is evaluated", 1, [] { return GetValueFromCurrentWorkspace(indexed); },
            [] { return walkedAndEvaluated(); }),
        question("evaluation", "EvalcExpSuccessful, t(2).a", 1, evaluatedByLibrary, evaluatedByHand),
        question(
            "workspace", "GetClassPrecedence", 1, [=] { return GetClassPrecedence(account, foundation); },
            [=] { return floorPrecedence(account, foundation); }),
        question(
            "workspace", "getMethodsForWSVariable, of an object of 100 methods", 100,
            [crowd] { return getMethodsForWSVariable(u"text", crowd, 1); },
            [crowd] { return floorObjectMethods(u"text", crowd.get()); }),
        question(
            "workspace", "getMethodsForWSVariable, of a foreign value", 1,
            [text] { return getMethodsForWSVariable(u"text", text, 1); },
            [text] { return floorForeignMethods(u"text", text.get()); }),
    };
}

}  // namespace bench
