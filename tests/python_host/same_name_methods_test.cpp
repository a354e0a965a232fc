// Methods that bear the name of their class. They are no constructors in this language.
#include "contextdata/class_member_names.h"
#include "tests/python_host/session.h"

namespace {

using namespace session;
using ::testing::Contains;
using ::testing::ElementsAre;

using SameNameMethods = PythonTest;

zelk::COSClass* classOfMethod(const std::string& className, const std::string& name) {
    const zelk::COSInterfacePtr node = classOf(className)->findMethods(id(name))->nextElement();
    return zelk::cosiClassOfMember(node.get());
}

TEST_F(SameNameMethods, AreListedLikeAnyOther) {
    run("import select\nclass poll:\n def poll(self): pass\n def other(self): pass");
    EXPECT_THAT(methods("__main__.poll"), ElementsAre("poll", "other"));
    EXPECT_THAT(methods(nameOfClass("type(select.poll())")), Contains("poll"));
}

TEST_F(SameNameMethods, HaveTheClassThatDeclaresThemByItsID) {
    run("import select\nclass poll:\n def poll(self): pass\nclass Derived(poll): pass");
    EXPECT_EQ(classOfMethod("__main__.poll", "poll")->getID(), id("__main__.poll"));
    EXPECT_EQ(classOfMethod("__main__.Derived", "poll")->getID(), id("__main__.poll"));
    const std::string compiled = nameOfClass("type(select.poll())");
    EXPECT_EQ(classOfMethod(compiled, "poll")->getID(), id(compiled));
}

TEST_F(SameNameMethods, ShowTheirClassWithoutItsName) {
    run("class poll:\n def poll(self): pass\n def other(self): pass\n poll_ = 1");
    EXPECT_STREQ(classOfMethod("__main__.poll", "poll")->getName(), "");
    EXPECT_STREQ(classOfMethod("__main__.poll", "other")->getName(), "__main__.poll");
}

TEST_F(SameNameMethods, ShowAClassThatAnswersEverythingElse) {
    run("class Base: pass\n"
        "class _poll(Base):\n"
        " x = 1\n"
        " def _poll(self): pass\n"
        " def __init_subclass__(cls, key=1): pass");
    zelk::COSClass* real = classOf("__main__._poll");
    zelk::COSClass* shown = classOfMethod("__main__._poll", "_poll");
    ASSERT_NE(real, shown);
    EXPECT_EQ(shown->getDefinition(false), real->getDefinition(false));
    EXPECT_TRUE(shown->isHidden());
    EXPECT_TRUE(shown->hasDynamicProperties());
    EXPECT_FALSE(shown->withholdsOwnMembers());
    EXPECT_STREQ(shown->getSuperclasses()->nextElement().c_str(), "__main__.Base");
    EXPECT_TRUE(shown->isSubclassOf(id("__main__.Base")));
    EXPECT_TRUE(shown->findMethods(id("_poll")));
    EXPECT_TRUE(shown->findProperty(id("x")));
    EXPECT_FALSE(shown->getEnumerationMembers()->hasMoreElements());
    Names names;
    shown->getClassAttributeNames(false, names);
    EXPECT_THAT(names, ElementsAre("metaclass", "key"));
    shown->getMethodAttributeNames(false, names);
    EXPECT_THAT(names, ElementsAre("staticmethod", "classmethod"));
    shown->getPropertyAttributeNames(false, names);
    EXPECT_THAT(names, ElementsAre("property", "cached_property"));
    shown->getEventAttributeNames(false, names);
    EXPECT_THAT(names, ElementsAre());
}

TEST_F(SameNameMethods, KeepTheirClassAliveForAsLongAsTheyAreHeld) {
    run("class poll:\n def poll(self): pass");
    const zelk::COSInterfacePtr node = classOf("__main__.poll")->findMethods(id("poll"))->nextElement();
    run("del poll\nimport gc\ngc.collect()\n"
        "for i in range(600): type(f'T{i}', (), {})\n");
    EXPECT_EQ(zelk::cosiClassOfMember(node.get())->getID(), id("__main__.poll"));
    EXPECT_EQ(zelk::cosiClassOfMember(node.get())->getDefinition(false), nullptr);
}

TEST_F(SameNameMethods, OfAPropertyTheClassIsShownAsItIs) {
    run("class size:\n size = 1");
    const zelk::COSInterfacePtr node = classOf("__main__.size")->findProperty(id("size"));
    EXPECT_STREQ(zelk::cosiClassOfMember(node.get())->getName(), "__main__.size");
}

}  // namespace
