// A class's name, identity and superclasses, as a value.
#include "contextdata/class_info.h"
#include "tests/faults/function_table.h"

namespace faults {

using ZELKContextData::ClassStructureInfo;

std::vector<Row> classStructureRows() {
    return {
        Row("ZELKContextData::ClassStructureInfo::ClassStructureInfo()", {leafAndRoot},
            asks([](Scene&, Caller&) { return ClassStructureInfo(); }), passes()),
        Row("ZELKContextData::ClassStructureInfo::ClassStructureInfo(ZELKContextData::ClassStructureInfo const&)",
            {leafAndRoot},
            asks([](Scene& scene, Caller&) { return ClassStructureInfo(scene.info->getSuperclassInfo()); }), passes()),
        Row(
            "ZELKContextData::ClassStructureInfo::ClassStructureInfo(ZELKContextData::ClassStructureInfo&&)",
            {leafAndRoot},
            [](Scene& scene, Caller& caller) {
                ClassStructureInfo source(scene.info->getSuperclassInfo());
                return told(caller([&] { return ClassStructureInfo(std::move(source)); }));
            },
            passes()),
        Row(
            "ZELKContextData::ClassStructureInfo::operator=(ZELKContextData::ClassStructureInfo const&)", {leafAndRoot},
            [](Scene& scene, Caller& caller) {
                ClassStructureInfo target;
                caller([&] { target = scene.info->getSuperclassInfo(); });
                return told(target);
            },
            passes()),
        Row(
            "ZELKContextData::ClassStructureInfo::operator=(ZELKContextData::ClassStructureInfo&&)", {leafAndRoot},
            [](Scene& scene, Caller& caller) {
                ClassStructureInfo source(scene.info->getSuperclassInfo());
                ClassStructureInfo target;
                caller([&] { target = std::move(source); });
                return told(target);
            },
            passes()),
        Row(
            "ZELKContextData::ClassStructureInfo::~ClassStructureInfo()", {leafAndRoot},
            [](Scene& scene, Caller& caller) {
                auto structure = std::make_unique<ClassStructureInfo>(scene.info->getSuperclassInfo());
                caller([&] { structure.reset(); });
                return std::string("gone");
            },
            passes()),
        Row("ZELKContextData::ClassStructureInfo::getSuperclasses() const", {leafAndRoot},
            asks([](Scene& scene, Caller&) { return scene.info->getSuperclassInfo().getSuperclasses(); }), passes()),
    };
}

}  // namespace faults
