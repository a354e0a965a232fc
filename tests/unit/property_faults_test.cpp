// Every host call of a listing of properties fails in turn.
#include "tests/unit/member_listing_model.h"

namespace {

using memory_host::Service;
using ZELKContextData::ClassInfo;
using ZELKContextData::PropertyInfo;

std::string textOf(const std::vector<std::u16string>& texts) {
    std::string joined;
    for (const std::u16string& text : texts) {
        joined += narrow(text) + ",";
    }
    return "[" + joined + "]";
}

std::string recordOf(const PropertyInfo& property) {
    return narrow(property.name) + ":" + narrow(property.typeName) + textOf(property.sizes) +
           textOf(property.validators) + (property.readFlag ? " read" : "") +
           (property.hasCustomGetter ? " getter" : "") + (property.extendedFlag ? " extended " : " ") +
           std::to_string(property.valueKind) + textOf(property.values);
}

/// A property with a whole record, and what is known of its getter from which source.
struct ModelProperty {
    PropertyInfo record;
    Declared::Fate fate = Declared::Fate::shown;
    bool hasGetterByRecord = false;
    bool hasGetterByAttribute = false;
    std::u16string typeID = {};
    std::vector<std::u16string> ownTexts = {};  // its values; empty for one that has to be converted
};

struct ModelLevel {
    std::vector<ModelProperty> properties;
    std::vector<std::size_t> superclasses;
};

Levels levelsOf(const std::vector<ModelLevel>& model) {
    Levels levels;
    for (const ModelLevel& each : model) {
        Level& level = levels.emplace_back();
        level.superclasses = each.superclasses;
        for (const ModelProperty& property : each.properties) {
            level.declared.push_back({narrow(property.record.name), property.fate, recordOf(property.record)});
        }
    }
    return levels;
}

/// The steps at which a host that fails is answered for, instead of failing the level.
enum class Guard { none, customGetter, stored };

Guard guardOf(const FailedCall& failed) {
    const std::size_t property = failed.last(Service::propertyGetName);
    switch (failed.call().service) {
        case Service::propertyGetExtended:
            return failed.countOf(Service::propertyGetExtended, property) == 1 ? Guard::customGetter : Guard::stored;
        case Service::extendedQueryIsStored:
            return Guard::stored;
        case Service::extendedHasCustomGetter:
        case Service::propertyFindAttribute:
        case Service::attributeGetDataType:
        case Service::getPublicClient:
        case Service::attributeGetValue:
            return Guard::customGetter;
        case Service::makeInterned:
            return failed.call().argument == "RVXGetSet" ? Guard::customGetter : Guard::none;
        case Service::dataTypeGetID:  // of the attribute's type, or of the property's own
            return failed.countOf(Service::propertyFindAttribute, property) == 1 ? Guard::customGetter : Guard::none;
        default:
            return Guard::none;
    }
}

void dropValues(PropertyInfo& record) {
    record.values.clear();
    record.valueKind = 0;
}

/// What a null answer makes of the property that is being read.
void answerNull(const FailedCall& failed, ModelProperty& property) {
    PropertyInfo& record = property.record;
    const std::size_t first = failed.last(Service::propertyGetName);
    switch (failed.call().service) {
        case Service::classOfMember:
            property.fate = Declared::Fate::rejected;
            return;
        case Service::propertyGetDataType:
            record.typeName.clear();
            record.sizes.clear();
            record.validators.clear();
            return dropValues(record);
        case Service::validationTypeGet:
            record.typeName = property.typeID;
            record.sizes.clear();
            record.validators.clear();
            return;
        case Service::getConversion:
            return dropValues(record);
        case Service::typeValueGetText: {
            const std::size_t place = failed.countOf(Service::typeValueGetText, first) - 1;
            if (!property.ownTexts[place].empty()) {
                record.values[place] = u"any " + property.ownTexts[place];
                record.valueKind = 2;
            }
            return;
        }
        case Service::propertyGetExtended:
            if (failed.countOf(Service::propertyGetExtended, first) == 1) {
                record.hasCustomGetter = property.hasGetterByAttribute;
            } else {
                record.extendedFlag = true;
            }
            return;
        case Service::propertyFindAttribute:
        case Service::attributeGetDataType:
        case Service::attributeGetValue:
            record.hasCustomGetter = property.hasGetterByRecord;
            return;
        default:
            return;
    }
}

class PropertyFaults : public MemberCollectionFaults {
protected:
    static PropertyInfo plain(std::u16string name) {
        PropertyInfo record;
        record.name = std::move(name);
        record.extendedFlag = true;
        return record;
    }

    std::vector<ModelLevel> makeProperties();

