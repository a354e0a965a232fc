#include "hosts/memory/service.h"

#include <array>

namespace memory_host {

namespace {

// In the order of the enumeration.
constexpr std::array names = {
    std::string_view("makeInterned"),
    std::string_view("omResolveAnyClass"),
    std::string_view("getBaseClassNameFromFullName"),
    std::string_view("COSClass::getClass"),
    std::string_view("COSClass::getDefinition"),
    std::string_view("COSClass::getID"),
    std::string_view("COSClass::getName"),
    std::string_view("COSClass::isHidden"),
    std::string_view("COSClass::hasDynamicProperties"),
    std::string_view("COSClass::isSubclassOf"),
    std::string_view("COSClass::findMethods"),
    std::string_view("COSClass::findProperty"),
    std::string_view("COSClass::visitMethods"),
    std::string_view("COSClass::visitProperties"),
    std::string_view("COSClass::getEnumerationMembers"),
    std::string_view("cosiClassOfMember"),
    std::string_view("COSMethodInfo::getName"),
    std::string_view("COSMethodInfo::isStatic"),
    std::string_view("COSMethodInfo::isListable"),
    std::string_view("COSMethodInfo::getAccess"),
    std::string_view("COSPropInfo::getName"),
    std::string_view("COSPropInfo::getGetAccess"),
    std::string_view("COSPropInfo::getSetAccess"),
    std::string_view("COSPropInfo::isListable"),
    std::string_view("COSPropInfo::getDataType"),
    std::string_view("COSDataType::getID"),
    std::string_view("COSEnumInfo::getName"),
    std::string_view("COSEnumInfo::isHidden"),
    std::string_view("COSIterator::hasMoreElements"),
    std::string_view("COSIterator::nextElement"),
    std::string_view("COSPackage::getNamespaceInterface"),
    std::string_view("COSNamespace::getName"),
    std::string_view("COSNamespace::getClasses"),
    std::string_view("COSNamespace::getFunctions"),
    std::string_view("COSNamespace::getNamespaces"),
    std::string_view("qxGetClassID"),
    std::string_view("qxGetClassName"),
    std::string_view("qxIsA"),
    std::string_view("qxIsEmpty"),
    std::string_view("qxGetNumberOfElements"),
    std::string_view("qxGetNumberOfDimensions"),
    std::string_view("qxGetDimensions"),
    std::string_view("qxGetCell"),
    std::string_view("qxGetDoubles"),
    std::string_view("qxGetPropertyShared"),
    std::string_view("qxSetArrayScope"),
    std::string_view("omIsZELK"),
    std::string_view("omGetCOSClassID"),
    std::string_view("inCallFcn"),
    std::string_view("inCallMethodSingleInputSingleOutput"),
    std::string_view("IInterpreter::GetInterpreterBridge"),
    std::string_view("IInterpreterBridge::isDebuggerStopped"),
    std::string_view("IInterpreterBridge::getDebuggerFocus"),
    std::string_view("Dispatcher::getDispatcher"),
    std::string_view("Dispatcher::getFunctionScope"),
    std::string_view("Dispatcher::GetCurrentlyExecutingFunctionScope"),
    std::string_view("Dispatcher::getDocumentedBuiltins"),
    std::string_view("to_string"),
    std::string_view("to_ustring"),
    std::string_view("isNonMissingScalarText"),
    std::string_view("getScalarText"),
    std::string_view("ComponentFeature::IsOn"),
};
static_assert(names.size() == static_cast<std::size_t>(Service::featureIsOn) + 1, "one name a service");

}  // namespace

std::string_view nameOf(Service service) noexcept { return names[static_cast<std::size_t>(service)]; }

}  // namespace memory_host
