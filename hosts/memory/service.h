// The host services by name, one entry for each operation that the library can call and that may fail.
#pragma once

#include <cstdint>
#include <string_view>

#include "hosts/memory/export.h"

namespace memory_host {

enum class Service : std::uint8_t {
    makeInterned,
    omResolveAnyClass,
    getBaseClassNameFromFullName,
    getClass,
    classGetDefinition,
    classGetID,
    classGetName,
    classIsHidden,
    classHasDynamicProperties,
    classIsSubclassOf,
    classFindMethods,
    classFindProperty,
    classVisitMethods,
    classVisitProperties,
    classGetEnumerationMembers,
    classOfMember,
    methodGetName,
    methodIsStatic,
    methodIsListable,
    methodGetAccess,
    propertyGetName,
    propertyGetGetAccess,
    propertyGetSetAccess,
    propertyIsListable,
    propertyGetDataType,
    dataTypeGetID,
    enumGetName,
    enumIsHidden,
    iteratorHasMoreElements,
    iteratorNextElement,
    getNamespaceInterface,
    namespaceGetName,
    namespaceGetClasses,
    namespaceGetFunctions,
    namespaceGetNamespaces,
    qxGetClassID,
    qxGetClassName,
    qxIsA,
    qxIsEmpty,
    qxGetNumberOfElements,
    qxGetNumberOfDimensions,
    qxGetDimensions,
    qxGetCell,
    qxGetDoubles,
    qxGetPropertyShared,
    qxSetArrayScope,
    omIsZELK,
    omGetCOSClassID,
    inCallFcn,
    inCallMethod,
    getInterpreterBridge,
    isDebuggerStopped,
    getDebuggerFocus,
    getDispatcher,
    getFunctionScope,
    getCurrentlyExecutingFunctionScope,
    getDocumentedBuiltins,
    toString,
    toUstring,
    isNonMissingScalarText,
    getScalarText,
    featureIsOn,
};

/// The name of a service as tests and reports show it. Permanent, never empty.
CONTEXTDATA_MEMORY_HOST_API std::string_view nameOf(Service service) noexcept;

}  // namespace memory_host
