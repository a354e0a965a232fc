#include "contextdata/exclusion_tables.h"

namespace ZELKContextData {

using NameSet = std::set<std::u16string>;

NameSet getZELKMethodsExcludeSet() {
    static const NameSet names = {
        u"plus",    u"uplus",    u"minus",      u"uminus",    u"mtimes",  u"times", u"mrdivide", u"rdivide",
        u"power",   u"mpower",   u"mldivide",   u"ldivide",   u"lt",      u"le",    u"gt",       u"ge",
        u"eq",      u"ne",       u"ctranspose", u"transpose", u"and",     u"or",    u"not",      u"colon",
        u"subsref", u"subsasgn", u"subsindex",  u"horzcat",   u"vertcat",
    };
    return names;
}

NameSet getNoDotMethodClassesExcludeSet() {
    static const NameSet names = {
        u"table",
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
        u"calendarDuration",
    };
    return names;
}

NameSet getGX7NamespacesExcludeSet() {
    static const NameSet names = {
        u"ostrel.ui", u"ostrel.uitools", u"ostrel.graphics", u"chartMixin",   u"gx7",
        u"gx7sample", u"gx7utils",       u"internal",        u"specgraphTwo",
    };
    return names;
}

NameSet getGX7OstrelNamespacesExcludeSet() {
    static const NameSet names = {u"ui", u"uitools", u"graphics"};
    return names;
}

}  // namespace ZELKContextData
