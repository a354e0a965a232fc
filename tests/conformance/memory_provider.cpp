// The in-memory host in the conformance suite.
#include <gtest/gtest.h>

#include <string>
#include <utility>

#include "host/exceptions.h"
#include "hosts/memory/world.h"
#include "tests/conformance/suite/provider.h"

namespace {

using conformance::ClassTrait;
using conformance::MemberSubject;
using conformance::MemberTrait;
using conformance::ValueKind;
using memory_host::World;

class MemoryProvider final : public conformance::Provider {
public:
    MemoryProvider() {
        memory_host::setLeakReporter([](const std::string& report) { ADD_FAILURE() << report; });
        world_.function("properties", [this](const qxArray* /*argument*/) { return world_.cell({u"amount"}); });
        world_.function("methods", [this](const qxArray* /*argument*/) { return world_.cell({u"work"}); });
        world_.function("interrupted", [](const qxArray* /*argument*/) -> qxUniqueArray {
            throw foundation::core::except::InterruptException();
        });
    }

    std::string hostName() const override { return "memory"; }

    qxUniqueArray value(ValueKind kind) override {
        switch (kind) {
            case ValueKind::doubleScalar:
                return world_.number(2.5);
            case ValueKind::doubleRow:
                return world_.doubles({1, 3}, {1, 2, 3.5});
            case ValueKind::doubleMatrix:
                return world_.doubles({2, 3});
            case ValueKind::emptyDouble:
                return world_.doubles({0, 0});
            case ValueKind::logicalTrue:
                return world_.logical(true);
            case ValueKind::logicalFalse:
                return world_.logical(false);
            case ValueKind::logicalRow:
                return logicalRow();
            case ValueKind::text:
                return world_.charRow(u"some text");
            case ValueKind::missingText:
                return world_.missingString();
            case ValueKind::textMatrix:
                return world_.charMatrix(2, 3);
            case ValueKind::cell:
                return cell();
            case ValueKind::structure:
                return structure();
            case ValueKind::functionHandle:
                return world_.functionHandle();
            case ValueKind::opaque:
                return world_.opaque("java.lang.Thing");
            case ValueKind::olderObject:
                return world_.olderObject("older.Thing");
        }
        return nullptr;
    }

    std::optional<conformance::WatchedValue> watchedValue() override {
        qxUniqueArray value = world_.number(1);
        // Nobody else lets a value with just this shape go meanwhile.
        return conformance::WatchedValue{
            std::move(value), [this, before = world_.valuesAlive()] { return world_.valuesAlive() >= before; }};
    }

    std::optional<conformance::PropertySubject> objectWithProperty() override {
        world_.cls("bank.Purse").property("amount");
        qxUniqueArray object = world_.object("bank.Purse");
        world_.setProperty(object, "amount", world_.number(2.5));
        return conformance::PropertySubject{std::move(object), "amount"};
    }

    std::u16string textBeyondAscii() override { return u"Gr\u00f6\u00dfe \U0001F600"; }

    std::string makeClass(const conformance::ClassSketch& sketch) override {
        const std::string name = "sketched." + sketch.name;
        memory_host::ClassBuilder cls = world_.cls(name);
        for (const std::string& superclass : sketch.superclasses) {
            cls.derives(superclass);
        }
        for (const conformance::MethodSketch& method : sketch.methods) {
            cls.method(method.name).isStatic(method.isStatic);
        }
        for (const std::string& property : sketch.properties) {
            cls.property(property);
        }
        return name;
    }

    std::string makeEnumeration(const std::string& name, const std::vector<std::string>& members) override {
        for (const std::string& member : members) {
            world_.cls("sketched." + name).enumerationMember(member);
        }
        return "sketched." + name;
    }

    qxUniqueArray object(const std::string& className) override { return world_.object(className); }

