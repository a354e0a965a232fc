#include "contextdata/introspection/property_name_visitor.h"

#include "tests/support/world_test.h"

namespace {

using memory_host::ClassBuilder;
using testing::ElementsAre;
using ZELKIntrospection::eitherSideDesiredPropertyAttributes;
using ZELKIntrospection::ZELKPropertyNameVisitor;

class PropertyNameVisitorTest : public WorldTest {
protected:
    Names names;
};

TEST_F(PropertyNameVisitorTest, CollectsDataTypesInStepWithTheNames) {
    ClassBuilder cls = world.cls("bank.Account");
    cls.property("balance").dataType("double");
    cls.property("key").dataType("char").getAccess(1).setAccess(1);
    cls.property("note");
    std::vector<zelk::COSDataTypePtr> types;
    ZELKPropertyNameVisitor visitor(names, &types, eitherSideDesiredPropertyAttributes);
    cls.object()->visitProperties(visitor);
    EXPECT_THAT(names, ElementsAre(u"balance", u"note"));
    ASSERT_EQ(types.size(), 2U);
    EXPECT_EQ(types[0]->getID().view(), "double");
    EXPECT_EQ(types[1], nullptr);
}

TEST_F(PropertyNameVisitorTest, PassesOverNodesThatAreNoProperties) {
    ClassBuilder cls = world.cls("bank.Account").method("pay");
    ZELKPropertyNameVisitor visitor(names, nullptr, eitherSideDesiredPropertyAttributes);
    cls.object()->visitMethods(visitor);
    EXPECT_THAT(names, testing::IsEmpty());
    EXPECT_EQ(world.handlesAlive(), 0U);
}

}  // namespace
