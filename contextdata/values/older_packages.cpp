#include "contextdata/other_object_systems.h"
#include "contextdata/values.h"
#include "contextdata/values/output_slot.h"
#include "contextdata/what_list.h"
#include "contextdata/workspace.h"
#include "host/evaluation.h"
#include "host/exceptions.h"
#include "host/text.h"

using Names = std::vector<std::u16string>;

namespace {

bool evaluatesToTrue(const std::u16string& expression) {
    contextdata::values::OutputSlot output;
    return EvalcExpSuccessful(expression, 1, output.place(), true) && output.get() != nullptr &&
           qxIsLogicalScalarTrue(output.get());
}

/// The object of a package; null when there is none.
qxUniqueArray findPackage(const std::u16string& packageName) {
    const qxUniqueArray name = qxCreateString(packageName);
    const qxArray* input = name.get();
    qxArray* output = nullptr;
    const int status = inCallFcnWithTrap(1, &output, 1, &input, "findpackage", true);
    qxUniqueArray package(output);
    return status == 0 && package && qxIsScalar(package.get()) ? std::move(package) : nullptr;
}

/// Appends the names of the objects that a property of the package lists.
void appendNames(const qxArray* package, const char* property, Names& names) {
    const qxSharedArray objects = getSharedProperty(package, property, 0);
    const std::size_t count = objects ? qxGetNumberOfElements(objects.get()) : 0;
    for (std::size_t index = 0; index < count; ++index) {
        const qxSharedArray name = getSharedProperty(objects.get(), "Name", index);
        if (name && !qxIsEmpty(name.get())) {
            names.push_back(getScalarText(name.get()));
        }
    }
}

}  // namespace

bool IsXOBPackage(const std::u16string& name) {
    try {
        return evaluatesToTrue(u"isa(findpackage('" + name + u"'), 'opaque');");
    } catch (const foundation::core::except::InterruptException&) {
        throw;
    } catch (...) {
        return false;
    }
}

bool XOBContextData::getPackageStrings(const std::u16string& packageName, Names& names) {
    const std::size_t before = names.size();
    if (const qxUniqueArray package = findPackage(packageName)) {
        appendNames(package.get(), "Classes", names);
        appendNames(package.get(), "Functions", names);
    }
    for (const char* kind : {".k", ".qxe", "classes"}) {
        getWhatList(u"@" + packageName, names, kind);
    }
    return names.size() != before;
}
