#include "contextdata/resolved_class_id.h"

#include "contextdata/identity/interning.h"
#include "host/class_objects.h"
#include "host/class_system.h"
#include "host/dispatcher.h"
#include "host/feature.h"
#include "host/i18n.h"
#include "host/interpreter.h"
#include "host/name_resolution.h"

namespace ZELKContextData {

using contextdata::identity::internName;
using foundation::core::except::InterruptException;
using zelk::COSInternedID;

namespace {

static_assert(sizeof(ResolvedClassID) == sizeof(void*), "an identity is one handle");

constexpr fl::i18n::codecvt_ustring_to_ascii asciiNarrowing(false);

/// Names that cannot begin a class name; the host is not asked about them.
bool isUnresolvable(const std::string& name) { return name.empty() || name.front() == '.'; }

const FunctionScope* scopeSeenFrom(const std::u16string& contextFile) {
    Dispatcher& dispatcher = Dispatcher::getDispatcher();
    if (const FunctionScope* scope = dispatcher.getFunctionScope(contextFile)) {
        return scope;
    }
    const std::u16string focusFile = ResolvedClassID::GetDebuggerFocus().fileName;
    if (const FunctionScope* scope = dispatcher.getFunctionScope(focusFile)) {
        return scope;
    }
    return dispatcher.GetCurrentlyExecutingFunctionScope();
}

COSInternedID resolveInScope(const std::string& name, const FunctionScope* scope) {
    return internName(zelk::nameresolution::omResolveAnyClass(name, scope));
}

/// Resolution is a service to the person who types: when the host fails at it, the name as typed is still the
/// best guess. Their interrupt is no such failure.
template <class Resolution>
COSInternedID resolveOrKeepName(const std::string& name, Resolution resolution) {
    try {
        return resolution();
    } catch (const InterruptException&) {
        throw;
    } catch (...) {
        return internName(name);
    }
}

COSInternedID resolveInContext(const std::u16string& contextFile, const std::string& name) {
    if (isUnresolvable(name)) {
        return {};
    }
    return resolveOrKeepName(name, [&] {
        return ComponentFeature::IsOn() ? resolveInScope(name, scopeSeenFrom(contextFile)) : internName(name);
    });
}

COSInternedID resolveInGivenScope(const FunctionScope* scope, const std::string& name) {
    if (isUnresolvable(name)) {
        return {};
    }
    if (!ComponentFeature::IsOn()) {
        return internName(name);
    }
    return resolveOrKeepName(name, [&] { return resolveInScope(name, scope); });
}

}  // namespace

ResolvedClassID::ResolvedClassID(const std::u16string& contextFile, const std::u16string& className)
    : id_(resolveInContext(contextFile, fl::i18n::to_string(className))) {}

ResolvedClassID::ResolvedClassID(const FunctionScope* scope, const std::u16string& className)
    : id_(resolveInGivenScope(scope, fl::i18n::to_string(className))) {}

ResolvedClassID::ResolvedClassID(const qxArray* value) : id_(omGetCOSClassID(value)) {}

ResolvedClassID ResolvedClassID::fromKnownResolvedClassID(const COSInternedID& id) noexcept {
    return ResolvedClassID(id);
}

ResolvedClassID ResolvedClassID::fromKnownResolvedClassID(const std::string& name) {
    return ResolvedClassID(internName(name));
}

ResolvedClassID ResolvedClassID::fromKnownResolvedClassID(const std::u16string& name) {
    return fromKnownResolvedClassID(fl::i18n::to_string(name, asciiNarrowing));
}

ResolvedClassID ResolvedClassID::fromLegacyString(const std::string& name) {
    zelk::COSClass* cls = zelk::COSClass::getClass(internName(name));
    if (cls == nullptr || cls->getDefinition(false) == nullptr) {
        throw BadClassNameException(name);
    }
    return ResolvedClassID(cls->getID());
}

ResolvedClassID ResolvedClassID::fromLegacyString(const std::u16string& name) {
    return fromLegacyString(fl::i18n::to_string(name, asciiNarrowing));
}

bool ResolvedClassID::isAlreadyResolved(const std::string& name) {
    return zelk::nameresolution::isSoftwarePackageQualifiedName(name);
}

bool ResolvedClassID::isAlreadyResolved(const std::u16string& name) {
    return isAlreadyResolved(fl::i18n::to_string(name, asciiNarrowing));
}

ResolvedClassID::DebuggerFocus ResolvedClassID::GetDebuggerFocus() {
    DebuggerFocus focus;
    IInterpreterBridge* bridge = IInterpreter::GetInterpreterBridge();
    if (bridge != nullptr && bridge->isDebuggerStopped()) {
        focus.fileName = bridge->getDebuggerFocus(focus.focusPosition1, focus.focusPosition2);
    }
    return focus;
}

std::u16string ResolvedClassID::getComponentQualifiedName() const {
    return isNull() ? std::u16string() : fl::i18n::to_ustring(id_.view());
}

std::u16string ResolvedClassID::getNonComponentQualifiedName() const {
    if (isNull()) {
        return {};
    }
    return fl::i18n::to_ustring(zelk::nameresolution::getBaseClassNameFromFullName(id_.view()));
}

}  // namespace ZELKContextData
