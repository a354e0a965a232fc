// The identity of a class.
#include <memory>

#include "contextdata/resolved_class_id.h"
#include "tests/faults/function_table.h"

namespace faults {

using ZELKContextData::ResolvedClassID;
using BadClassNameException = ResolvedClassID::BadClassNameException;

namespace {

const std::string narrowAccount = "banking.retail.Account";
const std::string qualified = "p:banking.retail.Account";
const std::u16string wideQualified = u"p:banking.retail.Account";
const std::u16string shown = u"Shown";
const std::u16string noName;
const BadClassNameException unknownClass("a.class.that.nobody.knows");

ResolvedClassID resolved(const std::string& name) { return ResolvedClassID::fromKnownResolvedClassID(name); }

/// Asks an identity, made before, something.
template <class Call>
Question asksIdentity(Call call) {
    return [call](Scene&, Caller& caller) {
        const ResolvedClassID id = resolved(qualified);
        return told(caller([&] { return call(id); }));
    };
}

std::vector<Row> resolutionRows() {
    const Question inFile = asks([](Scene&, Caller&) { return ResolvedClassID(file, shown); });
    const Question inScope = asks(
        [](Scene& scene, Caller&) { return ResolvedClassID(static_cast<const FunctionScope*>(scene.scope), shown); });
    const Question ofNoName = asks([](Scene&, Caller&) { return ResolvedClassID(file, noName); });
    using enum Service;
    return {
        Row("ZELKContextData::ResolvedClassID::ResolvedClassID(u16string const&, u16string const&)", {importInFile},
            inFile, guarded("Shown").at({toString}, passes()).null({getFunctionScope}, "nothing"))
            .also({importInFocus}, inFile,
                  guarded("Shown")
                      .at({toString}, passes())
                      .null({getInterpreterBridge, {getFunctionScope, 2}}, "nothing"))
            .also({importInExecution}, inFile,
                  guarded("Shown").at({toString}, passes()).null({getCurrentlyExecutingFunctionScope}, "nothing"))
            .also({nothing, bank}, inFile, guarded("Shown").at({toString}, passes()))
            .also({importInFile}, ofNoName, passes()),
        Row("ZELKContextData::ResolvedClassID::ResolvedClassID(FunctionScope const*, u16string const&)", {importInFile},
            inScope, passes().at({omResolveAnyClass, makeInterned}, guarded("Shown")))
            .also({nothing, bank}, inScope, passes()),
        Row("ZELKContextData::ResolvedClassID::ResolvedClassID(qxArray const*)", {bank, undefinedAccount, matrix},
            asks([](Scene& scene, Caller&) { return ResolvedClassID(scene.value.get()); }), passes()),
        Row("ZELKContextData::ResolvedClassID::GetDebuggerFocus()", {nothing, debuggerStopped, noInterpreter},
            asks([](Scene&, Caller&) { return ResolvedClassID::GetDebuggerFocus(); }),
            passes().null({getInterpreterBridge}, ":0:0")),
        Row("ZELKContextData::ResolvedClassID::fromKnownResolvedClassID(string const&)", {nothing},
            asks([](Scene&, Caller&) { return ResolvedClassID::fromKnownResolvedClassID(narrowAccount); }), passes()),
        Row("ZELKContextData::ResolvedClassID::fromKnownResolvedClassID(u16string const&)", {nothing},
            asks([](Scene&, Caller&) { return ResolvedClassID::fromKnownResolvedClassID(account); }), passes()),
        Row("ZELKContextData::ResolvedClassID::fromKnownResolvedClassID(zelk::COSInternedID const&)", {nothing},
            asksIdentity([](const ResolvedClassID& id) { return ResolvedClassID::fromKnownResolvedClassID(id.get()); }),
            passes()),
        Row("ZELKContextData::ResolvedClassID::fromLegacyString(string const&)", {bank, undefinedAccount, nothing},
            asks([](Scene&, Caller&) { return ResolvedClassID::fromLegacyString(narrowAccount); }),
            passes().null({getClass, classGetDefinition}, "unknown class banking.retail.Account")),
        Row("ZELKContextData::ResolvedClassID::fromLegacyString(u16string const&)", {bank, undefinedAccount, nothing},
            asks([](Scene&, Caller&) { return ResolvedClassID::fromLegacyString(account); }),
            passes().null({getClass, classGetDefinition}, "unknown class banking.retail.Account")),
    };
}

std::vector<Row> nameRows() {
    return {
        Row("ZELKContextData::ResolvedClassID::isAlreadyResolved(string const&)", {nothing},
            asks([](Scene&, Caller&) { return ResolvedClassID::isAlreadyResolved(qualified); }), passes()),
        Row("ZELKContextData::ResolvedClassID::isAlreadyResolved(u16string const&)", {nothing},
            asks([](Scene&, Caller&) { return ResolvedClassID::isAlreadyResolved(wideQualified); }), passes()),
        Row("ZELKContextData::ResolvedClassID::getComponentQualifiedName() const", {nothing},
            asksIdentity([](const ResolvedClassID& id) { return id.getComponentQualifiedName(); }), passes()),
        Row("ZELKContextData::ResolvedClassID::getNonComponentQualifiedName() const", {nothing},
            asksIdentity([](const ResolvedClassID& id) { return id.getNonComponentQualifiedName(); }), passes()),
    };
}

std::vector<Row> exceptionRows() {
    return {
        Row("ZELKContextData::ResolvedClassID::BadClassNameException::BadClassNameException(string)", {nothing},
            asks([](Scene&, Caller&) { return BadClassNameException(unknownClass.getBadClassName()); }), passes()),
        Row("ZELKContextData::ResolvedClassID::BadClassNameException::BadClassNameException("
            "ZELKContextData::ResolvedClassID::BadClassNameException const&)",
            {nothing}, asks([](Scene&, Caller&) { return BadClassNameException(unknownClass); }), passes()),
        // The move cannot fail: the host's base, which it copies, holds no text in an exception of this library.
        Row(
            "ZELKContextData::ResolvedClassID::BadClassNameException::BadClassNameException("
            "ZELKContextData::ResolvedClassID::BadClassNameException&&)",
            {nothing},
            [](Scene&, Caller& caller) {
                BadClassNameException source(unknownClass);
                return told(caller([&] { return BadClassNameException(std::move(source)); }));
            },
            passes()),
        Row(
            "ZELKContextData::ResolvedClassID::BadClassNameException::~BadClassNameException()", {nothing},
            [](Scene&, Caller& caller) {
                auto exception = std::make_unique<BadClassNameException>(unknownClass);
                caller([&] { exception.reset(); });
                return std::string("gone");
            },
            passes()),
        Row(
            "ZELKContextData::ResolvedClassID::BadClassNameException::clone() const", {nothing},
            [](Scene&, Caller& caller) {
                const std::unique_ptr<const boost::exception_detail::clone_base> clone(
                    caller([] { return unknownClass.clone(); }));
                return told(dynamic_cast<const BadClassNameException&>(*clone));
            },
            passes()),
        Row(
            "ZELKContextData::ResolvedClassID::BadClassNameException::rethrow() const", {nothing},
            [](Scene&, Caller& caller) -> std::string {
                caller([] { unknownClass.rethrow(); });
                return "nothing was thrown";
            },
            passes()),
    };
}

}  // namespace

std::vector<Row> identityRows() {
    std::vector<Row> rows = resolutionRows();
    for (const auto part : {nameRows, exceptionRows}) {
        for (Row& row : part()) {
            rows.push_back(std::move(row));
        }
    }
    return rows;
}

}  // namespace faults
