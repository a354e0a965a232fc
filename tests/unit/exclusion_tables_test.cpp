#include "contextdata/exclusion_tables.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using namespace ZELKContextData;  // NOLINT(google-build-using-namespace): the tables under test
using NameSet = std::set<std::u16string>;

TEST(ExclusionTables, OperatorMethodsAreExactlyThese) {
    const NameSet expected = {u"plus",       u"uplus",     u"minus",   u"uminus",   u"mtimes",   u"times",
                              u"mrdivide",   u"rdivide",   u"mpower",  u"power",    u"mldivide", u"ldivide",
                              u"lt",         u"le",        u"gt",      u"ge",       u"eq",       u"ne",
                              u"ctranspose", u"transpose", u"and",     u"or",       u"not",      u"colon",
                              u"subsref",    u"horzcat",   u"vertcat", u"subsasgn", u"subsindex"};
    EXPECT_EQ(getZELKMethodsExcludeSet(), expected);
    EXPECT_EQ(getZELKMethodsExcludeSet().size(), 29U);
}

TEST(ExclusionTables, OperatorMethodsMatchWholeNamesAndCase) {
    const NameSet names = getZELKMethodsExcludeSet();
    EXPECT_TRUE(names.contains(u"plus"));
    EXPECT_FALSE(names.contains(u"Plus"));
    EXPECT_FALSE(names.contains(u"plus "));
    EXPECT_FALSE(names.contains(u"plus2"));
}

TEST(ExclusionTables, NoDotMethodClassesAreExactlyThese) {
    const NameSet expected = {u"table",
                              u"timetable",
                              u"collection",
                              u"timetableCollection",
                              u"tall",
                              u"ostrel.mixin.internal.indexing.DisallowCompletionOfDotMethodNames",
                              u"ostrel.tabular.CustomProperties",
                              u"ostrel.tabular.TableProperties",
                              u"ostrel.tabular.TimetableProperties",
                              u"ostrel.tabular.TallTimetableProperties",
                              u"distributed",
                              u"codistributed",
                              u"groupedData",
                              u"dataset",
                              u"ostrel.io.DovFile",
                              u"categorical",
                              u"datetime",
                              u"duration",
                              u"calendarDuration"};
    EXPECT_EQ(getNoDotMethodClassesExcludeSet(), expected);
    EXPECT_EQ(getNoDotMethodClassesExcludeSet().size(), 19U);
}

TEST(ExclusionTables, NoDotMethodClassesMatchWholeClassNamesOnly) {
    const NameSet names = getNoDotMethodClassesExcludeSet();
    EXPECT_TRUE(names.contains(u"ostrel.tabular.TableProperties"));
    EXPECT_FALSE(names.contains(u"TableProperties"));
}

TEST(ExclusionTables, GraphicsNamespacesMixFullNamesAndSingleWords) {
    const NameSet expected = {u"ostrel.ui", u"ostrel.uitools", u"ostrel.graphics", u"chartMixin",  u"gx7",
                              u"gx7sample", u"gx7utils",       u"internal",        u"specgraphTwo"};
    EXPECT_EQ(getGX7NamespacesExcludeSet(), expected);
}

TEST(ExclusionTables, GraphicsWordsBelowTheTopNamespace) {
    EXPECT_EQ(getGX7OstrelNamespacesExcludeSet(), (NameSet{u"ui", u"uitools", u"graphics"}));
}

TEST(ExclusionTables, ChangingACopyDoesNotChangeTheNextOne) {
    for (const auto table : {getZELKMethodsExcludeSet, getNoDotMethodClassesExcludeSet, getGX7NamespacesExcludeSet,
                             getGX7OstrelNamespacesExcludeSet}) {
        NameSet copy = table();
        const NameSet before = copy;
        copy.clear();
        EXPECT_EQ(table(), before);
    }
}

TEST(ExclusionTables, AreOrderedByCodeUnitWithTheShorterFirst) {
    const NameSet names = getGX7NamespacesExcludeSet();
    EXPECT_THAT(names, testing::ElementsAre(u"chartMixin", u"gx7", u"gx7sample", u"gx7utils", u"internal",
                                            u"ostrel.graphics", u"ostrel.ui", u"ostrel.uitools", u"specgraphTwo"));
}

}  // namespace
