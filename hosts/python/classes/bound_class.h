// A class under the name by which a module offers it.
#pragma once

#include <boost/smart_ptr/intrusive_ptr.hpp>

#include <utility>

#include "host/class_system.h"
#include "hosts/python/classes/class_object.h"
#include "hosts/python/classes/forwarding_class.h"

namespace python_host {

/// Answers as the class itself, save for its name: that is the namespace's and the bound name, so that what is listed
/// after "pandas." is "DataFrame" wherever the class was made. The id stays the canonical one.
class BoundClass final : public ForwardingClass {
public:
    BoundClass(boost::intrusive_ptr<ClassObject> cls, zelk::COSInternedID name, bool hidden) noexcept
        : ForwardingClass(*cls), class_(std::move(cls)), name_(name), hidden_(hidden) {}

    const char* getName() const override { return name_.c_str(); }
    /// Bound by a name that begins with an underscore.
    bool isHidden() const override { return hidden_; }

private:
    boost::intrusive_ptr<ClassObject> class_;
    zelk::COSInternedID name_;
    bool hidden_;
};

}  // namespace python_host
