#include "host/object_system.h"

#include "host/dispatcher.h"
#include "tests/conformance/suite/suite.h"

namespace {

class ObjectSystemService : public conformance::Conformance {
protected:
    static ObjectSystem& system() { return Dispatcher::getDispatcher().getObjectSystem(); }
    static constexpr std::int32_t noClass = 0;
};

TEST_F(ObjectSystemService, HasNoNumberForUnknownNames) {
    EXPECT_EQ(system().getClassNumber(conformance::unknownName), noClass);
    EXPECT_EQ(system().getClassNumber(""), noClass);
}

TEST_F(ObjectSystemService, NumbersClasses) {
    const std::string first = provider().makeClass({"First", {}, {}, {}});
    CONFORMANCE_NEEDS(!first.empty(), "classes");
    const std::string second = provider().makeClass({"Second", {}, {}, {}});
    EXPECT_NE(system().getClassNumber(first), noClass);
    EXPECT_NE(system().getClassNumber(first), system().getClassNumber(second));
    EXPECT_EQ(system().getClassNumber(first), system().getClassNumber(first));
}

TEST_F(ObjectSystemService, KnowsWhoDerivesFromWhom) {
    const std::string root = provider().makeClass({"Root", {}, {}, {}});
    CONFORMANCE_NEEDS(!root.empty(), "classes");
    const std::string leaf = provider().makeClass({"Leaf", {root}, {}, {}});
    const std::string stranger = provider().makeClass({"Stranger", {}, {}, {}});
    const std::int32_t number = system().getClassNumber(leaf);
    EXPECT_TRUE(system().isDerivedFrom(number, number));
    EXPECT_TRUE(system().isDerivedFrom(number, system().getClassNumber(root)));
    EXPECT_FALSE(system().isDerivedFrom(system().getClassNumber(root), number));
    EXPECT_FALSE(system().isDerivedFrom(number, system().getClassNumber(stranger)));
}

TEST_F(ObjectSystemService, DerivesNothingFromNoClass) {
    EXPECT_FALSE(system().isDerivedFrom(noClass, noClass));
    const std::string name = provider().makeClass({"Root", {}, {}, {}});
    CONFORMANCE_NEEDS(!name.empty(), "classes");
    EXPECT_FALSE(system().isDerivedFrom(system().getClassNumber(name), noClass));
    EXPECT_FALSE(system().isDerivedFrom(noClass, system().getClassNumber(name)));
}

TEST_F(ObjectSystemService, GivesNoClassPrecedenceOverItself) {
    EXPECT_FALSE(system().hasPrecedenceOver(noClass, noClass));
    const std::string name = provider().makeClass({"Root", {}, {}, {}});
    CONFORMANCE_NEEDS(!name.empty(), "classes");
    const std::int32_t number = system().getClassNumber(name);
    EXPECT_FALSE(system().hasPrecedenceOver(number, number));
}

TEST_F(ObjectSystemService, KnowsWhoseMethodsRun) {
    const auto classes = provider().precedence();
    CONFORMANCE_NEEDS(classes, "precedence between classes");
    const std::int32_t first = system().getClassNumber(classes->first);
    const std::int32_t second = system().getClassNumber(classes->second);
    EXPECT_TRUE(system().hasPrecedenceOver(first, second));
    EXPECT_FALSE(system().hasPrecedenceOver(second, first));
}

}  // namespace
