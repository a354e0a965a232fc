// Namespaces as values.
#include "host/class_objects.h"
#include "hosts/python/errors.h"
#include "hosts/python/values/values.h"

qxUniqueArray omCreateZELKScalar(const zelk::COSInterfacePtr& node) {
    const zelk::COSNamespace* space = zelk::cosiToNamespace(node.get());
    if (space == nullptr) {
        throw python_host::PythonFailure("only namespaces have an object that stands for them");
    }
    python_host::NameList names;
    names.append(space->getName());
    return python_host::makeNamespaceObjects(std::move(names));
}
