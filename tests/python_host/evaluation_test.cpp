#include "host/evaluation.h"
#include "tests/python_host/evaluation.h"

namespace {

using namespace session;
using python_host::EvaluationPolicy;

using Evaluation = EvaluationTest;

TEST_F(Evaluation, IsGuardedUnlessSomebodyChoosesOtherwise) {
    EXPECT_EQ(python_host::evaluationPolicy(), EvaluationPolicy::guarded);
}

TEST_F(Evaluation, ReadsNamesAndAttributes) {
    run("import types, math\nclass A:\n cls = 'of class'\na = A()\na.b = types.SimpleNamespace(c=5)");
    EXPECT_EQ(evaluated("a.b.c"), "5");
    EXPECT_EQ(evaluated("a.cls"), "'of class'");
    EXPECT_EQ(evaluated("math.pi"), "3.141592653589793");
    EXPECT_EQ(evaluated(" a . b\t. c "), "5");
    EXPECT_EQ(evaluated("a.missing"), "refused");
    EXPECT_EQ(evaluated("missing"), "refused");
    EXPECT_EQ(evaluated("len"), "<built-in function len>");
}

TEST_F(Evaluation, ReadsAVariableBeforeTheBuiltInOfItsName) {
    run("len = 7");
    EXPECT_EQ(evaluated("len"), "7");
}

TEST_F(Evaluation, ReadsNamesBeyondAscii) {
    run("gr\u00f6\u00dfe = {'\u00fc': 1}");
    EXPECT_EQ(evaluated("gr\u00f6\u00dfe['\u00fc']"), "1");
}

TEST_F(Evaluation, ReadsElementsOfRows) {
    run("l = [10, 20, 30]\nt = (1, 2)\ns = 'text'\nb = b'bytes'\nr = range(5, 50, 5)");
    EXPECT_EQ(evaluated("l[2]"), "30");
    EXPECT_EQ(evaluated("l[-1]"), "30");
    EXPECT_EQ(evaluated("l[True]"), "20");
    EXPECT_EQ(evaluated("l[0x1]"), "20");
    EXPECT_EQ(evaluated("l[3]"), "refused");
    EXPECT_EQ(evaluated("l[-4]"), "refused");
    EXPECT_EQ(evaluated("l[1.0]"), "refused");
    EXPECT_EQ(evaluated("l['a']"), "refused");
    EXPECT_EQ(evaluated("l[99999999999999999999999999]"), "refused");
    EXPECT_EQ(evaluated("l[1:]"), "[20, 30]");
    EXPECT_EQ(evaluated("l[::-1]"), "[30, 20, 10]");
    EXPECT_EQ(evaluated("l[:99999999999999999999999999]"), "[10, 20, 30]");
    EXPECT_EQ(evaluated("l[::0]"), "refused");
    EXPECT_EQ(evaluated("l[None:2]"), "[10, 20]");
    EXPECT_EQ(evaluated("t[1]"), "2");
    EXPECT_EQ(evaluated("s[0]"), "'t'");
    EXPECT_EQ(evaluated("s[1:3]"), "'ex'");
    EXPECT_EQ(evaluated("b[0]"), "98");
    EXPECT_EQ(evaluated("r[2]"), "15");
    EXPECT_EQ(evaluated("r[1:3]"), "range(10, 20, 5)");
}

TEST_F(Evaluation, CopiesNoHugeSlice) {
    run("l = [0] * 100001\nr = range(10**30)");
    EXPECT_EQ(evaluated("l[:]"), "refused");
    EXPECT_EQ(evaluated("l[1:]").substr(0, 6), "[0, 0,");
    EXPECT_EQ(evaluated("r[5:]"), "range(5, 1000000000000000000000000000000)");
}

TEST_F(Evaluation, ReadsItemsOfDictionaries) {
    run("import types\n"
        "d = {'k': 1, 2: 'two', None: 'none', (1, 'a'): 'pair', b'b': 'bytes', 1.5: 'real', True: 'true'}\n"
        "t = {'k': {'deep': [1, {'er': 5}]}}\n"
        "p = types.MappingProxyType({'k': 'shown'})");
    EXPECT_EQ(evaluated("d['k']"), "1");
    EXPECT_EQ(evaluated("d[\"k\"]"), "1");
    EXPECT_EQ(evaluated("d[2]"), "'two'");
    EXPECT_EQ(evaluated("d[2.0]"), "'two'");
    EXPECT_EQ(evaluated("d[1]"), "'true'");
    EXPECT_EQ(evaluated("d[None]"), "'none'");
    EXPECT_EQ(evaluated("d[1, 'a']"), "'pair'");
    EXPECT_EQ(evaluated("d[(1, 'a')]"), "'pair'");
    EXPECT_EQ(evaluated("d[b'b']"), "'bytes'");
    EXPECT_EQ(evaluated("d[1.5]"), "'real'");
    EXPECT_EQ(evaluated("d['missing']"), "refused");
    EXPECT_EQ(evaluated("d[-1]"), "refused");
    EXPECT_EQ(evaluated("d[1:2]"), "refused");
    EXPECT_EQ(evaluated("d[[1]]"), "refused");
    EXPECT_EQ(evaluated("t['k']['deep'][1]['er']"), "5");
    EXPECT_EQ(evaluated("p['k']"), "'shown'");
}

TEST_F(Evaluation, ReadsElementsOfArrays) {
    run("import numpy\na = numpy.arange(6).reshape(2, 3)\no = numpy.array([['x', {'k': 1}]], dtype=object)\n"
        "s = numpy.array([(1, 2.5)], dtype=[('i', 'i4'), ('f', 'f8')])");
    EXPECT_EQ(evaluated("a[1, 2]"), "5");
    EXPECT_EQ(evaluated("a[1]"), "array([3, 4, 5])");
    EXPECT_EQ(evaluated("a[:, 1]"), "array([1, 4])");
    EXPECT_EQ(evaluated("a[-1, -1]"), "5");
    EXPECT_EQ(evaluated("a[2]"), "refused");
    EXPECT_EQ(evaluated("a[True]"), "refused");
    EXPECT_EQ(evaluated("a[[0, 1]]"), "refused");
    EXPECT_EQ(evaluated("a[1].shape"), "(3,)");
    EXPECT_EQ(evaluated("o[0, 1]['k']"), "1");
    EXPECT_EQ(evaluated("s['f']"), "array([2.5])");
    EXPECT_EQ(evaluated("s['missing']"), "refused");
}

TEST_F(Evaluation, ReadsColumnsOfFrames) {
    run("import pandas\nframe = pandas.DataFrame({'a': [1, 2], 'b': ['x', 'y']})");
    EXPECT_EQ(evaluated("frame['a']"), "0    1\n1    2\nName: a, dtype: int64");
    EXPECT_EQ(evaluated("frame['b']"), "0    x\n1    y\nName: b, dtype: object");
    EXPECT_EQ(evaluated("frame['a'].name"), "'a'");
    EXPECT_EQ(evaluated("frame['missing']"), "refused");
    EXPECT_EQ(evaluated("frame[0]"), "refused");
    run("import datetime\nkinds = pandas.DataFrame({'t': [datetime.datetime(2020, 1, 2)], 'c': ['x'], 'i': [1]})\n"
        "kinds['c'] = kinds['c'].astype('category')\nkinds['i'] = kinds['i'].astype('Int64')");
    for (const char* column : {"kinds['t'].name", "kinds['c'].name", "kinds['i'].name"}) {
        EXPECT_NE(evaluated(column), "refused") << column;
    }
    EXPECT_EQ(evaluated("frame.columns"), "Index(['a', 'b'], dtype='object')");
}

TEST_F(Evaluation, ReadsLiterals) {
    EXPECT_EQ(evaluated("1_000"), "1000");
    EXPECT_EQ(evaluated("-5"), "-5");
    EXPECT_EQ(evaluated("0xFF"), "255");
    EXPECT_EQ(evaluated("1.5e3"), "1500.0");
    EXPECT_EQ(evaluated("2j"), "2j");
    EXPECT_EQ(evaluated(".5"), "0.5");
    EXPECT_EQ(evaluated("True"), "True");
    EXPECT_EQ(evaluated("None"), "None");
    EXPECT_EQ(evaluated("'a' \"b\""), "'ab'");
    EXPECT_EQ(evaluated("b'a' b'b'"), "b'ab'");
    EXPECT_EQ(evaluated("(1, 'a')"), "(1, 'a')");
    EXPECT_EQ(evaluated("()"), "()");
    EXPECT_EQ(evaluated("(1)"), "1");
    EXPECT_EQ(evaluated("(1,)"), "(1,)");
    EXPECT_EQ(evaluated("[1, [2], {}]"), "[1, [2], {}]");
    EXPECT_EQ(evaluated("{'a': 1, 2: [3]}"), "{'a': 1, 2: [3]}");
    EXPECT_EQ(evaluated("[\n1,\n2\n]"), "[1, 2]");
    EXPECT_EQ(evaluated("{'a': 5}['a']"), "5");
    EXPECT_EQ(evaluated("(3).real"), "3");
    EXPECT_EQ(evaluated("3.0.real"), "3.0");
    EXPECT_EQ(evaluated("''.join").substr(0, 24), "<built-in method join of");
}

TEST_F(Evaluation, ReadsTextsAsTheLanguageDoes) {
    const char* texts[] = {R"('a\'b\\c\n\t\x41\101\u00e9\U0001F600')",
                           R"(r'a\n\'b')",
                           R"(b'\x00\xff\101\q')",
                           R"("""a
b"c""")",
                           R"(rb'\x')",
                           R"(u'x')",
                           R"('a\
b')",
                           R"(B'x' Rb'\y')"};
    for (const char* text : texts) {
        EXPECT_EQ(evaluated(text), evalText("repr(" + std::string(text) + ")")) << text;
    }
}

