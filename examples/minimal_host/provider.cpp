// What the conformance suite asks this host about. What is not supplied here is what `minimal_host.lacks` lists.
#include "tests/conformance/suite/provider.h"

#include <utility>

#include "data.h"

namespace {

using conformance::ValueKind;
using minimal_host::Content;
using minimal_host::make;
using minimal_host::shared;

qxUniqueArray number(double value) { return make({.numbers = {value}}); }

class MinimalProvider final : public conformance::Provider {
public:
    ~MinimalProvider() override { minimal_host::forgetEverything(); }

    std::string hostName() const override { return "minimal"; }

    qxUniqueArray value(ValueKind kind) override {
        switch (kind) {
            case ValueKind::doubleScalar:
                return number(2.5);
            case ValueKind::doubleRow:
                return make({.extents = {1, 3}, .numbers = {1, 2, 3.5}});
            case ValueKind::doubleMatrix:
                return make({.extents = {2, 3}});
            case ValueKind::emptyDouble:
                return make({.extents = {0, 0}});
            case ValueKind::logicalTrue:
                return make({.kind = qxClassID::logical, .numbers = {1}});
            case ValueKind::logicalFalse:
                return make({.kind = qxClassID::logical});
            case ValueKind::logicalRow:
                return make({.kind = qxClassID::logical, .extents = {1, 2}, .numbers = {1, 1}});
            case ValueKind::text:
                return qxCreateString(u"some text");
            case ValueKind::cell:
                return cell();
            case ValueKind::structure:
                return make(
                    {.kind = qxClassID::structure,
                     .fields = {{"alpha", shared(number(2.5))}, {"beta", shared(qxCreateString(u"some text"))}}});
            default:
                return nullptr;
        }
    }
    std::optional<conformance::WatchedValue> watchedValue() override {
        qxUniqueArray value = number(1);
        return conformance::WatchedValue{
            std::move(value), [before = minimal_host::valuesAlive()] { return minimal_host::valuesAlive() >= before; }};
    }
    std::optional<conformance::PropertySubject> objectWithProperty() override {
        minimal_host::define(minimal_host::Class{.name = "Purse", .properties = {"amount"}});
        return conformance::PropertySubject{minimal_host::makeObject("Purse", {{"amount", shared(number(2.5))}}),
                                            "amount"};
    }

    std::string makeClass(const conformance::ClassSketch& sketch) override {
        minimal_host::Class cls{.name = sketch.name, .superclasses = sketch.superclasses};
        for (const conformance::MethodSketch& method : sketch.methods) {
            cls.methods.push_back({method.name, method.isStatic});
        }
        cls.properties = sketch.properties;
        minimal_host::define(cls);
        return sketch.name;
    }
    std::optional<conformance::MemberSubject> memberWith(conformance::MemberTrait trait) override {
        if (trait != conformance::MemberTrait::untypedProperty) {
            return std::nullopt;
        }
        minimal_host::define(minimal_host::Class{.name = "Purse", .properties = {"amount"}});
        return conformance::MemberSubject{"Purse", "amount"};
    }
    qxUniqueArray object(const std::string& className) override { return minimal_host::makeObject(className, {}); }
    std::optional<conformance::NamespaceSubject> filledNamespace() override {
        minimal_host::define(minimal_host::Class{.name = "bank.Account"});
        minimal_host::define(minimal_host::Namespace{.name = "bank.inner"});
        minimal_host::define(minimal_host::Namespace{"bank", {"bank.Account"}, {"open"}, {"bank.inner"}});
        return conformance::NamespaceSubject{"bank", {"bank.Account"}, {"open"}, {"bank.inner"}};
    }

    bool setVariable(const std::string& name, ValueKind kind) override {
        minimal_host::assign(name, shared(value(kind)));
        return true;
    }
    std::optional<conformance::ExpressionSubject> expressions() override {
        minimal_host::assign("known", shared(number(2.5)));
        return conformance::ExpressionSubject{u"known", u"unknown"};
    }
    bool print(const std::u16string& text, bool isError) override {
        minimal_host::print(text, isError);
        return true;
    }

private:
    static qxUniqueArray cell() {
        qxUniqueArray made = qxCreateCell(1, 2);
        qxSetCell(made.get(), 0, qxCreateString(u"first"));
        qxSetCell(made.get(), 1, number(2.5));
        return made;
    }
};

}  // namespace

std::unique_ptr<conformance::Provider> conformance::makeProvider() { return std::make_unique<MinimalProvider>(); }
