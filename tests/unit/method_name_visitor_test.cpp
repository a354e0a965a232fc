#include "contextdata/introspection/method_name_visitor.h"

#include "tests/support/world_test.h"

namespace {

using memory_host::ClassBuilder;
using ZELKIntrospection::ZELKMethodNameVisitor;

class MethodNameVisitorTest : public WorldTest {
protected:
    Names names;
};

TEST_F(MethodNameVisitorTest, PassesOverNodesThatAreNoMethods) {
    ClassBuilder cls = world.cls("bank.Account").property("balance").method("pay");
    constexpr int anyMethod = 0;
    ZELKMethodNameVisitor visitor(names, anyMethod, anyMethod);
    cls.object()->visitProperties(visitor);
    EXPECT_THAT(names, testing::IsEmpty());
    cls.object()->visitMethods(visitor);
    EXPECT_THAT(names, testing::ElementsAre(u"pay"));
    EXPECT_EQ(world.handlesAlive(), 0U);
}

}  // namespace
