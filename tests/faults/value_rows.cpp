// Reading host values.
#include "contextdata/values.h"

#include "tests/faults/function_table.h"

namespace faults {

using enum Service;

namespace {

const std::string balance = "balance";

/// A shared handle to a value that this caller owns until the library has taken it.
std::string shares(Scene& scene, Caller& caller) {
    qxUniqueArray owned = scene.world.number(7);
    const qxSharedArray shared = caller([&] { return makeSharedPtr(owned.get()); });
    static_cast<void>(owned.release());
    return told(shared);
}

Row propertyRow() {
    const Question question =
        asks([](Scene& scene, Caller&) { return getSharedProperty(scene.value.get(), balance, 0); });
    return Row("getSharedProperty(qxArray const*, string const&, unsigned long)", {bank, matrix}, question,
               swallows("nothing").null({qxGetPropertyShared}, "nothing"));
}

Row sizeRow() {
    const Question size = asks([](Scene& scene, Caller&) { return getSizeFromQxArray(scene.value.get()); });
    return Row("getSizeFromQxArray(qxArray const*)", {matrix, foreignValue, objectWithSize, objectWithCustomSize, bank},
               size, swallows("[]").null({inCallMethod}, "[1, 1]"));
}

}  // namespace

std::vector<Row> valueRows() {
    return {
        Row("getStringsFromQxarray(qxArray const*, vector<u16string>&)", {cellOfTexts, cellOfNumbers, matrix},
            asks([](Scene& scene, Caller& caller) { return getStringsFromQxarray(scene.value.get(), caller.names); }),
            passes().restoring().null({qxGetCell}, "false")),
        sizeRow(),
        propertyRow(),
        Row("makeSharedPtr(qxArray*)", {nothing}, shares, passes()),
        Row("isObjectOrIsOpaque(qxArray const*)", {foreignValue, matrix},
            asks([](Scene& scene, Caller&) { return isObjectOrIsOpaque(scene.value.get()); }), passes()),
        Row("getOpaqueObjectMethods(qxArray const*, vector<u16string>&)", {foreignValue, foreignValueOfFewArts},
            asks([](Scene& scene, Caller& caller) { getOpaqueObjectMethods(scene.value.get(), caller.names); }),
            swallows("").restoring().null({inCallFcn, qxGetCell}, "")),
        Row("getOpaqueObjectProperties(qxArray const*, vector<u16string>&)", {foreignValue, foreignValueOfFewArts},
            asks([](Scene& scene, Caller& caller) { getOpaqueObjectProperties(scene.value.get(), caller.names); }),
            swallows("").restoring().null({inCallFcn, qxGetCell}, "")),
        Row("getBuiltinFunctionNames()", {documentedBuiltins, nothing},
            asks([](Scene&, Caller&) { return getBuiltinFunctionNames(); }), passes()),
    };
}

}  // namespace faults
