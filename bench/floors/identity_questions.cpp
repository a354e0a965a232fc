// The identity of a class: by name, as code in a file or a scope sees it, of a value, and back to a name.
#include "bench/floors/questions.h"
#include "contextdata/resolved_class_id.h"
#include "host/class_objects.h"
#include "host/class_system.h"
#include "host/dispatcher.h"
#include "host/feature.h"
#include "host/i18n.h"
#include "host/interpreter.h"
#include "host/name_resolution.h"

namespace bench {

using zelk::COSInternedID;
using zelk::internal::makeInterned;
using ZELKContextData::ResolvedClassID;
namespace resolution = zelk::nameresolution;

namespace {

const std::string family = "identity";
const std::u16string file = u"/project/report.k";
const std::u16string shown = u"Shown";
const std::string account = "identity.Account";
const std::u16string wideAccount = u"identity.Account";
const std::u16string older = u"oldname.Account";
const std::u16string qualified = u"p:identity.Account";

std::string narrow(const std::u16string& text) {
    return fl::i18n::to_string(text, fl::i18n::codecvt_ustring_to_ascii(false));
}

COSInternedID resolvedIn(const std::u16string& name, const FunctionScope* scope) {
    return makeInterned(resolution::omResolveAnyClass(fl::i18n::to_string(name), scope));
}

COSInternedID resolvedInFile() {
    return ComponentFeature::IsOn() ? resolvedIn(shown, Dispatcher::getDispatcher().getFunctionScope(file))
                                    : makeInterned(fl::i18n::to_string(shown));
}

COSInternedID ofOlderName() {
    zelk::COSClass* cls = zelk::COSClass::getClass(makeInterned(narrow(older)));
    return cls->getDefinition(false) == nullptr ? COSInternedID() : cls->getID();
}

std::u16string focusFile() {
    IInterpreterBridge* bridge = IInterpreter::GetInterpreterBridge();
    std::int32_t first = 0;
    std::int32_t second = 0;
    return bridge->isDebuggerStopped() ? bridge->getDebuggerFocus(first, second) : std::u16string();
}

std::vector<Question> resolutions(memory_host::World& world, const FunctionScope* scope) {
    const qxSharedArray object(world.object(account).release(), false);
    return {
        question(
            family, "in a file", 1, [] { return ResolvedClassID(file, shown).get(); }, resolvedInFile),
        question(
            family, "in a scope", 1, [scope] { return ResolvedClassID(scope, shown).get(); },
            [scope] { return ComponentFeature::IsOn() ? resolvedIn(shown, scope) : COSInternedID(); }),
        question(
            family, "of a value", 1, [object] { return ResolvedClassID(object.get()).get(); },
            [object] { return omGetCOSClassID(object.get()); }),
        question(
            family, "fromLegacyString", 1, [] { return ResolvedClassID::fromLegacyString(older).get(); }, ofOlderName),
        question(
            family, "fromKnownResolvedClassID, 8 bits", 1,
            [] { return ResolvedClassID::fromKnownResolvedClassID(account).get(); },
            [] { return makeInterned(account); }),
        question(
            family, "fromKnownResolvedClassID, 16 bits", 1,
            [] { return ResolvedClassID::fromKnownResolvedClassID(wideAccount).get(); },
            [] { return makeInterned(narrow(wideAccount)); }),
    };
}

}  // namespace

std::vector<Question> identityQuestions(memory_host::World& world) {
    world.contextResolution(true);
    world.cls(account);
    world.legacyName("oldname.Account", account);
    FunctionScope* scope = world.scope(file);
    world.imports(scope, "Shown", account);
    world.debuggerStoppedAt(file, 3, 4);
    std::vector<Question> questions = resolutions(world, scope);
    const ResolvedClassID id = ResolvedClassID::fromKnownResolvedClassID(qualified);
    questions.push_back(question(
        family, "isAlreadyResolved", 1, [] { return ResolvedClassID::isAlreadyResolved(qualified); },
        [] { return resolution::isSoftwarePackageQualifiedName(narrow(qualified)); }));
    questions.push_back(question(
        family, "GetDebuggerFocus", 1, [] { return ResolvedClassID::GetDebuggerFocus().fileName; }, focusFile));
    questions.push_back(question(
        family, "getComponentQualifiedName", 1, [id] { return id.getComponentQualifiedName(); },
        [id] { return fl::i18n::to_ustring(id.get().view()); }));
    questions.push_back(question(
        family, "getNonComponentQualifiedName", 1, [id] { return id.getNonComponentQualifiedName(); },
        [id] { return fl::i18n::to_ustring(resolution::getBaseClassNameFromFullName(id.get().view())); }));
    return questions;
}

}  // namespace bench