    std::string classWith(ClassTrait trait) override {
        memory_host::ClassBuilder cls = world_.cls("traits.Class");
        switch (trait) {
            case ClassTrait::undefined:
                cls.undefined();
                break;
            case ClassTrait::hidden:
                cls.hidden();
                break;
            case ClassTrait::withholding:
                cls.withholdsOwnMembers();
                break;
            case ClassTrait::dynamicProperties:
                cls.hasDynamicProperties();
                break;
        }
        return "traits.Class";
    }

    std::optional<MemberSubject> memberWith(MemberTrait trait) override {
        if (trait == MemberTrait::hiddenEnumerationMember) {
            world_.cls("traits.Class").enumerationMember("member").hiddenMember();
            return MemberSubject{"traits.Class", "member"};
        }
        const std::vector<std::string> texts = isOfMethods(trait) ? methodWith(trait) : propertyWith(trait);
        return MemberSubject{"traits.Class", "member", texts};
    }

    std::optional<std::pair<std::string, std::string>> legacyName() override {
        world_.cls("modern.Name");
        world_.legacyName("older.Name", "modern.Name");
        return std::pair{"older.Name", "modern.Name"};
    }

    std::optional<conformance::NamespaceSubject> filledNamespace() override {
        world_.cls("bank.Account");
        world_.ns("bank").holdsClass("bank.Account").function("open").holdsNamespace("bank.inner");
        return conformance::NamespaceSubject{"bank", {"bank.Account"}, {"open"}, {"bank.inner"}};
    }

    std::optional<std::pair<std::string, std::string>> precedence() override {
        world_.cls("ranks.First");
        world_.cls("ranks.Second");
        world_.precedes("ranks.First", "ranks.Second");
        return std::pair{"ranks.First", "ranks.Second"};
    }

    std::optional<conformance::ScopeSubject> scope() override {
        world_.cls("bank.Account");
        world_.imports(world_.scope(u"/code/file"), "Shortened", "bank.Account");
        return conformance::ScopeSubject{u"/code/file", "Shortened", "bank.Account"};
    }

    std::optional<std::pair<std::string, std::string>> qualifiedName() override {
        return std::pair{"package:bank.Account", "bank.Account"};
    }

    bool hasFileSystem() override { return true; }
    bool workIn(const std::filesystem::path& folder) override {
        world_.workingFolder(folder.u16string());
        return true;
    }
    bool searchIn(const std::vector<std::filesystem::path>& folders) override {
        for (const std::filesystem::path& folder : folders) {
            world_.searchPathEntry(folder.u16string());
        }
        return true;
    }
    bool searchPrivatelyIn(const std::filesystem::path& folder) override {
        world_.searchPathEntry(folder.u16string(), 3);
        return true;
    }

    bool setVariable(const std::string& name, ValueKind kind) override {
        world_.variable(name, value(kind));
        return true;
    }
    std::optional<conformance::ExpressionSubject> expressions() override {
        world_.variable("known", world_.number(2.5));
        return conformance::ExpressionSubject{u"known", u"unknown_variable"};
    }
    std::u16string interruptedExpression() override {
        world_.variable("known", world_.number(2.5));
        world_.evaluatedBy([](const memory_host::Evaluation& /*asked*/, qxArray** /*outputs*/) -> inExecutionStatus {
            throw foundation::core::except::InterruptException();
        });
        return u"known";
    }
    std::optional<conformance::FunctionCallSubject> interruptedFunction() override {
        return conformance::FunctionCallSubject{"interrupted", world_.number(1)};
    }
    std::optional<conformance::MethodCallSubject> callableMethod() override {
        world_.cls("bank.Purse").answers("count", [this](const qxArray* /*object*/) { return world_.number(2.5); });
        return conformance::MethodCallSubject{world_.object("bank.Purse"), "count"};
    }
    std::string declaringFunction() override {
        world_.functionMetadata("declared", nullptr, world_.cell({u"first"}), world_.cell({u"named"}));
        return "declared";
    }
    std::u16string documentedBuiltin() override {
        world_.documentedBuiltins({u"sine"});
        return u"sine";
    }
    bool print(const std::u16string& text, bool isError) override {
        isError ? world_.printError(text) : world_.print(text);
        return true;
    }
    std::u16string stopDebugger() override {
        world_.debuggerStoppedAt(u"/code/stopped", 3, 4);
        return u"/code/stopped";
    }

