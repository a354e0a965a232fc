// A virtual machine cannot be taken back out of a process, so these tests have a program of their own, and the order
// in which they stand is that of a session: no bridge, the bridge, the machine.
#include "contextdata/other_object_systems.h"
#include "tests/python_host/session.h"

namespace {

using namespace session;

class Java : public PythonTest {
protected:
    static bool isBridgeInstalled() {
        return evalNumber("int(__import__('importlib.util').util.find_spec('_jpype') is not None)") == 1;
    }
    static bool isMachineInstalled() {
        return evalNumber("int(__import__('glob').glob('/usr/lib/jvm/*/lib/server/libjvm.so') != [])") == 1;
    }
    /// Starts the machine once; every later test finds it running.
    static void start() {
        run("import jpype\n"
            "if not jpype.isJVMStarted():\n"
            " jpype.startJVM(classpath=['/usr/share/java/org.jpype.jar'], interrupt=False)");
    }
    static qxUniqueArray member(const std::string& className, const std::string& name) {
        const qxUniqueArray cls = qxCreateClassArray(className.c_str());
        return cls ? qxFindClassMember(cls.get(), name.c_str()) : nullptr;
    }
};

#define NEEDS_JAVA()                                                              \
    if (!isBridgeInstalled()) {                                                   \
        GTEST_SKIP() << "the bridge to Java (python3-jpype) is not installed";    \
    }                                                                             \
    if (!isMachineInstalled()) {                                                  \
        GTEST_SKIP() << "no Java machine (openjdk-17-jre-headless) is installed"; \
    }

TEST_F(Java, NothingIsJavaWhileTheBridgeIsNotLoaded) {
    EXPECT_FALSE(IsJavaFunction(u"java.lang.String.valueOf"));
    EXPECT_EQ(qxCreateClassArray("java.lang.String"), nullptr);
    EXPECT_EQ(evalText("repr([n for n in __import__('sys').modules if 'jpype' in n])"), "[]");
}

TEST_F(Java, ABridgeThatTheSessionMadeUpIsNotAsked) {
    run("import sys, types\nfake = types.ModuleType('_jpype')\n"
        "def isStarted(): trace.append('started'); return True\n"
        "def _getClass(name): trace.append(name); return int\n"
        "class Meta(type):\n def __subclasses__(cls): trace.append('subclasses'); return []\n"
        "class _JObject(metaclass=Meta): pass\nclass _JMethod: pass\n"
        "fake.__dict__.update(isStarted=isStarted, _getClass=_getClass, _JObject=_JObject, _JClass=Meta,\n"
        " _JMethod=_JMethod)\n"
        "sys.modules['_jpype'] = fake\nclass Lang(_JObject): pass\nLang.__name__ = 'java.lang.String'");
    EXPECT_EQ(qxCreateClassArray("java.lang.String"), nullptr);
    EXPECT_FALSE(IsJavaFunction(u"java.lang.String.valueOf"));
    run("fake.isStarted = len\nfake._getClass = print");
    EXPECT_EQ(qxCreateClassArray("java.lang.String"), nullptr);
    run("del sys.modules['_jpype']");
}

TEST_F(Java, TheBridgeAloneStartsNoMachine) {
    NEEDS_JAVA();
    run("import jpype");
    if (evalNumber("int(jpype.isJVMStarted())") == 0) {
        EXPECT_FALSE(IsJavaFunction(u"java.lang.String.valueOf"));
        EXPECT_EQ(qxCreateClassArray("java.lang.String"), nullptr);
        EXPECT_EQ(evalNumber("int(jpype.isJVMStarted())"), 0);
    }
}

TEST_F(Java, AMethodOfAJavaClassIsAJavaFunction) {
    NEEDS_JAVA();
    start();
    EXPECT_TRUE(IsJavaFunction(u"java.lang.String.valueOf"));
    EXPECT_TRUE(IsJavaFunction(u"java.lang.Math.max"));
    EXPECT_TRUE(IsJavaFunction(u"java.util.Collections.sort"));
    for (const char16_t* name :
         {u"java.lang.String.noSuchMethod", u"java.lang.NoSuchClass.valueOf", u"java.lang.String", u"java.lang.valueOf",
          u"java.lang.Math.PI", u"String.valueOf", u"valueOf", u"", u".", u".valueOf", u"java.lang.String.",
          u"java..String.valueOf", u"java.lang.String[].length", u"int.valueOf", u"java.lang.Str\u00EFng.valueOf"}) {
        EXPECT_FALSE(IsJavaFunction(name));
    }
}

TEST_F(Java, MembersOfJavaClassesAreFound) {
    NEEDS_JAVA();
    start();
    const qxUniqueArray method = member("java.lang.String", "valueOf");
    ASSERT_TRUE(method);
    EXPECT_TRUE(qxIsA(method.get(), "java"));
    EXPECT_FALSE(qxIsA(method.get(), "double"));
    EXPECT_FALSE(member("java.lang.String", "noSuchMethod"));
    EXPECT_FALSE(member("java.lang.String", ""));
}

TEST_F(Java, AnObjectOfJavaIsOpaqueAndOfClassJava) {
    NEEDS_JAVA();
    start();
    const qxUniqueArray list = value("jpype.JClass('java.util.ArrayList')()");
    EXPECT_EQ(qxGetClassID(list.get()), qxClassID::opaque);
    EXPECT_TRUE(qxIsA(list.get(), "java"));
    EXPECT_FALSE(qxIsA(value("[]").get(), "java"));
    EXPECT_FALSE(qxIsA(value("len").get(), "java"));
}

TEST_F(Java, AClassThatIsNotOfThePlatformIsLoadedByTheSessionAlone) {
    NEEDS_JAVA();
    start();
    const std::string name = "org.jpype.pickle.Encoder";
    const std::string known =
        "int('" + name + "' in [c.__name__ for c in type.__subclasses__(jpype.JClass('java.lang.Object'))])";
    if (evalNumber(known) == 0) {
        EXPECT_EQ(qxCreateClassArray(name.c_str()), nullptr);
        EXPECT_EQ(evalNumber(known), 0);
    }
    run("encoder = jpype.JClass('" + name + "')");
    EXPECT_NE(qxCreateClassArray(name.c_str()), nullptr);
}

class ClassValues : public PythonTest {
protected:
    static qxUniqueArray member(const std::string& className, const std::string& name) {
        const qxUniqueArray cls = qxCreateClassArray(className.c_str());
        EXPECT_TRUE(cls);
        return cls ? qxFindClassMember(cls.get(), name.c_str()) : nullptr;
    }
};

TEST_F(ClassValues, AreClassesOfTheSessionByTheirNames) {
    run("class A: pass");
    EXPECT_EQ(qxGetClassID(qxCreateClassArray("__main__.A").get()), qxClassID::functionHandle);
    EXPECT_TRUE(qxCreateClassArray("builtins.int"));
    for (const char* name : {"", "no.such", "__main__", "__main__.A.", "__main__..A", "\xFF"}) {
        EXPECT_FALSE(qxCreateClassArray(name)) << name;
    }
}

TEST_F(ClassValues, HaveMembersThatNeedNoObject) {
    run("class Meta(type):\n def __getattr__(cls, name): trace.append(name); return 1\n"
        "class Trap:\n def __get__(self, *args): trace.append('get'); return 1\n"
        "class A(metaclass=Meta):\n"
        " constant = 3\n trap = Trap()\n"
        " @staticmethod\n def free(): pass\n"
        " @classmethod\n def make(cls): pass\n"
        " def method(self): pass\n"
        " @property\n def p(self): trace.append('property')\n"
        " class Inner: pass\n"
        "class B(A): pass\na = A()");
    for (const char* name : {"constant", "free", "make", "Inner"}) {
        EXPECT_TRUE(member("__main__.A", name)) << name;
        EXPECT_TRUE(member("__main__.B", name)) << name;
    }
    for (const char* name : {"trap", "method", "p", "missing", "", "\xFF"}) {
        EXPECT_FALSE(member("__main__.A", name)) << name;
    }
    EXPECT_EQ(qxGetClassID(member("__main__.A", "constant").get()), qxClassID::int64);
    EXPECT_TRUE(qxFindClassMember(value("a").get(), "free"));
    EXPECT_FALSE(IsJavaFunction(u"__main__.A.free"));
    EXPECT_FALSE(IsJavaFunction(u"builtins.dict.fromkeys"));
}

}  // namespace