    Outcome<Records> outcome(const std::vector<ModelLevel>& model, const FailedCall& failed) {
        if (failed.isInterrupt()) {
            return {failed.fault};
        }
        const std::size_t level = levelOf(failed);
        const std::size_t levelStart = failed.last(Service::getClass);
        std::vector<ModelLevel> changed = model;
        if (losesOwnMembers(failed)) {
            changed[level].properties.clear();
            return {listing(levelsOf(changed), none, true)};
        }
        const std::size_t visited = failed.countOf(Service::propertyGetName, levelStart);
        const bool isOwn = visited > 0 && visited <= changed[level].properties.size();
        const bool fails = !failed.isNullAnswer();
        if (!isOwn) {
            return {listing(levelsOf(changed), fails ? level : none, true)};
        }
        ModelProperty& property = changed[level].properties[visited - 1];
        const Guard guard = guardOf(failed);
        if (!fails) {
            answerNull(failed, property);
        } else if (guard == Guard::customGetter) {
            property.record.hasCustomGetter = true;
        } else if (guard == Guard::stored) {
            property.record.extendedFlag = true;
        } else {
            return {listing(levelsOf(changed), level, true)};
        }
        return {listing(levelsOf(changed), none, true)};
    }
};

/// Builds the world and says what it is.
std::vector<ModelLevel> PropertyFaults::makeProperties() {
    using enum Declared::Fate;
    world.convertsToAny("Colour", [](const std::string& raw) { return "any " + raw; });

    world.cls("Leaf").property("colour").readOnly().dataType("Colour").textValue("red").rawValue("1").textValue("blue");
    ModelProperty colour{.record = plain(u"colour"), .typeID = u"Colour", .ownTexts = {u"red", u"", u"blue"}};
    colour.record.readFlag = true;
    colour.record.typeName = u"Colour";
    colour.record.valueKind = 2;
    colour.record.values = {u"red", u"any 1", u"blue"};

    world.cls("Leaf").property("depth").visibility(0).customGetter().stored(false);
    ModelProperty depth{.record = plain(u"depth"), .fate = hidden, .hasGetterByRecord = true};

    world.cls("Leaf").property("secret").getAccess(2).setAccess(3).property("kept").getAccess(7).setAccess(7);
    const ModelProperty secret{.record = plain(u"secret")};
    const ModelProperty kept{.record = plain(u"kept"), .fate = rejected};

    world.cls("Left").property("shade").dataType("Colour").textValue("dark").customGetter(false).stored(false);
    ModelProperty shade{.record = plain(u"shade"), .typeID = u"Colour", .ownTexts = {u"dark"}};
    shade.record.typeName = u"Colour";
    shade.record.extendedFlag = false;
    shade.record.valueKind = 1;
    shade.record.values = {u"dark"};

    world.cls("Right")
        .property("guarded")
        .getAccess(7)
        .setAccess(7)
        .readableBy("Other")
        .writableBy("Gardener")
        .attribute("RVXGetSet", "logical scalar", world.logical(true))
        .customGetter(false)
        .stored(std::nullopt);
    ModelProperty guarded{.record = plain(u"guarded"), .hasGetterByAttribute = true};
    guarded.record.hasCustomGetter = true;

    world.cls("Right").property("age").customGetter().stored(true);
    ModelProperty age{.record = plain(u"age"), .hasGetterByRecord = true};
    age.record.hasCustomGetter = true;

    world.cls("Root").property("depth").property("age").dataType("double").validation("pkg.Number", {"1", ":"},
                                                                                      {"mustBeFinite"});
    const ModelProperty rootDepth{.record = plain(u"depth")};
    ModelProperty rootAge{.record = plain(u"age"), .typeID = u"double"};
    rootAge.record.typeName = u"pkg.Number";
    rootAge.record.sizes = {u"1", u":"};
    rootAge.record.validators = {u"mustBeFinite"};

    return {{{colour, depth, secret, kept}, {1, 3}},
            {{shade}, {2}},
            {{rootDepth, rootAge}, {}},
            {{guarded, age}, {4}},
            {{rootDepth, rootAge}, {}}};
}

TEST_F(PropertyFaults, AFailureEmptiesItsClassAndWhatThatInheritsOrIsAnsweredFor) {
    const std::vector<ModelLevel> model = makeProperties();
    const ClassInfo leaf = infoOf("Leaf");
    const ClassInfo gardener = infoOf("Gardener");
    const auto records = [&] {
        Records texts;
        for (const PropertyInfo& property : leaf.getProperties({0, 2}, &gardener)) {
            texts.push_back(recordOf(property));
        }
        return texts;
    };
    sweepFaults<Records>(world, records, [&](const FailedCall& failed, const Records& full) {
        EXPECT_EQ(full, listing(levelsOf(model), none, true));
        return outcome(model, failed);
    });
}

}  // namespace
