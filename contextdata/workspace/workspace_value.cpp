#include <algorithm>
#include <string_view>
#include <utility>
#include <vector>

#include "contextdata/identity/interning.h"
#include "contextdata/introspection.h"
#include "contextdata/introspection/class_lookup.h"
#include "contextdata/other_object_systems.h"
#include "contextdata/values.h"
#include "contextdata/values/output_slot.h"
#include "contextdata/workspace.h"
#include "host/evaluation.h"
#include "host/i18n.h"

namespace {

/// Where a step of the walk leads.
struct Step {
    enum class Outcome {
        value,     ///< to `value`, or to no value, which evaluation may find yet
        forbidden  ///< nowhere, and the text must not be evaluated either
    };

    static Step to(qxSharedArray value) { return {Outcome::value, std::move(value)}; }
    static Step nowhere() { return {Outcome::forbidden, {}}; }

    Outcome outcome;
    qxSharedArray value;
};

bool hasFields(qxClassID id) { return id == qxClassID::structure || id == qxClassID::object; }

/// Whether the value itself, asked through a function of the interpreter, lists a name.
bool lists(const qxArray* value, const char* function, const std::u16string& name) {
    std::vector<std::u16string> names;
    ZELKIntrospection::callFunctionOnObject(value, function, names);
    return std::find(names.begin(), names.end(), name) != names.end();
}

// Methods come first in both: one that bears the name of a property would be called by an evaluation.

Step stepIntoObject(const qxArray* object, zelk::COSClass& cls, const std::string& member) {
    const zelk::COSInternedID name = contextdata::identity::internName(member);
    if (contextdata::introspection::hasAnyMethod(cls, name)) {
        return Step::nowhere();
    }
    const bool isProperty = cls.findProperty(name) != nullptr;
    return Step::to(isProperty ? getSharedProperty(object, member, 0) : qxSharedArray());
}

Step stepIntoOpaque(const qxArray* value, const std::string& member) {
    const std::u16string name = fl::i18n::to_ustring(member, fl::i18n::codecvt_ascii_to_ustring(false));
    if (lists(value, "methods", name)) {
        return Step::nowhere();
    }
    return Step::to(lists(value, "fieldnames", name) ? getSharedProperty(value, member, 0) : qxSharedArray());
}

Step stepInto(const qxArray* value, const std::string& member) {
    if (!qxIsScalar(value)) {
        return Step::nowhere();
    }
    const qxClassID id = qxGetClassID(value);
    if (hasFields(id)) {
        return Step::to(qxGetField(value, 0, member.c_str()));
    }
    if (zelk::COSClass* cls = ZELKIntrospection::getCOSClass(value)) {
        return stepIntoObject(value, *cls, member);
    }
    return id == qxClassID::opaque ? stepIntoOpaque(value, member) : Step::nowhere();
}

std::string_view takeName(std::string_view& rest) {
    const std::string_view name = rest.substr(0, qxCountNameCharacters(rest));
    rest.remove_prefix(name.size());
    return name;
}

/// The value of an evaluation that nobody notices; empty when it gives none.
qxSharedArray evaluated(const std::u16string& expression) {
    try {
        contextdata::values::OutputSlot output;
        if (!EvalcExpSuccessful(expression, 1, output.place(), false)) {
            return {};
        }
        qxSharedArray value = makeSharedPtr(output.get());
        output.release();
        return value;
    } catch (...) {
        return {};
    }
}

}  // namespace

qxSharedArray GetValueFromCurrentWorkspace(const std::u16string& expression) {
    if (IsJavaFunction(expression)) {
        return {};
    }
    const std::string text = fl::i18n::to_string(expression, fl::i18n::codecvt_ustring_to_ascii(false));
    std::string_view rest = text;
    qxSharedArray value = inGetValueFromCurrentWorkspace(std::string(takeName(rest)));
    if (!value) {
        return {};
    }
    while (value && rest.starts_with('.')) {
        rest.remove_prefix(1);
        const std::string member(takeName(rest));
        if (member.empty()) {
            value.reset();
            break;
        }
        Step step = stepInto(value.get(), member);
        if (step.outcome == Step::Outcome::forbidden) {
            return {};
        }
        value = std::move(step.value);
    }
    return value && rest.empty() ? value : evaluated(expression);
}
