#include "host/class_objects.h"

#include "host/dispatcher.h"
#include "tests/conformance/suite/suite.h"
#include "tests/conformance/suite/value_kinds.h"

namespace {

using conformance::ClassSketch;
using conformance::ValueKind;
using ClassObjects = conformance::Conformance;

TEST_F(ClassObjects, BelongToTheClassThatTheyWereMadeOf) {
    const std::string base = provider().makeClass({"Base", {}, {}, {}});
    const std::string name = base.empty() ? base : provider().makeClass({"Derived", {base}, {}, {}});
    CONFORMANCE_NEEDS(!name.empty(), "classes");
    const qxUniqueArray object = provider().object(name);
    CONFORMANCE_NEEDS(object, "objects of classes");
    EXPECT_TRUE(omIsZELK(object.get()));
    EXPECT_EQ(omGetCOSClassID(object.get()), conformance::id(name));
    EXPECT_STREQ(qxGetClassName(object.get()), name.c_str());
    EXPECT_TRUE(qxIsA(object.get(), name.c_str()));
    EXPECT_TRUE(qxIsA(object.get(), base.c_str())) << "an object is of every class that its own derives from";
    EXPECT_TRUE(qxIsScalar(object.get()));
}

TEST_F(ClassObjects, BearTheNumberOfTheirClass) {
    const std::string name = provider().makeClass({"Numbered", {}, {}, {}});
    CONFORMANCE_NEEDS(!name.empty(), "classes");
    const qxUniqueArray object = provider().object(name);
    CONFORMANCE_NEEDS(object, "objects of classes");
    const std::int32_t number = Dispatcher::getDispatcher().getObjectSystem().getClassNumber(name);
    EXPECT_GT(number, static_cast<std::int32_t>(qxClassID::object));
    EXPECT_EQ(qxGetFullClassID(object.get()), number);
    EXPECT_GT(qxGetClassID(object.get()), qxClassID::functionHandle);
}

TEST_F(ClassObjects, AreToldFromOtherValues) {
    for (const auto& [kind, name] : conformance::valueKinds) {
        // Texts may be objects of a class in the hosts that have missing ones.
        if (kind == ValueKind::missingText) {
            continue;
        }
        if (const qxUniqueArray value = provider().value(kind)) {
            EXPECT_FALSE(omIsZELK(value.get())) << name;
            EXPECT_TRUE(omGetCOSClassID(value.get()).isEmpty()) << name;
        }
    }
}

TEST_F(ClassObjects, StandForNamespaces) {
    const auto space = provider().filledNamespace();
    CONFORMANCE_NEEDS(space, "namespaces");
    const zelk::COSInterfacePtr node = zelk::COSPackage::getNamespaceInterface(conformance::id(space->name));
    ASSERT_TRUE(node);
    const qxUniqueArray object = omCreateZELKScalar(node);
    ASSERT_TRUE(object);
    EXPECT_TRUE(qxIsScalar(object.get()));
    for (const char* list : {"ClassList", "FunctionList", "PackageList"}) {
        const qxUniqueArray value(qxGetPropertyShared(object.get(), 0, list));
        EXPECT_TRUE(value) << list << ": reading it has the host fill the namespace's lists";
    }
}

}  // namespace
