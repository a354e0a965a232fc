// The exceptions of the boundary. They live in your library, so that the process has each type once and the library
// catches what you throw. There is nothing to change here.
#include "host/exceptions.h"

#include <utility>

#include "host/class_system.h"
#include "host/i18n.h"
#include "host/text.h"

namespace foundation::core::except {

IException::IException() = default;
IException::IException(std::string message) : message_(std::move(message)) {}
IException::IException(const IException& other) = default;
IException& IException::operator=(const IException& other) = default;
IException::~IException() noexcept = default;
const std::string& IException::getMessage() const noexcept { return message_; }

IInternalException::IInternalException() = default;
IInternalException::IInternalException(const IInternalException& other) = default;
IInternalException& IInternalException::operator=(const IInternalException& other) = default;
IInternalException::~IInternalException() noexcept = default;

InterruptException::InterruptException() = default;
InterruptException::InterruptException(const InterruptException& other) = default;
InterruptException& InterruptException::operator=(const InterruptException& other) = default;
InterruptException::~InterruptException() noexcept = default;
const boost::exception_detail::clone_base* InterruptException::clone() const { return new InterruptException(*this); }
void InterruptException::rethrow() const { throw InterruptException(*this); }

}  // namespace foundation::core::except

namespace fl::i18n {

ConversionException::ConversionException() = default;
ConversionException::ConversionException(const ConversionException& other) = default;
ConversionException& ConversionException::operator=(const ConversionException& other) = default;
ConversionException::~ConversionException() noexcept = default;
const boost::exception_detail::clone_base* ConversionException::clone() const { return new ConversionException(*this); }
void ConversionException::rethrow() const { throw ConversionException(*this); }

}  // namespace fl::i18n

namespace zelk {

ENoElements::ENoElements() = default;
ENoElements::ENoElements(const ENoElements& other) = default;
ENoElements& ENoElements::operator=(const ENoElements& other) = default;
ENoElements::~ENoElements() noexcept = default;
const boost::exception_detail::clone_base* ENoElements::clone() const { return new ENoElements(*this); }
void ENoElements::rethrow() const { throw ENoElements(*this); }

}  // namespace zelk

TextException::TextException(const char* identifier) : identifier_(identifier) {}
TextException::TextException(const TextException& other) = default;
TextException& TextException::operator=(const TextException& other) = default;
TextException::~TextException() noexcept = default;
const boost::exception_detail::clone_base* TextException::clone() const { return new TextException(*this); }
void TextException::rethrow() const { throw TextException(*this); }
const char* TextException::getComponent() const noexcept { return "OSTREL:string"; }
const char* TextException::getIdentifier() const noexcept { return identifier_; }