TEST_F(Evaluation, RefusesTextsThatDoNotEnd) {
    for (const char* text : {"'", "'a", "'a\n'", "\"\"\"a\"\"", "'\\", "'\\x4'", "'\\N{DASH}'", "b'\u00e9'", "'a' b'b'",
                             "f'{x}'", "'\\U00110000'"}) {
        EXPECT_EQ(evaluated(text), "refused") << text;
    }
}

TEST_F(Evaluation, RefusesWhateverIsNoReading) {
    run("l = [1]\nd = {'k': l}\ndef f(): trace.append('f'); return l\nclass A:\n x = 1\na = A()");
    for (const char* text : {"f()",       "l.append(1)",
                             "l[0]()",    "(f)()",
                             "l + l",     "-l",
                             "not l",     "l if l else d",
                             "lambda: 0", "[x for x in l]",
                             "x := 1",    "a.x = 2",
                             "del a",     "import os",
                             "l, d",      "l;",
                             "",          " ",
                             "l[",        "l]",
                             "(l",        "{1}",
                             "{*l}",      "[*l]",
                             "l[f()]",    "d[l[0]]",
                             "l[0:f()]",  "l == l",
                             "`l`",       "l!",
                             "l #",       "l.",
                             "l..x",      ".x",
                             "l.0",       "l[]",
                             "l[,]",      "1.real",
                             "1if",       "0777",
                             "1__0",      "--1",
                             "...",       "l[...]",
                             "await l",   "l\nd",
                             "-1 .real",  "a.None",
                             "None.x.y",  "{'a' 1}",
                             "{'a':}",    "{:1}",
                             "[,]",       "(,)",
                             "l[0 0]",    "l[::::]"}) {
        EXPECT_EQ(evaluated(text), "refused") << text;
    }
    EXPECT_EQ(evalText("repr((l, a.x))"), "([1], 1)");
}

