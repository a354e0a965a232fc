// What a newer version of the library may have more than this one: another public function and another class with
// virtual operations.
#include <string>

namespace ZELKContextData {

class __attribute__((visibility("default"))) Newcomer {
public:
    virtual ~Newcomer();
    virtual std::u16string name() const;
};

Newcomer::~Newcomer() = default;
std::u16string Newcomer::name() const { return u"newcomer"; }

__attribute__((visibility("default"))) std::u16string nameOf(const Newcomer& newcomer);
std::u16string nameOf(const Newcomer& newcomer) { return newcomer.name(); }

}  // namespace ZELKContextData
