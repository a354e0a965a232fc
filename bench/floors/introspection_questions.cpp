// Is it a class, a namespace, an object; has it such a member; may its methods follow a dot?
#include "bench/floors/questions.h"
#include "contextdata/exclusion_tables.h"
#include "contextdata/introspection.h"
#include "host/class_objects.h"
#include "host/class_system.h"
#include "host/dispatcher.h"
#include "host/i18n.h"

namespace bench {

using namespace ZELKIntrospection;
using zelk::COSClass;
using zelk::internal::makeInterned;

namespace {

const std::string family = "introspection";
const std::u16string account = u"introspection.Account";
const std::u16string foundation = u"introspection.Foundation";
const std::u16string secret = u"introspection.Secret";
const std::u16string space = u"introspection";
const std::string deposit = "depositEverything";
const std::string balance = "balanceOfToday";

zelk::COSInternedID internedName(const std::u16string& name) { return makeInterned(fl::i18n::to_string(name)); }

COSClass* defined(COSClass* cls) { return cls->getDefinition(false) == nullptr ? nullptr : cls; }

COSClass* classOf(const std::u16string& name) { return defined(COSClass::getClass(internedName(name))); }

COSClass* classOf(const qxArray* value) { return defined(COSClass::getClass(omGetCOSClassID(value))); }

zelk::COSInterface* floorNamespace() {
    const std::string name = fl::i18n::to_string(space, fl::i18n::codecvt_ustring_to_ascii(false));
    return zelk::COSPackage::getNamespaceInterface(makeInterned(name)).get();
}

bool hasSuchMethod(COSClass* cls, const std::string& name) {
    return cls->findMethods(makeInterned(name))->hasMoreElements();
}

/// Whether the class has a static method of a name, from one walk.
bool hasStaticMethod(COSClass* cls, const std::string& name) {
    const zelk::COSIteratorPtr methods = cls->findMethods(makeInterned(name));
    return methods->hasMoreElements() && zelk::cosiToMethod(methods->nextElement().get())->isStatic();
}

bool floorWithoutDotMethods(const qxArray* value) {
    static const std::set<std::u16string> names = ZELKContextData::getNoDotMethodClassesExcludeSet();
    ObjectSystem& objects = Dispatcher::getDispatcher().getObjectSystem();
    const std::int32_t cls = qxGetFullClassID(value);
    for (const std::u16string& name : names) {
        const std::string narrow = fl::i18n::to_string(name, fl::i18n::codecvt_ustring_to_ascii(false));
        if (objects.isDerivedFrom(cls, objects.getClassNumber(narrow))) {
            return true;
        }
    }
    return false;
}

std::vector<Question> classQuestions(const qxSharedArray& object) {
    const auto id = ZELKContextData::ResolvedClassID::fromKnownResolvedClassID(account);
    const auto base = ZELKContextData::ResolvedClassID::fromKnownResolvedClassID(foundation);
    return {
        question(
            family, "getCOSClass of a name", 1, [] { return getCOSClass(account); }, [] { return classOf(account); }),
        question(
            family, "getCOSClass of an identity", 1, [id] { return getCOSClass(id); },
            [id] { return COSClass::getClass(id.get()); }),
        question(
            family, "getCOSClass of a value", 1, [object] { return getCOSClass(object.get()); },
            [object] { return classOf(object.get()); }),
        question(
            family, "isZELKClass of a name", 1, [] { return isZELKClass(account); },
            [] { return classOf(account) != nullptr; }),
        question(
            family, "isZELKClass of an identity", 1, [id] { return isZELKClass(id); },
            [id] { return COSClass::getClass(id.get()) != nullptr; }),
        question(
            family, "isZELKObject", 1, [object] { return isZELKObject(object.get()); },
            [object] { return classOf(object.get()) != nullptr; }),
        question(
            family, "isHiddenZELKClass", 1, [] { return isHiddenZELKClass(secret); },
            [] { return classOf(secret)->isHidden(); }),
        question(
            family, "isZELKClassDerivedFrom, by name", 1, [] { return isZELKClassDerivedFrom(account, foundation); },
            [] { return classOf(account)->isSubclassOf(internedName(foundation)); }),
        question(
            family, "isZELKClassDerivedFrom, by identity", 1, [id, base] { return isZELKClassDerivedFrom(id, base); },
            [id, base] { return COSClass::getClass(id.get())->isSubclassOf(makeInterned(base.get().view())); }),
        question(
            family, "getClassName", 1, [object] { return std::u16string(getClassName(object.get())); },
            [object] {
                return fl::i18n::to_ustring(qxGetClassName(object.get()), fl::i18n::codecvt_ascii_to_ustring(false));
            }),
        question(
            family, "getConstructorName", 1, [] { return std::u16string(getConstructorName(account)); },
            [] { return account.substr(account.rfind(u'.') + 1); }),
    };
}

std::vector<Question> memberQuestions(const qxSharedArray& object) {
    const auto id = ZELKContextData::ResolvedClassID::fromKnownResolvedClassID(account);
    const auto staticByLibrary = [](const auto& cls) {
        bool flag = false;
        return hasMethod(cls, deposit, flag) && flag;
    };
    return {
        question(
            family, "hasMethod of an identity", 1, [=] { return staticByLibrary(id); },
            [id] { return hasStaticMethod(defined(COSClass::getClass(id.get())), deposit); }),
        question(
            family, "hasMethod of a name", 1, [=] { return staticByLibrary(account); },
            [] { return hasStaticMethod(classOf(account), deposit); }),
        question(
            family, "hasMethod of a value", 1, [object] { return hasMethod(object.get(), deposit); },
            [object] { return hasSuchMethod(classOf(object.get()), deposit); }),
        question(
            family, "hasProperty of a value", 1, [object] { return hasProperty(object.get(), balance); },
            [object] { return classOf(object.get())->findProperty(makeInterned(balance)) != nullptr; }),
    };
}

}  // namespace

std::vector<Question> introspectionQuestions(memory_host::World& world) {
    world.cls("introspection.Secret").hidden();
    world.cls("introspection.Account").derives("introspection.Foundation").method(deposit).isStatic().property(balance);
    world.ns("introspection").holdsClass("introspection.Account");
    const std::u16string withoutDot = *ZELKContextData::getNoDotMethodClassesExcludeSet().rbegin();
    world.cls("introspection.Indexed").derives(std::string(withoutDot.begin(), withoutDot.end()));
    const qxSharedArray object(world.object("introspection.Account").release(), false);
    const qxSharedArray indexed(world.object("introspection.Indexed").release(), false);

    std::vector<Question> questions = classQuestions(object);
    for (Question& each : memberQuestions(object)) {
        questions.push_back(std::move(each));
    }
    questions.push_back(question(
        family, "getNamespaceInterface", 1, [] { return getNamespaceInterface(space); }, floorNamespace));
    questions.push_back(question(
        family, "isZELKNamespace", 1, [] { return isZELKNamespace(space); },
        [] { return floorNamespace() != nullptr; }));
    questions.push_back(question(
        family, "isNoDotMethodClass", 1, [indexed] { return isNoDotMethodClass(indexed.get()); },
        [indexed] { return floorWithoutDotMethods(indexed.get()); }));
    return questions;
}

}  // namespace bench
