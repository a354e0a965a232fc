#include "contextdata/namespace_names.h"
#include "host/evaluation.h"

namespace ZELKContextData {

namespace {

qxUniqueArray allNamespaceObjects() {
    const qxUniqueArray function = qxCreateString(u"ostrel.metadata.Namespace.getAllNamespaces");
    const qxArray* input = function.get();
    qxArray* output = nullptr;
    inFullFevalFcn(1, &output, 1, &input);
    return qxUniqueArray(output);
}

std::size_t countOf(const qxArray* objects) { return objects == nullptr ? 0 : qxGetNumberOfElements(objects); }

}  // namespace

qxUniqueArray getZELKAllNamespaces() {
    const qxUniqueArray spaces = allNamespaceObjects();
    const std::size_t room = countOf(spaces.get());
    qxUniqueArray names = qxCreateCell(room, 1);
    // Reading a name may run code that changes the array, so its count is asked anew each time.
    for (std::size_t index = 0; names && index < room && index < countOf(spaces.get()); ++index) {
        qxSetCell(names.get(), index, qxGetProperty(spaces.get(), index, "Name"));
    }
    return names;
}

}  // namespace ZELKContextData