    std::optional<std::pair<std::string, std::string>> javaMember() override {
        world_.javaMember("java.lang.Text", "valueOf");
        return std::pair{"java.lang.Text", "valueOf"};
    }

private:
    qxUniqueArray cell() {
        std::vector<qxUniqueArray> elements;
        elements.push_back(world_.charRow(u"first"));
        elements.push_back(world_.number(2.5));
        return world_.cellOf(std::move(elements));
    }

    qxUniqueArray logicalRow() {
        qxUniqueArray made = world_.logical(true);
        world_.reshape(made.get(), {1, 2});
        return made;
    }

    qxUniqueArray structure() {
        qxUniqueArray made = world_.structure();
        world_.setField(made, "alpha", world_.number(2.5));
        world_.setField(made, "beta", world_.charRow(u"some text"));
        return made;
    }

    static bool isOfMethods(MemberTrait trait) { return trait <= MemberTrait::overloadedMethod; }

    /// Both build the member "member" of the class "traits.Class", and answer the texts that come with it.
    std::vector<std::string> methodWith(MemberTrait trait) {
        memory_host::ClassBuilder cls = world_.cls("traits.Class");
        cls.method("member");
        switch (trait) {
            case MemberTrait::unlistableMethod:
                cls.unlistable();
                break;
            case MemberTrait::hiddenMethod:
                cls.visibility(0);
                break;
            case MemberTrait::restrictedMethod:
                cls.access(1).openTo("traits.Friend").openTo("traits.Other");
                return {"traits.Friend", "traits.Other"};
            case MemberTrait::privateMethod:
                cls.access(2);
                break;
            default:
                cls.method("member");
                break;
        }
        return {};
    }

    std::vector<std::string> propertyWith(MemberTrait trait) {
        memory_host::ClassBuilder cls = world_.cls("traits.Class");
        cls.property("member");
        switch (trait) {
            case MemberTrait::constantProperty:
                cls.setAccess(5);
                break;
            case MemberTrait::readOnlyProperty:
                cls.readOnly();
                break;
            case MemberTrait::unlistableProperty:
                cls.unlistable();
                break;
            case MemberTrait::hiddenProperty:
                cls.visibility(0);
                break;
            case MemberTrait::restrictedProperty:
                cls.getAccess(1).setAccess(1).readableBy("traits.Friend");
                return {"traits.Friend"};
            case MemberTrait::typedProperty:
                cls.dataType("double");
                return {"double"};
            case MemberTrait::validatedProperty:
                cls.validation("double", {"1", ":"}, {"mustBePositive"});
                return {"double", "1", ":", "|", "mustBePositive"};
            case MemberTrait::listedProperty:
                cls.dataType("Colour").textValue("red").textValue("green");
                return {"red", "green"};
            case MemberTrait::convertedProperty:
                world_.convertsToAny("Number", [](const std::string& raw) { return "number " + raw; });
                cls.dataType("Number").rawValue("1").rawValue("2");
                return {"number 1", "number 2"};
            case MemberTrait::computedProperty:
                cls.customGetter();
                break;
            case MemberTrait::storedProperty:
                cls.stored(true);
                break;
            case MemberTrait::attributedProperty:
                cls.attribute("marked", "logical scalar", world_.logical(true));
                return {"marked"};
            default:
                break;
        }
        return {};
    }

    World world_;
};

}  // namespace

std::unique_ptr<conformance::Provider> conformance::makeProvider() { return std::make_unique<MemoryProvider>(); }
