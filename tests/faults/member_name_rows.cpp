// The quick way to the names of a class's methods and properties.
#include "contextdata/member_names.h"

#include "tests/faults/function_table.h"

namespace faults {

using namespace ZELKIntrospection;
using enum Service;

std::vector<Row> memberNameRows() {
    const Question methods =
        asks([](Scene& scene, Caller& caller) { getClassMethodNames(scene.cls, caller.names, 0, 0); });
    const Question listableMethods =
        asks([](Scene& scene, Caller& caller) { getClassMethodNames(scene.cls, caller.names, -1, 1); });
    const Question properties = asks([](Scene& scene, Caller& caller) {
        getClassPropertyNames(scene.cls, caller.names, rightHandSideDesiredPropertyAttributes);
    });
    const Question ofObject =
        asks([](Scene& scene, Caller& caller) { getObjectPropertyNames(scene.value.get(), caller.names); });
    return {
        Row("ZELKIntrospection::getClassMethodNames(zelk::COSClass*, vector<u16string>&, int, int)",
            {bank, undefinedAccount, crowded}, methods, passes().null({classGetDefinition}, ""))
            .also({bank}, listableMethods, passes().null({classGetDefinition}, ""))
            .also({constructed}, methods,
                  passes()
                      .null({classGetDefinition}, "")
                      .null({{classOfMember, 1}}, {"", {u"Account", u"withdrawEverything"}})),
        Row("ZELKIntrospection::getClassPropertyNames(zelk::COSClass*, vector<u16string>&, "
            "ZELKIntrospection::DesiredPropertyAttributes const&)",
            {bank, undefinedAccount}, properties, passes()),
        Row("ZELKIntrospection::getObjectPropertyNames(qxArray const*, vector<u16string>&)", {objectWithNames},
            ofObject, swallows({"", {u"balance"}}).null({inCallFcn, qxGetCell}, {"", {u"balance"}}))
            .also({bank, undefinedAccount}, ofObject,
                  passes()
                      .at({inCallFcn}, swallows(whole))
                      .at({getClass, classGetDefinition}, guarded(""))
                      .null({getClass, classGetDefinition}, "")),
    };
}

}  // namespace faults
