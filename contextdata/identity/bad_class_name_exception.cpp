#include <utility>

#include "contextdata/resolved_class_id.h"

namespace ZELKContextData {

using BadClassNameException = ResolvedClassID::BadClassNameException;

BadClassNameException::BadClassNameException(std::string badClassName) : badClassName_(std::move(badClassName)) {}

BadClassNameException::BadClassNameException(const BadClassNameException& other) = default;

// The host's base has nothing to move; the name is what makes a copy costly.
BadClassNameException::BadClassNameException(BadClassNameException&& other) noexcept
    : IInternalException(other), badClassName_(std::move(other.badClassName_)) {}

BadClassNameException::~BadClassNameException() noexcept = default;

const boost::exception_detail::clone_base* BadClassNameException::clone() const {
    return new BadClassNameException(*this);
}

void BadClassNameException::rethrow() const { throw BadClassNameException(*this); }

}  // namespace ZELKContextData
