// Packages of the older object system, Java, structures, folders.
#include "contextdata/other_object_systems.h"
#include "contextdata/what_list.h"
#include "tests/faults/function_table.h"

namespace faults {

using enum Service;

namespace {

const std::u16string package = u"xob";
const std::u16string javaFunction = u"java.lang.String.valueOf";
const std::u16string tools = u"tools";
const std::u16string workingFolder;
const std::string codeFiles = ".k";

/// Names of a package's object that cannot be read are left out, and so is each kind of its folders' content.
Row packageRow() {
    const Question question =
        asks([](Scene&, Caller& caller) { return XOBContextData::getPackageStrings(package, caller.names); });
    const Given withoutClasses = {"true", {u"run"}};
    const Given withoutFunctions = {"true", {u"Alphabetical"}};
    return Row("XOBContextData::getPackageStrings(u16string const&, vector<u16string>&)", {olderPackage}, question,
               passes()
                   .at({{qxGetPropertyShared, 1}, {qxSetArrayScope, 1}}, swallows(withoutClasses))
                   .at({{qxGetPropertyShared, 2}, {qxSetArrayScope, 2}}, swallows(withoutClasses))
                   .at({qxGetPropertyShared, qxSetArrayScope}, swallows(withoutFunctions))
                   .from({getDispatcher, 1}, guarded(whole))
                   .null({inCallFcnWithTrap}, "false")
                   .null({{qxGetPropertyShared, 1}, {qxGetPropertyShared, 2}}, withoutClasses)
                   .null({qxGetPropertyShared}, withoutFunctions))
        .also({olderPackageInFolders}, question,
              passes()
                  .from({getDispatcher, 1}, guarded({"true", {u"fast.qxew64", u"Inner"}}))
                  .from({getDispatcher, 2}, guarded({"true", {u"a.k", u"Inner"}}))
                  .from({getDispatcher, 3}, guarded({"true", {u"a.k", u"fast.qxew64"}}))
                  .ownMemoryPasses())
        .also({nothing}, question, passes().from({getDispatcher, 1}, guarded(whole)));
}

}  // namespace

std::vector<Row> otherObjectSystemRows() {
    return {
        Row("IsXOBPackage(u16string const&)", {olderPackage, nothing, noInterpreter},
            asks([](Scene&, Caller&) { return IsXOBPackage(package); }), guarded("false")),
        packageRow(),
        Row("IsJavaFunction(u16string const&)", {javaClass, nothing},
            asks([](Scene&, Caller&) { return IsJavaFunction(javaFunction); }),
            passes().null({qxCreateClassArray, qxFindClassMember}, "false")),
        Row("StructContextData::getStructFieldNames(qxArray const*, vector<u16string>&)", {structure, matrix},
            asks([](Scene& scene, Caller& caller) {
                StructContextData::getStructFieldNames(scene.value.get(), caller.names);
            }),
            passes()),
        Row("getWhatList(u16string const&, vector<u16string>&, string const&)", {folders},
            asks([](Scene&, Caller& caller) { getWhatList(tools, caller.names, codeFiles); }),
            guarded("").namesAtOnce().ownMemoryPasses())
            .also({folders}, asks([](Scene&, Caller& caller) { getWhatList(workingFolder, caller.names, codeFiles); }),
                  guarded("").namesAtOnce().ownMemoryPasses()),
    };
}

}  // namespace faults
