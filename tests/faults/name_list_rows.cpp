// The names that may follow a class or a namespace and a dot.
#include "contextdata/argument_block_metadata.h"
#include "contextdata/class_member_names.h"
#include "contextdata/namespace_names.h"
#include "tests/faults/function_table.h"

namespace faults {

using namespace ZELKContextData;
using enum Service;

namespace {

const std::u16string space = u"banking.retail.branches";
const std::u16string solve = u"solveEverythingAtOnce";

using ByName = bool (*)(const std::u16string& cls, Names& names, bool& flag);
using ByIdentity = bool (*)(const ResolvedClassID& cls, Names& names, bool& flag);

/// The same listing by the class's name and by its identity. `complete` adds what one listing has beyond the others.
template <class Complete>
std::vector<Row> listing(const std::string& function, ByName byName, ByIdentity byIdentity, Complete complete) {
    const std::string prefix = "ZELKContextData::" + function;
    const Question ofIdentity = [byIdentity](Scene&, Caller& caller) {
        const ResolvedClassID id = ResolvedClassID::fromKnownResolvedClassID(account);
        return told(caller([&] { return byIdentity(id, caller.names, caller.flag); }));
    };
    const Places lookUps = {getClass, classGetDefinition, classGetEnumerationMembers};
    return {
        Row(prefix + "(u16string const&, vector<u16string>&, bool&)", {bank, undefinedAccount, nothing},
            asks([byName](Scene&, Caller& caller) { return byName(account, caller.names, caller.flag); }),
            complete(swallows("false").null(lookUps, "false"))),
        Row(prefix + "(ZELKContextData::ResolvedClassID const&, vector<u16string>&, bool&)",
            {bank, undefinedAccount, nothing}, ofIdentity,
            complete(passes().at({getClass}, guarded("false")).null(lookUps, "false"))),
    };
}

std::vector<Row> classRows() {
    const auto leavesFlag = [](Rule rule) { return rule; };
    const auto setsFlag = [](Rule rule) { return std::move(rule).flagBy(classHasDynamicProperties); };
    std::vector<Row> rows;
    for (const std::vector<Row>& part :
         {listing("getClassMethodNames", getClassMethodNames, getClassMethodNames, leavesFlag),
          listing("getClassStaticMethodNames", getClassStaticMethodNames, getClassStaticMethodNames, leavesFlag),
          listing("getClassPropertyNames", getClassPropertyNames, getClassPropertyNames, setsFlag),
          listing("getClassConstantPropertyNames", getClassConstantPropertyNames, getClassConstantPropertyNames,
                  setsFlag),
          listing("getClassEnumerationNames", getClassEnumerationNames, getClassEnumerationNames, leavesFlag)}) {
        rows.insert(rows.end(), part.begin(), part.end());
    }
    return rows;
}

Row namespaceRow(const std::string& function, bool (*call)(const std::u16string& space, Names& names)) {
    const Question question = asks([call](Scene&, Caller& caller) { return call(space, caller.names); });
    const Question ofLazyHost = [question](Scene& scene, Caller& caller) {
        scene.world.ns("banking.retail.branches").fillsListsWhenRead();
        return question(scene, caller);
    };
    const Places lists = {namespaceGetClasses, namespaceGetFunctions, namespaceGetNamespaces};
    return Row("ZELKContextData::" + function + "(u16string const&, vector<u16string>&)", {namespaces}, question,
               passes().null({{getNamespaceInterface, 2}}, "false").null(lists, "false"))
        .also({namespaces}, ofLazyHost,
              passes().null({getNamespaceInterface, qxGetPropertyShared}, "false").null(lists, "false"))
        .also({nothing}, question, passes());
}

std::vector<Row> otherRows() {
    const Question metadata = asks([](Scene&, Caller&) { return getArgumentBlockMetadata(file, solve); });
    return {
        namespaceRow("getNamespaceClassNames", getNamespaceClassNames),
        namespaceRow("getNamespaceFunctionNames", getNamespaceFunctionNames),
        namespaceRow("getNamespaceNamespaceNames", getNamespaceNamespaceNames),
        Row("ZELKContextData::getZELKAllNamespaces()", {namespaces},
            asks([](Scene&, Caller&) { return getZELKAllNamespaces(); }),
            passes()
                .null({inFullFevalFcn}, "cell of 0 by 1:")
                .null({qxCreateCell}, "nothing")
                .null({{qxGetProperty, 1}}, "cell of 3 by 1: nothing u\"bank.inner\" u\"bank.other\"")
                .null({{qxGetProperty, 2}}, "cell of 3 by 1: u\"banking.retail.branches\" nothing u\"bank.other\"")
                .null({{qxGetProperty, 3}}, "cell of 3 by 1: u\"banking.retail.branches\" u\"bank.inner\" nothing")),
        Row("ZELKContextData::getArgumentBlockMetadata(u16string const&, u16string const&)",
            {functionMetadata, nothing}, metadata, passes())
            .also({scopedFunctionMetadata}, metadata, passes().null({getFunctionScope}, "everywhere 3 4")),
    };
}

}  // namespace

std::vector<Row> nameListRows() {
    std::vector<Row> rows = classRows();
    for (Row& row : otherRows()) {
        rows.push_back(std::move(row));
    }
    return rows;
}

}  // namespace faults
