// Namespaces, as `host/class_system.h` shows them.
#include "host/class_system.h"
#include "tests/conformance/suite/suite.h"

namespace {

using conformance::id;
using conformance::Names;
using Namespaces = conformance::Conformance;
using ::testing::IsSupersetOf;

TEST_F(Namespaces, AreNotFoundByTheEmptyHandleOrAnUnknownName) {
    EXPECT_FALSE(zelk::COSPackage::getNamespaceInterface({}));
    EXPECT_FALSE(zelk::COSPackage::getNamespaceInterface(id(conformance::unknownName)));
}

TEST_F(Namespaces, ShowWhatTheyHold) {
    const auto subject = provider().filledNamespace();
    CONFORMANCE_NEEDS(subject, "namespaces");
    const zelk::COSInterfacePtr node = zelk::COSPackage::getNamespaceInterface(id(subject->name));
    ASSERT_TRUE(node);
    zelk::COSNamespace* space = zelk::cosiToNamespace(node.get());
    ASSERT_NE(space, nullptr);
    EXPECT_STREQ(space->getName(), subject->name.c_str());
    EXPECT_THAT(conformance::namesIn(space->getClasses(), conformance::className), IsSupersetOf(subject->classes));
    EXPECT_THAT(conformance::namesIn(space->getFunctions(), conformance::methodName), IsSupersetOf(subject->functions));
    EXPECT_THAT(conformance::namesIn(space->getNamespaces(), conformance::namespaceName),
                IsSupersetOf(subject->namespaces));
    EXPECT_EQ(zelk::cosiToClass(node.get()), nullptr);
    EXPECT_EQ(zelk::cosiToMethod(node.get()), nullptr);
}

TEST_F(Namespaces, LiveOnBehindTheirHandles) {
    const auto subject = provider().filledNamespace();
    CONFORMANCE_NEEDS(subject, "namespaces");
    zelk::COSInterface* borrowed = zelk::COSPackage::getNamespaceInterface(id(subject->name)).get();
    ASSERT_NE(zelk::cosiToNamespace(borrowed), nullptr);
    EXPECT_STREQ(zelk::cosiToNamespace(borrowed)->getName(), subject->name.c_str());
}

TEST_F(Namespaces, HoldFunctionsOfNoClass) {
    const auto subject = provider().filledNamespace();
    CONFORMANCE_NEEDS(subject && !subject->functions.empty(), "functions in namespaces");
    const zelk::COSInterfacePtr node = zelk::COSPackage::getNamespaceInterface(id(subject->name));
    const zelk::COSIteratorPtr walk = zelk::cosiToNamespace(node.get())->getFunctions();
    bool seen = false;
    while (walk && walk->hasMoreElements()) {
        const zelk::COSInterfacePtr function = walk->nextElement();
        EXPECT_EQ(zelk::cosiClassOfMember(function.get()), nullptr);
        if (subject->functions.front() == conformance::methodName(function.get())) {
            seen = true;
            EXPECT_EQ(zelk::cosiToMethod(function.get())->getAccess(), zelk::publicAccess);
            EXPECT_TRUE(zelk::cosiToMethod(function.get())->isListable());
        }
    }
    EXPECT_TRUE(seen);
    EXPECT_THROW(walk->nextElement(), zelk::ENoElements);
}

TEST_F(Namespaces, AreWalkedAfreshEachTime) {
    const auto subject = provider().filledNamespace();
    CONFORMANCE_NEEDS(subject, "namespaces");
    const zelk::COSInterfacePtr node = zelk::COSPackage::getNamespaceInterface(id(subject->name));
    zelk::COSNamespace* space = zelk::cosiToNamespace(node.get());
    EXPECT_EQ(conformance::namesIn(space->getClasses(), conformance::className),
              conformance::namesIn(space->getClasses(), conformance::className));
}

}  // namespace