TEST_F(Evaluation, OfAStatementMayEndWithASemicolon) {
    run("x = 1");
    constexpr bool asStatement = true;
    EXPECT_EQ(evaluated("x;", asStatement), "1");
    EXPECT_EQ(evaluated("x ; ", asStatement), "1");
    EXPECT_EQ(evaluated("x", asStatement), "1");
    EXPECT_EQ(evaluated("x;;", asStatement), "refused");
    EXPECT_EQ(evaluated(";", asStatement), "refused");
    EXPECT_EQ(evaluated("isa(findpackage('x'), 'opaque');", asStatement), "refused");
}

TEST_F(Evaluation, OfMonstersIsRefusedAtOnce) {
    run("a = 1");
    std::string chain = "a";
    for (int index = 0; index < 200'000; ++index) {
        chain += ".a";
    }
    for (const std::string& monster :
         {std::string(1'000'000, 'a'), std::string(10'000, '('), std::string(10'000, '['), std::string(10'000, '{'),
          "a" + std::string(10'000, '['), chain, std::string(1'000'000, '9'), "a[" + std::string(1'000'000, '9') + "]",
          "'" + std::string(1'000'000, 'x'), std::string(101, '(') + "a" + std::string(101, ')'),
          std::string(1'000'000, '-'), std::string(1000, '9'), std::string("a\0", 2), std::string("a\0b", 3)}) {
        EXPECT_EQ(evaluated(monster), "refused") << monster.substr(0, 20);
    }
    EXPECT_EQ(evaluated(std::string(100, '(') + "a" + std::string(100, ')')), "1");
    chain.resize(60'001);
    EXPECT_EQ(evaluated(chain), "refused");
}

TEST_F(Evaluation, OfALoneSurrogateIsRefused) {
    qxArray* output = nullptr;
    for (const EvaluationPolicy policy : {EvaluationPolicy::guarded, EvaluationPolicy::full}) {
        python_host::setEvaluationPolicy(policy);
        EXPECT_NE(inEvalExp(u"'\xD800'", 1, &output, false, inEvaluationSource::introspection),
                  inExecutionStatus::success);
        EXPECT_EQ(output, nullptr);
    }
}

TEST_F(Evaluation, NeedsNoRoomForItsValue) {
    EXPECT_EQ(inEvalExp(u"1", 0, nullptr, false, inEvaluationSource::introspection), inExecutionStatus::success);
    EXPECT_NE(inEvalExp(u"missing", 0, nullptr, false, inEvaluationSource::introspection), inExecutionStatus::success);
}

TEST_F(Evaluation, UnderTheStrictPolicyReadsPlainDataOnly) {
    python_host::setEvaluationPolicy(EvaluationPolicy::strict);
    run("import math\nclass A:\n __slots__ = ('s', '__dict__')\n plain = 'p'\n def f(self): pass\n"
        " @staticmethod\n def g(): pass\na = A()\na.s = 1\na.own = 2\nl = [1]\nd = {'k': 1}");
    EXPECT_EQ(evaluated("a.s"), "1");
    EXPECT_EQ(evaluated("a.own"), "2");
    EXPECT_EQ(evaluated("a.plain"), "'p'");
    EXPECT_EQ(evaluated("A.plain"), "'p'");
    EXPECT_EQ(evaluated("math.pi"), "3.141592653589793");
    for (const char* text : {"a.f", "A.f", "A.g", "l[0]", "d['k']", "1", "'a'", "[]", "()", "a.own.real", "l.append"}) {
        EXPECT_EQ(evaluated(text), "refused") << text;
    }
    EXPECT_EQ(evaluated("(a).own"), "2");
}

}  // namespace
